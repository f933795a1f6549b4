#include "trafficlight_manager.h"

#ifndef Q_MOC_RUN
#include <OgreSceneManager.h>
#include <OgreSceneNode.h>
#endif

#include <QTimer>

#include <cmath>

namespace rviz_plugin {

namespace {
constexpr double lampSpacing = 0.55;   // between the lamps of a head
constexpr double groupSpacing = 0.8;   // between the heads of an intersection
constexpr double horizontalLift = 0.5;  // a horizontal head hangs this much higher
const char* const indexProperty = "intersection";

bool IsGood(const orsa_msgs::StereoTrafficLight& entry)
{
    return TrafficLightFieldCheck::StereoTrafficLightDataAvailable(entry);
}

std::size_t ShownCount(const orsa_msgs::StereoTrafficLightArray& message)
{
    return std::min<std::size_t>(message.trafficLights.size(), TrafficLightFieldCheck::maxIntersections);
}

std::vector<uint8_t> Types(const orsa_msgs::StereoTrafficLight& entry)
{
    std::vector<uint8_t> types;
    for (const orsa_msgs::Light& light : entry.lights) {
        types.push_back(light.type);
    }
    return types;
}

std::string DigitMesh(int number)
{
    return "digital_" + std::to_string(number) + ".dae";
}
} // namespace

TrafficlightManager::TrafficlightManager(Ogre::SceneManager* manager, Ogre::SceneNode* parent)
    : sceneManager(manager), parentNode(parent)
{
    for (std::size_t index = 0; index < intersections.size(); ++index) {
        Intersection& intersection = intersections[index];
        intersection.node = parentNode->createChildSceneNode();
        intersection.node->setVisible(false);
        intersection.timer = new QTimer(this);
        intersection.timer->setSingleShot(true);
        intersection.timer->setProperty(indexProperty, static_cast<int>(index));
        connect(intersection.timer, &QTimer::timeout, this, &TrafficlightManager::HideAssignedIntersection);
    }
}

TrafficlightManager::~TrafficlightManager()
{
    for (Intersection& intersection : intersections) {
        DestroyGroups(intersection);
        sceneManager->destroySceneNode(intersection.node);
    }
}

void TrafficlightManager::DestroyGroups(Intersection& intersection)
{
    for (LightGroup& group : intersection.groups) {
        group.models.clear();
        sceneManager->destroySceneNode(group.node);
    }
    intersection.groups.clear();
    intersection.types.clear();
}

bool TrafficlightManager::IsEmptyFrameData(const orsa_msgs::StereoTrafficLightArray& message)
{
    if (message.trafficLights.empty()) {
        return true;
    }
    for (const orsa_msgs::StereoTrafficLight& entry : message.trafficLights) {
        if (entry.lights.empty()) {
            return true;
        }
    }
    return false;
}

void TrafficlightManager::DisplayTrafficlight(const orsa_msgs::StereoTrafficLightArray& message)
{
    if (IsEmptyFrameData(message)) {
        HideAll();
        return;
    }
    const std::size_t shown = ShownCount(message);
    for (std::size_t index = 0; index < shown; ++index) {
        if (IsGood(message.trafficLights[index])) {
            SetView(index, message.trafficLights[index]);
        }
    }
    IntersectionNodeManage(message);
    SetLifetime(message);
}

void TrafficlightManager::SetView(std::size_t index, const orsa_msgs::StereoTrafficLight& entry)
{
    Intersection& intersection = intersections[index];
    if (intersection.types != Types(entry) || intersection.direction != entry.direction) {
        CreateIntersectionTrafficlight(index, entry);
    }
    for (std::size_t groupIndex = 0; groupIndex < entry.lights.size(); ++groupIndex) {
        SetDisplayColor(intersection.groups[groupIndex], entry.lights[groupIndex]);
    }
}

void TrafficlightManager::CreateIntersectionTrafficlight(std::size_t index, const orsa_msgs::StereoTrafficLight& entry)
{
    Intersection& intersection = intersections[index];
    DestroyGroups(intersection);
    for (std::size_t groupIndex = 0; groupIndex < entry.lights.size(); ++groupIndex) {
        intersection.groups.push_back(CreateSingleGroupTrafficlight(index, groupIndex, entry.lights[groupIndex]));
    }
    intersection.types = Types(entry);
    intersection.direction = entry.direction;
    SetLightView(intersection);
}

TrafficlightManager::LightGroup TrafficlightManager::CreateSingleGroupTrafficlight(std::size_t index,
                                                                                   std::size_t groupIndex,
                                                                                   const orsa_msgs::Light& light)
{
    LightGroup group;
    group.node = intersections[index].node->createChildSceneNode();
    const std::string prefix = "road[" + std::to_string(index) + "]-" + std::to_string(groupIndex);
    if (light.type == orsa_msgs::Light::COUNTDOWN_LIGHT) {
        CreateNumber(group, prefix);
        return group;
    }
    CreateBackBoard(group, prefix);
    if (light.type == orsa_msgs::Light::ROUND_LIGHT) {
        CreateCircleLight(group, prefix);
    } else {
        CreateArrowLight(group, prefix, light.type);
    }
    return group;
}

void TrafficlightManager::CreateBackBoard(LightGroup& group, const std::string& prefix)
{
    group.models.push_back(std::make_unique<TrafficlightModel>(sceneManager, group.node, prefix + "-backboard",
                                                               "cubeBack.dae", TrafficlightModel::OutsideBack));
}

void TrafficlightManager::CreateCircleLight(LightGroup& group, const std::string& prefix)
{
    for (int lamp = 0; lamp < 3; ++lamp) {
        auto model = std::make_unique<TrafficlightModel>(sceneManager, group.node,
                                                         prefix + "-circleobj:" + std::to_string(lamp),
                                                         "board_circle.dae", TrafficlightModel::RoundLight);
        // The first lamp at the bottom: green, yellow, red from the ground up.
        model->Node()->setPosition(0, 0, static_cast<float>((lamp - 1) * lampSpacing));
        group.models.push_back(std::move(model));
    }
}

void TrafficlightManager::CreateArrowLight(LightGroup& group, const std::string& prefix, uint8_t type)
{
    // The mesh points left; the other arrows are it turned about the viewing axis.
    Ogre::Degree turn(0);
    switch (type) {
    case orsa_msgs::Light::STRAIGHT_ARROW:
        turn = Ogre::Degree(90);
        break;
    case orsa_msgs::Light::RIGHT_ARROW:
        turn = Ogre::Degree(180);
        break;
    case orsa_msgs::Light::U_TURN_ARROW:
        turn = Ogre::Degree(-90);
        break;
    default:
        break;
    }
    for (int lamp = 0; lamp < 3; ++lamp) {
        auto board = std::make_unique<TrafficlightModel>(sceneManager, group.node,
                                                         prefix + "-arrowback:" + std::to_string(lamp),
                                                         "arrow_back.dae", TrafficlightModel::RoundBack);
        board->Node()->setPosition(0, 0, static_cast<float>((lamp - 1) * lampSpacing));
        group.models.push_back(std::move(board));
    }
    for (int lamp = 0; lamp < 3; ++lamp) {
        auto arrow = std::make_unique<TrafficlightModel>(sceneManager, group.node,
                                                         prefix + "-arrowobj:" + std::to_string(lamp),
                                                         "arrow_left.dae", type);
        arrow->Node()->setPosition(0, 0, static_cast<float>((lamp - 1) * lampSpacing));
        arrow->Node()->setOrientation(Ogre::Quaternion(Ogre::Radian(turn), Ogre::Vector3::UNIT_X));
        group.models.push_back(std::move(arrow));
    }
}

void TrafficlightManager::CreateNumber(LightGroup& group, const std::string& prefix)
{
    group.models.push_back(std::make_unique<TrafficlightModel>(sceneManager, group.node, prefix + "-numberBackboard",
                                                               "num_back.dae", TrafficlightModel::OutsideBack));
    group.models.push_back(std::make_unique<TrafficlightModel>(sceneManager, group.node, prefix + "-leftnumber:0",
                                                               DigitMesh(1), TrafficlightModel::CountdownLight));
    group.models.push_back(std::make_unique<TrafficlightModel>(sceneManager, group.node, prefix + "-rightnumber:0",
                                                               DigitMesh(15), TrafficlightModel::CountdownLight));
}

void TrafficlightManager::SetLightView(Intersection& intersection)
{
    if (intersection.direction == 1) {
        SetHorizontalView(intersection);
    } else {
        SetVerticalView(intersection);
    }
}

void TrafficlightManager::SetVerticalView(Intersection& intersection)
{
    // Heads side by side, centred on the intersection's position.
    const double middle = (static_cast<double>(intersection.groups.size()) - 1) / 2;
    for (std::size_t index = 0; index < intersection.groups.size(); ++index) {
        Ogre::SceneNode* node = intersection.groups[index].node;
        node->setPosition(0, static_cast<float>((middle - static_cast<double>(index)) * groupSpacing), 0);
        node->setOrientation(Ogre::Quaternion::IDENTITY);
    }
}

void TrafficlightManager::SetHorizontalView(Intersection& intersection)
{
    // Heads lying on their side, one above the other; a countdown stays upright to be read.
    for (std::size_t index = 0; index < intersection.groups.size(); ++index) {
        Ogre::SceneNode* node = intersection.groups[index].node;
        node->setPosition(0, 0, static_cast<float>(-static_cast<double>(index) * groupSpacing));
        const bool countdown = intersection.types[index] == orsa_msgs::Light::COUNTDOWN_LIGHT;
        node->setOrientation(countdown ? Ogre::Quaternion::IDENTITY
                                       : Ogre::Quaternion(Ogre::Degree(-90), Ogre::Vector3::UNIT_X));
    }
}

void TrafficlightManager::SetDisplayColor(LightGroup& group, const orsa_msgs::Light& light)
{
    if (light.type == orsa_msgs::Light::COUNTDOWN_LIGHT) {
        SetCountdownLightDisplayColor(group, light);
        return;
    }
    if (group.models.size() < 4) {
        return;
    }
    if (light.type == orsa_msgs::Light::ROUND_LIGHT) {
        SetRoundLightDisplayColor(group, light);
    } else {
        SetArrowLightDisplayColor(group, light);
    }
}

void TrafficlightManager::SetRoundLightDisplayColor(LightGroup& group, const orsa_msgs::Light& light)
{
    SetLampColors(group, light, 1);
}

void TrafficlightManager::SetArrowLightDisplayColor(LightGroup& group, const orsa_msgs::Light& light)
{
    if (group.models.size() >= 7) {
        SetLampColors(group, light, 4);
    }
}

void TrafficlightManager::SetLampColors(LightGroup& group, const orsa_msgs::Light& light, std::size_t first)
{
    const std::vector<uint8_t> states = TrafficLightLook::LampStates(light.state);
    for (std::size_t lamp = 0; lamp < states.size(); ++lamp) {
        TrafficlightModel& model = *group.models[first + lamp];
        model.SetType(light.type);
        model.SetState(states[lamp]);
        model.SetColor();
    }
}

void TrafficlightManager::SetCountdownLightDisplayColor(LightGroup& group, const orsa_msgs::Light& light)
{
    if (group.models.size() < 3) {
        return;
    }
    const auto digits = TrafficLightLook::GetCountdownIndex(light.countdownValue);
    group.models[1]->SetMesh(DigitMesh(digits.first));
    group.models[2]->SetMesh(DigitMesh(digits.second));
    for (std::size_t digit = 1; digit < 3; ++digit) {
        group.models[digit]->SetState(light.state);
        group.models[digit]->SetColor();
    }
}

void TrafficlightManager::IntersectionNodeManage(const orsa_msgs::StereoTrafficLightArray& message)
{
    const std::size_t shown = ShownCount(message);
    for (std::size_t index = 0; index < intersections.size(); ++index) {
        Intersection& intersection = intersections[index];
        const bool good = index < shown && IsGood(message.trafficLights[index]);
        intersection.visible = good;
        intersection.node->setVisible(good);
        if (!good) {
            intersection.timer->stop();
            continue;
        }
        const orsa_msgs::StereoTrafficLight& entry = message.trafficLights[index];
        const auto& t = entry.transform.translation;
        intersection.node->setPosition(static_cast<float>(t.x), static_cast<float>(t.y),
                                       static_cast<float>(t.z + (entry.direction == 1 ? horizontalLift : 0.0)));
        const auto scale = static_cast<float>(entry.scale);
        intersection.node->setScale(scale, scale, scale);
        const auto& r = entry.transform.rotation;
        const bool allZero = std::fabs(r.x) < 1e-6 && std::fabs(r.y) < 1e-6 && std::fabs(r.z) < 1e-6 &&
                             std::fabs(r.w) < 1e-6;
        if (!allZero) {
            intersection.node->setOrientation(Ogre::Quaternion(static_cast<float>(r.w), static_cast<float>(r.x),
                                                               static_cast<float>(r.y), static_cast<float>(r.z)));
        }
    }
}

void TrafficlightManager::SetLifetime(const orsa_msgs::StereoTrafficLightArray& message)
{
    const std::size_t shown = ShownCount(message);
    for (std::size_t index = 0; index < shown; ++index) {
        const orsa_msgs::StereoTrafficLight& entry = message.trafficLights[index];
        if (!IsGood(entry)) {
            continue;
        }
        if (entry.lifetime.sec > 0) {
            intersections[index].timer->start(entry.lifetime.sec * 1000);
        } else {
            intersections[index].timer->stop();
        }
    }
}

void TrafficlightManager::HideAssignedIntersection()
{
    const QObject* timer = sender();
    if (timer == nullptr) {
        return;
    }
    const int index = timer->property(indexProperty).toInt();
    if (index >= 0 && static_cast<std::size_t>(index) < intersections.size()) {
        intersections[index].visible = false;
        intersections[index].node->setVisible(false);
    }
}

void TrafficlightManager::HideAll()
{
    for (Intersection& intersection : intersections) {
        intersection.visible = false;
        intersection.node->setVisible(false);
    }
}

void TrafficlightManager::Reset()
{
    for (Intersection& intersection : intersections) {
        intersection.timer->stop();
    }
    HideAll();
}

bool TrafficlightManager::IsIntersectionVisible(std::size_t index) const
{
    return index < intersections.size() && intersections[index].visible;
}

const std::vector<std::unique_ptr<TrafficlightModel>>& TrafficlightManager::Group(std::size_t intersection,
                                                                                  std::size_t group) const
{
    return intersections.at(intersection).groups.at(group).models;
}

} // namespace rviz_plugin
