#!/usr/bin/env bash
# Builds the libFuzzer targets with clang (AddressSanitizer + UndefinedBehaviorSanitizer) and runs
# each for a while:
#   scripts/fuzz.sh [SECONDS [TARGET...]]   (default 5 seconds each, every target)
#   FUZZ_RUNS=N scripts/fuzz.sh 0 TARGET    runs TARGET for N executions instead (long runs by hand)
# Targets: ros_msg_parser (run-time message parsing), video_decoding (access units through the
# pipeline's rules and the software decoder), config_files (JSON, schemas, settings files),
# remote_connections (saved connections and their cipher text), command_files (the car's built-in
# commands file and version file).
# Each keeps its corpus in $BUILD_DIR/fuzz/<target>/corpus, seeded from the repository; crashes land
# in $BUILD_DIR/fuzz/<target>/ and fail the script.
set -eo pipefail
source "$(dirname "$0")/env.sh"
SECONDS_TO_RUN=${1:-5}
shift || true
TARGETS=("$@")
[ ${#TARGETS[@]} -gt 0 ] || TARGETS=(ros_msg_parser video_decoding config_files remote_connections command_files)
PLUGIN="$ROOT/rviz_plugin/plugin"
SRC="$PLUGIN/src"
FOUNDATION=("$SRC/foundation/logger.cpp" "$SRC/foundation/log_file.cpp" "$SRC/foundation/log_console.cpp"
            "$SRC/foundation/path_utils.cpp")
ROS_LIBS=(-lroscpp -lrosconsole -lroscpp_serialization -lrostime -lcpp_common -lboost_system -lpthread)

sources_of() {
  case "$1" in
    ros_msg_parser)
      echo "$SRC/ros_msg_parser/ros_type.cpp $SRC/ros_msg_parser/message_definition.cpp" \
           "$SRC/ros_msg_parser/fixed_layout.cpp $SRC/ros_msg_parser/flat_values.cpp" \
           "$SRC/ros_msg_parser/parser.cpp $PLUGIN/test/ros_msg_parser/fuzz_ros_msg_parser.cpp" ;;
    video_decoding)
      echo "$PLUGIN/test/decoder_switch/fuzz_video_decoding.cpp $SRC/decoder_switch/software_decoder.cpp" \
           "$SRC/decoder_switch/decoder.cpp $SRC/frames/custom_av_frame_data.cpp" \
           "$SRC/decoder_switch/video_frame_rules.cpp $SRC/frames/yuv_texture_data.cpp" \
           "$SRC/frames/texture_data.cpp $SRC/frames/extern_ffmpeg.cpp ${FOUNDATION[*]}" ;;
    config_files)
      echo "$PLUGIN/test/foundation/fuzz_config_files.cpp $SRC/foundation/config_file_tool.cpp" \
           "$SRC/foundation/file_hander.cpp $SRC/decoder_switch/evaluate_history.cpp ${FOUNDATION[*]}" ;;
    remote_connections)
      echo "$PLUGIN/test/remote_commands/fuzz_remote_connections.cpp $SRC/remote_commands/connection.cpp" \
           "$SRC/remote_commands/cipher_handler.cpp $SRC/remote_commands/key_handler.cpp" \
           "$SRC/remote_commands/aes_gcm_code.cpp $SRC/foundation/bounded_memory.cpp ${FOUNDATION[*]}" ;;
    command_files)
      echo "$PLUGIN/test/remote_commands/fuzz_command_files.cpp $SRC/remote_commands/builtin_commands_file.cpp" \
           "$SRC/remote_commands/version_file.cpp $SRC/foundation/config_file_tool.cpp" \
           "$SRC/foundation/file_hander.cpp ${FOUNDATION[*]}" ;;
    *) echo "unknown fuzz target $1" >&2; exit 2 ;;
  esac
}

