#ifndef RVIZ_PLUGIN_TRAFFIC_ELEMENTS_WIDGET_H
#define RVIZ_PLUGIN_TRAFFIC_ELEMENTS_WIDGET_H

#include "car_view/panel_painting.h"

#include <custom/LocationStatus.h>
#include <custom/TrafficInfo.h>

#include <QColor>
#include <QMap>
#include <QWidget>

namespace rviz_plugin {

// Positioning (left) and what the road ahead demands (right): distance to the stop line, speed
// limit, the traffic light with its countdown and the traffic sign.
class TrafficElementsWidget : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int fontSize MEMBER fontSize)
    Q_PROPERTY(QColor fontColor MEMBER fontColor)
    Q_PROPERTY(QColor funcTextColor MEMBER funcTextColor)
    Q_PROPERTY(QColor splitLineColor MEMBER splitLineColor)

public:
    struct Record {
        QString label;
        QString icon;
    };

    explicit TrafficElementsWidget(QWidget* parent = nullptr);

    // Reads the layout file and the style sheet.
    void ReadConf();

public Q_SLOTS:
    void UpdateLocationStatusValue(const custom::LocationStatus& status);
    void UpdateTrafficInfoValue(const custom::TrafficInfo& info);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void InitLocationTypeMap();
    void InitTrafficLightStateMap();
    void InitTrafficLightTypeMap();
    void InitTrafficWarningSignMap();
    void InitTrafficSignMap();
    void SetLayoutOffset();
    void SetScale(QPainter& painter);
    void DrawLeft(QPainter& painter);
    void DrawLocationType(QPainter& painter);
    void DrawSplit(QPainter& painter);
    void DrawRight(QPainter& painter);
    void DrawTrafficLight(QPainter& painter);
    void DrawTrafficSign(QPainter& painter);
    // A value in the value colour with its caption below it, both centred in width.
    void DrawValueWithCaption(QPainter& painter, const QRectF& valueBox, const QString& value, double captionHeight,
                              const QString& caption);

    SvgIcons icons;
    PanelSection offsets;
    QSizeF designSize;
    QMap<int, Record> locationTypes;
    QMap<int, QString> lightStates;
    QMap<int, QString> lightTypes;
    QMap<int, Record> signs;

    custom::LocationStatus location;
    custom::TrafficInfo traffic;

    int fontSize = 14;
    QColor fontColor{1, 223, 255};
    QColor funcTextColor{152, 153, 158};
    QColor splitLineColor{255, 255, 255, 77};
};

} // namespace rviz_plugin

#endif
