#include "msg_viewer_panel.h"

#include "msg_view_models/view_text.h"
#include "msg_viewer_widgets/viewer_style.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QVariant>

namespace rviz_plugin {

namespace {

QLabel* Heading(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setObjectName("headingLabel");
    return label;
}

constexpr int nameWidth = 140;

} // namespace

MsgViewerPanel::MsgViewerPanel(QWidget* parent) : QWidget(parent) {}

void MsgViewerPanel::OnInitialize()
{
    setObjectName("msgViewerPanel");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->setSpacing(4);
    layout->addWidget(Heading("Display Settings", this));
    // Colour and alignment share a line, so that the column stays short in a crowded dock area.
    auto* colors = new QHBoxLayout();
    colors->addWidget(new QLabel("Background Color", this));
    auto* colorGroup = new QButtonGroup(this);
    for (const QString& color : {QString("white"), QString("#0F0F0F")}) {
        auto* button = new QPushButton(this);
        button->setObjectName("colorButton");
        button->setCheckable(true);
        button->setProperty("color", color);
        button->setToolTip(color);
        button->setStyleSheet(QString("QPushButton{background-color:%1;}").arg(color));
        button->setChecked(color == "white");
        colorGroup->addButton(button);
        colors->addWidget(button);
        colorButtons.push_back(button);
        connect(button, &QPushButton::clicked, this, &MsgViewerPanel::SlotChangeColor);
    }
    colors->addSpacing(24);
    auto* alignments = colors;
    alignments->addWidget(new QLabel("Alignment", this));
    auto* alignmentGroup = new QButtonGroup(this);
    const QVector<QPair<int, QString>> kinds{{1, ":/assets/image/Alignleft.png"},
                                             {132, ":/assets/image/centeralign.png"},
                                             {2, ":/assets/image/Alignright.png"}};
    for (const auto& [value, icon] : kinds) {
        auto* button = new QPushButton(QIcon(icon), QString(), this);
        button->setObjectName("alignButton");
        button->setCheckable(true);
        button->setProperty("alignment", value);
        button->setChecked(value == 1);
        alignmentGroup->addButton(button);
        alignments->addWidget(button);
        alignmentButtons.push_back(button);
        connect(button, &QPushButton::clicked, this,
                [this, value]() { Q_EMIT SetAlignment(static_cast<Qt::Alignment>(value)); });
    }
    alignments->addStretch(1);
    layout->addLayout(colors);
    layout->addWidget(Heading("Data Display", this));
    rowsLayout = new QVBoxLayout();
    layout->addLayout(rowsLayout);
    addPanelButton = new QPushButton("Add Panel", this);
    addPanelButton->setObjectName("addPanelButton");
    layout->addWidget(addPanelButton, 0, Qt::AlignLeft);
    addPanelButton->setMinimumWidth(160);
    layout->addStretch(1);
    ApplyViewerStyle(this, ":/Msgviewerqrc/assets/qss/MsgViewer.qss");
}

QPushButton* MsgViewerPanel::GetColorButton(const QString& color) const
{
    for (QPushButton* button : colorButtons) {
        if (button->property("color").toString() == color) {
            return button;
        }
    }
    return nullptr;
}

QPushButton* MsgViewerPanel::GetAlignmentButton(int alignment) const
{
    for (QPushButton* button : alignmentButtons) {
        if (button->property("alignment").toInt() == alignment) {
            return button;
        }
    }
    return nullptr;
}

void MsgViewerPanel::SlotChangeColor()
{
    const auto* button = qobject_cast<QPushButton*>(sender());
    if (button != nullptr) {
        Q_EMIT SigBackgroudColorChange(button->property("color").toString());
    }
}

void MsgViewerPanel::SetColorAndAlignmentButtonClicked(const QString& color, int alignment)
{
    if (QPushButton* button = GetColorButton(color)) {
        button->click();
    }
    if (QPushButton* button = GetAlignmentButton(alignment)) {
        button->click();
    }
}

void MsgViewerPanel::AddPanel(const QString& name, bool checked)
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* box = new QCheckBox(row);
    box->setChecked(checked);
    SetCheckBoxText(box, name);
    auto* edit = new QPushButton("Edit", row);
    edit->setObjectName("editButton");
    auto* remove = new QPushButton("Remove", row);
    remove->setObjectName("removeButton");
    layout->addWidget(box, 1);
    layout->addWidget(edit);
    layout->addWidget(remove);
    rowsLayout->addWidget(row);
    rows.push_back(row);
    checkBoxes.push_back(box);
    editButtons.push_back(edit);
    removeButtons.push_back(remove);
    connect(box, &QCheckBox::stateChanged, this, &MsgViewerPanel::ShowDisplayView);
    connect(edit, &QPushButton::clicked, this, &MsgViewerPanel::EditPanel);
    connect(remove, &QPushButton::clicked, this, &MsgViewerPanel::RemovePanel);
    ResetPosition();
}

void MsgViewerPanel::SetCheckBoxText(QCheckBox* box, const QString& name)
{
    box->setProperty("displayText", name);
    box->setToolTip(ToolTipFeedLine(name));
    const QFontMetrics metrics(box->font());
    box->setText(metrics.horizontalAdvance(name) >= nameWidth ? metrics.elidedText(name, Qt::ElideRight, nameWidth)
                                                              : name);
}

void MsgViewerPanel::RenamePanel(int index, const QString& name)
{
    ChangeCheckBoxText(index, name);
}

void MsgViewerPanel::ChangeCheckBoxText(int index, const QString& name)
{
    if (index >= 0 && index < checkBoxes.size()) {
        SetCheckBoxText(checkBoxes[index], name);
    }
}

bool MsgViewerPanel::IsChecked(int index) const
{
    return index >= 0 && index < checkBoxes.size() && checkBoxes[index]->isChecked();
}

QCheckBox* MsgViewerPanel::GetCheckBox(int index) const
{
    return checkBoxes.value(index);
}

void MsgViewerPanel::SetCheckBoxState(int index, bool checked)
{
    if (index < 0 || index >= checkBoxes.size()) {
        return;
    }
    const bool blocked = checkBoxes[index]->blockSignals(true);
    checkBoxes[index]->setChecked(checked);
    checkBoxes[index]->blockSignals(blocked);
    Q_EMIT SignalUpdateRecord(index, checked);
}

void MsgViewerPanel::ShowDisplayView(int state)
{
    const QObject* box = sender();
    if (box != nullptr) {
        Q_EMIT DisplayPanel(box->property("position").toInt(), state == Qt::Checked);
    }
}

void MsgViewerPanel::EditPanel()
{
    const int index = sender()->property("position").toInt();
    if (index >= 0 && index < checkBoxes.size()) {
        Q_EMIT EditSelectMsg(index, checkBoxes[index]->property("displayText").toString());
    }
}

void MsgViewerPanel::RemovePanel()
{
    const int index = sender()->property("position").toInt();
    if (index < 0 || index >= rows.size()) {
        return;
    }
    rows[index]->hide();
    rows[index]->deleteLater();
    rows.removeAt(index);
    checkBoxes.removeAt(index);
    editButtons.removeAt(index);
    removeButtons.removeAt(index);
    ResetPosition();
    Q_EMIT RemoveSelectMsg(index);
}

void MsgViewerPanel::ResetPosition()
{
    for (int index = 0; index < rows.size(); ++index) {
        checkBoxes[index]->setProperty("position", index);
        editButtons[index]->setProperty("position", index);
        removeButtons[index]->setProperty("position", index);
    }
}

} // namespace rviz_plugin
