#include "road_elements_widget.h"

#include "foundation/logger.h"
#include "vehicle_panels_logic/panel_values.h"

#include <QPainter>

#include <exception>

namespace rviz_plugin {

namespace {

const QString laneIcon = ":/icons/lanePic.svg";
const QString speedLimitIcon = ":/icons/speedLimitPic.svg";
constexpr double changeLaneScale = 0.85;  // the lane change icons and the speed limit sign
constexpr int captionFontSize = 11;
constexpr int valueFontSize = 12;  // the bottom row: five values side by side

} // namespace

RoadElementsWidget::RoadElementsWidget(QWidget* parent) : QWidget(parent), offsets("RoadEle")
{
    MakeOpaquePanelWidget(this);
    InitLaneTypeMap();
    InitFrontIntersectionTypeMap();
}

void RoadElementsWidget::InitLaneTypeMap()
{
    const std::pair<const char*, const char*> records[] = {
        {"Normal", "normalPic"},           {"Emergency", "emergencyPic"},
        {"Escape", "escapePic"},           {"Buslane", "busLanePic"},
        {"Brt", "brtPic"},                 {"Variable", "variablePic"},
        {"Disappear", "disappearPic"},     {"New", "newLanePic"},
        {"Access", "accessPic"},           {"Exit", "exitPic"},
        {"Ramplink", "rampLinkPic"},       {"Constructing", "constructingPic"},
        {"Parking \n entrance", "parkingEntrancePic"}, {"Parking \n area", "parkingAreaPic"},
        {"Tidal lane", "tidalLanePic"},    {"Unknown", "unknownLanePic"}};
    int value = 0;
    for (const auto& [label, icon] : records) {
        laneTypes.insert(value++, {label, QString(":/icons/%1.svg").arg(icon)});
    }
}

void RoadElementsWidget::InitFrontIntersectionTypeMap()
{
    int value = 0;
    for (const char* icon : {"intersectionTJunctionPic", "intersectionCrossroadsPic", "intersectionYJunctionPic",
                             "intersectionMultiFolksPic", "intersectionObliquePic", "intersectionMisalignedTPic",
                             "intersectionMisalignedYPic", "intersectionRoundAboutPic", "intersectionUnknownPic"}) {
        intersections.insert(value++, QString(":/icons/%1.svg").arg(icon));
    }
}

void RoadElementsWidget::ReadConf()
{
    ApplyWheelStyle(this);
    designSize = PanelSection("RoadPanelSize").MinSize();
    setMinimumSize(designSize.toSize());
}

void RoadElementsWidget::UpdateRoadInfoValue(const custom::RoadInfo& info)
{
    Orsa::RunLoggingExceptions("RoadView", [&] {
        road = info;
        update();
    });
}

void RoadElementsWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    FillPanelBackground(painter, rect());
    SetScale(painter);
    DrawLanes(painter);
    DrawChangeLane(painter);
    DrawSpeedLimit(painter);
    DrawDown(painter);
}

void RoadElementsWidget::SetScale(QPainter& painter)
{
    rviz_plugin::SetScale(painter, rect(), designSize);
}

void RoadElementsWidget::DrawLanes(QPainter& painter)
{
    icons.Render(painter, laneIcon, QPointF(offsets.Value("laneXOffset"), offsets.Value("laneYOffset")));
    DrawLaneType(painter, road.leftLaneType, offsets.Value("leftLaneTypeXOffset"));
    DrawLaneType(painter, road.laneType, offsets.Value("laneTypeXOffset"));
    DrawLaneType(painter, road.rightLaneType, offsets.Value("rightLaneTypeXOffset"));
    const double width = offsets.Value("laneTypeTextWidth");
    DrawBoxText(painter,
                QRectF(offsets.Value("laneTypeXOffset") + (offsets.Value("laneTypeSize") - width) / 2,
                       offsets.Value("laneIdYOffset"), width, offsets.Value("valueHeight")),
                QString::number(static_cast<qulonglong>(road.laneId)), fontColor, captionFontSize);
}

void RoadElementsWidget::DrawLaneType(QPainter& painter, int laneType, double x)
{
    const auto type = laneTypes.find(laneType);
    if (type == laneTypes.end()) {
        return;
    }
    const double size = offsets.Value("laneTypeSize");
    icons.RenderIn(painter, type->icon, QRectF(x, offsets.Value("laneTypeYOffset"), size, size));
    const double width = offsets.Value("laneTypeTextWidth");
    DrawBoxText(painter,
                QRectF(x + (size - width) / 2, offsets.Value("laneTypeTextYOffset"), width,
                       offsets.Value("laneTypeTextHeight")),
                type->label, funcTextColor, captionFontSize);
}

void RoadElementsWidget::DrawChangeLane(QPainter& painter)
{
    const double x = offsets.Value("canChangeLaneXOffset");
    icons.Render(painter, road.canChangeLane != 0 ? ":/icons/changeLanePic.svg" : ":/icons/unChangeLanePic.svg",
                 QPointF(x, offsets.Value("canChangeLaneYOffset")), changeLaneScale);
    icons.Render(painter, road.canDriveByLane != 0 ? ":/icons/driveByLanePic.svg" : ":/icons/unDriveByLanePic.svg",
                 QPointF(x, offsets.Value("canDriveByLaneYOffset")), changeLaneScale);
}

void RoadElementsWidget::DrawSpeedLimit(QPainter& painter)
{
    const QPointF sign(offsets.Value("laneSpeedLimitXOffset"), offsets.Value("laneSpeedLimitYOffset"));
    icons.Render(painter, speedLimitIcon, sign, changeLaneScale);
    const QSizeF size = icons.Size(speedLimitIcon) * changeLaneScale;
    DrawBoxText(painter, QRectF(sign, size), FixedText(road.laneSpeedLimit, 0), QColor(Qt::black), fontSize,
                Qt::AlignCenter, true);
    const auto intersection = intersections.find(road.frontIntersectionType);
    if (intersection != intersections.end()) {
        icons.Render(painter, *intersection,
                     QPointF(offsets.Value("laneSpeedLimitXOffset"), offsets.Value("frontIntersectionTypeYOffset")));
    }
}

void RoadElementsWidget::DrawValue(QPainter& painter, double x, const QString& value, const QString& label)
{
    const double width = offsets.Value("valueWidth");
    DrawBoxText(painter, QRectF(x, offsets.Value("roadValueYOffset"), width, offsets.Value("valueHeight")), value,
                fontColor, valueFontSize);
    DrawBoxText(painter, QRectF(x, offsets.Value("commentTextYOffset"), width, offsets.Value("commentTextHeight")),
                label, funcTextColor, captionFontSize);
}

void RoadElementsWidget::DrawDown(QPainter& painter)
{
    DrawValue(painter, offsets.Value("roadCurXOffset"), FixedText(road.roadCurvature, 4) + "m/r", "Curvature");
    DrawValue(painter, offsets.Value("slopeXOffset"), FixedText(road.roadGradient, 3) + "%", "Slope");
    DrawValue(painter, offsets.Value("intersectionXOffset"),
              QString::fromStdString(ToStringWithUnits(road.distanceToIntersection)), "Intersection");
    DrawValue(painter, offsets.Value("endXOffset"), QString::fromStdString(ToStringWithUnits(road.distanceToEnd)),
              "End");
    DrawValue(painter, offsets.Value("surplusXOffset"),
              QString::fromStdString(ToStringWithUnits(road.roadResidueLength)), "Surplus");
}

} // namespace rviz_plugin
