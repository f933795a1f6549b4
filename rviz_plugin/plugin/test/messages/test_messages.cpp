// Every message type: the identity it announces, a serialise/deserialise round trip,
// and the fixed wire sizes of the records that have one.
#include <custom/AvFrame.h>
#include <custom/AvFrameArray.h>
#include <custom/DecoderInfo.h>
#include <custom/ImageLineArray.h>
#include <custom/ImageRectangleArray.h>
#include <custom/KeyObject.h>
#include <custom/LocationStatus.h>
#include <custom/NavigationStatus.h>
#include <custom/ObjectArray.h>
#include <custom/RadarDetectArray.h>
#include <custom/RadarTrackArray.h>
#include <custom/RoadInfo.h>
#include <custom/TrafficInfo.h>
#include <custom/VehicleStatus.h>
#include <custom/Video.h>
#include <orsa_msgs/ImageFreespace.h>
#include <orsa_msgs/SemanticSegmentation.h>
#include <orsa_msgs/StereoFreespace.h>
#include <orsa_msgs/StereoTrafficLightArray.h>

#include <ros/serialization.h>

#include <gtest/gtest.h>

#include "../support/ros_test_main.h"

#include <string>

namespace {

template <typename T>
T RoundTrip(const T& message)
{
    std::vector<uint8_t> buffer = test_support::Serialize(message);
    T copy;
    ros::serialization::IStream in(buffer.data(), static_cast<uint32_t>(buffer.size()));
    ros::serialization::deserialize(in, copy);
    return copy;
}

template <typename T>
void ExpectIdentity(const std::string& datatype, const std::string& md5sum)
{
    EXPECT_EQ(ros::message_traits::DataType<T>::value(), datatype);
    EXPECT_EQ(ros::message_traits::MD5Sum<T>::value(), md5sum) << datatype;
}

std_msgs::Header MakeHeader(uint32_t seq)
{
    std_msgs::Header header;
    header.seq = seq;
    header.stamp = ros::Time(1700000000, 123456789);
    header.frame_id = "camera_" + std::to_string(seq);
    return header;
}

template <typename T>
uint32_t WireSize(const T& message)
{
    return ros::serialization::serializationLength(message);
}

} // namespace

TEST(MessageIdentity, EveryTypeAnnouncesTheAgreedSumAndName)
{
    ExpectIdentity<custom::Video>("custom/Video", "8903b686ebe5db3477e83c6d0bb149f8");
    ExpectIdentity<custom::AvFrame>("custom/AvFrame", "9eee997aeefc319170995648ab57c63b");
    ExpectIdentity<custom::AvFrameArray>("custom/AvFrameArray", "6ff5340eb8ab6641ab1eb580274e69fc");
    ExpectIdentity<custom::DecoderInfo>("custom/DecoderInfo", "37208ea0e539444694b3de62eda1b868");
    ExpectIdentity<custom::ObjectArray>("custom/ObjectArray", "27b138f31833a825d2e198eafec509a8");
    ExpectIdentity<custom::ImageRectangleArray>("custom/ImageRectangleArray", "0532f706473197e274c8271711931c65");
    ExpectIdentity<custom::ImageLineArray>("custom/ImageLineArray", "55c69ba3348556c7884184e2f735436c");
    ExpectIdentity<custom::RadarDetectArray>("custom/RadarDetectArray", "3df9c95584fd2cd98e06b68a15ada631");
    ExpectIdentity<custom::RadarTrackArray>("custom/RadarTrackArray", "1fba085dd238b075a556c27ce75cb622");
    ExpectIdentity<custom::VehicleStatus>("custom/VehicleStatus", "cd72044da5d3922a6382bcc931b7fa87");
    ExpectIdentity<custom::KeyObject>("custom/KeyObject", "c8a8fd2e4fae6fed5441e0d62bbc2b33");
    ExpectIdentity<custom::NavigationStatus>("custom/NavigationStatus", "1efd3477fc860c1b21b9cd2574a233fc");
    ExpectIdentity<custom::LocationStatus>("custom/LocationStatus", "6027c23e30fe4cb75f42ba2bd4480f27");
    ExpectIdentity<custom::TrafficInfo>("custom/TrafficInfo", "26af0a6ec4402e271bf0fbb40e8c7001");
    ExpectIdentity<custom::RoadInfo>("custom/RoadInfo", "dadbb6de10a189412ce41dbdb52dec0f");
    ExpectIdentity<orsa_msgs::ImageFreespace>("orsa_msgs/ImageFreespace", "0251e815489ce108cdc75120e38136d2");
    ExpectIdentity<orsa_msgs::SemanticSegmentation>("orsa_msgs/SemanticSegmentation",
                                                    "a13d3c64672d7e36aa2bc492828cd6fa");
    ExpectIdentity<orsa_msgs::StereoFreespace>("orsa_msgs/StereoFreespace", "19308269f1701845e5fb79d528ab9108");
    ExpectIdentity<orsa_msgs::StereoTrafficLightArray>("orsa_msgs/StereoTrafficLightArray",
                                                       "7db0c97a1ccefa8361f413a685df9726");
}

