#!/usr/bin/env bash
# Fuzzes three parsers of the framework with libFuzzer for a bounded time:
#   fuzz_cmdline   the command-line tokenizer (argv words and the .cfg line)
#   fuzz_ini       the ini file reader and writer, and the -d data list
#   fuzz_iterator  the value syntax of parameters and iterators
#
# Usage: tests/fuzz/run.sh [SECONDS_PER_TARGET] [TARGET...]
#   SECONDS_PER_TARGET defaults to 60; TARGET names a subset (default: all).
#
# Needs clang++ with the libFuzzer runtime (Debian: clang-14 and
# libclang-rt-14-dev); CXX overrides the compiler. It compiles the framework's
# sources itself with -fsanitize=fuzzer-no-link,address,undefined into
# $FUZZ_BUILD_DIR (default build-fuzz/ at the top of the tree) and leaves the
# CMake build alone. Each target runs on a working corpus there, seeded from
# tests/fuzz/seeds/<target>/, and stops at its first crash, sanitizer report,
# endless loop (-timeout) or leak; the input that did it is kept under
# $FUZZ_BUILD_DIR/artifacts/<target>/ and can be replayed by passing that file
# to the target binary. One summary line is printed per target; the exit code
# is 1 when any target found something.
#
# The ini target also runs on two generated seeds of 4 MB (250,000 sections,
# one long line), which it only reads, with a per-input limit of 30 seconds:
# read in linear time such a file takes a few seconds in this build, while a
# reader that searches its sections one by one takes hours, and the limit
# turns that into a finding.
set -u -o pipefail

ROOT=$(cd "$(dirname "$0")/../.." && pwd)
FUZZ_DIR="$ROOT/tests/fuzz"
BUILD=${FUZZ_BUILD_DIR:-$ROOT/build-fuzz}
CXX=${CXX:-clang++}
SECONDS_EACH=${1:-60}
shift $(( $# > 0 ? 1 : 0 ))
TARGETS=("$@")
[ ${#TARGETS[@]} -eq 0 ] && TARGETS=(fuzz_cmdline fuzz_ini fuzz_iterator)

case "$SECONDS_EACH" in
  ''|*[!0-9]*) echo "usage: $0 [SECONDS_PER_TARGET] [TARGET...]" >&2; exit 2 ;;
esac
command -v "$CXX" >/dev/null || { echo "$CXX not found (apt-get install clang-14 libclang-rt-14-dev)" >&2; exit 2; }

# The longest input of each target: a .cfg line is read up to 1023
# characters, a value is one line; an ini file may be megabytes.
max_len() {
  case "$1" in
    fuzz_cmdline) echo 2048 ;;
    fuzz_ini) echo 4194304 ;;
    fuzz_iterator) echo 256 ;;
  esac
}

# Seconds one input may take before it counts as a finding.
time_limit() {
  case "$1" in
    fuzz_ini) echo 30 ;;
    *) echo 10 ;;
  esac
}

# Large seeds are made here rather than kept in the tree.
large_seeds() {
  local dir="$BUILD/seeds-large/$1"
  case "$1" in
    fuzz_ini)
      mkdir -p "$dir"
      [ -f "$dir/sections.ini" ] || awk 'BEGIN { for (i = 0; i < 300000; i++) printf "[s%06d]\nk=%d\n", i, i }' \
        | head -c 4000000 > "$dir/sections.ini"
      [ -f "$dir/line.ini" ] || { printf '[Kelvar System]\nlong='; head -c 4000000 /dev/zero | tr '\0' v; printf '\n'; } \
        > "$dir/line.ini"
      echo "$dir" ;;
  esac
}

SAN="-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer"
CXXFLAGS="-std=c++17 -g -O1 -Wall -Wextra $SAN -I$ROOT/api/src -I$ROOT/lib/include"
JOBS=$(nproc 2>/dev/null || echo 2)

mkdir -p "$BUILD/obj"

