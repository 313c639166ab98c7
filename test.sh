#!/usr/bin/env bash
# Builds and runs every test, without a display. PRESET=asan ./test.sh runs them under the
# sanitizers; further arguments go to ctest.
set -euo pipefail
cd "$(dirname "$0")"
# shellcheck source=tools/packages.sh
. tools/packages.sh
# shellcheck source=tools/setup.sh
. tools/setup.sh
# shellcheck disable=SC2086
plm_install $BUILD_PACKAGES $RUN_PACKAGES $TEST_PACKAGES

preset=${PRESET:-dev}
export QT_QPA_PLATFORM=offscreen
cmake --preset "$preset" >"${TMPDIR:-/tmp}/pellmore-configure.$$" ||
    { cat "${TMPDIR:-/tmp}/pellmore-configure.$$"; exit 1; }
rm -f "${TMPDIR:-/tmp}/pellmore-configure.$$"
cmake --build --preset "$preset"
ctest --preset "$preset" "$@"
