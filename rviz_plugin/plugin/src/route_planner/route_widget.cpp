#include "route_widget.h"

#include "point_widget.h"
#include "route_planner_logic/route_point_text.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

#include <array>

namespace rviz_plugin {

namespace {
QToolButton* MakeToolButton(QWidget* parent, const QString& name, const QString& text, const QString& toolTip)
{
    auto* button = new QToolButton(parent);
    button->setObjectName(name);
    button->setText(text);
    button->setToolTip(toolTip);
    return button;
}

void SetVerifyStyle(QLineEdit* edit, bool valid)
{
    edit->setProperty("VerifyProperty", valid ? "true" : "false");
    edit->style()->unpolish(edit);
    edit->style()->polish(edit);
}
} // namespace

RouteWidget::RouteWidget(QWidget* parent) : QFrame(parent)
{
    setObjectName("RouteWidget");
    Init();
}

void RouteWidget::Init()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 4);
    layout->setSpacing(2);

    auto* header = new QHBoxLayout;
    nameEdit = new QLineEdit("Route", this);
    nameEdit->setObjectName("RouteWidget_nameEdit");
    deliverButton = MakeToolButton(this, "RouteWidget_deliverButton", "Send",
                                   "Deliver Command to Create Navigation Route");
    editButton = MakeToolButton(this, "RouteWidget_editButton", "Edit", "Edit Navigation Route");
    deleteButton = MakeToolButton(this, "RouteWidget_deleteButton", "Delete", "Delete Navigation Route");
    removeButton = MakeToolButton(this, "RouteWidget_removeButton", "Clear", "Remove Navigation Point");
    saveButton = new QPushButton("Save", this);
    cancelButton = new QPushButton("Cancel", this);
    header->addWidget(nameEdit, 1);
    for (QWidget* widget : std::array<QWidget*, 6>{deliverButton, editButton, deleteButton, removeButton, saveButton,
                                                   cancelButton}) {
        header->addWidget(widget);
    }
    layout->addLayout(header);

    auto* start = new QHBoxLayout;
    start->addWidget(new QLabel("Start", this));
    startComboBox = new QComboBox(this);
    startComboBox->addItem(defaultStart);
    start->addWidget(startComboBox, 1);
    addFirstButton = MakeToolButton(this, "RouteWidget_addButton", "+", "Add a way point");
    addFirstButton->setFixedSize(buttonSize, buttonSize);
    start->addWidget(addFirstButton);
    layout->addLayout(start);

    pointList = new QListWidget(this);
    pointList->setObjectName("RouteWidget_pointList");
    pointList->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    pointList->setFixedHeight(0);
    layout->addWidget(pointList);

    auto* end = new QHBoxLayout;
    end->addWidget(new QLabel("End", this));
    endLineEdit = new QLineEdit(this);
    endLineEdit->setObjectName("RouteWidget_endLineEdit");
    endLineEdit->setPlaceholderText("Please input or select on the map");
    endLineEdit->setProperty("VerifyProperty", "true");
    endLineEdit->installEventFilter(this);
    end->addWidget(endLineEdit, 1);
    layout->addLayout(end);

    setProperty("RouteWidgetProperty", "unchecked");
    connect(addFirstButton, &QToolButton::clicked, this, [this]() { AddPointWidget(-1); });
    connect(endLineEdit, &QLineEdit::editingFinished, this, [this]() { LineEditFinished(-1); });
    connect(deliverButton, &QToolButton::clicked, this, &RouteWidget::SendPublishRouteData);
    connect(editButton, &QToolButton::clicked, this, &RouteWidget::ClickEditButton);
    connect(deleteButton, &QToolButton::clicked, this, &RouteWidget::SendDeleteItemSignal);
    connect(removeButton, &QToolButton::clicked, this, &RouteWidget::SendPublishClearRouteData);
    connect(saveButton, &QPushButton::clicked, this, &RouteWidget::ClickSaveButton);
    connect(cancelButton, &QPushButton::clicked, this, [this]() {
        Restore(saveData);
        SetDisEditabled();
        Q_EMIT SendCancelButtonClick();
    });
    connect(startComboBox, QOverload<int>::of(&QComboBox::activated), this,
            [this]() { Q_EMIT SendFixedFrameChange(startComboBox->currentText()); });
    SetEditable(true);
}

