// The 3D displays inside a real rviz frame (ROS master on loopback, virtual X display): what reaches
// the scene, the statuses, the detail tables, the property rules and save and load.
#include "scene_3d_test_support.h"

#include "../support/qt_events.h"
#include "../support/rviz_frame_main.h"

#include "object_array/classification_property.h"
#include "object_array/classification_setting_property.h"
#include "object_array/object_array_display.h"
#include "radar/radar_detect_display.h"
#include "radar/radar_detect_visual.h"
#include "radar/radar_info_property.h"
#include "radar/radar_info_widget.h"
#include "radar/radar_item_delegate.h"
#include "radar/radar_track_display.h"
#include "radar/radar_track_visual.h"
#include "stereo_freespace/stereo_freespace_display.h"
#include "stereo_traffic_light/stereo_traffic_light.h"
#include "stereo_traffic_light/trafficlight_manager.h"
#include "stereo_traffic_light/trafficlight_model.h"
#include "vehicle_models/vehicle_models.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QStandardItemModel>
#include <QTableView>

#include <ros/ros.h>
#include <rviz/config.h>
#include <rviz/properties/bool_property.h>
#include <rviz/properties/editable_enum_property.h>
#include <rviz/visualization_frame.h>
#include <rviz/visualization_manager.h>

#include <chrono>
#include <cmath>
#include <thread>

using namespace scene_3d_test;

namespace {

rviz::VisualizationFrame* frame = nullptr;

// The displays with their message entry open to the tests.
template <typename Display>
class Fed : public Display {
public:
    using Display::processMessage;
};

// rviz's tree handles the display's queued changes first.
void Remove(rviz::Display* display)
{
    QApplication::processEvents();
    delete display;
    QApplication::processEvents();
}

template <typename Display>
Fed<Display>* AddDisplay(const QString& name)
{
    auto* display = new Fed<Display>();
    frame->getManager()->addDisplay(display, true);
    display->setName(name);
    return display;
}

std_msgs::Header MapHeader()
{
    std_msgs::Header header;
    header.frame_id = "map";
    return header;
}

custom::Object Car(double x, double y)
{
    custom::Object object;
    object.classification = 3;
    object.objectBoxCenter.x = x;
    object.objectBoxCenter.y = y;
    object.objectBoxCenter.z = 0.75;
    object.objectBoxSize.x = 4.5;
    object.objectBoxSize.y = 1.8;
    object.objectBoxSize.z = 1.5;
    object.velocity.twist.linear.x = 5;
    object.existenceProbability = 0.9;
    for (const auto& corner : {std::pair<double, double>{-2, -1}, {2, -1}, {2, 1}, {-2, 1}}) {
        geometry_msgs::Point32 point;
        point.x = static_cast<float>(x + corner.first);
        point.y = static_cast<float>(y + corner.second);
        object.boxPolygon.points.push_back(point);
    }
    return object;
}

custom::ObjectArray::ConstPtr Objects(int count)
{
    auto message = boost::make_shared<custom::ObjectArray>();
    message->header = MapHeader();
    for (int index = 0; index < count; ++index) {
        message->objectList.push_back(Car(5.0 * index, index % 2 == 0 ? 3 : -3));
    }
    return message;
}

class ObjectArrayInRviz : public testing::Test {
protected:
    void SetUp() override { display = AddDisplay<rviz_plugin::ObjectArrayDisplay>("ObjectArray"); }
    void TearDown() override { Remove(display); }
    Ogre::SceneNode* Node() const { return display->getSceneNode(); }
    Fed<rviz_plugin::ObjectArrayDisplay>* display = nullptr;
};

} // namespace

