#include "route_node_manager.h"

#include "foundation/logger.h"
#include "foundation/memory_exception.h"
#include "map_offset/map_offset.h"

#include <OgreCamera.h>
#include <OgreSceneNode.h>
#include <OgreViewport.h>
#include <geometry_msgs/PointStamped.h>
#include <rviz/display_context.h>
#include <rviz/frame_manager.h>
#include <rviz/render_panel.h>
#include <rviz/tool.h>
#include <rviz/view_controller.h>
#include <rviz/view_manager.h>
#include <rviz/viewport_mouse_event.h>
#include <rviz/visualization_manager.h>
#include <rviz/window_manager_interface.h>
#include <visualization_msgs/Marker.h>

#include <QKeyEvent>
#include <QMouseEvent>

#include <cmath>
#include <new>

namespace rviz_plugin {

namespace {
const std::string wayFlagMesh = "package://rviz_plugin/media/RouteWayFlag.dae";
const std::string highlightFlagMesh = "package://rviz_plugin/media/RouteWayFlagHighLight.dae";
const std::string endFlagMesh = "package://rviz_plugin/media/RouteEndFlag.dae";
const char* const wayFlagName = "Way Flag";
const char* const endFlagName = "End Flag";
const char* const mouseHint = "Left click to select, right click or Esc to cancel";

// Nearest integer, ties away from zero, of a position scaled by the device pixel ratio.
int WindowCoordinate(double position, double ratio)
{
    return static_cast<int>(std::lround(position * ratio));
}
} // namespace

RouteNodeManager::RouteNodeManager(QWidget* parent)
    : rviz::Panel(parent), sender(std::make_unique<RoutePointSender>([this](RoutePointSender::Channel channel,
                                                                              const RoutePointSender::Point& point) {
          geometry_msgs::PointStamped message;  // empty header: stamp 0, no frame
          message.point.x = point[0];
          message.point.y = point[1];
          message.point.z = point[2];
          switch (channel) {
          case RoutePointSender::Channel::WayPoint: wayPointPublisher.publish(message); break;
          case RoutePointSender::Channel::EndPoint: endPointPublisher.publish(message); break;
          case RoutePointSender::Channel::Clear: clearPublisher.publish(message); break;
          }
      }))
{
    labelPublisher = nodeHandle.advertise<visualization_msgs::Marker>("SendPoint", 100);
    clearPublisher = nodeHandle.advertise<geometry_msgs::PointStamped>("ClearPoints", 100);
    wayPointPublisher = nodeHandle.advertise<geometry_msgs::PointStamped>("TopicByWayPoint", 100);
    endPointPublisher = nodeHandle.advertise<geometry_msgs::PointStamped>("TopicEndPoint", 100);
}

RouteNodeManager::~RouteNodeManager()
{
    sender.reset();  // finishes the routes handed in
    if (sceneManager != nullptr && listener != nullptr) {
        sceneManager->removeListener(listener.get());
    }
    DeleteAllPoint();
    for (auto& [name, node] : floatingFlags) {
        DestroyNode(sceneManager, node);
    }
    DestroyNode(sceneManager, mouseTextNode);
}

void RouteNodeManager::onInitialize()
{
    std::set_new_handler(Orsa::HandleMemoryException);
    sceneManager = vis_manager_->getSceneManager();
    renderPanel = vis_manager_->getRenderPanel();
    renderPanel->installEventFilter(this);
    if (auto* mainWindow = dynamic_cast<QWidget*>(vis_manager_->getWindowManager())) {
        mainWindow->installEventFilter(this);
    }
    if (renderPanel->parentWidget() != nullptr) {
        renderPanel->parentWidget()->installEventFilter(this);
    }
    Ogre::SceneNode* root = sceneManager != nullptr ? sceneManager->getRootSceneNode() : nullptr;
    mouseTextNode = root != nullptr ? CreateTextNode(sceneManager, root, mouseHint, Log()) : nullptr;
    if (mouseTextNode == nullptr) {
        Orsa::Logger::GetInstance().WriteLog("RoutePlanner", Orsa::LogLevel::Error,
                                             "RouteNodeManager: mouseTextNode is nullptr");
        return;
    }
    mouseTextNode->setVisible(false);
    if (!CreateFlagNodePoint()) {
        Orsa::Logger::GetInstance().WriteLog("RoutePlanner", Orsa::LogLevel::Error,
                                             "RouteNodeManager::flag node point node failed");
        return;
    }
    connect(vis_manager_->getFrameManager(), &rviz::FrameManager::fixedFrameChanged, this,
            &RouteNodeManager::OnFixedFrameChanged);
    fixedFrame = vis_manager_->getFixedFrame().toStdString();
    tfSubscriber = nodeHandle.subscribe("tf", 1000, &RouteNodeManager::GetTfMsgBack, this);
    listener = std::make_unique<RouteNodeManagerListener>(*this);
    sceneManager->addListener(listener.get());
}

bool RouteNodeManager::CreateFlagNodePoint()
{
    floatingFlags[wayFlagName] = CreateNode(sceneManager, wayFlagMesh, Log());
    floatingFlags[endFlagName] = CreateNode(sceneManager, endFlagMesh, Log());
    return floatingFlags[wayFlagName] != nullptr && floatingFlags[endFlagName] != nullptr;
}

bool RouteNodeManager::eventFilter(QObject* object, QEvent* event)
{
    if (object != renderPanel) {
        if (event->type() == QEvent::Leave) {
            MouseVisualAreaLeaveEventHandler();
        }
        return rviz::Panel::eventFilter(object, event);
    }
    switch (event->type()) {
    case QEvent::FocusOut: RenderPanelFocusOutEventHandler(); break;
    case QEvent::KeyPress: RenderPanelKeyPressEventHandler(static_cast<QKeyEvent*>(event)); break;
    case QEvent::MouseMove:
        RenderPanelMouseMoveEventHandler();
        RenderPanelMouseEventHandler(static_cast<QMouseEvent*>(event));
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick: RenderPanelMouseEventHandler(static_cast<QMouseEvent*>(event)); break;
    default: break;
    }
    return rviz::Panel::eventFilter(object, event);
}

void RouteNodeManager::RenderPanelMouseEventHandler(QMouseEvent* event)
{
    const double ratio = renderPanel->devicePixelRatioF();
    rviz::ViewportMouseEvent viewportEvent(renderPanel, renderPanel->getViewport(), event, lastMouseX, lastMouseY);
    viewportEvent.x = WindowCoordinate(event->localPos().x(), ratio);
    viewportEvent.y = WindowCoordinate(event->localPos().y(), ratio);
    lastMouseX = viewportEvent.x;
    lastMouseY = viewportEvent.y;
    mouseVisualArea = true;
    ProcessMouseEvent(viewportEvent);
}

void RouteNodeManager::RenderPanelMouseMoveEventHandler()
{
    if (currentRouteIndex < 0 || !mouseVisualArea || mouseTextNode == nullptr) {
        return;
    }
    mouseTextNode->setVisible(true);
    if (Ogre::SceneNode* flag = FloatingFlag()) {
        flag->setVisible(true);
    }
}

void RouteNodeManager::RenderPanelKeyPressEventHandler(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        QuitSelectRoutePoint();
    }
}

