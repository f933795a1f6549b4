#ifndef RVIZ_PLUGIN_TOTAL_WIDGET_H
#define RVIZ_PLUGIN_TOTAL_WIDGET_H

#include "videos_widget.h"

#include <QWidget>

class QLabel;
class IconButton;
class PrimaryButton;
class SecondaryButton;

namespace rviz_plugin {

class EvaluateEntranceWidget;
class TopicRenameDialog;

// The wall with its top bar: "Add", "Set Name", the item count, and the page buttons.
class TotalWidget : public QWidget {
    Q_OBJECT
public:
    explicit TotalWidget(QWidget* parent = nullptr);

    void Init();
    VideosWidget* GetVideosWidget() const { return videosWidget; }
    int GetVideoCount() const;
    // Adds an item unless the wall is full; returns whether one was added.
    bool AddVideoWidget();
    void SwitchDisplayMode(VideosWidget::VideosWidgetState state);
    void ShowListWidget();
    void ShowFullScreen();
    void UpdateButtonAndLabel();
    void UpdateSwitchLabel();
    void WidgetNextPage();
    void WidgetPreviousPage();
    // "Set Name": the rename dialog, filled from the file and the master, over the wall.
    void TopicRenameDialogShowUp();
    TopicRenameDialog* GetTopicRenameDialog() const { return topicRenameDialog; }

    bool IsAddEnabled() const;
    QString GetCountText() const;
    EvaluateEntranceWidget* GetEvaluateEntrance() const { return evaluateEntrance; }
    QString GetSwitchText() const;
    bool IsPreviousEnabled() const;
    bool IsNextEnabled() const;

private:
    void SetPageButton(IconButton* button, bool enabled, const QString& enabledIcon, const QString& disabledIcon);

    VideosWidget* videosWidget = nullptr;
    PrimaryButton* addBt = nullptr;
    SecondaryButton* setNameBt = nullptr;
    TopicRenameDialog* topicRenameDialog = nullptr;
    IconButton* leftBt = nullptr;
    IconButton* rightBt = nullptr;
    QLabel* countLab = nullptr;
    EvaluateEntranceWidget* evaluateEntrance = nullptr;
    QLabel* switchLab = nullptr;
};

} // namespace rviz_plugin

#endif
