// The 3D displays' message handling inside a real rviz frame (virtual X display, Ogre included), each
// next to rviz's own display handling the same drawing in the same run.
//
//   scene_3d_bench [--messages N]
//
// 1. ObjectArrayDisplay, 100 moving objects with every drawing on (cuboid, polygon, arrow, text of all
//    lines): time per message, and the scene objects made or destroyed over the messages once the pool
//    is warm. Reference: rviz's Marker display fed the same 400 markers. Target: at most 2 ms, none made.
// 2. StereoFreespaceDisplay, a grid of 500000 cells: checks and fill of the clouds' points per message,
//    and the whole message with the clouds' upload. Reference: rviz's PointCloud2 display with the same
//    500000 points (message handling and its update, upload included). Target: 15 ms for checks and fill.
// 3. RadarDetectDisplay, 250 points: time per message, with the default drawings and with arrows and
//    texts. Reference: rviz's Marker display fed 250 sphere markers. Target: at most 1 ms.
#include "../test/scene_3d/scene_3d_test_support.h"
#include "../test/support/rviz_frame_main.h"

#include "object_array/object_array_display.h"
#include "radar/radar_detect_display.h"
#include "stereo_freespace/stereo_freespace_display.h"

#include <QApplication>

#include <rviz/default_plugin/marker_display.h>
#include <rviz/default_plugin/point_cloud2_display.h>
#include <ros/callback_queue.h>
#include <rviz/display_context.h>
#include <rviz/visualization_frame.h>
#include <rviz/visualization_manager.h>
#include <sensor_msgs/point_cloud2_iterator.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <vector>

using Clock = std::chrono::steady_clock;

