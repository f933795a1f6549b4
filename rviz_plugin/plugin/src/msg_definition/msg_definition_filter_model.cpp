#include "msg_definition_filter_model.h"

#include "definition_types.h"
#include "msg_definition_helper.h"

namespace rviz_plugin {

MsgDefinitionFilterModel::MsgDefinitionFilterModel(QObject* parent)
    : QSortFilterProxyModel(parent), key(MsgDefinitionHelper::Get().GetFilterKey())
{
    setFilterRole(FilterKeyRole);
    setFilterKeyColumn(0);
    setFilterCaseSensitivity(Qt::CaseSensitive);
}

void MsgDefinitionFilterModel::SetKeyword(const QString& text)
{
    MsgDefinitionHelper::Get().ResetExpand(key);
    setFilterFixedString(text);
}

void MsgDefinitionFilterModel::GetExpandList(std::vector<QModelIndex>& out) const
{
    MsgDefinitionHelper::Get().GetExpandList(key, out);
}

bool MsgDefinitionFilterModel::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    if (QSortFilterProxyModel::filterAcceptsRow(sourceRow, sourceParent)) {
        return true;
    }
    const QModelIndex index = sourceModel()->index(sourceRow, 0, sourceParent);
    for (int row = 0; row < sourceModel()->rowCount(index); ++row) {
        if (filterAcceptsRow(row, index)) {
            MsgDefinitionHelper::Get().SaveFilterRow(key, index);
            return true;
        }
    }
    return false;
}

} // namespace rviz_plugin
