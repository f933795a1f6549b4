#!/usr/bin/env bash
# Configures (once) and builds the workspace into $BUILD_DIR with Ninja and ccache.
# Extra arguments go to cmake, e.g. -DRVIZ_PLUGIN_SANITIZE=address,undefined.
#   BUILD_TARGETS  what to build (default: everything)
#   BUILD_QUIET=1  keep the build's lines in $BUILD_DIR/build.log; print one line when it did work,
#                  the log's end when it failed
#   BUILD_PHASE    a command run as `$BUILD_PHASE name command...` around configure and build (timing)
set -eo pipefail
source "$(dirname "$0")/env.sh"
phase() { if [ -n "$BUILD_PHASE" ]; then "$BUILD_PHASE" "$@"; else shift; "$@"; fi; }

if [ ! -f "$BUILD_DIR/build.ninja" ] || [ $# -gt 0 ]; then
  phase "configure $(basename "$BUILD_DIR")" \
    cmake -S "$ROOT/rviz_plugin" -B "$BUILD_DIR" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" >/dev/null
fi
# Where this build's steps start in Ninja's log, for scripts/build_times.py.
if [ -f "$BUILD_DIR/.ninja_log" ]; then wc -l <"$BUILD_DIR/.ninja_log"; else echo 0; fi >"$BUILD_DIR/.ninja_log_start"
build=(cmake --build "$BUILD_DIR" ${BUILD_TARGETS:+--target $BUILD_TARGETS})
if [ "${BUILD_QUIET:-0}" = 1 ]; then
  if ! phase "build $(basename "$BUILD_DIR")" "${build[@]}" >"$BUILD_DIR/build.log" 2>&1; then
    tail -n 40 "$BUILD_DIR/build.log"
    echo "build failed; the whole output is in $BUILD_DIR/build.log" >&2
    exit 1
  fi
  # The message dependencies and the source folders are re-checked on every build; the rest is work.
  steps=$(grep '^\[[0-9]*/[0-9]*\]' "$BUILD_DIR/build.log" | grep -vcE 'genmsg_check_deps|Re-checking globbed directories' || true)
  [ "$steps" -eq 0 ] || echo "built $steps steps (output in $BUILD_DIR/build.log)"
else
  phase "build $(basename "$BUILD_DIR")" "${build[@]}"
fi
