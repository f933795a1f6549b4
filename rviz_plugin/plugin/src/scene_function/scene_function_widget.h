#ifndef RVIZ_PLUGIN_SCENE_FUNCTION_WIDGET_H
#define RVIZ_PLUGIN_SCENE_FUNCTION_WIDGET_H

#include "car_view/panel_painting.h"
#include "vehicle_panels_logic/scene_geometry.h"

#include <custom/KeyObject.h>
#include <custom/NavigationStatus.h>

#include <QColor>
#include <QMap>
#include <QWidget>

#include <array>

namespace rviz_plugin {

// What the driving function does now (left) and where the key object stands relative to the ego car
// (right), painted in design pixels and scaled to the widget.
class SceneFunctionWidget : public QWidget {
    Q_OBJECT
    Q_PROPERTY(int fontSize MEMBER fontSize)
    Q_PROPERTY(QColor fontColor MEMBER fontColor)
    Q_PROPERTY(QColor funcTextColor MEMBER funcTextColor)
    Q_PROPERTY(QColor dashLineColor MEMBER dashLineColor)
    Q_PROPERTY(QColor splitLineColor MEMBER splitLineColor)

public:
    struct SceneRecord {
        QString text;
        QString icon;
    };

    explicit SceneFunctionWidget(QWidget* parent = nullptr);

    // Reads the layout file and the style sheet.
    void ReadConf();
    const ObstacleLayout& Layout() const { return layout; }
    double ObstacleYaw() const { return obstacleYaw; }

public Q_SLOTS:
    void UpdateKeyObjectValue(const custom::KeyObject& keyObject);
    void UpdateNavigationStatusValue(const custom::NavigationStatus& status);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void InitOnGoingSceneMap();
    void InitOnGoingTurnSceneMap();
    void InitNavSceneTypeMap();
    void InitClassificationMap();
    void SetLayoutOffset();
    void SetScale(QPainter& painter);
    void DrawLeft(QPainter& painter);
    void DrawSplit(QPainter& painter);
    void DrawObstacle(QPainter& painter);
    void DrawRight(QPainter& painter);
    void DrawOnGoingFuncText(QPainter& painter, const QString& text);
    void DrawDistanceLine(QPainter& painter);
    void DrawDashDistanceLine(QPainter& painter);
    void DrawDegreeArc(QPainter& painter);
    void DrawObstacleYaw(QPainter& painter);
    void DrawAngleValue(QPainter& painter);
    void DrawDistanceInfo(QPainter& painter);
    QPointF CarCentre() const;
    QPointF ObstacleCentre() const;

    SvgIcons icons;
    PanelSection layoutValues;
    QSizeF designSize;
    std::array<QuadrantBase, 4> quadrants{};
    QMap<int, SceneRecord> onGoingScenes;
    QMap<int, QString> navSceneTypes;
    QMap<int, QString> classifications;

    double lateralDistance = 0;
    double verticalDistance = 0;
    int id = 0;
    double speed = 0;
    int classification = 0;
    double obstacleYaw = 0;
    int navSceneType = 0;
    int navStatus = 0;
    ObstacleLayout layout;

    int fontSize = 14;
    QColor fontColor{1, 223, 255};
    QColor funcTextColor{152, 153, 158};
    QColor dashLineColor{151, 151, 151};
    QColor splitLineColor{255, 255, 255, 77};
};

} // namespace rviz_plugin

#endif