void RouteNodeManager::RenderPanelFocusOutEventHandler()
{
    Q_EMIT SendVisualAreaFocusOut();
}

void RouteNodeManager::MouseVisualAreaLeaveEventHandler()
{
    mouseVisualArea = false;
    HideFloatingFlags();
}

Ogre::SceneNode* RouteNodeManager::FloatingFlag() const
{
    const auto found = floatingFlags.find(currentPointIndex >= 0 ? wayFlagName : endFlagName);
    return found != floatingFlags.end() ? found->second : nullptr;
}

void RouteNodeManager::HideFloatingFlags()
{
    for (const auto& [name, node] : floatingFlags) {
        if (node != nullptr) {
            node->setVisible(false);
        }
    }
    if (mouseTextNode != nullptr) {
        mouseTextNode->setVisible(false);
    }
}

int RouteNodeManager::ProcessMouseEvent(rviz::ViewportMouseEvent& event)
{
    if (event.viewport == nullptr || event.panel == nullptr || FloatingFlag() == nullptr || mouseTextNode == nullptr) {
        return rviz::Tool::Render;
    }
    Ogre::Camera* camera = event.viewport->getCamera();
    Ogre::Vector3 hit;
    if (camera == nullptr || !HitGround(event.viewport, event.x, event.y, hit)) {
        HideFloatingFlags();
        return rviz::Tool::Render;
    }
    Ogre::SceneNode* flag = FloatingFlag();
    flag->setPosition(hit);
    ScaleAndRotateNode(vis_manager_, flag, camera, Log());
    mouseTextNode->setPosition(hit.x, hit.y - 0.5F, hit.z);
    ScaleAndRotateNode(vis_manager_, mouseTextNode, camera, Log());
    if (event.type != QEvent::MouseButtonRelease) {
        return rviz::Tool::Render;
    }
    const bool choosing = currentRouteIndex >= 0;
    if (event.acting_button == Qt::RightButton && choosing) {
        QuitSelectRoutePoint();
        return rviz::Tool::Finished;
    }
    if (event.acting_button == Qt::LeftButton && choosing && mouseVisualArea) {
        MakeFlag(currentRouteIndex, currentPointIndex, hit, camera);
        QuitSelectRoutePoint();
        Q_EMIT SendMakeFlag(hit);
        return rviz::Tool::Finished;
    }
    return rviz::Tool::Render;
}

