// The cameras of the display benchmark (scripts/display_cpu_bench.sh): the same pictures of the
// simulated scene, either as H.265 access units (custom/Video on /camera_<n>) or already decoded as
// rgb8 images (sensor_msgs/Image on /camera_<n>_raw), published at a fixed rate from memory so that
// the feed's own cost does not depend on the form.
//
//   video_display_feed h265|raw [--cameras N] [--width W] [--height H] [--fps F] [--pictures P]
//
// Prints "published N" to standard output every second.
#include "simulated_car/h265_encoder.h"
#include "simulated_car/synthetic_scene.h"

#include <custom/Video.h>
#include <ros/ros.h>
#include <sensor_msgs/Image.h>

extern "C" {
#include <libavutil/pixfmt.h>
#include <libswscale/swscale.h>
}

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

struct Options {
    bool raw = false;
    int cameras = 2;
    int width = 1920;
    int height = 1080;
    int fps = 30;
    int pictures = 60;  // two key-frame groups, played in a loop
};

bool Parse(int argc, char** argv, Options& options)
{
    if (argc < 2 || (std::strcmp(argv[1], "h265") != 0 && std::strcmp(argv[1], "raw") != 0)) {
        return false;
    }
    options.raw = std::strcmp(argv[1], "raw") == 0;
    for (int i = 2; i + 1 < argc; i += 2) {
        const std::string name = argv[i];
        const int value = std::atoi(argv[i + 1]);
        if (value <= 0) {
            return false;
        }
        if (name == "--cameras") {
            options.cameras = value;
        } else if (name == "--width") {
            options.width = value;
        } else if (name == "--height") {
            options.height = value;
        } else if (name == "--fps") {
            options.fps = value;
        } else if (name == "--pictures") {
            options.pictures = value;
        } else {
            return false;
        }
    }
    return true;
}

// The picture as rgb8 rows, as a camera driver would publish it.
std::vector<uint8_t> ToRgb(const simulated_car::YuvImage& image, SwsContext* scaler)
{
    std::vector<uint8_t> rgb(static_cast<std::size_t>(image.width) * image.height * 3);
    const uint8_t* planes[3] = {image.y.data(), image.u.data(), image.v.data()};
    const int strides[3] = {image.width, (image.width + 1) / 2, (image.width + 1) / 2};
    uint8_t* target[1] = {rgb.data()};
    const int targetStride[1] = {image.width * 3};
    sws_scale(scaler, planes, strides, 0, image.height, target, targetStride);
    return rgb;
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    if (!Parse(argc, argv, options)) {
        std::fprintf(stderr, "usage: video_display_feed h265|raw [--cameras N] [--width W] [--height H] [--fps F] "
                             "[--pictures P]\n");
        return 2;
    }
    ros::init(argc, argv, "video_display_feed", ros::init_options::AnonymousName);
    ros::NodeHandle node;
    SwsContext* scaler = sws_getContext(options.width, options.height, AV_PIX_FMT_YUV420P, options.width,
                                        options.height, AV_PIX_FMT_RGB24, SWS_POINT, nullptr, nullptr, nullptr);
    std::vector<ros::Publisher> publishers;
    std::vector<std::vector<std::vector<uint8_t>>> payloads(static_cast<std::size_t>(options.cameras));
    for (int camera = 0; camera < options.cameras; ++camera) {
        const std::string topic = "/camera_" + std::to_string(camera) + (options.raw ? "_raw" : "");
        publishers.push_back(options.raw ? node.advertise<sensor_msgs::Image>(topic, 2)
                                         : node.advertise<custom::Video>(topic, 30));
        const simulated_car::SyntheticScene scene(options.width, options.height, camera);
        simulated_car::H265Encoder encoder(options.width, options.height, options.fps, 30);
        simulated_car::YuvImage image(options.width, options.height);
        for (int picture = 0; picture < options.pictures; ++picture) {
            scene.Render(static_cast<double>(picture) / options.fps, image);
            payloads[static_cast<std::size_t>(camera)].push_back(options.raw ? ToRgb(image, scaler)
                                                                             : encoder.Encode(image));
        }
    }
    sws_freeContext(scaler);
    std::printf("ready\n");
    std::fflush(stdout);

    ros::Rate rate(options.fps);
    long published = 0;
    ros::WallTime lastReport = ros::WallTime::now();
    for (uint32_t sequence = 0; ros::ok(); ++sequence) {
        const std::size_t picture = sequence % static_cast<uint32_t>(options.pictures);
        for (int camera = 0; camera < options.cameras; ++camera) {
            std_msgs::Header header;
            header.seq = sequence;
            header.stamp = ros::Time::now();
            header.frame_id = "camera_" + std::to_string(camera);
            const std::vector<uint8_t>& payload = payloads[static_cast<std::size_t>(camera)][picture];
            if (options.raw) {
                auto message = boost::make_shared<sensor_msgs::Image>();
                message->header = header;
                message->width = static_cast<uint32_t>(options.width);
                message->height = static_cast<uint32_t>(options.height);
                message->encoding = "rgb8";
                message->step = static_cast<uint32_t>(options.width * 3);
                message->data = payload;
                publishers[static_cast<std::size_t>(camera)].publish(message);
            } else {
                auto message = boost::make_shared<custom::Video>();
                message->header = header;
                message->data = payload;
                publishers[static_cast<std::size_t>(camera)].publish(message);
            }
            ++published;
        }
        if ((ros::WallTime::now() - lastReport).toSec() >= 1.0) {
            lastReport = ros::WallTime::now();
            std::printf("published %ld\n", published);
            std::fflush(stdout);
        }
        rate.sleep();
    }
    return 0;
}
