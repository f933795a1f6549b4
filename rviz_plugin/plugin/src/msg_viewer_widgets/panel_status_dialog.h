#ifndef RVIZ_PLUGIN_PANEL_STATUS_DIALOG_H
#define RVIZ_PLUGIN_PANEL_STATUS_DIALOG_H

#include "msg_view_models/panel_warnings.h"

#include <QDialog>
#include <QScrollBar>

class QTableWidget;

namespace rviz_plugin {

// A scroll bar that says when it shows and hides, so that the table can give its width back.
class StatusScrollBar : public QScrollBar {
    Q_OBJECT
public:
    using QScrollBar::QScrollBar;

Q_SIGNALS:
    void IsVisible(bool visible);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
};

// The warnings of a panel: an icon, the name and the message of each.
class PanelStatusDialog : public QDialog {
    Q_OBJECT
public:
    explicit PanelStatusDialog(QWidget* parent = nullptr);

    void UpdateStatus(const Warnings& warnings);
    void ExecuteStatusDialog();
    QTableWidget* GetTable() const { return table; }

private:
    QTableWidget* table;
    Warnings shown;
    int messageWidth = 93;
};

} // namespace rviz_plugin

#endif
