// The vision display inside a real rviz frame (ROS master on loopback, virtual X display):
// items created and deleted through the wall, names renumbered, save and load, paging and pop-out.
#include "../support/processes.h"
#include "../support/ros_test_main.h"
#include "../support/rviz_frame_main.h"
#include "../support/temp_dir.h"
#include "foundation/rviz_helpers.h"
#include "kora_vision/associated_widget.h"
#include "decoder_switch/decoder_switch.h"
#include "decoder_switch/evaluate_entrance_widget.h"
#include "kora_vision/base_classifications.h"
#include "kora_vision/decoder_property.h"
#include "kora_vision/base_setting_property.h"
#include "frames/yuv_texture_data.h"
#include "kora_vision/image_property.h"
#include "kora_vision/image_render.h"
#include "kora_vision/image_texture.h"
#include "kora_vision/non_interactive_render_panel.h"
#include "kora_vision/kora_vision_display.h"
#include "kora_vision/kora_vision_property.h"
#include "kora_vision/topic_combobox.h"
#include "kora_vision/total_widget.h"
#include "kora_vision/video_control_widget.h"
#include "kora_vision/videos_widget.h"
#include "kora_vision/vision_property.h"
#include "overlay/ipp_node.h"
#include "topic_rename/rename_table_model.h"
#include "topic_rename/topic_rename_dialog.h"
#include "overlay/ipp_parameters.h"
#include "widgets/title_bar_base.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

#include <OgreHardwarePixelBuffer.h>
#include <OgreRenderTargetListener.h>
#include <OgreRenderWindow.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyleOptionViewItem>

#include <rviz/config.h>
#include <rviz/properties/bool_property.h>
#include <rviz/properties/color_property.h>
#include <rviz/properties/float_property.h>
#include <rviz/properties/string_property.h>
#include <rviz/properties/display_group_visibility_property.h>
#include <rviz/properties/ros_topic_property.h>
#include <rviz/properties/status_list.h>
#include <rviz/properties/int_property.h>
#include <rviz/tool.h>
#include <custom/Video.h>
#include <ros/master.h>

#include <fstream>
#include <rviz/tool_manager.h>
#include <rviz/panel_dock_widget.h>
#include <rviz/visualization_frame.h>
#include <rviz/visualization_manager.h>
#include <ros/ros.h>

#include <array>
#include <cstring>
#include <filesystem>
#include <functional>
#include <iostream>
#include <limits>
#include <memory>

extern "C" {
#include <libavutil/frame.h>
}

using rviz_plugin::KoraVisionDisplay;
using test_support::Console;
using rviz_plugin::VideosWidget;

namespace {

rviz::VisualizationFrame* frame = nullptr;

class KoraVisionDisplayTest : public testing::Test {
protected:
    void SetUp() override
    {
        display = new KoraVisionDisplay();
        frame->getManager()->addDisplay(display, true);
        display->setName("KoraVision");
        associated = qobject_cast<rviz_plugin::AssociatedWidget*>(display->getAssociatedWidget());
        ASSERT_NE(associated, nullptr);
        total = associated->GetTotalWidget();
        videos = total->GetVideosWidget();
    }
    void TearDown() override
    {
        delete display;
        QApplication::processEvents();
    }

    QStringList Names() const
    {
        QStringList names;
        for (int i = 0; i < display->GetVideoCount(); ++i) {
            names << display->GetVisionProperty(i)->GetVisionName();
        }
        return names;
    }
    // As a user does: type the topic into the item's box, then press Enter.
    static void TypeTopic(rviz_plugin::VideoControlWidget* item, const QString& topic)
    {
        QLineEdit* edit = item->GetTopicCombobox()->lineEdit();
        edit->clear();
        for (const QChar& character : topic) {
            edit->insert(character);
        }
        Q_EMIT edit->editingFinished();
    }
    void AddItems(int count)
    {
        for (int i = 0; i < count; ++i) {
            ASSERT_TRUE(associated->AddVideoWidget());
        }
    }

    KoraVisionDisplay* display = nullptr;
    rviz_plugin::AssociatedWidget* associated = nullptr;
    rviz_plugin::TotalWidget* total = nullptr;
    VideosWidget* videos = nullptr;
};

TEST_F(KoraVisionDisplayTest, ItemsAreNumberedInWallOrderAndRenumberedOnDelete)
{
    AddItems(3);
    EXPECT_EQ(Names(), (QStringList{"(1)No Image Topic", "(2)No Image Topic", "(3)No Image Topic"}));
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(display->childAt(i), display->GetVisionProperty(i));
    }
    EXPECT_EQ(total->GetCountText(), "Total: 3");

    TypeTopic(videos->GetItems().at(1), "/camera/left");
    TypeTopic(videos->GetItems().at(2), "/camera/right");
    EXPECT_EQ(Names(), (QStringList{"(1)No Image Topic", "(2)/camera/left", "(3)/camera/right"}));
    EXPECT_EQ(display->GetVisionProperty(2)->getName(), "(3)/camera/right");

    videos->GetItems().at(1)->SubItem();
    EXPECT_EQ(Names(), (QStringList{"(1)No Image Topic", "(2)/camera/right"}));
    EXPECT_EQ(videos->GetVideoNumber(), 2);
    EXPECT_EQ(total->GetCountText(), "Total: 2");

    TypeTopic(videos->GetItems().at(1), "");
    EXPECT_EQ(Names().at(1), "(2)No Image Topic");
}

TEST_F(KoraVisionDisplayTest, TypedTopicAppliesWhenTypingEndsNotPerKeyPress)
{
    AddItems(1);
    rviz_plugin::VideoControlWidget* item = videos->GetItems().at(0);
    QLineEdit* edit = item->GetTopicCombobox()->lineEdit();
    for (const QChar& character : QString("/camera/front")) {
        edit->insert(character);
        EXPECT_EQ(Names().at(0), "(1)No Image Topic");
    }
    Q_EMIT edit->editingFinished();
    EXPECT_EQ(Names().at(0), "(1)/camera/front");
    // The tree's topic shows in the box without applying anything twice.
    display->GetVisionProperty(0)->GetVisionProperty()->GetImageProperty()->GetTopicProperty()->setString("/camera/rear");
    EXPECT_EQ(item->GetTopicCombobox()->currentText(), "/camera/rear");
    EXPECT_EQ(Names().at(0), "(1)/camera/rear");
}

// A copy of an item's settings as the overlay thread would take it.
rviz_plugin::IppConfig ConfigOf(rviz_plugin::KoraVisionProperty* item)
{
    std::lock_guard<std::mutex> lock(item->GetIppParameters()->mutex);
    return item->GetIppParameters()->config;
}

// The child of that name, or null (rviz's subProp answers a stand-in property when there is none).
rviz::Property* Child(rviz::Property* parent, const QString& name)
{
    for (int i = 0; i < parent->numChildren(); ++i) {
        if (parent->childAt(i)->getName() == name) {
            return parent->childAt(i);
        }
    }
    return nullptr;
}

