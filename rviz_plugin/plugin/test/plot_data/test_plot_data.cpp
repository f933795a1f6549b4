// The plot's data pipeline against a ROS master: the lines of one record, the points they make
// from stamps or the wall clock, passes of a replay, captured elements, and the subscriber's thread.
#include "../support/processes.h"
#include "../support/ros_test_main.h"
#include "plot_messages.h"
#include "plot_data/curve_sampler.h"
#include "plot_data/plot_global.h"
#include "plot_data/plot_model.h"
#include "plot_data/plot_record.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDateTime>
#include <ros/ros.h>
#include <topic_tools/shape_shifter.h>

#include <cmath>
#include <thread>

using namespace std::chrono_literals;
using plot_test::PlotMessage;
using rviz_plugin::CurveSampler;
using rviz_plugin::PlotModel;
using rviz_plugin::PlotRecord;

namespace {

RosMsgParser::ShapeShifter PlotShape(const PlotMessage& message)
{
    return plot_test::Shape(plot_test::plotType, plot_test::plotDefinition, plot_test::PlotBytes(message));
}

RosMsgParser::ShapeShifter PlainShape(double level, int32_t count)
{
    return plot_test::Shape(plot_test::plainType, plot_test::plainDefinition, plot_test::PlainBytes(level, count));
}

// The batches a line sends, as one list of points and one of times.
struct Sent {
    explicit Sent(CurveSampler& sampler)
    {
        QObject::connect(&sampler, &CurveSampler::SignalUpdateCurve,
                         [this](int, const QVector<QPointF>& p, const QVector<double>& t) {
                             points += p;
                             times += t;
                             ++batches;
                         });
    }
    QVector<QPointF> points;
    QVector<double> times;
    int batches = 0;
};

class PlotPipeline : public testing::Test {
protected:
    PlotPipeline()
    {
        plot.flatMessage.schema = plotParser.getSchema();
        plain.flatMessage.schema = plainParser.getSchema();
        model.SetupModelData({{"/plot", &plot}, {"/plain", &plain}});
    }
    // One line of the record: y against time, or against x with msgPath.
    void Select(CurveSampler& sampler, int line, const QString& y, const QString& x = QString())
    {
        sampler.SetCurveIndex(line);
        sampler.SetYField(y);
        std::map<std::string, rviz_plugin::MsgRecord::FieldTypePairs> selection;
        for (const QString& field : {y, x}) {
            if (!field.isEmpty()) {
                const QString name = rviz_plugin::PlotGlobal::GetFieldName(field);
                selection[rviz_plugin::PlotGlobal::GetTopic(field).toStdString()].emplace_back(
                    name.toStdString(),
                    rviz_plugin::PlotGlobal::GetFieldType(model.GetTopicMsg(name.toStdString())).toStdString());
            }
        }
        if (!x.isEmpty()) {
            sampler.SetIsMsgPath(true);
            sampler.SetXField(x);
        }
        record.UpdateSelectionDataFromDefinition(line, selection);
        record.UpdateSelection(line, x.toStdString(), y.toStdString());
        sampler.StartUpdateCurve();
    }
    void Send(const std::string& topic, const RosMsgParser::ShapeShifter& shape)
    {
        record.GetPlotSubscriber().TopicCallbackDisplay(shape, topic);
    }

    RosMsgParser::Parser plotParser{"/plot", RosMsgParser::ROSType(plot_test::plotType), plot_test::plotDefinition};
    RosMsgParser::Parser plainParser{"/plain", RosMsgParser::ROSType(plot_test::plainType),
                                     plot_test::plainDefinition};
    rviz_plugin::MsgParsers::DeserializedMsg plot;
    rviz_plugin::MsgParsers::DeserializedMsg plain;
    PlotModel model;
    PlotRecord record;
};

} // namespace