# ---- the framework, every api source but main, as one archive
SOURCES=$(cd "$ROOT" && ls api/src/*.cpp api/src/kv/*.cpp api/src/kvtool/*.cpp | grep -v '/main\.cpp$')
NEWEST_HEADER=$(ls -t "$ROOT"/api/src/*.h "$ROOT"/api/src/*/*.h "$ROOT"/lib/include/*.h | head -n 1)
STALE=()
for src in $SOURCES; do
  obj="$BUILD/obj/${src//\//_}.o"
  if [ ! -f "$obj" ] || [ "$ROOT/$src" -nt "$obj" ] || [ "$NEWEST_HEADER" -nt "$obj" ]; then
    STALE+=("$src")
  fi
done
if [ ${#STALE[@]} -gt 0 ]; then
  echo "compiling ${#STALE[@]} framework sources"
  export ROOT BUILD CXX CXXFLAGS
  printf '%s\n' "${STALE[@]}" | xargs -P "$JOBS" -I{} sh -c \
    'o="$BUILD/obj/$(echo {} | tr / _).o"; $CXX $CXXFLAGS -fsanitize=fuzzer-no-link -c "$ROOT/{}" -o "$o" || { rm -f "$o"; exit 1; }' \
    || { echo "framework build failed" >&2; exit 2; }
  rm -f "$BUILD/libkvapi_fuzz.a"
fi
if [ ! -f "$BUILD/libkvapi_fuzz.a" ]; then
  ar rcs "$BUILD/libkvapi_fuzz.a" "$BUILD"/obj/*.o || exit 2
fi

# ---- the targets
for t in "${TARGETS[@]}"; do
  [ -f "$FUZZ_DIR/$t.cpp" ] || { echo "no target $t" >&2; exit 2; }
  if [ ! -x "$BUILD/$t" ] || [ "$FUZZ_DIR/$t.cpp" -nt "$BUILD/$t" ] || [ "$BUILD/libkvapi_fuzz.a" -nt "$BUILD/$t" ]; then
    echo "linking $t"
    $CXX $CXXFLAGS -fsanitize=fuzzer "$FUZZ_DIR/$t.cpp" "$BUILD/libkvapi_fuzz.a" -o "$BUILD/$t" \
      || { echo "build of $t failed" >&2; exit 2; }
  fi
done

# ---- the runs
status=0
SUMMARY=()
for t in "${TARGETS[@]}"; do
  corpus="$BUILD/corpus/$t"
  artifacts="$BUILD/artifacts/$t"
  log="$BUILD/$t.log"
  mkdir -p "$corpus" "$artifacts"
  seeds=()
  [ -d "$FUZZ_DIR/seeds/$t" ] && seeds=("$FUZZ_DIR/seeds/$t")
  large=$(large_seeds "$t")
  [ -n "$large" ] && seeds+=("$large")
  echo "running $t for ${SECONDS_EACH}s (log: $log)"
  start=$(date +%s)
  # The working corpus comes first: new inputs go there, never into the seeds.
  # A smaller quarantine and shorter allocation stacks keep the runs fast.
  ASAN_OPTIONS=${ASAN_OPTIONS:-quarantine_size_mb=64:malloc_context_size=8} \
  UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1} \
  "$BUILD/$t" "$corpus" "${seeds[@]}" \
    -max_total_time="$SECONDS_EACH" -max_len="$(max_len "$t")" -timeout="$(time_limit "$t")" \
    -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="$artifacts/" >"$log" 2>&1
  rc=$?
  elapsed=$(( $(date +%s) - start ))
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -n 1)
  crashes=0
  note=""
  if [ $rc -ne 0 ]; then
    crashes=1
    status=1
    artifact=$(sed -n "s/.*Test unit written to //p" "$log" | tail -n 1)
    note=" (exit $rc; ${artifact:-see $log})"
  fi
  SUMMARY+=("$t: runs ${runs:-?}, time ${elapsed}s, crashes $crashes$note")
done

echo
printf '%s\n' "${SUMMARY[@]}"
exit $status
