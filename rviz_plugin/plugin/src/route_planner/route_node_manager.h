#ifndef RVIZ_PLUGIN_ROUTE_NODE_MANAGER_H
#define RVIZ_PLUGIN_ROUTE_NODE_MANAGER_H

#include "route_planner_logic/route_point_sender.h"
#include "send_point/flag_scene.h"

#include <OgreSceneManager.h>
#include <OgreVector3.h>
#include <ros/node_handle.h>
#include <ros/publisher.h>
#include <ros/subscriber.h>
#include <rviz/panel.h>
#include <tf2_msgs/TFMessage.h>

#include <QString>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

class QKeyEvent;
class QMouseEvent;

namespace rviz {
class RenderPanel;
class ViewportMouseEvent;
} // namespace rviz

namespace rviz_plugin {

// One route: its way points and end point, in platform coordinates (map offset added); the flags
// stand at the view's local coordinates. A point whose node is still null has not been set.
struct RouteData {
    std::vector<std::pair<int, Ogre::SceneNode*>> wayPointNodes;
    std::vector<Ogre::Vector3> wayPointPositions;
    int endPointId = 0;
    Ogre::SceneNode* endPointNode = nullptr;
    Ogre::Vector3 endPointPosition = Ogre::Vector3::ZERO;
    bool displayed = false;
    int highlightedIndex = -1;
    Ogre::SceneNode* highlightNode = nullptr;
};

// The route panel's core: the routes, their flags in the scene, choosing a point with the mouse on the
// render panel, and sending routes to the car.
class RouteNodeManager : public rviz::Panel {
    Q_OBJECT
public:
    explicit RouteNodeManager(QWidget* parent = nullptr);
    ~RouteNodeManager() override;

    void onInitialize() override;
    bool eventFilter(QObject* object, QEvent* event) override;

    void CreateRouteData(unsigned int index);
    void DeleteRouteData(unsigned int index);
    void AddWayPoint(int pointIndex, int routeIndex);
    void DeleteWayPoint(int pointIndex, int routeIndex);
    void DeleteEndPoint(int routeIndex);
    void DeleteAllPoint();
    void DeleteHighLightPoint(int routeIndex);
    // From typed coordinates, in platform coordinates.
    void MakeFlag(int point, int route, const Ogre::Vector3& position);
    // At a hit in the view's local coordinates.
    virtual void MakeFlag(int route, int point, const Ogre::Vector3& position, Ogre::Camera* camera);
    void StartSelectRoutePoint(int point, int route);
    void QuitSelectRoutePoint();
    void QuitSelectRoutePoint(int point, int route);
    void PublishRouteData(int route);
    void PublishClearRouteData(int route);
    void UpdateDisplayRoutePoint(int route, bool show);
    void UpdateRoutePointPosition(int route);
    void SetCurrentIndex(int point, int route);
    int GetCurrentRouteIndex() const { return currentRouteIndex; }
    int GetCurrentPointIndex() const { return currentPointIndex; }
    bool GetIsMouseVisualArea() const { return mouseVisualArea; }
    void SetCameraViewLookAtFixedFrame(const QString& frame);
    int ProcessMouseEvent(rviz::ViewportMouseEvent& event);
    std::vector<std::string> GetFrames() const { return {frames.begin(), frames.end()}; }

Q_SIGNALS:
    void SendMakeFlag(const Ogre::Vector3& position);
    void SendVisualAreaFocusOut();
    void FramesChanged();

protected Q_SLOTS:
    void OnFixedFrameChanged();

protected:
    // The name a route's labels are published under.
    virtual std::string GetRouteName(int route) const;

private:
    class RouteNodeManagerListener : public Ogre::SceneManager::Listener {
    public:
        explicit RouteNodeManagerListener(RouteNodeManager& manager) : manager(manager) {}
        void postUpdateSceneGraph(Ogre::SceneManager* source, Ogre::Camera* camera) override;

    private:
        RouteNodeManager& manager;
    };

    static FlagLog Log() { return {"RoutePlanner", "RouteNodeManager"}; }
    void MakeWayPointFlag(int route, int index, const Ogre::Vector3& position, Ogre::Camera* camera);
    void MakeEndPointFlag(int route, const Ogre::Vector3& position, Ogre::Camera* camera);
    // Moves node (made from mesh when null) to position and shows it; false when it cannot be made.
    bool PlaceFlag(Ogre::SceneNode*& node, const std::string& mesh, const Ogre::Vector3& position,
                   Ogre::Camera* camera);
    // The point's coordinate label (platform coordinates) on "SendPoint", under the route's name.
    void ShowInfo(const Ogre::SceneNode& node, int id, int route);
    void DeleteInfo(int id);
    void PublishLabel(int id, const Ogre::Vector3& position, int action);
    void UpdateSceneNodeGraph(Ogre::Camera* camera);
    bool CreateFlagNodePoint();
    Ogre::SceneNode* FloatingFlag() const;
    void HideFloatingFlags();
    bool CheckRouteDataIndex(int route) const;
    bool CheckWayPointVectorIndex(int route, int point) const;
    Ogre::Camera* MainCamera() const;
    void RenderPanelMouseEventHandler(QMouseEvent* event);
    void RenderPanelMouseMoveEventHandler();
    void RenderPanelKeyPressEventHandler(QKeyEvent* event);
    void RenderPanelFocusOutEventHandler();
    void MouseVisualAreaLeaveEventHandler();
    void GetTfMsgBack(const tf2_msgs::TFMessage& message);
    RoutePointSender::Job MakeJob(int route, bool clear) const;

    std::vector<std::unique_ptr<RouteData>> routes;
    int nextId = 0;
    std::map<std::string, Ogre::SceneNode*> floatingFlags;  // "Way Flag", "End Flag"
    Ogre::SceneNode* mouseTextNode = nullptr;
    int currentPointIndex = -1;
    int currentRouteIndex = -1;
    bool mouseVisualArea = false;
    int lastMouseX = 0;
    int lastMouseY = 0;
    std::string fixedFrame;
    std::set<std::string> frames;
    std::map<int, std::string> labelNamespaces;  // point id to the route name of its label

    Ogre::SceneManager* sceneManager = nullptr;
    rviz::RenderPanel* renderPanel = nullptr;
    std::unique_ptr<RouteNodeManagerListener> listener;
    ros::NodeHandle nodeHandle;
    ros::Publisher labelPublisher;
    ros::Publisher clearPublisher;
    ros::Publisher wayPointPublisher;
    ros::Publisher endPointPublisher;
    ros::Subscriber tfSubscriber;
    std::unique_ptr<RoutePointSender> sender;
};

} // namespace rviz_plugin

#endif