namespace {

template <typename Display>
class Fed : public Display {
public:
    using Display::processMessage;
};

// rviz's marker display the whole way: the array through its transform filter and update queue, then
// its update, where the markers are made or changed.
class FedMarkers : public rviz::MarkerDisplay {
public:
    void Handle(const visualization_msgs::MarkerArray::ConstPtr& array)
    {
        incomingMarkerArray(array);
        static_cast<ros::CallbackQueue*>(context_->getUpdateQueue())->callAvailable();
        update(0.0F, 0.0F);
    }
};

template <typename Display>
Display* Add(rviz::VisualizationFrame& frame, Display* display)
{
    frame.getManager()->addDisplay(display, true);
    return display;
}

class QuietSink : public rviz_plugin::StatusSink {
public:
    void SetStatus(Level, const QString&, const QString&) override {}
    void DeleteStatus(const QString&) override {}
};

struct Timing {
    double medianMs;
    double meanMs;
};

// Runs step(i) count times; the median and mean of the times of one step.
Timing Measure(int count, const std::function<void(int)>& step)
{
    std::vector<double> times;
    for (int index = 0; index < count; ++index) {
        const auto start = Clock::now();
        step(index);
        times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
        if (index % 50 == 0) {
            QApplication::processEvents();
        }
    }
    double sum = 0;
    for (double time : times) {
        sum += time;
    }
    std::nth_element(times.begin(), times.begin() + times.size() / 2, times.end());
    return {times[times.size() / 2], sum / static_cast<double>(times.size())};
}

std_msgs::Header MapHeader()
{
    std_msgs::Header header;
    header.frame_id = "map";
    return header;
}

custom::ObjectArray::ConstPtr Objects(int step)
{
    auto message = boost::make_shared<custom::ObjectArray>();
    message->header = MapHeader();
    for (int index = 0; index < 100; ++index) {
        custom::Object object;
        object.classification = static_cast<uint8_t>(index % 4);
        object.objectId = index;
        object.trackId = 1000 + index;
        object.objectBoxCenter.x = 5 + (index % 10) * 6 + 0.01 * step;
        object.objectBoxCenter.y = -30 + (index / 10) * 6;
        object.objectBoxCenter.z = 0.8;
        object.objectBoxSize.x = 4.5;
        object.objectBoxSize.y = 1.8;
        object.objectBoxSize.z = 1.6;
        object.objectBoxOrientation = 0.1 * (index % 7);
        object.velocity.twist.linear.x = 5 + index % 3;
        object.velocity.twist.linear.y = 1;
        object.existenceProbability = 0.9;
        object.classificationConfidence = 0.8;
        object.textDisplay = "bench object";
        for (const auto& corner : {std::pair<double, double>{-2.3, -1}, {2.3, -1}, {2.3, 1}, {-2.3, 1}}) {
            geometry_msgs::Point32 point;
            point.x = static_cast<float>(object.objectBoxCenter.x + corner.first);
            point.y = static_cast<float>(object.objectBoxCenter.y + corner.second);
            object.boxPolygon.points.push_back(point);
        }
        message->objectList.push_back(object);
    }
    return message;
}

// The markers rviz's own display needs for the same drawing: cube, outline, arrow and text per object.
visualization_msgs::MarkerArray::ConstPtr ObjectMarkers(const custom::ObjectArray& objects)
{
    auto array = boost::make_shared<visualization_msgs::MarkerArray>();
    auto& markers = array->markers;
    int id = 0;
    for (const custom::Object& object : objects.objectList) {
        for (int type : {visualization_msgs::Marker::CUBE, visualization_msgs::Marker::LINE_LIST,
                         visualization_msgs::Marker::ARROW, visualization_msgs::Marker::TEXT_VIEW_FACING}) {
            visualization_msgs::Marker marker;
            marker.header = objects.header;
            marker.id = id++;
            marker.type = type;
            marker.pose.position = object.objectBoxCenter;
            marker.pose.orientation.w = 1;
            marker.scale.x = marker.scale.y = marker.scale.z = 1;
            marker.color.a = 0.5F;
            marker.color.g = 1;
            marker.text = "vehicle\nVelocity: 5";
            if (type == visualization_msgs::Marker::LINE_LIST) {
                marker.scale.x = 0.1;
                for (const auto& point : object.boxPolygon.points) {
                    geometry_msgs::Point corner;
                    corner.x = point.x - object.objectBoxCenter.x;
                    corner.y = point.y - object.objectBoxCenter.y;
                    marker.points.push_back(corner);
                    marker.points.push_back(corner);
                }
            }
            markers.push_back(marker);
        }
    }
    return array;
}

orsa_msgs::StereoFreespace::ConstPtr Grid()
{
    auto grid = boost::make_shared<orsa_msgs::StereoFreespace>();
    grid->header = MapHeader();
    grid->info.xEnd = 100;
    grid->info.xResolution = 0.1;
    grid->info.yStart = 25;
    grid->info.yEnd = -25;
    grid->info.yResolution = 0.1;
    grid->cellData.resize(500000);
    std::size_t index = 0;
    for (uint32_t x = 0; x < 1000; ++x) {
        for (uint32_t y = 0; y < 500; ++y, ++index) {
            auto& cell = grid->cellData[index];
            cell.xIndex = x;
            cell.yIndex = y;
            cell.status = static_cast<uint8_t>((x / 50 + y / 50) % 3);
            cell.probability = 0.9F;
        }
    }
    return grid;
}

sensor_msgs::PointCloud2::ConstPtr Cloud(const orsa_msgs::StereoFreespace& grid)
{
    auto cloud = boost::make_shared<sensor_msgs::PointCloud2>();
    cloud->header = grid.header;
    sensor_msgs::PointCloud2Modifier modifier(*cloud);
    modifier.setPointCloud2FieldsByString(2, "xyz", "rgb");
    modifier.resize(grid.cellData.size());
    sensor_msgs::PointCloud2Iterator<float> x(*cloud, "x");
    sensor_msgs::PointCloud2Iterator<float> y(*cloud, "y");
    sensor_msgs::PointCloud2Iterator<float> z(*cloud, "z");
    sensor_msgs::PointCloud2Iterator<uint8_t> rgb(*cloud, "rgb");
    for (const auto& cell : grid.cellData) {
        *x = static_cast<float>(cell.xIndex * 0.1);
        *y = static_cast<float>(25 - cell.yIndex * 0.1);
        *z = 0;
        rgb[0] = rgb[1] = rgb[2] = cell.status == 1 ? 255 : 100;
        ++x;
        ++y;
        ++z;
        ++rgb;
    }
    return cloud;
}

custom::RadarDetectArray::ConstPtr Detections(int step)
{
    auto message = boost::make_shared<custom::RadarDetectArray>();
    message->header = MapHeader();
    message->detectList.resize(250);
    for (std::size_t index = 0; index < message->detectList.size(); ++index) {
        auto& point = message->detectList[index];
        point.id = static_cast<uint8_t>(index);
        point.x = static_cast<float>(index % 25) * 2.0F + 0.01F * static_cast<float>(step);
        point.y = static_cast<float>(index / 25) * 2.0F - 10;
        point.vx = 3;
        point.vy = 1;
    }
    return message;
}

// targetMs 0: a figure without a target of its own.
void Report(const char* what, const Timing& ours, const Timing& reference, double targetMs)
{
    std::printf("%-48s median %7.3f ms (mean %7.3f)   reference median %7.3f ms   ratio %.2f", what, ours.medianMs,
                ours.meanMs, reference.medianMs, ours.medianMs / reference.medianMs);
    if (targetMs > 0) {
        std::printf("   target %.1f ms: %s", targetMs, ours.medianMs <= targetMs ? "met" : "MISSED");
    }
    std::printf("\n");
}

int Run(rviz::VisualizationFrame& frame, int messages)
{
    frame.getManager()->setFixedFrame("map");
    Ogre::SceneManager* scene = frame.getManager()->getSceneManager();

    auto* objects = Add(frame, new Fed<rviz_plugin::ObjectArrayDisplay>());
    for (const char* line : {"Classification Confidence", "Object ID", "Existence Probability", "Size", "Center",
                             "Orientation", "Text Display"}) {
        scene_3d_test::Child(scene_3d_test::Child(objects, "Object Info"), line)->setValue(true);
    }
    std::vector<custom::ObjectArray::ConstPtr> objectMessages;
    for (int step = 0; step < messages; ++step) {
        objectMessages.push_back(Objects(step));
    }
    objects->processMessage(objectMessages.front());
    const auto before = scene_3d_test::SceneObjectNames(scene);
    const Timing objectTime = Measure(messages, [&](int step) { objects->processMessage(objectMessages[step]); });
    const auto after = scene_3d_test::SceneObjectNames(scene);
    std::size_t changed = 0;
    for (const auto& name : before) {
        changed += after.count(name) == 0 ? 1 : 0;
    }
    for (const auto& name : after) {
        changed += before.count(name) == 0 ? 1 : 0;
    }
    auto* markers = Add(frame, new FedMarkers());
    const auto objectMarkers = ObjectMarkers(*objectMessages.front());
    const Timing markerTime = Measure(messages, [&](int) { markers->Handle(objectMarkers); });
    Report("ObjectArray, 100 objects, every drawing", objectTime, markerTime, 2.0);
    std::printf("%-48s %zu scene objects and nodes made or destroyed over %d messages (target 0)\n", "", changed,
                messages);
    delete objects;
    delete markers;
    QApplication::processEvents();

    auto* freespace = Add(frame, new Fed<rviz_plugin::StereoFreespaceDisplay>());
    const auto grid = Grid();
    const int gridMessages = std::max(10, messages / 20);
    const Timing gridTime = Measure(gridMessages, [&](int) { freespace->processMessage(grid); });
    // The display's own work alone: the grid's checks and the points of the three clouds.
    QuietSink sink;
    rviz_plugin::StereoFreespaceColors colors;
    rviz_plugin::StereoFreespaceChecker checker(sink);
    rviz_plugin::StereoFreespaceVisual visual(colors, checker);
    visual.Init(scene->getRootSceneNode()->createChildSceneNode());
    const Timing fillTime = Measure(gridMessages, [&](int) {
        checker.IsInvalidStereoFreespaceData(*grid);
        visual.FillPoints(*grid);
    });
    auto* clouds = Add(frame, new Fed<rviz::PointCloud2Display>());
    const auto cloud = Cloud(*grid);
    const Timing cloudTime = Measure(gridMessages, [&](int) {
        clouds->processMessage(cloud);
        clouds->update(0.0F, 0.0F);
    });
    Report("StereoFreespace, 500000 cells: checks and fill", fillTime, cloudTime, 15.0);
    Report("StereoFreespace, 500000 cells: with the clouds' upload", gridTime, cloudTime, 0);
    delete freespace;
    delete clouds;
    QApplication::processEvents();

    auto* radar = Add(frame, new Fed<rviz_plugin::RadarDetectDisplay>());
    std::vector<custom::RadarDetectArray::ConstPtr> radarMessages;
    for (int step = 0; step < messages; ++step) {
        radarMessages.push_back(Detections(step));
    }
    const Timing radarTime = Measure(messages, [&](int step) { radar->processMessage(radarMessages[step]); });
    scene_3d_test::Child(radar, "Velocity")->setValue(true);
    scene_3d_test::Child(radar, "Info")->setValue(true);
    const Timing radarAllTime = Measure(messages, [&](int step) { radar->processMessage(radarMessages[step]); });
    auto* spheres = Add(frame, new FedMarkers());
    auto sphereMarkers = boost::make_shared<visualization_msgs::MarkerArray>();
    for (const auto& point : radarMessages.front()->detectList) {
        visualization_msgs::Marker marker;
        marker.header = MapHeader();
        marker.id = static_cast<int>(sphereMarkers->markers.size());
        marker.type = visualization_msgs::Marker::SPHERE;
        marker.pose.position.x = point.x;
        marker.pose.position.y = point.y;
        marker.pose.orientation.w = 1;
        marker.scale.x = marker.scale.y = marker.scale.z = 0.3;
        marker.color.g = marker.color.a = 1;
        sphereMarkers->markers.push_back(marker);
    }
    const Timing sphereTime = Measure(messages, [&](int) { spheres->Handle(sphereMarkers); });
    Report("RadarDetect, 250 points", radarTime, sphereTime, 1.0);
    Report("RadarDetect, 250 points with arrows and texts", radarAllTime, sphereTime, 1.0);
    delete radar;
    delete spheres;
    QApplication::processEvents();
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    int messages = 1000;
    for (int index = 1; index + 1 < argc; ++index) {
        if (std::strcmp(argv[index], "--messages") == 0) {
            messages = std::max(20, std::atoi(argv[index + 1]));
        }
    }
    return test_support::WithRvizFrame(argc, argv, "scene_3d_bench",
                                       [messages](rviz::VisualizationFrame& frame, test_support::VirtualDisplay&) {
                                           return Run(frame, messages);
                                       });
}
