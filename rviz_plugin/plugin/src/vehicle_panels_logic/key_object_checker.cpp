#include "key_object_checker.h"

#include <cfloat>
#include <cstdint>

namespace rviz_plugin {

KeyObjectChecker::KeyObjectChecker(const custom::KeyObject& message)
    : message(message), report("SceneView", "custom::KeyObject")
{
}

bool KeyObjectChecker::IsMsgValid() const
{
    return IsIdValid() & IsClassificationValid() & IsSpeedValid() & IsSpeedOrientationValid() &
           IsLateralDistanceValid() & IsVerticalDistanceValid();
}

bool KeyObjectChecker::IsIdValid() const
{
    return report.CheckInteger("id", message.id, 0, INT32_MAX);
}

bool KeyObjectChecker::IsClassificationValid() const
{
    return report.CheckInteger("classification", message.classification, 0, 8);
}

bool KeyObjectChecker::IsSpeedValid() const
{
    return report.CheckReal("speed", message.speed, -300, 300);
}

bool KeyObjectChecker::IsSpeedOrientationValid() const
{
    const geometry_msgs::Quaternion& q = message.speedOrientation;
    const double norm = q.x * q.x + q.y * q.y + q.z * q.z + q.w * q.w;
    const double low = 0.99;
    const double high = 1.01;
    if (norm >= low - DBL_EPSILON && norm <= high + DBL_EPSILON) {
        return true;
    }
    report.Fail("speedOrientation", "x^2+y^2+z^2+w^2=" + report.Fixed(norm), report.Fixed(low), report.Fixed(high));
    return false;
}

bool KeyObjectChecker::IsLateralDistanceValid() const
{
    return report.CheckReal("lateralDistance", message.lateralDistance, -1000, 1000);
}

bool KeyObjectChecker::IsVerticalDistanceValid() const
{
    return report.CheckReal("verticalDistance", message.verticalDistance, -1000, 1000);
}

} // namespace rviz_plugin
