#include "traffic_light_field_check.h"

namespace rviz_plugin {

namespace {
QString ErrorText(double value, const QString& rule)
{
    return QString("The value is set to %1,").arg(value, 0, 'g') + rule;
}
const QString translationRule = "Value range: [-50000, 50000]";
const QString rotationRule = "Value range: [-1, 1]";
const QString lifetimeRule = "It must not be smaller than 0";
} // namespace

bool TrafficLightFieldCheck::TransformAvailable(const geometry_msgs::Transform& transform)
{
    const auto& t = transform.translation;
    const auto& r = transform.rotation;
    return TranslationAvailable(t.x) && TranslationAvailable(t.y) && TranslationAvailable(t.z) &&
           RotationAvailable(r.x) && RotationAvailable(r.y) && RotationAvailable(r.z) && RotationAvailable(r.w);
}

bool TrafficLightFieldCheck::StereoTrafficLightDataAvailable(const orsa_msgs::StereoTrafficLight& entry)
{
    if (!DirectionAvailable(entry.direction) || !ScaleAvailable(static_cast<float>(entry.scale)) ||
        !LifetimeAvailable(entry.lifetime.sec) || !LifetimeAvailable(entry.lifetime.nsec) ||
        !TransformAvailable(entry.transform)) {
        return false;
    }
    for (const orsa_msgs::Light& light : entry.lights) {
        if (!LightTypeAvailable(light.type) || !LightStateAvailable(light.state) ||
            !CountdownAvailable(light.countdownValue)) {
            return false;
        }
    }
    return true;
}

std::vector<std::pair<QString, QString>> TrafficLightFieldCheck::ErrorStatuses(const orsa_msgs::StereoTrafficLight& entry)
{
    std::vector<std::pair<QString, QString>> statuses;
    const auto check = [&statuses](bool good, const QString& name, double value, const QString& rule) {
        if (!good) {
            statuses.emplace_back(name, ErrorText(value, rule));
        }
    };
    check(ScaleAvailable(static_cast<float>(entry.scale)), "scale", entry.scale,
          "It must be greater than 0 and not greater than 5");
    const auto& t = entry.transform.translation;
    check(TranslationAvailable(t.x), "translation.x", t.x, translationRule);
    check(TranslationAvailable(t.y), "translation.y", t.y, translationRule);
    check(TranslationAvailable(t.z), "translation.z", t.z, translationRule);
    const auto& r = entry.transform.rotation;
    check(RotationAvailable(r.x), "rotation.x", r.x, rotationRule);
    check(RotationAvailable(r.y), "rotation.y", r.y, rotationRule);
    check(RotationAvailable(r.z), "rotation.z", r.z, rotationRule);
    check(RotationAvailable(r.w), "rotation.w", r.w, rotationRule);
    check(DirectionAvailable(entry.direction), "direction", entry.direction, " It can only be 0 or 1");
    check(LifetimeAvailable(entry.lifetime.sec), "lifetime", entry.lifetime.sec, lifetimeRule);
    check(LifetimeAvailable(entry.lifetime.nsec), "lifetime", entry.lifetime.nsec, lifetimeRule);
    for (const orsa_msgs::Light& light : entry.lights) {
        check(LightTypeAvailable(light.type), "type", light.type, "Value range: [0, 5]");
        check(LightStateAvailable(light.state), "state", light.state, "Value range: [0, 4]");
        if (light.type == orsa_msgs::Light::COUNTDOWN_LIGHT) {
            check(CountdownAvailable(light.countdownValue), "countdownValue", light.countdownValue,
                  "Value range: [0, 139]");
        }
    }
    return statuses;
}

namespace TrafficLightLook {

Rgba ToColor(uint8_t state)
{
    switch (state) {
    case orsa_msgs::Light::GREEN:
        return {0, 1, 0, 1};
    case orsa_msgs::Light::YELLOW:
        return {1, 1, 0, 1};
    case orsa_msgs::Light::RED:
        return {1, 0, 0, 1};
    case orsa_msgs::Light::BLACK:
        return {0, 0, 0, 1};
    default:
        return {0.5F, 0.5F, 0.5F, 1};
    }
}

std::vector<uint8_t> LampStates(uint8_t state)
{
    if (state >= orsa_msgs::Light::GREEN && state <= orsa_msgs::Light::RED) {
        std::vector<uint8_t> states(3, orsa_msgs::Light::BLACK);
        states[state - 1] = state;
        return states;
    }
    return std::vector<uint8_t>(3, state);
}

int GetLeftCountdownIndex(int tens)
{
    return tens < 14 ? tens + 1 : 1;
}

int GetRightCountdownIndex(int ones)
{
    return ones < 10 ? ones + 15 : 15;
}

std::pair<int, int> GetCountdownIndex(uint8_t value)
{
    const int shown = TrafficLightFieldCheck::CountdownAvailable(value) ? value : 0;
    return {GetLeftCountdownIndex(shown / 10), GetRightCountdownIndex(shown % 10)};
}

} // namespace TrafficLightLook
} // namespace rviz_plugin
