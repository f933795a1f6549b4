#include "buttons.h"

#include <QIcon>

namespace {
constexpr int iconButtonSide = 24;
constexpr int iconSide = 16;
} // namespace

Button::Button(const QString& text, QWidget* parent) : QPushButton(text, parent)
{
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::NoFocus);
}

PrimaryButton::PrimaryButton(const QString& text, QWidget* parent) : Button(text, parent) {}

SecondaryButton::SecondaryButton(const QString& text, QWidget* parent) : Button(text, parent) {}

IconButton::IconButton(const QString& iconPath, const QString& toolTip, QWidget* parent) : Button(QString(), parent)
{
    setFixedSize(iconButtonSide, iconButtonSide);
    setIconSize(QSize(iconSide, iconSide));
    setToolTip(toolTip);
    SetIconPath(iconPath);
}

void IconButton::SetIconPath(const QString& path)
{
    iconPath = path;
    setIcon(QIcon(path));
}

CloseButton::CloseButton(QWidget* parent) : IconButton(":/widgets/image/ic_close.png", "Close", parent) {}
