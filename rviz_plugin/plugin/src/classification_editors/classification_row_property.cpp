#include "classification_row_property.h"

#include "classification_editor.h"
#include "classification_value_property.h"

#include "foundation/config_load_guard.h"

#ifndef Q_MOC_RUN
#include <rviz/config.h>
#endif

namespace rviz_plugin {

ClassificationRowProperty::ClassificationRowProperty(const QString& description, rviz::Property* parent)
    : rviz::Property("Classification", QVariant(), description, parent)
{
}

void ClassificationRowProperty::save(rviz::Config config) const
{
    for (int i = 0; i < numChildren(); ++i) {
        childAt(i)->save(config.mapMakeChild(childAt(i)->getName()));
    }
}

void ClassificationRowProperty::load(const rviz::Config& config)
{
    updating = true;
    const ConfigLoadGuard guard(this);
    for (int i = 0; i < numChildren(); ++i) {
        rviz::Property* child = childAt(i);
        child->load(config.mapGetChild(child->getName()));
    }
    guard.RestoreInvalid(config);
    updating = false;
    const unsigned oldValue = currentValue;
    currentValue = static_cast<unsigned>(valueProperty->getInt());
    ReplaceEntry(oldValue);
}

QWidget* ClassificationRowProperty::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/)
{
    auto* editor = new ClassificationEditor(parent);
    // The row goes after its editor has closed.
    connect(editor, &ClassificationEditor::DeleteClicked, this, &ClassificationRowProperty::OnDeleteButtonClick,
            Qt::QueuedConnection);
    return editor;
}

void ClassificationRowProperty::OnDeleteButtonClick()
{
    Q_EMIT DeletedClassification(currentValue);
}

} // namespace rviz_plugin
