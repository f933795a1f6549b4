#ifndef RVIZ_PLUGIN_CLASSIFICATION_ROW_PROPERTY_H
#define RVIZ_PLUGIN_CLASSIFICATION_ROW_PROPERTY_H

#ifndef Q_MOC_RUN
#include <rviz/properties/property.h>
#endif

namespace rviz_plugin {

class ClassificationValueProperty;

// One "Classification" row of a classification table: a class value and how its results look. The row's value
// cell shows its summary, with a delete button; the row is saved as its children alone. What the row holds and
// where it writes its entry is the subclass's.
class ClassificationRowProperty : public rviz::Property {
    Q_OBJECT
public:
    ClassificationRowProperty(const QString& description, rviz::Property* parent);

    unsigned GetClassificationValue() const { return currentValue; }

    // Only the children: the row's own value is their summary, and "Value" is the name of a child.
    void save(rviz::Config config) const override;
    void load(const rviz::Config& config) override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option) override;

Q_SIGNALS:
    void DeletedClassification(unsigned value);

public Q_SLOTS:
    void OnDeleteButtonClick();

protected:
    // Writes the row's present settings into its table in place of the entry of oldValue.
    virtual void ReplaceEntry(unsigned oldValue) = 0;

    ClassificationValueProperty* valueProperty = nullptr;
    unsigned currentValue = 0;
    // Set while the row fills its children itself, so that each child's change is not written alone.
    bool updating = false;
};

} // namespace rviz_plugin

#endif
