#include "total_widget.h"

#include "decoder_switch/evaluate_entrance_widget.h"
#include "topic_rename/topic_rename_dialog.h"

#include "widgets/buttons.h"
#include "widgets/labels.h"
#include "foundation/set_qss.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace rviz_plugin {

namespace {
const char* const leftIcon = ":/videoqrc/assets/image/ic_left.png";
const char* const rightIcon = ":/videoqrc/assets/image/ic_right.png";
const char* const leftDisabledIcon = ":/videoqrc/assets/image/ic_left_disable.png";
const char* const rightDisabledIcon = ":/videoqrc/assets/image/ic_right_disable.png";
} // namespace

TotalWidget::TotalWidget(QWidget* parent) : QWidget(parent) {}

void TotalWidget::Init()
{
    setObjectName("total_widget");
    ApplyStyleSheet(this, ":/videoqrc/assets/qss/video_main.qss");

    videosWidget = new VideosWidget(this);
    videosWidget->Init();
    addBt = new PrimaryButton("Add", this);
    addBt->setObjectName("addBt");
    setNameBt = new SecondaryButton("Set Name", this);
    setNameBt->setObjectName("setNameBt");
    topicRenameDialog = new TopicRenameDialog(this);
    topicRenameDialog->Initialize();
    countLab = new Label("Total: 0", this);
    countLab->setObjectName("countLab");
    leftBt = new IconButton(leftDisabledIcon, "Previous", this);
    leftBt->setObjectName("leftBt");
    rightBt = new IconButton(rightDisabledIcon, "Next", this);
    rightBt->setObjectName("rightBt");
    switchLab = new Label(" 1 ", this);
    switchLab->setObjectName("switchLab");

    auto* topBar = new QHBoxLayout();
    topBar->setContentsMargins(0, 0, 0, 0);
    topBar->addWidget(addBt);
    topBar->addWidget(setNameBt);
    topBar->addWidget(countLab);
    topBar->addStretch(1);
    evaluateEntrance = new EvaluateEntranceWidget(this);
    topBar->addWidget(evaluateEntrance);
    topBar->addWidget(leftBt);
    topBar->addWidget(switchLab);
    topBar->addWidget(rightBt);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addLayout(topBar);
    layout->addWidget(videosWidget, 1);

    connect(addBt, &QPushButton::clicked, this, &TotalWidget::AddVideoWidget);
    connect(setNameBt, &QPushButton::clicked, this, &TotalWidget::TopicRenameDialogShowUp);
    connect(topicRenameDialog, &TopicRenameDialog::NamesSaved, videosWidget, &VideosWidget::UpdateDisplayTopic);
    connect(leftBt, &QPushButton::clicked, this, &TotalWidget::WidgetPreviousPage);
    connect(rightBt, &QPushButton::clicked, this, &TotalWidget::WidgetNextPage);
    connect(videosWidget, &VideosWidget::DeleteVideoControlWidget, this, &TotalWidget::UpdateButtonAndLabel);
    UpdateSwitchLabel();
}

int TotalWidget::GetVideoCount() const
{
    return videosWidget->GetVideoNumber();
}

bool TotalWidget::AddVideoWidget()
{
    const int maxItems = videosWidget->GetLimits().maxItems;
    addBt->setEnabled(false);
    if (GetVideoCount() >= maxItems) {
        return false;
    }
    videosWidget->Add();
    countLab->setText(QString("Total: %1").arg(GetVideoCount()));
    UpdateSwitchLabel();
    if (GetVideoCount() < maxItems) {
        addBt->setEnabled(true);
    }
    return true;
}

void TotalWidget::UpdateButtonAndLabel()
{
    if (GetVideoCount() < videosWidget->GetLimits().maxItems) {
        addBt->setEnabled(true);
    }
    countLab->setText(QString("Total: %1").arg(GetVideoCount()));
    UpdateSwitchLabel();
}

void TotalWidget::SetPageButton(IconButton* button, bool enabled, const QString& enabledIcon,
                                const QString& disabledIcon)
{
    button->setEnabled(enabled);
    button->SetIconPath(enabled ? enabledIcon : disabledIcon);
}

void TotalWidget::UpdateSwitchLabel()
{
    const int page = videosWidget->GetCurrentPage();
    const int maxPage = videosWidget->GetMaxPageNumber();
    // A page left empty by deletions stays current; "Previous" then leads back to the items.
    if (page <= 1 && maxPage <= 1) {
        switchLab->setText(" 1 ");
        SetPageButton(leftBt, false, leftIcon, leftDisabledIcon);
        SetPageButton(rightBt, false, rightIcon, rightDisabledIcon);
        return;
    }
    switchLab->setText(QString("%1 of %2").arg(page).arg(maxPage));
    SetPageButton(leftBt, page > 1, leftIcon, leftDisabledIcon);
    SetPageButton(rightBt, page < maxPage, rightIcon, rightDisabledIcon);
}

void TotalWidget::WidgetNextPage()
{
    const int page = videosWidget->GetCurrentPage();
    if (page < videosWidget->GetMaxPageNumber()) {
        videosWidget->SetPage(static_cast<unsigned>(page + 1));
    }
    UpdateSwitchLabel();
}

void TotalWidget::WidgetPreviousPage()
{
    const int page = videosWidget->GetCurrentPage();
    if (page > 1) {
        videosWidget->SetPage(static_cast<unsigned>(page - 1));
    }
    UpdateSwitchLabel();
}

void TotalWidget::SwitchDisplayMode(VideosWidget::VideosWidgetState state)
{
    if (state == VideosWidget::FullScreen) {
        ShowFullScreen();
    } else {
        ShowListWidget();
    }
}

void TotalWidget::ShowListWidget()
{
    videosWidget->SetState(VideosWidget::List);
    UpdateSwitchLabel();
}

void TotalWidget::ShowFullScreen()
{
    videosWidget->SetState(VideosWidget::FullScreen);
    UpdateSwitchLabel();
}

bool TotalWidget::IsAddEnabled() const
{
    return addBt->isEnabled();
}

QString TotalWidget::GetCountText() const
{
    return countLab->text();
}

QString TotalWidget::GetSwitchText() const
{
    return switchLab->text();
}

bool TotalWidget::IsPreviousEnabled() const
{
    return leftBt->isEnabled();
}

bool TotalWidget::IsNextEnabled() const
{
    return rightBt->isEnabled();
}

void TotalWidget::TopicRenameDialogShowUp()
{
    topicRenameDialog->InitDisplayData();
    topicRenameDialog->setGeometry(QRect(QPoint(685, 275), QPoint(1308, 804)));
    topicRenameDialog->open();  // modal over the wall, without a nested event loop
}

} // namespace rviz_plugin
