// The vehicle panels' cost on the GUI thread.
//
//   vehicle_panels_bench [--seconds S]
//
// 1. Paint time of each panel's widget at its minimum size and at twice that size, next to a blit of a
//    picture of the same size (the least a repaint costs). Target: at most 1 ms a paint.
// 2. 1000 messages a second on every topic of the five panels (seven topics), through a ROS master on
//    loopback: CPU time of the GUI thread per second of wall time. Reference in the same run: the same
//    widgets fed the direct way, every message taken from ROS's global queue in the GUI thread and
//    handed to the widget. Target: at most 5 % of a core.
#include "../test/support/processes.h"
#include "../test/support/temp_dir.h"
#include "car_view/car_status_view.h"
#include "car_view/control_instruction.h"
#include "car_view/control_status_panel.h"
#include "car_view/status_view_panel.h"
#include "road/road_elements_panel.h"
#include "road/road_elements_widget.h"
#include "scene_function/scene_fun_panel.h"
#include "scene_function/scene_function_widget.h"
#include "traffic/traffic_elements_panel.h"
#include "traffic/traffic_elements_widget.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QImage>
#include <QPainter>
#include <QTimer>
#include <ros/ros.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <memory>
#include <thread>
#include <vector>

using Clock = std::chrono::steady_clock;

namespace {

double ThreadCpuSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return now.tv_sec + now.tv_nsec * 1e-9;
}

double MillisecondsPer(int count, const std::function<void()>& body)
{
    const auto start = Clock::now();
    for (int index = 0; index < count; ++index) {
        body();
    }
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count() / count;
}

custom::VehicleStatus Status(int index)
{
    custom::VehicleStatus status;
    status.gear = 4;
    status.steeringWheelAngle = index % 720 - 360;
    status.vehicleSpeed = index % 120;
    status.throttle = (index % 100) / 100.0;
    status.brake = 0.1;
    status.turnLight = index / 500 % 4;
    return status;
}

custom::KeyObject KeyObject(int index)
{
    custom::KeyObject object;
    object.id = index;
    object.speedOrientation.w = 1;
    object.lateralDistance = (index % 40) / 4.0 - 5;
    object.verticalDistance = (index % 100) / 5.0;
    return object;
}

void PaintFigures(int repeats)
{
    std::printf("paint time per widget (ms, mean of %d), and as a multiple of a blit of the same size:\n", repeats);
    StatusViewPanel status;
    ControlStatusPanel control;
    rviz_plugin::SceneFunctionWidget scene;
    rviz_plugin::TrafficElementsWidget traffic;
    rviz_plugin::RoadElementsWidget road;
    status.ReadConf();
    control.ReadConf();
    scene.ReadConf();
    traffic.ReadConf();
    road.ReadConf();
    status.UpdateValue(Status(700));
    control.UpdateValue(Status(700));
    scene.UpdateKeyObjectValue(KeyObject(13));
    custom::TrafficInfo info;
    info.trafficLightState = 3;
    info.trafficLightType = 2;
    info.trafficSign = 14;
    info.speed_limit = 60;
    traffic.UpdateTrafficInfoValue(info);
    custom::RoadInfo lane;
    lane.leftLaneType = 3;
    lane.rightLaneType = 8;
    lane.frontIntersectionType = 1;
    road.UpdateRoadInfoValue(lane);
    const std::pair<const char*, QWidget*> widgets[] = {{"CarStatusView", &status},
                                                        {"ControlInstruction", &control},
                                                        {"SceneFunPanel", &scene},
                                                        {"TrafficElementsPanel", &traffic},
                                                        {"RoadElementsPanel", &road}};
    double worst = 0;
    for (const auto& [name, widget] : widgets) {
        for (const double scale : {1.0, 2.0}) {
            widget->resize((QSizeF(widget->minimumSize()) * scale).toSize());
            QImage image(widget->size(), QImage::Format_ARGB32_Premultiplied);
            const double paint = MillisecondsPer(repeats, [&] {
                image.fill(Qt::black);
                widget->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
            });
            const QImage picture = image.copy();
            const double blit = MillisecondsPer(repeats, [&] {
                QPainter painter(&image);
                painter.drawImage(0, 0, picture);
            });
            worst = std::max(worst, paint);
            std::printf("  %-22s %dx%-4d %6.3f ms  (%5.1fx a blit of %.3f ms)\n", name, widget->width(),
                        widget->height(), paint, paint / blit, blit);
        }
    }
    std::printf("  slowest paint %.3f ms: %s the 1 ms target\n", worst, worst <= 1.0 ? "within" : "OVER");
}

