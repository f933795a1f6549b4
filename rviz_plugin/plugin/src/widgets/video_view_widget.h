#ifndef WIDGETS_VIDEO_VIEW_WIDGET_H
#define WIDGETS_VIDEO_VIEW_WIDGET_H

#include <QImage>
#include <QString>
#include <QWidget>

class QCheckBox;
class QLabel;

// A small preview of one topic: a still picture, a selection box and the camera's name, elided to fit.
class VideoViewWidget : public QWidget {
    Q_OBJECT
public:
    static constexpr int nameWidth = 190;
    static constexpr int pictureWidth = 240;
    static constexpr int pictureHeight = 135;

    explicit VideoViewWidget(QWidget* parent = nullptr);
    // name: what the user calls the camera (its custom name, or the topic).
    void Initialize(const QString& topic, const QString& name, const QImage& image);
    void SetSelectBoxVisible(bool visible);
    bool GetIsChecked() const;
    void SetChecked(bool checked);
    const QString& GetTopic() const { return topic; }
    void SetTopicText();
    QString GetDisplayTopicName() const;

Q_SIGNALS:
    void SendSelectStatus();

private:
    QString topic;
    QString name;
    QLabel* picture = nullptr;
    QLabel* nameLabel = nullptr;
    QCheckBox* selectBox = nullptr;
};

#endif
