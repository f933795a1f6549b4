#ifndef RVIZ_PLUGIN_ASSOCIATED_WIDGET_H
#define RVIZ_PLUGIN_ASSOCIATED_WIDGET_H

#include <QWidget>

namespace rviz_plugin {

class TotalWidget;
class VideoControlWidget;

// Root widget of the vision display's dock panel.
class AssociatedWidget : public QWidget {
    Q_OBJECT
public:
    explicit AssociatedWidget(QWidget* parent = nullptr);

    void Init();
    TotalWidget* GetTotalWidget() const { return totalWidget; }
    int GetVideoCount() const;
    bool AddVideoWidget();

Q_SIGNALS:
    void GeneratedNewItemWidget(int index, VideoControlWidget* item);
    void DeleteItemWidget(int index);

private:
    void Build();

    TotalWidget* totalWidget = nullptr;
};

} // namespace rviz_plugin

#endif
