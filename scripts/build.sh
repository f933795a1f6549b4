#!/usr/bin/env bash
# Configures (once) and builds the workspace into $BUILD_DIR with Ninja and ccache.
# Extra arguments go to cmake, e.g. -DRVIZ_PLUGIN_SANITIZE=address,undefined.
set -eo pipefail
source "$(dirname "$0")/env.sh"
if [ ! -f "$BUILD_DIR/build.ninja" ] || [ $# -gt 0 ]; then
  cmake -S "$ROOT/rviz_plugin" -B "$BUILD_DIR" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" >/dev/null
fi
cmake --build "$BUILD_DIR" ${BUILD_TARGETS:+--target $BUILD_TARGETS}
