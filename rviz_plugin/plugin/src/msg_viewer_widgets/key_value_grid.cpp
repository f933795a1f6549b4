#include "key_value_grid.h"

#include "edit_label.h"
#include "key_value_item.h"
#include "msg_view_models/view_text.h"
#include "msg_viewer_panel/msg_record.h"

#include <QApplication>
#include <QDrag>
#include <QDragMoveEvent>
#include <QGridLayout>
#include <QLabel>
#include <QMimeData>

namespace rviz_plugin {

namespace {
const char* const gridMime = "INFOGRID";
} // namespace

bool KeyValueGrid::gridDrag = false;

KeyValueGrid::KeyValueGrid(MsgRecord& record, const std::string& topic, QWidget* parent)
    : QWidget(parent), record(record), topic(topic), marker(new QLabel(this))
{
    updateTimer.setInterval(100);
}

QString KeyValueGrid::GetTypes(const QString& title) const
{
    const auto types = record.GetFieldsTypes(topic);
    const auto found = types.find(title.toStdString());
    return found == types.end() ? QString() : QString::fromStdString(found->second);
}

bool KeyValueGrid::ConvertColorItems()
{
    titles.clear();
    const auto types = record.GetFieldsTypes(topic);
    const auto& topics = record.GetTopicFields();
    const auto selected = topics.find(topic);
    if (selected == topics.end()) {
        return false;
    }
    QVector<QString> colorFields;
    for (const std::string& field : selected->second) {
        titles.push_back(QString::fromStdString(field));
        const auto type = types.find(field);
        if (type != types.end() && type->second.find("color") != std::string::npos) {
            colorFields.push_back(titles.back());
        }
    }
    colorMap = ComposeColorMap(colorFields);
    for (auto group = colorMap.begin(); group != colorMap.end(); ++group) {
        int lowest = titles.size();
        for (const QString& field : group.value()) {
            lowest = std::min(lowest, static_cast<int>(titles.indexOf(field)));
        }
        titles[lowest] = ColorKey(group.key());
        for (const QString& field : group.value()) {
            titles.removeAll(field);
        }
    }
    isConverted = !titles.isEmpty();
    return isConverted;
}

void KeyValueGrid::InsertKeyValueItem()
{
    if (!ConvertColorItems()) {
        return;
    }
    for (int index = 0; index < titles.size(); ++index) {
        auto* item = new KeyValueItem(record, topic, this);
        const QString group = ColorGroup(titles[index]);
        const QString field = group.isEmpty() ? titles[index] : group + "/r";
        const std::string nick = record.GetFieldsNickName(topic, field.toStdString());
        item->SetOriginalKey(titles[index]);
        item->SetKeyText(nick == field.toStdString() ? LastComponent(group.isEmpty() ? titles[index] : group)
                                                     : QString::fromStdString(nick));
        item->SetKeyIndex(index);
        const QString type = GetTypes(field);
        item->SetIsNeedConvertConstants(type.contains("int") || type.contains("long") || type.contains("time"));
        connect(item, &KeyValueItem::SignalConfigChanged, this, &KeyValueGrid::SignalConfigChanged);
        connect(item->GetKeyLabel(), &EditLabel::TextEdited, this, [this, item, field](int, const QString& text) {
            record.UpdateFieldsNickName(topic, field.toStdString(), text.toStdString());
            item->SetKeyText(text);
            Q_EMIT SignalConfigChanged();
        });
        items.push_back(item);
    }
    PlaceItems();
}

void KeyValueGrid::PlaceItems()
{
    delete gridLayout;
    gridLayout = new QGridLayout(this);
    gridLayout->setVerticalSpacing(4);
    gridLayout->setContentsMargins(8, 8, 8, 8);
    rowCount = items.size() / columnCount + (items.size() % columnCount != 0 ? 1 : 0);
    for (int index = 0; index < items.size(); ++index) {
        gridLayout->addWidget(items[index], index / columnCount, index % columnCount);
    }
    for (int column = 0; column < columnCount; ++column) {
        gridLayout->setColumnStretch(column, 1);
    }
    gridLayout->setRowStretch(rowCount, 1);
}

void KeyValueGrid::InitKeyValueGrid()
{
    InsertKeyValueItem();
    setAcceptDrops(true);
    marker->setFixedWidth(2);
    marker->setStyleSheet("border: 1px solid #EF7748;");
    marker->hide();
    connect(&updateTimer, &QTimer::timeout, this, &KeyValueGrid::UpdateData);
    updateTimer.start();
}

void KeyValueGrid::StartTimer(bool start)
{
    if (start) {
        updateTimer.start();
    } else {
        updateTimer.stop();
    }
}

void KeyValueGrid::AdjustLayout(int columns)
{
    if (columns <= 0 || columns == columnCount) {
        return;
    }
    columnCount = columns;
    for (KeyValueItem* item : items) {
        gridLayout->removeWidget(item);
    }
    PlaceItems();
}

void KeyValueGrid::UpdateData()
{
    const auto& all = record.GetSubscriber().GetHandler().GetData().GeKeyValueData();
    const auto pairs = all.find(topic);
    if (pairs == all.end() || pairs->second.empty()) {
        return;
    }
    QMap<QString, QString> values;
    for (const auto& [field, value] : pairs->second) {
        values[QString::fromStdString(field)] = QString::fromStdString(value);
    }
    const auto value = [&values](const QString& field) {
        return values.value(QString::fromStdString(MsgDataHandler::ParsePropertiesName(field.toStdString())));
    };
    for (int index = 0; index < items.size() && index < titles.size(); ++index) {
        const QString& title = titles[index];
        const QString group = ColorGroup(title);
        if (!group.isEmpty()) {
            QMap<QString, QString> channels;
            for (const QString& field : colorMap.value(group)) {
                channels[LastComponent(field)] = value(field);
            }
            if (!channels.value("r").isEmpty() || !channels.value("g").isEmpty() || !channels.value("b").isEmpty() ||
                !channels.value("a").isEmpty()) {
                items[index]->SetValueColor(
                    ColorFromTexts(channels.value("r"), channels.value("g"), channels.value("b"), channels.value("a")));
            }
            continue;
        }
        const QString shortName = QString::fromStdString(MsgDataHandler::ParsePropertiesName(title.toStdString()));
        if (values.contains(shortName)) {
            items[index]->SetValueText(values[shortName].toStdString());
        }
    }
    Q_EMIT SendUpdateKeyValue(items);
}

QVector<KeyValueItem*> KeyValueGrid::OrderedItems() const
{
    QVector<QPair<QPair<int, int>, KeyValueItem*>> placed;
    for (KeyValueItem* item : items) {
        int row = 0;
        int column = 0;
        int rowSpan = 0;
        int columnSpan = 0;
        gridLayout->getItemPosition(gridLayout->indexOf(item), &row, &column, &rowSpan, &columnSpan);
        placed.push_back({{row, column}, item});
    }
    std::sort(placed.begin(), placed.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    QVector<KeyValueItem*> ordered;
    for (const auto& entry : placed) {
        ordered.push_back(entry.second);
    }
    return ordered;
}

void KeyValueGrid::SetBackgroundColor(const QString& color)
{
    backgroundColor = color;
    for (KeyValueItem* item : items) {
        item->SetBackgroundColor(color);
    }
}

void KeyValueGrid::SetAlignment(Qt::Alignment alignment)
{
    for (KeyValueItem* item : items) {
        item->SetAlignment(alignment);
    }
}

void KeyValueGrid::MoveItems(int from, int to)
{
    if (from < 0 || from >= items.size() || to < 0 || to > items.size() || from == to) {
        return;
    }
    KeyValueItem* item = items.takeAt(from);
    const QString title = titles.takeAt(from);
    const int target = std::min(from < to ? to - 1 : to, static_cast<int>(items.size()));
    items.insert(target, item);
    titles.insert(target, title);
    for (int index = 0; index < items.size(); ++index) {
        gridLayout->removeWidget(items[index]);
        items[index]->SetKeyIndex(index);
    }
    PlaceItems();
    Q_EMIT SignalConfigChanged();
}

int KeyValueGrid::ItemIndexAt(const QPoint& pos) const
{
    for (int index = 0; index < items.size(); ++index) {
        if (items[index]->geometry().contains(pos)) {
            return index;
        }
    }
    return -1;
}

void KeyValueGrid::mousePressEvent(QMouseEvent* event)
{
    dragSource = -1;
    if (event->button() == Qt::LeftButton) {
        dragSource = ItemIndexAt(event->pos());
        pressPoint = event->pos();
    }
    QWidget::mousePressEvent(event);
}

void KeyValueGrid::mouseMoveEvent(QMouseEvent* event)
{
    if (dragSource < 0 || !(event->buttons() & Qt::LeftButton) ||
        (event->pos() - pressPoint).manhattanLength() < QApplication::startDragDistance()) {
        QWidget::mouseMoveEvent(event);
        return;
    }
    gridDrag = true;
    auto* drag = new QDrag(this);
    auto* mime = new QMimeData();
    mime->setData(gridMime, QByteArray::number(dragSource));
    drag->setMimeData(mime);
    drag->setPixmap(items[dragSource]->grab());
    drag->exec(Qt::MoveAction);
    gridDrag = false;
    dragSource = -1;
    ClearDragMarks();
}

void KeyValueGrid::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasFormat(gridMime) && event->source() == this) {
        event->acceptProposedAction();
    }
}

void KeyValueGrid::dragMoveEvent(QDragMoveEvent* event)
{
    const int index = ItemIndexAt(event->pos());
    ClearDragMarks();
    if (index >= 0) {
        const QRect rect = items[index]->geometry();
        const bool right = event->pos().x() > rect.center().x();
        dragTarget = right ? index + 1 : index;
        marker->setGeometry(right ? rect.right() : rect.left() - 2, rect.top(), 2, rect.height());
        marker->show();
        marker->raise();
        items[index]->SetHighlighted(true);
    }
    event->acceptProposedAction();
}

void KeyValueGrid::dragLeaveEvent(QDragLeaveEvent* event)
{
    ClearDragMarks();
    QWidget::dragLeaveEvent(event);
}

void KeyValueGrid::dropEvent(QDropEvent* event)
{
    ClearDragMarks();
    const int from = event->mimeData()->data(gridMime).toInt();
    if (dragTarget >= 0) {
        MoveItems(from, dragTarget);
    }
    gridDrag = false;
    event->acceptProposedAction();
}

void KeyValueGrid::ClearDragMarks()
{
    marker->hide();
    for (KeyValueItem* item : items) {
        item->SetHighlighted(false);
    }
}

} // namespace rviz_plugin
