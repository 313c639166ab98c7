#!/usr/bin/env bash
# Builds the program and starts it with the given arguments. "./run.sh demo", and no arguments where
# there is no display, show its main job on a small collection of its own.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=tools/packages.sh
. "$here/tools/packages.sh"
# shellcheck source=tools/setup.sh
. "$here/tools/setup.sh"
# shellcheck disable=SC2086
plm_install $BUILD_PACKAGES $RUN_PACKAGES

has_display() {
    [ "$(uname)" = Darwin ] || [ -n "${DISPLAY-}${WAYLAND_DISPLAY-}${QT_QPA_PLATFORM-}" ]
}

# The demonstration needs only the program for the command line.
targets=()
if [ "${1-}" = demo ]; then targets=(--target pellmore-cli); fi

[ -x "$here/build/release/pellmore-cli" ] ||
    echo "Building for the first time; this takes some minutes." >&2
log=$(mktemp)
if ! (cd "$here" && cmake --preset release &&
      cmake --build --preset release "${targets[@]}") >"$log" 2>&1; then
    cat "$log" >&2
    rm -f "$log"
    exit 1
fi
rm -f "$log"

programs=$here/build/release
if [ "${1-}" = demo ]; then
    exec "$programs/pellmore-cli" "$@"
elif [ $# -eq 0 ] && ! has_display; then
    echo "The window needs a display, and there is none here. Without one:"
    echo "    ./run.sh '+rename=%artist - %title.mp3' FILE...    renames files"
    echo "    build/release/pellmore-cli --help                  does all the rest"
    echo
    exec "$programs/pellmore-cli" demo
fi
exec "$programs/pellmore" "$@"
