// A stand-in for the car: publishes what the car's platform sends, so that the plugin can be run
// and tested without one. Camera video: custom/Video, H.265 access units, one per message. For each
// camera also what perception finds in its picture, stamped with the picture's stamp, under
// /<camera>/objects, traffic_lights, road_lines, freespace, segmentation and markers. The vehicle's
// state and its transform tree (map, base_link, a frame per camera, the radar), ten times a second.
// The 3D perception of the front camera's scene: objects, radar detections and tracks, traffic lights
// (ten times a second) and the stereo freespace grid (five times a second); the car's model as the
// parameter "vehicle_description".
//
//   simulated_car [--cameras N] [--width W] [--height H] [--fps F] [--duration S]
//                 [--perception-offset-ms MS] [--drop-perception-every K] [--bad-vehicle-every K]
//                 [--bad-scene-every K] [--offset X,Y] [--urdf FILE]
//
// The perception options exercise the matching: perception stamps shifted by MS, and no perception
// with every K-th picture. --bad-vehicle-every sends every K-th vehicle status with one field out of
// range; --bad-scene-every does the same to every K-th message of the 3D perception. The map offset (default 100,200) is set as the car's platform sets it; the route and point
// topics it receives are printed.
#include "h265_encoder.h"
#include "route_listener.h"
#include "scene_3d.h"
#include "synthetic_scene.h"
#include "vehicle_state.h"

#include <custom/ImageLineArray.h>
#include <custom/ImageRectangleArray.h>
#include <custom/ObjectArray.h>
#include <custom/Video.h>
#include <orsa_msgs/ImageFreespace.h>
#include <orsa_msgs/SemanticSegmentation.h>
#include <ros/ros.h>
#include <tf2_msgs/TFMessage.h>
#include <visualization_msgs/MarkerArray.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>
#include <memory>
#include <string>
#include <vector>

