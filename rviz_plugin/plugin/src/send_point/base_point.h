#ifndef RVIZ_PLUGIN_BASE_POINT_H
#define RVIZ_PLUGIN_BASE_POINT_H

#include "coordinate_node.h"

#include <OgreSceneManager.h>
#include <geometry_msgs/PointStamped.h>
#include <ros/node_handle.h>
#include <ros/publisher.h>
#include <ros/subscriber.h>
#include <rviz/tool.h>

#include <memory>
#include <string>
#include <vector>

namespace rviz {
class VectorProperty;
}

namespace rviz_plugin {

// A tool that sends one point to the car: a flag follows the mouse on the ground plane, a left click
// leaves a flag with its coordinate label there and ends the tool, the right button only ends it.
// Any message on "ClearPoints" removes every flag the tool left.
class BasePoint : public rviz::Tool {
    Q_OBJECT
public:
    struct Setup {
        std::string mesh = "package://rviz_plugin/media/flag.dae";  // none for tools without a flag
        std::string topic;  // where the tool publishes; none when empty
        char shortcut = 0;
    };
    BasePoint() : BasePoint(Setup{}) {}
    explicit BasePoint(Setup setup);
    ~BasePoint() override;

    void onInitialize() override;
    void activate() override;
    void deactivate() override;
    int processMouseEvent(rviz::ViewportMouseEvent& event) override;
    virtual void MakeFlag(const Ogre::Vector3& position, Ogre::Camera* camera);
    void GetMsgBack(const geometry_msgs::PointStamped& message);

protected:
    // The point with the map offset added, published on the tool's topic.
    void PublishPoint(const Ogre::Vector3& position);
    // Logged when activate finds no property container.
    virtual std::string ContainerErrorText() const
    {
        return "BasePoint: failed to get property from getPropertyContainer. ";
    }
    static FlagLog Log() { return {"SendPoint", "BasePoint"}; }

    Setup setup;
    ros::NodeHandle nodeHandle;
    ros::Publisher publisher;

private:
    class BasePointListener : public Ogre::SceneManager::Listener {
    public:
        explicit BasePointListener(BasePoint& tool) : tool(tool) {}
        void postUpdateSceneGraph(Ogre::SceneManager* source, Ogre::Camera* camera) override;

    private:
        BasePoint& tool;
    };

    Ogre::SceneNode* movingFlagNode = nullptr;
    ros::Subscriber clearSubscriber;
    rviz::VectorProperty* pointProperty = nullptr;
    std::vector<std::unique_ptr<CoordinateNode>> coordinateNodes;
    std::unique_ptr<BasePointListener> listener;
};

} // namespace rviz_plugin

#endif