TEST_F(ObjectArrayInRviz, TheFirstHundredObjectsAreDrawnAndTheRestRaisesAWarning)
{
    display->processMessage(Objects(101));
    EXPECT_EQ(display->ShownObjectCount(), 100U);
    EXPECT_EQ(StatusText(display, "Incorrect objectList size").value_or(""),
              "The objectList's size [101] is too large, should less than 100.");
    // Cuboid (an entity), polygon (a line), arrow (shaft and head) and text for each object.
    EXPECT_EQ(CountVisible(Node(), "BillboardChain"), 100);
    EXPECT_EQ(CountVisible(Node(), "MovableText"), 100);

    display->processMessage(Objects(100));
    EXPECT_FALSE(StatusText(display, "Incorrect objectList size"));
    display->processMessage(Objects(0));
    EXPECT_EQ(display->ShownObjectCount(), 0U);
    EXPECT_EQ(CountVisible(Node(), "BillboardChain"), 0);
    EXPECT_EQ(CountVisible(Node(), "MovableText"), 0);
}

TEST_F(ObjectArrayInRviz, SettingsActAtOnceOnTheLastMessageAndBadFieldsHideTheirDrawings)
{
    display->processMessage(Objects(3));
    const int entities = CountVisible(Node(), "Entity");
    ASSERT_GT(entities, 3);
    display->subProp("Cuboid")->setValue(false);
    EXPECT_EQ(CountVisible(Node(), "Entity"), entities - 3) << "the cuboids go without new data";
    display->subProp("Polygon")->setValue(false);
    EXPECT_EQ(CountVisible(Node(), "BillboardChain"), 0);
    display->subProp("Object Info")->setValue(false);
    EXPECT_EQ(CountVisible(Node(), "MovableText"), 0);
    display->subProp("Cuboid")->setValue(true);
    display->subProp("Polygon")->setValue(true);
    display->subProp("Object Info")->setValue(true);

    auto message = boost::make_shared<custom::ObjectArray>(*Objects(2));
    message->objectList[1].objectBoxSize.x = -1;  // no cuboid, arrow or text for it
    message->objectList[1].velocity.twist.linear.x = 0.005;
    display->processMessage(message);
    EXPECT_EQ(CountVisible(Node(), "BillboardChain"), 2);
    EXPECT_EQ(CountVisible(Node(), "MovableText"), 1);
    EXPECT_TRUE(StatusText(display, "Incorrect object[1].objectBoxSize.X"));

    // Arrow scales are held to 0 to 3.
    display->subProp("Velocity")->subProp("Arrow Scale")->subProp("X")->setValue(7.0);
    EXPECT_FLOAT_EQ(display->Settings().arrowScale[0], 3.0F);
}

TEST_F(ObjectArrayInRviz, ASilentTopicIsToldOnceASecond)
{
    EXPECT_FALSE(StatusText(display, "Data receiving failure"));
    EXPECT_TRUE(test_support::ServeEvents([&]() { return StatusText(display, "Data receiving failure").has_value(); },
                                          std::chrono::milliseconds(2500)));
    EXPECT_EQ(StatusText(display, "Data receiving failure").value_or(""),
              "No ObjectArray data was received in the last 1 second.");
}

TEST_F(ObjectArrayInRviz, AWarmPoolMakesAndDestroysNothingPerMessage)
{
    display->processMessage(Objects(100));
    display->processMessage(Objects(30));
    Ogre::SceneManager* scene = frame->getManager()->getSceneManager();
    const std::set<std::string> before = SceneObjectNames(scene);
    for (int index = 0; index < 200; ++index) {
        display->processMessage(Objects(index % 2 == 0 ? 100 : 30));
    }
    EXPECT_EQ(SceneObjectNames(scene), before);
}

