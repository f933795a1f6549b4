#include "heap_settings.h"

#include <QCoreApplication>
#include <QTimer>

#include <malloc.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>

namespace rviz_plugin {

namespace {
constexpr std::chrono::seconds heapFiguresInterval(30);

void AppendHeapFigures(const std::string& file, std::chrono::steady_clock::time_point start)
{
    const HeapFigures figures = CurrentHeapFigures();
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - start);
    constexpr double megabyte = 1024.0 * 1024.0;
    if (std::FILE* out = std::fopen(file.c_str(), "a")) {
        std::fprintf(out, "%lld,%.1f,%.1f,%.1f\n", static_cast<long long>(seconds.count()),
                     static_cast<double>(figures.inUse) / megabyte, static_cast<double>(figures.free) / megabyte,
                     static_cast<double>(figures.ownBlocks) / megabyte);
        std::fclose(out);
    }
}
} // namespace

void ReturnLargeBuffersToTheSystem()
{
    static std::once_flag once;
    std::call_once(once, []() { mallopt(M_MMAP_THRESHOLD, static_cast<int>(largeBlockBytes)); });
}

HeapFigures CurrentHeapFigures()
{
    const struct mallinfo2 info = mallinfo2();
    return {info.uordblks, info.fordblks, info.hblkhd};
}

void WriteHeapFiguresWhenAsked()
{
    static std::once_flag once;
    std::call_once(once, []() {
        const char* file = std::getenv(heapFiguresVariable);
        if (file == nullptr || *file == '\0' || QCoreApplication::instance() == nullptr) {
            return;
        }
        const std::string path(file);
        const auto start = std::chrono::steady_clock::now();
        AppendHeapFigures(path, start);
        auto* timer = new QTimer(QCoreApplication::instance());
        QObject::connect(timer, &QTimer::timeout, [path, start]() { AppendHeapFigures(path, start); });
        timer->start(std::chrono::milliseconds(heapFiguresInterval).count());
    });
}

} // namespace rviz_plugin
