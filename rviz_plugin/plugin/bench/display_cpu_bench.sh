#!/usr/bin/env bash
# rviz's CPU per camera frame shown: the vision display on H.265 against rviz's own Image display on
# the same pictures already decoded (rgb8), one after the other on the same virtual display and window.
#   rviz_plugin/plugin/bench/display_cpu_bench.sh [SECONDS] [--width W --height H --fps F --cameras N]
# For each form: a ROS master, the feed (video_display_feed) publishing from memory, rviz with the
# form's configuration (bench/configs), a warm-up, then rviz's user + system time over SECONDS
# (default 30) divided by the frames published meanwhile. Most of that is rviz drawing its window
# (Mesa's software renderer under Xvfb), the same for both: rviz with the same window and no display
# shows that part. A screenshot of each is kept in
# $BUILD_DIR/display_bench/. Needs a build (scripts/build.sh).
set -eo pipefail
source "$(dirname "$0")/../../../scripts/env.sh"
SECONDS_MEASURED=30
[ $# -gt 0 ] && [[ "$1" != --* ]] && { SECONDS_MEASURED=$1; shift; }
FEED_OPTIONS=("$@")
CONFIGS="$ROOT/rviz_plugin/plugin/bench/configs"
TICKS=$(getconf CLK_TCK)

cpu_ticks() { awk '{print $14 + $15}' "/proc/$1/stat"; }
published() { awk '/^published/ {n = $2} END {print n + 0}' "$1"; }

# measure FORM CONFIG: prints "milliseconds-per-frame frames cpu-seconds"
measure() {
  local form=$1 config=$2
  RUN_DIR="$BUILD_DIR/display_bench/$form"
  rm -rf "$RUN_DIR"
  mkdir -p "$RUN_DIR"
  (
    source "$ROOT/scripts/session.sh"
    trap stop_session EXIT
    start_master
    start_display new
    "$BUILD_DIR/devel/lib/rviz_plugin/video_display_feed" "$form" "${FEED_OPTIONS[@]}" >"$RUN_DIR/feed.log" 2>&1 &
    session_pids+=($!)
    until grep -q ready "$RUN_DIR/feed.log"; do sleep 0.2; done
    rviz -d "$config" >"$RUN_DIR/rviz.log" 2>&1 & RVIZ_PID=$!
    session_pids=("$RVIZ_PID" "${session_pids[@]}")
    sleep 15   # start-up, the first key frames, warm caches
    local ticks0 frames0 ticks1 frames1
    ticks0=$(cpu_ticks "$RVIZ_PID"); frames0=$(published "$RUN_DIR/feed.log")
    sleep "$SECONDS_MEASURED"
    ticks1=$(cpu_ticks "$RVIZ_PID"); frames1=$(published "$RUN_DIR/feed.log")
    import -window root "$RUN_DIR/screenshot.png"
    awk -v t=$((ticks1 - ticks0)) -v hz="$TICKS" -v f=$((frames1 - frames0)) \
      'BEGIN { printf "%.2f %d %.1f\n", 1000 * t / hz / f, f, t / hz }'
  )
}

read -r raw_ms raw_frames raw_cpu < <(measure raw "$CONFIGS/two_cameras_raw.rviz")
read -r h265_ms h265_frames h265_cpu < <(measure h265 "$CONFIGS/two_cameras_h265.rviz")
# The feed runs in the empty window too, so that rviz's share of the machine is the same.
read -r _ _ empty_cpu < <(measure raw "$CONFIGS/empty.rviz")
echo "rviz CPU per camera frame over ${SECONDS_MEASURED} s (${FEED_OPTIONS[*]:-2 cameras 1920x1080 at 30 fps}):"
echo "  Image display, rgb8:   $raw_ms ms ($raw_frames frames, $raw_cpu s of CPU)"
echo "  vision display, H.265: $h265_ms ms ($h265_frames frames, $h265_cpu s of CPU)"
echo "  no display, same window: $empty_cpu s of CPU in the same time"
awk -v a="$h265_ms" -v b="$raw_ms" 'BEGIN { printf "  ratio vision / Image: %.2f (target <= 1)\n", a / b }'