bool RouteNodeManager::CheckRouteDataIndex(int route) const
{
    return route >= 0 && route < static_cast<int>(routes.size());
}

bool RouteNodeManager::CheckWayPointVectorIndex(int route, int point) const
{
    return CheckRouteDataIndex(route) && point >= 0 &&
           point < static_cast<int>(routes[static_cast<std::size_t>(route)]->wayPointNodes.size());
}

void RouteNodeManager::CreateRouteData(unsigned int index)
{
    if (index > routes.size()) {
        return;
    }
    auto data = std::make_unique<RouteData>();
    data->endPointId = nextId++;
    data->highlightNode = CreateNode(sceneManager, highlightFlagMesh, Log());
    routes.insert(routes.begin() + index, std::move(data));
}

void RouteNodeManager::DeleteRouteData(unsigned int index)
{
    if (!CheckRouteDataIndex(static_cast<int>(index))) {
        return;
    }
    const int route = static_cast<int>(index);
    while (!routes[index]->wayPointNodes.empty()) {
        DeleteWayPoint(0, route);
    }
    DeleteEndPoint(route);
    DestroyNode(sceneManager, routes[index]->highlightNode);
    routes.erase(routes.begin() + index);
    if (currentRouteIndex == route) {
        QuitSelectRoutePoint();
        currentRouteIndex = -1;
    } else if (currentRouteIndex > route) {
        --currentRouteIndex;
    }
}

void RouteNodeManager::AddWayPoint(int pointIndex, int routeIndex)
{
    if (!CheckRouteDataIndex(routeIndex)) {
        return;
    }
    RouteData& data = *routes[static_cast<std::size_t>(routeIndex)];
    if (pointIndex < 0 || pointIndex > static_cast<int>(data.wayPointNodes.size())) {
        return;
    }
    data.wayPointNodes.insert(data.wayPointNodes.begin() + pointIndex, {nextId++, nullptr});
    data.wayPointPositions.insert(data.wayPointPositions.begin() + pointIndex, Ogre::Vector3::ZERO);
}

