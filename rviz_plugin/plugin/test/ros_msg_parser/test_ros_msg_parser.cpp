// The run-time parser against compiled roscpp serialisation of the same messages.
#include "ros_msg_parser/parser.h"

#include <custom/ObjectArray.h>
#include <custom/RoadInfo.h>
#include <nav_msgs/Odometry.h>
#include <orsa_msgs/StereoTrafficLightArray.h>
#include <sensor_msgs/CameraInfo.h>
#include <sensor_msgs/Image.h>
#include <sensor_msgs/Imu.h>
#include <sensor_msgs/PointCloud2.h>
#include <tf2_msgs/TFMessage.h>
#include <visualization_msgs/MarkerArray.h>

#include <ros/serialization.h>

#include <gtest/gtest.h>

#include "../support/ros_test_main.h"

#include <map>

using RosMsgParser::FlatMessage;
using RosMsgParser::Parser;
using RosMsgParser::ROSType;
using RosMsgParser::Span;
using test_support::Serialize;

namespace {


template <typename T>
Parser MakeParser(const std::string& topic)
{
    return Parser(topic, ROSType(ros::message_traits::DataType<T>::value()),
                  ros::message_traits::Definition<T>::value());
}

// Decodes message through its own definition: path -> number, path -> text, path -> blob size.
struct Decoded {
    std::map<std::string, double> numbers;
    std::map<std::string, std::string> texts;
    std::map<std::string, std::size_t> blobs;
    std::size_t numberCount = 0;
};

template <typename T>
Decoded Decode(const T& message, const std::string& topic = "/t",
               Parser::MaxArrayPolicy policy = Parser::KEEP_LARGE_ARRAYS, std::size_t maxArraySize = 100)
{
    Parser parser = MakeParser<T>(topic);
    parser.setMaxArrayPolicy(policy, maxArraySize);
    const std::vector<uint8_t> bytes = Serialize(message);
    FlatMessage flat;
    parser.deserializeIntoFlatMsg(Span<uint8_t>(bytes), &flat);
    RosMsgParser::RenamedValues values;
    RosMsgParser::CreateRenamedValues(flat, values);
    // The names built together, sharing their parents' paths, equal those built one by one.
    std::size_t index = 0;
    for (const auto& [leaf, number] : flat.value) {
        EXPECT_EQ(values.at(index++).first, leaf.toStdString());
    }
    Decoded decoded;
    decoded.numberCount = values.size();
    for (const auto& [path, value] : values) {
        decoded.numbers[path] = value;
    }
    for (const auto& [leaf, text] : flat.name) {
        decoded.texts[leaf.toStdString()] = text;
    }
    for (const auto& [leaf, blob] : flat.blob) {
        decoded.blobs[leaf.toStdString()] = blob.size();
    }
    return decoded;
}

std_msgs::Header Header(uint32_t seq)
{
    std_msgs::Header header;
    header.seq = seq;
    header.stamp = ros::Time(1700000000, 250000000);
    header.frame_id = "base_link";
    return header;
}

} // namespace

TEST(RosMsgParser, ImuMatchesCompiledDeserialisation)
{
    sensor_msgs::Imu imu;
    imu.header = Header(3);
    imu.orientation.x = 0.1;
    imu.orientation.w = 0.99;
    imu.angular_velocity.z = -2.5;
    imu.linear_acceleration.y = 9.81;
    for (int i = 0; i < 9; ++i) {
        imu.orientation_covariance[i] = i * 0.5;
        imu.linear_acceleration_covariance[i] = -i;
    }
    const Decoded d = Decode(imu, "/imu");
    EXPECT_DOUBLE_EQ(d.numbers.at("/imu/header/seq"), 3);
    EXPECT_DOUBLE_EQ(d.numbers.at("/imu/header/stamp"), 1700000000.25);
    EXPECT_EQ(d.texts.at("/imu/header/frame_id"), "base_link");
    EXPECT_DOUBLE_EQ(d.numbers.at("/imu/orientation/x"), 0.1);
    EXPECT_DOUBLE_EQ(d.numbers.at("/imu/orientation/w"), 0.99);
    EXPECT_DOUBLE_EQ(d.numbers.at("/imu/angular_velocity/z"), -2.5);
    EXPECT_DOUBLE_EQ(d.numbers.at("/imu/linear_acceleration/y"), 9.81);
    EXPECT_DOUBLE_EQ(d.numbers.at("/imu/orientation_covariance.8"), 4.0);
    EXPECT_DOUBLE_EQ(d.numbers.at("/imu/linear_acceleration_covariance.3"), -3.0);
    // seq, stamp, 4 + 3 + 3 vector values and 3 x 9 covariances
    EXPECT_EQ(d.numberCount, 2U + 10U + 27U);
}

