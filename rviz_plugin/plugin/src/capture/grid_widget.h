#ifndef RVIZ_PLUGIN_GRID_WIDGET_H
#define RVIZ_PLUGIN_GRID_WIDGET_H

#include <QList>
#include <QWidget>

class QGridLayout;

namespace rviz_plugin {

class ImageViewWidget;

// The captured pictures in rows of three; a filter shows one topic or all.
class GridWidget : public QWidget {
    Q_OBJECT

public:
    static constexpr int viewsPerRow = 3;
    static constexpr const char* allTopics = "All";

    explicit GridWidget(QWidget* parent = nullptr);
    void AddView(ImageViewWidget* view);
    void Clear();
    void ApplyFilter(const QString& topic);
    const QList<ImageViewWidget*>& GetViews() const { return views; }

private:
    void Arrange();

    QGridLayout* grid = nullptr;
    QList<ImageViewWidget*> views;
    QString filter = allTopics;
};

} // namespace rviz_plugin

#endif