TEST_F(KoraVisionDisplayTest, ClassificationRowsWriteTheSettingsTheDrawingReads)
{
    AddItems(1);
    rviz_plugin::KoraVisionProperty* item = display->GetVisionProperty(0);
    rviz_plugin::BaseSettingProperty* objects = item->GetVisionProperty()->GetObjectSetting();
    ASSERT_EQ(objects->GetRowCount(), 8);
    EXPECT_EQ(objects->getViewData(0, Qt::DisplayRole).toString(), "Classification Setting (8)");
    EXPECT_EQ(objects->getName(), "Classification Setting");
    rviz_plugin::BaseClassifications* car = objects->GetRow(5);
    EXPECT_EQ(car->getValue().toString(), "5, car");
    EXPECT_EQ(static_cast<rviz::ColorProperty*>(Child(car, "Color"))->getColor(), QColor(243, 142, 0));
    EXPECT_EQ(item->GetVisionProperty()->GetTrafficLightSetting()->GetRowCount(), 5);
    EXPECT_EQ(item->GetVisionProperty()->GetRoadLineSetting()->GetRow(1)->getValue().toString(), "1, solid, 2");
    EXPECT_EQ(item->GetVisionProperty()->GetSegmentationSetting()->GetRowCount(), 8);

    // A colour changed in the tree is in the settings, with the changed flag, for the next frame.
    item->GetIppParameters()->configChanged = false;
    static_cast<rviz::ColorProperty*>(Child(car, "Color"))->setColor(QColor(255, 0, 0));
    EXPECT_TRUE(item->GetIppParameters()->configChanged);
    const auto red = std::array<uint8_t, 3>{{255, 0, 0}};
    EXPECT_EQ(ConfigOf(item).objectClassifications.at(5).color, red);

    // A typed summary moves the row to another value; one that does not parse leaves it alone.
    car->setValue("9, sedan");
    EXPECT_EQ(car->getValue().toString(), "9, sedan");
    EXPECT_EQ(ConfigOf(item).objectClassifications.count(5), 0U);
    EXPECT_EQ(ConfigOf(item).objectClassifications.at(9).text, "sedan");
    car->setValue("nine, sedan");
    EXPECT_EQ(car->getValue().toString(), "9, sedan");
    static_cast<rviz::StringProperty*>(Child(car, "Text"))->setString("a very long classification name");
    EXPECT_EQ(ConfigOf(item).objectClassifications.at(9).text, "a very long classifi...");

    // Road line style and segmentation opacity reach their entries too.
    rviz_plugin::BaseClassifications* line = item->GetVisionProperty()->GetRoadLineSetting()->GetRow(0);
    line->setValue("0, dash, 5");
    EXPECT_FALSE(ConfigOf(item).imageLineClassifications.at(0).isSolid);
    EXPECT_EQ(ConfigOf(item).imageLineClassifications.at(0).lineThickness, 5);
    rviz_plugin::BaseClassifications* segment = item->GetVisionProperty()->GetSegmentationSetting()->GetRow(2);
    static_cast<rviz::FloatProperty*>(Child(segment, "Alpha"))->setFloat(1.0F);
    EXPECT_EQ(ConfigOf(item).semanticSegmentationClassifications.at(2).alpha, 255);

    // Display effects.
    rviz::Property* effects = Child(item->GetVisionProperty()->GetObjectProperty(), "Display Effects");
    static_cast<rviz::FloatProperty*>(Child(effects, "Text Scale"))->setFloat(1.5F);
    static_cast<rviz::BoolProperty*>(Child(effects, "Track ID"))->setBool(true);
    EXPECT_FLOAT_EQ(ConfigOf(item).objectDisplay.textScale, 1.5F);
    EXPECT_TRUE(ConfigOf(item).objectDisplay.showTrackId);
    EXPECT_EQ(Child(Child(item->GetVisionProperty()->GetImageRectangleProperty(), "Display Effects"), "Track ID"),
              nullptr);
    rviz::Property* freespace = Child(item->GetVisionProperty()->GetImageFreespaceProperty(), "Display Effects");
    static_cast<rviz::FloatProperty*>(Child(freespace, "Freespace Alpha"))->setFloat(1.0F);
    EXPECT_EQ(ConfigOf(item).freespaceColor, (std::array<uint8_t, 4>{{0, 0, 255, 255}}));
    rviz::Property* markers = Child(item->GetVisionProperty()->GetMarkerArrayProperty(), "Display Effects");
    static_cast<rviz::IntProperty*>(Child(markers, "Text Thickness"))->setInt(4);
    EXPECT_EQ(ConfigOf(item).markerThickness, 4);
}

TEST_F(KoraVisionDisplayTest, RowsAreAddedUpToTheLimitAndDeleted)
{
    AddItems(1);
    rviz_plugin::KoraVisionProperty* item = display->GetVisionProperty(0);
    rviz_plugin::BaseSettingProperty* lights = item->GetVisionProperty()->GetTrafficLightSetting();
    lights->OnAddButtonClick();
    EXPECT_EQ(lights->GetRowCount(), 6);
    EXPECT_EQ(lights->GetRow(5)->getValue().toString(), "255, not_configured");
    EXPECT_EQ(ConfigOf(item).imageRectangleClassifications.at(255).text, "not_configured");
    // Rows come from the Add button of the value cell.
    std::unique_ptr<QWidget> editor(lights->createEditor(nullptr, QStyleOptionViewItem()));
    auto* add = qobject_cast<QPushButton*>(editor.get());
    ASSERT_NE(add, nullptr);
    add->click();
    EXPECT_EQ(lights->GetRowCount(), 7);
    while (lights->GetRowCount() < rviz_plugin::BaseSettingProperty::maxRowCount) {
        lights->OnAddButtonClick();
    }
    EXPECT_TRUE(add->isEnabled() || lights->GetRowCount() == 256);
    lights->OnAddButtonClick();
    EXPECT_EQ(lights->GetRowCount(), 256);
    EXPECT_FALSE(add->isEnabled());

    // Each row's editor has a delete button; the row goes once the editor has let go.
    while (lights->GetRowCount() > 0) {
        std::unique_ptr<QWidget> rowEditor(lights->GetRow(0)->createEditor(nullptr, QStyleOptionViewItem()));
        auto* remove = rowEditor->findChild<QPushButton*>("ClassificationEditor_deleteButton");
        ASSERT_NE(remove, nullptr);
        const int before = lights->GetRowCount();
        remove->click();
        QApplication::processEvents();
        ASSERT_EQ(lights->GetRowCount(), before - 1);
    }
    EXPECT_EQ(lights->getViewData(0, Qt::DisplayRole).toString(), "Classification Setting (0)");
    EXPECT_TRUE(ConfigOf(item).imageRectangleClassifications.empty());
    EXPECT_TRUE(add->isEnabled());
}