namespace {

struct Options {
    int cameras = 4;
    int width = 640;
    int height = 360;
    int fps = 15;
    double duration = 0;  // seconds; 0 runs until stopped
    int perceptionOffsetMs = 0;
    int dropPerceptionEvery = 0;  // 0 drops none
    int badVehicleEvery = 0;      // 0 sends none
    int badSceneEvery = 0;        // 0 sends none
    std::string urdf = SIMULATED_CAR_VEHICLE_URDF;
    double offsetX = 100.0;
    double offsetY = 200.0;
};

constexpr double vehicleRate = 10;  // vehicle state messages a second
// The front radar's place on the car.
constexpr double radarX = 3.7;
constexpr double radarZ = 0.5;

// Masks are sent at this size whatever the picture's: within the size the display expects.
constexpr int maskWidth = 640;
constexpr int maskHeight = 320;
// Object classifications of the cars, by their colour index: car, truck, bus, car.
const uint8_t objectClasses[] = {5, 3, 0, 5};

const char* const cameraNames[] = {"camera_front", "camera_left", "camera_right", "camera_rear",
                                   "camera_front_left", "camera_front_right", "camera_rear_left",
                                   "camera_rear_right"};
constexpr int maxCameras = sizeof(cameraNames) / sizeof(cameraNames[0]);

bool ParseOptions(int argc, char** argv, Options& options)
{
    for (int i = 1; i < argc; ++i) {
        const std::string name = argv[i];
        if (i + 1 >= argc) {
            std::cerr << "missing value after " << name << "\n";
            return false;
        }
        const char* value = argv[++i];
        if (name == "--cameras") {
            options.cameras = std::atoi(value);
        } else if (name == "--width") {
            options.width = std::atoi(value);
        } else if (name == "--height") {
            options.height = std::atoi(value);
        } else if (name == "--fps") {
            options.fps = std::atoi(value);
        } else if (name == "--duration") {
            options.duration = std::atof(value);
        } else if (name == "--perception-offset-ms") {
            options.perceptionOffsetMs = std::atoi(value);
        } else if (name == "--drop-perception-every") {
            options.dropPerceptionEvery = std::atoi(value);
        } else if (name == "--bad-vehicle-every") {
            options.badVehicleEvery = std::atoi(value);
        } else if (name == "--bad-scene-every") {
            options.badSceneEvery = std::atoi(value);
        } else if (name == "--urdf") {
            options.urdf = value;
        } else if (name == "--offset") {
            if (std::sscanf(value, "%lf,%lf", &options.offsetX, &options.offsetY) != 2) {
                std::cerr << "--offset takes X,Y\n";
                return false;
            }
        } else {
            std::cerr << "unknown option " << name << "\n";
            return false;
        }
    }
    if (options.cameras < 1 || options.cameras > maxCameras || options.width < 16 || options.height < 16 ||
        options.width % 2 != 0 || options.height % 2 != 0 || options.fps < 1 || options.fps > 120) {
        std::cerr << "cameras 1.." << maxCameras << ", even width and height of at least 16, fps 1..120\n";
        return false;
    }
    return true;
}

struct PerceptionPublishers {
    ros::Publisher objects;
    ros::Publisher trafficLights;
    ros::Publisher roadLines;
    ros::Publisher freespace;
    ros::Publisher segmentation;
    ros::Publisher markers;
};

struct Camera {
    std::string name;
    simulated_car::SyntheticScene scene;
    std::unique_ptr<simulated_car::H265Encoder> encoder;
    ros::Publisher video;
    PerceptionPublishers perception;
    uint32_t sequence = 0;
};

void AdvertisePerception(ros::NodeHandle& node, Camera& camera)
{
    const std::string prefix = "/" + camera.name + "/";
    camera.perception.objects = node.advertise<custom::ObjectArray>(prefix + "objects", 30);
    camera.perception.trafficLights = node.advertise<custom::ImageRectangleArray>(prefix + "traffic_lights", 30);
    camera.perception.roadLines = node.advertise<custom::ImageLineArray>(prefix + "road_lines", 30);
    camera.perception.freespace = node.advertise<orsa_msgs::ImageFreespace>(prefix + "freespace", 30);
    camera.perception.segmentation = node.advertise<orsa_msgs::SemanticSegmentation>(prefix + "segmentation", 30);
    camera.perception.markers = node.advertise<visualization_msgs::MarkerArray>(prefix + "markers", 30);
}

custom::BoxImage ToBoxImage(const simulated_car::SceneBox& box)
{
    custom::BoxImage image;
    image.x = box.x;
    image.y = box.y;
    image.width = box.width;
    image.height = box.height;
    return image;
}

void PublishObjects(Camera& camera, const std_msgs::Header& header, double t)
{
    custom::ObjectArray objects;
    objects.header = header;
    int id = 0;
    for (const simulated_car::SceneBox& box : camera.scene.Objects(t)) {
        custom::Object object;
        object.header = header;
        object.objectId = id;
        object.trackId = 100 + id;
        object.classification = objectClasses[box.classification % 4];
        object.classificationConfidence = 0.9 - 0.1 * id++;
        object.boxImage = ToBoxImage(box);
        objects.objectList.push_back(object);
    }
    camera.perception.objects.publish(objects);

    custom::ImageRectangleArray lights;
    lights.header = header;
    const simulated_car::SceneBox light = camera.scene.TrafficLight(t);
    custom::ImageRectangle rectangle;
    rectangle.header = header;
    rectangle.rectImage = ToBoxImage(light);
    rectangle.classification = static_cast<uint8_t>(light.classification);
    rectangle.classificationConfidence = 0.95;
    lights.rectangleList.push_back(rectangle);
    camera.perception.trafficLights.publish(lights);
}

void PublishLines(Camera& camera, const std_msgs::Header& header)
{
    custom::ImageLineArray lines;
    lines.header = header;
    for (const simulated_car::SceneLine& lane : camera.scene.LaneLines()) {
        custom::ImageLine line;
        line.header = header;
        line.c = lane.slope;
        line.d = lane.offset;
        line.startPoint.y = lane.top;
        line.startPoint.x = lane.slope * lane.top + lane.offset;
        line.endPoint.y = lane.bottom;
        line.endPoint.x = lane.slope * lane.bottom + lane.offset;
        line.classification = 0;
        line.classificationConfidence = 0.8;
        lines.lineList.push_back(line);
    }
    camera.perception.roadLines.publish(lines);
}

void PublishMasks(Camera& camera, const std_msgs::Header& header, double t)
{
    const std::vector<uint8_t> classes = camera.scene.ClassMap(t, maskWidth, maskHeight);
    orsa_msgs::ImageFreespace freespace;
    freespace.header = header;
    freespace.width = maskWidth;
    freespace.height = maskHeight;
    freespace.pixelValues.resize(classes.size());
    for (std::size_t index = 0; index < classes.size(); ++index) {
        freespace.pixelValues[index] = classes[index] == simulated_car::LaneClass ? 1 : 0;
    }
    camera.perception.freespace.publish(freespace);

    orsa_msgs::SemanticSegmentation segmentation;
    segmentation.header = header;
    segmentation.width = maskWidth;
    segmentation.height = maskHeight;
    segmentation.classification = classes;
    camera.perception.segmentation.publish(segmentation);
}

void PublishMarkers(Camera& camera, const std_msgs::Header& header, int width, int height)
{
    visualization_msgs::MarkerArray markers;
    visualization_msgs::Marker text;
    text.header = header;
    text.id = 0;
    text.type = visualization_msgs::Marker::TEXT_VIEW_FACING;
    text.pose.position.x = width * 0.15;
    text.pose.position.y = height * 0.08;
    text.scale.z = height / 600.0;
    text.color.r = text.color.g = text.color.b = text.color.a = 1.0F;
    text.text = camera.name;
    markers.markers.push_back(text);
    visualization_msgs::Marker horizon;
    horizon.header = header;
    horizon.id = 1;
    horizon.type = visualization_msgs::Marker::LINE_STRIP;
    horizon.scale.x = 2;
    horizon.color.r = 1.0F;
    horizon.color.g = 0.8F;
    horizon.color.a = 1.0F;
    for (const double x : {0.0, width - 1.0}) {
        geometry_msgs::Point point;
        point.x = x;
        point.y = height * 0.45;
        horizon.points.push_back(point);
    }
    markers.markers.push_back(horizon);
    camera.perception.markers.publish(markers);
}

void PublishPerception(Camera& camera, const std_msgs::Header& header, double t, const Options& options)
{
    PublishObjects(camera, header, t);
    PublishLines(camera, header);
    PublishMasks(camera, header, t);
    PublishMarkers(camera, header, options.width, options.height);
}

// The vehicle panels' topics.
// The car's transform tree: map -> base_link (the car stands at the origin) -> one frame per camera.
tf2_msgs::TFMessage Transforms(const ros::Time& stamp, int cameras)
{
    tf2_msgs::TFMessage message;
    geometry_msgs::TransformStamped link;
    link.header.stamp = stamp;
    link.header.frame_id = "map";
    link.child_frame_id = "base_link";
    link.transform.rotation.w = 1.0;
    message.transforms.push_back(link);
    for (int index = 0; index < cameras; ++index) {
        geometry_msgs::TransformStamped camera;
        camera.header.stamp = stamp;
        camera.header.frame_id = "base_link";
        camera.child_frame_id = cameraNames[index];
        camera.transform.translation.x = index == 3 ? -1.0 : 1.5;
        camera.transform.translation.z = 1.4;
        camera.transform.rotation.w = 1.0;
        message.transforms.push_back(camera);
    }
    geometry_msgs::TransformStamped radar;
    radar.header.stamp = stamp;
    radar.header.frame_id = "base_link";
    radar.child_frame_id = "radar_front";
    radar.transform.translation.x = radarX;
    radar.transform.translation.z = radarZ;
    radar.transform.rotation.w = 1.0;
    message.transforms.push_back(radar);
    return message;
}

// The 3D perception's topics, published with the vehicle's state; the freespace grid every other time.
class ScenePublishers {
public:
    ScenePublishers(ros::NodeHandle& node, const simulated_car::SyntheticScene& frontCamera)
        : scene(frontCamera), objects(node.advertise<custom::ObjectArray>("objects_3d", 10)),
          detections(node.advertise<custom::RadarDetectArray>("radar_detect", 10)),
          tracks(node.advertise<custom::RadarTrackArray>("radar_track", 10)),
          freespace(node.advertise<orsa_msgs::StereoFreespace>("stereo_freespace", 2)),
          lights(node.advertise<orsa_msgs::StereoTrafficLightArray>("stereo_traffic_lights", 10)),
          lidar(node.advertise<sensor_msgs::PointCloud2>("lidar_points", 2))
    {
    }

