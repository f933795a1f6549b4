#include "table_header_view.h"

#include "edit_label.h"
#include "msg_view_models/table_model.h"
#include "msg_view_models/view_text.h"
#include "msg_viewer_panel/msg_record.h"

namespace rviz_plugin {

TableHeaderView::TableHeaderView(MsgRecord& record, TableModel& model, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), record(record), model(model)
{
    setSectionsClickable(false);
    setDefaultSectionSize(120);
    setMinimumSectionSize(60);
    setFixedHeight(30);
    connect(&model, &TableModel::SignalColorTitlesChanged, this, &TableHeaderView::OnColorTitlesChanged);
    connect(&model, &QAbstractItemModel::modelReset, this, &TableHeaderView::SyncLabels);
}

void TableHeaderView::UpdateHeader(const QString& displayTopic)
{
    topic = displayTopic;
    SyncLabels();
}

QString TableHeaderView::FieldOfTitle(const QString& title) const
{
    const bool color = !ColorGroup(model.GetTitleType(title)).isEmpty();
    return topic + title + (color ? "/r" : "");
}

QString TableHeaderView::GetHeaderName(int column) const
{
    return column >= 0 && column < editLabels.size() ? editLabels[column]->GetDisplayText() : QString();
}

void TableHeaderView::OnColorTitlesChanged(const QVector<QString>& /*titles*/, const QMap<QString, QString>& /*colorMap*/)
{
    SyncLabels();
}

void TableHeaderView::SyncLabels()
{
    const QVector<QString> titles = model.GetVisibleTitles();
    if (titles == shownTitles && editLabels.size() == titles.size()) {
        return;
    }
    shownTitles = titles;
    // A label may be the sender of what brought us here: it goes once its signal has returned.
    for (EditLabel* label : editLabels) {
        label->hide();
        label->deleteLater();
    }
    editLabels.clear();
    const int status = model.GetOperateStatus();
    const bool blankShown = status == TableModel::BlankAscending || status == TableModel::BlankDescending;
    for (int column = 0; column < titles.size(); ++column) {
        auto* label = new EditLabel(true, viewport());
        const QString field = FieldOfTitle(titles[column]);
        label->SetIndex(column);
        label->SetOriginalKey(topic + titles[column]);
        const std::string nick = record.GetFieldsNickName(topic.toStdString(), field.toStdString());
        label->SetDisplayText(nick == field.toStdString() ? titles[column] : QString::fromStdString(nick));
        label->InitMenuType(model.GetTitleType(titles[column]));
        label->SetStyleSheet(backgroundColor);
        const bool operated = model.LogicalColumn(column) == model.GetOperatedColumn();
        if (blankShown) {
            label->SetSortEnabled(false);
            if (operated) {
                label->SetBlankEnabled(true);
                blankColumn = column;
            }
        } else if (operated && status != TableModel::NoOperation) {
            label->SetBlankEnabled(true);
        }
        connect(label, &EditLabel::TextEdited, this, &TableHeaderView::UpdateNickName);
        connect(label, &EditLabel::DeleteClicked, this, &TableHeaderView::DeleteEditHeader);
        connect(label, &EditLabel::BlankToggled, this,
                [this](int index, bool show, bool ascending) { OnBlankDataIsVisibleSeted(index, show, ascending); });
        connect(label, &EditLabel::SortClicked, this, &TableHeaderView::OnColumnDataSorted);
        connect(label, &EditLabel::ConvertClicked, this, &TableHeaderView::ConvertConstants);
        editLabels.push_back(label);
    }
    viewport()->update();
}

void TableHeaderView::UpdateNickName(int column, const QString& name)
{
    if (column < 0 || column >= shownTitles.size()) {
        return;
    }
    record.UpdateFieldsNickName(topic.toStdString(), FieldOfTitle(shownTitles[column]).toStdString(),
                                name.toStdString());
    Q_EMIT SignalConfigChanged();
}

void TableHeaderView::DeleteEditHeader(int column)
{
    if (column < 0 || column >= editLabels.size()) {
        return;
    }
    editLabels[column]->hide();
    if (blankColumn >= 0) {
        for (EditLabel* label : editLabels) {
            label->SetSortEnabled(true);
        }
        blankColumn = -1;
    }
    Q_EMIT DeleteHeader(column);
}

void TableHeaderView::OnBlankDataIsVisibleSeted(int column, bool show, bool ascending)
{
    blankColumn = show ? column : -1;
    for (EditLabel* label : editLabels) {
        label->SetSortEnabled(!show);
    }
    Q_EMIT SetBlankDataIsVisible(show, column, ascending);
}

void TableHeaderView::OnColumnDataSorted(int column, bool ascending)
{
    for (EditLabel* label : editLabels) {
        label->SetBlankEnabled(label->GetIndex() == column);
        if (label->GetIndex() != column) {
            label->ResetBlank();
        }
    }
    Q_EMIT SortColumnData(column, ascending);
}

void TableHeaderView::SetBackgroundColor(const QString& color)
{
    backgroundColor = color;
    for (EditLabel* label : editLabels) {
        label->SetStyleSheet(color);
    }
}

void TableHeaderView::paintSection(QPainter* /*painter*/, const QRect& rect, int logicalIndex) const
{
    if (logicalIndex < 0 || logicalIndex >= editLabels.size()) {
        return;
    }
    EditLabel* label = editLabels[logicalIndex];
    if (label->geometry() != rect) {
        label->setGeometry(rect);
    }
    if (!label->isVisible()) {
        label->show();
    }
}

} // namespace rviz_plugin