TEST_F(KoraVisionDisplayTest, SavedRowsComeBackOnLoad)
{
    AddItems(1);
    rviz_plugin::KoraVisionProperty* item = display->GetVisionProperty(0);
    rviz_plugin::BaseSettingProperty* objects = item->GetVisionProperty()->GetObjectSetting();
    static_cast<rviz::ColorProperty*>(Child(objects->GetRow(5), "Color"))->setColor(QColor(255, 0, 0));
    objects->OnAddButtonClick();
    objects->GetRow(8)->setValue("42, tram");
    rviz::Config config;
    display->save(config);
    const rviz::Config saved = config.mapGetChild("(1)No Image Topic")
                                   .mapGetChild("Objects")
                                   .mapGetChild("Display Effects")
                                   .mapGetChild("Classification Setting");
    ASSERT_TRUE(saved.isValid());
    int count = 0;
    EXPECT_TRUE(saved.mapGetInt("Value", &count));
    EXPECT_EQ(count, 9);

    delete display;
    display = new KoraVisionDisplay();
    frame->getManager()->addDisplay(display, true);
    display->load(config);
    ASSERT_EQ(display->GetVideoCount(), 1);
    item = display->GetVisionProperty(0);
    objects = item->GetVisionProperty()->GetObjectSetting();
    ASSERT_EQ(objects->GetRowCount(), 9);
    EXPECT_EQ(objects->GetRow(8)->getValue().toString(), "42, tram");
    EXPECT_EQ(static_cast<rviz::ColorProperty*>(Child(objects->GetRow(5), "Color"))->getColor(), QColor(255, 0, 0));
    const rviz_plugin::IppConfig loaded = ConfigOf(item);
    EXPECT_EQ(loaded.objectClassifications.size(), 9U);
    EXPECT_EQ(loaded.objectClassifications.at(5).color, (std::array<uint8_t, 3>{{255, 0, 0}}));
    EXPECT_EQ(loaded.objectClassifications.at(42).text, "tram");
}

// The text of a status entry of a list, or "" when there is none.
QString StatusText(rviz::Property* list, const QString& key)
{
    for (int i = 0; i < list->numChildren(); ++i) {
        if (list->childAt(i)->getName() == key) {
            return list->childAt(i)->getValue().toString();
        }
    }
    return QString();
}

class RunningStatusInRviz : public KoraVisionDisplayTest, public testing::WithParamInterface<int> {};

// The simulated car's camera and objects: in step they draw normally; objects stamped 50 ms off never
// match a picture.
TEST_P(RunningStatusInRviz, VerdictFollowsTheStampsOfTheSimulatedCar)
{
    const int offset = GetParam();
    test_support::Process car({RVIZ_PLUGIN_SIMULATED_CAR, "--cameras", "1", "--width", "320", "--height", "180",
                               "--fps", "15", "--perception-offset-ms", std::to_string(offset)},
                              "/dev/null");
    AddItems(1);
    rviz_plugin::KoraVisionProperty* item = display->GetVisionProperty(0);
    rviz_plugin::VisionProperty* tree = item->GetVisionProperty();
    tree->GetImageProperty()->GetTopicProperty()->setString("/camera_front");
    tree->GetObjectProperty()->GetTopicProperty()->setString("/camera_front/objects");
    tree->GetObjectProperty()->setBool(true);
    const QString expected = offset == 0 ? "Running, Everything is normal."
                                         : "The timestamps of the received data entries are inconsistent, and the "
                                           "visualized perception data cannot be drawn on the image. ";
    QString text;
    const bool reached = test_support::WaitFor(
        [&]() {
            QApplication::processEvents();
            text = StatusText(tree->GetGlobalStatusList(), "Running Status");
            return text == expected;
        },
        std::chrono::seconds(30));
    EXPECT_TRUE(reached) << text.toStdString();
    if (offset == 0) {
        EXPECT_NE(StatusText(tree->GetImageProperty()->GetStatusList(), "Frequency"), "0 Hz");
        EXPECT_TRUE(StatusText(tree->GetGlobalStatusList(), "Processing Time").endsWith(" ms"));
    } else {
        // An Error verdict colours the item and the display.
        EXPECT_EQ(display->getViewData(0, Qt::ForegroundRole).value<QColor>(),
                  rviz::StatusProperty::statusColor(rviz::StatusProperty::Error));
    }
    car.Stop();
}

INSTANTIATE_TEST_SUITE_P(InStepAndOffset, RunningStatusInRviz, testing::Values(0, 50));

// Pumps the event loop, objects left to deleteLater included, until done, or false after the timeout.
bool PumpUntil(const std::function<bool()>& done, std::chrono::milliseconds timeout)
{
    return test_support::WaitFor(
        [&]() {
            QApplication::processEvents();
            QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return done();
        },
        timeout);
}

class DecoderSwitchInRviz : public KoraVisionDisplayTest {
protected:
    void SetUp() override
    {
        KoraVisionDisplayTest::SetUp();
        tool = std::make_unique<rviz_plugin::DecoderSwitch>();
        tool->initialize(frame->getManager());
    }
    void TearDown() override
    {
        tool.reset();
        KoraVisionDisplayTest::TearDown();
    }

    // Runs the tool once: chooses mode in its first dialog, accepts the processor warning if one
    // comes, and returns the result dialog's summary ("" when none came). stall is the longest time
    // the event loop did not run meanwhile.
    QString Switch(int mode, std::chrono::milliseconds& stall)
    {
        tool->activate();
        rviz_plugin::DecoderTypeSelectDlg* select = tool->GetSelectDialog();
        EXPECT_NE(select, nullptr);
        if (select == nullptr) {
            return QString();
        }
        EXPECT_EQ(select->windowTitle(), "Select Decoder");
        // Let the count of decoders come back before choosing, as a user's click would.
        PumpUntil([]() { return false; }, std::chrono::milliseconds(500));
        select->SelectMode(mode);
        select->accept();
        if (auto* alarm = tool->GetAlarmDialog()) {
            EXPECT_EQ(alarm->windowTitle(), "Switching Decoder");
            alarm->accept();
        }
        stall = std::chrono::milliseconds(0);
        auto last = std::chrono::steady_clock::now();
        const bool shown = PumpUntil(
            [&]() {
                const auto now = std::chrono::steady_clock::now();
                stall = std::max(stall, std::chrono::duration_cast<std::chrono::milliseconds>(now - last));
                last = now;
                return tool->GetDetailDialog() != nullptr;
            },
            std::chrono::seconds(8));
        if (!shown) {
            return QString();
        }
        auto* summary = tool->GetDetailDialog()->findChild<QLabel*>("DecoderSwitch_summaryLabel");
        return summary == nullptr ? QString() : summary->text();
    }

    std::unique_ptr<rviz_plugin::DecoderSwitch> tool;
};

TEST_F(DecoderSwitchInRviz, UnknownSavedSelectionFallsBackToSoftware)
{
    const auto loaded = [](const QVariant& saved) {
        rviz_plugin::DecoderSwitch fresh;
        fresh.initialize(frame->getManager());
        rviz::Config config;
        config.mapSetValue("Decoder Selection", saved);
        fresh.load(config);
        rviz::Property* selection = Child(fresh.getPropertyContainer(), "Decoder Selection");
        return selection == nullptr ? QString() : selection->getValue().toString();
    };
    EXPECT_EQ(loaded("NVIDIA"), "NVIDIA");
    for (const QVariant& absurd : {QVariant("Quantum"), QVariant(std::nan("")), QVariant(-5)}) {
        EXPECT_EQ(loaded(absurd), "Software") << absurd.toString().toStdString();
    }
}

TEST_F(DecoderSwitchInRviz, WithoutDecodersTheResultComesAtOnce)
{
    std::chrono::milliseconds stall{0};
    EXPECT_EQ(Switch(custom::DecoderInfo::SOFTWARE_DECODING_MODE, stall),
              "0 KORA Vision decoders have been successfully switched to Software decoders.");
}

