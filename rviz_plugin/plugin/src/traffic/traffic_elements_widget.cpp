#include "traffic_elements_widget.h"

#include "foundation/logger.h"
#include "vehicle_panels_logic/panel_values.h"

#include <QPainter>

#include <exception>
#include <tuple>

namespace rviz_plugin {

namespace {

const QString speedLimitIcon = ":/icons/speedLimitPic.svg";
const QString lightFrameIcon = ":/icons/trafficLightPic.svg";
constexpr double lightTypeGap = 41;
constexpr double splitX = 122;
constexpr int captionFontSize = 11;

} // namespace

TrafficElementsWidget::TrafficElementsWidget(QWidget* parent) : QWidget(parent), offsets("TrafficEle")
{
    MakeOpaquePanelWidget(this);
    InitLocationTypeMap();
    InitTrafficLightStateMap();
    InitTrafficLightTypeMap();
    InitTrafficWarningSignMap();
    InitTrafficSignMap();
}

void TrafficElementsWidget::InitLocationTypeMap()
{
    int value = 1;
    for (const char* label : {"Single", "Fusion", "Rtk", "Vision", "Lidar", "Integrated"}) {
        locationTypes.insert(value++, {label, QString::fromStdString(IconOfLabel(label))});
    }
}

void TrafficElementsWidget::InitTrafficLightStateMap()
{
    lightStates.insert(1, ":/icons/greenPic.svg");
    lightStates.insert(2, ":/icons/yellowPic.svg");
    lightStates.insert(3, ":/icons/redPic.svg");
}

void TrafficElementsWidget::InitTrafficLightTypeMap()
{
    int value = 1;
    for (const char* icon : {"straightPic", "turnLeftPic", "turnAroundPic", "turnLeftAroundPic",
                             "turnAroundStraightPic", "turnLeftStraightPic", "turnLeftAroundStraightPic"}) {
        lightTypes.insert(value++, QString(":/icons/%1.svg").arg(icon));
    }
}

void TrafficElementsWidget::InitTrafficWarningSignMap()
{
    int value = 1;
    for (const char* label :
         {"Crossroad", "T Junction", "Y Junction", "Roundabout", "Series bends", "Uphill", "Downhill",
          "Alert \n people", "Alert \n children", "Watch lights", "Village", "Tunnel", "Accident \n area",
          "Slow down", "Detour \n both", "Detour \n left", "Detour \n right", "Road \n construction", "Dangerous"}) {
        signs.insert(value++, {label, QString::fromStdString(IconOfLabel(label))});
    }
}

void TrafficElementsWidget::InitTrafficSignMap()
{
    int value = 20;
    for (const char* label : {"No \n thoroughfare", "No entry", "No honking", "No truck", "No left", "No right",
                              "No \n straight", "No \n overtaking", "No U turn", "No left \n right",
                              "No straight \n left", "Keep left", "Keep \n right"}) {
        signs.insert(value++, {label, QString::fromStdString(IconOfLabel(label))});
    }
}

void TrafficElementsWidget::ReadConf()
{
    ApplyWheelStyle(this);
    SetLayoutOffset();
}

void TrafficElementsWidget::SetLayoutOffset()
{
    designSize = PanelSection("TrafficPanelSize").MinSize();
    setMinimumSize(designSize.toSize());
}

void TrafficElementsWidget::UpdateLocationStatusValue(const custom::LocationStatus& status)
{
    Orsa::RunLoggingExceptions("TrafficView", [&] {
        location = status;
        update();
    });
}

void TrafficElementsWidget::UpdateTrafficInfoValue(const custom::TrafficInfo& info)
{
    Orsa::RunLoggingExceptions("TrafficView", [&] {
        traffic = info;
        update();
    });
}

void TrafficElementsWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    FillPanelBackground(painter, rect());
    SetScale(painter);
    DrawLeft(painter);
    DrawSplit(painter);
    DrawRight(painter);
}

void TrafficElementsWidget::SetScale(QPainter& painter)
{
    rviz_plugin::SetScale(painter, rect(), designSize);
}

void TrafficElementsWidget::DrawValueWithCaption(QPainter& painter, const QRectF& valueBox, const QString& value,
                                                 double captionHeight, const QString& caption)
{
    DrawBoxText(painter, valueBox, value, fontColor, fontSize, Qt::AlignCenter, true);
    DrawBoxText(painter, QRectF(valueBox.left(), valueBox.bottom(), valueBox.width(), captionHeight), caption,
                funcTextColor, captionFontSize);
}

