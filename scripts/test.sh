#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test:
#   1. the whole suite (unit, integration against a ROS master and a virtual display, rviz end to end);
#   2. unit and integration tests again under AddressSanitizer + UndefinedBehaviorSanitizer;
#   3. the tests of threaded code under ThreadSanitizer.
# Pass --quick to run only the first.
set -eo pipefail
source "$(dirname "$0")/env.sh"
"$ROOT/scripts/install_deps.sh"

run_suite() {  # build directory, ctest arguments...
  local dir=$1; shift
  (cd "$dir" && ctest --output-on-failure --timeout 600 -j2 "$@")
}

start=$(date +%s)
BUILD_DIR="$BUILD_DIR" "$ROOT/scripts/build.sh"
run_suite "$BUILD_DIR"
echo "== suite passed in $(( $(date +%s) - start )) s"
[ "${1:-}" = "--quick" ] && exit 0

export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
# rviz, OGRE and Mesa keep allocations until exit; leaks are checked on the unit tests only.
ASAN_OPTIONS=detect_leaks=1 BUILD_DIR="$BUILD_DIR-asan" "$ROOT/scripts/build.sh" -DRVIZ_PLUGIN_SANITIZE=address,undefined
ASAN_OPTIONS=detect_leaks=1 run_suite "$BUILD_DIR-asan" -L unit
ASAN_OPTIONS=detect_leaks=0 run_suite "$BUILD_DIR-asan" -L integration
echo "== AddressSanitizer + UndefinedBehaviorSanitizer passed"

BUILD_DIR="$BUILD_DIR-tsan" BUILD_TARGETS=rviz_plugin_threaded_tests "$ROOT/scripts/build.sh" -DRVIZ_PLUGIN_SANITIZE=thread
TSAN_OPTIONS="halt_on_error=1 suppressions=$ROOT/rviz_plugin/plugin/test/tsan.supp" run_suite "$BUILD_DIR-tsan" -L threads
echo "== ThreadSanitizer passed; all tests passed in $(( $(date +%s) - start )) s"