TEST_F(PlotPipeline, StampIsTheTimeAndValuesKeepFullPrecision)
{
    CurveSampler speed(record, model);
    CurveSampler element(record, model);
    Sent sentSpeed(speed);
    Sent sentElement(element);
    Select(speed, 0, "/plot/speed");
    Select(element, 1, "/plot/items.2/id");
    PlotMessage message;
    message.stamp = 10.5;
    message.speed = 1234567.891;
    Send("/plot", PlotShape(message));
    message.stamp = 11.25;
    message.speed = std::numeric_limits<double>::quiet_NaN();
    message.itemIds = {1};  // the element is missing: no point for it
    Send("/plot", PlotShape(message));
    EXPECT_TRUE(speed.HasNewPoint());
    speed.SlotSendPoints();
    element.SlotSendPoints();
    EXPECT_FALSE(speed.HasNewPoint());
    ASSERT_EQ(sentSpeed.points.size(), 2);
    EXPECT_EQ(sentSpeed.points[0], QPointF(10.5, 1234567.891));
    EXPECT_EQ(sentSpeed.times, (QVector<double>{10.5, 11.25}));
    EXPECT_TRUE(std::isnan(sentSpeed.points[1].y()));
    ASSERT_EQ(sentElement.points.size(), 1);
    EXPECT_EQ(sentElement.points[0], QPointF(10.5, 6.0));
    // Nothing new: nothing is sent.
    speed.SlotSendPoints();
    EXPECT_EQ(sentSpeed.batches, 1);
}

TEST_F(PlotPipeline, WithoutAHeaderTheTimeIsTheEndOfTheLastCycle)
{
    CurveSampler level(record, model);
    CurveSampler speed(record, model);
    Sent sentLevel(level);
    Select(level, 0, "/plain/level");
    Select(speed, 1, "/plot/speed");
    const rviz_plugin::PlotDataHandler& handler = record.GetHandler();
    const double before = QDateTime::currentMSecsSinceEpoch() / 1000.0;
    Send("/plain", PlainShape(2.5, 1));
    // Two topics selected: the cycle ends only when both have sent.
    EXPECT_EQ(handler.GetProcessedTime(), 0.0);
    EXPECT_FALSE(handler.HasProcessedAllSelectedTopic());
    Send("/plot", PlotShape(PlotMessage()));
    const double cycle = handler.GetProcessedTime();
    EXPECT_GE(cycle, before);
    EXPECT_LE(cycle, QDateTime::currentMSecsSinceEpoch() / 1000.0);
    Send("/plain", PlainShape(3.5, 1));
    EXPECT_EQ(handler.GetProcessedTime(), cycle);
    level.SlotSendPoints();
    ASSERT_EQ(sentLevel.points.size(), 2);
    EXPECT_EQ(sentLevel.points[0].x(), 0.0);  // before the first complete cycle
    EXPECT_EQ(sentLevel.points[1], QPointF(cycle, 3.5));
}

TEST_F(PlotPipeline, AReplayStartingOverBeginsANewPassOnce)
{
    CurveSampler speed(record, model);
    Sent sent(speed);
    QVector<QVector<QPointF>> atLoop;
    std::vector<int> loops;
    QObject::connect(&speed, &CurveSampler::SignalLoopBegin, [&](int index) {
        atLoop.push_back(sent.points);
        loops.push_back(index);
    });
    Select(speed, 3, "/plot/speed");
    PlotMessage message;
    for (double stamp : {100.0, 101.0, 100.99995, 102.0, 5.0, 6.0}) {
        message.stamp = stamp;
        message.speed = stamp;
        Send("/plot", PlotShape(message));
    }
    EXPECT_EQ(loops, std::vector<int>{3});
    // The old pass went out before the loop was announced.
    ASSERT_EQ(atLoop.size(), 1);
    EXPECT_EQ(atLoop[0].size(), 4);
    speed.SlotSendPoints();
    ASSERT_EQ(sent.points.size(), 6);
    EXPECT_EQ(sent.points[4].x(), 5.0);
    EXPECT_EQ(sent.batches, 2);
}

TEST_F(PlotPipeline, FieldAgainstFieldAndBadMessages)
{
    CurveSampler line(record, model);
    Sent sent(line);
    Select(line, 0, "/plot/values.1", "/plot/speed");
    PlotMessage message;
    message.speed = 4.0;
    message.values = {0.25F, 8.5F};
    Send("/plot", PlotShape(message));
    // Bytes one short: not decoded, no point.
    std::vector<uint8_t> shortBytes = plot_test::PlotBytes(message);
    shortBytes.pop_back();
    Send("/plot", plot_test::Shape(plot_test::plotType, plot_test::plotDefinition, shortBytes));
    // Another type on the topic: refused, no point.
    std::string log = test_support::Console([&]() { Send("/plot", PlainShape(1.0, 1)); });
    EXPECT_NE(log.find("[Plot]"), std::string::npos) << log;
    line.SlotSendPoints();
    ASSERT_EQ(sent.points.size(), 1);
    EXPECT_EQ(sent.points[0], QPointF(4.0, 8.5));

    // Removing the last line of the record ends its subscription.
    record.RemoveLine(0);
    EXPECT_FALSE(record.HasLines());
}

