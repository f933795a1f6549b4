#ifndef RVIZ_PLUGIN_PREVIEW_WIDGET_H
#define RVIZ_PLUGIN_PREVIEW_WIDGET_H

#include <QImage>
#include <QStringList>
#include <QVector>
#include <QWidget>

#include <functional>

namespace rviz_plugin {

class DisplayGridWidget;

// One preview pane: every topic's picture of the frame shown.
class PreviewWidget : public QWidget {
    Q_OBJECT

public:
    // The picture of a topic at a frame (counted from 0).
    using ImageSource = std::function<QImage(const QString& topic, int frame)>;

    explicit PreviewWidget(QWidget* parent = nullptr);
    void SetTopics(const QStringList& topics, ImageSource source);
    void ShowFrame(int frame);
    void SetPlaying(bool playing);
    QVector<QString> GetSelectedTopics() const;
    DisplayGridWidget* GetDisplayGrid() const { return displayGrid; }

Q_SIGNALS:
    void PlayToggled();

private:
    DisplayGridWidget* displayGrid = nullptr;
    ImageSource imageSource;
};

} // namespace rviz_plugin

#endif
