// The item's running verdict and rates: the rule table in its order, with flags injected as the
// overlay node would raise them, and the once-a-second rates and mean drawing time.
#include "overlay/frequency_tool.h"
#include "overlay/running_status_tool.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <functional>
#include <map>
#include <vector>

using rviz_plugin::FrequencyTool;
using rviz_plugin::MessageId;
using rviz_plugin::RunningStatusTool;

namespace {

struct Verdict {
    rviz::StatusProperty::Level level = rviz::StatusProperty::Ok;
    QString key;
    QString text;
    int reports = 0;
};

class RunningStatusTest : public testing::Test {
protected:
    void SetUp() override
    {
        QObject::connect(&tool, &RunningStatusTool::RunningStatusChanged,
                         [this](rviz::StatusProperty::Level level, const QString& key, const QString& text) {
                             verdict.level = level;
                             verdict.key = key;
                             verdict.text = text;
                             ++verdict.reports;
                         });
    }

    // Raises the flags in the given order, then ends the second.
    Verdict Second(const std::vector<void (RunningStatusTool::*)()>& events)
    {
        for (auto event : events) {
            (tool.*event)();
        }
        tool.RefreshRunningStatus();
        return verdict;
    }

    RunningStatusTool tool;
    Verdict verdict;
};

TEST_F(RunningStatusTest, SecondsWithoutDataWaitAndDrawnFramesAreNormal)
{
    EXPECT_EQ(tool.GetOverViewStatus(), 0);
    Verdict first = Second({});
    EXPECT_EQ(first.level, rviz::StatusProperty::Warn);
    EXPECT_EQ(first.key, "Running Status");
    EXPECT_EQ(first.text, "Waiting for data.");
    EXPECT_EQ(tool.GetOverViewStatus(), 1);

    Verdict normal = Second({&RunningStatusTool::OnDetectedDataSend});
    EXPECT_EQ(normal.level, rviz::StatusProperty::Ok);
    EXPECT_EQ(normal.text, "Running, Everything is normal.");
    EXPECT_EQ(tool.GetOverViewStatus(), 8);

    // Flags live one second: the same verdict is repeated each second, and a quiet second waits again.
    Second({&RunningStatusTool::OnDetectedDataSend});
    EXPECT_EQ(verdict.reports, 3);
    EXPECT_EQ(Second({}).text, "Waiting for data.");
}

TEST_F(RunningStatusTest, RulesApplyInTheirListedOrder)
{
    using T = RunningStatusTool;
    struct Case {
        std::vector<void (T::*)()> events;
        int code;
        rviz::StatusProperty::Level level;
    };
    const std::vector<Case> cases = {
        // Discarded data and nothing drawn: inconsistent stamps, even with a full queue.
        {{&T::OnDetectedDiscardPerceptionData, &T::OnDetectedQueueFull}, 4, rviz::StatusProperty::Error},
        {{&T::OnDetectedDiscardImageData}, 4, rviz::StatusProperty::Error},
        // An empty queue survives only when nothing was drawn or discarded after it.
        {{&T::OnDetectedQueueEmpty}, 2, rviz::StatusProperty::Error},
        {{&T::OnDetectedDataSend, &T::OnDetectedQueueEmpty, &T::OnDetectedQueueFull}, 2,
         rviz::StatusProperty::Error},
        {{&T::OnDetectedQueueEmpty, &T::OnDetectedDataSend}, 8, rviz::StatusProperty::Ok},
        // A full queue wins over a slow drawing second.
        {{&T::OnDetectedQueueFull, &T::OnDetectedPerformanceProblem, &T::OnDetectedDataSend}, 3,
         rviz::StatusProperty::Warn},
        {{&T::OnDetectedPerformanceProblem, &T::OnDetectedDataSend, &T::OnDetectedDiscardImageData}, 5,
         rviz::StatusProperty::Warn},
        {{&T::OnDetectedDiscardImageData, &T::OnDetectedDataSend}, 6, rviz::StatusProperty::Warn},
        {{&T::OnDetectedDiscardPerceptionData, &T::OnDetectedDataSend}, 7, rviz::StatusProperty::Warn},
        {{&T::OnDetectedDiscardPerceptionData, &T::OnDetectedDiscardImageData, &T::OnDetectedDataSend}, 7,
         rviz::StatusProperty::Warn},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const Verdict result = Second(cases[i].events);
        EXPECT_EQ(tool.GetOverViewStatus(), cases[i].code) << "case " << i;
        EXPECT_EQ(result.level, cases[i].level) << "case " << i;
    }
}

TEST_F(RunningStatusTest, VerdictTextsAreTheUsersOwn)
{
    using T = RunningStatusTool;
    EXPECT_EQ(Second({&T::OnDetectedDiscardPerceptionData}).text,
              "The timestamps of the received data entries are inconsistent, and the visualized perception data "
              "cannot be drawn on the image. ");
    EXPECT_EQ(Second({&T::OnDetectedQueueFull, &T::OnDetectedDataSend}).text,
              "Some queues are full, possibly because the value of 'Timestamp Sync Queue Size' is too small.");
    EXPECT_EQ(Second({&T::OnDetectedDiscardPerceptionData, &T::OnDetectedDataSend}).text,
              "Timestamps of some data entries are inconsistent. The current data transmission is unstable.");
    EXPECT_TRUE(Second({&T::OnDetectedQueueEmpty}).text.startsWith("No data for one or more selected items"));
    EXPECT_TRUE(Second({&T::OnDetectedPerformanceProblem}).text.startsWith("The process of drawing a detection"));
    EXPECT_TRUE(Second({&T::OnDetectedDiscardImageData, &T::OnDetectedDataSend})
                    .text.startsWith("The node is running. The frequency"));
}

class FrequencyToolTest : public testing::Test {
protected:
    void SetUp() override
    {
        tool.Start();
        const std::vector<std::pair<void (FrequencyTool::*)(const unsigned&), MessageId>> signals = {
            {&FrequencyTool::ImageFrequencyChanged, rviz_plugin::Image},
            {&FrequencyTool::ObjectArrayFrequencyChanged, rviz_plugin::Objects},
            {&FrequencyTool::ImageRectangleArrayFrequencyChanged, rviz_plugin::TrafficLights},
            {&FrequencyTool::ImageLineArrayFrequencyChanged, rviz_plugin::RoadLines},
            {&FrequencyTool::ImageFreespaceFrequencyChanged, rviz_plugin::Freespace},
            {&FrequencyTool::ImageSemanticSegmentationFrequencyChanged, rviz_plugin::SemanticSegmentation},
            {&FrequencyTool::MarkerArrayFrequencyChanged, rviz_plugin::MarkerArray},
        };
        for (const auto& signal : signals) {
            const MessageId id = signal.second;
            QObject::connect(&tool, signal.first, [this, id](const unsigned& hertz) {
                hertzById[id] = hertz;
                order.push_back(id);
            });
        }
        QObject::connect(&tool, &FrequencyTool::ProcessingTimeChanged, [this](float ms) { averages.push_back(ms); });
        QObject::connect(&tool, &FrequencyTool::DetectedPerformanceProblem, [this]() { ++problems; });
    }

