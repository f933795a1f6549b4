#!/usr/bin/env bash
# Builds and runs the benchmarks; each prints its figures and its ratio against a reference run.
set -eo pipefail
source "$(dirname "$0")/env.sh"
"$ROOT/scripts/install_deps.sh"
"$ROOT/scripts/build.sh"
source "$BUILD_DIR/devel/setup.bash"
"$BUILD_DIR/devel/lib/rviz_plugin/ros_msg_parser_bench"
"$BUILD_DIR/devel/lib/rviz_plugin/overlay_drawing_bench"
"$BUILD_DIR/devel/lib/rviz_plugin/video_decoder_bench" "$@"
"$BUILD_DIR/devel/lib/rviz_plugin/decode_evaluation_bench"
"$BUILD_DIR/devel/lib/rviz_plugin/vehicle_panels_bench"
"$BUILD_DIR/devel/lib/rviz_plugin/remote_session_bench"
"$BUILD_DIR/devel/lib/rviz_plugin/scene_3d_bench"
"$BUILD_DIR/devel/lib/rviz_plugin/msg_viewer_bench"
"$BUILD_DIR/devel/lib/rviz_plugin/plot_bench"
"$BUILD_DIR/devel/lib/rviz_plugin/recording_bench"
"$ROOT/rviz_plugin/plugin/bench/display_cpu_bench.sh"
