#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test:
#   1. the plain tree: the fuzz targets and rviz end to end with the plugin and the simulated car;
#   2. the unit and integration tests under AddressSanitizer + UndefinedBehaviorSanitizer, but for the
#      tests of widgets, panels and 3D displays (label display): those run in the plain tree, which
#      compiles their libraries for rviz anyway;
#   3. the tests of threaded code under ThreadSanitizer.
# Each step is timed; the times and the build's share per library are printed at the end.
# --quick builds the plain tree only and runs every level there (unit, integration, fuzz, end to end).
# --sanitize-display runs the display tests under the sanitizers too, instead of in the plain tree
# (about seven minutes more of build on two cores).
set -eo pipefail
source "$(dirname "$0")/env.sh"

PHASE_LOG=$(mktemp)
START=$(date +%s%N)
timed() {  # name command...: runs the command and records its wall time (ms) under the name
  local name=$1 begin rc=0; shift
  begin=$(date +%s%N)
  "$@" || rc=$?
  printf '%s\t%s\n' "$name" $(( ($(date +%s%N) - begin) / 1000000 )) >>"$PHASE_LOG"
  return $rc
}
export -f timed
export PHASE_LOG
report() {
  local rc=$?
  echo
  echo "== times (s)"
  printf '%s\t%s\n' "whole command" $(( ($(date +%s%N) - START) / 1000000 )) >>"$PHASE_LOG"
  awk -F'\t' '{ printf "  %7.1f  %s\n", $2 / 1000, $1 }' "$PHASE_LOG"
  echo "== build steps per library and test program"
  for dir in "$BUILD_DIR" "$BUILD_DIR-asan" "$BUILD_DIR-tsan"; do
    [ -f "$dir/.ninja_log_start" ] && python3 "$ROOT/scripts/build_times.py" "$dir" 12
  done
  rm -f "$PHASE_LOG"
  [ $rc -eq 0 ] && echo "== all tests passed" || echo "== FAILED (exit $rc)"
}
trap report EXIT

run_level() {  # build directory, label, more ctest options (-LE label)
  timed "tests $(basename "$1") -L $2 ${*:3}" \
    bash -c 'cd "$0" && ctest --output-on-failure --timeout 600 -j2 -L "$@"' "$@"
}

timed install "$ROOT/scripts/install_deps.sh"
export BUILD_PHASE=timed

if [ "${1:-}" = "--quick" ]; then
  BUILD_DIR="$BUILD_DIR" "$ROOT/scripts/build.sh"
  for level in unit integration fuzz e2e; do run_level "$BUILD_DIR" "$level"; done
  exit 0
fi

# The unit and integration tests are built and run once, under the sanitizers below; the plain tree
# builds what rviz runs (and the benchmarks, so that they keep compiling), the display tests and the
# checks of the C library's heap, which the sanitizers' allocator would bypass.
plain_targets="rviz_plugin_e2e_tests rviz_plugin_benches rviz_plugin_allocator_tests"
sanitized_targets=rviz_plugin_sanitized_tests
plain_levels=(fuzz allocator e2e)
not_sanitized=()
if [ "${1:-}" = "--sanitize-display" ]; then
  sanitized_targets+=" rviz_plugin_display_tests"
else
  plain_targets+=" rviz_plugin_display_tests"
  plain_levels+=(display)
  not_sanitized=(-LE display)
fi
BUILD_DIR="$BUILD_DIR" BUILD_TARGETS="$plain_targets" "$ROOT/scripts/build.sh"
for level in "${plain_levels[@]}"; do run_level "$BUILD_DIR" "$level"; done

export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
BUILD_DIR="$BUILD_DIR-asan" BUILD_TARGETS="$sanitized_targets" \
  "$ROOT/scripts/build.sh" -DRVIZ_PLUGIN_SANITIZE=address,undefined
# rviz, OGRE and Mesa keep allocations until exit; leaks are checked on the unit tests only.
ASAN_OPTIONS=detect_leaks=1 run_level "$BUILD_DIR-asan" unit "${not_sanitized[@]}"
ASAN_OPTIONS=detect_leaks=0 run_level "$BUILD_DIR-asan" integration "${not_sanitized[@]}"

BUILD_DIR="$BUILD_DIR-tsan" BUILD_TARGETS=rviz_plugin_threaded_tests \
  "$ROOT/scripts/build.sh" -DRVIZ_PLUGIN_SANITIZE=thread
TSAN_OPTIONS="halt_on_error=1 suppressions=$ROOT/rviz_plugin/plugin/test/tsan.supp" run_level "$BUILD_DIR-tsan" threads
