#ifndef RVIZ_PLUGIN_RENAME_TABLE_VIEW_H
#define RVIZ_PLUGIN_RENAME_TABLE_VIEW_H

#include <QTableView>

namespace rviz_plugin {

// The table of the rename dialog: whole rows, stretched columns, a click edits the name.
class RenameTableView : public QTableView {
    Q_OBJECT
public:
    explicit RenameTableView(QWidget* parent = nullptr);
};

} // namespace rviz_plugin

#endif
