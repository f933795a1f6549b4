#include "dock_layout.h"

namespace rviz_plugin {

QPoint DockLayout::CascadePosition(int number) const
{
    return settings.cascadeOrigin + QPoint(number, number) * settings.cascadeStep;
}

int DockLayout::CascadeHeight(int viewHeight, bool useViewHeight) const
{
    return useViewHeight && viewHeight > 0 && viewHeight < settings.dockHeight ? viewHeight : settings.dockHeight;
}

QRect DockLayout::Area(DockAreaIndex area, const QPoint& topLeft, const QSize& central) const
{
    const int column = ColumnWidth(central);
    const int row = RowHeight(central);
    if (area == LeftArea) {
        return QRect(topLeft, topLeft + QPoint(column, settings.leftAreaSpan * row));
    }
    return QRect(topLeft + QPoint(0, settings.leftAreaSpan * row),
                 topLeft + QPoint(settings.gridDivisions * column, settings.gridDivisions * row));
}

int DockLayout::Capacity(DockAreaIndex area, const QSize& central) const
{
    const int width = central.width() - 2 * settings.leftMargin;
    const int height = central.height();
    if (area == LeftArea) {
        if (width < settings.minSlotWidth || height < settings.leftOneSlotHeight) {
            return 0;
        }
        return height < settings.leftTwoSlotHeight ? 1 : settings.twoSlots;
    }
    if (height < settings.minSlotHeight) {
        return 0;
    }
    if (width < settings.bottomTwoSlotWidth) {
        return 1;
    }
    return width < settings.bottomThreeSlotWidth ? settings.twoSlots : settings.maxSlots;
}

QVector<QRect> DockLayout::Slots(DockAreaIndex area, const QPoint& topLeft, const QSize& central, int count,
                                 int visibleCount) const
{
    QVector<QRect> slotRects;
    if (count <= 0) {
        return slotRects;
    }
    const int column = ColumnWidth(central);
    const int row = RowHeight(central);
    const int gap = settings.slotGap;
    for (int k = 1; k <= visibleCount; ++k) {
        if (area == LeftArea) {
            const int height = (settings.leftAreaSpan * row - (count + 1) * gap) / count;
            slotRects.push_back(QRect(topLeft.x() + settings.leftMargin + gap, topLeft.y() + (k - 1) * height + gap * k,
                                      column - gap, height));
        } else {
            const int width = (settings.gridDivisions * column - (count + 1) * gap) / count;
            slotRects.push_back(QRect(topLeft.x() + settings.leftMargin + (k - 1) * width + gap * k,
                                      topLeft.y() + settings.leftAreaSpan * row, width, row));
        }
    }
    return slotRects;
}

QPoint DockLayout::ThrownOutPosition(const QPoint& topLeft, const QSize& central, int index) const
{
    return QPoint(topLeft.x() + central.width() - settings.dockWidth + index * settings.cascadeStep,
                  topLeft.y() + index * settings.cascadeStep);
}

int DockLayout::KeyValueColumns(int dockWidth) const
{
    return dockWidth - 1 > settings.keyValueCellWidth - 2 ? dockWidth / settings.keyValueCellWidth : 0;
}

} // namespace rviz_plugin
