#!/usr/bin/env bash
# Lets every fuzzer search for a time: ./fuzz.sh SECONDS [TARGET...], each target for that long, from
# fuzz/seeds/TARGET on. What it finds goes into fuzz/found/TARGET, where ./test.sh takes it up from
# then on; the inputs that reached something new are kept under build/fuzz/corpus. Ends with status
# 1 when something was found.
set -euo pipefail
cd "$(dirname "$0")"
# shellcheck source=tools/packages.sh
. tools/packages.sh
# shellcheck source=tools/setup.sh
. tools/setup.sh

case ${1-} in
    '' | *[!0-9]*) echo "usage: ./fuzz.sh SECONDS [TARGET...]" >&2; exit 2 ;;
esac
seconds=$1
shift
# shellcheck disable=SC2086
plm_install $BUILD_PACKAGES $FUZZ_PACKAGES

log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! { cmake --preset fuzz && cmake --build --preset fuzz; } >"$log" 2>&1; then
    cat "$log" >&2
    exit 1
fi

if [ $# -eq 0 ]; then
    for source in fuzz/*_fuzz.cpp; do
        target=${source##*/}
        set -- "$@" "${target%_fuzz.cpp}"
    done
fi

# A leak ends a run at its end, which is soon enough; a hang of ten seconds is a finding.
found=0
for target in "$@"; do
    corpus=build/fuzz/corpus/$target
    finds=fuzz/found/$target
    mkdir -p "$corpus" "$finds"
    options=(-max_total_time="$seconds" -timeout=10 -rss_limit_mb=1500 -print_final_stats=1
             -verbosity=0 -dict=fuzz/words.dict -artifact_prefix="$finds/")
    if build/fuzz/fuzz/"${target}"_fuzz "${options[@]}" "$corpus" "fuzz/seeds/$target" "$finds" \
        >"$log" 2>&1; then
        runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
        printf '%-14s %10s runs, nothing found\n' "$target" "$runs"
    else
        found=1
        printf '%-14s found something, see %s:\n' "$target" "$finds"
        tail -n 40 "$log"
    fi
    rmdir --ignore-fail-on-non-empty "$finds"
done
rmdir --ignore-fail-on-non-empty fuzz/found 2>/dev/null || true
exit "$found"
