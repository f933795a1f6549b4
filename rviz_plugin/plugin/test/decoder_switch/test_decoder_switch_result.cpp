// The report of a decoder switch (counts of switched and failed decoders, the per-decoder lines) and
// when the switch asks before it sends anything.
#include "decoder_switch/decoder_switch.h"
#include "decoder_switch/decoder_switch_result.h"

#include <custom/DecoderInfo.h>
#include <gtest/gtest.h>

using rviz_plugin::DecoderSwitchResult;

TEST(DecoderSwitchResult, NoDecoderIsCompleteAtOnce)
{
    DecoderSwitchResult result;
    result.Start(custom::DecoderInfo::SOFTWARE_DECODING_MODE, 0);
    EXPECT_TRUE(result.IsComplete());
    EXPECT_EQ(result.SummaryText(), "0 KORA Vision decoders have been successfully switched to Software decoders.");
    EXPECT_TRUE(result.DetailLines().isEmpty());
}

TEST(DecoderSwitchResult, FailuresCarryTheDecodersCodeAndText)
{
    DecoderSwitchResult result;
    result.Start(custom::DecoderInfo::NVIDIA_HARDWARE_DECODING_MODE, 3);
    EXPECT_FALSE(result.AddAnswer("camera_a", custom::DecoderInfo::INIT_NVIDIA_HARDWARE_DECODER_SUCCESS));
    EXPECT_FALSE(result.AddAnswer("camera_b", custom::DecoderInfo::INIT_NVIDIA_HARDWARE_DECODER_FAILURE));
    // A repeated answer of one topic counts once.
    EXPECT_FALSE(result.AddAnswer("camera_b", custom::DecoderInfo::INIT_NVIDIA_HARDWARE_DECODER_FAILURE));
    EXPECT_EQ(result.SwitchedCount(), 1);
    EXPECT_EQ(result.FailedCount(), 1);
    EXPECT_EQ(result.SummaryText(), "1 KORA Vision decoders have been successfully switched to NVIDIA decoders. 1 "
                                    "KORA Vision decoders failed to be switched. ");
    const QStringList lines = result.DetailLines();
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0], "The decoder of KORA Vision <b>\"camera_a\"</b> has been switched to NVIDIA");
    EXPECT_TRUE(lines[1].startsWith("The decoder of KORA Vision <b>\"camera_b\"</b>  failed to be switched to a "
                                    "NVIDIA decoder.(error code:-3 Failed to create the NVIDIA hardware decoder."))
        << lines[1].toStdString();
}

TEST(DecoderSwitchResult, SilentDecodersAreListedAsNoAnswer)
{
    DecoderSwitchResult result;
    result.Start(custom::DecoderInfo::SOFTWARE_DECODING_MODE, 3);
    result.AddAnswer("camera_a", custom::DecoderInfo::INIT_SOFTWARE_DECODER_SUCCESS);
    result.AddMissing({"camera_a", "camera_c"});
    EXPECT_EQ(result.FailedCount(), 2);
    const QStringList lines = result.DetailLines();
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines[1].contains("<b>\"camera_c\"</b>") && lines[1].endsWith("(error code:0 no answer)"));
    EXPECT_TRUE(lines[2].endsWith("(error code:0 no answer)"));
}

TEST(DecoderSwitchWarning, OnlySoftwareOnABusyProcessorOrAnUnknownLoadAsksFirst)
{
    using rviz_plugin::DecoderSwitch;
    QString warning;
    for (int mode : {custom::DecoderInfo::INTEL_HARDWARE_DECODING_MODE,
                     custom::DecoderInfo::NVIDIA_HARDWARE_DECODING_MODE}) {
        EXPECT_FALSE(DecoderSwitch::IsNeededToDisplayWarning(mode, false, 0.99, 0.5, warning));
    }
    EXPECT_FALSE(DecoderSwitch::IsNeededToDisplayWarning(custom::DecoderInfo::SOFTWARE_DECODING_MODE, false, 0.5, 0.5,
                                                          warning));
    ASSERT_TRUE(DecoderSwitch::IsNeededToDisplayWarning(custom::DecoderInfo::SOFTWARE_DECODING_MODE, false, 0.51, 0.5,
                                                         warning));
    EXPECT_EQ(warning, "The CPU usage is high. Switching the decoding mode of all KORA Vision decoders from hardware "
                       "to software will increase the CPU usage and frame freezing of the Orsa interface.\nAre you "
                       "sure you want to proceed?");
    ASSERT_TRUE(DecoderSwitch::IsNeededToDisplayWarning(custom::DecoderInfo::NVIDIA_HARDWARE_DECODING_MODE, true, 0.0,
                                                         0.5, warning));
    EXPECT_EQ(warning, "The CPU usage cannot be obtained. Switching may cause frame freezing.\nAre you sure you want "
                       "to proceed?");
}
