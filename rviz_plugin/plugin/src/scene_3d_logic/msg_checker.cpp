#include "msg_checker.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace rviz_plugin {

namespace {
const QString centerText = "The value of objectBoxCenter.%4 [%3] is out of range. Use the coordinate compensation "
                           "function to adjust the value. Ensure it is within [%1, %2].";
const QString sizeText = "The value of objectBoxSize.%4 [%3] is out of range.Adjust the value to ensure it is within "
                         "[%1, %2].";
const QString pointText = "The value of boxPolygon.points.%4 [%3] is out of range. Use the coordinate compensation "
                          "function to adjust the value. Ensure it is within [%1, %2].";
const QString linearText = "The value of velocity.twist.linear.%4 [%3] is out of range.Adjust the value to ensure it "
                           "is within [%1, %2].";
const QString polygonSizeText = "The polygon cannot be drawn because the number of points [%3] is out of range. "
                                "Adjust the number to ensure it is within [%1, %2].";
const QString orientationText = "The value of objectBoxOrientation [%3] is out of range.Adjust the value to ensure it "
                                "is within [%1, %2].";
const QString existenceText = "The value of existenceProbability [%3] is out of range. Adjust the value to ensure it "
                              "is within [%1, %2].";
const QString confidenceText = "The value of classificationConfidence [%3] is out of range.Adjust the value to "
                               "ensure it is within [%1, %2].";
constexpr double coordinateLimit = 50000;
constexpr double sizeLimit = 10000;
constexpr double speedLimit = 100;
constexpr double polygonMin = 2;
constexpr double polygonMax = 5000;
constexpr double orientationLimit = 6.283185307179586;
const QString existenceName = "existenceProbability";
const QString confidenceName = "classificationConfidence";
const QString polygonSizeName = "boxPolygonSize";
} // namespace

MsgChecker::MsgChecker(const ObjectArraySettings& objectSettings, StatusSink& statusSink)
    : settings(objectSettings), sink(statusSink)
{
    const auto add = [this](const QString& name, double lower, double upper, QString text) {
        limits[name] = Limit{lower, upper};
        // %4 is the axis; the limits take %1 and %2, and %3 stays for the value.
        text.replace("%4", name.right(1).toLower());
        texts[name] = text.arg(lower).arg(upper);
        results[name] = Result{};
    };
    for (const char* axis : {"X", "Y", "Z"}) {
        add(QString("objectBoxCenter.") + axis, -coordinateLimit, coordinateLimit, centerText);
    }
    for (const char* axis : {"X", "Y", "Z"}) {
        add(QString("objectBoxSize.") + axis, 0, sizeLimit, sizeText);
    }
    for (const char* axis : {"X", "Y", "Z"}) {
        add(QString("points.") + axis, -coordinateLimit, coordinateLimit, pointText);
    }
    add("linear.X", -speedLimit, speedLimit, linearText);
    add("linear.Y", -speedLimit, speedLimit, linearText);
    add(polygonSizeName, polygonMin, polygonMax, polygonSizeText);
    add("objectBoxOrientation", -orientationLimit, orientationLimit, orientationText);
    add(existenceName, 0, 1, existenceText);
    add(confidenceName, 0, 1, confidenceText);

    const std::vector<QString> box = {"objectBoxCenter.X", "objectBoxCenter.Y", "objectBoxCenter.Z",
                                      "objectBoxSize.X",   "objectBoxSize.Y",   "objectBoxSize.Z"};
    cubeNames = box;
    cubeNames.push_back("objectBoxOrientation");
    polygonNames = {polygonSizeName, "points.X", "points.Y", "points.Z"};
    velocityNames = cubeNames;
    velocityNames.push_back("linear.X");
    velocityNames.push_back("linear.Y");
    infoNames = box;
    infoNames.push_back(existenceName);
    infoNames.push_back(confidenceName);
}

bool MsgChecker::Check(const QString& name, double value)
{
    const Limit& limit = limits.at(name);
    const bool valid = value >= limit.lower - DBL_EPSILON && value <= limit.upper + DBL_EPSILON;
    results[name] = Result{valid, valid ? 0.0 : value};
    return valid;
}

