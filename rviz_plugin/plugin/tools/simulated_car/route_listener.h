#ifndef SIMULATED_CAR_ROUTE_LISTENER_H
#define SIMULATED_CAR_ROUTE_LISTENER_H

#include <geometry_msgs/PointStamped.h>
#include <ros/node_handle.h>
#include <ros/subscriber.h>

#include <string>
#include <vector>

namespace simulated_car {

// The car's side of the route planner and the point tools: it sets the map offset ("offsetX",
// "offsetY") and prints every point it receives, one line each:
//   received <topic>: <x> <y> <z>
class RouteListener {
public:
    RouteListener(ros::NodeHandle& node, double offsetX, double offsetY);

private:
    void Print(const std::string& topic, const geometry_msgs::PointStamped& point) const;

    std::vector<ros::Subscriber> subscribers;
};

} // namespace simulated_car

#endif
