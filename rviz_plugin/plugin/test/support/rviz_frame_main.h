#ifndef RVIZ_PLUGIN_TEST_RVIZ_FRAME_MAIN_H
#define RVIZ_PLUGIN_TEST_RVIZ_FRAME_MAIN_H

#include "processes.h"
#include "temp_dir.h"

#include <ros/init.h>
#include <rviz/visualization_frame.h>

#include <QApplication>

#include <cstdlib>
#include <memory>
#include <string>

namespace test_support {

// A ROS master on loopback, a virtual display, roscpp as node and a shown rviz frame on them; runs
// body(frame, display) (the tests) and takes it all down after.
template <typename Body>
int WithRvizFrame(int& argc, char** argv, const std::string& node, Body body)
{
    TempDir work;
    RosMaster master(work.Path().string());
    VirtualDisplay display(work.Path().string());
    setenv("DISPLAY", display.Display().c_str(), 1);
    for (const auto& [name, value] : master.RosEnvironment()) {
        setenv(name.c_str(), value.c_str(), 1);
    }
    ros::init(argc, argv, node, ros::init_options::NoSigintHandler);
    int result = 1;
    {
        QApplication app(argc, argv);
        auto frame = std::make_unique<rviz::VisualizationFrame>();
        frame->initialize();
        frame->show();
        result = body(*frame, display);
    }
    ros::shutdown();
    return result;
}

} // namespace test_support

#endif
