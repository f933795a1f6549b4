#include "route_listener.h"

#include <cstdio>

namespace simulated_car {

RouteListener::RouteListener(ros::NodeHandle& node, double offsetX, double offsetY)
{
    node.setParam("offsetX", offsetX);
    node.setParam("offsetY", offsetY);
    for (const char* topic : {"/TopicByWayPoint", "/TopicEndPoint", "/ClearPoints", "/TopicRefreshMap"}) {
        const std::string name = topic;
        subscribers.push_back(node.subscribe<geometry_msgs::PointStamped>(
            name, 100, [this, name](const geometry_msgs::PointStamped::ConstPtr& point) { Print(name, *point); }));
    }
}

void RouteListener::Print(const std::string& topic, const geometry_msgs::PointStamped& point) const
{
    std::printf("received %s: %.6f %.6f %.6f\n", topic.c_str(), point.point.x, point.point.y, point.point.z);
    std::fflush(stdout);
}

} // namespace simulated_car
