#!/usr/bin/env bash
# Installs what a fresh Debian 12 machine lacks to build, run and test the plugin.
# Idempotent: when every package is present it returns at once without touching apt.
set -eo pipefail

PACKAGES=(
  build-essential cmake ninja-build ccache mold pkg-config clang libclang-rt-14-dev
  catkin ros-message-generation python3-gencpp python3-genmsg ros-message-runtime
  librviz-dev libroscpp-dev libmessage-filters-dev libtf2-ros-dev libclass-loader-dev pluginlib-dev libtopic-tools-dev
  libstd-msgs-dev ros-std-msgs libgeometry-msgs-dev ros-geometry-msgs libsensor-msgs-dev ros-sensor-msgs
  libvisualization-msgs-dev ros-visualization-msgs
  qtbase5-dev libqt5svg5-dev libqwt-qt5-dev libeigen3-dev
  libavcodec-dev libavformat-dev libavutil-dev libavfilter-dev libswscale-dev
  libopencv-core-dev libopencv-imgproc-dev libpcl-dev
  libmfx-dev libssh2-1-dev libssl-dev rapidjson-dev libtinyxml2-dev libgtest-dev libgmock-dev libbenchmark-dev
  rviz python3-rosmaster python3-roslaunch rosout python3-rostopic python3-rospy python3-std-msgs
  xvfb xauth xdotool imagemagick x11-apps ffmpeg openssh-server libgl1-mesa-dri mesa-utils
)

missing=()
for p in "${PACKAGES[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

SUDO=""
[ "$(id -u)" -ne 0 ] && SUDO="sudo"
echo "installing ${#missing[@]} missing packages: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
