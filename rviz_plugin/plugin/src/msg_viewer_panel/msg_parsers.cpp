#include "msg_parsers.h"

namespace rviz_plugin {

void MsgParsers::registerParser(const std::string& topic, const RosMsgParser::ShapeShifter& msg, int maxArraySize)
{
    const std::size_t limit = maxArraySize < 0 ? 0 : static_cast<std::size_t>(maxArraySize);
    auto found = packs.find(topic);
    if (found == packs.end()) {
        auto pack = std::make_unique<CachedPack>(topic, RosMsgParser::ROSType(msg.getDataType()),
                                                 msg.getMessageDefinition(), msg.getDataType());
        found = packs.emplace(topic, std::move(pack)).first;
    }
    found->second->parser.setMaxArrayPolicy(RosMsgParser::Parser::KEEP_LARGE_ARRAYS, limit);
}

MsgParsers::CachedPack* MsgParsers::getPack(const std::string& topic)
{
    const auto found = packs.find(topic);
    return found == packs.end() ? nullptr : found->second.get();
}

} // namespace rviz_plugin
