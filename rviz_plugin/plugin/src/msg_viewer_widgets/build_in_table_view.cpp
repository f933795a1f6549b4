#include "build_in_table_view.h"

#include <QApplication>
#include <QDrag>
#include <QDragMoveEvent>
#include <QFrame>
#include <QHeaderView>
#include <QMimeData>
#include <QPainter>

namespace rviz_plugin {

namespace {
const char* const columnMime = "text/plain";
}

BuildInTableView::BuildInTableView(QWidget* parent) : QTableView(parent), frame(new QFrame(viewport()))
{
    setAcceptDrops(true);
    setMouseTracking(true);
    setSelectionBehavior(QAbstractItemView::SelectColumns);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(26);
    frame->setStyleSheet("border: 1px solid #EF7748;");
    frame->setAttribute(Qt::WA_TransparentForMouseEvents);
    frame->hide();
}

void BuildInTableView::MoveColumn(int from, int to, bool toLast)
{
    if (from >= 0 && (from != to || toLast)) {
        Q_EMIT ColumnMoved(from, to, toLast);
    }
}

void BuildInTableView::mousePressEvent(QMouseEvent* event)
{
    QTableView::mousePressEvent(event);
    const QModelIndex index = indexAt(event->pos());
    armed = event->button() == Qt::LeftButton && index.isValid();
    if (armed) {
        dragSource = index.column();
        pressPoint = event->pos();
        selectColumn(dragSource);
        ShowFrame(dragSource);
    }
}

void BuildInTableView::mouseMoveEvent(QMouseEvent* event)
{
    if (armed && (event->buttons() & Qt::LeftButton) &&
        (event->pos() - pressPoint).manhattanLength() >= QApplication::startDragDistance()) {
        armed = false;
        DoDrag();
        return;
    }
    QTableView::mouseMoveEvent(event);
}

void BuildInTableView::mouseReleaseEvent(QMouseEvent* event)
{
    armed = false;
    frame->hide();
    QTableView::mouseReleaseEvent(event);
}

QPixmap BuildInTableView::SetDragPixmap(int column) const
{
    const int x = columnViewportPosition(column);
    const int width = columnWidth(column);
    const int height = std::min(viewport()->height(), rowHeight(0) * std::min(model()->rowCount(), 6) + 1);
    QPixmap pixmap(width, height + horizontalHeader()->height());
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    painter.drawPixmap(0, 0, horizontalHeader()->viewport()->grab(QRect(x, 0, width, horizontalHeader()->height())));
    painter.drawPixmap(0, horizontalHeader()->height(), viewport()->grab(QRect(x, 0, width, height)));
    painter.setPen(QColor("#EF7748"));
    painter.drawRect(pixmap.rect().adjusted(0, 0, -1, -1));
    return pixmap;
}

void BuildInTableView::DoDrag()
{
    auto* drag = new QDrag(this);
    auto* mime = new QMimeData();
    mime->setData(columnMime, QByteArray::number(dragSource));
    drag->setMimeData(mime);
    drag->setPixmap(SetDragPixmap(dragSource));
    drag->exec(Qt::MoveAction);
    frame->hide();
}

void BuildInTableView::ShowFrame(int column)
{
    frame->setGeometry(columnViewportPosition(column), 0, columnWidth(column), viewport()->height());
    frame->show();
    frame->raise();
}

void BuildInTableView::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->source() == this) {
        event->acceptProposedAction();
    }
}

void BuildInTableView::dragMoveEvent(QDragMoveEvent* event)
{
    if (event->source() != this) {
        return;
    }
    dragTarget = columnAt(event->pos().x());
    if (dragTarget >= 0) {
        ShowFrame(dragTarget);
    }
    event->acceptProposedAction();
}

void BuildInTableView::dragLeaveEvent(QDragLeaveEvent* event)
{
    // Leaving to the right makes the dragged column the last.
    const QPoint cursor = viewport()->mapFromGlobal(QCursor::pos());
    if (dragSource >= 0 && cursor.x() >= viewport()->width()) {
        MoveColumn(dragSource, model()->columnCount(), true);
        dragSource = -1;
    }
    frame->hide();
    QTableView::dragLeaveEvent(event);
}

void BuildInTableView::dropEvent(QDropEvent* event)
{
    frame->hide();
    if (event->source() != this) {
        return;
    }
    const int target = columnAt(event->pos().x());
    const int from = event->mimeData()->data(columnMime).toInt();
    MoveColumn(from, target < 0 ? model()->columnCount() : target, target < 0);
    dragSource = -1;
    event->acceptProposedAction();
}

} // namespace rviz_plugin
