#ifndef SIMULATED_CAR_SYNTHETIC_SCENE_H
#define SIMULATED_CAR_SYNTHETIC_SCENE_H

#include "h265_encoder.h"

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

// A road scene seen by one camera: sky and road, lane marks sliding towards the viewer, and cars
// that drive across. Everything moves with time, so consecutive pictures differ.
class SyntheticScene {
public:
    SyntheticScene(int width, int height, int cameraIndex);

    // Draws the scene at time t (seconds) into image.
    void Render(double t, YuvImage& image) const;
    // The cars' boxes at time t, as a detector would report them.
    std::vector<SceneBox> Objects(double t) const;

private:
    int width;
    int height;
    int cameraIndex;
};

} // namespace simulated_car

#endif
