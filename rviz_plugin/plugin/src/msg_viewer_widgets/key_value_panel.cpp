#include "key_value_panel.h"

#include "key_value_grid.h"
#include "msg_viewer_panel/msg_record.h"
#include "status_bar_view.h"

#include <QVBoxLayout>

namespace rviz_plugin {

KeyValuePanel::KeyValuePanel(MsgRecord& record, QWidget* parent) : QWidget(parent), record(record) {}

void KeyValuePanel::InitKeyValuePanel()
{
    setObjectName("keyValuePanel");
    setAttribute(Qt::WA_StyledBackground);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
}

void KeyValuePanel::UpdateKeyValuePanel(const std::string& name)
{
    topic = name;
    statusBar = new StatusBarView(record, this);
    statusBar->UpdateStatusBar(topic);
    grid = new KeyValueGrid(record, topic, this);
    grid->InitKeyValueGrid();
    layout()->addWidget(statusBar);
    layout()->addWidget(grid);
    connect(grid, &KeyValueGrid::SendUpdateKeyValue, statusBar, &StatusBarView::UpdateKeyValueState);
    connect(grid, &KeyValueGrid::SignalConfigChanged, this, &KeyValuePanel::SignalConfigChanged);
    connect(statusBar, &StatusBarView::SignalConfigChanged, this, &KeyValuePanel::SignalConfigChanged);
    connect(&record.GetSubscriber(), &MsgSubscriber::SignalErrorCatched, statusBar, &StatusBarView::SlotErrorCatched);
    statusBar->StartCountFrequency();
}

void KeyValuePanel::StartTimer(bool start)
{
    statusBar->StartTimer(start);
    grid->StartTimer(start);
}

void KeyValuePanel::AdjustLayout(int columns)
{
    grid->AdjustLayout(columns);
}

void KeyValuePanel::SetBackgroundColor(const QString& color)
{
    setStyleSheet(QString("QWidget#keyValuePanel{background-color:%1;border:none solid white;border-radius:4px;}")
                      .arg(color == "white" ? "#FFFFFF" : color));
    statusBar->SetStyleSheet(color);
    grid->SetBackgroundColor(color);
}

void KeyValuePanel::SetAlignment(Qt::Alignment alignment)
{
    grid->SetAlignment(alignment);
}

int KeyValuePanel::GetHeight() const
{
    return sizeHint().height();
}

} // namespace rviz_plugin
