#ifndef RVIZ_PLUGIN_DOCK_LAYOUT_H
#define RVIZ_PLUGIN_DOCK_LAYOUT_H

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QVector>

namespace rviz_plugin {

// Where the viewer's floating docks go: a cascade for new ones, and tiled slots in two areas of the
// main window's central widget (a left column two thirds high, a bottom row a third high). Pure
// geometry; the panel moves the docks.
struct DockLayoutSettings {
    int dockWidth = 496;
    int dockHeight = 452;
    int leftMargin = 15;
    int gridDivisions = 3;
    int leftAreaSpan = 2;
    int minSlotWidth = 300;
    int minSlotHeight = 280;
    int maxSlots = 3;
    int twoSlots = 2;
    int slotGap = 2;
    int cascadeStep = 24;
    QPoint cascadeOrigin{712, 314};
    int leftOneSlotHeight = 561;   // from here one dock fits the left area
    int leftTwoSlotHeight = 840;   // from here two
    int bottomTwoSlotWidth = 600;  // from here two docks fit the bottom area
    int bottomThreeSlotWidth = 900;
    int keyValueCellWidth = 110;
};

enum DockAreaIndex { LeftArea = 0, BottomArea = 1 };

class DockLayout {
public:
    explicit DockLayout(const DockLayoutSettings& settings = DockLayoutSettings()) : settings(settings) {}

    const DockLayoutSettings& Settings() const { return settings; }

    // The top left corner of the number-th dock of the cascade.
    QPoint CascadePosition(int number) const;
    // A new dock's height: the view's when it is known and shorter than the default.
    int CascadeHeight(int viewHeight, bool useViewHeight) const;

    // The two areas of a central widget at global topLeft with the given size.
    QRect Area(DockAreaIndex area, const QPoint& topLeft, const QSize& central) const;
    // How many docks an area holds at this size of the central widget.
    int Capacity(DockAreaIndex area, const QSize& central) const;
    // The slots of the visible docks of an area holding count docks (hidden ones count but take none).
    QVector<QRect> Slots(DockAreaIndex area, const QPoint& topLeft, const QSize& central, int count,
                         int visibleCount) const;
    // Where a dock thrown out of a full area goes: along the central widget's top right corner.
    QPoint ThrownOutPosition(const QPoint& topLeft, const QSize& central, int index) const;
    // Key-value grid columns for a dock of this width; 0 when the grid keeps its layout.
    int KeyValueColumns(int dockWidth) const;

private:
    int ColumnWidth(const QSize& central) const { return (central.width() - 2 * settings.leftMargin) / settings.gridDivisions; }
    int RowHeight(const QSize& central) const { return central.height() / settings.gridDivisions; }

    DockLayoutSettings settings;
};

} // namespace rviz_plugin

#endif