TEST(RosMsgParser, MarkerArrayNestedArraysAndStrings)
{
    visualization_msgs::MarkerArray markers;
    markers.markers.resize(3);
    for (std::size_t i = 0; i < markers.markers.size(); ++i) {
        auto& marker = markers.markers[i];
        marker.header = Header(static_cast<uint32_t>(i));
        marker.ns = "ns" + std::to_string(i);
        marker.id = static_cast<int32_t>(i) * 10;
        marker.type = visualization_msgs::Marker::LINE_STRIP;
        marker.scale.x = 0.5;
        marker.color.a = 1.0F;
        marker.lifetime = ros::Duration(-1, 5);
        marker.points.resize(i + 1);
        marker.points.back().z = 7.0 + static_cast<double>(i);
        marker.text = "label";
    }
    const Decoded d = Decode(markers, "/markers");
    EXPECT_DOUBLE_EQ(d.numbers.at("/markers/markers.2/id"), 20);
    EXPECT_EQ(d.texts.at("/markers/markers.1/ns"), "ns1");
    EXPECT_DOUBLE_EQ(d.numbers.at("/markers/markers.2/points.2/z"), 9.0);
    EXPECT_DOUBLE_EQ(d.numbers.at("/markers/markers.0/points.0/z"), 7.0);
    EXPECT_DOUBLE_EQ(d.numbers.at("/markers/markers.1/scale/x"), 0.5);
    EXPECT_DOUBLE_EQ(d.numbers.at("/markers/markers.1/lifetime"), -1.0 + 5e-9);
    EXPECT_DOUBLE_EQ(d.numbers.at("/markers/markers.0/frame_locked"), 0.0);
    EXPECT_EQ(d.texts.count("/markers/markers.2/mesh_resource"), 1U);
    EXPECT_EQ(d.numbers.count("/markers/markers.3/id"), 0U);
}

TEST(RosMsgParser, ImageDataBecomesABlobAndSmallByteArraysStayNumbers)
{
    sensor_msgs::Image image;
    image.header = Header(1);
    image.height = 1080;
    image.width = 1920;
    image.encoding = "bgr8";
    image.step = 1920 * 3;
    image.data.assign(static_cast<std::size_t>(1920) * 1080 * 3, 0x5A);
    const Decoded big = Decode(image, "/camera");
    ASSERT_EQ(big.blobs.count("/camera/data"), 1U);
    EXPECT_EQ(big.blobs.at("/camera/data"), image.data.size());
    EXPECT_DOUBLE_EQ(big.numbers.at("/camera/width"), 1920);
    EXPECT_EQ(big.numbers.count("/camera/data.0"), 0U);
    // Discarding large arrays leaves the blob out and decodes the rest.
    const Decoded discarded = Decode(image, "/camera", Parser::DISCARD_LARGE_ARRAYS, 100);
    EXPECT_TRUE(discarded.blobs.empty());
    EXPECT_DOUBLE_EQ(discarded.numbers.at("/camera/step"), 5760);

    image.data = {1, 2, 3};
    const Decoded small = Decode(image, "/camera");
    EXPECT_TRUE(small.blobs.empty());
    EXPECT_DOUBLE_EQ(small.numbers.at("/camera/data.2"), 3);
}