TEST_F(ObjectArrayInRviz, ClassificationRowsSaveUnderOneKeyAndLoadBack)
{
    auto* setting = Child(display, "Classification Setting");
    ASSERT_NE(setting, nullptr);
    EXPECT_EQ(setting->numChildren(), 4);
    setting->childAt(3)->subProp("Text")->setValue("truck");
    rviz::Config config;
    display->save(config);
    EXPECT_TRUE(config.mapGetChild("Classification Setting").isValid());
    EXPECT_EQ(config.mapGetChild("Classification Setting").mapGetChild("Classification 4").mapGetChild("Text").getValue(),
              "truck");

    auto* loaded = AddDisplay<rviz_plugin::ObjectArrayDisplay>("Loaded");
    loaded->load(config);
    EXPECT_EQ(loaded->Settings().classifications.at(3).text, "truck");
    EXPECT_EQ(loaded->Settings().classifications.size(), 4U);
    Remove(loaded);
}

TEST_F(ObjectArrayInRviz, RowsAreAddedUpTo255TypedOverAndDeleted)
{
    auto* setting = qobject_cast<rviz_plugin::ClassificationSettingProperty*>(Child(display, "Classification Setting"));
    ASSERT_NE(setting, nullptr);
    EXPECT_EQ(setting->getViewData(0, Qt::DisplayRole).toString(), "Classification Setting (4)");
    // A typed summary moves the row to its new value.
    setting->GetRow(1)->setValue("7, cyclist");
    EXPECT_EQ(display->Settings().classifications.count(1), 0U);
    EXPECT_EQ(display->Settings().classifications.at(7).text, "cyclist");
    EXPECT_EQ(setting->GetRow(1)->getValue().toString(), "7, cyclist");

    for (int click = 0; click < 260; ++click) {
        setting->OnAddButtonClick();
    }
    EXPECT_EQ(setting->GetRowCount(), 255);
    EXPECT_EQ(display->Settings().classifications.at(255).text, "Classification255");

    // Deleting one of the rows that share 255 keeps the record of the others.
    Q_EMIT setting->GetRow(10)->DeletedClassification(255);
    QApplication::processEvents();
    EXPECT_EQ(setting->GetRowCount(), 254);
    EXPECT_EQ(display->Settings().classifications.count(255), 1U);
    Q_EMIT setting->GetRow(0)->DeletedClassification(0);
    QApplication::processEvents();
    EXPECT_EQ(display->Settings().classifications.count(0), 0U);
    EXPECT_EQ(setting->getViewData(0, Qt::DisplayRole).toString(), "Classification Setting (253)");
}