TEST(MessageIdentity, PublishedTypesCarryTheirDefinitionText)
{
    const std::string frame = ros::message_traits::Definition<custom::AvFrame>::value();
    EXPECT_EQ(frame.rfind("### Headers ###\n# The stamp variable in the header field under ImageFreespace must be set "
                          "to the timestamp of the original image corresponding to the freespace data. This variable "
                          "is used to match the image.\nstd_msgs/Header header\n",
                          0),
              0U)
        << frame;
    EXPECT_NE(frame.find("### Message ###"), std::string::npos);
    EXPECT_NE(frame.find("MSG: std_msgs/UInt8MultiArray"), std::string::npos);
    const std::string batch = ros::message_traits::Definition<custom::AvFrameArray>::value();
    EXPECT_EQ(batch.rfind("### ENUMERATED CONSTANTS ###\n", 0), 0U) << batch;
    EXPECT_NE(batch.find("AvFrame[] AvFrameArray"), std::string::npos);
    EXPECT_NE(batch.find("MSG: custom/AvFrame"), std::string::npos);
    const std::string info = ros::message_traits::Definition<custom::DecoderInfo>::value();
    EXPECT_NE(info.find("int32 INIT_NVIDIA_HARDWARE_DECODER_FAILURE=-3"), std::string::npos);
    EXPECT_EQ(custom::DecoderInfo::INIT_INTEL_HARDWARE_DECODER_FAILURE, -2);
    EXPECT_EQ(custom::DecoderInfo::INIT_NVIDIA_HARDWARE_DECODER_SUCCESS, 3);
}

TEST(MessageWire, FixedSizeRecords)
{
    EXPECT_EQ(WireSize(custom::RadarDetect()), 76U);
    EXPECT_EQ(WireSize(custom::RadarTrack()), 170U);
    EXPECT_EQ(WireSize(custom::RadarStatusBlock()), 32U);
    EXPECT_EQ(WireSize(custom::Pose2DWithVariance()), 48U);
    EXPECT_EQ(WireSize(custom::Point2D()), 16U);
    EXPECT_EQ(WireSize(custom::BoxImage()), 32U);
    EXPECT_EQ(WireSize(orsa_msgs::Light()), 3U);
    EXPECT_EQ(WireSize(orsa_msgs::StereoFreespaceCell()), 13U);
    EXPECT_EQ(WireSize(orsa_msgs::StereoFreespaceInfo()), 48U);
    // Header with an empty frame id: seq, stamp and the string length.
    EXPECT_EQ(WireSize(custom::NavigationStatus()), 16U + 2U);
}

