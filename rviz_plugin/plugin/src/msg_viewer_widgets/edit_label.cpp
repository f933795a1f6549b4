#include "edit_label.h"

#include "msg_view_models/view_text.h"
#include "viewer_style.h"

#include <QAction>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QStackedWidget>
#include <QToolButton>

namespace rviz_plugin {

EditLabel::EditLabel(bool withMenu, QWidget* parent)
    : QWidget(parent), stack(new QStackedWidget(this)), label(new QLabel(this)), edit(new QLineEdit(this))
{
    setObjectName("editLabel");
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 2, 0);
    layout->setSpacing(2);
    label->setObjectName("displayLabel");
    stack->addWidget(label);
    stack->addWidget(edit);
    layout->addWidget(stack, 1);
    connect(edit, &QLineEdit::editingFinished, this, &EditLabel::EditFinished);
    if (!withMenu) {
        return;
    }
    menuButton = new QToolButton(this);
    menuButton->setObjectName("menuButton");
    menuButton->setText("⋮");
    menuButton->setAutoRaise(true);
    menuButton->setPopupMode(QToolButton::InstantPopup);
    menu = new QMenu(menuButton);
    menu->addAction("Edit", this, &EditLabel::StartEdit);
    menu->addAction("Delete", this, [this]() { Q_EMIT DeleteClicked(editIndex); });
    blankAction = menu->addAction("Show Blank Lines", this, [this]() {
        isShowBlank = !isShowBlank;
        blankAction->setText(isShowBlank ? "Hide Blank Lines" : "Show Blank Lines");
        Q_EMIT BlankToggled(editIndex, isShowBlank, isAscending);
    });
    blankAction->setEnabled(false);
    ascendingAction = menu->addAction("Sort by Ascending", this, [this]() {
        isAscending = true;
        Q_EMIT SortClicked(editIndex, true);
    });
    descendingAction = menu->addAction("Sort by Descending", this, [this]() {
        isAscending = false;
        Q_EMIT SortClicked(editIndex, false);
    });
    convertAction = menu->addAction("Convert Constants", this, [this]() { Q_EMIT ConvertClicked(editIndex); });
    menuButton->setMenu(menu);
    layout->addWidget(menuButton);
}

void EditLabel::SetOriginalKey(const QString& key)
{
    originalKey = key;
    setToolTip(ToolTipFeedLine(key));
}

void EditLabel::SetDisplayText(const QString& text)
{
    displayText = text;
    Refresh();
}

void EditLabel::Refresh()
{
    QString shown = displayText;
    if (shown.contains('/') && stack->currentIndex() == 0) {
        shown = LastComponent(shown);
    }
    const QFontMetrics metrics(label->font());
    const int width = label->width() - 6;
    label->setText(metrics.horizontalAdvance(shown) > width && width > 0
                       ? metrics.elidedText(shown, Qt::ElideRight, width)
                       : shown);
}

void EditLabel::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Refresh();
}

void EditLabel::mouseDoubleClickEvent(QMouseEvent* event)
{
    StartEdit();
    QWidget::mouseDoubleClickEvent(event);
}

void EditLabel::SetStyleSheet(const QString& backgroundColor)
{
    switch (SchemeOf(backgroundColor)) {
    case ViewerScheme::Black:
        setStyleSheet("background-color:#0F0F0F;color:white;border:none;");
        break;
    case ViewerScheme::Transparent:
        setStyleSheet(QString("background-color:%1;color:white;border:none;").arg(backgroundColor));
        break;
    default:
        setStyleSheet("background-color:#F3F4F8;border:none;");
        break;
    }
}

void EditLabel::InitMenuType(const QString& type)
{
    isInt = type.contains("int") || type.contains("long") || type.contains("time");
    if (menu == nullptr) {
        return;
    }
    isNumber = isInt || type.contains("float") || type.contains("double");
    convertAction->setEnabled(isInt);
    if (!isInt) {
        blankAction->setEnabled(false);
    }
    ascendingAction->setEnabled(isNumber);
    descendingAction->setEnabled(isNumber);
}

void EditLabel::SetSortEnabled(bool enabled)
{
    if (ascendingAction != nullptr) {
        ascendingAction->setEnabled(enabled && isNumber);
        descendingAction->setEnabled(enabled && isNumber);
    }
}

void EditLabel::SetBlankEnabled(bool enabled)
{
    if (blankAction != nullptr) {
        blankAction->setEnabled(enabled && isInt);
    }
}

void EditLabel::ResetBlank()
{
    isShowBlank = false;
    if (blankAction != nullptr) {
        blankAction->setText("Show Blank Lines");
    }
}

void EditLabel::StartEdit()
{
    edit->setText(displayText.contains('/') ? LastComponent(displayText) : displayText);
    edit->setStyleSheet("border:1px solid #FC9565;");
    stack->setCurrentIndex(1);
    edit->setFocus();
    edit->selectAll();
}

void EditLabel::EditFinished()
{
    if (stack->currentIndex() != 1) {
        return;
    }
    stack->setCurrentIndex(0);
    QString text = edit->text().trimmed();
    if (text.isEmpty()) {
        text = LastComponent(originalKey);
    }
    if (text != displayText) {
        displayText = text;
        Q_EMIT TextEdited(editIndex, text);
    }
    Refresh();
}

} // namespace rviz_plugin
