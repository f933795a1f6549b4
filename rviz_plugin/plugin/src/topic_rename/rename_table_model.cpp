#include "rename_table_model.h"

namespace rviz_plugin {

namespace {
constexpr int topicColumn = 0;
constexpr int nameColumn = 1;
} // namespace

RenameTableModel::RenameTableModel(QObject* parent) : QAbstractTableModel(parent)
{
    connect(&renameData, &RenameData::UpdateDisplayModel, this, &RenameTableModel::UpdateData);
}

int RenameTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : RenameData::TableHeader().size();
}

int RenameTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(renameData.GetRows().size());
}

Qt::ItemFlags RenameTableModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == nameColumn ? flags | Qt::ItemIsEditable : flags;
}

QVariant RenameTableModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount() || (role != Qt::DisplayRole && role != Qt::EditRole)) {
        return {};
    }
    const auto& row = renameData.GetRows()[static_cast<std::size_t>(index.row())];
    return QString::fromStdString(index.column() == topicColumn ? row.first : row.second);
}

QVariant RenameTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section < RenameData::TableHeader().size()) {
        return RenameData::TableHeader()[section];
    }
    return QAbstractTableModel::headerData(section, orientation, role);
}

bool RenameTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || !index.isValid() || index.column() != nameColumn || index.row() >= rowCount()) {
        return false;
    }
    renameData.SetRowName(static_cast<std::size_t>(index.row()), value.toString().toStdString());
    Q_EMIT dataChanged(index, index);
    return true;
}

void RenameTableModel::UpdateData()
{
    beginResetModel();
    endResetModel();
}

void RenameTableModel::InitRenameData()
{
    renameData.ReadAliasFromFile();
    renameData.InitRenameData();
    renameData.SetTableData();
}

void RenameTableModel::VerifyDuplicateNameValidity(int row, const std::string& name, RowWarnings& warnings,
                                                   NameRows& duplicates) const
{
    RecordCurrentItemDuplicateName(row, name, warnings, duplicates);
    RemoveCorrespondItemDuplicateName(row, name, warnings, duplicates);
    RefreshDuplicateNameRecord(warnings, duplicates);
}

std::string RenameTableModel::GetName(int row) const
{
    return row >= 0 && row < rowCount() ? renameData.GetRows()[static_cast<std::size_t>(row)].second : std::string();
}

} // namespace rviz_plugin