TEST(MessageWire, HeaderAndFieldsAreLaidOutInOrder)
{
    custom::Video video;
    video.header = MakeHeader(7);
    video.data = {0x00, 0x00, 0x00, 0x01, 0x40};
    const std::vector<uint8_t> buffer = test_support::Serialize(video);
    ASSERT_EQ(buffer.size(), 4U + 8U + 4U + 8U + 4U + 5U);
    EXPECT_EQ(buffer[0], 7);                                    // seq, little endian
    EXPECT_EQ(buffer[12], 8);                                   // frame id length
    EXPECT_EQ(std::string(buffer.begin() + 16, buffer.begin() + 24), "camera_7");
    EXPECT_EQ(buffer[24], 5);                                   // data length
    EXPECT_EQ(buffer[28 + 4], 0x40);
}

TEST(MessageRoundTrip, CameraAndDecoderTypes)
{
    custom::Video video;
    video.header = MakeHeader(1);
    video.data.assign(1000, 0xAB);
    EXPECT_EQ(RoundTrip(video), video);

    custom::AvFrame frame;
    frame.header = MakeHeader(2);
    frame.height = 4;
    frame.width = 6;
    frame.format = 0;
    frame.linesize = {6, 3, 3};
    frame.data.resize(3);
    frame.data[0].data.assign(24, 16);
    frame.data[1].data.assign(6, 128);
    frame.data[2].data.assign(6, 129);
    frame.data[2].layout.dim.resize(1);
    frame.data[2].layout.dim[0].label = "v";
    EXPECT_EQ(RoundTrip(frame), frame);
    custom::AvFrameArray batch;
    batch.header = MakeHeader(3);
    batch.AvFrameArray = {frame, frame};
    EXPECT_EQ(RoundTrip(batch), batch);

    custom::DecoderInfo info;
    info.decoderTopic.data = "/camera/front";
    info.targetMode = custom::DecoderInfo::NVIDIA_HARDWARE_DECODING_MODE;
    info.decoderType = custom::DecoderInfo::SOFTWARE_DECODER;
    info.resultCode = custom::DecoderInfo::INIT_NVIDIA_HARDWARE_DECODER_FAILURE;
    info.decoderNum = 4;
    info.isInquiring = true;
    EXPECT_EQ(RoundTrip(info), info);
}

TEST(MessageRoundTrip, PerceptionTypes)
{
    custom::Object object;
    object.header = MakeHeader(4);
    object.objectId = -5;
    object.trackId = 77;
    object.existenceProbability = 0.9;
    object.classification = 3;
    object.objectBoxCenter.x = 12.5;
    object.objectBoxSize.z = 1.6;
    object.boxPolygon.points.resize(4);
    object.boxPolygon.points[2].y = -1.25F;
    object.velocity.twist.linear.x = 8.0;
    object.velocity.covariance[35] = 0.5;
    object.boxImage.x = 100;
    object.boxImage.width = 64;
    object.boxImagePolygon.resize(3);
    object.boxImagePolygon[1].y = 480;
    object.predictedPaths.resize(1);
    object.predictedPaths[0].poses.resize(2);
    object.predictedPaths[0].poses[1].varianceTheta = 0.01;
    object.textDisplay = "car";
    custom::ObjectArray objects;
    objects.header = MakeHeader(5);
    objects.objectList = {object, object};
    objects.objectList[1].objectId = 6;
    EXPECT_EQ(RoundTrip(objects), objects);

    custom::ImageRectangleArray rectangles;
    rectangles.header = MakeHeader(6);
    rectangles.rectangleList.resize(2);
    rectangles.rectangleList[1].rectImage.height = 30;
    rectangles.rectangleList[1].textDisplay = "red";
    EXPECT_EQ(RoundTrip(rectangles), rectangles);

    custom::ImageLineArray lines;
    lines.header = MakeHeader(7);
    lines.lineList.resize(1);
    lines.lineList[0].endPoint.y = 1080;
    lines.lineList[0].a = 1e-6;
    lines.lineList[0].d = 960;
    EXPECT_EQ(RoundTrip(lines), lines);

    orsa_msgs::ImageFreespace freespace;
    freespace.header = MakeHeader(8);
    freespace.width = 4;
    freespace.height = 2;
    freespace.pixelValues = {0, 1, 1, 0, 1, 1, 1, 1};
    EXPECT_EQ(RoundTrip(freespace), freespace);

    orsa_msgs::SemanticSegmentation segmentation;
    segmentation.header = MakeHeader(9);
    segmentation.width = 2;
    segmentation.height = 2;
    segmentation.classification = {0, 9, 3, 2};
    segmentation.segmentationReservedByte = 6;
    EXPECT_EQ(RoundTrip(segmentation), segmentation);
}

