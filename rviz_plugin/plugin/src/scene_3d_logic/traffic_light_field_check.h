#ifndef RVIZ_PLUGIN_TRAFFIC_LIGHT_FIELD_CHECK_H
#define RVIZ_PLUGIN_TRAFFIC_LIGHT_FIELD_CHECK_H

#include <orsa_msgs/StereoTrafficLight.h>

#include <QString>

#include <cstdint>
#include <utility>
#include <vector>

namespace rviz_plugin {

// The field checks of the traffic light display; each is true when the value is good.
class TrafficLightFieldCheck {
public:
    static constexpr unsigned maxIntersections = 50;

    static bool LightTypeAvailable(uint8_t type) { return type < 6; }
    static bool LightStateAvailable(uint8_t state) { return state < 5; }
    static bool CountdownAvailable(uint8_t countdown) { return countdown < 140; }
    static bool ScaleAvailable(float scale) { return scale > 0 && scale <= 5; }
    static bool TranslationAvailable(double value) { return value >= -50000 && value <= 50000; }
    static bool RotationAvailable(double value) { return value >= -1 && value <= 1; }
    static bool DirectionAvailable(uint8_t direction) { return direction < 2; }
    static bool LifetimeAvailable(int value) { return value >= 0; }
    // Counted as a size: a byte would wrap at 256 entries.
    static bool IntersectionNumAvailable(std::size_t count) { return count <= maxIntersections; }
    static bool TransformAvailable(const geometry_msgs::Transform& transform);
    // Direction, scale, both lifetime words, transform, then each light's type, state and countdown;
    // stops at the first failure.
    static bool StereoTrafficLightDataAvailable(const orsa_msgs::StereoTrafficLight& entry);
    // Every fault of an entry as (status name, text), in the order of the fields.
    static std::vector<std::pair<QString, QString>> ErrorStatuses(const orsa_msgs::StereoTrafficLight& entry);
};

// What a light head shows, worked out without the scene.
namespace TrafficLightLook {

struct Rgba {
    float r;
    float g;
    float b;
    float a;
    bool operator==(const Rgba& other) const
    {
        return r == other.r && g == other.g && b == other.b && a == other.a;
    }
};

// 1 green, 2 yellow, 3 red, 4 black, anything else grey.
Rgba ToColor(uint8_t state);
// The states the three lamps of a head show for a light's state: 1 to 3 light that one lamp and leave
// the others black; any other state paints all three in its colour.
std::vector<uint8_t> LampStates(uint8_t state);
// The digit meshes of a countdown: left 1..14 for tens 0..13, right 15..24 for ones 0..9.
int GetLeftCountdownIndex(int tens);
int GetRightCountdownIndex(int ones);
std::pair<int, int> GetCountdownIndex(uint8_t value);

} // namespace TrafficLightLook

} // namespace rviz_plugin

#endif
