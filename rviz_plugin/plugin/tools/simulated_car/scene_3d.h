#ifndef SIMULATED_CAR_SCENE_3D_H
#define SIMULATED_CAR_SCENE_3D_H

#include "synthetic_scene.h"

#include <custom/ObjectArray.h>
#include <custom/RadarDetectArray.h>
#include <custom/RadarTrackArray.h>
#include <orsa_msgs/StereoFreespace.h>
#include <orsa_msgs/StereoTrafficLightArray.h>
#include <ros/ros.h>
#include <sensor_msgs/PointCloud2.h>

#include <string>

namespace simulated_car {

// What the car's 3D perception reports, in the car's frame (x ahead, y left): the front camera's cars
// as tracked objects, radar detections and tracks on them, the stereo camera's freespace grid and the
// traffic lights of the intersection ahead, whose lamps follow the front camera's light.
class Scene3d {
public:
    explicit Scene3d(const SyntheticScene& frontCamera);

    custom::ObjectArray Objects(double t, const std_msgs::Header& header) const;
    custom::RadarDetectArray RadarDetections(double t, const std_msgs::Header& header) const;
    custom::RadarTrackArray RadarTracks(double t, const std_msgs::Header& header) const;
    orsa_msgs::StereoFreespace Freespace(double t, const std_msgs::Header& header) const;
    orsa_msgs::StereoTrafficLightArray TrafficLights(double t, const std_msgs::Header& header) const;
    // A roof lidar's sweep (64 beams by 1600 steps, about 100k points): the road and the objects' boxes.
    sensor_msgs::PointCloud2 LidarCloud(double t, const std_msgs::Header& header) const;

    // Puts one field of each message out of range (the k-th fault of a cycle).
    static void BreakObjects(custom::ObjectArray& objects, unsigned fault);
    static void BreakRadar(custom::RadarDetectArray& detections, custom::RadarTrackArray& tracks, unsigned fault);
    static void BreakFreespace(orsa_msgs::StereoFreespace& grid, unsigned fault);
    static void BreakTrafficLights(orsa_msgs::StereoTrafficLightArray& lights, unsigned fault);

    // Grid cells along each axis, and their size in metres.
    static constexpr int gridCells = 200;
    static constexpr double gridResolution = 0.2;

private:
    struct Car {
        double x;
        double y;
        double vy;
        int classification;
    };
    std::vector<Car> Cars(double t) const;

    const SyntheticScene& frontCamera;
};

} // namespace simulated_car

#endif
