// The message viewer panel inside a real rviz frame (ROS master, virtual display), fed by publishers
// of this process: the selection dialog, the key-value and table panels it makes, their docks, what
// bad input does to them, and saving and loading.
#include "../support/qt_events.h"
#include "../support/qt_print.h"
#include "../support/ros_test_main.h"
#include "../support/rviz_frame_main.h"
#include "msg_data_panel/msg_data_panel.h"
#include "msg_data_panel/msg_viewer_panel.h"
#include "msg_definition/msg_definition_model_mgr.h"
#include "msg_view_models/table_model.h"
#include "msg_viewer_widgets/key_value_grid.h"
#include "msg_viewer_widgets/key_value_item.h"
#include "msg_viewer_widgets/key_value_panel.h"
#include "msg_viewer_widgets/key_value_view.h"
#include "msg_viewer_widgets/msg_definition_header.h"
#include "msg_viewer_widgets/msg_definition_widget.h"
#include "msg_viewer_widgets/msg_select_widget.h"
#include "msg_viewer_widgets/status_bar_view.h"
#include "msg_viewer_widgets/structured_data_view.h"
#include "msg_viewer_widgets/table_view.h"

#include <custom/VehicleStatus.h>
#include <std_msgs/String.h>
#include <topic_tools/shape_shifter.h>
#include <visualization_msgs/MarkerArray.h>

#include <ros/ros.h>
#include <rviz/config.h>
#include <rviz/yaml_config_writer.h>
#include <rviz/panel_dock_widget.h>
#include <rviz/visualization_frame.h>
#include <rviz/visualization_manager.h>

#include <QCheckBox>
#include <QDialog>
#include <QJsonObject>
#include <QLabel>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTreeView>

namespace {

using namespace std::chrono_literals;
using namespace rviz_plugin;

rviz::VisualizationFrame* frame = nullptr;

bool Serve(const std::function<bool()>& predicate, std::chrono::milliseconds timeout = 20s)
{
    return test_support::ServeRosEvents(predicate, timeout);
}

// Publishes the vehicle status and a marker array over and over while events are served.
class Car {
public:
    Car()
        : vehicle(node.advertise<custom::VehicleStatus>("/veh", 10)),
          markers(node.advertise<visualization_msgs::MarkerArray>("/objs", 2))
    {
    }
    void Publish(double speed, const std::string& frameId = "base")
    {
        custom::VehicleStatus status;
        status.vehicleSpeed = speed;
        status.gear = 3;
        status.header.frame_id = frameId;
        vehicle.publish(status);
        PublishMarkers();
    }
    void PublishMarkers()
    {
        visualization_msgs::MarkerArray array;
        for (int id = 0; id < markerCount; ++id) {
            visualization_msgs::Marker marker;
            marker.id = id;
            marker.ns = "n" + std::to_string(id % 7);
            marker.color.r = 1.0F;
            marker.color.a = 1.0F;
            array.markers.push_back(marker);
        }
        markers.publish(array);
    }
    // Serves events while publishing at about 20 Hz.
    bool ServeWhilePublishing(const std::function<bool()>& predicate, double speed = 12.5,
                              std::chrono::milliseconds timeout = 20s, const std::string& frameId = "base")
    {
        auto last = std::chrono::steady_clock::now() - 1s;
        return Serve(
            [&]() {
                if (std::chrono::steady_clock::now() - last > 50ms) {
                    Publish(speed, frameId);
                    last = std::chrono::steady_clock::now();
                }
                return predicate();
            },
            timeout);
    }

    ros::NodeHandle node;
    ros::Publisher vehicle;
    ros::Publisher markers;
    int markerCount = 1000;
};

QModelIndex FindField(const QAbstractItemModel* model, const QString& fullName, const QModelIndex& parent = {})
{
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex child = model->index(row, 0, parent);
        if (child.data(Qt::EditRole).toJsonObject()["fullname"].toString() == fullName) {
            return child;
        }
        const QModelIndex found = FindField(model, fullName, child);
        if (found.isValid()) {
            return found;
        }
    }
    return {};
}

class MsgDataPanelTest : public testing::Test {
protected:
    void SetUp() override
    {
        panel = new MsgDataPanel();
        dock = frame->getManager()->getWindowManager()->addPane("MsgDataPanel", panel, Qt::LeftDockWidgetArea);
        panel->initialize(frame->getManager());
        definition = panel->GetDefinitionWidget();
        select = definition->GetSelectWidget();
    }
    void TearDown() override
    {
        definition->CloseDefinitionDialog();
        delete dock;
        test_support::ServeEvents([]() { return false; }, 100ms);
    }

