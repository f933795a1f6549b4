#ifndef RVIZ_PLUGIN_MSG_EMPTY_WIDGET_H
#define RVIZ_PLUGIN_MSG_EMPTY_WIDGET_H

#include <QWidget>

namespace rviz_plugin {

// What a side of the dialog shows when a search finds nothing.
class MsgEmptyWidget : public QWidget {
    Q_OBJECT
public:
    explicit MsgEmptyWidget(QWidget* parent = nullptr);
};

} // namespace rviz_plugin

#endif
