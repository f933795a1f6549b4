#include "topic_combobox.h"

#include "foundation/master_topics.h"

#include <QLineEdit>
#include <QStringList>

#ifndef Q_MOC_RUN
#include <ros/master.h>
#endif

#include <algorithm>

namespace rviz_plugin {

const char* const TopicCombobox::videoDataType = "custom/Video";

TopicCombobox::TopicCombobox(QWidget* parent) : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
}

void TopicCombobox::showPopup()
{
    QStringList topics;
    ros::master::V_TopicInfo infos;
    if (GetTopicsWithoutWaiting(infos)) {
        for (const auto& info : infos) {
            if (info.datatype == videoDataType) {
                topics << QString::fromStdString(info.name);
            }
        }
    }
    std::sort(topics.begin(), topics.end());
    const QString current = currentText();
    blockSignals(true);
    clear();
    addItems(topics);
    setEditText(current);
    blockSignals(false);
    QComboBox::showPopup();
}

} // namespace rviz_plugin
