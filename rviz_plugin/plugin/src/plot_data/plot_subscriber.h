#ifndef RVIZ_PLUGIN_PLOT_SUBSCRIBER_H
#define RVIZ_PLUGIN_PLOT_SUBSCRIBER_H

#include "plot_data_handler.h"

#include "msg_viewer_panel/msg_subscriber.h"

#include <QString>
#include <QThread>
#include <QVector>

#include <map>
#include <mutex>
#include <set>
#include <string>
#include <vector>

namespace rviz_plugin {

// The viewer's subscriber with the master and subscribe calls on a thread of its own, so that a slow
// master never holds the GUI. The callbacks still run where the global ROS queue is pumped.
class PlotSubscriber : public MsgSubscriber {
    Q_OBJECT
public:
    // Every message is a sample: a second of a 1 kHz topic waits between two turns of the queue
    // (rviz turns it every 30 ms or so).
    static constexpr uint32_t displayQueueSize = 1000;

    PlotSubscriber();
    ~PlotSubscriber() override;

    // Each of these only posts the work to the thread.
    void UpdateMsgDefinitionSubscriber();
    void UpdateMsgDisplaySubscriber(const std::map<std::string, std::vector<std::string>>& topicFields) override;
    void ShutdownSubscriber() override;

    PlotDataHandler& GetPlotHandler() { return static_cast<PlotDataHandler&>(GetHandler()); }

    void TopicCallbackDisplay(const RosMsgParser::ShapeShifter& msg, const std::string& topic) override;
    void TopicCallbackDefinition(const RosMsgParser::ShapeShifter& msg, const std::string& topic) override;

Q_SIGNALS:
    void SignalUpdateData(const QString& topic);
    void SignaleUpdateSubscriber();
    void SignaleUpdateDisplaySubscriber(const QVector<QString>& topics);
    void SignalShutdownSubScriber();

private Q_SLOTS:
    void SlotSubscriber();
    void SlotDisplaySubscriber(const QVector<QString>& topics);
    void SlotShutdownSubscriber();

private:
    QThread thread;
    // Topics whose definition has come: written by the callbacks, read by the thread.
    std::mutex definedMutex;
    std::set<std::string> definedTopics;
};

} // namespace rviz_plugin

#endif
