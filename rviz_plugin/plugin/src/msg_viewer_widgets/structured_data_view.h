#ifndef RVIZ_PLUGIN_STRUCTURED_DATA_VIEW_H
#define RVIZ_PLUGIN_STRUCTURED_DATA_VIEW_H

#include <QTimer>
#include <QWidget>

class QLabel;
class QScrollArea;
class QStackedWidget;

namespace rviz_plugin {

class KeyValueView;
class MsgRecord;
class TableView;

// A user panel's content: "No Data Selected", a key-value view or a table, by the selection; and the
// clock that turns message counts into frequencies once a second.
class StructuredDataView : public QWidget {
    Q_OBJECT
public:
    enum ViewMode { NoDataMode = 0, KeyValueMode = 1, TableMode = 2 };

    StructuredDataView(MsgRecord& record, QWidget* parent = nullptr);

    void CreateStructuredView();
    void UpdateView();
    void StartTimer(bool start);
    void AdjustLayout(int columns);
    void SetStructedDataViewBackgroundColor(const QString& color);
    void SetStructedDataViewAlignment(Qt::Alignment alignment);
    int GetHeight() const;
    void SetTopLevel(bool topLevel) { isTopLevel = topLevel; }
    bool GetTopLevel() const { return isTopLevel; }
    int GetViewMode() const { return viewMode; }
    void ShowNoDataView();
    TableView* GetTableView() const { return tableView; }
    KeyValueView* GetKeyValueView() const { return keyValueView; }

Q_SIGNALS:
    void SignalOperateEnd();
    void SignalConfigChanged();

private:
    MsgRecord& record;
    QStackedWidget* stack = nullptr;
    QLabel* noDataLabel = nullptr;
    QScrollArea* scrollArea = nullptr;
    KeyValueView* keyValueView = nullptr;
    TableView* tableView = nullptr;
    int viewMode = NoDataMode;
    Qt::Alignment alignment = Qt::AlignLeft;
    QTimer clock;
    QString backgroundColor = "white";
    bool isTopLevel = false;
};

} // namespace rviz_plugin

#endif