TEST(RosMsgParser, ArrayCutAndPolicyLimits)
{
    sensor_msgs::PointCloud2 cloud;
    cloud.header = Header(2);
    cloud.fields.resize(150);
    for (std::size_t i = 0; i < cloud.fields.size(); ++i) {
        cloud.fields[i].name = "f" + std::to_string(i);
        cloud.fields[i].offset = static_cast<uint32_t>(i * 4);
    }
    cloud.is_dense = true;
    const Decoded kept = Decode(cloud, "/points", Parser::KEEP_LARGE_ARRAYS, 100);
    EXPECT_DOUBLE_EQ(kept.numbers.at("/points/fields.99/offset"), 396);
    EXPECT_EQ(kept.numbers.count("/points/fields.100/offset"), 0U);
    EXPECT_DOUBLE_EQ(kept.numbers.at("/points/is_dense"), 1);  // fields after the cut array still decode
    const Decoded dropped = Decode(cloud, "/points", Parser::DISCARD_LARGE_ARRAYS, 100);
    EXPECT_EQ(dropped.numbers.count("/points/fields.0/offset"), 0U);
    EXPECT_DOUBLE_EQ(dropped.numbers.at("/points/is_dense"), 1);

    Parser parser = MakeParser<sensor_msgs::PointCloud2>("/points");
    EXPECT_NO_THROW(parser.setMaxArrayPolicy(Parser::KEEP_LARGE_ARRAYS, 10000));
    try {
        parser.setMaxArrayPolicy(Parser::KEEP_LARGE_ARRAYS, 10001);
        FAIL() << "a limit above 10000 was taken";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "max_array_size limited to 10000 at most");
    }
}

TEST(RosMsgParser, CutArraysOfFixedLayoutElementsKeepTheirFirstElementsAndWhatFollows)
{
    visualization_msgs::Marker marker;
    marker.header = Header(9);
    marker.points.resize(150);
    for (std::size_t i = 0; i < marker.points.size(); ++i) {
        marker.points[i].x = static_cast<double>(i);
    }
    marker.colors.resize(3);
    marker.colors[2].g = 0.5F;
    marker.text = "after";
    marker.mesh_use_embedded_materials = true;
    const Decoded kept = Decode(marker, "/m", Parser::KEEP_LARGE_ARRAYS, 100);
    EXPECT_DOUBLE_EQ(kept.numbers.at("/m/points.99/x"), 99);
    EXPECT_EQ(kept.numbers.count("/m/points.100/x"), 0U);
    EXPECT_DOUBLE_EQ(kept.numbers.at("/m/colors.2/g"), 0.5);
    EXPECT_EQ(kept.texts.at("/m/text"), "after");
    EXPECT_DOUBLE_EQ(kept.numbers.at("/m/mesh_use_embedded_materials"), 1);
    const Decoded dropped = Decode(marker, "/m", Parser::DISCARD_LARGE_ARRAYS, 100);
    EXPECT_EQ(dropped.numbers.count("/m/points.0/x"), 0U);
    EXPECT_DOUBLE_EQ(dropped.numbers.at("/m/colors.2/g"), 0.5);
    EXPECT_DOUBLE_EQ(dropped.numbers.at("/m/mesh_use_embedded_materials"), 1);

    // Number arrays, variable and fixed, are cut the same way.
    sensor_msgs::CameraInfo info;
    info.D.assign(150, 0.25);
    info.D[99] = 9.5;
    info.K[2] = 320;
    info.K[3] = 7;
    const Decoded camera = Decode(info, "/info", Parser::KEEP_LARGE_ARRAYS, 3);
    EXPECT_DOUBLE_EQ(camera.numbers.at("/info/D.2"), 0.25);
    EXPECT_EQ(camera.numbers.count("/info/D.3"), 0U);
    EXPECT_DOUBLE_EQ(camera.numbers.at("/info/K.2"), 320);
    EXPECT_EQ(camera.numbers.count("/info/K.3"), 0U);
    EXPECT_DOUBLE_EQ(Decode(info, "/info").numbers.at("/info/D.99"), 9.5);
}

