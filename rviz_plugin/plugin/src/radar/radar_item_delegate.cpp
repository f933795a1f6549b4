#include "radar_item_delegate.h"

#include "scene_3d_logic/radar_checks.h"

#include <QPainter>

namespace rviz_plugin {

RadarItemDelegate::RadarItemDelegate(Limits columnLimits, QObject* parent)
    : QStyledItemDelegate(parent), limits(std::move(columnLimits))
{
}

bool RadarItemDelegate::IsOutOfRange(const QString& title, const QString& text) const
{
    const auto found = limits.find(title);
    if (found == limits.end()) {
        return false;
    }
    bool isNumber = false;
    const float value = text.toFloat(&isNumber);
    return isNumber && (value < found->second.first || value > found->second.second);
}

void RadarItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QString title = index.model()->headerData(index.column(), Qt::Horizontal).toString();
    const QString text = index.data().toString();
    if (!IsOutOfRange(title, text)) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    painter->save();
    painter->fillRect(option.rect, QColor("#FFF2F1"));
    painter->setPen(QColor("#EB6557"));
    painter->drawText(option.rect.adjusted(4, 0, -4, 0), Qt::AlignVCenter | Qt::AlignLeft, text);
    painter->restore();
}

RadarDetectItemDelegate::RadarDetectItemDelegate(QObject* parent)
    : RadarItemDelegate(RadarColumnLimits(RadarDetectLimits()), parent)
{
}

RadarTrackItemDelegate::RadarTrackItemDelegate(QObject* parent)
    : RadarItemDelegate(RadarColumnLimits(RadarTrackLimits()), parent)
{
}

} // namespace rviz_plugin
