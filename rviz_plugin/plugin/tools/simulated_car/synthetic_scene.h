#ifndef SIMULATED_CAR_SYNTHETIC_SCENE_H
#define SIMULATED_CAR_SYNTHETIC_SCENE_H

#include "h265_encoder.h"

#include <cstdint>
#include <vector>

namespace simulated_car {

// A box in picture pixels: top-left corner and size.
struct SceneBox {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    int classification = 0;
};

// A lane mark line in picture pixels: x = slope * y + offset, from row top to row bottom.
struct SceneLine {
    double slope = 0;
    double offset = 0;
    double top = 0;
    double bottom = 0;
};

// Classes of the segmentation map.
enum SceneClass : uint8_t { SkyClass = 0, RoadClass = 1, LaneClass = 2, CarClass = 3, LightClass = 4 };

// A road scene seen by one camera: sky and road, lane marks sliding towards the viewer, and cars
// that drive across. Everything moves with time, so consecutive pictures differ.
class SyntheticScene {
public:
    SyntheticScene(int width, int height, int cameraIndex);

    // Draws the scene at time t (seconds) into image.
    void Render(double t, YuvImage& image) const;
    // The cars' boxes at time t, as a detector would report them.
    std::vector<SceneBox> Objects(double t) const;
    // The traffic light's box; its classification is the lit lamp (1 red, 2 green, 3 yellow).
    SceneBox TrafficLight(double t) const;
    // The two lines along which the lane marks run.
    std::vector<SceneLine> LaneLines() const;
    // Segmentation map at time t, maskWidth x maskHeight, one SceneClass a pixel.
    std::vector<uint8_t> ClassMap(double t, int maskWidth, int maskHeight) const;

private:
    int width;
    int height;
    int cameraIndex;
};

} // namespace simulated_car

#endif