    void Publish(double t, const ros::Time& stamp, int badEvery)
    {
        std_msgs::Header header;
        header.stamp = stamp;
        header.frame_id = "base_link";
        std_msgs::Header radarHeader = header;
        radarHeader.frame_id = "radar_front";
        custom::ObjectArray objectArray = scene.Objects(t, header);
        custom::RadarDetectArray detectArray = scene.RadarDetections(t, radarHeader);
        custom::RadarTrackArray trackArray = scene.RadarTracks(t, radarHeader);
        orsa_msgs::StereoTrafficLightArray lightArray = scene.TrafficLights(t, header);
        for (auto& point : detectArray.detectList) {
            point.x -= static_cast<float>(radarX);
        }
        for (auto& track : trackArray.trackList) {
            track.x -= static_cast<float>(radarX);
            track.z -= static_cast<float>(radarZ);
        }
        const bool bad = badEvery > 0 && ++sent % badEvery == 0;
        const bool withGrid = sent % 2 == 0;
        orsa_msgs::StereoFreespace grid;
        if (withGrid) {
            grid = scene.Freespace(t, header);
        }
        if (bad) {
            simulated_car::Scene3d::BreakObjects(objectArray, faults);
            simulated_car::Scene3d::BreakRadar(detectArray, trackArray, faults);
            simulated_car::Scene3d::BreakTrafficLights(lightArray, faults);
            if (withGrid) {
                simulated_car::Scene3d::BreakFreespace(grid, faults);
            }
            ++faults;
        }
        objects.publish(objectArray);
        if (lidar.getNumSubscribers() > 0) {
            lidar.publish(scene.LidarCloud(t, header));
        }
        detections.publish(detectArray);
        tracks.publish(trackArray);
        lights.publish(lightArray);
        if (withGrid) {
            freespace.publish(grid);
        }
    }

private:
    simulated_car::Scene3d scene;
    ros::Publisher objects;
    ros::Publisher detections;
    ros::Publisher tracks;
    ros::Publisher freespace;
    ros::Publisher lights;
    ros::Publisher lidar;
    unsigned sent = 0;
    unsigned faults = 0;
};

std::string ReadText(const std::string& path)
{
    std::ifstream file(path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

class VehiclePublishers {
public:
    explicit VehiclePublishers(ros::NodeHandle& node)
        : status(node.advertise<custom::VehicleStatus>("TopicVehicleInfo", 10)),
          control(node.advertise<custom::VehicleStatus>("TopicVehicleControl", 10)),
          keyObject(node.advertise<custom::KeyObject>("TopicKeyObjects", 10)),
          navigation(node.advertise<custom::NavigationStatus>("TopicNavigationStatus", 10)),
          location(node.advertise<custom::LocationStatus>("TopicLocationStatus", 10)),
          traffic(node.advertise<custom::TrafficInfo>("TopicTrafficInfo", 10)),
          road(node.advertise<custom::RoadInfo>("TopicRoadInfo", 10))
    {
    }

    void Publish(double t, int badEvery)
    {
        custom::VehicleStatus reported = state.Status(t);
        if (badEvery > 0 && ++sent % badEvery == 0) {
            simulated_car::VehicleState::BreakOneField(reported, faults++);
        }
        status.publish(reported);
        control.publish(state.Control(t));
        keyObject.publish(state.KeyObject(t));
        navigation.publish(state.Navigation(t));
        location.publish(state.Location(t));
        traffic.publish(state.Traffic(t));
        road.publish(state.Road(t));
    }

private:
    simulated_car::VehicleState state;
    ros::Publisher status;
    ros::Publisher control;
    ros::Publisher keyObject;
    ros::Publisher navigation;
    ros::Publisher location;
    ros::Publisher traffic;
    ros::Publisher road;
    unsigned sent = 0;
    unsigned faults = 0;
};

} // namespace

int main(int argc, char** argv)
{
    ros::init(argc, argv, "simulated_car");
    Options options;
    if (!ParseOptions(argc, argv, options)) {
        return 2;
    }
    ros::NodeHandle node;
    // The model first: a display that starts with the car reads it once.
    const std::string urdf = ReadText(options.urdf);
    if (urdf.empty()) {
        std::cerr << "no vehicle model in " << options.urdf << "\n";
    } else {
        node.setParam("vehicle_description", urdf);
    }
    std::vector<Camera> cameras;
    for (int index = 0; index < options.cameras; ++index) {
        Camera camera{cameraNames[index], simulated_car::SyntheticScene(options.width, options.height, index),
                      std::make_unique<simulated_car::H265Encoder>(options.width, options.height, options.fps,
                                                                   options.fps),
                      node.advertise<custom::Video>(std::string("/") + cameraNames[index], 30), {}};
        if (!camera.encoder->IsOpen()) {
            std::cerr << "encoder: " << camera.encoder->GetError() << "\n";
            return 1;
        }
        AdvertisePerception(node, camera);
        cameras.push_back(std::move(camera));
    }
    std::cout << "simulated car: " << options.cameras << " cameras, " << options.width << "x" << options.height
              << " at " << options.fps << " fps" << std::endl;

    VehiclePublishers vehicle(node);
    // The 3D perception sees what the front camera sees.
    const simulated_car::SyntheticScene frontCamera(640, 360, 0);
    ScenePublishers scene3d(node, frontCamera);
    const simulated_car::RouteListener routes(node, options.offsetX, options.offsetY);
    ros::Publisher transforms = node.advertise<tf2_msgs::TFMessage>("/tf", 10);
    const int vehicleEveryTicks = std::max(1, static_cast<int>(options.fps / vehicleRate));
    const ros::WallTime start = ros::WallTime::now();
    ros::WallRate rate(options.fps);
    simulated_car::YuvImage image(options.width, options.height);
    for (uint64_t tick = 0; ros::ok(); ++tick) {
        const double t = static_cast<double>(tick) / options.fps;
        if (options.duration > 0 && t >= options.duration) {
            break;
        }
        const ros::Time stamp = ros::Time::now();
        for (Camera& camera : cameras) {
            camera.scene.Render(t, image);
            auto message = boost::make_shared<custom::Video>();
            message->header.seq = camera.sequence++;
            message->header.stamp = stamp;
            message->header.frame_id = camera.name;
            message->data = camera.encoder->Encode(image);
            if (!message->data.empty()) {
                camera.video.publish(message);
            }
            const bool dropped = options.dropPerceptionEvery > 0 && tick % options.dropPerceptionEvery == 0;
            if (!dropped) {
                std_msgs::Header header = message->header;
                header.stamp += ros::Duration().fromNSec(static_cast<int64_t>(options.perceptionOffsetMs) * 1000000);
                PublishPerception(camera, header, t, options);
            }
        }
        if (tick % vehicleEveryTicks == 0) {
            vehicle.Publish(t, options.badVehicleEvery);
            transforms.publish(Transforms(stamp, options.cameras));
            scene3d.Publish(t, stamp, options.badSceneEvery);
        }
        ros::spinOnce();
        rate.sleep();
    }
    std::cout << "simulated car: stopped after " << (ros::WallTime::now() - start).toSec() << " s" << std::endl;
    return 0;
}
