// The object array display's checks, texts and marker geometry, without a scene.
#include "recording_sink.h"

#include "scene_3d_logic/msg_checker.h"
#include "scene_3d_logic/object_markers.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace rviz_plugin;

namespace {

custom::Object GoodObject()
{
    custom::Object object;
    object.classification = 3;
    object.objectBoxCenter.x = 10;
    object.objectBoxCenter.y = -2;
    object.objectBoxCenter.z = 0.8;
    object.objectBoxSize.x = 4.5;
    object.objectBoxSize.y = 1.8;
    object.objectBoxSize.z = 1.6;
    object.objectBoxOrientation = 0.3;
    object.existenceProbability = 0.9;
    object.classificationConfidence = 0.75;
    object.velocity.twist.linear.x = 3;
    object.velocity.twist.linear.y = 4;
    object.trackId = 17;
    for (const auto& corner : {std::pair<float, float>{8, -3}, {12, -3}, {12, -1}, {8, -1}}) {
        geometry_msgs::Point32 point;
        point.x = corner.first;
        point.y = corner.second;
        object.boxPolygon.points.push_back(point);
    }
    return object;
}

struct Drawings {
    bool cube;
    bool polygon;
    bool velocity;
    bool info;
};

Drawings Check(MsgChecker& checker, const ObjectArraySettings& settings, const custom::Object& object,
               unsigned index = 0)
{
    checker.CheckMsg(object, index);
    Drawings drawings{checker.IsRenderItemValid(settings.cubeEnabled, checker.CubeNames()),
                      checker.IsRenderItemValid(settings.polygonEnabled, checker.PolygonNames()),
                      checker.IsRenderItemValid(settings.velocityEnabled, checker.VelocityNames()),
                      checker.IsObjectInfoValid()};
    checker.DeleteDisplayStatus();
    return drawings;
}

} // namespace

TEST(MsgChecker, ABadFieldHidesOnlyTheDrawingsThatNeedIt)
{
    ObjectArraySettings settings;
    RecordingSink sink;
    MsgChecker checker(settings, sink);

    Drawings good = Check(checker, settings, GoodObject());
    EXPECT_TRUE(good.cube && good.polygon && good.velocity && good.info);
    EXPECT_TRUE(sink.statuses.empty());

    custom::Object onePoint = GoodObject();
    onePoint.boxPolygon.points.resize(1);
    Drawings drawn = Check(checker, settings, onePoint, 4);
    EXPECT_TRUE(drawn.cube && drawn.velocity && drawn.info);
    EXPECT_FALSE(drawn.polygon);
    ASSERT_TRUE(sink.Has("Incorrect object[4].boxPolygonSize"));
    EXPECT_EQ(sink.TextOf("Incorrect object[4].boxPolygonSize"),
              "The polygon cannot be drawn because the number of points [1] is out of range. Adjust the number to "
              "ensure it is within [2, 5000].");
    EXPECT_EQ(sink.LevelOf("Incorrect object[4].boxPolygonSize"), StatusSink::Error);

    custom::Object negative = GoodObject();
    negative.objectBoxSize.x = -1;
    drawn = Check(checker, settings, negative, 1);
    EXPECT_FALSE(drawn.cube);
    EXPECT_FALSE(drawn.velocity);
    EXPECT_FALSE(drawn.info);
    EXPECT_TRUE(drawn.polygon);
    EXPECT_EQ(sink.TextOf("Incorrect object[1].objectBoxSize.X"),
              "The value of objectBoxSize.x [-1.0000000000000000] is out of range.Adjust the value to ensure it is "
              "within [0, 10000].");
    // The new object's fault replaced the earlier object's status.
    EXPECT_FALSE(sink.Has("Incorrect object[4].boxPolygonSize"));

    // An object without faults clears nothing.
    Check(checker, settings, GoodObject(), 2);
    EXPECT_TRUE(sink.Has("Incorrect object[1].objectBoxSize.X"));
}

