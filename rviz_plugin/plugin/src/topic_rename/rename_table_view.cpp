#include "rename_table_view.h"

#include <QHeaderView>

namespace rviz_plugin {

RenameTableView::RenameTableView(QWidget* parent) : QTableView(parent)
{
    setObjectName("RenameTableView");
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::SelectedClicked | QAbstractItemView::DoubleClicked |
                    QAbstractItemView::EditKeyPressed);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(32);
}

} // namespace rviz_plugin