// Publishes on the seven topics at rate messages a second each until stopped.
class Publishers {
public:
    explicit Publishers(double rate)
    {
        ros::NodeHandle node;
        status = node.advertise<custom::VehicleStatus>("TopicVehicleInfo", 1000);
        control = node.advertise<custom::VehicleStatus>("TopicVehicleControl", 1000);
        keyObject = node.advertise<custom::KeyObject>("TopicKeyObjects", 1000);
        navigation = node.advertise<custom::NavigationStatus>("TopicNavigationStatus", 1000);
        location = node.advertise<custom::LocationStatus>("TopicLocationStatus", 1000);
        traffic = node.advertise<custom::TrafficInfo>("TopicTrafficInfo", 1000);
        road = node.advertise<custom::RoadInfo>("TopicRoadInfo", 1000);
        thread = std::thread([this, rate] {
            const auto period = std::chrono::duration<double>(1.0 / rate);
            auto next = Clock::now();
            for (int index = 0; running; ++index) {
                status.publish(Status(index));
                control.publish(Status(index + 7));
                keyObject.publish(KeyObject(index));
                custom::NavigationStatus nav;
                nav.navStatus = index % 16;
                navigation.publish(nav);
                custom::LocationStatus fix;
                fix.searchedSattelites = index % 30;
                location.publish(fix);
                custom::TrafficInfo info;
                info.trafficLightReservedTime = index % 30;
                traffic.publish(info);
                custom::RoadInfo lane;
                lane.distanceToEnd = index;
                road.publish(lane);
                sent = index + 1;
                next += std::chrono::duration_cast<Clock::duration>(period);
                std::this_thread::sleep_until(next);
            }
        });
    }
    ~Publishers()
    {
        running = false;
        thread.join();
    }
    int Subscribers() const
    {
        return static_cast<int>(status.getNumSubscribers() + control.getNumSubscribers() + keyObject.getNumSubscribers() +
                                navigation.getNumSubscribers() + location.getNumSubscribers() +
                                traffic.getNumSubscribers() + road.getNumSubscribers());
    }
    std::atomic<int> sent{0};

private:
    ros::Publisher status, control, keyObject, navigation, location, traffic, road;
    std::atomic<bool> running{true};
    std::thread thread;
};

// Runs the event loop for seconds; returns the GUI thread's CPU seconds per wall second.
double GuiLoad(double seconds, const std::function<void()>& eachPass = nullptr)
{
    QTimer pass;
    if (eachPass) {
        QObject::connect(&pass, &QTimer::timeout, eachPass);
        pass.start(0);
    }
    const double cpu = ThreadCpuSeconds();
    const auto start = Clock::now();
    QTimer::singleShot(static_cast<int>(seconds * 1000), [] { QApplication::quit(); });
    QApplication::exec();
    const double wall = std::chrono::duration<double>(Clock::now() - start).count();
    return (ThreadCpuSeconds() - cpu) / wall;
}