void TrafficElementsWidget::DrawLeft(QPainter& painter)
{
    DrawLocationType(painter);
    const double x = offsets.Value("valueXOffset");
    const double width = offsets.Value("valueWidth");
    const double height = offsets.Value("valueHeight");
    // Values on the left, their captions beside them in the comment column.
    const double captionX = offsets.Value("commentTextXOffset");
    const double captionWidth = offsets.Value("commentTextWidth");
    for (const auto& [y, value, caption] :
         {std::make_tuple(offsets.Value("satelliteYOffset"), int(location.searchedSattelites), "Star"),
          std::make_tuple(offsets.Value("locStateYOffset"), int(location.locationState), "State")}) {
        DrawBoxText(painter, QRectF(x, y, width, height), QString::number(value), fontColor, fontSize, Qt::AlignCenter,
                    true);
        DrawBoxText(painter, QRectF(captionX, y, captionWidth, height), caption, funcTextColor, captionFontSize,
                    Qt::AlignLeft | Qt::AlignVCenter);
    }
}

void TrafficElementsWidget::DrawLocationType(QPainter& painter)
{
    const auto type = locationTypes.find(location.locationType);
    if (type == locationTypes.end()) {
        return;
    }
    icons.Render(painter, type->icon, QPointF(offsets.Value("locTypeXOffset"), offsets.Value("locTypeYOffset")));
    DrawBoxText(painter,
                QRectF(offsets.Value("commentTextXOffset"), offsets.Value("commentTextYOffset"),
                       offsets.Value("commentTextWidth"), offsets.Value("commentTextHeight")),
                type->label, fontColor, fontSize, Qt::AlignLeft | Qt::AlignVCenter);
}

void TrafficElementsWidget::DrawSplit(QPainter& painter)
{
    painter.setPen(QPen(splitLineColor, 1));
    painter.drawLine(QPointF(splitX, 10), QPointF(splitX, designSize.height() - 10));
}

void TrafficElementsWidget::DrawRight(QPainter& painter)
{
    const double distanceX = offsets.Value("distanceToStopLineXOffset");
    DrawValueWithCaption(painter,
                         QRectF(distanceX, offsets.Value("distanceToStopLineYOffset"),
                                offsets.Value("distanceToStopLineTextWidth"), offsets.Value("distanceToStopLineHeight")),
                         FixedText(traffic.trafficLightDistance, 1) + "m", offsets.Value("distanceToStopLineTextHeight"),
                         "Distance");

    const double signX = offsets.Value("speedLimitSignXOffset");
    const double signWidth = offsets.Value("speedLimitValueWidth");
    icons.Render(painter, speedLimitIcon, QPointF(signX, offsets.Value("speedLimitSignYOffset")));
    DrawBoxText(painter,
                QRectF(signX, offsets.Value("speedLimitValueYOffset"), signWidth, offsets.Value("speedLimitValueHeight")),
                FixedText(traffic.speed_limit, 0), QColor(Qt::black), fontSize, Qt::AlignCenter, true);
    DrawBoxText(painter,
                QRectF(signX + signWidth, offsets.Value("speedLimitSignTextYOffset"),
                       offsets.Value("speedLimitSignTextWidth"), offsets.Value("speedLimitSignTextHeight")),
                "Road", funcTextColor, captionFontSize, Qt::AlignLeft | Qt::AlignVCenter);
    DrawTrafficLight(painter);
    DrawTrafficSign(painter);
}

void TrafficElementsWidget::DrawTrafficLight(QPainter& painter)
{
    const QPointF frame(offsets.Value("trafficLightXOffset"), offsets.Value("trafficLightYOffset"));
    icons.Render(painter, lightFrameIcon, frame);
    const auto state = lightStates.find(traffic.trafficLightState);
    if (state != lightStates.end()) {
        icons.Render(painter, *state, frame);
    }
    const char* lampKey = traffic.trafficLightState == 2   ? "yellowLigYOffset"
                          : traffic.trafficLightState == 3 ? "redLigYOffset"
                                                           : "greenLigYOffset";
    DrawBoxText(painter,
                QRectF(offsets.Value("reservedTimeTextXOffset"), offsets.Value(lampKey),
                       offsets.Value("reservedTimeTextWidth"), offsets.Value("reservedTimeTextHeight")),
                QString::number(traffic.trafficLightReservedTime), QColor(Qt::white), fontSize, Qt::AlignCenter, true);
    const auto type = lightTypes.find(traffic.trafficLightType);
    if (type != lightTypes.end()) {
        const QSizeF frameSize = icons.Size(lightFrameIcon);
        const QSizeF typeSize = icons.Size(*type);
        icons.Render(painter, *type,
                     QPointF(frame.x() + lightTypeGap, frame.y() + (frameSize.height() - typeSize.height()) / 2));
    }
}

void TrafficElementsWidget::DrawTrafficSign(QPainter& painter)
{
    const auto sign = signs.find(traffic.trafficSign);
    QString label = "Unknown";
    if (sign != signs.end()) {
        icons.Render(painter, sign->icon, QPointF(offsets.Value("trafficSignXOffset"), offsets.Value("trafficSignYOffset")));
        label = sign->label;
    }
    DrawBoxText(painter,
                QRectF(offsets.Value("trafficSignTextXOffset"), offsets.Value("trafficSignTextYOffset"),
                       offsets.Value("trafficSignTextWidth"), offsets.Value("trafficSignTextHeight")),
                label, funcTextColor, captionFontSize);
}

} // namespace rviz_plugin
