#ifndef RVIZ_PLUGIN_BUILD_IN_TABLE_VIEW_H
#define RVIZ_PLUGIN_BUILD_IN_TABLE_VIEW_H

#include <QPoint>
#include <QTableView>

class QFrame;

namespace rviz_plugin {

// The table itself; a column is dragged by any of its cells and dropped on another column, or beyond
// the right edge to become the last.
class BuildInTableView : public QTableView {
    Q_OBJECT
public:
    explicit BuildInTableView(QWidget* parent = nullptr);

    // Moves a column as a drop would.
    void MoveColumn(int from, int to, bool toLast);

Q_SIGNALS:
    void ColumnMoved(int from, int to, bool toLast);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void DoDrag();
    QPixmap SetDragPixmap(int column) const;
    void ShowFrame(int column);

    int dragSource = -1;
    int dragTarget = -1;
    QPoint pressPoint;
    bool armed = false;
    QFrame* frame;
};

} // namespace rviz_plugin

#endif
