#include "route_point_sender.h"

namespace rviz_plugin {

RoutePointSender::RoutePointSender(Publish publishPoint, std::chrono::microseconds pausePerPoint)
    : publish(std::move(publishPoint)), pause(pausePerPoint), worker(&RoutePointSender::Run, this)
{
}

RoutePointSender::~RoutePointSender()
{
    {
        std::lock_guard<std::mutex> lock(mutex);
        stopping = true;
    }
    wake.notify_one();
    worker.join();
}

void RoutePointSender::Send(Job job)
{
    {
        std::lock_guard<std::mutex> lock(mutex);
        jobs.push_back(std::move(job));
    }
    wake.notify_one();
}

void RoutePointSender::Flush()
{
    std::unique_lock<std::mutex> lock(mutex);
    idle.wait(lock, [this] { return jobs.empty() && !busy; });
}

void RoutePointSender::Run()
{
    std::unique_lock<std::mutex> lock(mutex);
    for (;;) {
        wake.wait(lock, [this] { return stopping || !jobs.empty(); });
        if (jobs.empty()) {
            return;  // stopping, and everything handed in was sent
        }
        Job job = std::move(jobs.front());
        jobs.pop_front();
        busy = true;
        lock.unlock();
        const Channel wayChannel = job.clear ? Channel::Clear : Channel::WayPoint;
        for (const Point& point : job.wayPoints) {
            publish(wayChannel, point);
            std::this_thread::sleep_for(pause);
        }
        if (job.hasEnd) {
            publish(job.clear ? Channel::Clear : Channel::EndPoint, job.end);
        }
        lock.lock();
        busy = false;
        if (jobs.empty()) {
            idle.notify_all();
        }
    }
}

} // namespace rviz_plugin
