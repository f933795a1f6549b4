// A stand-in for the car: publishes what the car's platform sends, so that the plugin can be run
// and tested without one. Camera video: custom/Video, H.265 access units, one per message.
//
//   simulated_car [--cameras N] [--width W] [--height H] [--fps F] [--duration S]
#include "h265_encoder.h"
#include "synthetic_scene.h"

#include <custom/Video.h>
#include <ros/ros.h>

#include <cstdlib>
#include <cstring>
#include <iostream>
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
};

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

struct Camera {
    std::string name;
    simulated_car::SyntheticScene scene;
    std::unique_ptr<simulated_car::H265Encoder> encoder;
    ros::Publisher video;
    uint32_t sequence = 0;
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
    std::vector<Camera> cameras;
    for (int index = 0; index < options.cameras; ++index) {
        Camera camera{cameraNames[index], simulated_car::SyntheticScene(options.width, options.height, index),
                      std::make_unique<simulated_car::H265Encoder>(options.width, options.height, options.fps,
                                                                   options.fps),
                      node.advertise<custom::Video>(std::string("/") + cameraNames[index], 30)};
        if (!camera.encoder->IsOpen()) {
            std::cerr << "encoder: " << camera.encoder->GetError() << "\n";
            return 1;
        }
        cameras.push_back(std::move(camera));
    }
    std::cout << "simulated car: " << options.cameras << " cameras, " << options.width << "x" << options.height
              << " at " << options.fps << " fps" << std::endl;

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
        }
        ros::spinOnce();
        rate.sleep();
    }
    std::cout << "simulated car: stopped after " << (ros::WallTime::now() - start).toSec() << " s" << std::endl;
    return 0;
}