void RouteNodeManager::DeleteWayPoint(int pointIndex, int routeIndex)
{
    if (!CheckWayPointVectorIndex(routeIndex, pointIndex)) {
        return;
    }
    RouteData& data = *routes[static_cast<std::size_t>(routeIndex)];
    auto& [id, node] = data.wayPointNodes[static_cast<std::size_t>(pointIndex)];
    if (node != nullptr) {
        DeleteInfo(id);
    }
    DestroyNode(sceneManager, node);
    data.wayPointNodes.erase(data.wayPointNodes.begin() + pointIndex);
    data.wayPointPositions.erase(data.wayPointPositions.begin() + pointIndex);
    if (data.highlightedIndex == pointIndex) {
        DeleteHighLightPoint(routeIndex);
    }
}

void RouteNodeManager::DeleteEndPoint(int routeIndex)
{
    if (!CheckRouteDataIndex(routeIndex)) {
        return;
    }
    RouteData& data = *routes[static_cast<std::size_t>(routeIndex)];
    if (data.endPointNode != nullptr) {
        DeleteInfo(data.endPointId);
    }
    DestroyNode(sceneManager, data.endPointNode);
}

void RouteNodeManager::DeleteAllPoint()
{
    while (!routes.empty()) {
        DeleteRouteData(static_cast<unsigned int>(routes.size() - 1));
    }
}

void RouteNodeManager::DeleteHighLightPoint(int routeIndex)
{
    if (!CheckRouteDataIndex(routeIndex)) {
        return;
    }
    RouteData& data = *routes[static_cast<std::size_t>(routeIndex)];
    if (data.highlightNode != nullptr) {
        data.highlightNode->setVisible(false);
    }
    data.highlightedIndex = -1;
}

void RouteNodeManager::StartSelectRoutePoint(int point, int route)
{
    if (!CheckRouteDataIndex(route) || (point >= 0 && !CheckWayPointVectorIndex(route, point))) {
        return;
    }
    currentPointIndex = point;
    currentRouteIndex = route;
    RouteData& data = *routes[static_cast<std::size_t>(route)];
    if (point >= 0 && data.wayPointNodes[static_cast<std::size_t>(point)].second != nullptr &&
        data.highlightNode != nullptr) {
        // The way point being chosen again carries the highlight.
        data.highlightedIndex = point;
        data.highlightNode->setPosition(data.wayPointNodes[static_cast<std::size_t>(point)].second->getPosition());
        data.highlightNode->setVisible(data.displayed);
    }
    if (mouseVisualArea) {
        RenderPanelMouseMoveEventHandler();
    }
}

void RouteNodeManager::QuitSelectRoutePoint()
{
    QuitSelectRoutePoint(currentPointIndex, currentRouteIndex);
}

void RouteNodeManager::QuitSelectRoutePoint(int /*point*/, int route)
{
    HideFloatingFlags();
    DeleteHighLightPoint(route);
    currentRouteIndex = -1;
}

void RouteNodeManager::SetCurrentIndex(int point, int route)
{
    currentPointIndex = point;
    currentRouteIndex = route;
}

void RouteNodeManager::MakeFlag(int point, int route, const Ogre::Vector3& position)
{
    Ogre::Vector3 local = position;
    Orsa::SubMapOffset(local);
    MakeFlag(route, point, local, MainCamera());
    Q_EMIT SendMakeFlag(local);
}

void RouteNodeManager::MakeFlag(int route, int point, const Ogre::Vector3& position, Ogre::Camera* camera)
{
    if (!CheckRouteDataIndex(route) || (point >= 0 && !CheckWayPointVectorIndex(route, point))) {
        return;
    }
    DeleteHighLightPoint(route);
    if (point == -1) {
        MakeEndPointFlag(route, position, camera);
    } else {
        MakeWayPointFlag(route, point, position, camera);
    }
}

bool RouteNodeManager::PlaceFlag(Ogre::SceneNode*& node, const std::string& mesh, const Ogre::Vector3& position,
                                 Ogre::Camera* camera)
{
    if (node == nullptr) {
        node = CreateNode(sceneManager, mesh, Log());
        if (node == nullptr) {
            Orsa::Logger::GetInstance().WriteLog("RoutePlanner", Orsa::LogLevel::Error,
                                                 "RouteNodeManager: create node fail");
            return false;
        }
    }
    node->setPosition(position);
    if (camera != nullptr) {
        ScaleAndRotateNode(vis_manager_, node, camera, Log());
    }
    node->setVisible(true);
    return true;
}

