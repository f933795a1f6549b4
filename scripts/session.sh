# Sourced by run.sh and soak.sh: a ROS master on a free loopback port, a virtual display when none is
# set, the simulated car and rviz with the shipped layout, all stopped by stop_session (set as the
# EXIT trap). Needs env.sh sourced and the build done; everything goes under $RUN_DIR.
# The shipped layout; LAYOUT=…/scene_3d.rviz opens the 3D scene alone.
LAYOUT="${LAYOUT:-$ROOT/rviz_plugin/plugin/layouts/kora_vision.rviz}"
session_pids=()

stop_session() {
  for pid in "${session_pids[@]}"; do kill -TERM "$pid" 2>/dev/null || true; done
  wait 2>/dev/null || true
}

start_master() {
  mkdir -p "$RUN_DIR/orsa" "$RUN_DIR/roshome" "$RUN_DIR/orsa/rviz_plugin/share/rviz_plugin/media"
  # The decoding evaluation reads its streams under the install root.
  ln -sfn "$BUILD_DIR/media/video_data" "$RUN_DIR/orsa/rviz_plugin/share/rviz_plugin/media/video_data"
  source "$BUILD_DIR/devel/setup.bash"   # catkin's setup reads unset variables: no `set -u` here
  local port
  port=$(python3 -c 'import socket; s=socket.socket(); s.bind(("127.0.0.1", 0)); print(s.getsockname()[1])')
  export ROS_MASTER_URI="http://127.0.0.1:$port" ROS_IP=127.0.0.1 ROS_HOME="$RUN_DIR/roshome"
  rosmaster --core -p "$port" >"$RUN_DIR/rosmaster.log" 2>&1 & session_pids+=($!)
  until rosparam set orsaPath "$RUN_DIR/orsa" 2>/dev/null; do sleep 0.2; done
  # The simulated car's cameras get custom names ("Set Name" changes them), unless already given.
  mkdir -p "$RUN_DIR/orsa/config"
  [ -e "$RUN_DIR/orsa/config/camera_topic_alias.json" ] || cat >"$RUN_DIR/orsa/config/camera_topic_alias.json" <<'JSON'
{"topic_alias": {"camera_front": "Front-Center-Long Focus", "camera_left": "Side-Left Front-Short Focus",
                 "camera_right": "Side-Right Front-Short Focus", "camera_rear": "Rear-Center-Medium Focus"}}
JSON
}

# Starts Xvfb (1600x1000) when DISPLAY is empty or when forced with "new"; exports DISPLAY.
start_display() {
  if [ -n "${DISPLAY:-}" ] && [ "${1:-}" != new ]; then
    return
  fi
  rm -f "$RUN_DIR/display.txt"
  exec 3>"$RUN_DIR/display.txt"
  Xvfb -displayfd 3 -screen 0 1600x1000x24 -nolisten tcp >"$RUN_DIR/xvfb.log" 2>&1 & session_pids+=($!)
  exec 3>&-
  until [ -s "$RUN_DIR/display.txt" ]; do sleep 0.1; done
  export DISPLAY=":$(cat "$RUN_DIR/display.txt")"
}

# The simulated car feeds the layout's cameras and panels; options as its command line.
start_car() {
  "$BUILD_DIR/devel/lib/rviz_plugin/simulated_car" "$@" >"$RUN_DIR/simulated_car.log" 2>&1 & session_pids+=($!)
}

# Starts rviz with the shipped layout; its pid in RVIZ_PID.
start_rviz() {
  rviz -d "$LAYOUT" >"$RUN_DIR/rviz.log" 2>&1 & RVIZ_PID=$!
  session_pids=("$RVIZ_PID" "${session_pids[@]}")
}
