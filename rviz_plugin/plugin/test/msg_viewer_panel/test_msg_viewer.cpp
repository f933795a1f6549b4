// The message viewer's model on messages of types known only at run time: field trees, the
// storing of values into key-value pairs and table rows, and subscription through a ROS master.
#include "../support/processes.h"
#include "../support/ros_test_main.h"
#include "msg_viewer_panel/msg_record.h"
#include "msg_viewer_panel/msg_subscriber.h"
#include "msg_viewer_panel/topic_msg.h"

#include <custom/RoadInfo.h>
#include <visualization_msgs/Marker.h>

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <ros/ros.h>
#include <topic_tools/shape_shifter.h>

#include <memory>

using namespace std::chrono_literals;
using test_support::Console;
using rviz_plugin::MsgRecord;
using rviz_plugin::TopicMsg;

namespace {

const char* const demoDefinition =
    "int32 MODE_A=1\n"
    "Header header\n"
    "float64 speed\n"
    "time stamp\n"
    "int64 big\n"
    "Item[] items\n"
    "uint8[] bytes\n"
    "================================================================================\n"
    "MSG: std_msgs/Header\nuint32 seq\ntime stamp\nstring frame_id\n"
    "================================================================================\n"
    "MSG: demo/Item\nint32 id\nstring label\n";

// Serialises the demo message by hand: its type exists only as the definition above.
std::vector<uint8_t> DemoBytes(double speed, double stamp, int64_t big, int items, int bytes)
{
    std::vector<uint8_t> out;
    const auto put = [&out](const void* data, std::size_t size) {
        const auto* p = static_cast<const uint8_t*>(data);
        out.insert(out.end(), p, p + size);
    };
    const auto putU32 = [&put](uint32_t v) { put(&v, 4); };
    putU32(7);                                     // header.seq
    putU32(100);                                   // header.stamp
    putU32(0);
    putU32(3);                                     // header.frame_id
    put("map", 3);
    put(&speed, 8);
    putU32(static_cast<uint32_t>(stamp));
    putU32(static_cast<uint32_t>((stamp - static_cast<uint32_t>(stamp)) * 1e9 + 0.5));
    put(&big, 8);
    putU32(static_cast<uint32_t>(items));
    for (int i = 0; i < items; ++i) {
        const int32_t id = i * 2;
        put(&id, 4);
        const std::string label = "item" + std::to_string(i);
        putU32(static_cast<uint32_t>(label.size()));
        put(label.data(), label.size());
    }
    putU32(static_cast<uint32_t>(bytes));
    for (int i = 0; i < bytes; ++i) {
        out.push_back(static_cast<uint8_t>(i % 251));
    }
    return out;
}

RosMsgParser::ShapeShifter Shape(const std::string& type, const std::string& definition, std::vector<uint8_t> bytes)
{
    RosMsgParser::ShapeShifter shape;
    shape.morph("*", type, definition);
    ros::serialization::IStream in(bytes.data(), static_cast<uint32_t>(bytes.size()));
    shape.read(in);
    return shape;
}

RosMsgParser::ShapeShifter Demo(double speed, double stamp = 12.5, int64_t big = 5, int items = 3, int bytes = 4)
{
    return Shape("demo/Demo", demoDefinition, DemoBytes(speed, stamp, big, items, bytes));
}

std::map<std::string, std::string> KeyValues(MsgRecord& record, const std::string& topic)
{
    std::map<std::string, std::string> values;
    const auto& data = record.GetSubscriber().GetHandler().GetData().GeKeyValueData();
    const auto found = data.find(topic);
    if (found != data.end()) {
        values.insert(found->second.begin(), found->second.end());
    }
    return values;
}


} // namespace

TEST(TopicMsgTree, TimeColourArraysAndConstants)
{
    const RosMsgParser::Parser parser("/marker", RosMsgParser::ROSType("visualization_msgs/Marker"),
                                      ros::message_traits::Definition<visualization_msgs::Marker>::value());
    std::unique_ptr<TopicMsg> root(
        rviz_plugin::TraverseMsgTree("/marker", "visualization_msgs/Marker", parser.getSchema()->messageTree));
    std::map<std::string, const TopicMsg*> byName;
    std::function<void(const TopicMsg*)> walk = [&](const TopicMsg* node) {
        byName[node->GetFullName()] = node;
        for (const TopicMsg* child : node->GetFields()) {
            walk(child);
        }
    };
    walk(root.get());
    const TopicMsg* stamp = byName.at("/marker/header/stamp");
    ASSERT_EQ(stamp->GetFields().size(), 2U);
    EXPECT_EQ(stamp->GetFields()[0]->GetName(), "nsecs");
    EXPECT_EQ(stamp->GetFields()[1]->GetName(), "secs");
    EXPECT_EQ(stamp->GetFields()[1]->GetType(), "int32");
    EXPECT_EQ(stamp->GetFields()[1]->GetFullType(), "time");
    EXPECT_EQ(byName.at("/marker/color/r")->GetFullType(), "[float32](color)");
    EXPECT_EQ(byName.at("/marker/colors")->GetFullType(), "[std_msgs/ColorRGBA[]]");
    EXPECT_EQ(byName.at("/marker/points/x")->GetFullType(), "[float64]");
    EXPECT_TRUE(byName.at("/marker/points")->GetArrayProperty());
    EXPECT_EQ(byName.at("/marker/points/x")->GetTopicName(), "/marker");
    EXPECT_EQ(byName.count("/marker/ARROW"), 0U);  // constants are not fields
    EXPECT_EQ(byName.at("/marker/type")->GetFullType(), "[int32]");
}