TEST(RadarInRviz, DetectionsPastTheLimitAndBadPointsAreLeftOutButListed)
{
    auto* display = AddDisplay<rviz_plugin::RadarDetectDisplay>("RadarDetect");
    auto message = boost::make_shared<custom::RadarDetectArray>();
    message->header = MapHeader();
    message->detectList.resize(251);
    for (std::size_t index = 0; index < message->detectList.size(); ++index) {
        message->detectList[index].x = static_cast<float>(index) * 0.2F;
    }
    message->detectList[7].vx = 128.5F;
    display->subProp("Detail Panel")->setValue(true);
    display->processMessage(message);
    EXPECT_EQ(display->Visual()->PassedCount(), 249U);
    EXPECT_EQ(StatusText(display, "RadarDetectArray").value_or(""),
              "The number of points in the received data exceeds 250, excessive points will not be displayed.");
    EXPECT_TRUE(StatusText(display, "vx"));
    // The table lists the bad point, red.
    QStandardItemModel* model = display->InfoWidget()->Model();
    EXPECT_EQ(model->rowCount(), 250);
    EXPECT_EQ(model->item(7, 3)->text(), "128.5");
    auto* delegate = qobject_cast<rviz_plugin::RadarItemDelegate*>(display->InfoWidget()->View()->itemDelegate());
    ASSERT_NE(delegate, nullptr);
    EXPECT_TRUE(delegate->IsOutOfRange("vx", model->item(7, 3)->text()));
    EXPECT_FALSE(delegate->IsOutOfRange("vx", "128"));

    message->detectList.resize(20);
    message->detectList[7].vx = 0;
    message->detectList[8].y = std::nanf("");  // passes the checks, but is not drawn
    display->processMessage(message);
    EXPECT_FALSE(StatusText(display, "RadarDetectArray"));
    EXPECT_FALSE(StatusText(display, "vx"));
    EXPECT_FALSE(StatusText(display, "y"));
    EXPECT_EQ(display->Visual()->PassedCount(), 20U);
    EXPECT_EQ(model->item(20, 1)->text(), "");
    EXPECT_EQ(CountShown(display->getSceneNode(), "Entity"), 19) << "the other markers are parked out of sight";

    // A fourth field can't be ticked while three are.
    auto* info = qobject_cast<rviz_plugin::RadarInfoProperty*>(Child(display, "Info"));
    ASSERT_NE(info, nullptr);
    info->FieldProperty(0)->setValue(true);  // id, with x and y already ticked
    EXPECT_TRUE(info->FieldProperty(5)->IsDisabled());
    EXPECT_EQ(info->FieldProperty(5)->getViewFlags(0), Qt::ItemFlags());
    info->FieldProperty(1)->setValue(false);
    EXPECT_FALSE(info->FieldProperty(5)->IsDisabled());

    // Saved settings come back.
    display->subProp("Point Size")->setValue(1.5);
    rviz::Config config;
    display->save(config);
    auto* loaded = AddDisplay<rviz_plugin::RadarDetectDisplay>("Loaded");
    loaded->load(config);
    EXPECT_FLOAT_EQ(loaded->Settings().pointScale, 1.5F);
    EXPECT_EQ(loaded->Settings().infoFields, display->Settings().infoFields);
    EXPECT_TRUE(loaded->Settings().detailPanelShown);
    Remove(loaded);
    Remove(display);
}

TEST(RadarInRviz, TracksDrawAsBoxesUpToAHundred)
{
    auto* display = AddDisplay<rviz_plugin::RadarTrackDisplay>("RadarTrack");
    auto message = boost::make_shared<custom::RadarTrackArray>();
    message->header = MapHeader();
    message->trackList.resize(101);
    for (auto& track : message->trackList) {
        track.length = 4;
        track.width = 2;
        track.height = 1.5F;
    }
    message->trackList[0].length = 205;
    display->processMessage(message);
    EXPECT_EQ(display->Visual()->PassedCount(), 99U);
    EXPECT_TRUE(StatusText(display, "RadarTrackArray"));
    EXPECT_EQ(StatusText(display, "length").value_or(""),
              "The value of length in the received data exceeds the value range [0, 204.7]. Ensure this value is "
              "within the range.");
    EXPECT_EQ(CountVisible(display->getSceneNode(), "BillboardChain"), 99);

    // The table lists all tracks, twenty columns without z; an acceleration on the upper limit is red.
    display->subProp("Detail Panel")->setValue(true);
    message->trackList[1].ax = 25.6F;
    display->processMessage(message);
    QStandardItemModel* model = display->InfoWidget()->Model();
    EXPECT_EQ(model->rowCount(), 100);
    EXPECT_EQ(model->columnCount(), 20);
    EXPECT_EQ(model->headerData(13, Qt::Horizontal).toString(), "height");
    EXPECT_EQ(model->item(0, 11)->text(), "205");
    auto* delegate = qobject_cast<rviz_plugin::RadarItemDelegate*>(display->InfoWidget()->View()->itemDelegate());
    ASSERT_NE(delegate, nullptr);
    EXPECT_TRUE(delegate->IsOutOfRange("ax", model->item(1, 6)->text()));
    EXPECT_FALSE(delegate->IsOutOfRange("ax", "-25.6"));
    EXPECT_TRUE(delegate->IsOutOfRange("length", "205"));
    EXPECT_EQ(display->getName(), "RadarTrack");
    display->setTopic("/radar_track", "custom/RadarTrackArray");
    EXPECT_EQ(display->getName(), "RadarTrackArray(/radar_track)");
    EXPECT_EQ(rviz_plugin::RadarTrackDisplay::DefaultPanelGeometry(QRect(0, 0, 1920, 1080)),
              QRect(QPoint(100, 1079 - 350), QPoint(1749, 1079 - 101)));
    Remove(display);
}

