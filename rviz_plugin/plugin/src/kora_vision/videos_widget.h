#ifndef RVIZ_PLUGIN_VIDEOS_WIDGET_H
#define RVIZ_PLUGIN_VIDEOS_WIDGET_H

#include "video_control_widget.h"

#include "kora_vision_logic/wall_layout.h"

#include <QList>
#include <QMap>
#include <QWidget>

class QGridLayout;

namespace rviz_plugin {

// The grid of video items, shown a page at a time: 4 items a page inside the panel,
// 16 in full screen.
class VideosWidget : public QWidget {
    Q_OBJECT
public:
    enum VideosWidgetState { List = 0, FullScreen = 1 };

    explicit VideosWidget(QWidget* parent = nullptr, const WallLimits& limits = WallLimits());

    void Init();
    void Add();
    void Remove(VideoControlWidget* item);
    void SetPage(unsigned page);
    void SetState(VideosWidgetState newState);
    VideosWidgetState CurrentVideosWidgetState() const { return state; }
    int GetVideoNumber() const { return items.size(); }
    int GetMaxPageNumber() const;
    int GetCurrentPage() const { return currentPages.value(state); }
    const WallLimits& GetLimits() const { return limits; }
    void SetCreatePopupPanelCallback(CreatePopupPanelCallback callback);
    void EmbedPanels();
    void SetPopupPanelsVisible(bool visible);
    void SetPopButtonsVisible(bool visible);
    // Every item's camera name from the alias file (read once).
    void UpdateDisplayTopic();
    // Items on the current page, in the order shown.
    QList<VideoControlWidget*> GetShownItems() const;
    const QList<VideoControlWidget*>& GetItems() const { return items; }

Q_SIGNALS:
    void GeneratedNewItemWidget(int index, VideoControlWidget* item);
    void DeleteWidget(int index);
    void DeleteVideoControlWidget() const;

private:
    VideoControlWidget* GetNewVideoControlWidget();
    void ReLayout();
    void ClearLayout();

    WallLimits limits;
    QGridLayout* layout = nullptr;
    QList<VideoControlWidget*> items;
    VideosWidgetState state = List;
    QMap<int, int> currentPages;
    QMap<int, int> itemsPerPage;
    CreatePopupPanelCallback createPopupPanel;
};

} // namespace rviz_plugin

#endif
