#ifndef RVIZ_PLUGIN_CLASSIFICATION_TABLE_PROPERTY_H
#define RVIZ_PLUGIN_CLASSIFICATION_TABLE_PROPERTY_H

#ifndef Q_MOC_RUN
#include <rviz/properties/property.h>
#endif

namespace rviz_plugin {

// The "Classification Setting" node of a classification table: its rows, with an add button in the value cell
// while there is room. It shows "Classification Setting (n)" and is saved under "Classification Setting", its
// rows as "Classification 1", "Classification 2", ... Where the table lives and what a row holds is the
// subclass's.
class ClassificationTableProperty : public rviz::Property {
    Q_OBJECT
public:
    ClassificationTableProperty(const QString& description, int maxRowCount, rviz::Property* parent);

    int GetRowCount() const { return numChildren(); }
    int MaxRowCount() const { return maxRowCount; }
    // Shows the row count beside the name.
    void SetName();
    // Removes every row and empties the table.
    void ClearSettingClassificationItems();

    QVariant getViewData(int column, int role) const override;
    bool setValue(const QVariant& value) override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option) override;
    void save(rviz::Config config) const override;
    // The saved rows replace the rows and the table.
    void load(const rviz::Config& config) override;

public Q_SLOTS:
    void OnAddButtonClick();

protected Q_SLOTS:
    // A row's delete button: the row's entry goes from the table and the row from the tree.
    void OnDeletedClassification(unsigned value);

protected:
    // A row of the default look for a click on Add.
    virtual void AddNewRow() = 0;
    // A row of placeholder values, which the saved settings then fill.
    virtual rviz::Property* AddPlaceholderRow() = 0;
    virtual void ClearTable() = 0;
    // Writes every row's entry into the table again, in row order.
    virtual void RewriteTable() = 0;
    virtual void EraseEntry(unsigned value) = 0;

private:
    int maxRowCount;
    bool canAdd = true;
};

} // namespace rviz_plugin

#endif
