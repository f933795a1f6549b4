#include "panel_status_dialog.h"

#include "msg_view_models/view_text.h"
#include "viewer_style.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace rviz_plugin {

void StatusScrollBar::showEvent(QShowEvent* event)
{
    QScrollBar::showEvent(event);
    Q_EMIT IsVisible(true);
}

void StatusScrollBar::hideEvent(QHideEvent* event)
{
    QScrollBar::hideEvent(event);
    Q_EMIT IsVisible(false);
}

PanelStatusDialog::PanelStatusDialog(QWidget* parent) : QDialog(parent), table(new QTableWidget(0, 3, this))
{
    setWindowTitle("Status");
    auto* layout = new QVBoxLayout(this);
    auto* title = new QLabel("Status", this);
    title->setStyleSheet("font-weight: bold;");
    layout->addWidget(title);
    auto* header = new QHBoxLayout();
    auto* icon = new QLabel(this);
    icon->setPixmap(QPixmap(":image/warning.png"));
    header->addWidget(icon);
    header->addWidget(new QLabel("Warning", this));
    header->addStretch(1);
    layout->addLayout(header);
    table->setFixedSize(258, 90);
    table->horizontalHeader()->hide();
    table->verticalHeader()->hide();
    table->setShowGrid(false);
    table->setColumnWidth(0, 24);
    table->setColumnWidth(1, 106);
    table->setColumnWidth(2, 106);
    auto* bar = new StatusScrollBar(Qt::Vertical, table);
    table->setVerticalScrollBar(bar);
    connect(bar, &StatusScrollBar::IsVisible, this, [this](bool visible) {
        table->setColumnWidth(2, visible ? 90 : 106);
        messageWidth = visible ? 86 : 93;
        UpdateStatus(shown);
    });
    layout->addWidget(table);
    auto* ok = new QPushButton("OK", this);
    connect(ok, &QPushButton::clicked, this, &QDialog::close);
    layout->addWidget(ok, 0, Qt::AlignRight);
}

void PanelStatusDialog::UpdateStatus(const Warnings& warnings)
{
    shown = warnings;
    table->clearContents();
    table->setRowCount(warnings.size());
    for (int row = 0; row < warnings.size(); ++row) {
        const auto& [name, message] = warnings[row];
        auto* icon = new QTableWidgetItem(QIcon(":image/warning.png"), QString());
        auto* nameItem = new QTableWidgetItem(ElideLeftText(name, table, 100));
        auto* messageItem = new QTableWidgetItem(ElideLeftText(message, table, messageWidth));
        nameItem->setToolTip(ToolTipFeedLine(name));
        messageItem->setToolTip(ToolTipFeedLine(message));
        icon->setToolTip(ToolTipFeedLine(message));
        table->setItem(row, 0, icon);
        table->setItem(row, 1, nameItem);
        table->setItem(row, 2, messageItem);
    }
}

void PanelStatusDialog::ExecuteStatusDialog()
{
    exec();
}

} // namespace rviz_plugin
