#ifndef RVIZ_PLUGIN_CAPTURE_SYNC_H
#define RVIZ_PLUGIN_CAPTURE_SYNC_H

#include <ros/time.h>

#include <map>
#include <string>
#include <vector>

namespace rviz_plugin {

// For each reference stamp, the candidate nearest to it (on either side, however far), each candidate used at
// most once; ties go to the earlier candidate. Stops when the candidates run out.
std::vector<ros::Time> GetAdjacentTime(const std::vector<ros::Time>& reference, std::vector<ros::Time> candidates);

// Lines every topic's stamps up with the reference topic's: the result holds, for each topic, one stamp per
// reference stamp kept, at most `wanted`; all topics keep the same count.
std::map<std::string, std::vector<ros::Time>> SynchroniseStamps(
    const std::string& referenceTopic, const std::map<std::string, std::vector<ros::Time>>& stamps, int wanted);

} // namespace rviz_plugin

#endif
