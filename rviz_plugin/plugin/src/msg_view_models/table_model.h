#ifndef RVIZ_PLUGIN_TABLE_MODEL_H
#define RVIZ_PLUGIN_TABLE_MODEL_H

#include "view_text.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QMap>
#include <QTimer>
#include <QVector>

namespace rviz_plugin {

class MsgRecord;

// The table panel's display copy of the last message's rows: colour fields merged into one column,
// the user's column order, hidden columns left out, a sort or blank lines for gaps of an integer
// column, constants' names in place of numbers, and at most 100 rows. Rebuilt every 100 ms; the
// message data itself never changes by what the user does.
//
// Columns are named three ways: a logical column is the place of a title among the merged titles
// (the order of the selection), a view column the place among the visible columns.
class TableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    using Columns = QMap<int, QVector<QString>>;
    using Rows = QVector<QVector<QString>>;
    enum OperateStatus { NoOperation = 0, BlankAscending, BlankDescending, SortAscending, SortDescending };
    static constexpr int maxDisplayRows = 100;

    TableModel(MsgRecord& record, const QString& displayTopic, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    void StartTimer(bool start);
    // A new message arrived: the next tick rebuilds the display copy.
    void UpdateData() { hasNewData = true; }
    void UpdateDisplayData();
    void SetBackgroundColor(const QString& color) { backgroundColor = color; }
    void SetAlignment(Qt::Alignment value) { alignment = value; }

    void SetIsShowBlankData(bool show, int viewColumn, bool ascending);
    void SortByColumn(int viewColumn, bool ascending);
    // Hides a column for good; a sort or blank lines standing on it end.
    void CancelColumnOperation(int viewColumn);
    void MoveColumnData(int from, int to, bool toLast);
    void SetStatusAndSortIndex(int status, int column);
    int GetOperateStatus() const { return operateStatus; }
    int GetOperatedColumn() const { return operatedColumn; }

    ConstantList GetConvertConstants(const std::string& topic) const;
    void ConvertConstants(int viewColumn, const ConstantList& selected);
    ConstantList GetConvertConstantSelected(int viewColumn) const;
    // Constants of a loaded panel, by the column's place in the saved order.
    void SetLoadedConstants(int logicalColumn, const ConstantList& constants) { convertConstants[logicalColumn] = constants; }

    // The visible titles, in view order, and each title's type ("[COLOR]" and the group for a colour).
    QVector<QString> GetVisibleTitles() const;
    QString GetTitleType(const QString& title) const { return colorMap.value(title); }
    int LogicalColumn(int viewColumn) const;
    QString GetDisplayTopic() const { return displayTopic; }
    bool IsUpdateEnabled() const { return isUpdateEnabled; }

public Q_SLOTS:
    void OnErrorCatched(const QString& topic, const QString& message);

Q_SIGNALS:
    void SignalColorTitlesChanged(const QVector<QString>& titles, const QMap<QString, QString>& colorMap);

private:
    Columns ConvertColorColumns();
    Columns DataFromTable(const std::vector<std::vector<std::string>>& rows) const;
    void ParseColorInfo(Columns& columns);
    void InitIndex(const Columns& columns);
    void UpdateDatasByIndex(const Columns& columns);
    Rows SortTableString(const Columns& columns, bool ascending) const;
    Columns DataFromTableString(const Rows& rows, int columnCount) const;
    void ShowBlankLine(const Columns& columns);
    void SortColumnData(const Columns& columns);
    QVector<int> VisibleColumns() const;
    bool IsColorColumn(int viewColumn) const;

    MsgRecord& record;
    QTimer updateTimer;
    int operatedColumn = -1;
    int operateStatus = NoOperation;
    Columns displayData;                  // view column -> cells
    QVector<int> columnIndex;             // place -> logical column, hidden ones included
    QMap<int, ConstantList> convertConstants;  // logical column -> chosen constants
    QString backgroundColor = "white";
    Qt::Alignment alignment = Qt::AlignLeft;
    QVector<QString> colorTitles;
    QMap<QString, QString> colorMap;
    QString displayTopic;
    QMap<int, QVector<QColor>> colorData;  // logical column -> one colour per message row
    QVector<int> displayLogical;           // view column -> logical column, as displayed
    bool isUpdateEnabled = true;
    int colorScale = 255;
    QVector<QString> deletedTitles;
    bool hasNewData = true;
};

} // namespace rviz_plugin

#endif
