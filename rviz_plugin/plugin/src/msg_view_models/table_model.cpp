#include "table_model.h"

#include "msg_viewer_panel/msg_record.h"

#include <algorithm>

namespace rviz_plugin {

namespace {

const QString emptyCell = "-";

float CellNumber(const QString& text)
{
    return text.contains('.') ? text.toFloat() : static_cast<float>(text.toInt());
}

bool IsKnownBackground(const QString& color)
{
    return color == "white" || color == "#0F0F0F" || color == "#6C6C6B";
}

} // namespace

TableModel::TableModel(MsgRecord& record, const QString& displayTopic, QObject* parent)
    : QAbstractTableModel(parent), record(record), displayTopic(displayTopic)
{
    updateTimer.setInterval(100);
    connect(&updateTimer, &QTimer::timeout, this, [this]() {
        if (hasNewData) {
            UpdateDisplayData();
        }
    });
}

int TableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() || displayData.isEmpty() ? 0 : displayData.first().size();
}

int TableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : displayData.size();
}

void TableModel::StartTimer(bool start)
{
    if (start) {
        updateTimer.start();
    } else {
        updateTimer.stop();
    }
}

void TableModel::OnErrorCatched(const QString& /*topic*/, const QString& message)
{
    isUpdateEnabled = message.isEmpty();
}

TableModel::Columns TableModel::DataFromTable(const std::vector<std::vector<std::string>>& rows) const
{
    Columns columns;
    int longest = 0;
    for (const auto& row : rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            const QString cell = QString::fromStdString(row[column]);
            columns[static_cast<int>(column)].push_back(cell.isEmpty() ? emptyCell : cell);
        }
    }
    for (const auto& cells : columns) {
        longest = std::max(longest, cells.size());
    }
    for (auto& cells : columns) {
        while (cells.size() < longest) {
            cells.push_back(emptyCell);
        }
    }
    return columns;
}

TableModel::Columns TableModel::ConvertColorColumns()
{
    const MsgData& data = record.GetSubscriber().GetHandler().GetData();
    const auto& rows = data.GetTableData();
    const auto& titles = data.GetDisplayTitle();
    const auto types = record.GetFieldsTypes(displayTopic.toStdString());
    if (rows.empty() || titles.empty() || types.empty()) {
        return {};
    }
    QVector<QString> titleList;
    for (const std::string& title : titles) {
        titleList.push_back(QString::fromStdString(title));
    }
    QMap<QString, QString> pairs;
    for (const auto& [field, type] : types) {
        const QString name = QString::fromStdString(field).remove(displayTopic);
        if (titleList.contains(name)) {
            pairs[name] = QString::fromStdString(type);
        }
    }
    if (pairs.size() != titleList.size()) {
        return {};
    }
    colorData.clear();
    Columns columns = DataFromTable(rows);
    colorTitles = titleList;
    colorMap = pairs;
    ParseColorInfo(columns);
    Q_EMIT SignalColorTitlesChanged(colorTitles, colorMap);
    return columns;
}

void TableModel::ParseColorInfo(Columns& columns)
{
    QVector<QString> colorFields;
    for (const QString& title : colorTitles) {
        if (colorMap.value(title).contains("color")) {
            colorFields.push_back(title);
        }
    }
    if (colorFields.size() < 4) {
        return;
    }
    const QMap<QString, QVector<QString>> groups = ComposeColorMap(colorFields);
    if (groups.isEmpty()) {
        return;
    }
    QMap<int, QVector<QColor>> colorsAtLowest;  // old index of a group's lowest title -> colours
    QMap<int, QString> groupAtLowest;
    QVector<int> merged;
    for (auto group = groups.begin(); group != groups.end(); ++group) {
        QMap<QString, int> channels;
        int lowest = colorTitles.size();
        for (const QString& title : group.value()) {
            const int at = colorTitles.indexOf(title);
            channels[LastComponent(title)] = at;
            lowest = std::min(lowest, at);
            merged.push_back(at);
        }
        if (channels.size() != 4 || !channels.contains("r") || !channels.contains("g") || !channels.contains("b") ||
            !channels.contains("a")) {
            for (int i = 0; i < 4; ++i) {
                merged.pop_back();
            }
            continue;
        }
        QVector<QColor> colors;
        const auto& r = columns[channels["r"]];
        for (int row = 0; row < r.size(); ++row) {
            colors.push_back(ColorFromTexts(r[row], columns[channels["g"]].value(row),
                                            columns[channels["b"]].value(row), columns[channels["a"]].value(row),
                                            colorScale));
        }
        colorsAtLowest[lowest] = colors;
        groupAtLowest[lowest] = group.key();
    }
    Columns rebuilt;
    QVector<QString> titles;
    for (int at = 0; at < colorTitles.size(); ++at) {
        const int next = titles.size();
        if (groupAtLowest.contains(at)) {
            const QString& group = groupAtLowest[at];
            QVector<QString> rowNumbers;
            for (int row = 0; row < colorsAtLowest[at].size(); ++row) {
                rowNumbers.push_back(QString::number(row));
            }
            rebuilt[next] = rowNumbers;
            titles.push_back(group);
            colorData[next] = colorsAtLowest[at];
            for (const QString& title : groups[group]) {
                colorMap.remove(title);
            }
            colorMap[group] = ColorKey(group);
        } else if (!merged.contains(at)) {
            rebuilt[next] = columns[at];
            titles.push_back(colorTitles[at]);
        }
    }
    columns = rebuilt;
    colorTitles = titles;
}

