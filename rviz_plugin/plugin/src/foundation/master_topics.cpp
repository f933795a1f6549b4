#include "master_topics.h"

#include <ros/this_node.h>

namespace rviz_plugin {

bool GetTopicsWithoutWaiting(ros::master::V_TopicInfo& topics)
{
    XmlRpc::XmlRpcValue args;
    XmlRpc::XmlRpcValue result;
    XmlRpc::XmlRpcValue payload;
    args[0] = ros::this_node::getName();
    args[1] = "";
    if (!ros::master::execute("getPublishedTopics", args, result, payload, false)) {
        return false;
    }
    topics.clear();
    for (int i = 0; i < payload.size(); ++i) {
        topics.emplace_back(std::string(payload[i][0]), std::string(payload[i][1]));
    }
    return true;
}

} // namespace rviz_plugin
