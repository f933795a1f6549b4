#include "wall_layout.h"

#include <algorithm>
#include <cstdlib>

namespace rviz_plugin {

namespace {
constexpr int maxColumns = 4;

int CeilDiv(int value, int divisor)
{
    return (value + divisor - 1) / divisor;
}
} // namespace

WallGrid EvaluateOptimalLayout(int itemCount, int page, int itemsPerPage)
{
    WallGrid grid;
    if (itemsPerPage < 1 || page < 1) {
        return grid;
    }
    grid.first = (page - 1) * itemsPerPage;
    const int shown = std::min(itemsPerPage, itemCount - grid.first);
    if (shown < 1) {
        return grid;
    }
    grid.count = shown;
    int bestDifference = -1;
    for (int columns = 1; columns <= std::min(shown, maxColumns); ++columns) {
        const int rows = CeilDiv(shown, columns);
        const int difference = std::abs(rows - columns);
        if (bestDifference < 0 || difference <= bestDifference) {
            bestDifference = difference;
            grid.rows = rows;
            grid.columns = columns;
        }
    }
    return grid;
}

int GetMaxPageNumber(int itemCount, int itemsPerPage)
{
    if (itemCount <= 0 || itemsPerPage < 1) {
        return 1;
    }
    return CeilDiv(itemCount, itemsPerPage);
}

} // namespace rviz_plugin