libraries_of() {
  case "$1" in
    ros_msg_parser) ;;
    video_decoding) echo "$(pkg-config --libs libavcodec libavformat libavfilter libavutil libswscale) ${ROS_LIBS[*]}" ;;
    config_files) echo "${ROS_LIBS[*]}" ;;
    remote_connections) echo "-lrviz $(pkg-config --libs Qt5Core) -lcrypto ${ROS_LIBS[*]}" ;;
    command_files) echo "${ROS_LIBS[*]}" ;;
  esac
}

# Options per target: the decoder keeps FFmpeg's pools between executions (no leak checks there),
# and whole access units need room.
options_of() {
  case "$1" in
    ros_msg_parser) echo "-max_len=4096" ;;
    video_decoding) echo "-max_len=16384 -detect_leaks=0" ;;
    config_files) echo "-max_len=4096" ;;
    remote_connections) echo "-max_len=4096" ;;
    command_files) echo "-max_len=8192" ;;
  esac
}

seeds_of() {
  case "$1" in
    ros_msg_parser) echo "$PLUGIN/test/ros_msg_parser/corpus" ;;
    video_decoding) echo "$PLUGIN/test/decoder_switch/corpus" ;;
    config_files) echo "$PLUGIN/test/foundation/corpus" ;;
    remote_connections) echo "$PLUGIN/test/remote_commands/corpus_connections" ;;
    command_files) echo "$PLUGIN/test/remote_commands/corpus_command_files" ;;
  esac
}

status=0
for target in "${TARGETS[@]}"; do
  out="$BUILD_DIR/fuzz/$target"
  mkdir -p "$out/corpus"
  cp -n "$(seeds_of "$target")"/* "$out/corpus/" 2>/dev/null || true
  binary="$out/fuzz_$target"
  read -r -a sources <<< "$(sources_of "$target")"
  if [ ! -x "$binary" ] || [ -n "$(find "${sources[@]}" "$SRC" -name '*.h' -newer "$binary" 2>/dev/null | head -1)" ] ||
     [ -n "$(find "${sources[@]}" -newer "$binary" 2>/dev/null | head -1)" ]; then
    # shellcheck disable=SC2046
    clang++ -std=c++17 -O1 -g -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=undefined \
      -fsanitize-recover=pointer-overflow,float-cast-overflow \
      -I"$SRC" -I"$BUILD_DIR/devel/include" -I/usr/include/OGRE $(pkg-config --cflags Qt5Core) -fPIC \
      "${sources[@]}" -o "$binary" \
      $(libraries_of "$target")
  fi
  limit="-max_total_time=$SECONDS_TO_RUN"
  [ -z "${FUZZ_RUNS:-}" ] || limit="-runs=$FUZZ_RUNS"
  echo "== fuzz $target"
  # A report that is not suppressed halts the run (see the suppression file for the one that is).
  export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1:suppressions=$PLUGIN/test/foundation/ubsan_rapidjson.supp"
  # shellcheck disable=SC2046
  (cd "$out" && "$binary" "$limit" -rss_limit_mb=2048 -timeout=10 -close_fd_mask=1 -print_final_stats=1 \
     $(options_of "$target") corpus 2>&1) > "$out/last_run.log" || status=1
  grep -E "stat::number_of_executed_units|stat::peak_rss|ERROR|SUMMARY|Done" "$out/last_run.log" || true
  # A run that never got going (a missing binary or library) has no statistics: that is a failure too.
  grep -q "stat::number_of_executed_units" "$out/last_run.log" || { echo "fuzz $target did not run" >&2; status=1; }
  # libFuzzer leaves crash-* or timeout-* files behind when it found something.
  found=""
  for kind in crash timeout leak oom; do
    compgen -G "$out/$kind-*" >/dev/null && found=yes
  done
  if [ -n "$found" ]; then
    echo "fuzz $target found a failing input in $out" >&2
    status=1
  fi
done
exit $status
