#ifndef RVIZ_PLUGIN_MSG_PARSERS_H
#define RVIZ_PLUGIN_MSG_PARSERS_H

#include "ros_msg_parser/parser.h"
#include "ros_msg_parser/shape_shifter.h"

#include <memory>
#include <string>
#include <unordered_map>

namespace rviz_plugin {

// The parsers of one subscriber, one per topic, each bound to the type of the topic's first message.
class MsgParsers {
public:
    struct DeserializedMsg {
        RosMsgParser::FlatMessage flatMessage;
        RosMsgParser::RenamedValues flatValues;
    };
    struct CachedPack {
        CachedPack(const std::string& topic, const RosMsgParser::ROSType& type, const std::string& definition,
                   std::string datatype)
            : parser(topic, type, definition), datatype(std::move(datatype))
        {
        }
        RosMsgParser::Parser parser;
        std::string datatype;
        // The last message that decoded completely; the views read it.
        DeserializedMsg msg;
        // Where the next message is decoded; it becomes msg only when it decoded completely.
        DeserializedMsg scratch;
    };

    // Binds topic to a parser on its first message; later calls only set the array limit.
    // Throws RosMsgParser::ParseError for a definition that cannot be parsed.
    void registerParser(const std::string& topic, const RosMsgParser::ShapeShifter& msg, int maxArraySize);
    CachedPack* getPack(const std::string& topic);

private:
    // Packs are never removed: pointers to their messages stay valid for the subscriber's life.
    std::unordered_map<std::string, std::unique_ptr<CachedPack>> packs;
};

} // namespace rviz_plugin

#endif
