#include "associated_widget.h"

#include "total_widget.h"

#include "foundation/logger.h"
#include "foundation/set_qss.h"

#include <QVBoxLayout>

namespace rviz_plugin {

AssociatedWidget::AssociatedWidget(QWidget* parent) : QWidget(parent) {}

void AssociatedWidget::Init()
{
    totalWidget = new TotalWidget(this);
    totalWidget->Init();
    VideosWidget* videos = totalWidget->GetVideosWidget();
    connect(videos, &VideosWidget::GeneratedNewItemWidget, this, &AssociatedWidget::GeneratedNewItemWidget);
    connect(videos, &VideosWidget::DeleteWidget, this, &AssociatedWidget::DeleteItemWidget);
    Build();
}

void AssociatedWidget::Build()
{
    setObjectName("associated_widget");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 12, 4, 4);
    layout->addWidget(totalWidget);
    if (!ApplyStyleSheet(this, ":/videoqrc/assets/qss/video_main.qss")) {
        Orsa::Logger::GetInstance().WriteLog("KoraVision", Orsa::LogLevel::Error, "Failed to open the file.");
    }
}

int AssociatedWidget::GetVideoCount() const
{
    return totalWidget->GetVideoCount();
}

bool AssociatedWidget::AddVideoWidget()
{
    return totalWidget->AddVideoWidget();
}

} // namespace rviz_plugin
