#ifndef RVIZ_PLUGIN_PLOT_TYPES_H
#define RVIZ_PLUGIN_PLOT_TYPES_H

#include "msg_viewer_panel/msg_parsers.h"
#include "msg_viewer_panel/msg_record_struct.h"
#include "msg_viewer_panel/topic_msg.h"

namespace rviz_plugin {

// The plot decodes and describes topics exactly as the message viewer does.
using PlotParsers = MsgParsers;
using PlotTopicMsg = TopicMsg;

namespace PlotRecordStruct {
using PlotTopicSelection = MsgRecordStruct::TopicSelection;
using PlotFieldsSelection = MsgRecordStruct::FieldsSelection;
} // namespace PlotRecordStruct

} // namespace rviz_plugin

#endif
