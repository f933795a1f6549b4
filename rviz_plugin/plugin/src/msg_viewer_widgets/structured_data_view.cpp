#include "structured_data_view.h"

#include "key_value_view.h"
#include "msg_viewer_panel/msg_record.h"
#include "table_view.h"
#include "viewer_style.h"

#include <QLabel>
#include <QScrollArea>
#include <QStackedWidget>
#include <QStyle>
#include <QVariant>
#include <QVBoxLayout>

namespace rviz_plugin {

StructuredDataView::StructuredDataView(MsgRecord& record, QWidget* parent) : QWidget(parent), record(record)
{
    clock.setInterval(1000);
    connect(&clock, &QTimer::timeout, this, [this]() { this->record.GetSubscriber().GetHandler().UpdateDataFrame(); });
}

void StructuredDataView::CreateStructuredView()
{
    setObjectName("structuredDataView");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    stack = new QStackedWidget(this);
    noDataLabel = new QLabel("No Data Selected", stack);
    noDataLabel->setAlignment(Qt::AlignCenter);
    stack->addWidget(noDataLabel);
    scrollArea = new QScrollArea(stack);
    scrollArea->setWidgetResizable(true);
    scrollArea->setFrameShape(QFrame::NoFrame);
    keyValueView = new KeyValueView(record, scrollArea);
    keyValueView->InitKeyValueView();
    scrollArea->setWidget(keyValueView);
    stack->addWidget(scrollArea);
    tableView = new TableView(record, stack);
    tableView->InitTableView();
    stack->addWidget(tableView);
    layout->addWidget(stack);
    connect(keyValueView, &KeyValueView::SignalConfigChanged, this, &StructuredDataView::SignalConfigChanged);
    connect(tableView, &TableView::SignalConfigChanged, this, &StructuredDataView::SignalConfigChanged);
    connect(tableView, &TableView::SignalOperateEnd, this, &StructuredDataView::SignalOperateEnd);
    connect(tableView, &TableView::SignalShowNoDataView, this, &StructuredDataView::ShowNoDataView);
    clock.start();
}

void StructuredDataView::ShowNoDataView()
{
    stack->setCurrentIndex(NoDataMode);
}

void StructuredDataView::UpdateView()
{
    viewMode = record.GetTopicFields().empty() ? NoDataMode : (record.IsTable() ? TableMode : KeyValueMode);
    if (viewMode == TableMode) {
        tableView->UpdateTableView();
    } else if (viewMode == KeyValueMode) {
        keyValueView->UpdateKeyValueView();
    }
    stack->setCurrentIndex(viewMode);
    SetStructedDataViewBackgroundColor(backgroundColor);
    SetStructedDataViewAlignment(alignment);
}

void StructuredDataView::StartTimer(bool start)
{
    tableView->StartTimer(start && viewMode == TableMode);
    keyValueView->StartTimer(start && viewMode == KeyValueMode);
    if (start) {
        clock.start();
    } else {
        clock.stop();
    }
}

void StructuredDataView::AdjustLayout(int columns)
{
    keyValueView->AdjustLayout(columns);
}

void StructuredDataView::SetStructedDataViewBackgroundColor(const QString& color)
{
    backgroundColor = color;
    setProperty("status", SchemeStatus(color));
    noDataLabel->setStyleSheet(
        QString("color:%1;").arg(SchemeOf(color) == ViewerScheme::White ? "#333333" : "#F2F1F0"));
    style()->unpolish(this);
    style()->polish(this);
    tableView->SetBackgroundColor(color);
    keyValueView->SetKeyValueViewBackgroundColor(color);
}

void StructuredDataView::SetStructedDataViewAlignment(Qt::Alignment value)
{
    alignment = value;
    tableView->SetAlignment(value);
    keyValueView->SetKeyValueViewAlignment(value);
}

int StructuredDataView::GetHeight() const
{
    return viewMode == TableMode ? tableView->GetHeight() : keyValueView->GetHeight();
}

} // namespace rviz_plugin
