#include "type_combo_box.h"

namespace rviz_plugin {

TypeComboBox::TypeComboBox(QWidget* parent) : QComboBox(parent)
{
    setObjectName("TypeComboBox");
}

void TypeComboBox::Refresh(const std::vector<std::string>& types)
{
    const QSignalBlocker blocker(this);
    clear();
    for (const std::string& type : types) {
        addItem(QString::fromStdString(type));
    }
    setCurrentIndex(0);
}

} // namespace rviz_plugin