void RouteNodeManager::MakeWayPointFlag(int route, int index, const Ogre::Vector3& position, Ogre::Camera* camera)
{
    RouteData& data = *routes[static_cast<std::size_t>(route)];
    Ogre::Vector3& stored = data.wayPointPositions[static_cast<std::size_t>(index)];
    stored = position;
    Orsa::ApplyMapOffset(stored);
    auto& [id, node] = data.wayPointNodes[static_cast<std::size_t>(index)];
    if (PlaceFlag(node, wayFlagMesh, position, camera)) {
        ShowInfo(*node, id, route);
    }
}

void RouteNodeManager::MakeEndPointFlag(int route, const Ogre::Vector3& position, Ogre::Camera* camera)
{
    RouteData& data = *routes[static_cast<std::size_t>(route)];
    data.endPointPosition = position;
    Orsa::ApplyMapOffset(data.endPointPosition);
    if (PlaceFlag(data.endPointNode, endFlagMesh, position, camera)) {
        ShowInfo(*data.endPointNode, data.endPointId, route);
    }
}

std::string RouteNodeManager::GetRouteName(int route) const
{
    return "Route" + std::to_string(route + 1);
}

void RouteNodeManager::ShowInfo(const Ogre::SceneNode& node, int id, int route)
{
    labelNamespaces[id] = GetRouteName(route);
    PublishLabel(id, node.getPosition(), visualization_msgs::Marker::ADD);
}

void RouteNodeManager::DeleteInfo(int id)
{
    PublishLabel(id, Ogre::Vector3::ZERO, visualization_msgs::Marker::DELETE);
    labelNamespaces.erase(id);
}

void RouteNodeManager::PublishLabel(int id, const Ogre::Vector3& position, int action)
{
    visualization_msgs::Marker marker;
    marker.header.frame_id = fixedFrame;
    marker.header.stamp = ros::Time::now();
    marker.ns = labelNamespaces[id];
    marker.id = id;
    marker.type = visualization_msgs::Marker::TEXT_VIEW_FACING;
    marker.action = action;
    marker.pose.position.x = position.x;
    marker.pose.position.y = position.y;
    marker.pose.position.z = position.z + 3.5;
    marker.pose.orientation.w = 1.0;
    marker.scale.z = 0.8;
    marker.color.r = marker.color.g = marker.color.b = marker.color.a = 1.0F;
    // Without an offset the label shows the plain coordinates.
    marker.text = Orsa::CoordinatesText(position.x, position.y, position.z);
    Orsa::ApplyMapOffset(position, marker);
    labelPublisher.publish(marker);
}

RoutePointSender::Job RouteNodeManager::MakeJob(int route, bool clear) const
{
    const RouteData& data = *routes[static_cast<std::size_t>(route)];
    RoutePointSender::Job job;
    job.clear = clear;
    for (std::size_t index = 0; index < data.wayPointNodes.size(); ++index) {
        if (data.wayPointNodes[index].second != nullptr) {  // points never set are not sent
            const Ogre::Vector3& p = data.wayPointPositions[index];
            job.wayPoints.push_back({p.x, p.y, p.z});
        }
    }
    job.hasEnd = data.endPointNode != nullptr;
    job.end = {data.endPointPosition.x, data.endPointPosition.y, data.endPointPosition.z};
    return job;
}

void RouteNodeManager::PublishRouteData(int route)
{
    if (CheckRouteDataIndex(route)) {
        sender->Send(MakeJob(route, false));
    }
}

void RouteNodeManager::PublishClearRouteData(int route)
{
    if (!CheckRouteDataIndex(route)) {
        return;
    }
    DeleteHighLightPoint(route);
    sender->Send(MakeJob(route, true));
}

