#ifndef RVIZ_PLUGIN_TOPIC_COMBOBOX_H
#define RVIZ_PLUGIN_TOPIC_COMBOBOX_H

#include <QComboBox>

namespace rviz_plugin {

// Editable chooser of an item's camera topic. Opening it lists the topics of the video type
// that the ROS master knows now; any other text may be typed in.
class TopicCombobox : public QComboBox {
    Q_OBJECT
public:
    explicit TopicCombobox(QWidget* parent = nullptr);
    void showPopup() override;

    static const char* const videoDataType;
};

} // namespace rviz_plugin

#endif
