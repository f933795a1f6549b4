#ifndef RVIZ_PLUGIN_OPTION_WIDGET_H
#define RVIZ_PLUGIN_OPTION_WIDGET_H

#include <QWidget>

class QCheckBox;

namespace rviz_plugin {

// One topic offered for capture: a check box with the topic's name and its type beside it.
class OptionWidget : public QWidget {
    Q_OBJECT

public:
    OptionWidget(const QString& topic, const QString& type, QWidget* parent = nullptr);
    bool IsChecked() const;
    void SetChecked(bool checked);
    const QString& GetTopic() const { return topic; }
    const QString& GetType() const { return type; }

Q_SIGNALS:
    void Toggled();

private:
    QString topic;
    QString type;
    QCheckBox* box = nullptr;
};

} // namespace rviz_plugin

#endif
