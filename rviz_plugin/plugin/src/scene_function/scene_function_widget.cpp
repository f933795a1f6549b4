#include "scene_function_widget.h"

#include "foundation/logger.h"
#include "vehicle_panels_logic/panel_values.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <exception>

namespace rviz_plugin {

namespace {

const QString carIcon = ":/icons/carPic.svg";
const QString frameIcon = ":/icons/framePic.svg";
const QString obstacleIcon = ":/icons/obstaclePic.svg";
const QString arrowIcon = ":/icons/arrowPic.svg";
constexpr double divisor = 2;
constexpr double iconScale = 0.66;
constexpr double funcIconSize = 46;
constexpr int sixteenths = 16;

QString Capitalized(const QString& text)
{
    return QString::fromStdString(CapitalizeFirst(text.toStdString()));
}

} // namespace

SceneFunctionWidget::SceneFunctionWidget(QWidget* parent) : QWidget(parent), layoutValues("SceneFun")
{
    MakeOpaquePanelWidget(this);
    InitOnGoingSceneMap();
    InitOnGoingTurnSceneMap();
    InitNavSceneTypeMap();
    InitClassificationMap();
}

void SceneFunctionWidget::InitOnGoingSceneMap()
{
    const std::pair<const char*, const char*> records[] = {
        {"Go straight", "goStraightPic"}, {"By pass", "byPassPic"},     {"Stop", "stopPic"},
        {"Start", "startPic"},             {"Summon", "summonPic"},      {"Keep lane", "keepLanePic"},
        {"Idle", "idleFuncPic"},           {"Follow", "followPic"},      {"Merge left", "mergeLeftPic"},
        {"Merge right", "mergeRightPic"},  {"Merge cancel", "mergeCancelPic"}};
    int value = 1;
    for (const auto& [text, icon] : records) {
        onGoingScenes.insert(value++, {text, QString(":/icons/%1.svg").arg(icon)});
    }
}

void SceneFunctionWidget::InitOnGoingTurnSceneMap()
{
    onGoingScenes.insert(12, {"Turn left", ":/icons/onGoingFuncLeftPic.svg"});
    onGoingScenes.insert(13, {"Turn right", ":/icons/onGoingFuncRightPic.svg"});
    onGoingScenes.insert(14, {"U turn", ":/icons/uTurnPic.svg"});
    onGoingScenes.insert(15, {"Avoid", ":/icons/avoidPic.svg"});
}

void SceneFunctionWidget::InitNavSceneTypeMap()
{
    int value = 1;
    for (const char* text : {"PARK ROAD", "HIGHWAY", "PARKING", "URBAN", "OPEN ROAD", "OPEN \n CROSSING", "RAMP"}) {
        navSceneTypes.insert(value++, text);
    }
}

void SceneFunctionWidget::InitClassificationMap()
{
    int value = 1;
    for (const char* text :
         {"CAR", "TRUCK", "PEDESTRIAN", "PEDESTRIAN \n SITTING", "CYCLIST", "TRAM", "MISC", "BUS"}) {
        classifications.insert(value++, text);
    }
}

void SceneFunctionWidget::ReadConf()
{
    ApplyWheelStyle(this);
    designSize = PanelSection("SceneFunPanelSize").MinSize();
    setMinimumSize(designSize.toSize());
    SetLayoutOffset();
}

void SceneFunctionWidget::SetLayoutOffset()
{
    const char* const names[] = {"first", "second", "third", "fourth"};
    for (std::size_t index = 0; index < quadrants.size(); ++index) {
        const QString name = names[index];
        quadrants[index] = {layoutValues.Value(name + "QuadrantXOffset"),
                            layoutValues.Value(name + "QuadrantYOffset"), layoutValues.Value(name + "QuadrantAngle")};
    }
    const QSizeF car = icons.Size(carIcon);
    const QSizeF obstacle = icons.Size(obstacleIcon);
    layout = LayOutObstacle(lateralDistance, verticalDistance, quadrants, {car.width(), car.height()},
                            {obstacle.width(), obstacle.height()});
}

void SceneFunctionWidget::UpdateKeyObjectValue(const custom::KeyObject& keyObject)
{
    Orsa::RunLoggingExceptions("SceneView", [&] {
        lateralDistance = keyObject.lateralDistance;
        verticalDistance = keyObject.verticalDistance;
        id = keyObject.id;
        speed = keyObject.speed;
        classification = keyObject.classification;
        const geometry_msgs::Quaternion& q = keyObject.speedOrientation;
        obstacleYaw = Quaternion2Rpy(q.x, q.y, q.z, q.w)[1];
        SetLayoutOffset();
        update();
    });
}

void SceneFunctionWidget::UpdateNavigationStatusValue(const custom::NavigationStatus& status)
{
    Orsa::RunLoggingExceptions("SceneView", [&] {
        navSceneType = status.navSceneType;
        navStatus = status.navStatus;
        update();
    });
}

void SceneFunctionWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    FillPanelBackground(painter, rect());
    SetScale(painter);
    DrawLeft(painter);
    DrawSplit(painter);
    DrawObstacle(painter);
    DrawRight(painter);
}