    // Opens the dialog and waits for topic in its list.
    void OpenDialogWith(const QString& topic)
    {
        panel->GetViewerPanel()->GetAddPanelButton()->click();
        ASSERT_TRUE(definition->GetDialog()->isVisible());
        QStandardItemModel* topics = definition->GetModelMgr()->GetModel(TopicModelType);
        ASSERT_TRUE(car.ServeWhilePublishing([&]() { return !topics->findItems(QString(), Qt::MatchContains).isEmpty() && Row(topic) >= 0; }));
    }
    int Row(const QString& topic) const
    {
        QSortFilterProxyModel* proxy = select->GetTopicProxy();
        for (int row = 0; row < proxy->rowCount(); ++row) {
            if (proxy->index(row, 0).data(Qt::EditRole).toJsonObject()["name"].toString() == topic) {
                return row;
            }
        }
        return -1;
    }
    void Focus(const QString& topic)
    {
        select->GetTopicTree()->setCurrentIndex(select->GetTopicProxy()->index(Row(topic), 0));
        ASSERT_EQ(select->GetFocusTopic(), topic);
    }
    // Ticks a field as a click on its check box does.
    void Tick(const QString& fullName)
    {
        auto* fields = definition->GetModelMgr()->GetModel(FieldModelType);
        const QModelIndex index = FindField(fields, fullName);
        ASSERT_TRUE(index.isValid()) << fullName.toStdString();
        fields->itemFromIndex(index)->setCheckState(Qt::Checked);
    }

    Car car;
    MsgDataPanel* panel = nullptr;
    rviz::PanelDockWidget* dock = nullptr;
    MsgDefinitionWidget* definition = nullptr;
    MsgSelectWidget* select = nullptr;
};

