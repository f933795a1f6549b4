#include "synthetic_scene.h"

#include <algorithm>
#include <cmath>

namespace simulated_car {

namespace {
struct Yuv {
    uint8_t y, u, v;
};

Yuv FromRgb(int r, int g, int b)
{
    const auto clamp = [](double value) { return static_cast<uint8_t>(std::clamp(value, 0.0, 255.0)); };
    return {clamp(0.257 * r + 0.504 * g + 0.098 * b + 16), clamp(-0.148 * r - 0.291 * g + 0.439 * b + 128),
            clamp(0.439 * r - 0.368 * g - 0.071 * b + 128)};
}

void FillRect(YuvImage& image, int x0, int y0, int x1, int y1, Yuv colour)
{
    x0 = std::clamp(x0, 0, image.width);
    x1 = std::clamp(x1, 0, image.width);
    y0 = std::clamp(y0, 0, image.height);
    y1 = std::clamp(y1, 0, image.height);
    for (int y = y0; y < y1; ++y) {
        std::fill(image.y.begin() + static_cast<std::ptrdiff_t>(y) * image.width + x0,
                  image.y.begin() + static_cast<std::ptrdiff_t>(y) * image.width + x1, colour.y);
    }
    const int chromaWidth = (image.width + 1) / 2;
    for (int y = y0 / 2; y < (y1 + 1) / 2; ++y) {
        for (int x = x0 / 2; x < (x1 + 1) / 2; ++x) {
            image.u[static_cast<std::size_t>(y) * chromaWidth + x] = colour.u;
            image.v[static_cast<std::size_t>(y) * chromaWidth + x] = colour.v;
        }
    }
}

const Yuv carColours[] = {FromRgb(200, 40, 40), FromRgb(40, 90, 200), FromRgb(230, 200, 40), FromRgb(60, 170, 80)};
constexpr int carCount = 3;
} // namespace

SyntheticScene::SyntheticScene(int w, int h, int camera) : width(w), height(h), cameraIndex(camera) {}

std::vector<SceneBox> SyntheticScene::Objects(double t) const
{
    std::vector<SceneBox> boxes;
    const double horizon = height * 0.45;
    for (int car = 0; car < carCount; ++car) {
        const double speed = 0.08 + 0.05 * car + 0.02 * cameraIndex;
        const double phase = std::fmod(t * speed + car * 0.37 + cameraIndex * 0.21, 1.0);
        const double depth = 0.3 + 0.6 * ((car + cameraIndex) % carCount) / carCount;
        SceneBox box;
        box.width = width * 0.18 * depth;
        box.height = box.width * 0.6;
        box.x = -box.width + phase * (width + box.width);
        box.y = horizon + (height - horizon) * depth * 0.7 - box.height;
        box.classification = car % 4;
        boxes.push_back(box);
    }
    return boxes;
}

SceneBox SyntheticScene::TrafficLight(double t) const
{
    SceneBox light;
    light.width = std::max(width * 0.03, 4.0);
    light.height = light.width * 2.5;
    light.x = width * 0.82;
    light.y = height * 0.08;
    const int phase = static_cast<int>(std::fmod(t + cameraIndex, 6.0) / 2.0);
    light.classification = phase == 0 ? 1 : (phase == 1 ? 2 : 3);
    return light;
}

std::vector<SceneLine> SyntheticScene::LaneLines() const
{
    const double horizon = height * 0.45;
    const double spreadPerRow = static_cast<double>(width) / std::max(2.0 * (height - horizon), 1.0);
    std::vector<SceneLine> lines;
    for (int side = -1; side <= 1; side += 2) {
        SceneLine line;
        line.slope = side * spreadPerRow;
        line.offset = width / 2.0 + side * (width / 10.0) - line.slope * horizon;
        line.top = horizon;
        line.bottom = height - 1;
        lines.push_back(line);
    }
    return lines;
}

std::vector<uint8_t> SyntheticScene::ClassMap(double t, int maskWidth, int maskHeight) const
{
    std::vector<uint8_t> classes(static_cast<std::size_t>(maskWidth) * maskHeight, SkyClass);
    const double scaleX = static_cast<double>(width) / maskWidth;
    const double scaleY = static_cast<double>(height) / maskHeight;
    const std::vector<SceneLine> lanes = LaneLines();
    const std::vector<SceneBox> cars = Objects(t);
    const SceneBox light = TrafficLight(t);
    const auto inside = [](const SceneBox& box, double x, double y) {
        return x >= box.x && x < box.x + box.width && y >= box.y && y < box.y + box.height;
    };
    for (int my = 0; my < maskHeight; ++my) {
        const double y = (my + 0.5) * scaleY;
        const double left = lanes[0].slope * y + lanes[0].offset;
        const double right = lanes[1].slope * y + lanes[1].offset;
        for (int mx = 0; mx < maskWidth; ++mx) {
            const double x = (mx + 0.5) * scaleX;
            uint8_t& value = classes[static_cast<std::size_t>(my) * maskWidth + mx];
            if (y >= lanes[0].top) {
                value = (x >= left && x <= right) ? LaneClass : RoadClass;
            }
            for (const SceneBox& car : cars) {
                if (inside(car, x, y)) {
                    value = CarClass;
                }
            }
            if (inside(light, x, y)) {
                value = LightClass;
            }
        }
    }
    return classes;
}

void SyntheticScene::Render(double t, YuvImage& image) const
{
    const int horizon = static_cast<int>(height * 0.45);
    // Sky fades from a camera-specific blue, road is grey.
    for (int y = 0; y < horizon; y += 4) {
        const int shade = 150 + 80 * y / std::max(horizon, 1);
        FillRect(image, 0, y, width, y + 4, FromRgb(shade / 2 + cameraIndex * 20, shade - 20, 230));
    }
    FillRect(image, 0, horizon, width, height, FromRgb(90, 92, 96));
    // Lane marks slide down the picture.
    const int markHeight = std::max(height / 14, 2);
    const double slide = std::fmod(t * 1.5, 1.0);
    for (int mark = 0; mark < 8; ++mark) {
        const int y = horizon + static_cast<int>((mark + slide) * 2 * markHeight);
        const int spread = (y - horizon) * width / std::max(2 * (height - horizon), 1);
        for (int side = -1; side <= 1; side += 2) {
            const int x = width / 2 + side * (width / 10 + spread);
            FillRect(image, x - width / 200 - 1, y, x + width / 200 + 1, y + markHeight, FromRgb(240, 240, 240));
        }
    }
    for (const SceneBox& box : Objects(t)) {
        const Yuv colour = carColours[box.classification % 4];
        const int x0 = static_cast<int>(box.x);
        const int y0 = static_cast<int>(box.y);
        const int x1 = static_cast<int>(box.x + box.width);
        const int y1 = static_cast<int>(box.y + box.height);
        FillRect(image, x0, y0, x1, y1, colour);
        FillRect(image, x0 + (x1 - x0) / 5, y0 + (y1 - y0) / 6, x1 - (x1 - x0) / 5, y0 + (y1 - y0) / 2,
                 FromRgb(30, 40, 60));
    }
    // A traffic light: dark housing, one lamp lit.
    const SceneBox light = TrafficLight(t);
    const int lx0 = static_cast<int>(light.x);
    const int ly0 = static_cast<int>(light.y);
    const int lx1 = static_cast<int>(light.x + light.width);
    const int ly1 = static_cast<int>(light.y + light.height);
    FillRect(image, lx0, ly0, lx1, ly1, FromRgb(25, 25, 25));
    const int lamp = light.classification == 1 ? 0 : (light.classification == 3 ? 1 : 2);
    const Yuv lampColours[] = {FromRgb(255, 30, 30), FromRgb(255, 200, 0), FromRgb(40, 255, 60)};
    const int lampHeight = (ly1 - ly0) / 3;
    FillRect(image, lx0 + 1, ly0 + lamp * lampHeight + 1, lx1 - 1, ly0 + (lamp + 1) * lampHeight - 1,
             lampColours[lamp]);
    // A clock bar at the top edge: its length follows the second, so every picture differs.
    const double second = std::fmod(t, 1.0);
    FillRect(image, 0, 0, static_cast<int>(width * second), std::max(height / 60, 2), FromRgb(255, 120, 0));
}

} // namespace simulated_car
