#ifndef RVIZ_PLUGIN_BASE_CAR_VIEW_H
#define RVIZ_PLUGIN_BASE_CAR_VIEW_H

#include "panel_painting.h"

#include <custom/VehicleStatus.h>

#include <QColor>
#include <QMap>
#include <QRectF>
#include <QWidget>

class QSettings;

// The instrument cluster of a custom::VehicleStatus: steering wheel with its ring, speed, gear,
// brake and throttle bars, lights. Drawn in design pixels (the layout file's) and scaled to the
// widget; colours and sizes come from the style sheet as the properties below.
class BaseCarView : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int minValue MEMBER minValue)
    Q_PROPERTY(int maxValue MEMBER maxValue)
    Q_PROPERTY(QColor leftBarColor MEMBER leftBarColor)
    Q_PROPERTY(QColor rightBarColor MEMBER rightBarColor)
    Q_PROPERTY(int fontSize MEMBER fontSize)
    Q_PROPERTY(QColor fontColor MEMBER fontColor)
    Q_PROPERTY(QColor valueColor MEMBER valueColor)
    Q_PROPERTY(QColor kmColor MEMBER kmColor)
    Q_PROPERTY(QColor ringColor MEMBER ringColor)
    Q_PROPERTY(QColor circleColor MEMBER circleColor)
    Q_PROPERTY(int ringPadding MEMBER ringPadding)
    Q_PROPERTY(int ringWidth MEMBER ringWidth)
    Q_PROPERTY(int kmFontSize MEMBER kmFontSize)
    Q_PROPERTY(int valueFontSize MEMBER valueFontSize)
    Q_PROPERTY(int circleRadius MEMBER circleRadius)
    Q_PROPERTY(int startAngle MEMBER startAngle)

public:
    enum class ValueState { Normal, Choose };

    // One vertical bar: side 0 the brake on the left, 1 the throttle on the right.
    struct Bar {
        int side = 0;
        double xOffset = 0;     // the ruler's left
        double yOffset = 0;     // the ruler's top
        double pixXOffset = 0;  // the guider's left
        double textXOffset = 0;
        QString upIcon;         // the guider, or the rising arrow
        QString downIcon;       // the falling arrow (none for a plain guider)
        double lastPainted = 0;
    };

    explicit BaseCarView(QWidget* parent = nullptr);

    // Reads the layout file and the style sheet.
    virtual void ReadConf();

    double BrakeValue() const { return brakeValue; }
    double ThrottleValue() const { return throttleValue; }
    QColor RightBarColor() const { return rightBarColor; }

public Q_SLOTS:
    void UpdateValue(const custom::VehicleStatus& status);

protected:
    void paintEvent(QPaintEvent* event) override;

    virtual void DrawGuider(QPainter& painter, Bar& bar) = 0;
    virtual void DrawWarnSignal(QPainter& painter);
    virtual void DrawGearStyle(QPainter& painter, ValueState state, QRectF& rect, QString letter);

    void SetScale(QPainter& painter);
    void DrawInfo(QPainter& painter);
    void DrawSteeringWheel(QPainter& painter);
    void DrawRing(QPainter& painter);
    void DrawKmValue(QPainter& painter);
    void DrawKm(QPainter& painter);
    void DrawBar(QPainter& painter, Bar& bar);
    void DrawRulerBar(QPainter& painter, const Bar& bar);
    void DrawValueBar(QPainter& painter, const Bar& bar);
    void DrawGuiderTxt(QPainter& painter, const Bar& bar, double y);
    void DrawGear(QPainter& painter);
    // Height in pixels of a bar's value.
    double ValueException(double value) const;
    // Reads the bars of the given section of the layout.
    void InitializeBarData(const QSettings& settings);
    void InitializeGearInfo();
    void SetChooseStyle(ValueState state, QFont& font, QColor& color) const;

    double BarValue(const Bar& bar) const { return bar.side == 0 ? brakeValue : throttleValue; }
    // Top of a guider for the bar's present value.
    double GuiderY(const Bar& bar) const;
    QPointF WheelCentre() const;
    // Top-left of the lamp icons.
    QPointF LeftSignalPoint() const;
    QPointF RightSignalPoint() const;

    rviz_plugin::SvgIcons icons;
    QString barSection;  // the layout section of the bars, the class's own
    Bar leftBar;
    Bar rightBar;
    double speed = 0;
    double acceleration = 0;
    double wheelAngle = 0;
    double wheelRadians = 0;
    int gear = 0;
    int hazardLights = 0;
    int turnLight = 0;
    bool dataSeen = false;

private:
    struct Gear {
        QString letter;
        QRectF rect;
        ValueState state = ValueState::Normal;
    };
    QSizeF designSize;
    QMap<QString, double> info;
    QMap<QString, double> wheel;
    QMap<QString, double> signal;
    QMap<int, Gear> gears;
    double brakeValue = 0;
    double throttleValue = 0;

    int minValue = 0;
    int maxValue = 100;
    QColor leftBarColor{255, 63, 63, 125};
    QColor rightBarColor{1, 233, 255, 178};
    int fontSize = 14;
    QColor fontColor{0, 223, 255, 255};
    QColor valueColor{255, 255, 255, 255};
    QColor kmColor{152, 153, 158, 204};
    QColor ringColor{28, 253, 198, 125};
    QColor circleColor{0, 0, 0, 0};
    int ringPadding = 0;
    int ringWidth = 20;
    int kmFontSize = 10;
    int valueFontSize = 26;
    int circleRadius = 40;
    int startAngle = 90;
};

#endif
