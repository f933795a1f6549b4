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

// The C library's figures for the process's heap, in bytes: blocks in use and free blocks of the
// shared heaps, and the blocks taken from the system on their own (largeBlockBytes and more).
struct HeapFigures {
    std::size_t inUse = 0;
    std::size_t free = 0;
    std::size_t ownBlocks = 0;
};
HeapFigures CurrentHeapFigures();

// For long runs: when the environment names a file in heapFiguresVariable, a line
// "seconds,in_use_mb,free_mb,own_blocks_mb" is appended to it at once and then every 30 s, from
// the calling thread's event loop (once per process). Growth of blocks in use is data kept; growth
// of free blocks is a heap that fragments.
constexpr const char* heapFiguresVariable = "RVIZ_PLUGIN_HEAP_FIGURES";
void WriteHeapFiguresWhenAsked();

} // namespace rviz_plugin

#endif
