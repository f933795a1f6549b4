#ifndef RVIZ_PLUGIN_CENTER_WIDGET_H
#define RVIZ_PLUGIN_CENTER_WIDGET_H

#include <QWidget>

class QLabel;
class QPushButton;

namespace rviz_plugin {

// Under the preview: the number of the frame shown, and the save and cancel buttons.
class CenterWidget : public QWidget {
    Q_OBJECT

public:
    explicit CenterWidget(QWidget* parent = nullptr);
    void SetFrame(int frame);
    QLabel* GetCounter() const { return counter; }
    QPushButton* GetSaveButton() const { return saveButton; }

Q_SIGNALS:
    void Save();
    void Cancel();

private:
    QLabel* counter = nullptr;
    QPushButton* saveButton = nullptr;
};

} // namespace rviz_plugin

#endif
