# Sourced by the scripts: build location and a PATH where Debian's python3 wins (catkin needs it).
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
BUILD_DIR=${BUILD_DIR:-$ROOT/build}
export PATH=/usr/local/sbin:/usr/sbin:/usr/bin:/sbin:/bin:$PATH