TEST_F(MsgDataPanelTest, TheDialogMakesAKeyValuePanelAndATableThatFollowTheTopics)
{
    OpenDialogWith("/veh");
    ASSERT_GE(Row("/objs"), 0);
    EXPECT_EQ(definition->GetDialog()->windowTitle(), "Show in Panel");
    EXPECT_FALSE(select->GetSaveButton()->isEnabled());
    Focus("/veh");
    Tick("/veh/vehicleSpeed");
    Tick("/veh/gear");
    Tick("/veh/header/frame_id");
    EXPECT_EQ(select->GetFieldHeader()->GetLabel()->text(), "Select Fields [Type](3/13)");
    EXPECT_TRUE(select->GetSaveButton()->isEnabled());
    test_support::ServeEvents([]() { return false; }, 300ms);
    ASSERT_TRUE(definition->GetDialog()->grab().save(QString(RVIZ_PLUGIN_ARTIFACT_DIR) + "/msg_viewer_dialog.png"));
    select->GetSaveButton()->click();
    EXPECT_FALSE(definition->GetDialog()->isVisible());

    // A key-value panel named by default, at the cascade's first place, showing the values.
    ASSERT_EQ(panel->GetPanelCount(), 1);
    EXPECT_EQ(panel->GetViewerPanel()->GetCheckBox(0)->text(), "Key-Value Panel");
    EXPECT_EQ(panel->GetDock(0)->pos(), QPoint(712, 314));
    KeyValueView* keyValues = panel->GetView(0)->GetKeyValueView();
    ASSERT_EQ(keyValues->GetKeyValuePanels().size(), 1);
    KeyValueGrid* grid = keyValues->GetKeyValuePanels()[0]->GetKeyValueGrid();
    ASSERT_EQ(grid->GetKeyValueItems().size(), 3);
    const auto value = [grid](int index) { return grid->GetKeyValueItems()[index]->GetValueText(); };
    ASSERT_TRUE(car.ServeWhilePublishing([&]() { return value(2) == "12.5"; })) << value(2);
    EXPECT_EQ(value(0), "3");  // selection order is the paths' order
    EXPECT_EQ(value(1), "base");
    StatusBarView* bar = keyValues->GetKeyValuePanels()[0]->GetStatusBarView();
    ASSERT_TRUE(car.ServeWhilePublishing([&]() { return bar->GetFrequencyText() != "0Hz"; }, 12.5, 5s));

    // A value over 3000 characters is cut and warned about.
    ASSERT_TRUE(car.ServeWhilePublishing(
        [&]() {
            return bar->GetWarnings().contains({"frame_id", "The string length exceeds 3000."});
        },
        12.5, 5s, std::string(3100, 'x')))
        << bar->GetWarnings().size();
    EXPECT_EQ(grid->GetKeyValueItems()[1]->GetValueToolTip().remove('\n').size(), 3000);

    // A table of the markers' array: 1000 elements, the first 100 shown; the second panel cascades.
    OpenDialogWith("/objs");
    Focus("/objs");
    Tick("/objs/markers/id");
    Tick("/objs/markers/ns");
    EXPECT_EQ(definition->GetModelMgr()->GetSelectedArrayName(), "/objs/markers");
    EXPECT_EQ(definition->GetModelMgr()->GetDisableType("/veh"), DisableAll);
    select->GetSaveButton()->click();
    ASSERT_EQ(panel->GetPanelCount(), 2);
    EXPECT_EQ(panel->GetViewerPanel()->GetCheckBox(1)->text(), "/objs");
    EXPECT_EQ(panel->GetDock(1)->pos(), QPoint(736, 338));
    TableModel* table = panel->GetView(1)->GetTableView()->GetModel();
    ASSERT_TRUE(car.ServeWhilePublishing([&]() { return table->rowCount() == 100; }));
    EXPECT_EQ(table->columnCount(), 2);
    EXPECT_EQ(table->data(table->index(99, 0), Qt::DisplayRole), QVariant(99));
    test_support::ServeEvents([]() { return false; }, 300ms);
    ASSERT_TRUE(panel->GetDock(1)->grab().save(QString(RVIZ_PLUGIN_ARTIFACT_DIR) + "/msg_viewer_table.png"));
    ASSERT_TRUE(panel->GetDock(0)->grab().save(QString(RVIZ_PLUGIN_ARTIFACT_DIR) + "/msg_viewer_key_value.png"));

    // Saved and loaded into another viewer: the same panels, columns and names.
    rviz::Config config;
    panel->save(config);
    auto* copy = new MsgDataPanel();
    rviz::PanelDockWidget* copyDock =
        frame->getManager()->getWindowManager()->addPane("MsgDataPanel copy", copy, Qt::LeftDockWidgetArea);
    copy->initialize(frame->getManager());
    copy->load(config);
    ASSERT_EQ(copy->GetPanelCount(), 2);
    EXPECT_EQ(copy->GetDock(1)->geometry(), panel->GetDock(1)->geometry());
    TableModel* copiedTable = copy->GetView(1)->GetTableView()->GetModel();
    ASSERT_TRUE(car.ServeWhilePublishing([&]() { return copiedTable->rowCount() == 100; }));
    EXPECT_EQ(copiedTable->GetVisibleTitles(), table->GetVisibleTitles());
    rviz::Config again;
    copy->save(again);
    const auto names = [](const rviz::Config& saved) {
        QStringList found;
        const rviz::Config list = saved.mapGetChild("MsgDataPanel").mapGetChild("panelList");
        for (rviz::Config::MapIterator it = list.mapIterator(); it.isValid(); it.advance()) {
            QString name;
            it.currentChild().mapGetString("panelName", &name);
            found << it.currentKey() + "=" + name;
        }
        return found;
    };
    EXPECT_EQ(names(again), names(config));
    delete copyDock;

    // Removing the first renumbers what stays.
    panel->GetViewerPanel()->GetRemoveButton(0)->click();
    ASSERT_EQ(panel->GetPanelCount(), 1);
    EXPECT_EQ(panel->GetDock(0)->property("position").toInt(), 0);
    EXPECT_EQ(panel->GetViewerPanel()->GetCheckBox(0)->property("position").toInt(), 0);
    EXPECT_EQ(definition->GetSelectedItemVec().size(), 1U);
}