TEST(RosMsgParser, DecodedMessagesOutliveTheirParserAndKeepWhatCameBeforeAnError)
{
    FlatMessage flat;
    RosMsgParser::RenamedValues before;
    {
        Parser parser = MakeParser<sensor_msgs::Imu>("/imu");
        sensor_msgs::Imu imu;
        imu.header = Header(4);
        imu.linear_acceleration_covariance[8] = 6.5;
        parser.deserializeIntoFlatMsg(Span<uint8_t>(Serialize(imu)), &flat);
        RosMsgParser::CreateRenamedValues(flat, before);
        parser.setMaxArrayPolicy(Parser::KEEP_LARGE_ARRAYS, 5);  // the parser rebuilds how it decodes
    }
    RosMsgParser::RenamedValues after;
    RosMsgParser::CreateRenamedValues(flat, after);
    EXPECT_EQ(after, before);
    ASSERT_EQ(after.size(), 39U);
    EXPECT_EQ(after.back(), (std::pair<std::string, double>("/imu/linear_acceleration_covariance.8", 6.5)));

    // Two markers with four texts each; the second one cut short after its numbers.
    Parser parser = MakeParser<visualization_msgs::MarkerArray>("/markers");
    visualization_msgs::MarkerArray markers;
    markers.markers.resize(2);
    markers.markers[0].ns = "first";
    markers.markers[1].ns = "second";
    markers.markers[1].frame_locked = true;
    const std::vector<uint8_t> bytes = Serialize(markers);
    parser.deserializeIntoFlatMsg(Span<uint8_t>(bytes), &flat);
    EXPECT_EQ(flat.name.size(), 8U);
    // The last 17 bytes of a marker without points and colours: both counts, two empty texts, a bool.
    const std::vector<uint8_t> cut(bytes.begin(), bytes.end() - 10);
    EXPECT_THROW(parser.deserializeIntoFlatMsg(Span<uint8_t>(cut), &flat), RosMsgParser::DeserializeError);
    ASSERT_EQ(flat.name.size(), 6U);
    EXPECT_EQ(flat.name.back().second, "second");
    RosMsgParser::RenamedValues partial;
    RosMsgParser::CreateRenamedValues(flat, partial);
    ASSERT_FALSE(partial.empty());
    EXPECT_EQ(partial.back(), (std::pair<std::string, double>("/markers/markers.1/frame_locked", 1)));
    parser.deserializeIntoFlatMsg(Span<uint8_t>(bytes), &flat);
    EXPECT_EQ(flat.name.size(), 8U);
}

TEST(RosMsgParser, CameraInfoOdometryAndTransforms)
{
    sensor_msgs::CameraInfo info;
    info.header = Header(5);
    info.width = 640;
    info.distortion_model = "plumb_bob";
    info.D = {0.1, -0.2, 0.0, 0.0, 0.05};
    info.P[3] = -12.5;
    info.roi.do_rectify = true;
    const Decoded camera = Decode(info, "/camera_info");
    EXPECT_DOUBLE_EQ(camera.numbers.at("/camera_info/D.4"), 0.05);
    EXPECT_DOUBLE_EQ(camera.numbers.at("/camera_info/P.3"), -12.5);
    EXPECT_DOUBLE_EQ(camera.numbers.at("/camera_info/roi/do_rectify"), 1);
    EXPECT_EQ(camera.texts.at("/camera_info/distortion_model"), "plumb_bob");

    nav_msgs::Odometry odometry;
    odometry.header = Header(6);
    odometry.child_frame_id = "base";
    odometry.pose.pose.position.x = 100.25;
    odometry.twist.covariance[35] = 0.75;
    const Decoded odom = Decode(odometry, "/odom");
    EXPECT_DOUBLE_EQ(odom.numbers.at("/odom/pose/pose/position/x"), 100.25);
    EXPECT_DOUBLE_EQ(odom.numbers.at("/odom/twist/covariance.35"), 0.75);
    EXPECT_EQ(odom.texts.at("/odom/child_frame_id"), "base");

    tf2_msgs::TFMessage transforms;
    transforms.transforms.resize(2);
    transforms.transforms[1].child_frame_id = "camera";
    transforms.transforms[1].transform.rotation.w = 1.0;
    const Decoded tf = Decode(transforms, "/tf");
    EXPECT_DOUBLE_EQ(tf.numbers.at("/tf/transforms.1/transform/rotation/w"), 1.0);
    EXPECT_EQ(tf.texts.at("/tf/transforms.1/child_frame_id"), "camera");
}

