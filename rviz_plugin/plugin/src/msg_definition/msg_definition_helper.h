#ifndef RVIZ_PLUGIN_MSG_DEFINITION_HELPER_H
#define RVIZ_PLUGIN_MSG_DEFINITION_HELPER_H

#include <QModelIndex>
#include <QPersistentModelIndex>

#include <map>
#include <set>
#include <vector>

namespace rviz_plugin {

// What the selection dialog's delegates and filters share: the state of the item being painted
// (drawing a check box is given no index), and for each filter the rows it keeps because of a child.
class MsgDefinitionHelper {
public:
    static MsgDefinitionHelper& Get();

    void SaveItemCheckState(const QModelIndex& index);
    int GetItemCheckState() const { return itemCheckState; }

    void SaveFilterRow(unsigned long key, const QModelIndex& index);
    void ResetExpand(unsigned long key);
    void GetExpandList(unsigned long key, std::vector<QModelIndex>& out) const;
    unsigned long GetFilterKey() { return ++filterKey; }

private:
    MsgDefinitionHelper() = default;
    int itemCheckState = 0;
    std::map<unsigned long, std::set<QPersistentModelIndex>> filterRows;
    unsigned long filterKey = 0;
};

} // namespace rviz_plugin

#endif
