// libFuzzer target: JSON text as the foundation and the settings files meet it. The bytes are read
// as a document, validated against a fixed schema and, when they form one, used as a schema
// themselves; the same bytes as the text of the decoding evaluation's record file go through its parser.
#include "decoder_switch/evaluate_history.h"
#include "foundation/config_file_tool.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace {
const char* const fixedSchema = R"({
  "type": "object",
  "properties": {
    "name": {"type": "string", "maxLength": 64},
    "port": {"type": "integer", "minimum": 1, "maximum": 65535},
    "items": {"type": "array", "items": {"type": "object", "required": ["video_format"]}}
  },
  "required": ["name"]
})";

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    static rapidjson::Document schema = []() {
        rapidjson::Document document;
        Orsa::ConfigFileTool::ReadJsonString(fixedSchema, document);
        return document;
    }();
    rapidjson::Document document;
    if (!Orsa::ConfigFileTool::ReadJsonString(text, document)) {
        Orsa::ConfigFileTool::IsJsonConsistentWithSchema(document, schema);
        if (document.IsObject()) {
            Orsa::ConfigFileTool::IsJsonConsistentWithSchema(schema, document);
        }
    }
    rviz_plugin::EvaluateHistory history("/nonexistent/decode_evaluate_record.json");
    if (history.ParseConfigText(text)) {
        history.GetChannels("Software", "1080p | 30 fps");
    }
    return 0;
}