TEST(RosMsgParser, ProjectTypesWithNestedTypesOfTheirOwnPackage)
{
    custom::ObjectArray objects;
    objects.header = Header(7);
    objects.objectList.resize(2);
    objects.objectList[1].trackId = 42;
    objects.objectList[1].boxImage.width = 64;
    objects.objectList[1].boxImagePolygon.resize(2);
    objects.objectList[1].boxImagePolygon[1].y = 480;
    objects.objectList[1].predictedPaths.resize(1);
    objects.objectList[1].predictedPaths[0].poses.resize(2);
    objects.objectList[1].predictedPaths[0].poses[1].theta = 0.5;
    objects.objectList[1].textDisplay = "car";
    const Decoded d = Decode(objects, "/objects");
    EXPECT_DOUBLE_EQ(d.numbers.at("/objects/objectList.1/trackId"), 42);
    EXPECT_DOUBLE_EQ(d.numbers.at("/objects/objectList.1/boxImage/width"), 64);
    EXPECT_DOUBLE_EQ(d.numbers.at("/objects/objectList.1/boxImagePolygon.1/y"), 480);
    EXPECT_DOUBLE_EQ(d.numbers.at("/objects/objectList.1/predictedPaths.0/poses.1/theta"), 0.5);
    EXPECT_EQ(d.texts.at("/objects/objectList.1/textDisplay"), "car");

    orsa_msgs::StereoTrafficLightArray lights;
    lights.trafficLights.resize(1);
    lights.trafficLights[0].lifetime = ros::Duration(3, 500000000);
    lights.trafficLights[0].lights.resize(2);
    lights.trafficLights[0].lights[1].countdownValue = 139;
    const Decoded l = Decode(lights, "/lights");
    EXPECT_DOUBLE_EQ(l.numbers.at("/lights/trafficLights.0/lifetime"), 3.5);
    EXPECT_DOUBLE_EQ(l.numbers.at("/lights/trafficLights.0/lights.1/countdownValue"), 139);
    // Constants are in the library, not among the values.
    EXPECT_EQ(l.numbers.count("/lights/trafficLights.0/lights.1/RED"), 0U);
}

TEST(RosMsgParser, SixtyFourBitIntegersThatADoubleCannotHold)
{
    custom::RoadInfo road;
    road.laneId = (1ULL << 53) + 1;
    Parser parser = MakeParser<custom::RoadInfo>("/road");
    const std::vector<uint8_t> bytes = Serialize(road);
    FlatMessage flat;
    parser.deserializeIntoFlatMsg(Span<uint8_t>(bytes), &flat);
    RosMsgParser::RenamedValues values;
    EXPECT_THROW(RosMsgParser::CreateRenamedValues(flat, values), RosMsgParser::RangeException);
    road.laneId = 1ULL << 60;  // exact in a double
    const Decoded d = Decode(road, "/road");
    EXPECT_DOUBLE_EQ(d.numbers.at("/road/laneId"), 1152921504606846976.0);
}

