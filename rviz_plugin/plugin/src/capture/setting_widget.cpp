#include "setting_widget.h"

#include "capture_logic/capture_data_manager.h"
#include "widgets/buttons.h"

#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSpinBox>
#include <QVBoxLayout>

namespace rviz_plugin {

SettingWidget::SettingWidget(QWidget* parent) : QDialog(parent)
{
    setObjectName("SettingWidget");
    setWindowTitle("Setting");
    numberBox = new QSpinBox(this);
    numberBox->setRange(CaptureDataManager::minCaptureNumber, CaptureDataManager::maxCaptureNumber);
    pathEdit = new QLineEdit(this);
    auto* browse = new SecondaryButton("...", this);
    browse->setFixedWidth(32);
    auto* pathRow = new QHBoxLayout();
    pathRow->addWidget(pathEdit, 1);
    pathRow->addWidget(browse);
    auto* form = new QFormLayout();
    form->addRow("Number of frames", numberBox);
    form->addRow("Export path", pathRow);
    auto* ok = new PrimaryButton("OK", this);
    auto* cancel = new SecondaryButton("Cancel", this);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch(1);
    buttons->addWidget(cancel);
    buttons->addWidget(ok);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(buttons);
    setMinimumWidth(420);
    connect(browse, &QPushButton::clicked, this, [this] {
        const QString folder = QFileDialog::getExistingDirectory(this, "Export path", pathEdit->text());
        if (!folder.isEmpty()) {
            pathEdit->setText(folder);
        }
    });
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void SettingWidget::SetValues(int captureNumber, const QString& exportPath)
{
    numberBox->setValue(captureNumber);
    pathEdit->setText(exportPath);
}

int SettingWidget::GetCaptureNumber() const
{
    return numberBox->value();
}

QString SettingWidget::GetExportPath() const
{
    return pathEdit->text();
}

} // namespace rviz_plugin