void SceneFunctionWidget::SetScale(QPainter& painter)
{
    rviz_plugin::SetScale(painter, rect(), designSize);
}

void SceneFunctionWidget::DrawLeft(QPainter& painter)
{
    const auto scene = onGoingScenes.find(navStatus);
    QString text = "UNKNOWN";
    if (scene != onGoingScenes.end()) {
        icons.RenderIn(painter, scene->icon,
                       QRectF(layoutValues.Value("onGoingFuncXOffset"), layoutValues.Value("onGoingFuncYOffset"),
                              funcIconSize, funcIconSize));
        text = scene->text;
    }
    DrawOnGoingFuncText(painter, text);

    const QPointF framePoint(layoutValues.Value("frameXOffset"), layoutValues.Value("frameYOffset"));
    icons.Render(painter, frameIcon, framePoint);
    const QSizeF frame = icons.Size(frameIcon) - QSizeF(2, 2);
    const QRectF sceneBox(QPointF(layoutValues.Value("sceneFunctionXOffset"), layoutValues.Value("sceneFunctionYOffset")),
                          frame);
    DrawBoxText(painter, sceneBox, Capitalized(navSceneTypes.value(navSceneType, "UNKNOWN")), fontColor, fontSize);
}

void SceneFunctionWidget::DrawOnGoingFuncText(QPainter& painter, const QString& text)
{
    DrawBoxText(painter,
                QRectF(layoutValues.Value("onGoingFuncTextXOffset"), layoutValues.Value("onGoingFuncTextYOffset"),
                       layoutValues.Value("onGoingFuncTextWidth"), layoutValues.Value("onGoingFuncTextHeight")),
                text, fontColor, fontSize);
}

void SceneFunctionWidget::DrawSplit(QPainter& painter)
{
    constexpr double splitX = 160;
    painter.setPen(QPen(splitLineColor, 1));
    painter.drawLine(QPointF(splitX, 10), QPointF(splitX, designSize.height() - 10));
}

QPointF SceneFunctionWidget::CarCentre() const
{
    const QSizeF car = icons.Size(carIcon) * iconScale;
    return {layout.car.x + car.width() / divisor, layout.car.y + car.height() / divisor};
}

QPointF SceneFunctionWidget::ObstacleCentre() const
{
    const QSizeF obstacle = icons.Size(obstacleIcon) * iconScale;
    return {layout.obstacle.x + obstacle.width() / divisor, layout.obstacle.y + obstacle.height() / divisor};
}

void SceneFunctionWidget::DrawObstacle(QPainter& painter)
{
    DrawDistanceLine(painter);
    DrawDashDistanceLine(painter);
    DrawDegreeArc(painter);
    icons.Render(painter, carIcon, QPointF(layout.car.x, layout.car.y), iconScale);
    icons.Render(painter, obstacleIcon, QPointF(layout.obstacle.x, layout.obstacle.y), iconScale);
    DrawObstacleYaw(painter);
    DrawAngleValue(painter);
    DrawDistanceInfo(painter);
}

