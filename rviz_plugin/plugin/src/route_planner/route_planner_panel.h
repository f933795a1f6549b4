#ifndef RVIZ_PLUGIN_ROUTE_PLANNER_PANEL_H
#define RVIZ_PLUGIN_ROUTE_PLANNER_PANEL_H

#include "route_node_manager.h"

class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;

namespace rviz_plugin {

class RouteWidget;

// The panel in which the user makes routes (up to 15), each a RouteWidget in a list, and sends them
// to the car. Points are typed as "x,y,z" or picked on the ground of the 3D view.
class RoutePlannerPanel : public RouteNodeManager {
    Q_OBJECT
public:
    static constexpr int maxRoutes = 15;
    static constexpr int listItemHeight = 60;
    static constexpr int smallListItemHeight = 24;

    explicit RoutePlannerPanel(QWidget* parent = nullptr);

    void onInitialize() override;
    void load(const rviz::Config& config) override;
    void save(rviz::Config config) const override;
    int GetRouteCount() const;

protected:
    std::string GetRouteName(int route) const override;
    void mousePressEvent(QMouseEvent* event) override;

private Q_SLOTS:
    void OnSendMakeFlag(const Ogre::Vector3& position);
    void OnSendVisualAreaFocusOut();
    void ComboBoxChangeSlot();

private:
    void SetupUi();
    RouteWidget* ListGenerateData(int row);
    void InitRouteWidgetConnect(RouteWidget* widget, QListWidgetItem* item);
    void SetTotalNumber(int total);
    void SendDeleteItemSignalHandler(QListWidgetItem* item);
    void SetRouteWidgetFocus(int route);
    void SwitchFocus();
    void SwitchFocus(int route);
    void LineEditingFinishedPointHandler(QListWidgetItem* item, int point, const Ogre::Vector3& position);
    void UpdateRouteWidget(QListWidgetItem* item);
    void LoadRouteData(const rviz::Config& config, int row);
    void LoadWayPointData(const rviz::Config& config, RouteWidget* widget, int route);
    void SaveWayPointData(rviz::Config& config, const RouteWidget& widget) const;
    RouteWidget* WidgetAt(int row) const;

    QPushButton* addButton = nullptr;
    QListWidget* listWidget = nullptr;
    QLabel* totalLabel = nullptr;
    int focusedRoute = -1;
};

} // namespace rviz_plugin

#endif
