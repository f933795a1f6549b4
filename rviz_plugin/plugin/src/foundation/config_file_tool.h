#ifndef ORSA_CONFIG_FILE_TOOL_H
#define ORSA_CONFIG_FILE_TOOL_H

#include <rapidjson/document.h>

#include <string>

namespace Orsa {

// JSON files and schema validation. Failures are logged under "FileHandler".
// Note the senses: the two readers return true on failure, the writer and the validator on success.
class ConfigFileTool {
public:
    static bool ReadJsonFile(const std::string& path, rapidjson::Document& document);
    static bool ReadJsonString(const std::string& text, rapidjson::Document& document);
    static bool WriteJsonFile(const std::string& path, const rapidjson::Document& document);
    static bool IsJsonConsistentWithSchema(const rapidjson::Document& document, const rapidjson::Document& schema);
    // Whether RapidJSON can compile the schema safely: subschemas are objects, references local ones.
    static bool IsUsableSchema(const rapidjson::Value& schema);

    // Text of a RapidJSON parse error code, "Unknown error." for codes outside the table.
    static std::string ParseErrorText(int code);
};

} // namespace Orsa

#endif
