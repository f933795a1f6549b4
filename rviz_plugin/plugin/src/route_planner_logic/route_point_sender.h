#ifndef RVIZ_PLUGIN_ROUTE_POINT_SENDER_H
#define RVIZ_PLUGIN_ROUTE_POINT_SENDER_H

#include <array>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace rviz_plugin {

// Sends the points of routes to the car on a thread of its own, one point per pause (33 ms: at most
// about 30 points a second for the receiver), in the order the routes were handed in. Handing in
// never waits for a send in progress. The destructor finishes what was handed in.
class RoutePointSender {
public:
    using Point = std::array<double, 3>;
    enum class Channel { WayPoint, EndPoint, Clear };
    using Publish = std::function<void(Channel, const Point&)>;
    struct Job {
        std::vector<Point> wayPoints;
        bool hasEnd = false;
        Point end{};
        bool clear = false;  // all points on the clear channel instead
    };

    explicit RoutePointSender(Publish publish, std::chrono::microseconds pause = std::chrono::microseconds(33000));
    ~RoutePointSender();
    RoutePointSender(const RoutePointSender&) = delete;
    RoutePointSender& operator=(const RoutePointSender&) = delete;

    void Send(Job job);
    // Waits until every job handed in so far has been sent (for tests and shutdown).
    void Flush();

private:
    void Run();

    Publish publish;
    std::chrono::microseconds pause;
    std::mutex mutex;
    std::condition_variable wake;
    std::condition_variable idle;
    std::deque<Job> jobs;
    bool busy = false;
    bool stopping = false;
    std::thread worker;
};

} // namespace rviz_plugin

#endif
