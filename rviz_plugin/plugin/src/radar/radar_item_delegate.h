#ifndef RVIZ_PLUGIN_RADAR_ITEM_DELEGATE_H
#define RVIZ_PLUGIN_RADAR_ITEM_DELEGATE_H

#include <QStyledItemDelegate>

#include <map>
#include <utility>

namespace rviz_plugin {

// Paints a cell of the radar detail table red when its number lies outside its column's limits.
class RadarItemDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    using Limits = std::map<QString, std::pair<float, float>>;

    RadarItemDelegate(Limits limits, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    // True when text is a number outside the limits of the column titled title.
    bool IsOutOfRange(const QString& title, const QString& text) const;

private:
    Limits limits;
};

// The limits of the detection table: x, y, vx, vy.
class RadarDetectItemDelegate : public RadarItemDelegate {
    Q_OBJECT
public:
    explicit RadarDetectItemDelegate(QObject* parent);
};

// The limits of the track table: x, y, vx, vy, ax, ay, length, width, height.
class RadarTrackItemDelegate : public RadarItemDelegate {
    Q_OBJECT
public:
    explicit RadarTrackItemDelegate(QObject* parent);
};

} // namespace rviz_plugin

#endif