TEST_F(MsgDataPanelTest, BadInputLeavesTheLastGoodContentAndWarns)
{
    OpenDialogWith("/veh");
    Focus("/veh");
    Tick("/veh/vehicleSpeed");
    select->GetSaveButton()->click();
    OpenDialogWith("/objs");
    Focus("/objs");
    Tick("/objs/markers/id");
    select->GetSaveButton()->click();
    ASSERT_EQ(panel->GetPanelCount(), 2);
    KeyValueGrid* grid = panel->GetView(0)->GetKeyValueView()->GetKeyValuePanels()[0]->GetKeyValueGrid();
    StatusBarView* bar = panel->GetView(0)->GetKeyValueView()->GetKeyValuePanels()[0]->GetStatusBarView();
    TableModel* table = panel->GetView(1)->GetTableView()->GetModel();
    ASSERT_TRUE(car.ServeWhilePublishing([&]() { return grid->GetKeyValueItems()[0]->GetValueText() == "7"; }, 7));

    // Bytes that do not decode as the topic's type (one byte short): nothing changes on screen.
    car.vehicle.shutdown();
    custom::VehicleStatus status;
    status.vehicleSpeed = 99;
    std::vector<uint8_t> bytes = test_support::Serialize(status);
    bytes.pop_back();
    topic_tools::ShapeShifter shape;
    shape.morph(ros::message_traits::md5sum<custom::VehicleStatus>(), "custom/VehicleStatus",
                ros::message_traits::definition<custom::VehicleStatus>(), "");
    ros::serialization::IStream in(bytes.data(), static_cast<uint32_t>(bytes.size()));
    shape.read(in);
    ros::Publisher raw = shape.advertise(car.node, "/veh", 10);
    // Meanwhile the other panel goes on with its topic.
    car.markerCount = 5;
    Serve([&]() {
        raw.publish(shape);
        car.PublishMarkers();
        return false;
    }, 1500ms);
    EXPECT_EQ(grid->GetKeyValueItems()[0]->GetValueText(), "7");
    EXPECT_EQ(table->rowCount(), 5);
    // The topic stops: the frequency falls to 0 and the bar says so.
    ASSERT_TRUE(Serve([&]() { return bar->GetFrequencyText() == "0Hz"; }, 5s));
    EXPECT_TRUE(bar->GetWarnings().contains({"/veh", "The data receiving frequency is 0 Hz."}));
    raw.shutdown();

    // Another type on the topic: still the last content; it comes back when the type does.
    ros::Publisher other = car.node.advertise<std_msgs::String>("/veh", 10);
    std_msgs::String text;
    text.data = "not a vehicle";
    Serve([&]() {
        other.publish(text);
        return false;
    }, 1500ms);
    EXPECT_EQ(grid->GetKeyValueItems()[0]->GetValueText(), "7");
    other.shutdown();
    car.vehicle = car.node.advertise<custom::VehicleStatus>("/veh", 10);
    ASSERT_TRUE(car.ServeWhilePublishing([&]() { return grid->GetKeyValueItems()[0]->GetValueText() == "8"; }, 8));
}

TEST_F(MsgDataPanelTest, EditingAPanelRecoversItsTicksAndKeepsItsPlace)
{
    OpenDialogWith("/veh");
    Focus("/veh");
    Tick("/veh/vehicleSpeed");
    select->GetSaveButton()->click();
    ASSERT_EQ(panel->GetPanelCount(), 1);
    int changes = 0;
    QObject::connect(definition, &MsgDefinitionWidget::SignalConfigChanged, [&changes]() { ++changes; });

    // "Edit" reopens the dialog with the panel's ticks recovered and its topic in focus.
    panel->GetViewerPanel()->GetEditButton(0)->click();
    ASSERT_TRUE(definition->GetDialog()->isVisible());
    ASSERT_TRUE(car.ServeWhilePublishing([&]() { return select->GetFocusTopic() == "/veh"; }));
    EXPECT_EQ(definition->GetModelMgr()->GetSelectedFieldCount("/veh"), 1);
    EXPECT_EQ(select->GetFieldHeader()->GetLabel()->text(), "Select Fields [Type](1/13)");
    // Saved unchanged: no change of configuration from the dialog.
    select->GetSaveButton()->click();
    EXPECT_EQ(changes, 0);

    panel->GetViewerPanel()->GetEditButton(0)->click();
    ASSERT_TRUE(car.ServeWhilePublishing([&]() { return select->GetFocusTopic() == "/veh"; }));
    Tick("/veh/gear");
    select->GetSaveButton()->click();
    EXPECT_EQ(changes, 1);
    ASSERT_EQ(panel->GetPanelCount(), 1);
    EXPECT_EQ(panel->GetDock(0)->pos(), QPoint(712, 314));
    KeyValueGrid* grid = panel->GetView(0)->GetKeyValueView()->GetKeyValuePanels()[0]->GetKeyValueGrid();
    EXPECT_EQ(grid->GetKeyValueItems().size(), 2);
}