// The simulated car's front camera: NVIDIA fails here with its code and text, and the video comes
// back after switching to software.
TEST_F(DecoderSwitchInRviz, HardwareFailsHereAndSoftwareBringsTheVideoBack)
{
    test_support::Process car({RVIZ_PLUGIN_SIMULATED_CAR, "--cameras", "1", "--width", "320", "--height", "180",
                               "--fps", "15"},
                              "/dev/null");
    AddItems(1);
    rviz_plugin::KoraVisionProperty* item = display->GetVisionProperty(0);
    rviz_plugin::ImageProperty* image = item->GetVisionProperty()->GetImageProperty();
    image->GetTopicProperty()->setString("/camera_front");
    const auto frequency = [image]() { return StatusText(image->GetStatusList(), "Frequency"); };
    ASSERT_TRUE(PumpUntil([&]() { return frequency() != "0 Hz" && !frequency().isEmpty(); }, std::chrono::seconds(20)));

    std::chrono::milliseconds stall{0};
    const QString failed = Switch(custom::DecoderInfo::NVIDIA_HARDWARE_DECODING_MODE, stall);
    EXPECT_EQ(failed, "0 KORA Vision decoders have been successfully switched to NVIDIA decoders. 1 KORA Vision "
                      "decoders failed to be switched. ");
    EXPECT_LT(stall.count(), 250) << "event loop stalled";
    std::cout << "[ figure ] GUI stall during a switch of 1 decoder to NVIDIA: " << stall.count() << " ms" << std::endl;
    auto* detail = tool->GetDetailDialog()->findChild<QLabel*>("DecoderSwitch_detailLabel");
    ASSERT_NE(detail, nullptr);
    EXPECT_TRUE(detail->text().contains("(error code:-3 Failed to create the NVIDIA hardware decoder."))
        << detail->text().toStdString();
    // The status arrives as a queued call; under load it may come an event-loop turn after the dialog.
    EXPECT_TRUE(PumpUntil(
        [&]() {
            return StatusText(image->GetStatusList(), "Decoder Status")
                .startsWith(" Failed to create the NVIDIA hardware decoder.");
        },
        std::chrono::seconds(2)))
        << StatusText(image->GetStatusList(), "Decoder Status").toStdString();
    EXPECT_EQ(image->GetDecoderProperty()->GetMode(), custom::DecoderInfo::NVIDIA_HARDWARE_DECODING_MODE);
    ASSERT_TRUE(PumpUntil([&]() { return frequency() == "0 Hz"; }, std::chrono::seconds(5)));
    tool->GetDetailDialog()->accept();
    PumpUntil([this]() { return tool->GetDetailDialog() == nullptr; }, std::chrono::seconds(2));

    const QString switched = Switch(custom::DecoderInfo::SOFTWARE_DECODING_MODE, stall);
    EXPECT_EQ(switched, "1 KORA Vision decoders have been successfully switched to Software decoders.");
    std::cout << "[ figure ] GUI stall during a switch of 1 decoder to software: " << stall.count() << " ms"
              << std::endl;
    ASSERT_NE(tool->GetDetailDialog(), nullptr);
    QPushButton* show = tool->GetDetailDialog()->findChild<QPushButton*>("DecoderSwitch_detailButton");
    ASSERT_NE(show, nullptr);
    tool->GetDetailDialog()->show();
    show->click();
    EXPECT_EQ(show->text(), "Hide Detail");
    EXPECT_TRUE(tool->GetDetailDialog()->IsDetailShown());
    QApplication::processEvents();
    std::filesystem::create_directories(RVIZ_PLUGIN_ARTIFACT_DIR);
    tool->GetDetailDialog()->grab().save(RVIZ_PLUGIN_ARTIFACT_DIR "/decoder_switch_result.png");
    EXPECT_TRUE(PumpUntil(
        [&]() {
            return StatusText(image->GetStatusList(), "Decoder Status") == " A software decoder is successfully created.";
        },
        std::chrono::seconds(2)));
    EXPECT_TRUE(PumpUntil([&]() { return frequency() != "0 Hz"; }, std::chrono::seconds(10))) << "no video after";
    car.Stop();
}

// A decoded picture of width x height (0 x 0: a frame without a picture).
std::shared_ptr<rviz_plugin::YuvTextureData> Picture(int width, int height)
{
    auto picture = std::make_shared<rviz_plugin::YuvTextureData>();
    if (width > 0) {
        AVFrame* frame = av_frame_alloc();
        frame->width = width;
        frame->height = height;
        frame->format = AV_PIX_FMT_YUV420P;
        EXPECT_EQ(av_frame_get_buffer(frame, 0), 0);
        picture->SetFrameData(frame);
        av_frame_free(&frame);
    }
    return picture;
}

TEST_F(KoraVisionDisplayTest, RendererKeepsTheLastGoodPictureAndCropsAsSet)
{
    AddItems(1);
    rviz_plugin::KoraVisionProperty* item = display->GetVisionProperty(0);
    rviz_plugin::ImageRender* render = item->GetImageRender();
    ASSERT_TRUE(PumpUntil([render]() { return render->GetRenderPanel()->isVisible(); }, std::chrono::seconds(5)));
    const auto idle = render->GetImageTextureSize();
    ASSERT_GT(idle.first, 0U);

    // A 16:9 picture, scaled down to the window if the window is smaller.
    render->UpdateImageTexture(Picture(640, 360), nullptr);
    render->UpdateImageDisplay();
    const auto shown = render->GetImageTextureSize();
    EXPECT_NE(shown, idle);
    EXPECT_NEAR(static_cast<double>(shown.first) / shown.second, 16.0 / 9.0, 0.1);
    EXPECT_TRUE(render->HasShownFrame());

    // A frame without a picture leaves the last good one on the quad.
    Console([&]() {
        render->UpdateImageTexture(Picture(0, 0), nullptr);
        render->UpdateImageDisplay();
    });
    EXPECT_EQ(render->GetImageTextureSize(), shown);

    // The cropping branch reaches the renderer: 40 % off every edge keeps the aspect.
    rviz_plugin::ImageProperty* image = item->GetVisionProperty()->GetImageProperty();
    for (const char* edge : {"Top(%)", "Down(%)", "Left(%)", "Right(%)"}) {
        static_cast<rviz::IntProperty*>(Child(image->GetCroppingProperty(), edge))->setInt(40);
    }
    image->GetCroppingProperty()->setBool(true);
    const rviz_plugin::ImageGeometry::Cropping cropping = render->GetCropping();
    EXPECT_TRUE(cropping.enabled);
    EXPECT_FALSE(cropping.zoom);
    EXPECT_EQ(cropping.percent, (std::array<int, 4>{{40, 40, 40, 40}}));
    render->UpdateImageTexture(Picture(640, 360), nullptr);
    render->UpdateImageDisplay();
    const rviz_plugin::ImageGeometry::Zoom zoom = render->GetZoom();
    const double window = static_cast<double>(render->GetRenderPanel()->width()) / render->GetRenderPanel()->height();
    const double picture = static_cast<double>(shown.first) / shown.second;
    EXPECT_NEAR(zoom.x * window / zoom.y, picture, 0.1) << "not letterboxed by the cropped picture's aspect";

    // Clear brings back the idle picture.
    render->Clear();
    EXPECT_EQ(render->GetImageTextureSize(), idle);
    EXPECT_FALSE(render->HasShownFrame());
}

// Counts the drawings of one render window.
class DrawCounter : public Ogre::RenderTargetListener {
public:
    void postRenderTargetUpdate(const Ogre::RenderTargetEvent& /*event*/) override { ++count; }
    int count = 0;
};

