#include "plot_save_as_template_dialog.h"

#include "plot_warn_edit.h"
#include "plot_widget_helpers.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace rviz_plugin {

PlotSaveAsTemplateDialog::PlotSaveAsTemplateDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle("Save As Template");
    setFixedWidth(400);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel("Template Name", this));
    edit = new PlotWarnEdit(QString(), this);
    layout->addWidget(edit);
    QPushButton* cancelBtn = nullptr;
    AddCancelSaveButtons(*this, *layout, cancelBtn, saveBtn);
    connect(cancelBtn, &QPushButton::clicked, this, &QDialog::reject);
    connect(saveBtn, &QPushButton::clicked, this, &PlotSaveAsTemplateDialog::SlotSaveClicked);
    connect(edit, &PlotWarnEdit::SignalWarningStatusChanged, this,
            [this](bool warning) { saveBtn->setEnabled(!warning); });
}

void PlotSaveAsTemplateDialog::SetNames(const QString& proposed, const QStringList& names)
{
    edit->SetVerifyNames(names);
    edit->GetLineEdit()->setText(proposed);
    ClearWarning();
}

void PlotSaveAsTemplateDialog::ClearWarning()
{
    edit->ClearWarning();
    saveBtn->setEnabled(true);
}

void PlotSaveAsTemplateDialog::SlotSaveClicked()
{
    const QString name = edit->GetLineEdit()->text();
    if (name.isEmpty()) {
        edit->SetVerifyContent();
        return;
    }
    if (edit->HasWarning()) {
        return;
    }
    Q_EMIT SignalSaveBtnClicked(name);
    accept();
}

void PlotSaveAsTemplateDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Enter || event->key() == Qt::Key_Return || event->key() == Qt::Key_Escape) {
        return;
    }
    QDialog::keyPressEvent(event);
}

} // namespace rviz_plugin