TEST(MsgChecker, EveryFailedNameIsReportedAndTheFirstBadPointDecides)
{
    ObjectArraySettings settings;
    RecordingSink sink;
    MsgChecker checker(settings, sink);
    custom::Object object = GoodObject();
    object.objectBoxCenter.x = 60000;
    object.objectBoxCenter.z = -50001;
    object.boxPolygon.points[1].y = 70000;
    object.boxPolygon.points[3].y = -80000;
    const Drawings drawn = Check(checker, settings, object);
    EXPECT_FALSE(drawn.cube);
    EXPECT_FALSE(drawn.polygon);
    EXPECT_TRUE(sink.Has("Incorrect object[0].objectBoxCenter.X"));
    EXPECT_TRUE(sink.Has("Incorrect object[0].objectBoxCenter.Z"));
    EXPECT_FALSE(sink.Has("Incorrect object[0].objectBoxCenter.Y"));
    EXPECT_EQ(sink.TextOf("Incorrect object[0].points.Y"),
              "The value of boxPolygon.points.y [70000.0000000000000000] is out of range. Use the coordinate "
              "compensation function to adjust the value. Ensure it is within [-50000, 50000].");
    EXPECT_EQ(sink.TextOf("Incorrect object[0].objectBoxCenter.Z"),
              "The value of objectBoxCenter.z [-50001.0000000000000000] is out of range. Use the coordinate "
              "compensation function to adjust the value. Ensure it is within [-50000, 50000].");
}

TEST(MsgChecker, BoundsHoldWithinDoubleEpsilonAndTheOrientationLimitReadsSixDigits)
{
    ObjectArraySettings settings;
    settings.showExistenceProbability = true;
    RecordingSink sink;
    MsgChecker checker(settings, sink);
    custom::Object object = GoodObject();
    object.existenceProbability = 1 + 1e-16;
    object.objectBoxSize.z = 10000 + 1e-12;  // farther than epsilon
    object.objectBoxOrientation = -6.283185307179586;
    object.velocity.twist.linear.x = 100;
    Check(checker, settings, object);
    EXPECT_FALSE(sink.Has("Incorrect object[0].existenceProbability"));
    EXPECT_FALSE(sink.Has("Incorrect object[0].objectBoxOrientation"));
    EXPECT_FALSE(sink.Has("Incorrect object[0].linear.X"));
    EXPECT_TRUE(sink.Has("Incorrect object[0].objectBoxSize.Z"));

    object = GoodObject();
    object.objectBoxOrientation = 7;
    Check(checker, settings, object, 3);
    EXPECT_EQ(sink.TextOf("Incorrect object[3].objectBoxOrientation"),
              "The value of objectBoxOrientation [7.0000000000000000] is out of range.Adjust the value to ensure it "
              "is within [-6.28319, 6.28319].");
    object.objectBoxOrientation = std::nan("");
    Check(checker, settings, object, 3);
    EXPECT_TRUE(sink.Has("Incorrect object[3].objectBoxOrientation")) << "NaN must not reach the scene";
}

TEST(MsgChecker, AWrongProbabilityWarnsOnlyWhenShownAndKeepsTheText)
{
    ObjectArraySettings settings;
    RecordingSink sink;
    MsgChecker checker(settings, sink);
    custom::Object object = GoodObject();
    object.existenceProbability = 1.5;
    object.classificationConfidence = -0.5;
    EXPECT_TRUE(Check(checker, settings, object).info);
    EXPECT_TRUE(sink.statuses.empty());

    settings.showExistenceProbability = true;
    settings.showClassificationConfidence = true;
    EXPECT_TRUE(Check(checker, settings, object).info);
    EXPECT_EQ(sink.LevelOf("Incorrect object[0].existenceProbability"), StatusSink::Warn);
    EXPECT_EQ(sink.LevelOf("Incorrect object[0].classificationConfidence"), StatusSink::Warn);

    settings.objectInfoEnabled = false;
    EXPECT_FALSE(Check(checker, settings, GoodObject()).info);
    settings.cubeEnabled = false;
    EXPECT_FALSE(Check(checker, settings, GoodObject()).cube);
}

