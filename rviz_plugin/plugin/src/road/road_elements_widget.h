#ifndef RVIZ_PLUGIN_ROAD_ELEMENTS_WIDGET_H
#define RVIZ_PLUGIN_ROAD_ELEMENTS_WIDGET_H

#include "car_view/panel_painting.h"

#include <custom/RoadInfo.h>

#include <QColor>
#include <QMap>
#include <QWidget>

namespace rviz_plugin {

// The lane and its neighbours, lane change, speed limit and the next intersection (top), curvature,
// slope and distances (bottom).
class RoadElementsWidget : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int fontSize MEMBER fontSize)
    Q_PROPERTY(QColor fontColor MEMBER fontColor)
    Q_PROPERTY(QColor funcTextColor MEMBER funcTextColor)

public:
    struct Record {
        QString label;
        QString icon;
    };

    explicit RoadElementsWidget(QWidget* parent = nullptr);

    // Reads the layout file and the style sheet.
    void ReadConf();

public Q_SLOTS:
    void UpdateRoadInfoValue(const custom::RoadInfo& info);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void InitLaneTypeMap();
    void InitFrontIntersectionTypeMap();
    void SetScale(QPainter& painter);
    void DrawLanes(QPainter& painter);
    void DrawLaneType(QPainter& painter, int laneType, double x);
    void DrawChangeLane(QPainter& painter);
    void DrawSpeedLimit(QPainter& painter);
    void DrawDown(QPainter& painter);
    void DrawValue(QPainter& painter, double x, const QString& value, const QString& label);

    SvgIcons icons;
    PanelSection offsets;
    QSizeF designSize;
    QMap<int, Record> laneTypes;
    QMap<int, QString> intersections;
    custom::RoadInfo road;

    int fontSize = 14;
    QColor fontColor{1, 223, 255};
    QColor funcTextColor{152, 153, 158};
};

} // namespace rviz_plugin

#endif
