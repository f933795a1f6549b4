#!/usr/bin/env bash
# Builds the message parser's libFuzzer target with clang and runs it.
#   scripts/fuzz.sh [SECONDS]   (default 5; the test command runs a few seconds, longer runs by hand)
# New inputs that grow coverage stay in $BUILD_DIR/fuzz/corpus; crashes land in $BUILD_DIR/fuzz/.
set -eo pipefail
source "$(dirname "$0")/env.sh"
SECONDS_TO_RUN=${1:-5}
SRC="$ROOT/rviz_plugin/plugin/src"
OUT="$BUILD_DIR/fuzz"
mkdir -p "$OUT/corpus"
cp -n "$ROOT/rviz_plugin/plugin/test/ros_msg_parser/corpus/"* "$OUT/corpus/" 2>/dev/null || true
sources=("$SRC/ros_msg_parser/ros_type.cpp" "$SRC/ros_msg_parser/message_definition.cpp"
         "$SRC/ros_msg_parser/fixed_layout.cpp" "$SRC/ros_msg_parser/flat_values.cpp"
         "$SRC/ros_msg_parser/parser.cpp" "$ROOT/rviz_plugin/plugin/test/ros_msg_parser/fuzz_ros_msg_parser.cpp")
if [ ! -x "$OUT/fuzz_ros_msg_parser" ] || [ -n "$(find "${sources[@]}" "$SRC/ros_msg_parser" -newer "$OUT/fuzz_ros_msg_parser" 2>/dev/null)" ]; then
  clang++ -std=c++17 -O1 -g -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=undefined \
    -I"$SRC" "${sources[@]}" -o "$OUT/fuzz_ros_msg_parser"
fi
cd "$OUT"
./fuzz_ros_msg_parser -max_total_time="$SECONDS_TO_RUN" -rss_limit_mb=2048 -timeout=5 -max_len=4096 \
  -print_final_stats=1 corpus 2>&1 | grep -E "stat::number_of_executed_units|stat::peak_rss|ERROR|SUMMARY|Done" || true
# libFuzzer leaves crash-* or timeout-* files behind when it found something.
! ls crash-* timeout-* leak-* oom-* >/dev/null 2>&1
