#include "image_view_widget.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace rviz_plugin {

ImageViewWidget::ImageViewWidget(const QString& viewTopic, QWidget* parent) : QWidget(parent), topic(viewTopic)
{
    setObjectName("ImageViewWidget");
    picture = new QLabel(this);
    picture->setFixedSize(pictureWidth, pictureHeight);
    picture->setAlignment(Qt::AlignCenter);
    picture->setStyleSheet("background-color: #1E1E1E;");
    selectBox = new QCheckBox(DisplayName(topic), this);
    selectBox->setChecked(true);
    playButton = new QPushButton(this);
    playButton->setFlat(true);
    playButton->setFixedSize(24, 24);
    playButton->setStyleSheet("background-color: #555555;");
    SetPlaying(false);
    auto* row = new QHBoxLayout();
    row->addWidget(selectBox, 1);
    row->addWidget(playButton);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(picture);
    layout->addLayout(row);
    connect(playButton, &QPushButton::clicked, this, &ImageViewWidget::PlayToggled);
    connect(selectBox, &QCheckBox::toggled, this, &ImageViewWidget::SelectionChanged);
}

QString ImageViewWidget::DisplayName(const QString& viewTopic)
{
    QString name = viewTopic;
    return name.endsWith("_avFrame") ? name.left(name.size() - static_cast<int>(qstrlen("_avFrame"))) : name;
}

void ImageViewWidget::SetImage(const QImage& image)
{
    picture->setPixmap(image.isNull() ? QPixmap()
                                      : QPixmap::fromImage(image.scaled(pictureWidth, pictureHeight,
                                                                        Qt::KeepAspectRatio, Qt::SmoothTransformation)));
}

void ImageViewWidget::SetPlaying(bool playing)
{
    playButton->setIcon(QIcon(playing ? ":/qss/images/pause.png" : ":/qss/images/play.png"));
}

bool ImageViewWidget::IsChecked() const
{
    return selectBox->isChecked();
}

} // namespace rviz_plugin
