#include "preview_widget.h"

#include "display_grid_widget.h"
#include "grid_widget.h"
#include "image_view_widget.h"

#include <QVBoxLayout>

#include <utility>

namespace rviz_plugin {

PreviewWidget::PreviewWidget(QWidget* parent) : QWidget(parent)
{
    setObjectName("PreviewWidget");
    displayGrid = new DisplayGridWidget(this);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(displayGrid);
}

void PreviewWidget::SetTopics(const QStringList& topics, ImageSource source)
{
    imageSource = std::move(source);
    displayGrid->SetTopics(topics);
    for (ImageViewWidget* view : displayGrid->GetGrid()->GetViews()) {
        connect(view, &ImageViewWidget::PlayToggled, this, &PreviewWidget::PlayToggled);
    }
}

void PreviewWidget::ShowFrame(int frame)
{
    for (ImageViewWidget* view : displayGrid->GetGrid()->GetViews()) {
        view->SetImage(imageSource ? imageSource(view->GetTopic(), frame) : QImage());
    }
}

void PreviewWidget::SetPlaying(bool playing)
{
    for (ImageViewWidget* view : displayGrid->GetGrid()->GetViews()) {
        view->SetPlaying(playing);
    }
}

QVector<QString> PreviewWidget::GetSelectedTopics() const
{
    QVector<QString> selected;
    for (const ImageViewWidget* view : displayGrid->GetGrid()->GetViews()) {
        if (view->IsChecked()) {
            selected.append(view->GetTopic());
        }
    }
    return selected;
}

} // namespace rviz_plugin
