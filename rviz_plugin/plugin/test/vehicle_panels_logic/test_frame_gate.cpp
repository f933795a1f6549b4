// The frame gate: requests from another thread become at most one opening a frame period, and the
// last request is never lost.
#include "vehicle_panels_logic/frame_gate.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>

#include <atomic>
#include <chrono>
#include <thread>

namespace {

TEST(FrameGate, ABurstFromAnotherThreadOpensAtMostOnceAFrame)
{
    constexpr int period = 20;
    rviz_plugin::FrameGate gate(period);
    int opened = 0;
    std::atomic<int> requestsBeforeLastOpen{0};
    std::atomic<int> requests{0};
    QObject::connect(&gate, &rviz_plugin::FrameGate::Open, [&] {
        ++opened;
        requestsBeforeLastOpen = requests.load();
    });
    QElapsedTimer clock;
    clock.start();
    std::atomic<bool> done{false};
    std::thread producer([&] {
        const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
        while (std::chrono::steady_clock::now() < until) {
            ++requests;
            gate.Request();
            std::this_thread::sleep_for(std::chrono::microseconds(100));
        }
        done = true;
    });
    // Serve until the producer is done and the gate opened after its last request.
    while (!done || requestsBeforeLastOpen != requests) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        ASSERT_LT(clock.elapsed(), 5000) << "the last request never opened the gate";
    }
    producer.join();
    EXPECT_GE(opened, 2);
    EXPECT_LE(opened, static_cast<int>(clock.elapsed() / period) + 2) << clock.elapsed() << " ms";
    EXPECT_LT(opened, requests / 10);
}

TEST(FrameGate, RequestsBeforeTheEventLoopRunsOpenOnce)
{
    rviz_plugin::FrameGate gate(10);
    int opened = 0;
    QObject::connect(&gate, &rviz_plugin::FrameGate::Open, [&] { ++opened; });
    for (int i = 0; i < 100; ++i) {
        gate.Request();
    }
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 100) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    EXPECT_EQ(opened, 1);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
