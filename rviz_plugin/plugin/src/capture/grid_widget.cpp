#include "grid_widget.h"

#include "image_view_widget.h"

#include <QGridLayout>

namespace rviz_plugin {

GridWidget::GridWidget(QWidget* parent) : QWidget(parent)
{
    setObjectName("GridWidget");
    grid = new QGridLayout(this);
    grid->setAlignment(Qt::AlignTop | Qt::AlignLeft);
}

void GridWidget::AddView(ImageViewWidget* view)
{
    views.append(view);
    Arrange();
}

void GridWidget::Clear()
{
    for (ImageViewWidget* view : views) {
        grid->removeWidget(view);
        view->deleteLater();
    }
    views.clear();
}

void GridWidget::ApplyFilter(const QString& topic)
{
    filter = topic;
    Arrange();
}

void GridWidget::Arrange()
{
    int shown = 0;
    for (ImageViewWidget* view : views) {
        grid->removeWidget(view);
        const bool visible = filter == allTopics || view->GetTopic() == filter;
        view->setVisible(visible);
        if (visible) {
            grid->addWidget(view, shown / viewsPerRow, shown % viewsPerRow);
            ++shown;
        }
    }
}

} // namespace rviz_plugin