TEST(MsgDataHandlerPaths, ArrayIndexAndPropertyNames)
{
    rviz_plugin::MsgDataHandler handler;
    EXPECT_EQ(handler.ParseArrayProperties("/t/a.12/b"), "/t/a/b");
    EXPECT_EQ(handler.GetArrayIndex(), 12);
    EXPECT_EQ(handler.ParseArrayProperties("/t/a/b"), "/t/a/b");
    EXPECT_EQ(handler.GetArrayIndex(), 12);
    EXPECT_EQ(handler.ParseArrayProperties("/t/a.3"), "/t/a");
    EXPECT_EQ(rviz_plugin::MsgDataHandler::ParsePropertiesName("/a/b/c"), "/b/c");
    EXPECT_EQ(rviz_plugin::MsgDataHandler::ParsePropertiesName("/a"), "/a");
}

class MsgViewer : public testing::Test {
protected:
    // A key-value panel of speed, the stamp's two parts and big; or a table over items.
    void SelectKeyValue()
    {
        record.UpdateSelectionDataFromDefinition(
            false, "",
            {{"/demo",
              {{"/demo/speed", "[float64]"}, {"/demo/stamp/secs", "time"}, {"/demo/stamp/nsecs", "time"},
               {"/demo/big", "[int64]"}, {"/demo/header/frame_id", "[string]"}}}});
        record.UpdateSelection();
    }
    void SelectTable(const std::string& array, const std::vector<std::pair<std::string, std::string>>& fields)
    {
        record.UpdateSelectionDataFromDefinition(true, array, {{"/demo", fields}});
        record.UpdateSelection();
    }
    const rviz_plugin::MsgData& Data() { return record.GetSubscriber().GetHandler().GetData(); }

    MsgRecord record;
};

TEST_F(MsgViewer, KeyValuePanelPrintsSixDigitsAndSplitsTimes)
{
    SelectKeyValue();
    record.GetSubscriber().TopicCallbackDisplay(Demo(1234567.0), "/demo");
    const auto values = KeyValues(record, "/demo");
    EXPECT_EQ(values.at("/speed"), "1.23457e+06");
    EXPECT_EQ(values.at("/stamp/secs"), "12");
    EXPECT_EQ(values.at("/stamp/nsecs"), "500000000");
    EXPECT_EQ(values.at("/big"), "5");
    EXPECT_EQ(values.at("/header/frame_id"), "map");
    // Constants of every message of the definition.
    const auto constants = Data().GetData().at("/demo");
    ASSERT_EQ(constants.size(), 1U);
    EXPECT_EQ(constants[0], std::make_pair(std::string("1"), std::string("MODE_A")));
}

TEST_F(MsgViewer, TableRowsFromTheSelectedArrayWithTheCut)
{
    SelectTable("/demo/items", {{"/demo/speed", "[float64]"}, {"/demo/items/id", "[int32]"},
                                {"/demo/items/label", "[string]"}});
    record.GetSubscriber().TopicCallbackDisplay(Demo(2.5, 1.0, 1, 250, 0), "/demo");
    const auto& table = Data().GetTableData();
    ASSERT_EQ(table.size(), 100U);  // 250 elements, cut to 100
    EXPECT_EQ(Data().GetDisplayTitle(), (std::vector<std::string>{"/speed", "/items/id", "/items/label"}));
    EXPECT_EQ(table[99], (std::vector<std::string>{"2.5", "198", "item99"}));

    // No element: one row with the scalar columns only.
    record.GetSubscriber().TopicCallbackDisplay(Demo(3.5, 1.0, 1, 0, 0), "/demo");
    ASSERT_GE(Data().GetTableData().size(), 1U);
    EXPECT_EQ(Data().GetTableData()[0], (std::vector<std::string>{"3.5"}));
}

TEST_F(MsgViewer, ByteArrayAsSelectedArrayGivesOneByteARow)
{
    SelectTable("/demo/bytes", {{"/demo/bytes", "[uint8[]]"}});
    record.GetSubscriber().TopicCallbackDisplay(Demo(1.0, 1.0, 1, 0, 1000), "/demo");
    const auto& table = Data().GetTableData();
    ASSERT_EQ(table.size(), 100U);
    EXPECT_EQ(table[0], std::vector<std::string>{"0"});
    EXPECT_EQ(table[42], std::vector<std::string>{"42"});
}