void TableModel::InitIndex(const Columns& columns)
{
    if (columns.size() == columnIndex.size()) {
        return;
    }
    columnIndex.clear();
    for (int column = 0; column < columns.size(); ++column) {
        columnIndex.push_back(column);
    }
}

QVector<int> TableModel::VisibleColumns() const
{
    QVector<int> visible;
    for (int logical : columnIndex) {
        if (logical < colorTitles.size() && !deletedTitles.contains(colorTitles[logical])) {
            visible.push_back(logical);
        }
    }
    return visible;
}

int TableModel::LogicalColumn(int viewColumn) const
{
    const QVector<int> visible = VisibleColumns();
    return viewColumn >= 0 && viewColumn < visible.size() ? visible[viewColumn] : -1;
}

QVector<QString> TableModel::GetVisibleTitles() const
{
    QVector<QString> titles;
    for (int logical : VisibleColumns()) {
        titles.push_back(colorTitles[logical]);
    }
    return titles;
}

void TableModel::UpdateDatasByIndex(const Columns& columns)
{
    displayLogical = VisibleColumns();
    displayData.clear();
    for (int view = 0; view < displayLogical.size(); ++view) {
        displayData[view] = columns.value(displayLogical[view]).mid(0, maxDisplayRows);
    }
}

TableModel::Rows TableModel::SortTableString(const Columns& columns, bool ascending) const
{
    Rows rows;
    const int count = columns.isEmpty() ? 0 : columns.first().size();
    for (int row = 0; row < count; ++row) {
        QVector<QString> cells;
        for (const auto& column : columns) {
            const QString cell = column.value(row);
            cells.push_back(cell.isEmpty() ? emptyCell : cell);
        }
        rows.push_back(cells);
    }
    const int key = operatedColumn;
    if (key < 0 || key >= columns.size()) {
        return rows;
    }
    std::stable_sort(rows.begin(), rows.end(), [key, ascending](const auto& left, const auto& right) {
        const float a = CellNumber(left[key]);
        const float b = CellNumber(right[key]);
        return ascending ? a < b : b < a;
    });
    return rows;
}

TableModel::Columns TableModel::DataFromTableString(const Rows& rows, int count) const
{
    Columns columns;
    for (int column = 0; column < count; ++column) {
        columns[column];
    }
    for (const auto& row : rows) {
        for (int column = 0; column < count; ++column) {
            columns[column].push_back(row.value(column, emptyCell));
        }
    }
    return columns;
}

void TableModel::SortColumnData(const Columns& columns)
{
    Rows rows = SortTableString(columns, operateStatus == SortAscending);
    const int key = operatedColumn;
    if (key >= 0 && key < columns.size()) {
        std::stable_partition(rows.begin(), rows.end(), [key](const auto& row) { return row[key] != emptyCell; });
    }
    UpdateDatasByIndex(DataFromTableString(rows, columns.size()));
}

void TableModel::ShowBlankLine(const Columns& columns)
{
    const bool ascending = operateStatus == BlankAscending;
    const Rows rows = SortTableString(columns, ascending);
    const int key = operatedColumn;
    Rows result;
    const QVector<QString> blankRow(columns.size(), emptyCell);
    for (int row = 0; row + 1 < rows.size() && result.size() < maxDisplayRows; ++row) {
        result.push_back(rows[row]);
        if (key < 0 || key >= columns.size()) {
            continue;
        }
        const long long earlier = rows[row][key].toLongLong();
        const long long later = rows[row + 1][key].toLongLong();
        // Only the rows that can still be shown are made: a gap of millions makes 100 rows, not millions.
        for (long long gap = (ascending ? later - earlier : earlier - later) - 1;
             gap > 0 && result.size() < maxDisplayRows; --gap) {
            result.push_back(blankRow);
        }
    }
    if (!rows.isEmpty()) {
        result.push_back(rows.last());
    }
    UpdateDatasByIndex(DataFromTableString(result, columns.size()));
}

