#include "video_view_widget.h"

#include <QCheckBox>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

VideoViewWidget::VideoViewWidget(QWidget* parent) : QWidget(parent)
{
    setObjectName("VideoViewWidget");
    picture = new QLabel(this);
    picture->setObjectName("VideoViewWidget_picture");
    picture->setFixedSize(pictureWidth, pictureHeight);
    picture->setAlignment(Qt::AlignCenter);
    picture->setStyleSheet("background-color: #1E1E1E; color: #999999;");
    selectBox = new QCheckBox(this);
    selectBox->setObjectName("VideoViewWidget_selectBox");
    nameLabel = new QLabel(this);
    nameLabel->setObjectName("VideoViewWidget_name");
    auto* row = new QHBoxLayout();
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(selectBox);
    row->addWidget(nameLabel, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->setSpacing(4);
    layout->addWidget(picture);
    layout->addLayout(row);
    connect(selectBox, &QCheckBox::toggled, this, &VideoViewWidget::SendSelectStatus);
}

void VideoViewWidget::Initialize(const QString& viewTopic, const QString& viewName, const QImage& image)
{
    topic = viewTopic;
    name = viewName;
    if (image.isNull()) {
        picture->setText("No image");
    } else {
        picture->setPixmap(QPixmap::fromImage(
            image.scaled(pictureWidth, pictureHeight, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
    }
    SetTopicText();
}

void VideoViewWidget::SetSelectBoxVisible(bool visible)
{
    selectBox->setVisible(visible);
}

bool VideoViewWidget::GetIsChecked() const
{
    return selectBox->isChecked();
}

void VideoViewWidget::SetChecked(bool checked)
{
    selectBox->setChecked(checked);
}

void VideoViewWidget::SetTopicText()
{
    nameLabel->setText(GetDisplayTopicName());
    nameLabel->setToolTip(name);
}

QString VideoViewWidget::GetDisplayTopicName() const
{
    return QFontMetrics(nameLabel->font()).elidedText(name, Qt::ElideMiddle, nameWidth);
}