void SceneFunctionWidget::DrawDistanceLine(QPainter& painter)
{
    painter.setPen(QPen(fontColor, 2));
    painter.drawLine(CarCentre(), ObstacleCentre());
}

void SceneFunctionWidget::DrawDashDistanceLine(QPainter& painter)
{
    const QPointF car = CarCentre();
    const QPointF obstacle = ObstacleCentre();
    painter.setPen(QPen(dashLineColor, 1, Qt::DashLine));
    painter.drawLine(car, QPointF(obstacle.x(), car.y()));
    painter.drawLine(obstacle, QPointF(obstacle.x(), car.y()));
}

void SceneFunctionWidget::DrawDegreeArc(QPainter& painter)
{
    const double radius = std::min(std::fabs(layout.py), std::fabs(layout.px));
    const QPointF car = CarCentre();
    painter.setPen(QPen(dashLineColor, 1, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawArc(QRectF(car.x() - radius, car.y() - radius, 2 * radius, 2 * radius),
                    static_cast<int>(layout.arcStart * sixteenths), static_cast<int>(layout.arcSweep * sixteenths));
}

void SceneFunctionWidget::DrawObstacleYaw(QPainter& painter)
{
    const QSizeF arrow = icons.Size(arrowIcon) * iconScale;
    painter.save();
    painter.translate(ObstacleCentre());
    painter.rotate(obstacleYaw);
    icons.Render(painter, arrowIcon, QPointF(-arrow.width() / divisor, -arrow.height() / divisor), iconScale);
    painter.restore();
}

void SceneFunctionWidget::DrawAngleValue(QPainter& painter)
{
    const double width = layoutValues.Value("textWidth") / divisor;
    const double height = layoutValues.Value("textHeight");
    const QSizeF car = icons.Size(carIcon) * iconScale;
    const bool leftOfCar = layout.quadrant == 1 || layout.quadrant == 4;
    const double x = leftOfCar ? layout.car.x - width : layout.car.x + car.width() + 2;
    DrawBoxText(painter, QRectF(x, CarCentre().y() - height / divisor, width, height),
                FixedText(layout.angle, 0) + QString::fromUtf8("°"), fontColor, fontSize,
                Qt::AlignLeft | Qt::AlignVCenter);
}

void SceneFunctionWidget::DrawDistanceInfo(QPainter& painter)
{
    if (!layout.showDistances) {
        return;
    }
    const double width = layoutValues.Value("textWidth") / divisor;
    constexpr double height = 14;
    constexpr int labelFontSize = 11;
    DrawBoxText(painter, QRectF(layout.xLabel.x, layout.xLabel.y, width, height),
                FixedText(std::fabs(lateralDistance), 1) + "m", fontColor, labelFontSize,
                Qt::AlignLeft | Qt::AlignVCenter);
    painter.save();
    painter.translate(layout.yLabel.x, layout.yLabel.y);
    painter.rotate(90);
    DrawBoxText(painter, QRectF(0, 0, width, height),
                FixedText(std::fabs(verticalDistance), 1) + "m", fontColor, labelFontSize,
                Qt::AlignLeft | Qt::AlignVCenter);
    painter.restore();
}

void SceneFunctionWidget::DrawRight(QPainter& painter)
{
    const double x = layoutValues.Value("textXOffset");
    const double width = layoutValues.Value("textWidth");
    const double height = layoutValues.Value("textHeight");
    DrawBoxText(painter, QRectF(x, layoutValues.Value("objectNameTextYOffset"), width, height), QString::number(id),
                funcTextColor, fontSize);
    DrawBoxText(painter, QRectF(x, layoutValues.Value("speedTextYOffset"), width, height),
                FixedText(speed, 0) + "km/h", funcTextColor, fontSize);
    DrawBoxText(painter, QRectF(x, layoutValues.Value("classificationTextYOffset"), width, height),
                Capitalized(classifications.value(classification, "Unknown")), funcTextColor, fontSize);
}

} // namespace rviz_plugin
