#ifndef RVIZ_PLUGIN_MSG_CHECKER_H
#define RVIZ_PLUGIN_MSG_CHECKER_H

#include "object_array_settings.h"
#include "status_sink.h"

#include <custom/Object.h>

#include <QString>

#include <map>
#include <vector>

namespace rviz_plugin {

// Range checks of the fields an object's drawings need. The results of the newest object decide
// which drawings are shown; a failed check of a drawing raises a status naming the object and field.
class MsgChecker {
public:
    struct Result {
        bool valid = true;
        double value = 0;
    };

    MsgChecker(const ObjectArraySettings& settings, StatusSink& sink);

    void CheckMsg(const custom::Object& object, unsigned int index);
    // False when disabled or when a named check failed; every failed name raises an error.
    bool IsRenderItemValid(bool enabled, const std::vector<QString>& names);
    // Probability and confidence faults only warn (and only when shown); other faults hide the text.
    bool IsObjectInfoValid();
    void SetStatus(StatusSink::Level level, const QString& name);
    // Deletes the statuses of earlier objects that this object did not raise again, when it raised any.
    void DeleteDisplayStatus();

    bool IsBoxPolygonXValid(const custom::Object& object);
    bool IsBoxPolygonYValid(const custom::Object& object);
    bool IsBoxPolygonZValid(const custom::Object& object);

    const std::vector<QString>& CubeNames() const { return cubeNames; }
    const std::vector<QString>& PolygonNames() const { return polygonNames; }
    const std::vector<QString>& VelocityNames() const { return velocityNames; }
    const std::vector<QString>& InfoNames() const { return infoNames; }
    const Result& GetResult(const QString& name) const { return results.at(name); }

private:
    struct Limit {
        double lower;
        double upper;
    };

    bool Check(const QString& name, double value);
    bool IsPolygonAxisValid(const custom::Object& object, const QString& name, float geometry_msgs::Point32::*axis);

    const ObjectArraySettings& settings;
    StatusSink& sink;
    std::map<QString, Limit> limits;
    std::map<QString, QString> texts;
    std::map<QString, Result> results;
    std::vector<QString> cubeNames;
    std::vector<QString> polygonNames;
    std::vector<QString> velocityNames;
    std::vector<QString> infoNames;
    std::vector<QString> presentStatusNames;
    std::vector<QString> earlierStatusNames;
    unsigned int objectIndex = 0;
};

} // namespace rviz_plugin

#endif