void WaitForSubscribers(const Publishers& publishers, int count)
{
    const auto until = Clock::now() + std::chrono::seconds(10);
    while (publishers.Subscribers() < count && Clock::now() < until) {
        QApplication::processEvents();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

void MessageLoadFigures(double seconds)
{
    constexpr double rate = 1000;
    std::printf("GUI thread CPU with %.0f messages a second on each of the seven topics (%.0f s each run):\n",
                rate, seconds);
    Publishers publishers(rate);
    double ours = 0;
    {
        QWidget window;
        auto* layout = new QHBoxLayout(&window);
        rviz_plugin::CarStatusView status;
        rviz_plugin::ControlInstruction control;
        rviz_plugin::SceneFunPanel scene;
        rviz_plugin::TrafficElementsPanel traffic;
        rviz_plugin::RoadElementsPanel road;
        for (rviz::Panel* panel : std::initializer_list<rviz::Panel*>{&status, &control, &scene, &traffic, &road}) {
            panel->onInitialize();
            layout->addWidget(panel);
        }
        window.show();
        WaitForSubscribers(publishers, 7);
        const int before = publishers.sent;
        ours = GuiLoad(seconds);
        std::printf("  the panels:                  %5.2f %% of a core (%d messages a topic)\n", 100 * ours,
                    publishers.sent - before);
    }
    {
        // The direct way: the global queue spun in the GUI thread, every message to its widget.
        QWidget window;
        auto* layout = new QHBoxLayout(&window);
        auto* status = new StatusViewPanel;
        auto* control = new ControlStatusPanel;
        auto* scene = new rviz_plugin::SceneFunctionWidget;
        auto* traffic = new rviz_plugin::TrafficElementsWidget;
        auto* road = new rviz_plugin::RoadElementsWidget;
        status->ReadConf();
        control->ReadConf();
        scene->ReadConf();
        traffic->ReadConf();
        road->ReadConf();
        for (QWidget* widget : std::initializer_list<QWidget*>{status, control, scene, traffic, road}) {
            layout->addWidget(widget);
        }
        window.show();
        ros::NodeHandle node;
        std::vector<ros::Subscriber> subscribers{
            node.subscribe<custom::VehicleStatus>("TopicVehicleInfo", 1000,
                                                  [status](const custom::VehicleStatusConstPtr& m) { status->UpdateValue(*m); }),
            node.subscribe<custom::VehicleStatus>("TopicVehicleControl", 1000,
                                                  [control](const custom::VehicleStatusConstPtr& m) { control->UpdateValue(*m); }),
            node.subscribe<custom::KeyObject>("TopicKeyObjects", 1000,
                                              [scene](const custom::KeyObjectConstPtr& m) { scene->UpdateKeyObjectValue(*m); }),
            node.subscribe<custom::NavigationStatus>(
                "TopicNavigationStatus", 1000,
                [scene](const custom::NavigationStatusConstPtr& m) { scene->UpdateNavigationStatusValue(*m); }),
            node.subscribe<custom::LocationStatus>(
                "TopicLocationStatus", 1000,
                [traffic](const custom::LocationStatusConstPtr& m) { traffic->UpdateLocationStatusValue(*m); }),
            node.subscribe<custom::TrafficInfo>(
                "TopicTrafficInfo", 1000,
                [traffic](const custom::TrafficInfoConstPtr& m) { traffic->UpdateTrafficInfoValue(*m); }),
            node.subscribe<custom::RoadInfo>("TopicRoadInfo", 1000,
                                             [road](const custom::RoadInfoConstPtr& m) { road->UpdateRoadInfoValue(*m); })};
        WaitForSubscribers(publishers, 7);
        const int before = publishers.sent;
        const double direct = GuiLoad(seconds, [] { ros::spinOnce(); });
        std::printf("  reference, the direct way:   %5.2f %% of a core (%d messages a topic)\n", 100 * direct,
                    publishers.sent - before);
        std::printf("  ratio panels / reference: %.3f; %s the 5 %% target\n", ours / direct,
                    ours <= 0.05 ? "within" : "OVER");
    }
}

} // namespace

int main(int argc, char** argv)
{
    double seconds = 5;
    for (int i = 1; i + 1 < argc; i += 2) {
        if (std::strcmp(argv[i], "--seconds") == 0) {
            seconds = std::atof(argv[i + 1]);
        }
    }
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    test_support::TempDir work;
    test_support::RosMaster master(work.Path().string());
    for (const auto& [name, value] : master.RosEnvironment()) {
        setenv(name.c_str(), value.c_str(), 1);
    }
    ros::init(argc, argv, "vehicle_panels_bench", ros::init_options::NoSigintHandler);
    ros::start();
    QApplication application(argc, argv);
    PaintFigures(300);
    MessageLoadFigures(seconds);
    ros::shutdown();
    return 0;
}
