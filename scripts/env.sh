# Sourced by the scripts: build location and a PATH where Debian's python3 wins (catkin needs it).
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
BUILD_DIR=${BUILD_DIR:-$ROOT/build}
# Relative to the directory the script was started from; absolute, so scripts may change directory.
mkdir -p "$BUILD_DIR" && BUILD_DIR=$(cd "$BUILD_DIR" && pwd)
export PATH=/usr/local/sbin:/usr/sbin:/usr/bin:/sbin:/bin:$PATH
