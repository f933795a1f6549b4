#include "msg_definition_helper.h"

#include "definition_types.h"

namespace rviz_plugin {

MsgDefinitionHelper& MsgDefinitionHelper::Get()
{
    static MsgDefinitionHelper helper;
    return helper;
}

void MsgDefinitionHelper::SaveItemCheckState(const QModelIndex& index)
{
    itemCheckState = index.isValid() ? index.data(CheckStateValueRole).toInt() : DisabledUnchecked;
}

void MsgDefinitionHelper::SaveFilterRow(unsigned long key, const QModelIndex& index)
{
    filterRows[key].insert(QPersistentModelIndex(index));
}

void MsgDefinitionHelper::ResetExpand(unsigned long key)
{
    filterRows.erase(key);
}

void MsgDefinitionHelper::GetExpandList(unsigned long key, std::vector<QModelIndex>& out) const
{
    out.clear();
    const auto found = filterRows.find(key);
    if (found == filterRows.end()) {
        return;
    }
    for (const QPersistentModelIndex& index : found->second) {
        if (index.isValid()) {
            out.push_back(index);
        }
    }
}

} // namespace rviz_plugin