TEST(RosMsgParser, DefinitionsWithConstantsCommentsAndShortNames)
{
    const std::string definition =
        "# a comment line\n"
        "int32 LIMIT=5   # trailing comment\n"
        "string GREETING=hello # kept: strings take the rest of the line\n"
        "Header header\n"
        "Inner[2] pair   # fixed array of a type named without its package\n"
        "float32[] values\n"
        "================================================================================\n"
        "MSG: std_msgs/Header\n"
        "uint32 seq\ntime stamp\nstring frame_id\n"
        "================================================================================\n"
        "MSG: demo/Inner\n"
        "bool flag\nduration wait\n";
    Parser parser("/demo", ROSType("demo/Outer"), definition);
    const auto& library = parser.getSchema()->messageLibrary;
    ASSERT_EQ(library.size(), 3U);
    const auto& outer = library.at(ROSType("demo/Outer"))->fields();
    ASSERT_EQ(outer.size(), 5U);
    EXPECT_TRUE(outer[0].isConstant());
    EXPECT_EQ(outer[0].value(), "5");
    EXPECT_EQ(outer[1].value(), "hello # kept: strings take the rest of the line");
    EXPECT_EQ(outer[3].type().baseName(), "demo/Inner");
    EXPECT_EQ(outer[3].arraySize(), 2);
    EXPECT_EQ(parser.getSchema()->messageTree.children.size(), 2U);  // header and pair

    std::vector<uint8_t> bytes = {1, 0, 0, 0, 10, 0, 0, 0, 20, 0, 0, 0, 2, 0, 0, 0, 'i', 'd',
                                  1, 1, 0, 0, 0, 0, 0, 0, 0,  // pair.0: flag, wait
                                  0, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0,  // pair.1: wait -1 s
                                  1, 0, 0, 0, 0, 0, 0x80, 0x3F};           // values: [1.0]
    FlatMessage flat;
    parser.deserializeIntoFlatMsg(Span<uint8_t>(bytes), &flat);
    RosMsgParser::RenamedValues values;
    RosMsgParser::CreateRenamedValues(flat, values);
    std::map<std::string, double> byPath(values.begin(), values.end());
    EXPECT_DOUBLE_EQ(byPath.at("/demo/header/stamp"), 10.00000002);
    EXPECT_DOUBLE_EQ(byPath.at("/demo/header/seq"), 1);
    EXPECT_DOUBLE_EQ(byPath.at("/demo/pair.0/flag"), 1);
    EXPECT_DOUBLE_EQ(byPath.at("/demo/pair.0/wait"), 1.0);
    EXPECT_DOUBLE_EQ(byPath.at("/demo/pair.1/wait"), -1.0);
    EXPECT_DOUBLE_EQ(byPath.at("/demo/values.0"), 1.0);
}

TEST(RosMsgParser, EmptyTypesAndFixedArraysInsideVariableArraysKeepTheirIndices)
{
    const std::string definition =
        "Nothing none\n"
        "Cell[] cells\n"
        "================================================================================\n"
        "MSG: demo/Nothing\n"
        "================================================================================\n"
        "MSG: demo/Cell\n"
        "Nothing gap\nint16[2] xy\nuint8 tag\n";
    Parser parser("/grid", ROSType("demo/Grid"), definition);
    const std::vector<uint8_t> bytes = {2, 0, 0, 0,            // two cells
                                        1, 0, 2, 0, 7,         // cells.0: xy 1 2, tag 7
                                        0xFF, 0xFF, 3, 0, 9};  // cells.1: xy -1 3, tag 9
    FlatMessage flat;
    parser.deserializeIntoFlatMsg(Span<uint8_t>(bytes), &flat);
    RosMsgParser::RenamedValues values;
    RosMsgParser::CreateRenamedValues(flat, values);
    const RosMsgParser::RenamedValues expected = {{"/grid/cells.0/xy.0", 1}, {"/grid/cells.0/xy.1", 2},
                                                  {"/grid/cells.0/tag", 7},  {"/grid/cells.1/xy.0", -1},
                                                  {"/grid/cells.1/xy.1", 3}, {"/grid/cells.1/tag", 9}};
    EXPECT_EQ(values, expected);
    const std::vector<uint8_t> shortBytes(bytes.begin(), bytes.end() - 1);
    EXPECT_THROW(parser.deserializeIntoFlatMsg(Span<uint8_t>(shortBytes), &flat), RosMsgParser::DeserializeError);
}