// Panels whose topics are silent (or that are not ticked) have nothing on screen to save from: they
// save what they were loaded with, and a panel edited since saves its selection.
TEST_F(MsgDataPanelTest, PanelsWithoutDataSaveWhatTheyWereLoadedWith)
{
    rviz::Config config;
    rviz::Config list = config.mapMakeChild("MsgDataPanel").mapMakeChild("panelList");
    rviz::Config table = list.mapMakeChild("panel_0");
    table.mapSetValue("hasArrayField", true);
    table.mapSetValue("isChecked", false);
    table.mapSetValue("panelName", "Silent table");
    table.mapSetValue("topicName", "/silent");
    table.mapSetValue("showStatus", 3);
    table.mapSetValue("sortIndex", 1);
    rviz::Config reedit = table.mapMakeChild("reeditPanel");
    reedit.mapMakeChild("selectedItemMap").mapMakeChild("/silent").mapSetValue("/silent/items/id", "[int32]");
    reedit.mapSetValue("selectedArrayName", "/silent/items");
    rviz::Config field = table.mapMakeChild("fieldList").mapMakeChild("field_0");
    field.mapSetValue("fieldName", "/silent/items/id");
    field.mapSetValue("fieldType", "[int32]");
    field.mapSetValue("fieldNickName", "Id");
    field.mapMakeChild("constantList").mapMakeChild("constant_0").mapSetValue("1", "MODE_A");
    rviz::Config pairs = list.mapMakeChild("panel_1");
    pairs.mapSetValue("hasArrayField", false);
    pairs.mapSetValue("isChecked", true);
    pairs.mapSetValue("panelName", "Quiet pairs");
    rviz::Config topic = pairs.mapMakeChild("topicList").mapMakeChild("topic_0");
    topic.mapSetValue("topicName", "/quiet");
    topic.mapSetValue("topicNickName", "Quiet");
    rviz::Config speed = topic.mapMakeChild("fieldList").mapMakeChild("field_0");
    speed.mapSetValue("fieldName", "/quiet/speed");
    speed.mapSetValue("fieldType", "[float64]");
    speed.mapSetValue("fieldNickName", "Speed");
    speed.mapMakeChild("constantList");

    panel->load(config);
    ASSERT_EQ(panel->GetPanelCount(), 2);
    rviz::Config saved;
    panel->save(saved);
    const auto part = [](const rviz::Config& panels, int index, const char* key) {
        return rviz::YamlConfigWriter()
            .writeString(panels.mapGetChild("MsgDataPanel").mapGetChild("panelList").mapGetChild(
                QString("panel_%1").arg(index)).mapGetChild(key))
            .toStdString();
    };
    for (const char* key : {"fieldList", "topicName", "showStatus", "sortIndex"}) {
        EXPECT_EQ(part(saved, 0, key), part(config, 0, key)) << key;
    }
    EXPECT_EQ(part(saved, 1, "topicList"), part(config, 1, "topicList"));
    EXPECT_NE(part(saved, 0, "fieldList").find("MODE_A"), std::string::npos);
}

TEST_F(MsgDataPanelTest, DocksDroppedOnTheLeftOrBottomTakeSlots)
{
    for (int index = 0; index < 3; ++index) {
        OpenDialogWith("/veh");
        Focus("/veh");
        Tick("/veh/vehicleSpeed");
        select->GetSaveButton()->click();
    }
    ASSERT_EQ(panel->GetPanelCount(), 3);
    frame->resize(1600, 1000);
    test_support::ServeEvents([]() { return false; }, 300ms);
    panel->FillWindowDockVector();
    QWidget* central = frame->centralWidget();
    const QPoint origin = central->mapToGlobal(QPoint(0, 0));
    const QSize size = central->size();
    const DockLayout& layout = panel->GetDockLayout();
    const QRect bottom = layout.Area(BottomArea, origin, size);
    const QPoint outside = origin + QPoint(size.width() + 50, 10);
    const int capacity = layout.Capacity(BottomArea, size);
    ASSERT_GE(capacity, 1) << size.width() << "x" << size.height();
    for (int index = 0; index < 3; ++index) {
        panel->ReleasePanelDockAt(panel->GetDock(index), outside, bottom.center());
    }
    const auto docks = panel->GetAreaDocks(BottomArea);
    ASSERT_EQ(docks.size(), std::min(capacity, 3));
    const QVector<QRect> slotRects = layout.Slots(BottomArea, origin, size, docks.size(), docks.size());
    EXPECT_EQ(docks[0]->geometry(), slotRects[0]);
    // Taken out of its slot, a dock leaves room for the others at once.
    panel->ReleasePanelDockAt(docks[0], bottom.center(), outside);
    EXPECT_EQ(panel->GetAreaDocks(BottomArea).size(), docks.size() - 1);
    if (docks.size() > 1) {
        EXPECT_EQ(docks[1]->geometry(), layout.Slots(BottomArea, origin, size, docks.size() - 1, docks.size() - 1)[0]);
    }
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRvizFrame(
        argc, argv, "msg_data_panel_test",
        [](rviz::VisualizationFrame& visualizationFrame, test_support::VirtualDisplay&) {
            visualizationFrame.setGeometry(0, 0, 1600, 1000);
            frame = &visualizationFrame;
            const int result = RUN_ALL_TESTS();
            frame = nullptr;
            return result;
        });
}
