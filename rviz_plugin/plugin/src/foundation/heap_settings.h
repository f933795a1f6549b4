#ifndef RVIZ_PLUGIN_HEAP_SETTINGS_H
#define RVIZ_PLUGIN_HEAP_SETTINGS_H

#include <cstddef>

namespace rviz_plugin {

// Blocks of this size and more are taken from the system and given back when freed.
constexpr std::size_t largeBlockBytes = 256 * 1024;

// Fixes the C library's threshold for blocks of their own at largeBlockBytes (once per process). By default
// it rises to the largest block freed so far, after which multi-megabyte buffers made and freed for every
// message (grids, point clouds, their vertex buffers) come from the shared heap, fragment it and make the
// process grow for minutes before it levels off.
void ReturnLargeBuffersToTheSystem();

} // namespace rviz_plugin

#endif
