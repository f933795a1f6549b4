// libFuzzer target: a definition and a buffer, separated by the first zero byte of the input.
// Every input must end in a decoded message or a ParseError / DeserializeError / RangeException:
// nothing else may escape, crash, hang or allocate without bound.
#include "ros_msg_parser/parser.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const uint8_t* separator = static_cast<const uint8_t*>(std::memchr(data, 0, size));
    if (separator == nullptr) {
        return 0;
    }
    const std::string definition(reinterpret_cast<const char*>(data), static_cast<std::size_t>(separator - data));
    const RosMsgParser::Span<uint8_t> buffer(separator + 1, size - static_cast<std::size_t>(separator - data) - 1);
    try {
        RosMsgParser::Parser parser("/fuzz", RosMsgParser::ROSType("fuzz/Root"), definition);
        parser.setMaxArrayPolicy(RosMsgParser::Parser::KEEP_LARGE_ARRAYS, 100);
        RosMsgParser::FlatMessage flat;
        parser.deserializeIntoFlatMsg(buffer, &flat);
        RosMsgParser::RenamedValues values;
        RosMsgParser::CreateRenamedValues(flat, values);
    } catch (const RosMsgParser::ParseError&) {
    } catch (const RosMsgParser::DeserializeError&) {
    } catch (const RosMsgParser::RangeException&) {
    }
    return 0;
}
