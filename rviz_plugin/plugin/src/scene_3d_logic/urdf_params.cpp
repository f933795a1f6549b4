#include "urdf_params.h"

#include <tinyxml2.h>

#include <exception>

namespace rviz_plugin {

std::vector<std::string> GetUrdfParams(const std::vector<std::string>& names, const StringParamReader& read,
                                       const ParamErrorHandler& onError)
{
    std::vector<std::string> result;
    for (std::string name : names) {
        if (!name.empty() && name.front() == '/') {
            name.erase(0, 1);
        }
        std::string text;
        try {
            if (!read(name, text)) {
                continue;
            }
        } catch (const std::exception& error) {
            onError(name, error.what());
            continue;
        }
        tinyxml2::XMLDocument document;
        if (document.Parse(text.c_str(), text.size()) != tinyxml2::XML_SUCCESS) {
            continue;
        }
        const tinyxml2::XMLElement* root = document.FirstChildElement("robot");
        if (root != nullptr && root->Attribute("name") != nullptr) {
            result.push_back(name);
        }
    }
    return result;
}

} // namespace rviz_plugin
