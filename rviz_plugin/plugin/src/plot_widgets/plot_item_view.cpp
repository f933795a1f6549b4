#include "plot_item_view.h"

#include "plot_item.h"

#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

namespace rviz_plugin {

PlotItemView::PlotItemView(QWidget* parent) : QWidget(parent)
{
    setObjectName("comboBoxView");
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet("QWidget#comboBoxView {background:#FFFFFF; border:1px solid #D9D9D9; border-radius:4px;}");
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    scrollArea = new QScrollArea(this);
    scrollArea->setObjectName("scrollArea");
    scrollArea->setWidgetResizable(true);
    scrollArea->setFrameShape(QFrame::NoFrame);
    content = new QWidget(scrollArea);
    contentLayout = new QVBoxLayout(content);
    contentLayout->setContentsMargins(0, 0, 0, 0);
    contentLayout->setSpacing(0);
    noMatch = new PlotItem(-1, "No matching field.", content);
    noMatch->SetDisabled(true);
    contentLayout->addWidget(noMatch);
    contentLayout->addStretch();
    scrollArea->setWidget(content);
    layout->addWidget(scrollArea);
    UpdateHeight(0);
}

void PlotItemView::SetItems(const QStringList& texts)
{
    if (texts == items) {
        return;
    }
    items = texts;
    qDeleteAll(rows);
    rows.clear();
    for (int i = 0; i < items.size(); ++i) {
        auto* row = new PlotItem(i, items[i], content);
        connect(row, &PlotItem::SignalItemClicked, this, &PlotItemView::SignalItemClicked);
        contentLayout->insertWidget(i, row);
        rows.push_back(row);
    }
    SlotLineEditTextChanged(filter);
}

void PlotItemView::SetMaxVisibleItems(int count)
{
    maxVisibleItems = count;
    SlotLineEditTextChanged(filter);
}

QStringList PlotItemView::GetVisibleTitles() const
{
    QStringList titles;
    for (const PlotItem* row : rows) {
        if (!row->isHidden()) {
            titles.append(row->GetTitle());
        }
    }
    if (!noMatch->isHidden()) {
        titles.append(noMatch->GetTitle());
    }
    return titles;
}

void PlotItemView::SlotLineEditTextChanged(const QString& text)
{
    filter = text;
    int shown = 0;
    for (PlotItem* row : rows) {
        const bool match = text.isEmpty() || row->GetTitle().contains(text, Qt::CaseInsensitive);
        row->setHidden(!match);
        shown += match ? 1 : 0;
    }
    noMatch->setHidden(shown != 0);
    UpdateHeight(shown);
}

void PlotItemView::UpdateHeight(int shown)
{
    const int visible = std::max(1, std::min(shown, maxVisibleItems));
    setFixedHeight(visible * PlotItem::height + 4);
}

} // namespace rviz_plugin
