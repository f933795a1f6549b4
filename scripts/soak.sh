#!/usr/bin/env bash
# A long run of the shipped layout against the simulated car, as a user leaves rviz open for a drive:
#   scripts/soak.sh MINUTES [--hog N] [--warmup-minutes W] [--max-growth-mb M] [--car "OPTIONS"]
# rviz's resident memory and CPU are sampled every 30 s; every 10 s a screenshot is taken and each
# wall item's picture area is classed as a picture, black, the idle picture or other. A summary
# (memory after the warm-up and at the end, growth since, black items and when, CPU) is printed and
# kept with the samples and the screenshots of faults in $BUILD_DIR/soak/. --hog N runs N busy loops
# beside rviz. Fails when an item was black or showed the idle picture while its camera published, or
# when memory grew by more than M MB (default 2) from the end of the warm-up (default 10 minutes).
# Runs on its own virtual display; needs a build (scripts/build.sh).
set -eo pipefail
source "$(dirname "$0")/env.sh"
MINUTES=${1:?usage: scripts/soak.sh MINUTES [--hog N] [--warmup-minutes W] [--max-growth-mb M] [--car OPTIONS]}
shift
HOG=0
WARMUP=10
MAX_GROWTH_MB=2
CAR_OPTIONS="--cameras 4 --width 1280 --height 720 --fps 15"
while [ $# -gt 0 ]; do
  case "$1" in
    --hog) HOG=$2; shift 2 ;;
    --warmup-minutes) WARMUP=$2; shift 2 ;;
    --max-growth-mb) MAX_GROWTH_MB=$2; shift 2 ;;
    --car) CAR_OPTIONS=$2; shift 2 ;;
    *) echo "unknown option $1" >&2; exit 2 ;;
  esac
done

RUN_DIR="$BUILD_DIR/soak"
rm -rf "$RUN_DIR"
mkdir -p "$RUN_DIR/faults"
source "$ROOT/scripts/session.sh"
trap stop_session EXIT INT TERM
start_master
start_display new
# shellcheck disable=SC2086
start_car $CAR_OPTIONS
for _ in $(seq 1 "$HOG"); do
  (while :; do :; done) & session_pids+=($!)
done
start_rviz

# The picture areas of the wall's four items in the shipped layout (checked by its end-to-end test).
mapfile -t ITEMS < <(grep -v '^#' "$ROOT/rviz_plugin/plugin/layouts/kora_vision.items")

# Classes a region of a screenshot: picture (the simulated scene is blue-ish), black, idle (the bright
# grey "No Image" picture) or other.
classify() {  # screenshot x y width height
  local stats mean red blue
  stats=$(convert "$1" -crop "$4x$5+$2+$3" +repage -format "%[fx:mean] %[fx:mean.r] %[fx:mean.b]" info:)
  read -r mean red blue <<<"$stats"
  awk -v m="$mean" -v r="$red" -v b="$blue" 'BEGIN {
    if (m < 0.04) print "black"; else if (b > r + 0.05) print "picture";
    else if (m > 0.7) print "idle"; else print "other" }'
}

memory_kb() { awk '/^VmRSS/ {print $2}' "/proc/$RVIZ_PID/status"; }
cpu_ticks() { awk '{print $14 + $15}' "/proc/$RVIZ_PID/stat"; }

# rviz is up when the wall logged its start; the first pictures follow the first key frames.
for _ in $(seq 1 600); do
  grep -q "KoraVisionDisplay initialized" "$RUN_DIR/orsa/log/rviz_plugin.log" 2>/dev/null && break
  kill -0 "$RVIZ_PID" 2>/dev/null || { echo "rviz ended early; see $RUN_DIR/rviz.log" >&2; exit 1; }
  sleep 0.1
done
sleep 10

TICKS_PER_SECOND=$(getconf CLK_TCK)
TOTAL=$(awk -v m="$MINUTES" 'BEGIN {print int(m * 60)}')
echo "seconds,rss_mb,cpu_percent" >"$RUN_DIR/memory.csv"
echo "seconds,item,class" >"$RUN_DIR/items.csv"
faults=0
samples=0
last_ticks=$(cpu_ticks)
start=$(date +%s)
for elapsed in $(seq 0 10 "$TOTAL"); do
  while [ $(($(date +%s) - start)) -lt "$elapsed" ]; do sleep 0.5; done
  kill -0 "$RVIZ_PID" 2>/dev/null || { echo "rviz ended at $elapsed s; see $RUN_DIR/rviz.log" >&2; exit 1; }
  shot="$RUN_DIR/shot.png"
  DISPLAY=$DISPLAY import -window root "$shot"
  samples=$((samples + 1))
  for item in "${ITEMS[@]}"; do
    read -r topic x y w h <<<"$item"
    class=$(classify "$shot" "$x" "$y" "$w" "$h")
    echo "$elapsed,$topic,$class" >>"$RUN_DIR/items.csv"
    if [ "$class" = black ] || [ "$class" = idle ]; then
      faults=$((faults + 1))
      cp "$shot" "$RUN_DIR/faults/${elapsed}s.png"
      echo "at $elapsed s $topic showed $class"
    fi
  done
  if [ $((elapsed % 30)) -eq 0 ]; then
    ticks=$(cpu_ticks)
    cpu=$(awk -v d=$((ticks - last_ticks)) -v t="$TICKS_PER_SECOND" 'BEGIN {printf "%.1f", 100 * d / (30 * t)}')
    [ "$elapsed" -eq 0 ] && cpu=""
    last_ticks=$ticks
    echo "$elapsed,$(awk -v k="$(memory_kb)" 'BEGIN {printf "%.1f", k / 1024}'),$cpu" >>"$RUN_DIR/memory.csv"
  fi
done

summary=$(awk -F, -v warmup=$((WARMUP * 60)) -v limit="$MAX_GROWTH_MB" '
  NR == 1 { next }
  { last = $2; if ($1 >= warmup && warm == "") warm = $2
    if ($1 >= warmup) { if (low == "" || $2 < low) low = $2; if ($2 > high) high = $2 }
    if ($3 != "") { cpu += $3; n++ } }
  END {
    if (warm == "") { print "memory: the run ended before the warm-up did"; exit 1 }
    printf "memory: %.1f MB at %d min, %.1f MB at the end, %.1f MB between lowest and highest since\n", warm, warmup / 60, last, high - low
    printf "cpu: %.1f %% of a core on average\n", cpu / n
    exit (high - low > limit) ? 1 : 0 }' "$RUN_DIR/memory.csv") && memory_ok=yes || memory_ok=no
{
  echo "soak of $MINUTES min, $HOG busy loops beside rviz, car: $CAR_OPTIONS"
  echo "$summary"
  echo "items: $samples samples of ${#ITEMS[@]} items, $faults black or idle"
  grep -E ",(black|idle)$" "$RUN_DIR/items.csv" | sed 's/^/  at s,item,class: /' || true
} | tee "$RUN_DIR/summary.txt"
[ "$faults" -eq 0 ] && [ "$memory_ok" = yes ]
