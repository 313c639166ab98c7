#!/usr/bin/env bash
# What can be said of the sources without using the program: ./check.sh [CHECK...], all when none is
# named. Each ends with status 1 at its first finding.
#   warnings   both compilers, every warning an error
#   tidy       clang-tidy over every source
#   cppcheck   cppcheck over every source
#   coverage   which lines the tests without a window reach, shown by file; fails below 95 %
set -euo pipefail
cd "$(dirname "$0")"
# shellcheck source=tools/packages.sh
. tools/packages.sh
# shellcheck source=tools/setup.sh
. tools/setup.sh

build() { # PRESET [TARGET]
    cmake --preset "$1" >/dev/null
    cmake --build --preset "$1" ${2:+--target "$2"}
}

check_warnings() {
    build dev
    build clang
}

check_tidy() { build tidy; }

check_cppcheck() {
    cppcheck --quiet --std=c++20 --language=c++ --enable=warning,performance,portability \
        --library=googletest,qt,posix --suppressions-list=tools/cppcheck.txt --error-exitcode=1 -I . \
        --template='{file}:{line}: {severity}: {id}: {message}' app bench core fuzz tests
    echo "cppcheck: nothing found"
}

# What a run counts is added to what was counted before, so that is taken away first.
check_coverage() {
    build coverage
    find build/coverage -name '*.gcda' -delete
    ctest --test-dir build/coverage --output-on-failure -j 2 -L without_qt
    gcovr --root . --object-directory build/coverage --filter core/ --filter app/ \
        --exclude '.*/(frm|qt_)[^/]*' --exclude 'app/shared/' --exclude 'app/main\.cpp' \
        --sort-uncovered --print-summary --fail-under-line 95 build/coverage
}

[ $# -gt 0 ] || set -- warnings tidy cppcheck coverage
for check in "$@"; do
    declare -F "check_$check" >/dev/null ||
        { echo "usage: ./check.sh [warnings] [tidy] [cppcheck] [coverage]" >&2; exit 2; }
done
# shellcheck disable=SC2086
plm_install $BUILD_PACKAGES $RUN_PACKAGES $TEST_PACKAGES $CHECK_PACKAGES
for check in "$@"; do "check_$check"; done