TEST(ObjectMarkers, CubePolygonArrowAndTextStandWhereTheObjectIs)
{
    ObjectArraySettings settings;
    std_msgs::Header header;
    header.frame_id = "base_link";
    header.stamp = ros::Time(5, 6);
    const custom::Object object = GoodObject();

    const auto cube = ObjectMarkers::Cube(object, header, settings);
    EXPECT_EQ(cube.type, visualization_msgs::Marker::CUBE);
    EXPECT_EQ(cube.header.frame_id, "base_link");
    EXPECT_EQ(cube.header.stamp, ros::Time(5, 6));
    EXPECT_DOUBLE_EQ(cube.pose.orientation.z, std::sin(0.15));
    EXPECT_DOUBLE_EQ(cube.pose.orientation.w, std::cos(0.15));
    EXPECT_DOUBLE_EQ(cube.scale.x, 4.5);
    // "vehicle" is the fourth colour pair; the record's alpha.
    EXPECT_NEAR(cube.color.r, 60 / 255.0, 1e-6);
    EXPECT_NEAR(cube.color.a, 0.5, 1e-6);

    const auto polygon = ObjectMarkers::Polygon(object, header, settings);
    EXPECT_EQ(polygon.type, visualization_msgs::Marker::LINE_LIST);
    ASSERT_EQ(polygon.points.size(), 8U);  // A-B, B-C, C-D, D-A
    EXPECT_EQ(polygon.points[0].x, 8);
    EXPECT_EQ(polygon.points[1].x, 12);
    EXPECT_EQ(polygon.points[2].x, 12);
    EXPECT_EQ(polygon.points[6].x, 8);
    EXPECT_EQ(polygon.points[6].y, -1);
    EXPECT_EQ(polygon.points[7].y, -3);
    EXPECT_DOUBLE_EQ(polygon.scale.x, 0.1);

    const auto arrow = ObjectMarkers::Velocity(object, header, settings);
    EXPECT_DOUBLE_EQ(ObjectMarkers::Speed(object), 5);
    EXPECT_NEAR(arrow.scale.x, 0.4 * 5, 1e-6);
    EXPECT_NEAR(arrow.pose.position.z, 0.8 + 0.8 + 0.1, 1e-6);
    EXPECT_NEAR(arrow.color.b, 1.0, 1e-6);

    const auto text = ObjectMarkers::Text(object, header, settings, "vehicle\n");
    EXPECT_NEAR(text.pose.position.z, 0.8 + 0.8 + 0.2, 1e-6);
    EXPECT_DOUBLE_EQ(text.scale.z, 1.0);

    custom::Object unknown = object;
    unknown.classification = 42;
    const auto black = ObjectMarkers::Cube(unknown, header, settings);
    EXPECT_EQ(black.color.r + black.color.g + black.color.b, 0);
    EXPECT_EQ(black.color.a, 1);
    EXPECT_EQ(ObjectMarkers::Polygon(unknown, header, settings).color.g, 0);
}

TEST(ObjectMarkers, InfoTextHasTheTickedLinesInOrder)
{
    ObjectArraySettings settings;
    custom::Object object = GoodObject();
    EXPECT_EQ(ObjectMarkers::GetObjectInfoText(object, settings), "vehicle\nVelocity: 5\nTrack Id: 17\n");

    settings.showClassificationConfidence = true;
    settings.showObjectId = true;
    settings.showExistenceProbability = true;
    settings.showBoxSize = true;
    settings.showBoxCenter = true;
    settings.showBoxOrientation = true;
    settings.showTextDisplay = true;
    object.classificationConfidence = -0.2;
    object.objectId = 9;
    object.textDisplay = std::string(35, 'a');
    object.classification = 200;
    EXPECT_EQ(ObjectMarkers::GetObjectInfoText(object, settings),
              "200\nClassification Confidence: 0\nVelocity: 5\nObject Id: 9\nTrack Id: 17\n"
              "Existence Probability: 0.9\nSize: (4.5, 1.8, 1.6)\nCenter: (10, -2, 0.8)\nOrientation: 0.3\n" +
                  std::string(30, 'a') + "\naaaaa\n");

    settings = ObjectArraySettings();
    settings.classifications[3].text = QString(40, 'v');
    object.classification = 3;
    settings.showVelocity = settings.showTrackId = false;
    EXPECT_EQ(ObjectMarkers::GetObjectInfoText(object, settings), std::string(30, 'v') + "...\n");
}

TEST(ObjectColors, PairsWrapAroundAndUnknownColumnsAreBlack)
{
    EXPECT_EQ(ObjectColors::GetColor(0, ObjectColors::Cuboid).rgb(), QColor(0, 159, 255).rgb());
    EXPECT_EQ(ObjectColors::GetColor(14 + 13, ObjectColors::Polygon).rgb(), QColor(206, 88, 223).rgb());
    EXPECT_NEAR(ObjectColors::GetColor(5, ObjectColors::Polygon).alphaF(), 0.5, 1e-3);
    EXPECT_EQ(ObjectColors::GetColor(5, 2), QColor(Qt::black));
    const auto table = ObjectArraySettings::DefaultClassifications();
    ASSERT_EQ(table.size(), 4U);
    EXPECT_EQ(table.at(0).text, "unknown_obstacle");
    EXPECT_EQ(table.at(2).text, "non_motorized_vehicle");
}
