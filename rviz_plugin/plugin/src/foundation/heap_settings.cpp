#include "heap_settings.h"

#include <malloc.h>

#include <mutex>

namespace rviz_plugin {

void ReturnLargeBuffersToTheSystem()
{
    static std::once_flag once;
    std::call_once(once, []() { mallopt(M_MMAP_THRESHOLD, static_cast<int>(largeBlockBytes)); });
}

} // namespace rviz_plugin