TEST_F(KoraVisionDisplayTest, WindowIsDrawnOnlyWhenWhatItShowsChanged)
{
    AddItems(1);
    rviz_plugin::ImageRender* render = display->GetVisionProperty(0)->GetImageRender();
    rviz_plugin::NonInteractiveRenderPanel* panel = render->GetRenderPanel();
    ASSERT_TRUE(PumpUntil([panel]() { return panel->isVisible(); }, std::chrono::seconds(5)));
    render->UpdateImageDisplay();
    // No events are processed from here on, so rviz's own ticks and window paints draw nothing in between.
    DrawCounter draws;
    panel->getRenderWindow()->addListener(&draws);
    const auto drawsAfter = [&](const std::function<void()>& step) {
        const int before = draws.count;
        step();
        render->UpdateImageDisplay();
        return draws.count - before;
    };
    EXPECT_EQ(drawsAfter([]() {}), 0) << "drawn again with nothing new";
    EXPECT_EQ(drawsAfter([&]() { render->UpdateImageTexture(Picture(640, 360), nullptr); }), 1);
    EXPECT_EQ(drawsAfter([]() {}), 0);
    EXPECT_EQ(drawsAfter([&]() { render->OnSendZoomFactor(150); }), 1) << "a setting waited for the next picture";
    // Camera info: drawn when the image area it gives changes, not for each repeat of it.
    auto info = boost::make_shared<sensor_msgs::CameraInfo>();
    info->width = 640;
    info->height = 360;
    EXPECT_EQ(drawsAfter([&]() { render->OnUpdateCameraInfo(info); }), 1);
    EXPECT_EQ(drawsAfter([&]() { render->OnUpdateCameraInfo(boost::make_shared<sensor_msgs::CameraInfo>(*info)); }), 0);
    info = boost::make_shared<sensor_msgs::CameraInfo>(*info);
    info->roi.width = 320;
    info->roi.height = 180;
    EXPECT_EQ(drawsAfter([&]() { render->OnUpdateCameraInfo(info); }), 1);
    EXPECT_EQ(drawsAfter([&]() { panel->resize(panel->width() - 20, panel->height() - 10); }), 1);
    EXPECT_EQ(drawsAfter([]() {}), 0);
    EXPECT_EQ(drawsAfter([&]() { render->Clear(); }), 1) << "the idle picture waited for a frame";
    // While hidden nothing is drawn; shown again it is drawn at once.
    EXPECT_EQ(drawsAfter([&]() { panel->hide(); }), 0);
    EXPECT_EQ(drawsAfter([&]() { panel->show(); }), 1);
    // The scene seen through the camera moves on its own: drawn on every tick.
    render->OnSendVisibilityStatus(true);
    EXPECT_EQ(drawsAfter([]() {}), 1);
    EXPECT_EQ(drawsAfter([]() {}), 1);
    render->OnSendVisibilityStatus(false);
    render->UpdateImageDisplay();
    EXPECT_EQ(drawsAfter([]() {}), 0);
    panel->getRenderWindow()->removeListener(&draws);
}

// A picture of one colour given in limited-range YUV.
std::shared_ptr<rviz_plugin::YuvTextureData> Plain(int width, int height, uint8_t y, uint8_t u, uint8_t v)
{
    auto picture = Picture(width, height);
    AVFrame* frame = picture->GetAvFrame();
    for (int row = 0; row < height; ++row) {
        std::memset(frame->data[0] + row * frame->linesize[0], y, static_cast<std::size_t>(width));
    }
    for (int row = 0; row < height / 2; ++row) {
        std::memset(frame->data[1] + row * frame->linesize[1], u, static_cast<std::size_t>(width / 2));
        std::memset(frame->data[2] + row * frame->linesize[2], v, static_cast<std::size_t>(width / 2));
    }
    return picture;
}

// The texture's GL name and its pixels read back, as blue, green, red.
unsigned TextureName(const Ogre::TexturePtr& texture)
{
    unsigned name = 0;
    texture->getCustomAttribute("GLID", &name);
    return name;
}

std::array<int, 3> CentrePixel(const Ogre::TexturePtr& texture)
{
    std::vector<uint8_t> pixels(texture->getWidth() * texture->getHeight() * 3);
    texture->getBuffer()->blitToMemory(
        Ogre::PixelBox(texture->getWidth(), texture->getHeight(), 1, Ogre::PF_R8G8B8, pixels.data()));
    const std::size_t centre = (texture->getHeight() / 2 * texture->getWidth() + texture->getWidth() / 2) * 3;
    return {pixels[centre], pixels[centre + 1], pixels[centre + 2]};
}

TEST_F(KoraVisionDisplayTest, FramesOfOneSizeAreWrittenIntoTheTextureThereIs)
{
    rviz_plugin::ImageTexture texture;
    const auto show = [&texture](const std::shared_ptr<rviz_plugin::YuvTextureData>& picture, unsigned window) {
        texture.AddMessage(picture, window, window);
        texture.ConvertImageTexture();
        return texture.Update();
    };
    // Red, then blue at the same size: one texture, the second picture's pixels in it.
    ASSERT_TRUE(show(Plain(320, 180, 81, 90, 240), 1000));
    const unsigned name = TextureName(texture.GetTexture());
    EXPECT_NE(name, 0U);
    EXPECT_EQ(texture.GetTexture()->getWidth(), 320U);
    const std::array<int, 3> red = CentrePixel(texture.GetTexture());
    EXPECT_GT(red[2], 200);
    EXPECT_LT(red[0], 40);
    for (int round = 0; round < 5; ++round) {
        ASSERT_TRUE(show(Plain(320, 180, 41, 240, 110), 1000));
        EXPECT_EQ(TextureName(texture.GetTexture()), name) << "the texture was made again for a picture of its size";
    }
    const std::array<int, 3> blue = CentrePixel(texture.GetTexture());
    EXPECT_GT(blue[0], 200);
    EXPECT_LT(blue[2], 40);
    // A smaller window: the texture takes the new size and the picture.
    ASSERT_TRUE(show(Plain(320, 180, 81, 90, 240), 160));
    EXPECT_EQ(texture.GetTexture()->getWidth(), 160U);
    EXPECT_EQ(texture.GetTexture()->getHeight(), 90U);
    EXPECT_GT(CentrePixel(texture.GetTexture())[2], 200);
    // Clear shows the idle picture again, and the next frame its own pixels.
    texture.Clear();
    EXPECT_EQ(texture.GetWidth(), texture.GetTexture()->getWidth());
    ASSERT_TRUE(show(Plain(320, 180, 41, 240, 110), 1000));
    EXPECT_GT(CentrePixel(texture.GetTexture())[0], 200);
}

TEST_F(KoraVisionDisplayTest, WallTitleBarOpensTheDecodingEvaluation)
{
    rviz_plugin::EvaluateEntranceWidget* entrance = total->GetEvaluateEntrance();
    ASSERT_NE(entrance, nullptr);
    auto* button = entrance->findChild<QPushButton*>("EvaluateEntranceWidget_button");
    ASSERT_NE(button, nullptr);
    // Without "orsaPath" the dialog opens and says that it cannot evaluate.
    const std::string log = Console([&]() { button->click(); });
    ASSERT_NE(entrance->GetDialog(), nullptr);
    EXPECT_TRUE(entrance->GetDialog()->isVisible());
    EXPECT_EQ(entrance->GetDialog()->windowTitle(), "Evaluate Decoding Performance");
    EXPECT_EQ(entrance->GetDialog()->GetEvaluateWidget()->GetText(), "Failed to evaluate the decoder performance.");
    EXPECT_NE(log.find("Failed to get orsa path."), std::string::npos) << log;
    entrance->GetDialog()->close();
}

