#include "plot_template_settings_dialog.h"

#include "plot_settings_item.h"
#include "plot_widget_helpers.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace rviz_plugin {

PlotTemplateSettingsDialog::PlotTemplateSettingsDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle("Template Settings");
    setMinimumSize(440, 260);
    auto* layout = new QVBoxLayout(this);
    auto* scroll = new QScrollArea(this);
    scroll->setWidgetResizable(true);
    auto* content = new QWidget(scroll);
    listLayout = new QVBoxLayout(content);
    emptyLabel = new QLabel("No template.", content);
    emptyLabel->setAlignment(Qt::AlignCenter);
    listLayout->addWidget(emptyLabel);
    listLayout->addStretch();
    scroll->setWidget(content);
    layout->addWidget(scroll, 1);
    QPushButton* cancelBtn = nullptr;
    AddCancelSaveButtons(*this, *layout, cancelBtn, saveBtn);
    connect(cancelBtn, &QPushButton::clicked, this, &QDialog::close);
    connect(saveBtn, &QPushButton::clicked, this, &PlotTemplateSettingsDialog::SlotSaveClicked);
}

void PlotTemplateSettingsDialog::UpdateTemplateNames(const QStringList& names)
{
    qDeleteAll(items);
    items.clear();
    for (const QString& name : names) {
        auto* item = new PlotSettingsItem(name, listLayout->parentWidget());
        listLayout->insertWidget(listLayout->count() - 1, item);
        connect(item, &PlotSettingsItem::SignalDeleteClicked, this, &PlotTemplateSettingsDialog::SlotDeletedButtonClicked);
        connect(item, &PlotSettingsItem::SignalTextChanged, this, &PlotTemplateSettingsDialog::SlotTextChanged);
        connect(item, &PlotSettingsItem::SignalWarningStatusChanged, this,
                &PlotTemplateSettingsDialog::SlotWarningStatusChanged);
        items.push_back(item);
    }
    emptyLabel->setVisible(items.isEmpty());
    UpdateVerifyNames();
    SlotWarningStatusChanged();
}

bool PlotTemplateSettingsDialog::IsEmptyShown() const
{
    return !emptyLabel->isHidden();
}

void PlotTemplateSettingsDialog::UpdateVerifyNames()
{
    for (PlotSettingsItem* item : items) {
        QStringList others{"default"};
        for (const PlotSettingsItem* other : items) {
            if (other != item) {
                others.append(other->GetName());
            }
        }
        item->SetVerifyNames(others);
    }
}

void PlotTemplateSettingsDialog::SlotTextChanged()
{
    UpdateVerifyNames();
}

void PlotTemplateSettingsDialog::SlotWarningStatusChanged()
{
    saveBtn->setEnabled(std::none_of(items.begin(), items.end(), [](const PlotSettingsItem* item) {
        return item->HasWarning();
    }));
}

void PlotTemplateSettingsDialog::SlotDeletedButtonClicked(PlotSettingsItem* item)
{
    const int at = items.indexOf(item);
    if (at < 0) {
        return;
    }
    items.remove(at);
    const QString name = item->GetOriginalName();
    item->deleteLater();
    emptyLabel->setVisible(items.isEmpty());
    UpdateVerifyNames();
    SlotWarningStatusChanged();
    Q_EMIT SignalDeleteButtonClicked(name);
}

QMap<QString, QString> PlotTemplateSettingsDialog::ChangedNames() const
{
    QMap<QString, QString> renamed;
    for (const PlotSettingsItem* item : items) {
        if (item->GetName() != item->GetOriginalName()) {
            renamed[item->GetOriginalName()] = item->GetName();
        }
    }
    return renamed;
}

void PlotTemplateSettingsDialog::SlotSaveClicked()
{
    if (!saveBtn->isEnabled()) {
        return;
    }
    Q_EMIT SignalSettingsSaveButtonClicked(ChangedNames());
    saving = true;
    close();
    saving = false;
}

void PlotTemplateSettingsDialog::closeEvent(QCloseEvent* event)
{
    if (!saving && !ChangedNames().isEmpty() && !ShowMsgBox(*this)) {
        event->ignore();
        return;
    }
    QDialog::closeEvent(event);
}

} // namespace rviz_plugin
