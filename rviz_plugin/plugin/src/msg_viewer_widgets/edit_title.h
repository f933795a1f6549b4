#ifndef RVIZ_PLUGIN_EDIT_TITLE_H
#define RVIZ_PLUGIN_EDIT_TITLE_H

#include "msg_view_models/panel_warnings.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QPushButton;

namespace rviz_plugin {

class MsgRecord;
class PanelStatusDialog;

// The title bar of a user panel's dock: icon, name, the topic's frequency, the warning button of a
// table, and a close button.
class EditTitle : public QWidget {
    Q_OBJECT
public:
    EditTitle(MsgRecord& record, QWidget* parent = nullptr);

    void OnInitEditTitle();
    void SetTitleShowContent(const QString& name);
    QString GetTitleText() const;
    void UpdateStatusButtonIconShow(bool show);
    void SetTitleBackgroundColor(const QString& color);
    void StartTimer(bool start);
    void UpdateFrequency();
    QString GetFrequencyText() const;
    const Warnings& GetWarnings() const { return warnings; }
    bool IsStatusButtonShown() const;

public Q_SLOTS:
    void SlotErrorCatched(const QString& topic, const QString& message);

Q_SIGNALS:
    void CloseClicked();

private:
    QString Topic() const;
    void UpdateMsg();
    void UpdateStatusButton();

    MsgRecord& record;
    QLabel* icon;
    QLabel* title;
    QLabel* frequency;
    QPushButton* statusButton;
    QPushButton* closeButton;
    PanelStatusDialog* statusDialog;
    QTimer timer;
    QVector<FieldStatus> fields;
    Warnings errors;
    Warnings warnings;
    bool statusIconShown = true;
};

} // namespace rviz_plugin

#endif
