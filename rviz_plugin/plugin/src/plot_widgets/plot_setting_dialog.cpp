#include "plot_setting_dialog.h"

#include "plot_widget_helpers.h"
#include "plot_spin_box.h"
#include "plot_warn_edit.h"

#include "foundation/set_qss.h"

#include <QCloseEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace rviz_plugin {

PlotSettingDialog::PlotSettingDialog(const PlotSetting& setting, QWidget* parent) : QDialog(parent), saved(setting)
{
    setWindowTitle("Plot Settings");
    setFixedSize(400, 208);
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout();
    titleEdit = new PlotWarnEdit(QString(), this);
    titleEdit->setObjectName("titleEdit");
    yMinBox = new PlotSpinBox(false, this);
    yMaxBox = new PlotSpinBox(false, this);
    xRangeBox = new PlotSpinBox(true, this);
    form->addRow("Title", titleEdit);
    form->addRow("Y min", yMinBox);
    form->addRow("Y max", yMaxBox);
    form->addRow("X range (time series only)", xRangeBox);
    layout->addLayout(form);
    QPushButton* cancelBtn = nullptr;
    AddCancelSaveButtons(*this, *layout, cancelBtn, saveBtn);
    connect(cancelBtn, &QPushButton::clicked, this, &QDialog::close);
    connect(saveBtn, &QPushButton::clicked, this, &PlotSettingDialog::SlotSaveBtnClicked);
    for (PlotSpinBox* box : {yMinBox, yMaxBox}) {
        connect(box, &PlotSpinBox::SignalTextChanged, this, &PlotSettingDialog::SlotYSpinBoxTextChanged);
    }
    for (PlotSpinBox* box : {yMinBox, yMaxBox, xRangeBox}) {
        connect(box, &PlotSpinBox::SignalWarningStatusChanged, this, &PlotSettingDialog::SlotWarningStatusChanged);
    }
    connect(titleEdit, &PlotWarnEdit::SignalWarningStatusChanged, this, &PlotSettingDialog::SlotWarningStatusChanged);
    SetQss().SetStyle(this, ":/plotqrc/assets/qss/plot_setting_dialog.qss");
    SetSettingData(setting);
}

void PlotSettingDialog::SetSettingData(const PlotSetting& setting)
{
    saved = setting;
    titleEdit->GetLineEdit()->setText(setting.title);
    titleEdit->ClearWarning();
    const auto show = [](PlotSpinBox* box, bool isAuto, double value) {
        if (isAuto) {
            box->SetAuto(true);
        } else {
            box->SetValue(value);
        }
    };
    show(yMinBox, setting.isYMinAuto, setting.yMin);
    show(yMaxBox, setting.isYMaxAuto, setting.yMax);
    show(xRangeBox, setting.isXRangeAuto, setting.xRange);
    SlotWarningStatusChanged();
}

void PlotSettingDialog::SetVerifyNames(const QStringList& names)
{
    titleEdit->SetVerifyNames(names);
}

QString PlotSettingDialog::GetTitle() const
{
    return titleEdit->GetLineEdit()->text();
}

double PlotSettingDialog::GetYMin() const
{
    return static_cast<double>(yMinBox->GetValue());
}

double PlotSettingDialog::GetYMax() const
{
    return static_cast<double>(yMaxBox->GetValue());
}

double PlotSettingDialog::GetXRange() const
{
    return static_cast<double>(xRangeBox->GetValue());
}

bool PlotSettingDialog::GetYMinAuto() const
{
    return yMinBox->IsAuto();
}

bool PlotSettingDialog::GetYMaxAuto() const
{
    return yMaxBox->IsAuto();
}

bool PlotSettingDialog::GetXRangeAuto() const
{
    return xRangeBox->IsAuto();
}

PlotSetting PlotSettingDialog::UpdateSettingData() const
{
    PlotSetting setting = saved;
    setting.title = GetTitle();
    setting.isYMinAuto = GetYMinAuto();
    setting.isYMaxAuto = GetYMaxAuto();
    setting.isXRangeAuto = GetXRangeAuto();
    if (!setting.isYMinAuto) {
        setting.yMin = GetYMin();
    }
    if (!setting.isYMaxAuto) {
        setting.yMax = GetYMax();
    }
    if (!setting.isXRangeAuto) {
        setting.xRange = GetXRange();
    }
    return setting;
}

bool PlotSettingDialog::IsSaveEnabled() const
{
    return saveBtn->isEnabled();
}

void PlotSettingDialog::SlotYSpinBoxTextChanged()
{
    if (!yMinBox->IsAuto() && !yMaxBox->IsAuto() && !yMinBox->GetText().isEmpty() &&
        !yMaxBox->GetText().isEmpty() && yMinBox->GetValue() >= yMaxBox->GetValue()) {
        yMinBox->ShowWarning(true, WarningType::MinAboveMax);
        yMaxBox->ShowWarning(true, WarningType::MaxBelowMin);
        return;
    }
    for (PlotSpinBox* box : {yMinBox, yMaxBox}) {
        if (box->GetWarningText() == "The minimum value must be less than the maximum value." ||
            box->GetWarningText() == "The maximum value must be greater than the minimum value.") {
            box->ShowWarning(false, WarningType::NoWarning);
        }
    }
}

void PlotSettingDialog::SlotWarningStatusChanged()
{
    saveBtn->setEnabled(!titleEdit->HasWarning() && !yMinBox->HasWarning() && !yMaxBox->HasWarning() &&
                        !xRangeBox->HasWarning());
}

void PlotSettingDialog::SlotSaveBtnClicked()
{
    if (!IsSaveEnabled()) {
        return;
    }
    saved = UpdateSettingData();
    Q_EMIT SignalSaveSetting(saved, true);
    saving = true;
    close();
    saving = false;
}

void PlotSettingDialog::closeEvent(QCloseEvent* event)
{
    if (!saving && !(UpdateSettingData() == saved)) {
        if (ShowMsgBox(*this)) {
            SetSettingData(saved);
        } else {
            event->ignore();
            return;
        }
    }
    QDialog::closeEvent(event);
}

void PlotSettingDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Enter || event->key() == Qt::Key_Return) {
        return;
    }
    QDialog::keyPressEvent(event);
}

} // namespace rviz_plugin
