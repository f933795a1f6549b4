#ifndef RVIZ_PLUGIN_KEY_OBJECT_CHECKER_H
#define RVIZ_PLUGIN_KEY_OBJECT_CHECKER_H

#include "range_report.h"

#include <custom/KeyObject.h>

namespace rviz_plugin {

// Checks one custom::KeyObject as a whole.
class KeyObjectChecker {
public:
    explicit KeyObjectChecker(const custom::KeyObject& message);

    // Runs every check (each failing field logs) and passes only when all pass.
    bool IsMsgValid() const;

    bool IsIdValid() const;
    bool IsClassificationValid() const;
    bool IsSpeedValid() const;
    // The orientation must be a unit quaternion: x^2 + y^2 + z^2 + w^2 within [0.99, 1.01].
    bool IsSpeedOrientationValid() const;
    bool IsLateralDistanceValid() const;
    bool IsVerticalDistanceValid() const;

private:
    const custom::KeyObject& message;
    RangeReport report;
};

} // namespace rviz_plugin

#endif
