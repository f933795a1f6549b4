// The plot panel's cost.
//
//   plot_bench [--seconds S] [--part replot|ingest|memory]
//
// 1. replot: one plot of 5 lines x 360000 samples (an hour at 100 Hz), drawn at full zoom and zoomed in
//    to ten seconds, next to the same samples drawn by Qwt's own curve. Target: at most 16 ms a replot.
// 2. ingest: 4 topics of 10 numeric fields at 1 kHz each into 40 lines (8 plots x 5); ROS's global
//    queue spun every 30 ms as rviz does. CPU time of the GUI thread (decoding, storing, one replot a
//    second) per second of wall time, next to compiled subscribers of the same topics that do nothing
//    with the messages (the cost of receiving alone). Target: at most 15 % of a core.
// 3. memory: the ingest for S seconds (600 for the figure); resident memory grown, per kept sample.
//    Target: at most 16 bytes a sample.
#include "../test/support/processes.h"
#include "../test/support/ros_test_main.h"
#include "../test/support/temp_dir.h"
#include "plot_data/plot_canvas_data.h"
#include "plot_data/plot_model.h"
#include "plot_data/plot_subscriber.h"
#include "plot_widgets/plot_curve.h"
#include "plot_widgets/plot_widget.h"

#include <custom/VehicleStatus.h>

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_scale_div.h>

#include <QApplication>
#include <QTimer>
#include <ros/ros.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

using Clock = std::chrono::steady_clock;
using namespace rviz_plugin;

namespace {

constexpr int topicCount = 4;
constexpr int plotCount = 8;
constexpr int linesPerPlot = 5;
const char* const fields[] = {"header/seq",   "gear",        "steeringWheelAngle", "steeringWheelRadians",
                              "vehicleSpeed", "vehicleAcceleration", "turnLight", "hazardLights",
                              "throttle",     "brake"};

double ThreadCpuSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return now.tv_sec + now.tv_nsec * 1e-9;
}

double ResidentMegabytes()
{
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.rfind("VmRSS:", 0) == 0) {
            return std::atof(line.c_str() + 6) / 1024.0;
        }
    }
    return 0.0;
}

