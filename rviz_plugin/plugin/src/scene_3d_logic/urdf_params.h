#ifndef RVIZ_PLUGIN_URDF_PARAMS_H
#define RVIZ_PLUGIN_URDF_PARAMS_H

#include <functional>
#include <string>
#include <vector>

namespace rviz_plugin {

// Reads a string parameter; false when there is none or it is not a string. May throw on a bad name.
using StringParamReader = std::function<bool(const std::string& name, std::string& value)>;
// Told of a parameter whose read threw: its name and the exception's text.
using ParamErrorHandler = std::function<void(const std::string& name, const std::string& error)>;

// The parameters that hold a robot description: an XML document whose first element is a "robot"
// with a "name". A leading "/" is taken off each name.
std::vector<std::string> GetUrdfParams(const std::vector<std::string>& names, const StringParamReader& read,
                                       const ParamErrorHandler& onError);

} // namespace rviz_plugin

#endif