// Camera names from the alias file reach the items' titles, also for a nested topic; "Set Name" lists
// the master's cameras with their names and, saved, renames the items at once.
TEST_F(KoraVisionDisplayTest, SetNameGivesItemsTheirCameraNames)
{
    test_support::TempDir root;
    ros::param::set("orsaPath", root.Path().string());
    std::filesystem::create_directories(root.Path() / "config");
    std::ofstream(root / "config/camera_topic_alias.json")
        << R"({"topic_alias": {"camera/left": "Left Wide", "rig/front": "Front"}, "default_alias": ["A", "B"]})";
    ros::NodeHandle node;
    const ros::Publisher camera = node.advertise<custom::Video>("/rig/front", 1);
    ASSERT_TRUE(test_support::WaitFor(
        []() {
            ros::master::V_TopicInfo topics;
            ros::master::getTopics(topics);
            return std::any_of(topics.begin(), topics.end(), [](const auto& topic) { return topic.name == "/rig/front"; });
        },
        std::chrono::seconds(10)));

    AddItems(2);
    TypeTopic(videos->GetItems().at(0), "/camera/left");
    TypeTopic(videos->GetItems().at(1), "/rig/front");
    EXPECT_EQ(videos->GetItems().at(0)->GetCameraAlias(), "Left Wide");
    EXPECT_EQ(videos->GetItems().at(1)->GetCameraAlias(), "Front");
    auto* alias = videos->GetItems().at(1)->findChild<QLabel*>("VideoControlWidget_aliasLabel");
    ASSERT_NE(alias, nullptr);
    EXPECT_EQ(alias->text(), "Front");

    auto* setName = total->findChild<QPushButton*>("setNameBt");
    ASSERT_NE(setName, nullptr);
    EXPECT_EQ(setName->text(), "Set Name");
    setName->click();
    rviz_plugin::TopicRenameDialog* dialog = total->GetTopicRenameDialog();
    ASSERT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->windowTitle(), "Set Name");
    EXPECT_EQ(dialog->geometry(), QRect(QPoint(685, 275), QPoint(1308, 804)));
    rviz_plugin::RenameTableModel* model = dialog->GetModel();
    int row = -1;
    for (int index = 0; index < model->rowCount(); ++index) {
        row = model->index(index, 0).data().toString() == "rig/front" ? index : row;
    }
    ASSERT_GE(row, 0) << "the master's camera is not listed";
    EXPECT_EQ(model->index(row, 1).data().toString(), "Front");
    EXPECT_EQ(model->GetDefaultAlias(), (QStringList{"A", "B"}));
    ASSERT_TRUE(model->setData(model->index(row, 1), "Front Long", Qt::EditRole));
    dialog->SaveAction();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(videos->GetItems().at(1)->GetCameraAlias(), "Front Long");
    EXPECT_EQ(videos->GetItems().at(0)->GetCameraAlias(), "Left Wide");  // not on the master: kept
    ros::param::del("orsaPath");
}

// The property at a "/"-separated path below root, or null.
rviz::Property* At(rviz::Property* root, const QString& path)
{
    rviz::Property* property = root;
    for (const QString& name : path.split('/')) {
        property = property == nullptr ? nullptr : Child(property, name);
    }
    return property;
}

// The map child of that name, made when missing (rviz's mapMakeChild replaces an existing one).
rviz::Config MapChild(rviz::Config config, const QString& name)
{
    const rviz::Config existing = config.mapGetChild(name);
    return existing.isValid() ? existing : config.mapMakeChild(name);
}

// Saves value at a "/"-separated path of a configuration; a path ending in a map takes it as "Value".
void SetAt(rviz::Config config, const QString& path, const QVariant& value, bool asMapValue = false)
{
    const QStringList names = path.split('/');
    for (int i = 0; i + 1 < names.size(); ++i) {
        config = MapChild(config, names[i]);
    }
    if (asMapValue) {
        MapChild(config, names.back()).mapSetValue("Value", value);
    } else {
        config.mapSetValue(names.back(), value);
    }
}

// Generated cases: every numeric and checkbox setting of an item saved with a wrong type, a value that
// is not a number, a negative and a huge one; each comes back as a new item has it, nothing crashes.
TEST_F(KoraVisionDisplayTest, AbsurdSavedValuesFallBackToTheDefaults)
{
    struct Setting {
        QString path;
        QVariant expected;
        bool mapValue;  // saved as the "Value" of a map (a property with children)
    };
    const std::vector<Setting> settings = {
        {"Time Sync Queue Size", 30, false},
        {"Image/Queue Size", 30, false},
        {"Image/Cropping", false, true},
        {"Image/Cropping/Zoom Factor(%)", 100, false},
        {"Image/Cropping/Top(%)", 0, false},
        {"Image/Cropping/Cropping Type", QString("Free"), false},
        {"Image/Decoder Selection", QString("Software Decoder"), false},
        {"Objects", false, true},
        {"Objects/Queue Size", 30, false},
        {"Objects/Display Effects/Text Scale", 0.7F, false},
        {"Objects/Display Effects/Text Thickness", 1, false},
        {"Objects/Display Effects/Object ID", false, false},
        {"Freespace/Display Effects/Freespace Alpha", 0.4F, false},
        {"MarkerArray/Display Effects/Text Thickness", 1, false},
    };
    const std::vector<QVariant> absurd = {QString("many"), std::nan(""), -5, 1e30, QString(""),
                                          std::numeric_limits<double>::infinity()};
    for (const QVariant& value : absurd) {
        SCOPED_TRACE(value.toString().toStdString());
        rviz::Config config;
        const QString item = "(1)camera_absurd";  // a key without "/", which SetAt splits on
        for (const Setting& setting : settings) {
            SetAt(config, item + "/" + setting.path, value, setting.mapValue);
        }
        // Rows of a classification setting with absurd children.
        const QString row = item + "/Road Lines/Display Effects/Classification Setting/Classification 1/";
        SetAt(config, row + "Value", value);
        SetAt(config, row + "Line Thickness", value);
        SetAt(config, row + "Is Solid", value);
        SetAt(config, row + "Color", QString("not a colour"));
        SetAt(config, item + "/Semantic Segmentation/Classification Setting/Classification 1/Alpha", value);

        delete display;
        display = new KoraVisionDisplay();
        frame->getManager()->addDisplay(display, true);
        display->load(config);
        // The tree hears of shown and hidden rows in queued calls, as it does in rviz between a load
        // and anything the user does next.
        QApplication::processEvents();
        ASSERT_EQ(display->GetVideoCount(), 1);
        rviz_plugin::KoraVisionProperty* loaded = display->GetVisionProperty(0);
        for (const Setting& setting : settings) {
            rviz::Property* property = At(loaded, setting.path);
            ASSERT_NE(property, nullptr) << setting.path.toStdString();
            EXPECT_EQ(property->getValue().toString(), setting.expected.toString()) << setting.path.toStdString();
        }
        rviz_plugin::BaseSettingProperty* lines = loaded->GetVisionProperty()->GetRoadLineSetting();
        ASSERT_EQ(lines->GetRowCount(), 1);
        EXPECT_EQ(lines->GetRow(0)->getValue().toString(), "0, solid, 2");
        rviz_plugin::BaseSettingProperty* segments = loaded->GetVisionProperty()->GetSegmentationSetting();
        ASSERT_EQ(segments->GetRowCount(), 1);
        EXPECT_EQ(At(segments->GetRow(0), "Alpha")->getValue().toFloat(), 0.4F);
        // What the overlay draws with is the same as what the tree shows.
        const rviz_plugin::IppConfig drawn = ConfigOf(loaded);
        EXPECT_EQ(drawn.queueSize, 30U);
        EXPECT_FLOAT_EQ(drawn.objectDisplay.textScale, 0.7F);
        EXPECT_EQ(drawn.objectDisplay.textThickness, 1);
        EXPECT_EQ(drawn.freespaceColor[3], 102);
        EXPECT_EQ(drawn.imageLineClassifications.at(0).lineThickness, 2);
        EXPECT_EQ(drawn.semanticSegmentationClassifications.at(0).alpha, 102);
        EXPECT_FALSE(drawn.IsEnabled(rviz_plugin::Objects));
    }
}

