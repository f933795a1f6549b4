#ifndef RVIZ_PLUGIN_STATUS_BAR_VIEW_H
#define RVIZ_PLUGIN_STATUS_BAR_VIEW_H

#include "msg_view_models/panel_warnings.h"

#include <QTimer>
#include <QWidget>

#include <string>

class QLabel;
class QPushButton;

namespace rviz_plugin {

class EditLabel;
class KeyValueItem;
class MsgRecord;
class PanelStatusDialog;

// Above a topic's key-value grid: the topic's (nick) name, its frequency and its warnings.
class StatusBarView : public QWidget {
    Q_OBJECT
public:
    StatusBarView(MsgRecord& record, QWidget* parent = nullptr);

    void UpdateStatusBar(const std::string& topic);
    void StartCountFrequency();
    void StartTimer(bool start);
    void UpdateFrequency();
    void SetStyleSheet(const QString& color);
    QString GetTopic() const { return QString::fromStdString(topic); }
    QString GetTopicNickName() const;
    QString GetShownName() const;
    QString GetFrequencyText() const;
    const Warnings& GetWarnings() const { return warnings; }
    bool IsStateButtonShown() const;

public Q_SLOTS:
    void UpdateKeyValueState(QVector<KeyValueItem*>& items);
    void SlotErrorCatched(const QString& topic, const QString& message);

Q_SIGNALS:
    void SignalConfigChanged();

private:
    void UpdateMsg();
    void UpdateButtonStatues();

    MsgRecord& record;
    std::string topic;
    EditLabel* displayTopicName;
    QLabel* hz;
    QPushButton* stateButton;
    PanelStatusDialog* statusDialog;
    QTimer statusTimer;
    QVector<KeyValueItem*> items;
    QVector<FieldStatus> fields;
    Warnings errors;
    Warnings warnings;
    int maxNameWidth = 525;
};

} // namespace rviz_plugin

#endif