TEST(RosMsgParser, BadDefinitionsAndBadBuffersFailAlone)
{
    const char* badDefinitions[] = {
        "int32\n",                                  // no name
        "int32 9lives\n",                           // bad name
        "float64[x] values\n",                      // bad size
        "Missing thing\n",                          // unknown type
        "int32[] BAD=3\n",                          // array constant
        "demo/Loop next\n",                         // recursive type
    };
    for (const char* definition : badDefinitions) {
        EXPECT_THROW(Parser("/bad", ROSType("demo/Loop"), definition), RosMsgParser::ParseError) << definition;
    }
    // Nesting beyond the limit.
    std::string deep;
    for (int level = 0; level < 40; ++level) {
        deep += (level == 0 ? std::string() : "\nMSG: demo/L" + std::to_string(level) + "\n") + "L" +
                std::to_string(level + 1) + " next\n";
    }
    deep += "\nMSG: demo/L40\nint32 x\n";
    EXPECT_THROW(Parser("/deep", ROSType("demo/L0"), deep), RosMsgParser::ParseError);

    Parser parser = MakeParser<sensor_msgs::Imu>("/imu");
    FlatMessage flat;
    const std::vector<uint8_t> good = Serialize(sensor_msgs::Imu());
    const std::vector<uint8_t> shortBuffer(good.begin(), good.end() - 1);
    EXPECT_THROW(parser.deserializeIntoFlatMsg(Span<uint8_t>(shortBuffer), &flat), RosMsgParser::DeserializeError);
    // An array of 4 G elements is refused before anything is allocated.
    Parser cloud = MakeParser<sensor_msgs::PointCloud2>("/points");
    std::vector<uint8_t> absurd = Serialize(sensor_msgs::PointCloud2());
    const std::size_t fieldsLength = 4 + 8 + 4 + 4 + 4;  // header (empty frame id), height, width
    absurd[fieldsLength] = absurd[fieldsLength + 1] = absurd[fieldsLength + 2] = absurd[fieldsLength + 3] = 0xFF;
    EXPECT_THROW(cloud.deserializeIntoFlatMsg(Span<uint8_t>(absurd), &flat), RosMsgParser::DeserializeError);
    // The parser is not harmed: the next good message decodes.
    EXPECT_TRUE(parser.deserializeIntoFlatMsg(Span<uint8_t>(good), &flat));
}

namespace {
// The message decodes from its own bytes, and fails with one byte more or one byte less.
template <typename T>
void ExpectExactLength(const T& message)
{
    Parser parser = MakeParser<T>("/exact");
    FlatMessage flat;
    std::vector<uint8_t> bytes = Serialize(message);
    const std::string type = ros::message_traits::DataType<T>::value();
    EXPECT_NO_THROW(parser.deserializeIntoFlatMsg(Span<uint8_t>(bytes), &flat)) << type;
    bytes.push_back(0);
    EXPECT_THROW(parser.deserializeIntoFlatMsg(Span<uint8_t>(bytes), &flat), RosMsgParser::DeserializeError) << type;
    bytes.pop_back();
    bytes.pop_back();
    EXPECT_THROW(parser.deserializeIntoFlatMsg(Span<uint8_t>(bytes), &flat), RosMsgParser::DeserializeError) << type;
}
} // namespace

TEST(RosMsgParser, BytesLeftAfterTheMessageAreADecodeError)
{
    sensor_msgs::Imu imu;
    imu.header = Header(1);
    ExpectExactLength(imu);
    visualization_msgs::MarkerArray markers;
    markers.markers.resize(3);
    markers.markers[1].text = "label";
    markers.markers[2].points.resize(4);
    ExpectExactLength(markers);
    sensor_msgs::Image image;
    image.data.assign(300, 7);
    ExpectExactLength(image);
    sensor_msgs::PointCloud2 cloud;
    cloud.fields.resize(2);
    cloud.data.assign(64, 1);
    ExpectExactLength(cloud);
    sensor_msgs::CameraInfo info;
    info.D.assign(5, 0.1);
    ExpectExactLength(info);
    ExpectExactLength(nav_msgs::Odometry());
    tf2_msgs::TFMessage transforms;
    transforms.transforms.resize(2);
    ExpectExactLength(transforms);
    custom::ObjectArray objects;
    objects.objectList.resize(2);
    ExpectExactLength(objects);
    ExpectExactLength(custom::RoadInfo());
    orsa_msgs::StereoTrafficLightArray lights;
    lights.trafficLights.resize(1);
    ExpectExactLength(lights);
}
