#ifndef RVIZ_PLUGIN_REFRESH_BUTTON_H
#define RVIZ_PLUGIN_REFRESH_BUTTON_H

#include <QToolButton>

namespace rviz_plugin {

// Reloads the page from the master and the file; unsaved ticks are discarded.
class RefreshButton : public QToolButton {
    Q_OBJECT
public:
    explicit RefreshButton(QWidget* parent = nullptr);

Q_SIGNALS:
    void RefreshPage();
};

} // namespace rviz_plugin

#endif
