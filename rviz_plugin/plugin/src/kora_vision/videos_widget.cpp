#include "videos_widget.h"

#include "topic_combobox.h"
#include "topic_rename/rename_data.h"

#include <QGridLayout>

namespace rviz_plugin {

VideosWidget::VideosWidget(QWidget* parent, const WallLimits& wallLimits)
    : QWidget(parent),
      limits(wallLimits),
      currentPages{{List, 1}, {FullScreen, 1}},
      itemsPerPage{{List, wallLimits.listItemsPerPage}, {FullScreen, wallLimits.fullScreenItemsPerPage}}
{
}

void VideosWidget::Init()
{
    setObjectName("videos_widget");
    layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
}

void VideosWidget::SetCreatePopupPanelCallback(CreatePopupPanelCallback callback)
{
    createPopupPanel = std::move(callback);
}

VideoControlWidget* VideosWidget::GetNewVideoControlWidget()
{
    auto* item = new VideoControlWidget(this);
    item->setObjectName(QString("video_control_widget_%1").arg(items.size()));
    item->Init(createPopupPanel);
    return item;
}

void VideosWidget::Add()
{
    if (items.size() >= limits.maxItems) {
        return;
    }
    VideoControlWidget* item = GetNewVideoControlWidget();
    if (state == FullScreen) {
        item->SetPopupButtonVisible(false);
    }
    item->hide();
    connect(item, &VideoControlWidget::RemoveItem, this, [this, item]() { Remove(item); });
    items.append(item);
    Q_EMIT GeneratedNewItemWidget(items.size() - 1, item);
    ReLayout();
    item->setFocus();
}

void VideosWidget::Remove(VideoControlWidget* item)
{
    const int index = items.indexOf(item);
    if (index < 0) {
        return;
    }
    layout->removeWidget(item);
    items.removeAt(index);
    item->hide();
    Q_EMIT DeleteWidget(index);
    Q_EMIT DeleteVideoControlWidget();
    ReLayout();
    item->deleteLater();
}

void VideosWidget::SetPage(unsigned page)
{
    currentPages[state] = static_cast<int>(page);
    ReLayout();
}

void VideosWidget::SetState(VideosWidgetState newState)
{
    state = newState;
    ReLayout();
}

int VideosWidget::GetMaxPageNumber() const
{
    return rviz_plugin::GetMaxPageNumber(items.size(), itemsPerPage.value(state));
}

QList<VideoControlWidget*> VideosWidget::GetShownItems() const
{
    const WallGrid grid = EvaluateOptimalLayout(items.size(), GetCurrentPage(), itemsPerPage.value(state));
    return items.mid(grid.first, grid.count);
}

void VideosWidget::ClearLayout()
{
    for (VideoControlWidget* item : items) {
        item->hide();
        layout->removeWidget(item);
    }
}

void VideosWidget::ReLayout()
{
    ClearLayout();
    const WallGrid grid = EvaluateOptimalLayout(items.size(), GetCurrentPage(), itemsPerPage.value(state));
    // Rows and columns of an earlier, larger grid stay in the layout: give only the used ones space.
    for (int row = 0; row < layout->rowCount(); ++row) {
        layout->setRowStretch(row, row < grid.rows ? 1 : 0);
    }
    for (int column = 0; column < layout->columnCount(); ++column) {
        layout->setColumnStretch(column, column < grid.columns ? 1 : 0);
    }
    for (int offset = 0; offset < grid.count; ++offset) {
        VideoControlWidget* item = items.at(grid.first + offset);
        layout->addWidget(item, offset / grid.columns, offset % grid.columns);
        item->show();
    }
}

void VideosWidget::EmbedPanels()
{
    for (VideoControlWidget* item : items) {
        item->EmbedPanel();
    }
}

void VideosWidget::SetPopupPanelsVisible(bool visible)
{
    for (VideoControlWidget* item : items) {
        item->SetPopupPanelVisible(visible);
    }
}

void VideosWidget::UpdateDisplayTopic()
{
    RenameData names;
    names.ReadAliasFromFile();
    for (VideoControlWidget* item : items) {
        item->SetCameraAlias(
            QString::fromStdString(names.GetAlias(item->GetTopicCombobox()->currentText().toStdString())));
    }
}

void VideosWidget::SetPopButtonsVisible(bool visible)
{
    for (VideoControlWidget* item : items) {
        item->SetPopupButtonVisible(visible);
    }
}

} // namespace rviz_plugin
