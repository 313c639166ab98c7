#!/usr/bin/env bash
# Tries to make the programs lose a file: ./trials.sh [ROUNDS] [TRIAL...]. Kills before every call and
# at any moment, signals, closed terminals, full and broken disks, two runs over the same files; one
# round is about 4,000 runs and takes a minute or two. Ends with status 1 when anything was lost.
# Full disks are mounted, which needs root; without that the table says that they were not tried.
set -euo pipefail
cd "$(dirname "$0")"
# shellcheck source=tools/packages.sh
. tools/packages.sh
# shellcheck source=tools/setup.sh
. tools/setup.sh
# shellcheck disable=SC2086
plm_install $BUILD_PACKAGES $RUN_PACKAGES $TEST_PACKAGES

preset=${PRESET:-dev}
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" --target pellmore pellmore-cli plm_faults
rounds=${1:-1}
exec python3 tests/trials/trials.py "build/$preset" "$rounds" "${@:2}"
