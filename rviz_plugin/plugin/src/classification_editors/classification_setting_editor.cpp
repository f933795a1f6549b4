#include "classification_setting_editor.h"

namespace rviz_plugin {

ClassificationSettingEditor::ClassificationSettingEditor(bool canAdd, QWidget* parent) : QPushButton("Add", parent)
{
    setObjectName("ClassificationSettingEditor_addButton");
    setEnabled(canAdd);
}

} // namespace rviz_plugin