TEST_F(MsgViewer, LargeIntegersAndTypeChangesKeepTheLastGoodContent)
{
    SelectKeyValue();
    QString lastError = "none";
    QObject::connect(&record.GetSubscriber(), &rviz_plugin::MsgSubscriber::SignalErrorCatched,
                     [&lastError](const QString&, const QString& message) { lastError = message; });
    record.GetSubscriber().TopicCallbackDisplay(Demo(1.5), "/demo");
    EXPECT_TRUE(lastError.isEmpty());
    std::string out = Console([&]() { record.GetSubscriber().TopicCallbackDisplay(Demo(9.0, 1.0, (1LL << 53) + 1), "/demo"); });
    EXPECT_EQ(lastError.toStdString(),
              "In the sent data, the maximum value of the field of the int64 type exceeds 18014398509482060, or the "
              "maximum value of the field of the uint64 type exceeds 27137417339209760.");
    EXPECT_NE(out.find("[Error][MSG Viewer]"), std::string::npos) << out;

    custom::RoadInfo road;
    const std::vector<uint8_t> roadBytes = test_support::Serialize(road);
    out = Console([&]() {
        for (int i = 0; i < 2; ++i) {
            record.GetSubscriber().TopicCallbackDisplay(
                Shape("custom/RoadInfo", ros::message_traits::Definition<custom::RoadInfo>::value(), roadBytes),
                "/demo");
        }
    });
    const std::string line = "The type of the newly received message whose topic is /demo is different from the type "
                             "of the previously published message.";
    std::size_t lines = 0;
    for (std::size_t at = out.find(line); at != std::string::npos; at = out.find(line, at + 1)) {
        ++lines;
    }
    EXPECT_EQ(lines, 2U) << out;
    // The panel still shows the last good message.
    EXPECT_EQ(KeyValues(record, "/demo").at("/speed"), "1.5");
}

TEST_F(MsgViewer, FrequencyOfTheLastSecond)
{
    SelectKeyValue();
    rviz_plugin::MsgDataHandler& handler = record.GetSubscriber().GetHandler();
    for (int i = 0; i < 5; ++i) {
        record.GetSubscriber().TopicCallbackDisplay(Demo(i), "/demo");
    }
    handler.UpdateDataFrame();
    EXPECT_EQ(Data().GetFrequency("/demo"), 5);
    handler.UpdateDataFrame();
    EXPECT_EQ(Data().GetFrequency("/demo"), 0);
    EXPECT_EQ(Data().GetFrequency("/unknown"), 0);
}

TEST_F(MsgViewer, SubscriptionThroughTheMaster)
{
    SelectKeyValue();
    ros::NodeHandle node;
    topic_tools::ShapeShifter shifter;
    shifter.morph("0123456789abcdef0123456789abcdef", "demo/Demo", demoDefinition, "");
    std::vector<uint8_t> bytes = DemoBytes(42.0, 3.25, 9, 1, 2);
    ros::serialization::IStream in(bytes.data(), static_cast<uint32_t>(bytes.size()));
    shifter.read(in);
    ros::Publisher publisher = shifter.advertise(node, "/demo", 10);
    ASSERT_TRUE(test_support::WaitFor(
        [&]() {
            publisher.publish(shifter);
            ros::spinOnce();
            return KeyValues(record, "/demo").count("/speed") > 0;
        },
        5s));
    EXPECT_EQ(KeyValues(record, "/demo").at("/speed"), "42");
    EXPECT_EQ(KeyValues(record, "/demo").at("/stamp/nsecs"), "250000000");
    record.ShutdownSubscriber();

    // The selection dialog's subscriber takes each topic's definition from its first message and
    // decodes nothing; a topic whose definition is known is not subscribed again.
    rviz_plugin::MsgSubscriber definitions;
    ASSERT_TRUE(test_support::WaitFor(
        [&]() {
            definitions.UpdateMsgDefinitionSubscriber();
            publisher.publish(shifter);
            ros::spinOnce();
            return definitions.GetDeserializedMsg().count("/demo") > 0;
        },
        5s));
    const auto* known = definitions.GetDeserializedMsg().at("/demo");
    ASSERT_NE(known->flatMessage.schema, nullptr);
    EXPECT_EQ(known->flatMessage.schema->rootMessage->type().baseName(), "demo/Demo");
    EXPECT_TRUE(known->flatValues.empty());
    EXPECT_TRUE(known->flatMessage.name.empty());
    definitions.UpdateMsgDefinitionSubscriber();
    EXPECT_EQ(publisher.getNumSubscribers(), 0U);
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRosMaster(argc, argv, "msg_viewer_test", [&]() {
        QCoreApplication app(argc, argv);
        return RUN_ALL_TESTS();
    });
}
