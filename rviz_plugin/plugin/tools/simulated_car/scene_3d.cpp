#include "scene_3d.h"

#include <sensor_msgs/point_cloud2_iterator.h>

#include <cmath>
#include <random>
#include <tuple>

namespace simulated_car {

namespace {
constexpr double carLength = 4.5;
constexpr double carWidth = 1.8;
constexpr double carHeight = 1.5;
// Cameras see 640 pixels across at this many metres per pixel and metre of distance.
constexpr double lateralPerPixel = 0.0016;
}

Scene3d::Scene3d(const SyntheticScene& front) : frontCamera(front)
{
}

std::vector<Scene3d::Car> Scene3d::Cars(double t) const
{
    // The front camera's cars: a box nearer the bottom of the picture is nearer the car, and one left of
    // the picture's middle is left of the car.
    std::vector<Car> cars;
    const int pictureWidth = 640;
    const double dt = 0.1;
    const auto earlier = frontCamera.Objects(t - dt);
    const auto later = frontCamera.Objects(t + dt);
    const auto boxes = frontCamera.Objects(t);
    const auto lateral = [pictureWidth](const SceneBox& box, double distance) {
        return (pictureWidth / 2.0 - (box.x + box.width / 2)) * lateralPerPixel * distance;
    };
    for (std::size_t index = 0; index < boxes.size(); ++index) {
        const SceneBox& box = boxes[index];
        const double depth = box.width / (pictureWidth * 0.18);  // 0.3 far .. 0.9 near
        Car car;
        car.x = 8 + 40 * (0.9 - depth);
        car.y = lateral(box, car.x);
        // A car that leaves one side comes back at the other: of the two differences, the smaller is its
        // speed.
        const double ahead = (lateral(later[index], car.x) - car.y) / dt;
        const double behind = (car.y - lateral(earlier[index], car.x)) / dt;
        car.vy = std::fabs(ahead) < std::fabs(behind) ? ahead : behind;
        car.classification = 3;
        cars.push_back(car);
    }
    // A pedestrian walking along the right side of the road.
    cars.push_back(Car{6 + std::fmod(t * 1.2, 20.0), -5.5, 0, 1});
    return cars;
}

sensor_msgs::PointCloud2 Scene3d::LidarCloud(double t, const std_msgs::Header& header) const
{
    constexpr int beams = 64;
    constexpr int steps = 1600;
    constexpr double mountHeight = 1.8;
    constexpr double lowestBeam = -25.0 * M_PI / 180;
    constexpr double highestBeam = 3.0 * M_PI / 180;
    constexpr double maxRange = 80.0;
    struct Box {
        double x0, x1, y0, y1, top;
    };
    std::vector<Box> boxes;
    for (const Car& car : Cars(t)) {
        const bool person = car.classification == 1;
        const double hx = (person ? 0.6 : carLength) / 2;
        const double hy = (person ? 0.6 : carWidth) / 2;
        boxes.push_back({car.x - hx, car.x + hx, car.y - hy, car.y + hy, person ? 1.8 : carHeight});
    }
    sensor_msgs::PointCloud2 cloud;
    cloud.header = header;
    sensor_msgs::PointCloud2Modifier modifier(cloud);
    modifier.setPointCloud2Fields(4, "x", 1, sensor_msgs::PointField::FLOAT32, "y", 1,
                                  sensor_msgs::PointField::FLOAT32, "z", 1, sensor_msgs::PointField::FLOAT32,
                                  "intensity", 1, sensor_msgs::PointField::FLOAT32);
    modifier.resize(static_cast<std::size_t>(beams) * steps);
    std::size_t points = 0;
    float* out = reinterpret_cast<float*>(cloud.data.data());
    for (int beam = 0; beam < beams; ++beam) {
        const double elevation = lowestBeam + (highestBeam - lowestBeam) * beam / (beams - 1);
        for (int step = 0; step < steps; ++step) {
            const double azimuth = 2 * M_PI * step / steps;
            const double dx = std::cos(elevation) * std::cos(azimuth);
            const double dy = std::cos(elevation) * std::sin(azimuth);
            const double dz = std::sin(elevation);
            double range = dz < 0 ? std::min(maxRange, mountHeight / -dz) : maxRange + 1;
            float intensity = 20;
            for (const Box& box : boxes) {
                // The ray against the box's sides (slab test in x and y), then its height.
                double near = 0;
                double far = range;
                for (const auto& [origin, direction, low, high] :
                     {std::tuple<double, double, double, double>{0, dx, box.x0, box.x1}, {0, dy, box.y0, box.y1}}) {
                    if (std::fabs(direction) < 1e-9) {
                        near = origin < low || origin > high ? far + 1 : near;
                        continue;
                    }
                    const double a = (low - origin) / direction;
                    const double b = (high - origin) / direction;
                    near = std::max(near, std::min(a, b));
                    far = std::min(far, std::max(a, b));
                }
                const double hitZ = mountHeight + dz * near;
                if (near <= far && near < range && hitZ >= 0 && hitZ <= box.top) {
                    range = near;
                    intensity = 80;
                }
            }
            if (range > maxRange) {
                continue;
            }
            out[points * 4 + 0] = static_cast<float>(dx * range);
            out[points * 4 + 1] = static_cast<float>(dy * range);
            out[points * 4 + 2] = static_cast<float>(mountHeight + dz * range);
            out[points * 4 + 3] = intensity;
            ++points;
        }
    }
    modifier.resize(points);
    return cloud;
}

custom::ObjectArray Scene3d::Objects(double t, const std_msgs::Header& header) const
{
    custom::ObjectArray objects;
    objects.header = header;
    int id = 0;
    for (const Car& car : Cars(t)) {
        custom::Object object;
        object.header = header;
        object.objectId = id;
        object.trackId = 200 + id++;
        object.classification = static_cast<uint8_t>(car.classification);
        object.classificationConfidence = 0.9;
        object.existenceProbability = 0.95;
        const bool person = car.classification == 1;
        object.objectBoxSize.x = person ? 0.6 : carLength;
        object.objectBoxSize.y = person ? 0.6 : carWidth;
        object.objectBoxSize.z = person ? 1.8 : carHeight;
        object.objectBoxCenter.x = car.x;
        object.objectBoxCenter.y = car.y;
        object.objectBoxCenter.z = object.objectBoxSize.z / 2;
        object.velocity.twist.linear.x = person ? 1.2 : 0;
        object.velocity.twist.linear.y = car.vy;
        const double hx = object.objectBoxSize.x / 2 + 0.2;
        const double hy = object.objectBoxSize.y / 2 + 0.2;
        for (const auto& corner : {std::pair<double, double>{-hx, -hy}, {hx, -hy}, {hx, hy}, {-hx, hy}}) {
            geometry_msgs::Point32 point;
            point.x = static_cast<float>(car.x + corner.first);
            point.y = static_cast<float>(car.y + corner.second);
            object.boxPolygon.points.push_back(point);
        }
        objects.objectList.push_back(object);
    }
    return objects;
}

custom::RadarDetectArray Scene3d::RadarDetections(double t, const std_msgs::Header& header) const
{
    // About 200 points: reflections on the near faces of the cars, and scattered clutter on the road side.
    custom::RadarDetectArray detections;
    detections.header = header;
    std::mt19937 random(static_cast<unsigned>(t * 10));
    std::uniform_real_distribution<float> jitter(-0.3F, 0.3F);
    uint8_t id = 0;
    for (const Car& car : Cars(t)) {
        for (int k = 0; k < 30; ++k) {
            custom::RadarDetect point;
            point.id = id++;
            point.x = static_cast<float>(car.x - carLength / 2) + jitter(random);
            point.y = static_cast<float>(car.y) + static_cast<float>(k - 15) * 0.06F + jitter(random) * 0.2F;
            point.vx = 0;
            point.vy = static_cast<float>(car.vy);
            point.rcs = 10 + jitter(random) * 10;
            point.snr = 20;
            point.existProbability = 90;
            detections.detectList.push_back(point);
        }
    }
    std::uniform_real_distribution<float> far(5.0F, 60.0F);
    while (detections.detectList.size() < 200) {
        custom::RadarDetect point;
        point.id = id++;
        point.x = far(random);
        point.y = (detections.detectList.size() % 2 == 0 ? 8.0F : -8.0F) + jitter(random) * 3;
        point.rcs = 2;
        point.snr = 8;
        point.existProbability = 40;
        detections.detectList.push_back(point);
    }
    return detections;
}

custom::RadarTrackArray Scene3d::RadarTracks(double t, const std_msgs::Header& header) const
{
    custom::RadarTrackArray tracks;
    tracks.header = header;
    uint8_t id = 0;
    for (const Car& car : Cars(t)) {
        custom::RadarTrack track;
        track.id = id++;
        track.lifetime = static_cast<float>(t);
        track.x = static_cast<float>(car.x);
        track.y = static_cast<float>(car.y);
        track.z = static_cast<float>(car.classification == 1 ? 0.9 : carHeight / 2);
        track.vx = car.classification == 1 ? 1.2F : 0.0F;
        track.vy = static_cast<float>(car.vy);
        track.length = static_cast<float>(car.classification == 1 ? 0.7 : carLength + 0.3);
        track.width = static_cast<float>(car.classification == 1 ? 0.7 : carWidth + 0.3);
        track.height = static_cast<float>(car.classification == 1 ? 1.9 : carHeight + 0.2);
        track.existProbability = 95;
        tracks.trackList.push_back(track);
    }
    return tracks;
}

orsa_msgs::StereoFreespace Scene3d::Freespace(double t, const std_msgs::Header& header) const
{
    // 40 m ahead and 20 m to each side: the road between the kerbs is free up to the first car in each
    // lane, the kerbs and what lies behind the cars is not, and beyond 30 m is unknown.
    orsa_msgs::StereoFreespace grid;
    grid.header = header;
    grid.info.xStart = 0;
    grid.info.xEnd = gridCells * gridResolution;
    grid.info.xResolution = gridResolution;
    grid.info.yStart = gridCells * gridResolution / 2;
    grid.info.yEnd = -gridCells * gridResolution / 2;
    grid.info.yResolution = gridResolution;
    const std::vector<Car> cars = Cars(t);
    grid.cellData.resize(static_cast<std::size_t>(gridCells) * gridCells);
    std::size_t index = 0;
    for (uint32_t xi = 0; xi < gridCells; ++xi) {
        const double x = xi * gridResolution;
        for (uint32_t yi = 0; yi < gridCells; ++yi, ++index) {
            const double y = grid.info.yStart - yi * gridResolution;
            orsa_msgs::StereoFreespaceCell& cell = grid.cellData[index];
            cell.xIndex = xi;
            cell.yIndex = yi;
            cell.probability = 0.9F;
            bool blocked = std::fabs(y) > 7.0;
            for (const Car& car : cars) {
                blocked = blocked || (x > car.x - carLength / 2 && std::fabs(y - car.y) < carWidth / 2 + 0.3);
            }
            cell.status = x > 30 ? 2 : (blocked ? 0 : 1);
        }
    }
    return grid;
}

orsa_msgs::StereoTrafficLightArray Scene3d::TrafficLights(double t, const std_msgs::Header& header) const
{
    // The front camera's light: class 1 red, 2 green, 3 yellow; each phase lasts two seconds.
    const SceneBox light = frontCamera.TrafficLight(t);
    const uint8_t state = light.classification == 1 ? orsa_msgs::Light::RED
                          : light.classification == 2 ? orsa_msgs::Light::GREEN
                                                      : orsa_msgs::Light::YELLOW;
    const double phaseLeft = 2.0 - std::fmod(t, 2.0);
    orsa_msgs::StereoTrafficLightArray lights;
    lights.header = header;
    for (int side = 0; side < 2; ++side) {
        orsa_msgs::StereoTrafficLight entry;
        entry.scale = 1.5;
        entry.direction = static_cast<uint8_t>(side);
        entry.transform.translation.x = 32;
        entry.transform.translation.y = side == 0 ? 6 : -6;
        entry.transform.translation.z = 4;
        entry.transform.rotation.w = 1;
        orsa_msgs::Light round;
        round.type = orsa_msgs::Light::ROUND_LIGHT;
        round.state = state;
        entry.lights.push_back(round);
        orsa_msgs::Light arrow;
        arrow.type = side == 0 ? orsa_msgs::Light::LEFT_ARROW : orsa_msgs::Light::STRAIGHT_ARROW;
        arrow.state = state == orsa_msgs::Light::RED ? orsa_msgs::Light::GREEN : orsa_msgs::Light::RED;
        entry.lights.push_back(arrow);
        orsa_msgs::Light countdown;
        countdown.type = orsa_msgs::Light::COUNTDOWN_LIGHT;
        countdown.state = state;
        countdown.countdownValue = static_cast<uint8_t>(std::ceil(phaseLeft * 10));
        entry.lights.push_back(countdown);
        lights.trafficLights.push_back(entry);
    }
    return lights;
}

void Scene3d::BreakObjects(custom::ObjectArray& objects, unsigned fault)
{
    if (objects.objectList.empty()) {
        return;
    }
    custom::Object& object = objects.objectList.front();
    switch (fault % 3) {
    case 0:
        object.objectBoxSize.x = -1;
        break;
    case 1:
        object.boxPolygon.points.resize(1);
        break;
    default:
        object.objectBoxCenter.y = std::nan("");
        break;
    }
}

void Scene3d::BreakRadar(custom::RadarDetectArray& detections, custom::RadarTrackArray& tracks, unsigned fault)
{
    if (!detections.detectList.empty()) {
        detections.detectList.front().vx = fault % 2 == 0 ? 128.5F : -200.0F;
    }
    if (!tracks.trackList.empty()) {
        tracks.trackList.front().length = 205.0F;
    }
}

void Scene3d::BreakFreespace(orsa_msgs::StereoFreespace& grid, unsigned fault)
{
    if (fault % 2 == 0) {
        grid.info.xResolution = 0;  // the whole grid is dropped
    } else if (!grid.cellData.empty()) {
        grid.cellData.front().status = 3;  // one cell is left out
    }
}

void Scene3d::BreakTrafficLights(orsa_msgs::StereoTrafficLightArray& lights, unsigned fault)
{
    if (lights.trafficLights.empty()) {
        return;
    }
    if (fault % 2 == 0) {
        lights.trafficLights.front().scale = 0;
    } else {
        lights.trafficLights.front().lights.front().state = 7;
    }
}

} // namespace simulated_car
