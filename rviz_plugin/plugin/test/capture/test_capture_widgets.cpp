// The capture tool's preview, message box and settings, and the texts of its statuses and export errors.
#include "capture/capture_multisensor_data_tool.h"
#include "capture/center_widget.h"
#include "capture/display_grid_widget.h"
#include "capture/grid_widget.h"
#include "capture/image_view_widget.h"
#include "capture/message_widget.h"
#include "capture/option_widget.h"
#include "capture/preview_center_widget.h"
#include "capture/setting_widget.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>

#include <gtest/gtest.h>

using rviz_plugin::CaptrueStatus;
using Tool = rviz_plugin::CaptureMultisensorDataTool;

TEST(CaptureTexts, StatusesAndExportErrorsInTheToolsWords)
{
    EXPECT_EQ(Tool::CaptureStatusText(CaptrueStatus::Capturing, false), "Data is being captured...");
    EXPECT_EQ(Tool::CaptureStatusText(CaptrueStatus::Success, true),
              "Data capture success. Start data synchronization...");
    EXPECT_EQ(Tool::CaptureStatusText(CaptrueStatus::TimedOut, false),
              "Data capture timed out. Check whether the data publish frequency of the sensor data publisher is "
              "normal.");
    EXPECT_EQ(Tool::CaptureStatusText(CaptrueStatus::TimedOut, true),
              "Data capture timeout. Check whether the data publish frequency of the sensor data publisher is normal.");
    EXPECT_EQ(Tool::CaptureStatusText(CaptrueStatus::SubscriptionError, true),
              "Data subscription error. Check whether the topic name used by the sensor data publisher is correct.");
    EXPECT_EQ(Tool::SaveErrorText(rviz_plugin::FolderError, "/exports/front"),
              "Data export error. Check whether /exports/front is correct.");
    EXPECT_EQ(Tool::SaveErrorText(rviz_plugin::WriteError, ""),
              "Data export error. Check whether the system disk space is sufficient.");
    EXPECT_EQ(Tool::SaveErrorText(rviz_plugin::NoImageData, ""),
              "Image data export error. No image data is available. Try again.");
    EXPECT_EQ(Tool::SaveErrorText(rviz_plugin::NoPointCloudData, ""),
              "Point cloud data export error. No compressed point cloud data is available. Try again.");
    EXPECT_EQ(Tool::SaveErrorText(rviz_plugin::CloudTooLarge, ""),
              "Point cloud data export error. The compressed point cloud data in a single frame exceeds 2863311530 "
              "bytes.");
}

TEST(PreviewCenterWidget, SliderFilterPlayAndTheTopicsToSave)
{
    rviz_plugin::PreviewCenterWidget preview;
    std::vector<std::pair<std::string, int>> asked;
    preview.SetData({"/front_avFrame", "/lidar_points"}, 3, [&asked](const QString& topic, int frame) {
        asked.emplace_back(topic.toStdString(), frame);
        QImage image(32, 18, QImage::Format_RGB32);
        image.fill(frame == 2 ? Qt::red : Qt::blue);
        return image;
    });
    EXPECT_EQ(preview.GetSlider()->maximum(), 2);
    EXPECT_EQ(preview.GetCenter()->GetCounter()->text(), "1");
    preview.GetSlider()->setValue(2);
    EXPECT_EQ(preview.GetCenter()->GetCounter()->text(), "3");
    EXPECT_EQ(asked.back().second, 2);
    const auto views = preview.GetPreview()->GetDisplayGrid()->GetGrid()->GetViews();
    ASSERT_EQ(views.size(), 2);
    EXPECT_EQ(views[0]->findChild<QCheckBox*>()->text(), "/front");  // "_avFrame" stripped
    EXPECT_EQ(views[0]->GetPicture()->pixmap(Qt::ReturnByValue).toImage().pixelColor(10, 5), QColor(Qt::red));

    // The filter shows one topic, "All" every one.
    QComboBox* filter = preview.GetPreview()->GetDisplayGrid()->GetFilter();
    EXPECT_EQ(filter->itemText(0), "All");
    filter->setCurrentIndex(2);
    EXPECT_TRUE(views[0]->isHidden());
    EXPECT_FALSE(views[1]->isHidden());
    filter->setCurrentIndex(0);
    EXPECT_FALSE(views[0]->isHidden());

    // Play steps through the frames; a second press pauses.
    views[0]->GetPlayButton()->click();
    EXPECT_TRUE(preview.IsPlaying());
    views[0]->GetPlayButton()->click();
    EXPECT_FALSE(preview.IsPlaying());

    views[1]->findChild<QCheckBox*>()->setChecked(false);
    QSignalSpy saved(&preview, &rviz_plugin::PreviewCenterWidget::SaveTopics);
    preview.GetCenter()->GetSaveButton()->click();
    ASSERT_EQ(saved.count(), 1);
    EXPECT_EQ(saved.first().at(0).value<QVector<QString>>(), QVector<QString>({"/front_avFrame"}));
}

TEST(CaptureWidgets, MessageProgressSettingsAndOptions)
{
    rviz_plugin::MessageWidget message;
    message.ShowMessage("Exporting data...");
    message.SetCount(2, 5);
    EXPECT_EQ(message.GetProgress(), "(2/5)");
    message.SetPercent(40);
    EXPECT_EQ(message.GetProgress(), "(40%)");
    EXPECT_TRUE(message.GetOpenButton()->isHidden());
    message.SetFolder("/exports/2026");
    EXPECT_FALSE(message.GetOpenButton()->isHidden());

    rviz_plugin::SettingWidget settings;
    settings.SetValues(250, "/exports");
    EXPECT_EQ(settings.GetCaptureNumber(), 100);
    settings.SetValues(0, "/exports");
    EXPECT_EQ(settings.GetCaptureNumber(), 1);
    EXPECT_EQ(settings.GetExportPath(), "/exports");

    rviz_plugin::OptionWidget option("/lidar_points", "sensor_msgs/PointCloud2");
    QSignalSpy toggled(&option, &rviz_plugin::OptionWidget::Toggled);
    option.SetChecked(true);
    EXPECT_TRUE(option.IsChecked());
    EXPECT_EQ(toggled.count(), 1);
    EXPECT_EQ(rviz_plugin::ImageViewWidget::DisplayName("/rig/front_avFrame"), "/rig/front");
    EXPECT_EQ(rviz_plugin::ImageViewWidget::DisplayName("/lidar_points"), "/lidar_points");
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
