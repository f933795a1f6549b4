#include "plot_settings_item.h"

#include "plot_warn_edit.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace rviz_plugin {

PlotSettingsItem::PlotSettingsItem(const QString& name, QWidget* parent) : QWidget(parent), originalName(name)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel("Template Name", this));
    edit = new PlotWarnEdit(QString(), this);
    edit->GetLineEdit()->setText(name);
    layout->addWidget(edit, 1);
    auto* remove = new QPushButton(QIcon(":/plotqrc/assets/image/delete.png"), QString(), this);
    remove->setObjectName("deleteButton");
    remove->setFixedSize(24, 24);
    layout->addWidget(remove, 0, Qt::AlignTop);
    connect(remove, &QPushButton::clicked, this, [this]() { Q_EMIT SignalDeleteClicked(this); });
    connect(edit->GetLineEdit(), &QLineEdit::textChanged, this, &PlotSettingsItem::SignalTextChanged);
    connect(edit, &PlotWarnEdit::SignalWarningStatusChanged, this, &PlotSettingsItem::SignalWarningStatusChanged);
}

QString PlotSettingsItem::GetName() const
{
    return edit->GetLineEdit()->text();
}

void PlotSettingsItem::SetVerifyNames(const QStringList& names)
{
    edit->SetVerifyNames(names);
}

bool PlotSettingsItem::HasWarning() const
{
    return edit->HasWarning();
}

} // namespace rviz_plugin
