#ifndef RVIZ_PLUGIN_RENAME_TABLE_MODEL_H
#define RVIZ_PLUGIN_RENAME_TABLE_MODEL_H

#include "rename_data.h"

#include <QAbstractTableModel>

namespace rviz_plugin {

// Two columns: the camera topics (read-only) and their custom names (editable).
class RenameTableModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit RenameTableModel(QObject* parent = nullptr);

    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    // Only the edit role stores: the name of the row and the alias.
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;

    void UpdateData();
    QStringList GetDefaultAlias() const { return renameData.GetDefaultAlias(); }
    // The file, then the master's cameras, into the rows.
    void InitRenameData();
    bool WriteRenameData() const { return renameData.WriteRenameData(); }
    void VerifyDuplicateNameValidity(int row, const std::string& name, RowWarnings& warnings,
                                     NameRows& duplicates) const;
    std::string GetName(int row) const;

private:
    RenameData renameData;
};

} // namespace rviz_plugin

#endif