TEST_F(KoraVisionDisplayTest, DroppedTopicAddsAnItemAndOnlyVideoTopicsAreTaken)
{
    AddItems(1);
    display->setTopic("/camera/front", "custom/Video");
    EXPECT_EQ(Names(), (QStringList{"(1)/camera/front", "(2)/camera/front"}));
    display->setTopic("/points", "sensor_msgs/PointCloud2");
    EXPECT_EQ(Names(), (QStringList{"(1)/camera/front", "(2)/camera/front", "(3)No Image Topic"}));
}

TEST_F(KoraVisionDisplayTest, SaveWritesItemsUnderTheirNumberedNames)
{
    AddItems(3);
    TypeTopic(videos->GetItems().at(0), "/camera/a");
    TypeTopic(videos->GetItems().at(2), "/camera/c");
    rviz::Config config;
    display->save(config);
    QStringList keys;
    for (rviz::Config::MapIterator it = config.mapIterator(); it.isValid(); it.advance()) {
        keys << it.currentKey();
    }
    EXPECT_TRUE(keys.contains("(1)/camera/a"));
    EXPECT_TRUE(keys.contains("(2)No Image Topic"));
    EXPECT_TRUE(keys.contains("(3)/camera/c"));
    QString topic;
    ASSERT_TRUE(config.mapGetChild("(3)/camera/c").mapGetChild("Image").mapGetString("Topic", &topic));
    EXPECT_EQ(topic, "/camera/c");
    QString className;
    ASSERT_TRUE(config.mapGetString("Class", &className));
    EXPECT_EQ(className, display->getClassId());
}

TEST_F(KoraVisionDisplayTest, LoadOrdersItemsByTheNumberInTheirKeys)
{
    rviz::Config config;
    config.mapSetValue("Name", "Loaded");
    config.mapSetValue("Enabled", true);
    config.mapMakeChild("(2)/camera/b").mapMakeChild("Image").mapSetValue("Topic", "/camera/b");
    config.mapMakeChild("(10)/camera/c").mapMakeChild("Image").mapSetValue("Topic", "/camera/c");
    config.mapMakeChild("(1)/camera/a").mapMakeChild("Image").mapSetValue("Topic", "/camera/a");
    display->load(config);
    EXPECT_EQ(Names(), (QStringList{"(1)/camera/a", "(2)/camera/b", "(10)/camera/c"}));
    ASSERT_EQ(videos->GetVideoNumber(), 3);
    EXPECT_EQ(videos->GetItems().at(2)->GetTopicCombobox()->currentText(), "/camera/c");
    EXPECT_EQ(display->getName(), "Loaded");
    EXPECT_EQ(display->getAssociatedWidgetPanel()->windowTitle(), "Loaded");
}

TEST_F(KoraVisionDisplayTest, WallStopsAtThirtyItems)
{
    AddItems(29);
    EXPECT_TRUE(total->IsAddEnabled());
    AddItems(1);
    EXPECT_FALSE(total->IsAddEnabled());
    EXPECT_FALSE(associated->AddVideoWidget());
    EXPECT_EQ(display->GetVideoCount(), 30);
    EXPECT_EQ(Names().back(), "(30)No Image Topic");
    videos->GetItems().at(0)->SubItem();
    EXPECT_TRUE(total->IsAddEnabled());
    EXPECT_EQ(Names().front(), "(1)No Image Topic");
    EXPECT_EQ(Names().back(), "(29)No Image Topic");
}

TEST_F(KoraVisionDisplayTest, PagesOfFourInTheListAndSixteenInFullScreen)
{
    AddItems(5);
    EXPECT_EQ(total->GetSwitchText(), "1 of 2");
    EXPECT_FALSE(total->IsPreviousEnabled());
    EXPECT_TRUE(total->IsNextEnabled());
    EXPECT_EQ(videos->GetShownItems().size(), 4);
    total->WidgetNextPage();
    EXPECT_EQ(total->GetSwitchText(), "2 of 2");
    ASSERT_EQ(videos->GetShownItems().size(), 1);
    EXPECT_EQ(videos->GetShownItems().front(), videos->GetItems().at(4));
    EXPECT_TRUE(videos->GetItems().at(4)->isVisibleTo(videos));
    EXPECT_FALSE(videos->GetItems().at(0)->isVisibleTo(videos));

    // The last item of the last page goes: the page stays, and "Previous" leads back.
    videos->GetItems().at(4)->SubItem();
    EXPECT_EQ(videos->GetCurrentPage(), 2);
    EXPECT_TRUE(videos->GetShownItems().isEmpty());
    EXPECT_TRUE(total->IsPreviousEnabled());
    total->WidgetPreviousPage();
    EXPECT_EQ(videos->GetShownItems().size(), 4);
    EXPECT_EQ(total->GetSwitchText(), " 1 ");

    AddItems(13);
    display->OnSendFullScreenSwitch();
    EXPECT_EQ(display->GetCurrentVideosWidgetState(), VideosWidget::FullScreen);
    EXPECT_EQ(videos->GetShownItems().size(), 16);
    EXPECT_EQ(total->GetSwitchText(), "1 of 2");
    display->OnSendFullScreenSwitch();
    EXPECT_EQ(display->GetCurrentVideosWidgetState(), VideosWidget::List);
    EXPECT_EQ(videos->GetShownItems().size(), 4);
}

TEST_F(KoraVisionDisplayTest, PoppedOutVideoReturnsOnFullScreenAndOnDelete)
{
    AddItems(2);
    rviz_plugin::VideoControlWidget* item = videos->GetItems().at(0);
    TypeTopic(item, "/camera/a");
    item->PopupPanel();
    ASSERT_TRUE(item->IsPoppedOut());
    auto* pop = item->findChild<QPushButton*>("VideoControlWidget_popBt");
    ASSERT_NE(pop, nullptr);
    EXPECT_FALSE(pop->isEnabled());

    display->OnSendFullScreenSwitch();
    EXPECT_FALSE(item->IsPoppedOut());
    EXPECT_TRUE(pop->isEnabled());
    EXPECT_FALSE(pop->isVisibleTo(item));
    display->OnSendFullScreenSwitch();
    EXPECT_TRUE(pop->isVisibleTo(item));

    item->PopupPanel();
    ASSERT_TRUE(item->IsPoppedOut());
    item->SubItem();
    QApplication::processEvents();
    EXPECT_EQ(display->GetVideoCount(), 1);
}

