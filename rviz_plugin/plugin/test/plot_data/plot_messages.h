#ifndef RVIZ_PLUGIN_TEST_PLOT_MESSAGES_H
#define RVIZ_PLUGIN_TEST_PLOT_MESSAGES_H

#include "ros_msg_parser/shape_shifter.h"

#include <cstdint>
#include <string>
#include <vector>

namespace plot_test {

// A message type known only by its definition: a header, numbers, a text, an array of items that
// hold an array themselves, and an array of numbers.
extern const char* const plotDefinition;
extern const char* const plotType;
// A message type without a header.
extern const char* const plainDefinition;
extern const char* const plainType;

struct PlotMessage {
    double stamp = 10.5;
    double speed = 1.0;
    std::string name = "car";
    std::vector<int32_t> itemIds = {4, 5, 6};
    std::vector<float> values = {0.5F, 1.5F};
};

std::vector<uint8_t> PlotBytes(const PlotMessage& message);
// The plain message: one float64 "level" and one int32 "count".
std::vector<uint8_t> PlainBytes(double level, int32_t count);
RosMsgParser::ShapeShifter Shape(const std::string& type, const std::string& definition,
                                 std::vector<uint8_t> bytes);

} // namespace plot_test

#endif