// Serves events, spinning ROS's global queue every 30 ms, for seconds (or until predicate holds).
void Serve(double seconds, const std::function<bool()>& predicate = [] { return false; })
{
    const auto start = Clock::now();
    auto lastSpin = start;
    while (!predicate() && std::chrono::duration<double>(Clock::now() - start).count() < seconds) {
        QApplication::processEvents(QEventLoop::AllEvents, 5);
        if (Clock::now() - lastSpin >= std::chrono::milliseconds(30)) {
            ros::spinOnce();
            lastSpin = Clock::now();
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

std::string Topic(int index)
{
    return "/bench_vehicle_" + std::to_string(index);
}

// Publishes the 4 topics at 1 kHz each from a thread of its own.
class Publishers {
public:
    Publishers()
    {
        ros::NodeHandle node;
        for (int i = 0; i < topicCount; ++i) {
            publishers.push_back(node.advertise<custom::VehicleStatus>(Topic(i), 1000));
        }
        thread = std::thread([this]() {
            custom::VehicleStatus status;
            auto next = Clock::now();
            unsigned count = 0;
            while (running) {
                status.header.stamp = ros::Time::now();
                status.header.seq = count;
                status.vehicleSpeed = 30.0 + 10.0 * std::sin(count * 0.001);
                status.vehicleAcceleration = std::cos(count * 0.001);
                status.throttle = (count % 1000) * 0.001;
                status.brake = 1.0 - status.throttle;
                status.gear = static_cast<uint8_t>(count % 5);
                status.steeringWheelAngle = std::sin(count * 0.01) * 90.0;
                status.steeringWheelRadians = status.steeringWheelAngle * M_PI / 180.0;
                for (ros::Publisher& publisher : publishers) {
                    publisher.publish(status);
                }
                ++count;
                next += std::chrono::microseconds(1000);
                std::this_thread::sleep_until(next);
            }
        });
    }
    ~Publishers()
    {
        running = false;
        thread.join();
    }

private:
    std::vector<ros::Publisher> publishers;
    std::atomic<bool> running{true};
    std::thread thread;
};

PlotCanvasData IngestPlot(int plot)
{
    PlotCanvasData canvas;
    canvas.setting.title = QString("Plot %1").arg(plot);
    for (int line = 0; line < linesPerPlot; ++line) {
        const QString field = QString::fromStdString(Topic(plot / 2) + "/" + fields[(plot % 2) * linesPerPlot + line]);
        AxisLineData data;
        data.color = "#77A0F0";
        data.yField = field;
        data.curveName = field;
        canvas.axisData.axisLineList.push_back(data);
    }
    return canvas;
}

std::size_t KeptSamples(const std::vector<std::unique_ptr<PlotWidget>>& widgets)
{
    std::size_t samples = 0;
    for (const auto& widget : widgets) {
        for (const PlotCurve* curve : widget->GetCurves()) {
            samples += curve->Series().size();
        }
    }
    return samples;
}

// Eight plots of five lines each, fed by the publishers once their fields are known.
void IngestFigures(double seconds, bool memory)
{
    Publishers publishers;
    PlotModel model;
    PlotSubscriber definitions;
    QTimer definitionTimer;
    QObject::connect(&definitionTimer, &QTimer::timeout, [&]() {
        definitions.UpdateMsgDefinitionSubscriber();
        model.SetupModelData(definitions.GetDeserializedMsg());
    });
    definitionTimer.start(500);
    Serve(20, [&]() { return model.HasField(Topic(topicCount - 1) + "/brake"); });
    std::vector<std::unique_ptr<PlotWidget>> widgets;
    for (int plot = 0; plot < plotCount; ++plot) {
        widgets.push_back(std::make_unique<PlotWidget>(model));
        widgets.back()->InitUi();
        widgets.back()->SetCanvasData(IngestPlot(plot));
        widgets.back()->resize(800, 400);
        widgets.back()->show();
    }
    // The lines select their fields 1.5 s after the layout, and send a second later.
    Serve(4);
    const double startMegabytes = ResidentMegabytes();
    const std::size_t startSamples = KeptSamples(widgets);
    const double cpu = ThreadCpuSeconds();
    const auto wall = Clock::now();
    Serve(seconds);
    const double used = ThreadCpuSeconds() - cpu;
    const double elapsed = std::chrono::duration<double>(Clock::now() - wall).count();
    const std::size_t samples = KeptSamples(widgets);
    std::printf("plot ingest: 4 topics x 1 kHz into 40 lines: GUI thread %.1f %% of a core over %.0f s, %zu samples "
                "kept (%.0f a second)\n",
                100.0 * used / elapsed, elapsed, samples, (samples - startSamples) / elapsed);
    if (memory) {
        const double grown = ResidentMegabytes() - startMegabytes;
        std::printf("plot memory: resident %.1f MB -> %.1f MB after %.0f s: %.1f bytes a kept sample (%zu samples)\n",
                    startMegabytes, startMegabytes + grown, elapsed,
                    grown * 1024.0 * 1024.0 / std::max<double>(1.0, samples - startSamples), samples);
        return;
    }
    widgets.clear();
    // The reference: the same subscriptions (each topic twice) by compiled subscribers doing nothing.
    {
        ros::NodeHandle node;
        std::vector<ros::Subscriber> subscribers;
        for (int i = 0; i < topicCount; ++i) {
            for (int twice = 0; twice < 2; ++twice) {
                subscribers.push_back(node.subscribe<custom::VehicleStatus>(
                    Topic(i), 1000,
                    boost::function<void(const custom::VehicleStatus::ConstPtr&)>(
                        [](const custom::VehicleStatus::ConstPtr&) {})));
            }
        }
        Serve(2);
        const double referenceCpu = ThreadCpuSeconds();
        const auto referenceWall = Clock::now();
        Serve(std::min(seconds, 10.0));
        const double referenceUsed = ThreadCpuSeconds() - referenceCpu;
        const double referenceElapsed = std::chrono::duration<double>(Clock::now() - referenceWall).count();
        const double reference = referenceUsed / referenceElapsed;
        std::printf("plot ingest reference: compiled subscribers doing nothing %.1f %% of a core; ratio %.2f\n",
                    100.0 * reference, (used / elapsed) / reference);
    }
}

void FillHour(PlotCurve& curve, int line)
{
    QVector<QPointF> points;
    QVector<double> times;
    constexpr int samples = 360000;
    points.reserve(samples);
    times.reserve(samples);
    for (int i = 0; i < samples; ++i) {
        const double t = 1.7e9 + i * 0.01;
        points.push_back(QPointF(t, std::sin(i * 0.0007 + line) * 10.0 + std::sin(i * 0.31) + line * 3.0));
        times.push_back(t);
    }
    curve.Series().Append(points, times);
    curve.SamplesChanged();
}

double ReplotMilliseconds(QwtPlot& plot, int count)
{
    const auto start = Clock::now();
    for (int i = 0; i < count; ++i) {
        plot.replot();
        plot.canvas()->repaint();
    }
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count() / count;
}

void ReplotFigures()
{
    PlotModel model;
    PlotWidget widget(model);
    widget.InitUi();
    PlotCanvasData canvas;
    for (int line = 0; line < linesPerPlot; ++line) {
        AxisLineData data;
        data.color = QColor::fromHsv(line * 60, 200, 220).name();
        data.curveName = QString("line %1").arg(line);
        canvas.axisData.axisLineList.push_back(data);
    }
    widget.SetCanvasData(canvas);
    widget.resize(1200, 600);
    widget.show();
    QApplication::processEvents();
    for (int line = 0; line < linesPerPlot; ++line) {
        FillHour(*widget.GetCurves()[line], line);
    }
    widget.UpdateCurve(false);
    QwtPlot& plot = *widget.GetPlot();
    const double full = ReplotMilliseconds(plot, 20);
    const double start = plot.axisScaleDiv(QwtPlot::xBottom).lowerBound();
    plot.setAxisScale(QwtPlot::xBottom, start + 1800.0, start + 1810.0);
    const double zoomed = ReplotMilliseconds(plot, 20);

    // The reference: Qwt's own curves with the same samples in the same canvas size.
    QwtPlot reference;
    reference.setCanvasBackground(Qt::white);
    reference.resize(plot.size());
    std::vector<QwtPlotCurve*> curves;
    for (int line = 0; line < linesPerPlot; ++line) {
        auto* curve = new QwtPlotCurve();
        QVector<QPointF> points;
        const PlotSeries& series = widget.GetCurves()[line]->Series();
        for (std::size_t i = 0; i < series.size(); ++i) {
            points.push_back(series.Point(i));
        }
        curve->setSamples(points);
        curve->setPen(QColor::fromHsv(line * 60, 200, 220), 1.0);
        curve->setRenderHint(QwtPlotItem::RenderAntialiased, true);
        curve->attach(&reference);
    }
    reference.setAxisScale(QwtPlot::xBottom, start, start + 3600.0);
    reference.show();
    QApplication::processEvents();
    const double referenceFull = ReplotMilliseconds(reference, 3);
    std::printf("plot replot: 5 lines x 360000 samples: %.2f ms at full zoom, %.2f ms zoomed to 10 s; Qwt's own "
                "curves %.1f ms at full zoom; ratio %.3f\n",
                full, zoomed, referenceFull, full / referenceFull);
}

} // namespace

int main(int argc, char** argv)
{
    double seconds = 10;
    std::string part;
    for (int i = 1; i + 1 < argc; i += 2) {
        if (std::strcmp(argv[i], "--seconds") == 0) {
            seconds = std::atof(argv[i + 1]);
        } else if (std::strcmp(argv[i], "--part") == 0) {
            part = argv[i + 1];
        }
    }
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    return test_support::WithRosMaster(argc, argv, "plot_bench", [&]() {
        QApplication application(argc, argv);
        if (part.empty() || part == "replot") {
            ReplotFigures();
        }
        if (part.empty() || part == "ingest") {
            IngestFigures(seconds, false);
        }
        if (part == "memory") {
            IngestFigures(seconds, true);
        }
        return 0;
    });
}
