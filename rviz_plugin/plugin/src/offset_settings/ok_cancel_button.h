#ifndef RVIZ_PLUGIN_OK_CANCEL_BUTTON_H
#define RVIZ_PLUGIN_OK_CANCEL_BUTTON_H

#include <ros/publisher.h>

#include <QWidget>

#include <string>
#include <vector>

namespace rviz_plugin {

class TopicList;
class TfTree;

// OK writes the ticked topics and frames to the settings file, tells the platform to read it (an empty
// point on "TopicRefreshMap") and closes; Cancel closes.
class OkCancelButton : public QWidget {
    Q_OBJECT
public:
    OkCancelButton(TopicList* topics, TfTree* frames, QWidget* parent = nullptr);
    void SetPublisher(const ros::Publisher& refreshPublisher) { publisher = refreshPublisher; }
    void SetConfigFilePath(const std::string& path) { configFilePath = path; }
    void OkButtonEvent();
    void CancelButtonEvent();

Q_SIGNALS:
    void CloseWindow();

private:
    bool WriteJson() const;
    void SendSignalToKora() const;

    TopicList* topicList;
    TfTree* tfTree;
    ros::Publisher publisher;
    std::string configFilePath;
};

} // namespace rviz_plugin

#endif