void RouteNodeManager::UpdateDisplayRoutePoint(int route, bool show)
{
    for (int index = 0; index < static_cast<int>(routes.size()); ++index) {
        RouteData& data = *routes[static_cast<std::size_t>(index)];
        data.displayed = index == route && show;
        for (auto& [id, node] : data.wayPointNodes) {
            if (node != nullptr) {
                node->setVisible(data.displayed);
            }
        }
        if (data.endPointNode != nullptr) {
            data.endPointNode->setVisible(data.displayed);
        }
        if (data.displayed) {
            UpdateRoutePointPosition(index);
        }
    }
}

void RouteNodeManager::UpdateRoutePointPosition(int route)
{
    if (!CheckRouteDataIndex(route)) {
        return;
    }
    RouteData& data = *routes[static_cast<std::size_t>(route)];
    for (std::size_t index = 0; index < data.wayPointNodes.size(); ++index) {
        if (Ogre::SceneNode* node = data.wayPointNodes[index].second) {
            Ogre::Vector3 local = data.wayPointPositions[index];
            Orsa::SubMapOffset(local);
            node->setPosition(local);
        }
    }
    if (data.endPointNode != nullptr) {
        Ogre::Vector3 local = data.endPointPosition;
        Orsa::SubMapOffset(local);
        data.endPointNode->setPosition(local);
    }
}

Ogre::Camera* RouteNodeManager::MainCamera() const
{
    rviz::ViewController* view = vis_manager_ != nullptr ? vis_manager_->getViewManager()->getCurrent() : nullptr;
    if (view == nullptr || view->getCamera() == nullptr) {
        Orsa::Logger::GetInstance().WriteLog("RoutePlanner", Orsa::LogLevel::Error,
                                             "RouteNodeManager: camera is nullptr");
        return nullptr;
    }
    return view->getCamera();
}

void RouteNodeManager::OnFixedFrameChanged()
{
    fixedFrame = vis_manager_->getFixedFrame().toStdString();
    SetCameraViewLookAtFixedFrame(QString::fromStdString(fixedFrame));
}

void RouteNodeManager::SetCameraViewLookAtFixedFrame(const QString& frame)
{
    rviz::ViewController* view = vis_manager_->getViewManager()->getCurrent();
    Ogre::Vector3 position;
    Ogre::Quaternion orientation;
    if (view != nullptr &&
        vis_manager_->getFrameManager()->getTransform(frame.toStdString(), ros::Time(), position, orientation)) {
        view->lookAt(position);
    }
}

void RouteNodeManager::GetTfMsgBack(const tf2_msgs::TFMessage& message)
{
    const std::size_t before = frames.size();
    for (const auto& transform : message.transforms) {
        frames.insert(transform.header.frame_id);
        frames.insert(transform.child_frame_id);
    }
    if (frames.size() != before) {
        Q_EMIT FramesChanged();
    }
}

void RouteNodeManager::UpdateSceneNodeGraph(Ogre::Camera* camera)
{
    for (const auto& data : routes) {
        for (auto& [id, node] : data->wayPointNodes) {
            if (node != nullptr) {
                ScaleAndRotateNode(vis_manager_, node, camera, Log());
            }
        }
        if (data->endPointNode != nullptr) {
            ScaleAndRotateNode(vis_manager_, data->endPointNode, camera, Log());
        }
        if (data->highlightNode != nullptr && data->highlightedIndex >= 0) {
            ScaleAndRotateNode(vis_manager_, data->highlightNode, camera, Log());
        }
    }
}

void RouteNodeManager::RouteNodeManagerListener::postUpdateSceneGraph(Ogre::SceneManager* /*source*/,
                                                                       Ogre::Camera* camera)
{
    // Only the main view's camera: the video windows share the scene with cameras of their own.
    rviz::ViewController* view =
        manager.vis_manager_ != nullptr ? manager.vis_manager_->getViewManager()->getCurrent() : nullptr;
    if (view != nullptr && camera == view->getCamera()) {
        manager.UpdateSceneNodeGraph(camera);
    }
}

} // namespace rviz_plugin
