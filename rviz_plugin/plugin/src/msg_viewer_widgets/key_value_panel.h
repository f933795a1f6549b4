#ifndef RVIZ_PLUGIN_KEY_VALUE_PANEL_H
#define RVIZ_PLUGIN_KEY_VALUE_PANEL_H

#include <QWidget>

#include <string>

namespace rviz_plugin {

class KeyValueGrid;
class MsgRecord;
class StatusBarView;

// One topic of a key-value panel: its status bar over its grid.
class KeyValuePanel : public QWidget {
    Q_OBJECT
public:
    KeyValuePanel(MsgRecord& record, QWidget* parent = nullptr);

    void InitKeyValuePanel();
    void UpdateKeyValuePanel(const std::string& topic);
    void StartTimer(bool start);
    void AdjustLayout(int columns);
    void SetBackgroundColor(const QString& color);
    void SetAlignment(Qt::Alignment alignment);
    StatusBarView* GetStatusBarView() const { return statusBar; }
    KeyValueGrid* GetKeyValueGrid() const { return grid; }
    int GetHeight() const;

Q_SIGNALS:
    void SignalConfigChanged();

private:
    MsgRecord& record;
    std::string topic;
    StatusBarView* statusBar = nullptr;
    KeyValueGrid* grid = nullptr;
};

} // namespace rviz_plugin

#endif
