#ifndef RVIZ_PLUGIN_PREVIEW_CENTER_WIDGET_H
#define RVIZ_PLUGIN_PREVIEW_CENTER_WIDGET_H

#include "preview_widget.h"

#include <QDialog>
#include <QTimer>

class QSlider;

namespace rviz_plugin {

class CenterWidget;

// The capture's preview: the pictures of the frame chosen with the slider (or played through), the frame
// counter, and Save for the topics whose boxes are ticked.
class PreviewCenterWidget : public QDialog {
    Q_OBJECT

public:
    static constexpr int playInterval = 500;

    explicit PreviewCenterWidget(QWidget* parent = nullptr);
    void SetData(const QStringList& topics, int frameCount, PreviewWidget::ImageSource source);
    PreviewWidget* GetPreview() const { return preview; }
    CenterWidget* GetCenter() const { return center; }
    QSlider* GetSlider() const { return slider; }
    bool IsPlaying() const { return playTimer.isActive(); }

Q_SIGNALS:
    void SaveTopics(const QVector<QString>& topics);

private:
    void ShowFrame(int frame);
    void TogglePlay();

    PreviewWidget* preview = nullptr;
    CenterWidget* center = nullptr;
    QSlider* slider = nullptr;
    QTimer playTimer;
};

} // namespace rviz_plugin

#endif
