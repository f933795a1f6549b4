#!/usr/bin/env bash
# A long run of the shipped layout against the simulated car, as a user leaves rviz open for a drive:
#   scripts/soak.sh MINUTES [--hog N] [--stir] [--warmup-minutes W] [--max-growth-mb M] [--car "OPTIONS"]
# rviz's resident memory (read every half second, the median of each half minute) and CPU are sampled
# every 30 s; every 10 s a screenshot is taken and each wall item's picture area is classed as a
# picture, black, the idle picture or other. A summary (memory after the warm-up and at the end, growth
# since, black items and when, CPU) is printed and kept with the samples and the screenshots of faults
# in $BUILD_DIR/soak/. --hog N runs N busy loops beside rviz; --stir shrinks rviz's window and restores
# it before every check, so that the wall lays its items out again while frames arrive. Fails when an
# item was black or showed the idle picture while its camera published, or when memory grew by more
# than M MB (default 2) from the end of the warm-up (default 10 minutes).
# Runs on its own virtual display; needs a build (scripts/build.sh).
set -eo pipefail
source "$(dirname "$0")/env.sh"
MINUTES=${1:?usage: scripts/soak.sh MINUTES [--hog N] [--stir] [--warmup-minutes W] [--max-growth-mb M] [--car OPTIONS]}
shift
HOG=0
STIR=no
WARMUP=10
MAX_GROWTH_MB=2
CAR_OPTIONS="--cameras 4 --width 1280 --height 720 --fps 15"
while [ $# -gt 0 ]; do
  case "$1" in
    --hog) HOG=$2; shift 2 ;;
    --stir) STIR=yes; shift ;;
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
# The plugin's heap figures every 30 s (blocks in use, free blocks, blocks of their own).
export RVIZ_PLUGIN_HEAP_FIGURES="$RUN_DIR/heap.csv"
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

# Resident memory and its anonymous part (the heap and other private memory; the rest is mapped files),
# read every half second in the background. Pictures in flight (a camera frame 1.4 MB, an overlay canvas
# 3.5 MB) come and go many times a second and the heap's top grows and is trimmed back every few seconds,
# so single reads swing by 2 MB and more; a sample is the median of its half minute's reads (rss,anon)
# and the highest read of that half minute beside it.
read_memory() {
  while kill -0 "$RVIZ_PID" 2>/dev/null; do
    awk '/^(VmRSS|RssAnon)/ {printf "%s%.1f", sep, $2 / 1024; sep = ","} END {print ""}' \
      "/proc/$RVIZ_PID/status" >>"$RUN_DIR/reads.csv" 2>/dev/null || true
    sleep 0.5
  done
}
memory_mb() {
  mv "$RUN_DIR/reads.csv" "$RUN_DIR/reads_window.csv"
  sort -t, -n -k1,1 "$RUN_DIR/reads_window.csv" |
    awk -F, '{ line[NR] = $0; highest = $1 } END { print line[int((NR + 1) / 2)] "," highest }'
}
cpu_ticks() { awk '{print $14 + $15}' "/proc/$RVIZ_PID/stat"; }

# rviz is up when the wall logged its start; the first pictures follow the first key frames.
for _ in $(seq 1 600); do
  grep -q "KoraVisionDisplay initialized" "$RUN_DIR/orsa/log/rviz_plugin.log" 2>/dev/null && break
  kill -0 "$RVIZ_PID" 2>/dev/null || { echo "rviz ended early; see $RUN_DIR/rviz.log" >&2; exit 1; }
  sleep 0.1
done
read_memory & session_pids+=($!)
sleep 10

if [ "$STIR" = yes ]; then
  WINDOW=$(xdotool search --onlyvisible --pid "$RVIZ_PID" --name "RViz" | head -n 1)
  eval "$(xdotool getwindowgeometry --shell "$WINDOW")"
  FULL_SIZE="$WIDTH $HEIGHT"
fi
# Shrinks rviz's window by a fifth and restores it; the items are checked once the wall settled.
stir() {
  # shellcheck disable=SC2086
  set -- $FULL_SIZE
  xdotool windowsize "$WINDOW" $(($1 * 4 / 5)) $(($2 * 4 / 5))
  sleep 0.5
  xdotool windowsize "$WINDOW" "$1" "$2"
  sleep 1.5
}

TICKS_PER_SECOND=$(getconf CLK_TCK)
TOTAL=$(awk -v m="$MINUTES" 'BEGIN {print int(m * 60)}')
echo "seconds,rss_mb,anon_mb,rss_highest_mb,cpu_percent" >"$RUN_DIR/memory.csv"
echo "seconds,item,class" >"$RUN_DIR/items.csv"
faults=0
samples=0
last_ticks=$(cpu_ticks)
start=$(date +%s)
for elapsed in $(seq 0 10 "$TOTAL"); do
  while [ $(($(date +%s) - start)) -lt "$elapsed" ]; do sleep 0.5; done
  kill -0 "$RVIZ_PID" 2>/dev/null || { echo "rviz ended at $elapsed s; see $RUN_DIR/rviz.log" >&2; exit 1; }
  [ "$STIR" = yes ] && stir
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
    echo "$elapsed,$(memory_mb),$cpu" >>"$RUN_DIR/memory.csv"
  fi
done

summary=$(awk -F, -v warmup=$((WARMUP * 60)) -v limit="$MAX_GROWTH_MB" '
  NR == 1 { next }
  { last = $2; lastAnon = $3; if ($1 >= warmup && warm == "") { warm = $2; warmAnon = $3 }
    if ($1 >= warmup) { if (low == "" || $2 < low) low = $2; if ($2 > high) high = $2; if ($4 > peak) peak = $4 }
    if ($5 != "") { cpu += $5; n++ } }
  END {
    if (warm == "") { print "memory: the run ended before the warm-up did"; exit 1 }
    printf "memory: %.1f MB at %d min, %.1f MB at the end, %.1f MB between lowest and highest since\n", warm, warmup / 60, last, high - low
    printf "anonymous part: %.1f MB at %d min, %.1f MB at the end\n", warmAnon, warmup / 60, lastAnon
    printf "highest single read since: %.1f MB\n", peak
    printf "cpu: %.1f %% of a core on average\n", cpu / n
    exit (high - low > limit) ? 1 : 0 }' "$RUN_DIR/memory.csv") && memory_ok=yes || memory_ok=no
# Blocks in use growing is data kept; free blocks growing is a heap that fragments.
heap=$(awk -F, -v warmup=$((WARMUP * 60 + 10)) '
  $1 >= warmup && warm == "" { warm = $0 }
  { last = $0 }
  END { if (warm == "") exit
    split(warm, w, ","); split(last, l, ",")
    printf "heap: in use %.1f -> %.1f MB, free %.1f -> %.1f MB, blocks of their own %.1f -> %.1f MB\n", w[2], l[2], w[3], l[3], w[4], l[4] }' \
  "$RUN_DIR/heap.csv" 2>/dev/null || true)
{
  echo "soak of $MINUTES min, $HOG busy loops beside rviz, window stirred: $STIR, car: $CAR_OPTIONS"
  echo "$summary"
  [ -z "$heap" ] || echo "$heap"
  echo "items: $samples samples of ${#ITEMS[@]} items, $faults black or idle"
  grep -E ",(black|idle)$" "$RUN_DIR/items.csv" | sed 's/^/  at s,item,class: /' || true
} | tee "$RUN_DIR/summary.txt"
[ "$faults" -eq 0 ] && [ "$memory_ok" = yes ]
