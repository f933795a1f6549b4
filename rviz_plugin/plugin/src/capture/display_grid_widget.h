#ifndef RVIZ_PLUGIN_DISPLAY_GRID_WIDGET_H
#define RVIZ_PLUGIN_DISPLAY_GRID_WIDGET_H

#include <QStringList>
#include <QWidget>

class QComboBox;

namespace rviz_plugin {

class GridWidget;

// The grid of captured pictures under its topic filter ("All" shows every topic).
class DisplayGridWidget : public QWidget {
    Q_OBJECT

public:
    explicit DisplayGridWidget(QWidget* parent = nullptr);
    void SetTopics(const QStringList& topics);
    GridWidget* GetGrid() const { return grid; }
    QComboBox* GetFilter() const { return filter; }

private:
    QComboBox* filter = nullptr;
    GridWidget* grid = nullptr;
};

} // namespace rviz_plugin

#endif