void MsgChecker::CheckMsg(const custom::Object& object, unsigned int index)
{
    objectIndex = index;
    Check("objectBoxCenter.X", object.objectBoxCenter.x);
    Check("objectBoxCenter.Y", object.objectBoxCenter.y);
    Check("objectBoxCenter.Z", object.objectBoxCenter.z);
    Check("objectBoxSize.X", object.objectBoxSize.x);
    Check("objectBoxSize.Y", object.objectBoxSize.y);
    Check("objectBoxSize.Z", object.objectBoxSize.z);
    IsBoxPolygonXValid(object);
    IsBoxPolygonYValid(object);
    IsBoxPolygonZValid(object);
    Check("linear.X", object.velocity.twist.linear.x);
    Check("linear.Y", object.velocity.twist.linear.y);
    Check(polygonSizeName, static_cast<double>(object.boxPolygon.points.size()));
    Check("objectBoxOrientation", object.objectBoxOrientation);
    Check(existenceName, object.existenceProbability);
    Check(confidenceName, object.classificationConfidence);
}

bool MsgChecker::IsPolygonAxisValid(const custom::Object& object, const QString& name,
                                    float geometry_msgs::Point32::*axis)
{
    for (const geometry_msgs::Point32& point : object.boxPolygon.points) {
        if (!Check(name, static_cast<double>(point.*axis))) {
            return false;
        }
    }
    results[name] = Result{};
    return true;
}

bool MsgChecker::IsBoxPolygonXValid(const custom::Object& object)
{
    return IsPolygonAxisValid(object, "points.X", &geometry_msgs::Point32::x);
}

bool MsgChecker::IsBoxPolygonYValid(const custom::Object& object)
{
    return IsPolygonAxisValid(object, "points.Y", &geometry_msgs::Point32::y);
}

bool MsgChecker::IsBoxPolygonZValid(const custom::Object& object)
{
    return IsPolygonAxisValid(object, "points.Z", &geometry_msgs::Point32::z);
}

bool MsgChecker::IsRenderItemValid(bool enabled, const std::vector<QString>& names)
{
    if (!enabled) {
        return false;
    }
    bool valid = true;
    for (const QString& name : names) {
        if (!results.at(name).valid) {
            SetStatus(StatusSink::Error, name);
            valid = false;
        }
    }
    return valid;
}

bool MsgChecker::IsObjectInfoValid()
{
    if (!settings.objectInfoEnabled) {
        return false;
    }
    bool valid = true;
    for (const QString& name : infoNames) {
        if (results.at(name).valid) {
            continue;
        }
        if (name == existenceName) {
            if (settings.showExistenceProbability) {
                SetStatus(StatusSink::Warn, name);
            }
        } else if (name == confidenceName) {
            if (settings.showClassificationConfidence) {
                SetStatus(StatusSink::Warn, name);
            }
        } else {
            SetStatus(StatusSink::Error, name);
            valid = false;
        }
    }
    return valid;
}

void MsgChecker::SetStatus(StatusSink::Level level, const QString& name)
{
    const QString statusName = QString("Incorrect object[%1].%2").arg(objectIndex).arg(name);
    const double value = results.at(name).value;
    const QString text = name == polygonSizeName ? texts.at(name).arg(value) : texts.at(name).arg(value, 4, 'f', 16);
    sink.SetStatus(level, statusName, text);
    presentStatusNames.push_back(statusName);
}

void MsgChecker::DeleteDisplayStatus()
{
    if (presentStatusNames.empty()) {
        return;
    }
    // The difference needs ordered ranges: the lists are in the order the checks raised them.
    std::vector<QString> earlier = earlierStatusNames;
    std::vector<QString> present = presentStatusNames;
    std::sort(earlier.begin(), earlier.end());
    std::sort(present.begin(), present.end());
    std::vector<QString> gone;
    std::set_difference(earlier.begin(), earlier.end(), present.begin(), present.end(), std::back_inserter(gone));
    for (const QString& name : gone) {
        sink.DeleteStatus(name);
    }
    earlierStatusNames = std::move(presentStatusNames);
    presentStatusNames.clear();
}

} // namespace rviz_plugin
