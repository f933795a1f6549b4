#include "capture_sync.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace rviz_plugin {

std::vector<ros::Time> GetAdjacentTime(const std::vector<ros::Time>& reference, std::vector<ros::Time> candidates)
{
    std::sort(candidates.begin(), candidates.end());
    std::vector<ros::Time> matched;
    for (const ros::Time& stamp : reference) {
        if (candidates.empty()) {
            break;
        }
        auto best = candidates.begin();
        uint64_t bestDistance = UINT64_MAX;
        for (auto candidate = candidates.begin(); candidate != candidates.end(); ++candidate) {
            const int64_t difference = static_cast<int64_t>(candidate->toNSec()) - static_cast<int64_t>(stamp.toNSec());
            const auto distance = static_cast<uint64_t>(std::llabs(difference));
            // Sorted candidates: the first of equally near ones is the earlier.
            if (distance < bestDistance) {
                best = candidate;
                bestDistance = distance;
            }
        }
        matched.push_back(*best);
        candidates.erase(best);
    }
    return matched;
}

std::map<std::string, std::vector<ros::Time>> SynchroniseStamps(
    const std::string& referenceTopic, const std::map<std::string, std::vector<ros::Time>>& stamps, int wanted)
{
    std::map<std::string, std::vector<ros::Time>> result;
    const auto reference = stamps.find(referenceTopic);
    if (reference == stamps.end() || wanted <= 0) {
        return result;
    }
    std::vector<ros::Time> timeline = reference->second;
    std::sort(timeline.begin(), timeline.end());
    std::size_t kept = std::min<std::size_t>(timeline.size(), static_cast<std::size_t>(wanted));
    for (const auto& [topic, topicStamps] : stamps) {
        result[topic] = topic == referenceTopic
                            ? std::vector<ros::Time>(timeline.begin(), timeline.begin() + kept)
                            : GetAdjacentTime(std::vector<ros::Time>(timeline.begin(), timeline.begin() + kept),
                                              topicStamps);
        kept = std::min(kept, result[topic].size());
    }
    for (auto& [topic, topicStamps] : result) {
        topicStamps.resize(kept);
    }
    return result;
}

} // namespace rviz_plugin
