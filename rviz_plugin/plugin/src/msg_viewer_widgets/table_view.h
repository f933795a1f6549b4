#ifndef RVIZ_PLUGIN_TABLE_VIEW_H
#define RVIZ_PLUGIN_TABLE_VIEW_H

#include <QWidget>

namespace rviz_plugin {

class BuildInTableView;
class MsgRecord;
class TableHeaderView;
class TableModel;

// A table panel's content: the table, its header of editable column names, and its model.
class TableView : public QWidget {
    Q_OBJECT
public:
    explicit TableView(MsgRecord& record, QWidget* parent = nullptr);

    void InitTableView();
    // Built anew for the record's current selection.
    void UpdateTableView();
    void SetBackgroundColor(const QString& color);
    void SetAlignment(Qt::Alignment value);
    void StartTimer(bool start);
    void ShowToolTip(const QModelIndex& index);
    TableModel* GetModel() const { return model; }
    TableHeaderView* GetHeader() const { return header; }
    BuildInTableView* GetTable() const { return table; }
    // The height the table needs for its rows; 0 before data.
    int GetHeight() const;

Q_SIGNALS:
    void SignalConfigChanged();
    void SignalOperateEnd();
    void SignalShowNoDataView();

private:
    void ReInitTable();
    void OnDeleteHeader(int column);
    void OnConvertConstants(int column);

    MsgRecord& record;
    BuildInTableView* table = nullptr;
    TableHeaderView* header = nullptr;
    TableModel* model = nullptr;
    QString backgroundColor = "white";
    Qt::Alignment alignment = Qt::AlignLeft;
};

} // namespace rviz_plugin

#endif