TEST(FreespaceInRviz, ABadGridKeepsTheLastDrawing)
{
    auto* display = AddDisplay<rviz_plugin::StereoFreespaceDisplay>("StereoFreespace");
    auto grid = boost::make_shared<orsa_msgs::StereoFreespace>();
    grid->header = MapHeader();
    grid->info.xEnd = 10;
    grid->info.xResolution = 0.5;
    grid->info.yStart = -5;
    grid->info.yEnd = 5;
    grid->info.yResolution = 0.5;
    for (uint32_t x = 0; x < 20; ++x) {
        for (uint32_t y = 0; y < 20; ++y) {
            orsa_msgs::StereoFreespaceCell cell;
            cell.xIndex = x;
            cell.yIndex = y;
            cell.status = static_cast<uint8_t>((x + y) % 3);
            cell.probability = 1;
            grid->cellData.push_back(cell);
        }
    }
    display->processMessage(grid);
    const std::size_t free = display->Visual()->PointCount(1);
    EXPECT_GT(free, 100U);
    EXPECT_EQ(display->Visual()->PointCount(0) + free + display->Visual()->PointCount(2), 400U);

    auto bad = boost::make_shared<orsa_msgs::StereoFreespace>(*grid);
    bad->info.xResolution = 0;
    bad->cellData.resize(10);
    display->processMessage(bad);
    EXPECT_TRUE(StatusText(display, "StereoFreespaceInfoXResolution"));
    EXPECT_EQ(display->Visual()->PointCount(1), free);
    display->processMessage(grid);
    EXPECT_FALSE(StatusText(display, "StereoFreespaceInfoXResolution"));
    Remove(display);
}

