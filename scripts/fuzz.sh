#!/usr/bin/env bash
# Builds the fuzz targets (preset "fuzz": clang-14 with libFuzzer, the address
# and undefined-behaviour sanitizers) and runs each for RUNS inputs (default
# 1000000), starting from its seeds in fuzz/corpus/<target>/. Stops with a
# non-zero exit at the first finding and names the file that reproduces it.
#   scripts/fuzz.sh [RUNS] [target...]     (targets without the fuzz_ prefix)
set -euo pipefail
runs=${1:-1000000}
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] || targets=(jsonbag inibag inputbox datetext setproperty columnstring numberformat)
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

bash scripts/setup-deps.sh clang-14 libclang-rt-14-dev

cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -j2 >/dev/null

out="$root/build-fuzz/findings"
mkdir -p "$out"
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
# No allocation stacks and a small quarantine keep Qt's many allocations
# cheap (the reproducer, run alone, reports with full stacks); leaks are
# checked once at exit, not after each input. The plain schedule
# (-entropic=0) halves libFuzzer's own share on targets with many features.
# A request beyond 2 GB fails as the system's allocator fails it (a stored
# @Variant may claim a 20 GB string; Qt reads that as corrupt data), instead
# of the sanitizer backing it with gigabytes of shadow memory.
export ASAN_OPTIONS=malloc_context_size=0:quarantine_size_mb=16:max_allocation_size_mb=2048:allocator_may_return_null=1
export LSAN_OPTIONS=suppressions=$root/fuzz/lsan.supp
for t in "${targets[@]}"; do
    # Inputs found on the way go to a scratch folder; the seeds stay as committed.
    scratch=$(mktemp -d)
    log="$out/fuzz_$t.log"
    # Stores get room for a few dozen keys; typed text and writes stay short.
    case $t in *bag) max_len=1024 ;; *) max_len=64 ;; esac
    start=$(date +%s)
    if ! "build-fuzz/fuzz/fuzz_$t" -runs="$runs" -timeout=10 -rss_limit_mb=2048 -detect_leaks=0 -entropic=0 -max_len=$max_len \
        -artifact_prefix="$out/fuzz_$t-" -print_final_stats=1 "$scratch" "fuzz/corpus/$t" >"$log" 2>&1; then
        crash=$(sed -n 's/.*Test unit written to //p' "$log" | tail -1)
        echo "fuzz_$t: FINDING ${crash:-(see log)}; log $log"
        echo "  reproduce: ASAN_OPTIONS=max_allocation_size_mb=2048:allocator_may_return_null=1 LSAN_OPTIONS=suppressions=fuzz/lsan.supp build-fuzz/fuzz/fuzz_$t ${crash:-<input>}"
        rm -rf "$scratch"
        exit 1
    fi
    secs=$(($(date +%s) - start))
    done_runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
    echo "fuzz_$t: ${done_runs:-?} runs, no finding, ${secs}s, $((${done_runs:-0} / (secs > 0 ? secs : 1))) runs/s"
    rm -rf "$scratch"
done
