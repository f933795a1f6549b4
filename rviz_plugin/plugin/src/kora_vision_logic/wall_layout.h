#ifndef RVIZ_PLUGIN_WALL_LAYOUT_H
#define RVIZ_PLUGIN_WALL_LAYOUT_H

namespace rviz_plugin {

// Limits of the video wall.
struct WallLimits {
    int maxItems = 30;
    int listItemsPerPage = 4;
    int fullScreenItemsPerPage = 16;
};

// Which items one page shows and in what grid.
struct WallGrid {
    int first = 0;   // index of the first item on the page
    int count = 0;   // items on the page; 0 shows nothing
    int rows = 0;
    int columns = 0;
};

// Grid of the given page (from 1): the most square arrangement of the page's items, at most
// 4 columns, the larger column count winning a tie.
WallGrid EvaluateOptimalLayout(int itemCount, int page, int itemsPerPage);

// Pages needed for itemCount items; 1 for an empty wall.
int GetMaxPageNumber(int itemCount, int itemsPerPage);

} // namespace rviz_plugin

#endif
