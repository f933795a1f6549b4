#include "table_view.h"

#include "build_in_table_view.h"
#include "msg_transform_dialog.h"
#include "msg_view_models/table_model.h"
#include "msg_viewer_panel/msg_record.h"
#include "table_header_view.h"
#include "viewer_style.h"

#include <QStyle>
#include <QVariant>
#include <QToolTip>
#include <QVBoxLayout>

namespace rviz_plugin {

TableView::TableView(MsgRecord& record, QWidget* parent) : QWidget(parent), record(record) {}

void TableView::InitTableView()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

void TableView::ReInitTable()
{
    delete table;
    delete model;
    table = new BuildInTableView(this);
    layout()->addWidget(table);
    const auto& topics = record.GetTopicFields();
    const QString topic = topics.empty() ? QString() : QString::fromStdString(topics.begin()->first);
    model = new TableModel(record, topic, this);
    header = new TableHeaderView(record, *model, table);
    table->setHorizontalHeader(header);
    table->setModel(model);
    header->UpdateHeader(topic);
}

void TableView::UpdateTableView()
{
    ReInitTable();
    model->SetBackgroundColor(backgroundColor);
    model->SetAlignment(alignment);
    SetBackgroundColor(backgroundColor);
    connect(table, &QTableView::entered, this, &TableView::ShowToolTip);
    connect(table, &BuildInTableView::ColumnMoved, this, [this](int from, int to, bool toLast) {
        model->MoveColumnData(from, to, toLast);
        Q_EMIT SignalOperateEnd();
        Q_EMIT SignalConfigChanged();
    });
    connect(header, &TableHeaderView::DeleteHeader, this, &TableView::OnDeleteHeader);
    connect(header, &TableHeaderView::SetBlankDataIsVisible, this, [this](bool show, int column, bool ascending) {
        model->SetIsShowBlankData(show, column, ascending);
        Q_EMIT SignalConfigChanged();
    });
    connect(header, &TableHeaderView::SortColumnData, this, [this](int column, bool ascending) {
        model->SortByColumn(column, ascending);
        Q_EMIT SignalConfigChanged();
    });
    connect(header, &TableHeaderView::ConvertConstants, this, &TableView::OnConvertConstants);
    connect(header, &TableHeaderView::SignalConfigChanged, this, &TableView::SignalConfigChanged);
    connect(&record.GetSubscriber(), &MsgSubscriber::SignalErrorCatched, model, &TableModel::OnErrorCatched);
    connect(&record.GetSubscriber(), &MsgSubscriber::UpdateDisplayModel, model, &TableModel::UpdateData);
    StartTimer(true);
}

void TableView::OnDeleteHeader(int column)
{
    model->CancelColumnOperation(column);
    if (model->GetVisibleTitles().isEmpty()) {
        Q_EMIT SignalShowNoDataView();
    }
    Q_EMIT SignalConfigChanged();
}

void TableView::OnConvertConstants(int column)
{
    MsgTransformDialog dialog(column, model->GetConvertConstants(model->GetDisplayTopic().toStdString()),
                              model->GetConvertConstantSelected(column), this);
    connect(&dialog, &MsgTransformDialog::SignalConvertConstants, this,
            [this](int index, const ConstantList& constants) {
                model->ConvertConstants(index, constants);
                Q_EMIT SignalConfigChanged();
            });
    dialog.exec();
}

void TableView::SetBackgroundColor(const QString& color)
{
    backgroundColor = color;
    if (model != nullptr) {
        model->SetBackgroundColor(color);
    }
    if (header != nullptr) {
        header->SetBackgroundColor(color);
    }
    if (table == nullptr) {
        return;
    }
    switch (SchemeOf(color)) {
    case ViewerScheme::Black:
        table->setStyleSheet("color: white; gridline-color:#333333;");
        break;
    case ViewerScheme::Transparent:
        table->setStyleSheet("color: white; gridline-color:#E6E6E6;");
        break;
    default:
        table->setStyleSheet("color: black; gridline-color:#E6E6E6;");
        break;
    }
    table->setProperty("status", SchemeStatus(color));
    table->style()->unpolish(table);
    table->style()->polish(table);
}

void TableView::SetAlignment(Qt::Alignment value)
{
    alignment = value;
    if (model != nullptr) {
        model->SetAlignment(value);
    }
}

void TableView::StartTimer(bool start)
{
    if (model != nullptr) {
        model->StartTimer(start);
    }
}

void TableView::ShowToolTip(const QModelIndex& index)
{
    QToolTip::showText(QCursor::pos(), model->data(index, Qt::ToolTipRole).toString());
}

int TableView::GetHeight() const
{
    if (model == nullptr || model->rowCount() == 0) {
        return 0;
    }
    return header->height() + model->rowCount() * table->rowHeight(0) + 2 * table->frameWidth();
}

} // namespace rviz_plugin
