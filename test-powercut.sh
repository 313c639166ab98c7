#!/usr/bin/env bash
# Cuts the power while the command line works: ./test-powercut.sh [quick|full] [ROUNDS]. "full", which
# is what it does by itself, looks up to 35 seconds behind the end of the work and takes about four
# minutes; "quick" looks 8 seconds behind it. See tests/trials/power_cut.py for how it is done.
# Mounting needs root. The last line says which file systems were tried and which could not be.
set -euo pipefail
cd "$(dirname "$0")"
# shellcheck source=tools/packages.sh
. tools/packages.sh
# shellcheck source=tools/setup.sh
. tools/setup.sh
# shellcheck disable=SC2086
plm_install $BUILD_PACKAGES $RUN_PACKAGES $TEST_PACKAGES $FILE_SYSTEM_PACKAGES

preset=${PRESET:-dev}
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" --target pellmore-cli
exec python3 tests/trials/power_cut.py "build/$preset/pellmore-cli" "${1:-full}" "${2:-1}"
