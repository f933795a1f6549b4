#include "title_bar_base.h"

#include "buttons.h"
#include "foundation/set_qss.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>

namespace {
constexpr int titleBarHeight = 28;
constexpr int titleIconSide = 16;
const char* const maximizeIcon = ":/widgets/image/ic_maximize.png";
const char* const restoreIcon = ":/widgets/image/ic_restore.png";
} // namespace

TitleBarBase::TitleBarBase(QWidget* parent)
    : QWidget(parent),
      iconLabel(new QLabel(this)),
      titleLabel(new QLabel(this)),
      minimizeButton(new IconButton(":/widgets/image/ic_minimize.png", "Minimize", this)),
      maximizeButton(new IconButton(maximizeIcon, "Full Screen", this)),
      closeButton(new CloseButton(this))
{
    setObjectName("titleBar");
    setAttribute(Qt::WA_StyledBackground, true);
    setFixedHeight(titleBarHeight);
    ApplyStyleSheet(this, ":/widgets/qss/title_bar.qss");
    iconLabel->setObjectName("titleIconLabel");
    iconLabel->setFixedSize(titleIconSide, titleIconSide);
    iconLabel->setScaledContents(true);
    titleLabel->setObjectName("titleLabel");
    minimizeButton->setObjectName("minimizeButton");
    maximizeButton->setObjectName("maximizeButton");
    closeButton->setObjectName("closeButton");

    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 0, 4, 0);
    layout->setSpacing(4);
    layout->addWidget(iconLabel);
    layout->addWidget(titleLabel, 1);
    layout->addWidget(minimizeButton);
    layout->addWidget(maximizeButton);
    layout->addWidget(closeButton);
}

void TitleBarBase::SetWindowTitle(const QString& title)
{
    titleLabel->setText(title);
}

QString TitleBarBase::GetWindowTitle() const
{
    return titleLabel->text();
}

void TitleBarBase::SetTitleBarIcon(const QString& iconPath)
{
    iconLabel->setPixmap(QPixmap(iconPath));
}

void TitleBarBase::SetMiniAndMaxIconShow(bool show)
{
    minimizeButton->setVisible(show);
    maximizeButton->setVisible(show);
}

void TitleBarBase::UpdateMinimizeIcon()
{
    maximized = !maximized;
    maximizeButton->SetIconPath(maximized ? restoreIcon : maximizeIcon);
    maximizeButton->setToolTip(maximized ? "Exit Full Screen" : "Full Screen");
}

void TitleBarBase::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        Q_EMIT DoubleClick();
    }
    QWidget::mouseDoubleClickEvent(event);
}