TEST_F(KoraVisionDisplayTest, TitleBarCarriesTheNameAndTheWindowButtons)
{
    rviz::PanelDockWidget* panel = display->getAssociatedWidgetPanel();
    ASSERT_NE(panel, nullptr);
    auto* titleBar = qobject_cast<TitleBarBase*>(panel->titleBarWidget());
    ASSERT_NE(titleBar, nullptr);
    for (const char* name : {"minimizeButton", "maximizeButton", "closeButton"}) {
        EXPECT_NE(titleBar->findChild<QPushButton*>(name), nullptr) << name;
    }
    display->setName("Front cameras");
    EXPECT_EQ(titleBar->GetWindowTitle(), "Front cameras");
    EXPECT_EQ(panel->objectName(), "Front cameras");

    EXPECT_FALSE(titleBar->IsMaximized());
    titleBar->findChild<QPushButton*>("maximizeButton")->click();
    EXPECT_TRUE(titleBar->IsMaximized());
    EXPECT_EQ(display->GetCurrentVideosWidgetState(), VideosWidget::FullScreen);

    titleBar->findChild<QPushButton*>("minimizeButton")->click();
    EXPECT_TRUE(associated->isHidden());
    titleBar->findChild<QPushButton*>("minimizeButton")->click();
    EXPECT_FALSE(associated->isHidden());
}

TEST_F(KoraVisionDisplayTest, DisablingHidesPoppedOutVideos)
{
    AddItems(1);
    rviz_plugin::VideoControlWidget* item = videos->GetItems().at(0);
    item->PopupPanel();
    ASSERT_TRUE(item->IsPoppedOut());
    display->setEnabled(false);
    QApplication::processEvents();
    EXPECT_TRUE(item->IsPoppedOut());
    EXPECT_FALSE(item->IsPopupPanelVisible());
    display->setEnabled(true);
    QApplication::processEvents();
    EXPECT_TRUE(item->IsPopupPanelVisible());
}

TEST_F(KoraVisionDisplayTest, ItemTreeHasEveryInputAndItsSettingsReachTheOverlayNode)
{
    AddItems(1);
    rviz_plugin::KoraVisionProperty* itemProperty = display->GetVisionProperty(0);
    QStringList children;
    for (int i = 0; i < itemProperty->numChildren(); ++i) {
        children << itemProperty->childAt(i)->getName().section(':', 0, 0);  // status lists add their level
    }
    EXPECT_EQ(children, (QStringList{"Global Status", "Time Sync Queue Size", "Image", "Objects", "Traffic Lights",
                                     "Road Lines", "Freespace", "Semantic Segmentation", "MarkerArray", "Overlay"}));
    rviz_plugin::VisionProperty* vision = itemProperty->GetVisionProperty();
    EXPECT_EQ(vision->GetGlobalStatusList()->childAt(0)->getName(), "Processing Time");
    EXPECT_EQ(vision->GetGlobalStatusList()->childAt(0)->getValue().toString(), "0 ms");
    QStringList inputChildren;
    for (int i = 0; i < vision->GetObjectProperty()->numChildren(); ++i) {
        inputChildren << vision->GetObjectProperty()->childAt(i)->getName().section(':', 0, 0);
    }
    EXPECT_EQ(inputChildren, (QStringList{"Status", "Topic", "Queue Size", "Display Effects"}));
    EXPECT_EQ(vision->GetObjectProperty()->GetTopicProperty()->getMessageType(), "custom/ObjectArray");
    EXPECT_EQ(vision->GetMarkerArrayProperty()->GetTopicProperty()->getMessageType(),
              "visualization_msgs/MarkerArray");

    // The sync queue length is clamped to 5..10000.
    vision->GetSyncQueueSizeProperty()->setValue(4);
    EXPECT_EQ(vision->GetSyncQueueSizeProperty()->getInt(), 5);

    // Overlay and cropping exclude each other.
    rviz::BoolProperty* cropping = vision->GetImageProperty()->GetCroppingProperty();
    cropping->setBool(true);
    vision->GetOverlayProperty()->setBool(true);
    EXPECT_FALSE(cropping->getBool());
    cropping->setBool(true);
    EXPECT_FALSE(vision->GetOverlayProperty()->getBool());

    // Switching "Objects" on with a topic subscribes ("Topic" OK); a message reaches the node's queue.
    ros::NodeHandle node;
    ros::Publisher publisher = node.advertise<custom::ObjectArray>("/camera_item/objects", 5);
    vision->GetObjectProperty()->GetTopicProperty()->setString("/camera_item/objects");
    vision->GetObjectProperty()->setBool(true);
    const auto topicStatus = [vision]() {
        rviz::Property* status = vision->GetObjectProperty()->GetStatusList()->subProp("Topic");
        return status == nullptr ? QString() : status->getValue().toString();
    };
    EXPECT_EQ(topicStatus(), "OK");
    ASSERT_TRUE(test_support::WaitFor(
        [&]() {
            QApplication::processEvents();
            return publisher.getNumSubscribers() > 0;
        },
        std::chrono::seconds(5)));
    publisher.publish(custom::ObjectArray());
    ASSERT_TRUE(test_support::WaitFor(
        [&]() {
            ros::spinOnce();
            QApplication::processEvents();
            return itemProperty->GetIppNode()->GetQueueSizes()[rviz_plugin::Objects] == 1;
        },
        std::chrono::seconds(5)));
    EXPECT_EQ(topicStatus(), "1 data frames received");
    // Switching it off clears its queue at once.
    vision->GetObjectProperty()->setBool(false);
    EXPECT_EQ(itemProperty->GetIppNode()->GetQueueSizes()[rviz_plugin::Objects], 0U);
}

TEST(RvizHelpers, InteractToolAndOverwrittenSave)
{
    rviz::Tool* interact = rviz_plugin::GetInteractToolButton(frame->getManager()->getToolManager());
    ASSERT_NE(interact, nullptr);
    EXPECT_EQ(interact->getName(), "Interact");
    EXPECT_EQ(rviz_plugin::GetInteractToolButton(nullptr), nullptr);

    rviz::Property parent("Parent", 3);
    new rviz::IntProperty("Child", 7, "", &parent);
    rviz::Config config;
    rviz_plugin::OverwritePropertySave(&parent, config, 42);
    QVariant value;
    ASSERT_TRUE(config.mapGetValue("Value", &value));
    EXPECT_EQ(value.toInt(), 42);
    int child = 0;
    ASSERT_TRUE(config.mapGetInt("Child", &child));
    EXPECT_EQ(child, 7);
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRvizFrame(argc, argv, "kora_vision_display_test",
                                       [](rviz::VisualizationFrame& visualizationFrame, test_support::VirtualDisplay&) {
                                           frame = &visualizationFrame;
                                           const int result = RUN_ALL_TESTS();
                                           frame = nullptr;
                                           return result;
                                       });
}