void TableModel::UpdateDisplayData()
{
    if (!isUpdateEnabled) {
        return;
    }
    hasNewData = false;
    const Columns columns = ConvertColorColumns();
    if (columns.isEmpty()) {
        return;
    }
    InitIndex(columns);
    beginResetModel();
    switch (operateStatus) {
    case BlankAscending:
    case BlankDescending:
        ShowBlankLine(columns);
        break;
    case SortAscending:
    case SortDescending:
        SortColumnData(columns);
        break;
    default:
        UpdateDatasByIndex(columns);
        break;
    }
    endResetModel();
}

void TableModel::SetIsShowBlankData(bool show, int viewColumn, bool ascending)
{
    operatedColumn = LogicalColumn(viewColumn);
    operateStatus = show ? (ascending ? BlankAscending : BlankDescending) : (ascending ? SortAscending : SortDescending);
    UpdateDisplayData();
}

void TableModel::SortByColumn(int viewColumn, bool ascending)
{
    operatedColumn = LogicalColumn(viewColumn);
    operateStatus = ascending ? SortAscending : SortDescending;
    UpdateDisplayData();
}

void TableModel::CancelColumnOperation(int viewColumn)
{
    const int logical = LogicalColumn(viewColumn);
    if (logical < 0) {
        return;
    }
    deletedTitles.push_back(colorTitles[logical]);
    convertConstants.remove(logical);
    if (logical == operatedColumn) {
        operateStatus = NoOperation;
        operatedColumn = -1;
    }
    UpdateDisplayData();
}

void TableModel::MoveColumnData(int from, int to, bool toLast)
{
    QVector<int> visible = VisibleColumns();
    if (from < 0 || from >= visible.size() || (!toLast && (to < 0 || to > visible.size()))) {
        return;
    }
    const int moved = visible.takeAt(from);
    if (toLast) {
        visible.push_back(moved);
    } else {
        visible.insert(from < to ? to - 1 : to, moved);
    }
    for (int logical : columnIndex) {
        if (!visible.contains(logical)) {
            visible.push_back(logical);
        }
    }
    columnIndex = visible;
    UpdateDisplayData();
}

void TableModel::SetStatusAndSortIndex(int status, int column)
{
    operateStatus = status >= NoOperation && status <= SortDescending ? status : NoOperation;
    operatedColumn = column;
}

ConstantList TableModel::GetConvertConstants(const std::string& topic) const
{
    const auto& constants = record.GetSubscriber().GetHandler().GetData().GetData();
    const auto found = constants.find(topic);
    return found == constants.end() ? ConstantList() : SortedConstants(found->second);
}

void TableModel::ConvertConstants(int viewColumn, const ConstantList& selected)
{
    const int logical = LogicalColumn(viewColumn);
    if (logical < 0) {
        return;
    }
    if (selected.isEmpty()) {
        convertConstants.remove(logical);
    } else {
        convertConstants[logical] = selected;
    }
    beginResetModel();
    endResetModel();
}

ConstantList TableModel::GetConvertConstantSelected(int viewColumn) const
{
    return convertConstants.value(LogicalColumn(viewColumn));
}

bool TableModel::IsColorColumn(int viewColumn) const
{
    return viewColumn < displayLogical.size() && colorData.contains(displayLogical[viewColumn]);
}

QVariant TableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.column() >= displayData.size() || index.row() >= rowCount()) {
        return QVariant();
    }
    const QString& cell = displayData[index.column()][index.row()];
    const int logical = displayLogical.value(index.column(), -1);
    const bool isColor = IsColorColumn(index.column());
    const ConstantList constants = convertConstants.value(logical);
    switch (role) {
    case Qt::DisplayRole: {
        if (isColor) {
            return cell == emptyCell ? QVariant(cell) : QVariant();
        }
        if (!constants.isEmpty()) {
            return ConvertConstantText(cell, constants);
        }
        bool ok = false;
        const int number = cell.toInt(&ok);
        if (ok && (number != 0 || cell == "0")) {
            return number;
        }
        return cell.left(maxTextLength);
    }
    case Qt::ToolTipRole:
        if (isColor) {
            return cell == emptyCell ? QVariant(cell) : ColorToolTip(colorData[logical].value(cell.toInt()));
        }
        return ToolTipFeedLine(constants.isEmpty() ? cell.left(maxTextLength) : ConvertConstantText(cell, constants));
    case Qt::TextAlignmentRole:
        return static_cast<int>(alignment);
    case Qt::BackgroundRole:
        if (isColor && cell != emptyCell) {
            const QColor color = colorData[logical].value(cell.toInt());
            return color.isValid() ? QVariant(color) : QVariant();
        }
        return IsKnownBackground(backgroundColor) ? QVariant(QColor(backgroundColor)) : QVariant();
    case Qt::ForegroundRole:
        if (backgroundColor == "white") {
            return QColor(Qt::black);
        }
        return backgroundColor == "#0F0F0F" || backgroundColor == "#6C6C6B" ? QVariant(QColor(Qt::white)) : QVariant();
    default:
        return QVariant();
    }
}

} // namespace rviz_plugin
