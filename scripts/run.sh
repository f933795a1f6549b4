#!/usr/bin/env bash
# Installs what is missing, builds, starts a ROS master on loopback and opens rviz with the plugin
# and the shipped layout, fed by the simulated car. Everything it started stops when rviz closes.
# Without a DISPLAY, rviz runs on a virtual X display (its number is printed).
set -eo pipefail
source "$(dirname "$0")/env.sh"
"$ROOT/scripts/install_deps.sh"
BUILD_QUIET=1 "$ROOT/scripts/build.sh"

RUN_DIR="$BUILD_DIR/run"
source "$ROOT/scripts/session.sh"
trap stop_session EXIT INT TERM
start_master
echo "ROS master:  $ROS_MASTER_URI"
echo "plugin log:  $RUN_DIR/orsa/log/rviz_plugin.log"
echo "rviz output: $RUN_DIR/rviz.log"

where="display $DISPLAY; closing it stops the master and the simulated car"
if [ -z "${DISPLAY:-}" ]; then
  start_display
  where="the virtual display $DISPLAY (no DISPLAY was set; a screenshot: DISPLAY=$DISPLAY import -window root shot.png)"
fi

# The simulated car's options pass through SIMULATED_CAR_OPTIONS.
# shellcheck disable=SC2086
start_car ${SIMULATED_CAR_OPTIONS:---cameras 4}
echo "rviz:        $where"
start_rviz
wait "$RVIZ_PID"
