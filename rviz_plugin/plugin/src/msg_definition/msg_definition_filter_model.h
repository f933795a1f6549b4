#ifndef RVIZ_PLUGIN_MSG_DEFINITION_FILTER_MODEL_H
#define RVIZ_PLUGIN_MSG_DEFINITION_FILTER_MODEL_H

#include <QSortFilterProxyModel>

#include <vector>

namespace rviz_plugin {

// Filters a field tree by its keys, keeping the ancestors of every match and noting them so that the
// view can open them.
class MsgDefinitionFilterModel : public QSortFilterProxyModel {
    Q_OBJECT
public:
    explicit MsgDefinitionFilterModel(QObject* parent = nullptr);

    void SetKeyword(const QString& text);
    // The source rows kept because of a matching child.
    void GetExpandList(std::vector<QModelIndex>& out) const;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;

private:
    unsigned long key;
};

} // namespace rviz_plugin

#endif