TEST_F(PlotPipeline, AStoppedLineKeepsNothing)
{
    CurveSampler speed(record, model);
    Sent sent(speed);
    Select(speed, 0, "/plot/speed");
    speed.StopUpdateCurve();
    for (int i = 0; i < 100; ++i) {
        Send("/plot", PlotShape(PlotMessage()));
    }
    EXPECT_TRUE(speed.GetPoints().isEmpty());
    EXPECT_FALSE(speed.HasNewPoint());
    speed.StartUpdateCurve();
    Send("/plot", PlotShape(PlotMessage()));
    speed.SlotSendPoints();
    EXPECT_EQ(sent.points.size(), 1);
}

TEST_F(PlotPipeline, LinesOfOneRecordKeepEachOthersTopics)
{
    CurveSampler level(record, model);
    CurveSampler speed(record, model);
    Sent sentLevel(level);
    Sent sentSpeed(speed);
    Select(level, 0, "/plain/level");
    Select(speed, 1, "/plot/speed");
    EXPECT_EQ(record.GetTopicFields().size(), 2U);
    Send("/plain", PlainShape(7.0, 1));
    Send("/plot", PlotShape(PlotMessage()));
    record.RemoveLine(1);
    EXPECT_EQ(record.GetTopicFields().size(), 1U);
    level.SlotSendPoints();
    speed.SlotSendPoints();
    EXPECT_EQ(sentLevel.points.size(), 1);
    EXPECT_EQ(sentSpeed.points.size(), 1);
}

TEST(PlotSubscriberThread, SubscribesThroughItsThreadAndCallsBackOnTheQueue)
{
    ros::NodeHandle node;
    topic_tools::ShapeShifter shifter;
    shifter.morph("0123456789abcdef0123456789abcdef", plot_test::plotType, plot_test::plotDefinition, "");
    std::vector<uint8_t> bytes = plot_test::PlotBytes(PlotMessage());
    ros::serialization::IStream in(bytes.data(), static_cast<uint32_t>(bytes.size()));
    shifter.read(in);
    ros::Publisher publisher = shifter.advertise(node, "/plot_thread", 10);

    // The definition subscription: the topic's schema arrives, nothing is decoded.
    rviz_plugin::PlotSubscriber definitions;
    ASSERT_TRUE(test_support::WaitFor(
        [&]() {
            definitions.UpdateMsgDefinitionSubscriber();
            publisher.publish(shifter);
            ros::spinOnce();
            QCoreApplication::processEvents();
            return definitions.GetDeserializedMsg().count("/plot_thread") > 0;
        },
        10s));
    EXPECT_TRUE(definitions.GetDeserializedMsg().at("/plot_thread")->flatValues.empty());
    // Known: the next pass unsubscribes it.
    ASSERT_TRUE(test_support::WaitFor(
        [&]() {
            definitions.UpdateMsgDefinitionSubscriber();
            std::this_thread::sleep_for(20ms);
            return publisher.getNumSubscribers() == 0;
        },
        10s));

    // A line's subscription.
    PlotRecord record;
    PlotModel model;
    CurveSampler speed(record, model);
    Sent sent(speed);
    speed.SetYField("/plot_thread/speed");
    speed.StartUpdateCurve();
    record.UpdateSelectionDataFromDefinition(0, {{"/plot_thread", {{"/plot_thread/speed", "[float64]"}}}});
    record.UpdateSelection(0, "", "/plot_thread/speed");
    ASSERT_TRUE(test_support::WaitFor(
        [&]() {
            publisher.publish(shifter);
            ros::spinOnce();
            speed.SlotSendPoints();
            return !sent.points.isEmpty();
        },
        10s));
    EXPECT_EQ(sent.points[0], QPointF(10.5, 1.0));
    record.ShutdownSubscriber();
    ASSERT_TRUE(test_support::WaitFor([&]() { return publisher.getNumSubscribers() == 0; }, 10s));
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRosMaster(argc, argv, "plot_data_test", [&]() {
        QCoreApplication app(argc, argv);
        return RUN_ALL_TESTS();
    });
}
