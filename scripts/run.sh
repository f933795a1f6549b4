#!/usr/bin/env bash
# Installs what is missing, builds, starts a ROS master on loopback and opens rviz with the plugin
# and the shipped layout, fed by the simulated car. Everything it started stops when rviz closes.
# Without a DISPLAY, rviz runs on a virtual X display (its number is printed).
set -eo pipefail
source "$(dirname "$0")/env.sh"
"$ROOT/scripts/install_deps.sh"
BUILD_QUIET=1 "$ROOT/scripts/build.sh"

RUN_DIR="$BUILD_DIR/run"
mkdir -p "$RUN_DIR/orsa" "$RUN_DIR/roshome" "$RUN_DIR/orsa/rviz_plugin/share/rviz_plugin/media"
# The decoding evaluation reads its streams under the install root.
ln -sfn "$BUILD_DIR/media/video_data" "$RUN_DIR/orsa/rviz_plugin/share/rviz_plugin/media/video_data"
source "$BUILD_DIR/devel/setup.bash"   # catkin's setup reads unset variables: no `set -u` here
PORT=$(python3 -c 'import socket; s=socket.socket(); s.bind(("127.0.0.1", 0)); print(s.getsockname()[1])')
export ROS_MASTER_URI="http://127.0.0.1:$PORT" ROS_IP=127.0.0.1 ROS_HOME="$RUN_DIR/roshome"

pids=()
cleanup() {
  for pid in "${pids[@]}"; do kill -TERM "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
}
trap cleanup EXIT INT TERM

rosmaster --core -p "$PORT" >"$RUN_DIR/rosmaster.log" 2>&1 & pids+=($!)
until rosparam set orsaPath "$RUN_DIR/orsa" 2>/dev/null; do sleep 0.2; done
echo "ROS master:  $ROS_MASTER_URI"
echo "plugin log:  $RUN_DIR/orsa/log/rviz_plugin.log"
echo "rviz output: $RUN_DIR/rviz.log"

where="display $DISPLAY; closing it stops the master and the simulated car"
if [ -z "${DISPLAY:-}" ]; then
  exec 3>"$RUN_DIR/display.txt"
  Xvfb -displayfd 3 -screen 0 1600x1000x24 -nolisten tcp >"$RUN_DIR/xvfb.log" 2>&1 & pids+=($!)
  exec 3>&-
  until [ -s "$RUN_DIR/display.txt" ]; do sleep 0.1; done
  export DISPLAY=":$(cat "$RUN_DIR/display.txt")"
  where="the virtual display $DISPLAY (no DISPLAY was set; a screenshot: DISPLAY=$DISPLAY import -window root shot.png)"
fi

# The simulated car feeds the layout's four cameras; its options pass through SIMULATED_CAR_OPTIONS.
"$BUILD_DIR/devel/lib/rviz_plugin/simulated_car" ${SIMULATED_CAR_OPTIONS:---cameras 4} >"$RUN_DIR/simulated_car.log" 2>&1 &
pids+=($!)

echo "rviz:        $where"
rviz -d "$ROOT/rviz_plugin/plugin/layouts/kora_vision.rviz" >"$RUN_DIR/rviz.log" 2>&1 & RVIZ=$!
pids=("$RVIZ" "${pids[@]}")
wait "$RVIZ"
