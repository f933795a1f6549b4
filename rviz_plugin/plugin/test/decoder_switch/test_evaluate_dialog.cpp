// The decoding evaluation dialog on a virtual display: a real, shortened search on 1080p H.265 made
// by the test, the texts of unsupported decoders and of a missing stream file, and the history file.
#include "../support/processes.h"
#include "../support/temp_dir.h"
#include "decoder_switch/evaluate_dialog.h"
#include "decoder_switch/video_stream_loader.h"
#include "simulated_car/h265_encoder.h"

#include <gtest/gtest.h>

#include <QApplication>

#include <filesystem>
#include <fstream>
#include <iostream>

namespace {

TEST(EvaluateDialog, ShortSearchOnThisMachineReportsAChannelCount)
{
    test_support::TempDir root;
    const std::filesystem::path data = root.Path() / "rviz_plugin/share/rviz_plugin/media/video_data";
    std::filesystem::create_directories(data);
    rviz_plugin::VideoStreamLoader::Stream stream;
    stream.width = 1920;
    stream.height = 1080;
    stream.fps = 30;
    stream.frames = simulated_car::EncodeSceneStream(1920, 1080, 30, 30, 30);
    ASSERT_EQ(stream.frames.size(), 30U);
    const std::vector<uint8_t> package = rviz_plugin::VideoStreamLoader::MakePackage(stream);
    std::ofstream(data / "1080p_30hz_data.h265", std::ios::binary)
        .write(reinterpret_cast<const char*>(package.data()), static_cast<std::streamsize>(package.size()));

    rviz_plugin::EvaluateSettings settings;
    settings.roundDuration = std::chrono::milliseconds(1500);
    settings.cpuSamplePeriod = std::chrono::milliseconds(250);
    settings.upperNum = 3;
    // The root as orsaPath gives it, with a trailing "/".
    rviz_plugin::EvaluateDialog dialog(nullptr, settings, root.Path().string() + "/");
    dialog.show();
    rviz_plugin::EvaluateSelectWidget* select = dialog.GetSelectWidget();
    EXPECT_EQ(dialog.windowTitle(), "Evaluate Decoding Performance");
    EXPECT_EQ(select->GetResultText(0, 0), "Not Evaluated");
    EXPECT_EQ(select->GetResultText(1, 0), "Not Supported");
    EXPECT_EQ(select->GetResultText(2, 1), "Not Supported");

    dialog.OnStartClicked();
    EXPECT_EQ(dialog.GetEvaluateWidget()->GetText(), "Select at least one evaluation method.");

    select->SetChecked(0, 0, true);
    select->SetChecked(0, 1, true);
    select->SetChecked(1, 0, true);  // not supported: stays unchecked
    dialog.OnStartClicked();
    EXPECT_TRUE(dialog.GetManager()->IsEvaluating());
    EXPECT_TRUE(dialog.GetEvaluateWidget()->GetText().endsWith("s.")) << dialog.GetEvaluateWidget()->GetText().toStdString();
    const bool finished = test_support::WaitFor(
        [&]() {
            QApplication::processEvents();
            return !dialog.GetManager()->IsEvaluating();
        },
        std::chrono::seconds(60));
    ASSERT_TRUE(finished);
    const QString result = select->GetResultText(0, 0);
    EXPECT_TRUE(result.endsWith(" channels")) << result.toStdString();
    std::cout << "[ figure ] software 1080p, rounds of 1.5 s up to 3 channels: " << result.toStdString() << std::endl;
    EXPECT_EQ(select->GetResultText(0, 1), "Not Evaluated");
    EXPECT_EQ(dialog.GetEvaluateWidget()->GetText(),
              "Failed to read video data. Ensure that 4k_30hz_data.h265 files exist in ./rviz_plugin/../video_data.");
    const std::string record = test_support::ReadFile(root / "config/decode_evaluate_record.json");
    EXPECT_NE(record.find("\"video_format\": \"1080p | 30 fps\""), std::string::npos) << record;
    EXPECT_NE(record.find("\"number_of_decode_channels\": " + result.section(' ', 0, 0).toStdString()),
              std::string::npos)
        << record;

    std::filesystem::create_directories(RVIZ_PLUGIN_ARTIFACT_DIR);
    dialog.adjustSize();
    QApplication::processEvents();
    EXPECT_TRUE(dialog.grab().save(RVIZ_PLUGIN_ARTIFACT_DIR "/decode_evaluation_dialog.png"));

    // A new dialog shows the stored result.
    rviz_plugin::EvaluateDialog again(nullptr, settings, root.Path().string());
    EXPECT_EQ(again.GetSelectWidget()->GetResultText(0, 0), result);
    EXPECT_TRUE(again.GetManager()->HasDecodeHistoryRecord());
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    test_support::TempDir work;
    test_support::VirtualDisplay xserver(work.Path().string());
    setenv("DISPLAY", xserver.Display().c_str(), 1);
    QApplication app(argc, argv);
    return RUN_ALL_TESTS();
}