int RouteWidget::GetWayPointCount() const
{
    return pointList->count();
}

int RouteWidget::GetPreferredHeight() const
{
    return 3 * itemHeight + 10 + GetWayPointCount() * itemHeight;
}

QLineEdit* RouteWidget::LineEditOf(int row) const
{
    if (row == -1) {
        return endLineEdit;
    }
    auto* widget = row >= 0 && row < pointList->count()
                       ? qobject_cast<PointWidget*>(pointList->itemWidget(pointList->item(row)))
                       : nullptr;
    return widget != nullptr ? widget->GetLineEdit() : nullptr;
}

QString RouteWidget::GetPointText(int row) const
{
    QLineEdit* edit = LineEditOf(row);
    return edit != nullptr ? edit->text() : QString();
}

int RouteWidget::RowOf(PointWidget* widget) const
{
    for (int row = 0; row < pointList->count(); ++row) {
        if (pointList->itemWidget(pointList->item(row)) == widget) {
            return row;
        }
    }
    return -2;
}

void RouteWidget::AddPointWidget(int clickedRow)
{
    if (GetWayPointCount() >= maxWayPoints) {
        return;
    }
    Q_EMIT AddViaPoint(clickedRow + 1);
    GenerateData(clickedRow + 1);
    LineEditOf(clickedRow + 1)->setFocus();
}

void RouteWidget::GenerateData(int row)
{
    auto* widget = new PointWidget;
    auto* item = new QListWidgetItem;
    item->setSizeHint(QSize(180, itemHeight));
    pointList->insertItem(row, item);
    pointList->setItemWidget(item, widget);
    widget->SetEditable(editable);
    ConnectPointWidget(widget);
    SetViaPointName();
    ViaPointOverCount(GetWayPointCount() >= maxWayPoints);
    ResizeList();
}

void RouteWidget::ConnectPointWidget(PointWidget* widget)
{
    connect(widget, &PointWidget::FocusIn, this, [this](PointWidget* point) { Q_EMIT LineEditFocusIn(RowOf(point)); });
    connect(widget, &PointWidget::EditingFinished, this,
            [this](PointWidget* point) { LineEditFinished(RowOf(point)); });
    connect(widget, &PointWidget::AddClicked, this, [this](PointWidget* point) { AddPointWidget(RowOf(point)); });
    connect(widget, &PointWidget::DeleteClicked, this,
            [this](PointWidget* point) { DeletePointWidget(RowOf(point)); });
}

void RouteWidget::DeletePointWidget(int row)
{
    if (row < 0 || row >= pointList->count()) {
        return;
    }
    delete pointList->takeItem(row);
    Q_EMIT DeleteViaPoint(row);
    SetViaPointName();
    ViaPointOverCount(false);
    ResizeList();
}

void RouteWidget::DeleteAllPointWidget()
{
    while (pointList->count() > 0) {
        DeletePointWidget(pointList->count() - 1);
    }
}

void RouteWidget::ResizeList()
{
    pointList->setFixedHeight(GetWayPointCount() * itemHeight);
    Q_EMIT ResizeHeight();
}

void RouteWidget::SetViaPointName()
{
    for (int row = 0; row < pointList->count(); ++row) {
        if (auto* widget = qobject_cast<PointWidget*>(pointList->itemWidget(pointList->item(row)))) {
            widget->SetName(row);
        }
    }
}

void RouteWidget::ViaPointOverCount(bool over)
{
    addFirstButton->setEnabled(!over);
    for (int row = 0; row < pointList->count(); ++row) {
        if (auto* widget = qobject_cast<PointWidget*>(pointList->itemWidget(pointList->item(row)))) {
            widget->SetAddEnabled(!over);
        }
    }
}

bool RouteWidget::VerifyPoint(const QString& text, Ogre::Vector3& point)
{
    std::array<float, 3> values{point.x, point.y, point.z};
    const bool valid = ParseRoutePoint(text.toStdString(), values);
    point = Ogre::Vector3(values[0], values[1], values[2]);
    return valid;
}

