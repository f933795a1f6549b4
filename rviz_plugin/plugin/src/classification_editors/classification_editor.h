#ifndef RVIZ_PLUGIN_CLASSIFICATION_EDITOR_H
#define RVIZ_PLUGIN_CLASSIFICATION_EDITOR_H

#include <QLineEdit>

namespace rviz_plugin {

// The editor of a classification row's value cell: the summary, which may be typed over, and a
// delete button.
class ClassificationEditor : public QLineEdit {
    Q_OBJECT
public:
    explicit ClassificationEditor(QWidget* parent);

Q_SIGNALS:
    void DeleteClicked();
};

} // namespace rviz_plugin

#endif
