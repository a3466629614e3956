#!/usr/bin/env bash
# Builds the libFuzzer targets (clang, AddressSanitizer, UndefinedBehaviorSanitizer) and runs each
# of them for a bounded time, one after another, then runs every checked-in corpus once as a
# regression test. Any crash, leak, sanitizer report, timeout or memory blow-up fails the run.
#
#   scripts/fuzz.sh                  45 seconds per target (the CI mode)
#   scripts/fuzz.sh 3600             an hour per target, by hand
#   scripts/fuzz.sh 600 listing      ten minutes of one target (names without "fuzz_")
#   scripts/fuzz.sh 0                the corpus regression run alone
#
# Seeds live in fuzz/corpus/<target>/ and are only read. What a run discovers goes to
# build-fuzz/corpus/<target>/ (kept between runs, so long runs build on each other), findings to
# build-fuzz/artifacts/<target>/. Each target's executions and time are printed at the end.
# Environment: FUZZ_NO_BUILD=1 skips the build; FUZZ_BUILD_DIR (default build-fuzz).
set -uo pipefail

# The whole script is read before it runs, so that a checkout during a long run cannot change it.
main() {

  cd "$(dirname "$0")/.."
  seconds="${1:-45}"
  shift || true
  build_dir="${FUZZ_BUILD_DIR:-build-fuzz}"

  if ! [[ "$seconds" =~ ^[0-9]+$ ]]; then
    echo "usage: scripts/fuzz.sh [SECONDS] [TARGET...]" >&2
    exit 2
  fi

  if [[ -z "${FUZZ_NO_BUILD:-}" ]]; then
    if ! command -v clang++ >/dev/null; then
      echo "scripts/fuzz.sh needs clang++ with libFuzzer (the fuzz preset builds with it)" >&2
      exit 2
    fi
    cmake --preset fuzz -B "$build_dir" >/dev/null || exit 1
    cmake --build "$build_dir" -j2 || exit 1
  fi

  if [[ $# -gt 0 ]]; then
    targets=("$@")
  else
    targets=()
    for source in fuzz/fuzz_*_target.cc; do
      name="${source#fuzz/fuzz_}"
      targets+=("${name%_target.cc}")
    done
  fi

  # The compiles write their project files in a temporary directory; a memory file system keeps the
  # per-execution file work cheap.
  if [[ -z "${TMPDIR:-}" && -d /dev/shm && -w /dev/shm ]]; then
    export TMPDIR=/dev/shm
  fi
  # Allocation stacks are kept two frames deep: deeper ones pass through the C library's frames,
  # which have no frame pointers, and the stray frames read there make every record new, so that
  # the memory of a long run grows without bound. Replay a finding with
  # ASAN_OPTIONS=fast_unwind_on_malloc=0 build-fuzz/fuzz/fuzz_<target> <input> for whole stacks.
  export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=1:symbolize=1:malloc_context_size=2}"
  export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}"

  failed=()
  summary=()
  log_dir="$build_dir/logs"
  mkdir -p "$log_dir"

  # Runs one fuzzer; its log goes to build-fuzz/logs/<target>.log. Gives libFuzzer's exit status.
  run_fuzzer() {
    local target="$1" log="$2"
    shift 2
    local binary="$build_dir/fuzz/fuzz_$target"
    "$binary" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 \
      -artifact_prefix="$build_dir/artifacts/$target/" "$@" >"$log" 2>&1
  }

  for target in "${targets[@]}"; do
    binary="$build_dir/fuzz/fuzz_$target"
    seeds="fuzz/corpus/$target"
    work="$build_dir/corpus/$target"
    if [[ ! -x "$binary" ]]; then
      echo "no fuzzer for target '$target'" >&2
      failed+=("$target (missing)")
      continue
    fi
    mkdir -p "$work" "$build_dir/artifacts/$target"
    [[ -d "$seeds" ]] || seeds="$work"

    if [[ "$seconds" -gt 0 ]]; then
      log="$log_dir/$target.log"
      echo "== fuzz_$target: ${seconds}s"
      if ! run_fuzzer "$target" "$log" -max_total_time="$seconds" "$work" "$seeds"; then
        failed+=("$target")
        grep -E "ERROR|SUMMARY|Test unit written|panic|==[0-9]+==" "$log" | head -20
      fi
      runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)
      time=$(sed -n 's/^Done [0-9]* runs in \([0-9]*\) second.*/\1/p' "$log" | tail -1)
      summary+=("$(printf '%-16s %12s executions in %6s s' "$target" "${runs:-?}" "${time:-?}")")
    fi

    log="$log_dir/$target.regression.log"
    echo "== fuzz_$target: corpus regression"
    if ! run_fuzzer "$target" "$log" -runs=0 "$seeds"; then
      failed+=("$target (corpus)")
      grep -E "ERROR|SUMMARY|Test unit written|==[0-9]+==" "$log" | head -20
    fi
  done

  if [[ ${#summary[@]} -gt 0 ]]; then
    echo "== executions"
    printf '%s\n' "${summary[@]}"
  fi
  if [[ ${#failed[@]} -gt 0 ]]; then
    echo "== FAILED: ${failed[*]} (logs in $log_dir, inputs in $build_dir/artifacts)" >&2
    exit 1
  fi
  echo "== all fuzzers passed"
}

main "$@"; exit
