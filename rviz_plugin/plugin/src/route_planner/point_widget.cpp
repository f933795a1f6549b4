#include "point_widget.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace rviz_plugin {

namespace {
const char* const coordinateToolTip =
    "Select the text box to edit the coordinate point. \nYou can enter the coordinate value directly or select a "
    "coordinate point on the map.\nThe value is \"x,y,z\" in the map's coordinates (map offset included), each a "
    "finite float.";
} // namespace

PointWidget::PointWidget(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 4, 0);
    nameLabel = new QLabel(this);
    nameLabel->setObjectName("PointWidget_nameLabel");
    nameLabel->setFixedWidth(28);
    lineEdit = new QLineEdit(this);
    lineEdit->setPlaceholderText("Please input or select on the map");
    lineEdit->setToolTip(coordinateToolTip);
    lineEdit->setProperty("VerifyProperty", "true");
    lineEdit->installEventFilter(this);
    addButton = new QToolButton(this);
    addButton->setObjectName("PointWidget_addButton");
    addButton->setText("+");
    addButton->setFixedSize(15, 15);
    deleteButton = new QToolButton(this);
    deleteButton->setObjectName("PointWidget_deleteButton");
    deleteButton->setText("-");
    deleteButton->setFixedSize(15, 15);
    // The buttons' space stays reserved while they are hidden, so that the box does not jump.
    QSizePolicy policy = addButton->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    addButton->setSizePolicy(policy);
    deleteButton->setSizePolicy(policy);
    layout->addWidget(nameLabel);
    layout->addWidget(lineEdit, 1);
    layout->addWidget(addButton);
    layout->addWidget(deleteButton);
    SetButtonsVisible(false);
    connect(lineEdit, &QLineEdit::editingFinished, this, [this]() { Q_EMIT EditingFinished(this); });
    connect(addButton, &QToolButton::clicked, this, [this]() { Q_EMIT AddClicked(this); });
    connect(deleteButton, &QToolButton::clicked, this, [this]() { Q_EMIT DeleteClicked(this); });
}

void PointWidget::SetName(int row)
{
    nameLabel->setText(QString("W%1").arg(row + 1));
}

void PointWidget::SetAddEnabled(bool enabled)
{
    addButton->setEnabled(enabled);
}

void PointWidget::SetEditable(bool isEditable)
{
    editable = isEditable;
    lineEdit->setReadOnly(!editable);
    if (!editable) {
        SetButtonsVisible(false);
    }
}

bool PointWidget::eventFilter(QObject* object, QEvent* event)
{
    if (object == lineEdit && event->type() == QEvent::FocusIn && editable) {
        Q_EMIT FocusIn(this);
    }
    return QWidget::eventFilter(object, event);
}

void PointWidget::enterEvent(QEvent* event)
{
    SetButtonsVisible(editable);
    QWidget::enterEvent(event);
}

void PointWidget::leaveEvent(QEvent* event)
{
    SetButtonsVisible(false);
    QWidget::leaveEvent(event);
}

void PointWidget::SetButtonsVisible(bool visible)
{
    addButton->setVisible(visible);
    deleteButton->setVisible(visible);
}

} // namespace rviz_plugin