    std::vector<MessageId> ids = {rviz_plugin::Image,     rviz_plugin::Objects,
                                  rviz_plugin::TrafficLights, rviz_plugin::RoadLines,
                                  rviz_plugin::Freespace, rviz_plugin::SemanticSegmentation,
                                  rviz_plugin::MarkerArray};
    FrequencyTool tool{ids};
    std::map<MessageId, unsigned> hertzById;
    std::vector<MessageId> order;
    std::vector<float> averages;
    int problems = 0;
};

TEST_F(FrequencyToolTest, RatesAreTheEventsOfTheLastSecondInInputOrder)
{
    for (int i = 0; i < 30; ++i) {
        tool.OnMessageReceived(rviz_plugin::Image);
    }
    for (int i = 0; i < 10; ++i) {
        tool.OnMessageReceived(rviz_plugin::Objects);
    }
    tool.RefreshFrequency();
    EXPECT_EQ(hertzById[rviz_plugin::Image], 30U);
    EXPECT_EQ(hertzById[rviz_plugin::Objects], 10U);
    EXPECT_EQ(hertzById[rviz_plugin::MarkerArray], 0U);
    EXPECT_EQ(order, ids);

    tool.RefreshFrequency();
    EXPECT_EQ(hertzById[rviz_plugin::Image], 0U);
}

TEST_F(FrequencyToolTest, ProcessingTimeIsTheMeanOfTheSecond)
{
    // No frame drawn: the shown time stays as it was.
    tool.RefreshFrequency();
    EXPECT_TRUE(averages.empty());

    // One slow frame in a fast second raises nothing.
    for (int i = 0; i < 29; ++i) {
        tool.OnDetectedSingleFrameProcessingTime(10.0F);
    }
    tool.OnDetectedSingleFrameProcessingTime(100.0F);
    tool.RefreshFrequency();
    ASSERT_EQ(averages.size(), 1U);
    EXPECT_NEAR(averages[0], 13.0F, 1e-3);
    EXPECT_EQ(problems, 0);

    tool.OnDetectedSingleFrameProcessingTime(33.0F);
    tool.RefreshFrequency();
    EXPECT_EQ(problems, 0);
    tool.OnDetectedSingleFrameProcessingTime(40.0F);
    tool.OnDetectedSingleFrameProcessingTime(30.0F);
    tool.RefreshFrequency();
    EXPECT_NEAR(averages.back(), 35.0F, 1e-3);
    EXPECT_EQ(problems, 1);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
