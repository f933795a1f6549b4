#ifndef RVIZ_PLUGIN_CLASSIFICATION_SETTING_EDITOR_H
#define RVIZ_PLUGIN_CLASSIFICATION_SETTING_EDITOR_H

#include <QPushButton>

namespace rviz_plugin {

// The editor of a "Classification Setting" node's value cell: the button that adds a row.
class ClassificationSettingEditor : public QPushButton {
    Q_OBJECT
public:
    ClassificationSettingEditor(bool canAdd, QWidget* parent);
};

} // namespace rviz_plugin

#endif
