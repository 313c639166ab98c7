#!/usr/bin/env bash
# Builds the program and starts it with the given arguments.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=tools/packages.sh
. "$here/tools/packages.sh"
# shellcheck source=tools/setup.sh
. "$here/tools/setup.sh"
# shellcheck disable=SC2086
plm_install $BUILD_PACKAGES $RUN_PACKAGES

log=$(mktemp)
if ! (cd "$here" && cmake --preset release && cmake --build --preset release) >"$log" 2>&1; then
    cat "$log" >&2
    rm -f "$log"
    exit 1
fi
rm -f "$log"
exec "$here/build/release/pellmore" "$@"
