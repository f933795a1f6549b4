#ifndef RVIZ_PLUGIN_TYPE_COMBO_BOX_H
#define RVIZ_PLUGIN_TYPE_COMBO_BOX_H

#include <QComboBox>

#include <string>
#include <vector>

namespace rviz_plugin {

// The type filter of the topic list: "All", then the types present.
class TypeComboBox : public QComboBox {
    Q_OBJECT
public:
    explicit TypeComboBox(QWidget* parent = nullptr);
    void Refresh(const std::vector<std::string>& types);
};

} // namespace rviz_plugin

#endif
