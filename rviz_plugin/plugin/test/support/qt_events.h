#ifndef RVIZ_PLUGIN_TEST_QT_EVENTS_H
#define RVIZ_PLUGIN_TEST_QT_EVENTS_H

#include "processes.h"

#include <QCoreApplication>
#include <ros/init.h>

#include <chrono>
#include <functional>

namespace test_support {

// Serves Qt's events (queued signals from other threads, hand-overs) until predicate holds.
inline bool ServeEvents(const std::function<bool()>& predicate,
                        std::chrono::milliseconds timeout = std::chrono::seconds(30))
{
    return WaitFor(
        [&]() {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
            return predicate();
        },
        timeout);
}

// As ServeEvents, turning ROS's global callback queue too (where rviz's callbacks run).
inline bool ServeRosEvents(const std::function<bool()>& predicate,
                           std::chrono::milliseconds timeout = std::chrono::seconds(20))
{
    return ServeEvents(
        [&]() {
            ros::spinOnce();
            return predicate();
        },
        timeout);
}

} // namespace test_support

#endif
