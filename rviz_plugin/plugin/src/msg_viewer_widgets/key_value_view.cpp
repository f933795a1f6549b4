#include "key_value_view.h"

#include "key_value_grid.h"
#include "key_value_panel.h"
#include "msg_viewer_panel/msg_record.h"
#include "status_bar_view.h"

#include <QApplication>
#include <QDrag>
#include <QDragMoveEvent>
#include <QFrame>
#include <QMimeData>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace rviz_plugin {

namespace {
const char* const panelMime = "INFO";
}

bool KeyValueView::viewDrag = false;

KeyValueView::KeyValueView(MsgRecord& record, QWidget* parent) : QWidget(parent), record(record) {}

void KeyValueView::InitKeyValueView()
{
    layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addStretch(1);
    setAcceptDrops(true);
}

void KeyValueView::ClearPanels()
{
    for (KeyValuePanel* panel : panels) {
        layout->removeWidget(panel);
        panel->deleteLater();
    }
    panels.clear();
}

void KeyValueView::UpdateKeyValueView()
{
    ClearPanels();
    for (const auto& [topic, fields] : record.GetTopicFields()) {
        auto* panel = new KeyValuePanel(record, this);
        panel->InitKeyValuePanel();
        panel->UpdateKeyValuePanel(topic);
        panel->GetStatusBarView()->installEventFilter(this);
        connect(panel, &KeyValuePanel::SignalConfigChanged, this, &KeyValueView::SignalConfigChanged);
        layout->insertWidget(panels.size(), panel);
        panels.push_back(panel);
    }
    SetKeyValueViewBackgroundColor(backgroundColor);
    SetKeyValueViewAlignment(alignment);
}

void KeyValueView::StartTimer(bool start)
{
    for (KeyValuePanel* panel : panels) {
        panel->StartTimer(start);
    }
}

void KeyValueView::AdjustLayout(int columns)
{
    for (KeyValuePanel* panel : panels) {
        panel->AdjustLayout(columns);
    }
}

void KeyValueView::SetKeyValueViewBackgroundColor(const QString& color)
{
    backgroundColor = color;
    for (KeyValuePanel* panel : panels) {
        panel->SetBackgroundColor(color);
    }
}

void KeyValueView::SetKeyValueViewAlignment(Qt::Alignment value)
{
    alignment = value;
    for (KeyValuePanel* panel : panels) {
        panel->SetAlignment(value);
    }
}

int KeyValueView::CalculateFrameHeight(int count) const
{
    int height = (count - 1) * layout->spacing() + layout->contentsMargins().top() + layout->contentsMargins().bottom();
    for (int index = 0; index < count && index < panels.size(); ++index) {
        height += panels[index]->GetHeight();
    }
    return height;
}

int KeyValueView::GetHeight() const
{
    return panels.isEmpty() ? 0 : CalculateFrameHeight(panels.size());
}

void KeyValueView::MovePanel(int from, int to)
{
    if (from < 0 || from >= panels.size() || to < 0 || to >= panels.size() || from == to) {
        return;
    }
    KeyValuePanel* panel = panels.takeAt(from);
    panels.insert(to, panel);
    layout->removeWidget(panel);
    layout->insertWidget(to, panel);
    Q_EMIT SignalConfigChanged();
}

bool KeyValueView::eventFilter(QObject* watched, QEvent* event)
{
    auto* bar = qobject_cast<StatusBarView*>(watched);
    if (bar == nullptr || KeyValueGrid::gridDrag) {
        return QWidget::eventFilter(watched, event);
    }
    if (event->type() == QEvent::MouseButtonPress) {
        pressPoint = static_cast<QMouseEvent*>(event)->globalPos();
        dragPanel = qobject_cast<KeyValuePanel*>(bar->parentWidget());
    } else if (event->type() == QEvent::MouseMove && dragPanel != nullptr &&
               (static_cast<QMouseEvent*>(event)->buttons() & Qt::LeftButton) &&
               (static_cast<QMouseEvent*>(event)->globalPos() - pressPoint).manhattanLength() >=
                   QApplication::startDragDistance()) {
        DoDrag(dragPanel);
        dragPanel = nullptr;
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void KeyValueView::DoDrag(KeyValuePanel* panel)
{
    viewDrag = true;
    oldPosition = panels.indexOf(panel);
    targetPosition = oldPosition;
    dragFrame = new QFrame(this);
    dragFrame->setFixedHeight(panel->height());
    dragFrame->setStyleSheet("background-color:#FFCFB3; border: 1px solid #EF7748;");
    const QPixmap pixmap = panel->grab();
    layout->replaceWidget(panel, dragFrame);
    panel->hide();
    auto* drag = new QDrag(this);
    auto* mime = new QMimeData();
    mime->setData(panelMime, QByteArray::number(oldPosition));
    drag->setMimeData(mime);
    drag->setPixmap(pixmap);
    drag->exec(Qt::MoveAction);
    // Put back at the frame's place, whether dropped or not.
    const int at = layout->indexOf(dragFrame);
    layout->removeWidget(dragFrame);
    delete dragFrame;
    dragFrame = nullptr;
    layout->insertWidget(at, panel);
    panel->show();
    panels.removeAll(panel);
    panels.insert(std::min(at, static_cast<int>(panels.size())), panel);
    if (at != oldPosition) {
        Q_EMIT SignalConfigChanged();
    }
    viewDrag = false;
}

int KeyValueView::TargetPosition(int y) const
{
    int position = 0;
    for (int index = 0; index < layout->count(); ++index) {
        QWidget* widget = layout->itemAt(index)->widget();
        if (widget == nullptr || widget == dragFrame) {
            continue;
        }
        if (y > widget->geometry().center().y()) {
            position = index + 1;
        }
    }
    return position;
}

void KeyValueView::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasFormat(panelMime) && event->source() == this) {
        event->acceptProposedAction();
    }
}

void KeyValueView::dragMoveEvent(QDragMoveEvent* event)
{
    if (dragFrame == nullptr) {
        return;
    }
    const int from = layout->indexOf(dragFrame);
    int to = TargetPosition(event->pos().y());
    to = to > from ? to - 1 : to;
    if (to != from && to >= 0 && to < panels.size()) {
        layout->removeWidget(dragFrame);
        layout->insertWidget(to, dragFrame);
    }
    targetPosition = to;
    event->acceptProposedAction();
}

void KeyValueView::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
}

} // namespace rviz_plugin
