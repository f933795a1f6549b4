#include "preview_center_widget.h"

#include "center_widget.h"

#include <QSlider>
#include <QVBoxLayout>

#include <utility>

namespace rviz_plugin {

PreviewCenterWidget::PreviewCenterWidget(QWidget* parent) : QDialog(parent)
{
    setObjectName("PreviewCenterWidget");
    setWindowTitle("Capture Multisensor Data");
    preview = new PreviewWidget(this);
    slider = new QSlider(Qt::Horizontal, this);
    slider->setMinimum(0);
    center = new CenterWidget(this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(preview, 1);
    layout->addWidget(slider);
    layout->addWidget(center);
    resize(1040, 620);
    playTimer.setInterval(playInterval);
    connect(slider, &QSlider::valueChanged, this, &PreviewCenterWidget::ShowFrame);
    connect(&playTimer, &QTimer::timeout, this, [this] {
        slider->setValue(slider->value() >= slider->maximum() ? 0 : slider->value() + 1);
    });
    connect(preview, &PreviewWidget::PlayToggled, this, &PreviewCenterWidget::TogglePlay);
    connect(center, &CenterWidget::Save, this, [this] {
        playTimer.stop();
        accept();
        Q_EMIT SaveTopics(preview->GetSelectedTopics());
    });
    connect(center, &CenterWidget::Cancel, this, [this] {
        playTimer.stop();
        reject();
    });
}

void PreviewCenterWidget::SetData(const QStringList& topics, int frameCount, PreviewWidget::ImageSource source)
{
    playTimer.stop();
    preview->SetTopics(topics, std::move(source));
    slider->setMaximum(std::max(frameCount - 1, 0));
    slider->setVisible(frameCount > 1);
    slider->setValue(0);
    ShowFrame(0);
}

void PreviewCenterWidget::ShowFrame(int frame)
{
    center->SetFrame(frame + 1);
    preview->ShowFrame(frame);
}

void PreviewCenterWidget::TogglePlay()
{
    if (playTimer.isActive()) {
        playTimer.stop();
    } else {
        playTimer.start();
    }
    preview->SetPlaying(playTimer.isActive());
}

} // namespace rviz_plugin
