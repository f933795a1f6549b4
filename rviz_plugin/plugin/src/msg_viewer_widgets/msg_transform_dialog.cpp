#include "msg_transform_dialog.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace rviz_plugin {

MsgTransformDialog::MsgTransformDialog(int index, const ConstantList& constants, const ConstantList& chosen,
                                       QWidget* parent)
    : QDialog(parent), index(index), constants(constants), allBox(new QCheckBox(this)), headLabel(new QLabel(this)),
      table(new QTableWidget(constants.size(), 2, this))
{
    setWindowTitle("Convert Constants");
    setObjectName("msgTransformDialog");
    auto* layout = new QVBoxLayout(this);
    auto* head = new QHBoxLayout();
    head->addWidget(allBox);
    head->addWidget(headLabel, 1);
    layout->addLayout(head);
    table->horizontalHeader()->hide();
    table->verticalHeader()->hide();
    table->setShowGrid(false);
    table->setColumnWidth(0, 28);
    table->horizontalHeader()->setStretchLastSection(true);
    for (int row = 0; row < constants.size(); ++row) {
        auto* box = new QCheckBox(table);
        box->setChecked(chosen.contains(constants[row]));
        auto* text = new QLabel(QString("%1 = %2").arg(constants[row].first).arg(constants[row].second), table);
        table->setCellWidget(row, 0, box);
        table->setCellWidget(row, 1, text);
        boxes.push_back(box);
        texts.push_back(text);
        connect(box, &QCheckBox::toggled, this, &MsgTransformDialog::UpdateHead);
    }
    layout->addWidget(table, 1);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    auto* cancel = new QPushButton("Cancel", this);
    auto* save = new QPushButton("Save", this);
    buttons->addWidget(cancel);
    buttons->addWidget(save);
    layout->addLayout(buttons);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(save, &QPushButton::clicked, this, &MsgTransformDialog::Save);
    connect(allBox, &QCheckBox::clicked, this, [this]() { SetAllChecked(allBox->checkState() != Qt::Unchecked); });
    resize(360, 320);
    UpdateHead();
}

void MsgTransformDialog::SetAllChecked(bool checked)
{
    for (QCheckBox* box : boxes) {
        box->setChecked(checked);
    }
    UpdateHead();
}

void MsgTransformDialog::SetRowChecked(int row, bool checked)
{
    if (row >= 0 && row < boxes.size()) {
        boxes[row]->setChecked(checked);
    }
}

ConstantList MsgTransformDialog::CheckedConstants() const
{
    ConstantList checked;
    for (int row = 0; row < boxes.size(); ++row) {
        if (boxes[row]->isChecked()) {
            checked.push_back(constants[row]);
        }
    }
    return checked;
}

QString MsgTransformDialog::HeadText() const
{
    return headLabel->text();
}

Qt::CheckState MsgTransformDialog::HeadState() const
{
    return allBox->checkState();
}

void MsgTransformDialog::UpdateHead()
{
    const int checked = CheckedConstants().size();
    headLabel->setText(QString("Select constants to convert (%1/%2)").arg(checked).arg(boxes.size()));
    allBox->setCheckState(checked == 0 ? Qt::Unchecked
                                       : (checked == boxes.size() ? Qt::Checked : Qt::PartiallyChecked));
    for (int row = 0; row < boxes.size(); ++row) {
        texts[row]->setStyleSheet(boxes[row]->isChecked() ? "color: black;" : "color: rgb(153, 153, 153);");
    }
}

void MsgTransformDialog::Save()
{
    Q_EMIT SignalConvertConstants(index, CheckedConstants());
    accept();
}

} // namespace rviz_plugin
