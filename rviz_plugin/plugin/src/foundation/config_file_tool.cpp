#include "config_file_tool.h"

#include "file_hander.h"
#include "logger.h"

#include <rapidjson/prettywriter.h>
#include <rapidjson/pointer.h>
#include <rapidjson/schema.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <array>
#include <cstring>
#include <fstream>

namespace Orsa {

namespace {
const char* const logModule = "FileHandler";

void LogError(const std::string& message)
{
    Logger::GetInstance().WriteLog(logModule, LogLevel::Error, message);
}

std::string PointerText(const rapidjson::Pointer& pointer)
{
    rapidjson::StringBuffer buffer;
    pointer.StringifyUriFragment(buffer);
    return buffer.GetString();
}

// JSON string literal of text, with the quotes.
std::string Quoted(const std::string& text)
{
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    writer.String(text.c_str(), static_cast<rapidjson::SizeType>(text.size()));
    return buffer.GetString();
}
} // namespace

std::string ConfigFileTool::ParseErrorText(int code)
{
    static const std::array<const char*, 18> texts = {
        "No error.",
        "The document is empty.",
        "The document root must not be followed by other values.",
        "Invalid value.",
        "Missing a name for object member.",
        "Missing a colon after a name of object member.",
        "Missing a comma or '}' after an object member.",
        "Missing a comma or ']' after an array element.",
        "Incorrect hex digit after \\u escape in string.",
        "The surrogate pair in string is invalid.",
        "Invalid escape character in string.",
        "Missing a closing quotation mark in string.",
        "Invalid encoding in string.",
        "Number too big to be stored in double.",
        "Miss fraction part in number.",
        "Miss exponent in number.",
        "Terminate parsing due to Handler error.",
        "Unspecific syntax error.",
    };
    if (code < 0 || static_cast<std::size_t>(code) >= texts.size()) {
        return "Unknown error.";
    }
    return texts[static_cast<std::size_t>(code)];
}

bool ConfigFileTool::ReadJsonFile(const std::string& path, rapidjson::Document& document)
{
    if (!FileHander::IsFileExist(path)) {
        LogError(path + " is not a file.");
        return true;
    }
    if (!FileHander::IsFileReadable(path)) {
        LogError(path + " cannot be read. Check the file permission.");
        return true;
    }
    if (ReadJsonString(FileHander::ReadFile(path), document)) {
        LogError("Failed to read the file. The file path is " + path);
        return true;
    }
    return false;
}

bool ConfigFileTool::ReadJsonString(const std::string& text, rapidjson::Document& document)
{
    // Parsing copies the strings: the document does not depend on text staying alive.
    document.Parse(text.c_str(), text.size());
    if (!document.HasParseError()) {
        return false;
    }
    LogError("The string '" + text + "' is not a valid JSON");
    LogError("Error(offset " + std::to_string(document.GetErrorOffset()) +
             "): " + ParseErrorText(static_cast<int>(document.GetParseError())));
    return true;
}

bool ConfigFileTool::WriteJsonFile(const std::string& path, const rapidjson::Document& document)
{
    const std::string target = FileHander::RelativePathToAbsolutePath(path);
    std::ofstream out(target, std::ios::out | std::ios::trunc);
    if (!out.is_open()) {
        LogError("Can not find or create the file which named \"" + path + "\".");
        return false;
    }
    rapidjson::StringBuffer buffer;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(buffer);
    document.Accept(writer);
    out << buffer.GetString();
    out.flush();
    return out.good();
}

namespace {
constexpr int maxSchemaDepth = 64;

bool IsUsableSubschema(const rapidjson::Value& value, const rapidjson::Value& root, int depth);

bool ContainsReference(const rapidjson::Value& value)
{
    if (value.IsObject()) {
        for (const auto& member : value.GetObject()) {
            if (std::strcmp(member.name.GetString(), "$ref") == 0 || ContainsReference(member.value)) {
                return true;
            }
        }
    }
    if (value.IsArray()) {
        for (const auto& entry : value.GetArray()) {
            if (ContainsReference(entry)) {
                return true;
            }
        }
    }
    return false;
}

// A reference RapidJSON follows without looping: into "#/definitions/...", at an object that holds no
// reference itself (a reference to the root or to a schema that refers back recurses without end).
bool IsUsableReference(const rapidjson::Value& reference, const rapidjson::Value& root)
{
    const std::string prefix = "#/definitions/";
    if (!reference.IsString() || std::string(reference.GetString()).rfind(prefix, 0) != 0) {
        return false;
    }
    const std::string path = std::string(reference.GetString()).substr(1);
    const rapidjson::Pointer pointer(path.c_str(), path.size());
    const rapidjson::Value* target = pointer.IsValid() ? pointer.Get(root) : nullptr;
    return target != nullptr && target->IsObject() && !ContainsReference(*target);
}

// RapidJSON compiles every object anywhere in a schema document as a schema (under unknown keys and
// inside arrays too), so every one of them must pass the checks.
bool IsUsableValue(const rapidjson::Value& value, const rapidjson::Value& root, int depth)
{
    if (value.IsObject()) {
        return IsUsableSubschema(value, root, depth);
    }
    if (value.IsArray()) {
        if (depth > maxSchemaDepth) {
            return false;
        }
        for (const auto& entry : value.GetArray()) {
            if (!IsUsableValue(entry, root, depth + 1)) {
                return false;
            }
        }
    }
    return true;
}

bool AreUsableSubschemas(const rapidjson::Value& value, const rapidjson::Value& root, int depth)
{
    if (!value.IsArray() || value.Empty()) {
        return false;
    }
    for (const auto& entry : value.GetArray()) {
        if (!IsUsableSubschema(entry, root, depth)) {
            return false;
        }
    }
    return true;
}

// A map of names to schemas ("properties", "definitions"). RapidJSON also compiles the map itself as
// a schema, so that a name such as "patternProperties" or "$ref" acts as a keyword there: the map must
// pass as a subschema too, which checks its entries once.
bool IsUsableSchemaMap(const rapidjson::Value& value, const rapidjson::Value& root, int depth)
{
    if (!value.IsObject()) {
        return false;
    }
    for (const auto& member : value.GetObject()) {
        if (!member.value.IsObject()) {
            return false;
        }
    }
    return IsUsableSubschema(value, root, depth);
}

// RapidJSON compiles a schema without checking its shape and dereferences what it could not compile
// (an "oneOf" entry that is a number, a "$ref" to one) and recurses without end on a reference that
// loops. Only schemas whose subschemas are objects, whose references point into their definitions
// and that use no regular expressions are handed to it.
bool IsUsableSubschema(const rapidjson::Value& value, const rapidjson::Value& root, int depth)
{
    if (!value.IsObject() || depth > maxSchemaDepth) {
        return false;
    }
    ++depth;
    for (const auto& member : value.GetObject()) {
        const std::string key = member.name.GetString();
        const rapidjson::Value& entry = member.value;
        bool usable = true;
        if (key == "allOf" || key == "anyOf" || key == "oneOf") {
            usable = AreUsableSubschemas(entry, root, depth);
        } else if (key == "not") {
            usable = IsUsableSubschema(entry, root, depth);
        } else if (key == "properties" || key == "definitions") {
            usable = IsUsableSchemaMap(entry, root, depth);
        } else if (key == "patternProperties" || key == "pattern") {
            // RapidJSON 1.1's regular expressions assert, exhaust memory or overflow the stack on
            // patterns as plain as "(", "a{5,2}", "a{99999999}" or a run of "*": schemas here use none.
            usable = false;
        } else if (key == "additionalProperties" || key == "additionalItems") {
            usable = entry.IsBool() || IsUsableSubschema(entry, root, depth);
        } else if (key == "items") {
            usable = entry.IsArray() ? AreUsableSubschemas(entry, root, depth) : IsUsableSubschema(entry, root, depth);
        } else if (key == "dependencies") {
            // Names to arrays of names or to schemas; the map is compiled as a schema as well.
            usable = entry.IsObject() && IsUsableSubschema(entry, root, depth);
        } else if (key == "$ref") {
            usable = IsUsableReference(entry, root);
        } else {
            usable = IsUsableValue(entry, root, depth);
        }
        if (!usable) {
            return false;
        }
    }
    return true;
}
} // namespace

bool ConfigFileTool::IsUsableSchema(const rapidjson::Value& schema)
{
    return IsUsableSubschema(schema, schema, 0);
}

bool ConfigFileTool::IsJsonConsistentWithSchema(const rapidjson::Document& document,
                                                const rapidjson::Document& schema)
{
    if (!IsUsableSchema(schema)) {
        LogError("The schema is not valid: every subschema must be an object, references must point at a "
                 "definition without references, and patterns are not supported.");
        return false;
    }
    const rapidjson::SchemaDocument schemaDocument(schema);
    rapidjson::SchemaValidator validator(schemaDocument);
    if (document.Accept(validator)) {
        return true;
    }
    const std::string report = "{\"invalidKeyword\":" + Quoted(validator.GetInvalidSchemaKeyword()) +
                               ",\"invalidSchema\":" + Quoted(PointerText(validator.GetInvalidSchemaPointer())) +
                               ",\"invalidDocument\":" + Quoted(PointerText(validator.GetInvalidDocumentPointer())) +
                               "}";
    LogError("Error report: " + report);
    return false;
}

} // namespace Orsa