TEST(TrafficLightsInRviz, BadEntriesAreHiddenAndLifetimesRunOut)
{
    auto* display = AddDisplay<rviz_plugin::StereoTrafficLight>("StereoTrafficLight");
    auto message = boost::make_shared<orsa_msgs::StereoTrafficLightArray>();
    message->header = MapHeader();
    for (int index = 0; index < 51; ++index) {
        orsa_msgs::StereoTrafficLight entry;
        entry.scale = 1;
        entry.transform.translation.x = 30;
        entry.transform.translation.y = index;
        orsa_msgs::Light round;
        round.type = orsa_msgs::Light::ROUND_LIGHT;
        round.state = orsa_msgs::Light::BLACK;
        entry.lights.push_back(round);
        orsa_msgs::Light countdown;
        countdown.type = orsa_msgs::Light::COUNTDOWN_LIGHT;
        countdown.countdownValue = 139;
        entry.lights.push_back(countdown);
        message->trafficLights.push_back(entry);
    }
    message->trafficLights[2].scale = 0;
    message->trafficLights[3].lifetime = ros::Duration(1, 0);
    display->processMessage(message);
    const auto* manager = display->Manager();
    EXPECT_EQ(StatusText(display, "trafficLights").value_or(""), "A maximum of 50 intersections can be displayed");
    EXPECT_EQ(StatusText(display, "scale").value_or(""),
              "The value is set to 0,It must be greater than 0 and not greater than 5");
    EXPECT_TRUE(manager->IsIntersectionVisible(0));
    EXPECT_FALSE(manager->IsIntersectionVisible(2));
    EXPECT_TRUE(manager->IsIntersectionVisible(49));
    // A black round lamp: all three lamps black; the countdown's digits 13 and 9.
    const auto& head = manager->Group(0, 0);
    ASSERT_EQ(head.size(), 4U);
    EXPECT_TRUE(head[0]->IsOutsideBack());
    for (std::size_t lamp = 1; lamp < 4; ++lamp) {
        EXPECT_EQ(head[lamp]->GetState(), orsa_msgs::Light::BLACK);
        EXPECT_TRUE(head[lamp]->IsLoaded()) << "the generated mesh was not found";
    }
    const auto& countdown = manager->Group(0, 1);
    ASSERT_EQ(countdown.size(), 3U);
    EXPECT_EQ(countdown[1]->MeshFile(), "digital_14.dae");
    EXPECT_EQ(countdown[2]->MeshFile(), "digital_24.dae");
    // A horizontal head hangs half a metre higher.
    EXPECT_FLOAT_EQ(countdown[0]->Node()->getParentSceneNode()->getParentSceneNode()->getPosition().z, 0.0F);

    EXPECT_TRUE(manager->IsIntersectionVisible(3));
    EXPECT_TRUE(test_support::ServeEvents([&]() { return !manager->IsIntersectionVisible(3); },
                                          std::chrono::seconds(3)));
    EXPECT_TRUE(manager->IsIntersectionVisible(4));
    message->trafficLights.resize(5);
    message->trafficLights[2].scale = 1;
    message->trafficLights[0].direction = 1;
    message->trafficLights[0].lights[1].countdownValue = 7;
    display->processMessage(message);
    const auto& turned = manager->Group(0, 1);
    EXPECT_EQ(turned[1]->MeshFile(), "digital_1.dae");
    EXPECT_EQ(turned[2]->MeshFile(), "digital_22.dae");
    EXPECT_FLOAT_EQ(turned[0]->Node()->getParentSceneNode()->getParentSceneNode()->getPosition().z, 0.5F);
    EXPECT_FALSE(StatusText(display, "trafficLights"));
    EXPECT_FALSE(StatusText(display, "scale"));
    EXPECT_TRUE(manager->IsIntersectionVisible(2));
    EXPECT_FALSE(manager->IsIntersectionVisible(5));
    Remove(display);
}

TEST(VehicleModelsInRviz, OnlyRobotDescriptionsAreOfferedAndTheRestOfTheTreeIsHidden)
{
    ros::NodeHandle node;
    node.setParam("vehicle_description", "<robot name=\"car\"><link name=\"base_link\"/></robot>");
    node.setParam("not_a_robot", "<model name=\"x\"/>");
    node.setParam("speed", "fast");
    auto* display = new rviz_plugin::VehicleModels();
    frame->getManager()->addDisplay(display, true);
    QStringList shown;
    for (int index = 0; index < display->numChildren(); ++index) {
        if (!display->childAt(index)->getHidden()) {
            shown << display->childAt(index)->getName();
        }
    }
    shown.sort();
    EXPECT_EQ(shown, (QStringList{"Alpha", "Links", "Vehicle Description"}));
    rviz::EditableEnumProperty* description = display->DescriptionProperty();
    EXPECT_EQ(description->getString(), "vehicle_description");
    Q_EMIT description->requestOptions(description);
    QWidget* editor = description->createEditor(nullptr, QStyleOptionViewItem());
    auto* combo = qobject_cast<QComboBox*>(editor);
    ASSERT_NE(combo, nullptr);
    QStringList options;
    for (int index = 0; index < combo->count(); ++index) {
        options << combo->itemText(index);
    }
    EXPECT_EQ(options, QStringList{"vehicle_description"});
    delete editor;
    Remove(display);
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRvizFrame(argc, argv, "scene_3d_displays_test",
                                       [](rviz::VisualizationFrame& visualizationFrame, test_support::VirtualDisplay&) {
                                           frame = &visualizationFrame;
                                           frame->getManager()->setFixedFrame("map");
                                           const int result = RUN_ALL_TESTS();
                                           frame = nullptr;
                                           return result;
                                       });
}
