// The recording's rules without recording: the evaluation's search and pass rule, the running watch, the
// recording clock, and the disk and time texts.
#include "record_video_logic/detector_status.h"
#include "record_video_logic/encoder_type.h"
#include "record_video_logic/inquire_status.h"
#include "record_video_logic/record_data_evaluator.h"
#include "record_video_logic/record_data_manager.h"
#include "record_video_logic/tick_schedule.h"

#include <gtest/gtest.h>

using rviz_plugin::DetectedStatus;
using rviz_plugin::DetectorStatus;
using rviz_plugin::InquireStatus;
using rviz_plugin::RecordDataEvaluator;

namespace {
// Runs the search with a machine that records at most `capacity` channels; returns the channel counts tried.
std::vector<int> Search(int topics, int capacity)
{
    RecordDataEvaluator evaluator;
    evaluator.InitEvaluateNums(topics);
    std::vector<int> tried{evaluator.GetCurrentNum()};
    while (evaluator.CalcEvaluateNums(evaluator.GetCurrentNum() <= capacity)) {
        tried.push_back(evaluator.GetCurrentNum());
    }
    return tried;
}
} // namespace

TEST(RecordDataEvaluator, BinarySearchFindsTheLargestPassingCountWithinTheRoundLimit)
{
    EXPECT_EQ(Search(1, 1), std::vector<int>({1}));  // one topic: a single round
    EXPECT_EQ(Search(1, 0), std::vector<int>({1}));
    EXPECT_EQ(Search(4, 4), std::vector<int>({1, 3, 4}));
    EXPECT_EQ(Search(4, 2), std::vector<int>({1, 3, 2}));
    EXPECT_EQ(Search(8, 0), std::vector<int>({1}));
    for (int topics = 1; topics <= 12; ++topics) {
        for (int capacity = 0; capacity <= topics; ++capacity) {
            const auto tried = Search(topics, capacity);
            EXPECT_LE(static_cast<int>(tried.size()), RecordDataEvaluator::MaxRounds(topics));
            int best = 0;
            for (int count : tried) {
                best = count <= capacity ? std::max(best, count) : best;
            }
            EXPECT_EQ(best, capacity) << topics << " topics, capacity " << capacity;
        }
    }
}

TEST(RecordDataEvaluator, ARoundFailsOnOneStalledRecorderEvenAtLowCpu)
{
    const std::vector<double> idle(60, 20.0);
    EXPECT_TRUE(RecordDataEvaluator::IsRoundPassed(idle, {{"/a", 10.0}, {"/b", 25.0}}));
    EXPECT_FALSE(RecordDataEvaluator::IsRoundPassed(idle, {{"/a", 10.0}, {"/b", 25.5}}));
    EXPECT_FALSE(RecordDataEvaluator::IsRoundPassed(std::vector<double>(60, 80.0), {{"/a", 1.0}}));
    EXPECT_TRUE(RecordDataEvaluator::IsRoundPassed(std::vector<double>(60, 79.9), {{"/a", 1.0}}));
    EXPECT_FALSE(RecordDataEvaluator::IsRoundPassed({}, {{"/a", 1.0}}));  // no samples count as 100 %
}

TEST(DetectorStatus, CpuAndFrameTimeLimitsGiveTheFourStatuses)
{
    EXPECT_EQ(DetectorStatus::Judge(50.0, {{"/a", 20.0}}), DetectedStatus::Normal);
    EXPECT_EQ(DetectorStatus::Judge(80.0, {{"/a", 33.0}}), DetectedStatus::Normal);
    EXPECT_EQ(DetectorStatus::Judge(80.5, {{"/a", 20.0}}), DetectedStatus::CpuOverload);
    EXPECT_EQ(DetectorStatus::Judge(50.0, {{"/a", 20.0}, {"/b", 34.0}}), DetectedStatus::FrameTimeOverload);
    EXPECT_EQ(DetectorStatus::Judge(95.0, {{"/a", 40.0}}), DetectedStatus::CpuAndFrameTimeOverload);
}

TEST(InquireStatus, RecordableTimeKeepsAGibibyteInReserve)
{
    const int64_t gib = InquireStatus::reserveBytes;
    EXPECT_EQ(InquireStatus::RecordableTime(gib, 1000.0), "00:00:00");  // exactly the reserve
    EXPECT_EQ(InquireStatus::RecordableTime(gib - 1, 1000.0), "00:00:00");
    EXPECT_EQ(InquireStatus::RecordableTime(gib + 3723 * 1000, 1000.0), "01:02:03");
    EXPECT_EQ(InquireStatus::RecordableTime(gib * 10, 0.0), "00:00:00");  // nothing written yet
    EXPECT_EQ(InquireStatus::RecordableTime(gib + 359999LL * 10, 10.0), "99:59:59");
    EXPECT_EQ(InquireStatus::RecordableTime(gib + 360000LL * 10, 10.0), "99:99:99");
    EXPECT_EQ(InquireStatus::FormatCapacity(gib * 5 / 2), "2.50GB");
    EXPECT_EQ(InquireStatus::FormatCapacity(512LL * 1024 * 1024), "512.00MB");
    EXPECT_EQ(InquireStatus::FormatWriteSpeed(0.0), "0 KB/s");
    EXPECT_EQ(InquireStatus::FormatWriteSpeed(340.0 * 1024), "340 KB/s");
    EXPECT_EQ(InquireStatus::FormatWriteSpeed(1.25 * 1024 * 1024), "1.25 MB/s");
    EXPECT_GT(InquireStatus::GetCapacityInBit("/"), 0);
    // A folder still to be made counts the space of the disk it will be on.
    EXPECT_GT(InquireStatus::GetCapacityInBit("/tmp/no_such_folder/task"), 0);
}

TEST(TickSchedule, ThirtyBeatsASecondWithoutDriftFromWholeMilliseconds)
{
    rviz_plugin::TickSchedule schedule(30);
    const auto start = rviz_plugin::TickSchedule::Clock::now();
    schedule.Start(start);
    auto now = start;
    long long waited = 0;
    for (int tick = 0; tick < 300; ++tick) {
        const auto wait = schedule.NextWait(now);
        waited += wait.count();
        now += wait;
        schedule.Tick();
    }
    // 300 beats take ten seconds, not 300 x 33 ms.
    EXPECT_NEAR(static_cast<double>(waited), 10000.0, 2.0);
    // A late beat is followed at once, never skipped.
    EXPECT_EQ(schedule.NextWait(now + std::chrono::milliseconds(100)).count(), 0);
}

TEST(EncoderType, FallbackRunsFromNvidiaThroughIntelToSoftware)
{
    using rviz_plugin::EncoderType;
    EncoderType type = EncoderType::Nvidia;
    rviz_plugin::RecordDataManager::SwitchEncoder(type);
    EXPECT_EQ(type, EncoderType::Intel);
    rviz_plugin::RecordDataManager::SwitchEncoder(type);
    EXPECT_EQ(type, EncoderType::Software);
    rviz_plugin::RecordDataManager::SwitchEncoder(type);
    EXPECT_EQ(type, EncoderType::Software);
    const auto& sizes = rviz_plugin::RecordDataManager::GetResolutionTable();
    EXPECT_EQ(sizes.at("480P"), std::make_pair(854, 480));
    EXPECT_EQ(sizes.at("720P"), std::make_pair(1280, 720));
    EXPECT_EQ(sizes.at("1080P"), std::make_pair(1920, 1080));
}