bool RouteWidget::VerifyLineEditData(const QString& text, int row)
{
    Ogre::Vector3 point = Ogre::Vector3::ZERO;
    const bool valid = text.isEmpty() || VerifyPoint(text, point);
    if (QLineEdit* edit = LineEditOf(row)) {
        SetVerifyStyle(edit, valid);
    }
    return valid;
}

void RouteWidget::UpdateEndLineEditStyle()
{
    VerifyLineEditData(endLineEdit->text(), -1);
}

void RouteWidget::LineEditFinished(int row)
{
    const QString text = GetPointText(row);
    Ogre::Vector3 point = Ogre::Vector3::ZERO;
    if (VerifyLineEditData(text, row) && !text.isEmpty() && VerifyPoint(text, point)) {
        Q_EMIT SendLineEditingFinishedPoint(row, point);
    }
}

void RouteWidget::SetPointText(int row, const QString& text)
{
    if (QLineEdit* edit = LineEditOf(row)) {
        edit->setText(text);
        VerifyLineEditData(text, row);
    }
}

void RouteWidget::UpdateSaveData()
{
    saveData.name = nameEdit->text();
    saveData.start = startComboBox->currentText();
    saveData.wayPoints.clear();
    for (int row = 0; row < pointList->count(); ++row) {
        saveData.wayPoints << GetPointText(row);
    }
    saveData.end = endLineEdit->text();
}

void RouteWidget::Restore(const SaveData& data)
{
    nameEdit->setText(data.name);
    if (startComboBox->findText(data.start) < 0) {
        startComboBox->addItem(data.start);
    }
    startComboBox->setCurrentText(data.start);
    for (int row = 0; row < pointList->count() && row < data.wayPoints.size(); ++row) {
        SetPointText(row, data.wayPoints[row]);
    }
    SetPointText(-1, data.end);
}

void RouteWidget::SetEditable(bool isEditable)
{
    editable = isEditable;
    nameEdit->setReadOnly(!editable);
    startComboBox->setEnabled(editable);
    endLineEdit->setReadOnly(!editable);
    addFirstButton->setVisible(editable);
    for (int row = 0; row < pointList->count(); ++row) {
        if (auto* widget = qobject_cast<PointWidget*>(pointList->itemWidget(pointList->item(row)))) {
            widget->SetEditable(editable);
        }
    }
    saveButton->setVisible(editable);
    cancelButton->setVisible(editable);
    for (QToolButton* button : {deliverButton, editButton, deleteButton, removeButton}) {
        button->setVisible(!editable);
    }
    setProperty("status", editable ? "normal" : "disabled");
    style()->unpolish(this);
    style()->polish(this);
}

void RouteWidget::SetDisEditabled()
{
    SetEditable(false);
}

void RouteWidget::ClickEditButton()
{
    SetEditable(true);
}

void RouteWidget::ClickSaveButton()
{
    UpdateSaveData();
    SetDisEditabled();
    Q_EMIT SaveToConfig();
}

void RouteWidget::SetChecked(bool checked)
{
    setProperty("RouteWidgetProperty", checked ? "checked" : "unchecked");
    style()->unpolish(this);
    style()->polish(this);
}

void RouteWidget::RefreshComboBox(const QStringList& frames)
{
    const QString current = startComboBox->currentText();
    startComboBox->clear();
    startComboBox->addItem(defaultStart);
    for (const QString& frame : frames) {
        startComboBox->addItem(QString("0.00,0.00 <%1>").arg(frame));
    }
    if (startComboBox->findText(current) < 0) {
        startComboBox->addItem(current);
    }
    startComboBox->setCurrentText(current);
}

bool RouteWidget::eventFilter(QObject* object, QEvent* event)
{
    if (object == endLineEdit && event->type() == QEvent::FocusIn && editable) {
        Q_EMIT LineEditFocusIn(-1);
    }
    return QFrame::eventFilter(object, event);
}

} // namespace rviz_plugin