TEST(MessageRoundTrip, RadarStereoAndVehicleTypes)
{
    custom::RadarDetectArray detections;
    detections.header = MakeHeader(10);
    detections.radarStatus = 2;
    detections.radarStatusBlock.statusWord = 0xBEEF;
    detections.detectList.resize(3);
    detections.detectList[2].snr = 17.5F;
    detections.detectList[2].ambiguity = 9;
    EXPECT_EQ(RoundTrip(detections), detections);
    EXPECT_EQ(WireSize(detections), WireSize(detections.header) + 1U + 32U + 4U + 3U * 76U);

    custom::RadarTrackArray tracks;
    tracks.header = MakeHeader(11);
    tracks.trackList.resize(2);
    tracks.trackList[0].overpassProbability = 0.25F;
    tracks.trackList[1].trackType = 4;
    EXPECT_EQ(RoundTrip(tracks), tracks);

    orsa_msgs::StereoFreespace stereo;
    stereo.header = MakeHeader(12);
    stereo.info.xResolution = 0.2;
    stereo.cellData.resize(2);
    stereo.cellData[1].probability = 0.75F;
    stereo.cellData[1].yIndex = 40;
    EXPECT_EQ(RoundTrip(stereo), stereo);

    orsa_msgs::StereoTrafficLightArray lights;
    lights.header = MakeHeader(13);
    lights.trafficLights.resize(1);
    lights.trafficLights[0].scale = 1.5;
    lights.trafficLights[0].transform.rotation.w = 1.0;
    lights.trafficLights[0].lifetime = ros::Duration(2, 500);
    lights.trafficLights[0].lights.resize(2);
    lights.trafficLights[0].lights[1].type = orsa_msgs::Light::COUNTDOWN_LIGHT;
    lights.trafficLights[0].lights[1].countdownValue = 139;
    EXPECT_EQ(RoundTrip(lights), lights);

    custom::VehicleStatus vehicle;
    vehicle.header = MakeHeader(14);
    vehicle.gear = 4;
    vehicle.steeringWheelAngle = -540.0;
    vehicle.brake = 0.3;
    EXPECT_EQ(RoundTrip(vehicle), vehicle);

    custom::KeyObject key;
    key.header = MakeHeader(15);
    key.id = 2147483647;
    key.speedOrientation.w = 1.0;
    key.verticalDistance = -12.0;
    EXPECT_EQ(RoundTrip(key), key);

    custom::NavigationStatus navigation;
    navigation.navStatus = 15;
    EXPECT_EQ(RoundTrip(navigation), navigation);

    custom::LocationStatus location;
    location.searchedSattelites = 100;
    location.locationState = 3;
    EXPECT_EQ(RoundTrip(location), location);

    custom::TrafficInfo traffic;
    traffic.trafficLightReservedTime = 1000;
    traffic.speed_limit = 120.0;
    traffic.trafficSign = 32;
    EXPECT_EQ(RoundTrip(traffic), traffic);

    custom::RoadInfo road;
    road.laneId = 0xFFFFFFFFFFFFFFFFULL;
    road.roadCurvature = 0.002;
    road.laneSpeedLimit = 80;
    EXPECT_EQ(RoundTrip(road), road);
}

TEST(MessageWire, ShortBufferIsAnOverrunNotACrash)
{
    custom::ObjectArray objects;
    objects.objectList.resize(2);
    std::vector<uint8_t> buffer = test_support::Serialize(objects);
    custom::ObjectArray copy;
    ros::serialization::IStream in(buffer.data(), static_cast<uint32_t>(buffer.size() - 1));
    EXPECT_THROW(ros::serialization::deserialize(in, copy), ros::serialization::StreamOverrunException);
}
