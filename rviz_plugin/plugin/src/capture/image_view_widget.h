#ifndef RVIZ_PLUGIN_IMAGE_VIEW_WIDGET_H
#define RVIZ_PLUGIN_IMAGE_VIEW_WIDGET_H

#include <QImage>
#include <QWidget>

class QCheckBox;
class QLabel;
class QPushButton;

namespace rviz_plugin {

// One captured picture with its topic (without "_avFrame"), a play or pause button that steps through the
// frames, and a box that selects the topic for export.
class ImageViewWidget : public QWidget {
    Q_OBJECT

public:
    static constexpr int pictureWidth = 320;
    static constexpr int pictureHeight = 200;

    ImageViewWidget(const QString& topic, QWidget* parent = nullptr);
    void SetImage(const QImage& image);
    void SetPlaying(bool playing);
    bool IsChecked() const;
    const QString& GetTopic() const { return topic; }
    static QString DisplayName(const QString& topic);
    QLabel* GetPicture() const { return picture; }
    QPushButton* GetPlayButton() const { return playButton; }

Q_SIGNALS:
    void PlayToggled();
    void SelectionChanged();

private:
    QString topic;
    QLabel* picture = nullptr;
    QPushButton* playButton = nullptr;
    QCheckBox* selectBox = nullptr;
};

} // namespace rviz_plugin

#endif
