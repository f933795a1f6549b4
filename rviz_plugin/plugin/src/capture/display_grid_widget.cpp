#include "display_grid_widget.h"

#include "grid_widget.h"
#include "image_view_widget.h"

#include <QComboBox>
#include <QScrollArea>
#include <QVBoxLayout>

namespace rviz_plugin {

DisplayGridWidget::DisplayGridWidget(QWidget* parent) : QWidget(parent)
{
    setObjectName("DisplayGridWidget");
    filter = new QComboBox(this);
    grid = new GridWidget(this);
    auto* scroll = new QScrollArea(this);
    scroll->setWidget(grid);
    scroll->setWidgetResizable(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(filter, 0, Qt::AlignLeft);
    layout->addWidget(scroll, 1);
    connect(filter, &QComboBox::currentTextChanged, this, [this](const QString& text) {
        grid->ApplyFilter(text == GridWidget::allTopics ? text : filter->currentData().toString());
    });
}

void DisplayGridWidget::SetTopics(const QStringList& topics)
{
    filter->blockSignals(true);
    filter->clear();
    filter->addItem(GridWidget::allTopics, QString(GridWidget::allTopics));
    for (const QString& topic : topics) {
        filter->addItem(ImageViewWidget::DisplayName(topic), topic);
    }
    filter->blockSignals(false);
    grid->Clear();
    for (const QString& topic : topics) {
        grid->AddView(new ImageViewWidget(topic, grid));
    }
    grid->ApplyFilter(GridWidget::allTopics);
}

} // namespace rviz_plugin
