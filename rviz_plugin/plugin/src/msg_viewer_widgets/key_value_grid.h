#ifndef RVIZ_PLUGIN_KEY_VALUE_GRID_H
#define RVIZ_PLUGIN_KEY_VALUE_GRID_H

#include <QMap>
#include <QPoint>
#include <QTimer>
#include <QVector>
#include <QWidget>

#include <string>

class QGridLayout;
class QLabel;

namespace rviz_plugin {

class KeyValueItem;
class MsgRecord;

// The cells of one topic's fields, row by row; cells are made once, their texts change every 100 ms.
// A cell can be dragged to another place of the grid.
class KeyValueGrid : public QWidget {
    Q_OBJECT
public:
    KeyValueGrid(MsgRecord& record, const std::string& topic, QWidget* parent = nullptr);

    void InitKeyValueGrid();
    void UpdateData();
    void StartTimer(bool start);
    void AdjustLayout(int columns);
    int GetColumnCount() const { return columnCount; }
    int GetRowCount() const { return rowCount; }
    const QVector<QString>& GetFields() const { return titles; }
    QString GetTypes(const QString& title) const;
    const QVector<KeyValueItem*>& GetKeyValueItems() const { return items; }
    // The items as the grid places them, row by row.
    QVector<KeyValueItem*> OrderedItems() const;
    void SetBackgroundColor(const QString& color);
    void SetAlignment(Qt::Alignment alignment);
    void MoveItems(int from, int to);

    static bool gridDrag;

Q_SIGNALS:
    void SignalConfigChanged();
    void SendUpdateKeyValue(QVector<KeyValueItem*>& items);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    bool ConvertColorItems();
    void InsertKeyValueItem();
    void PlaceItems();
    int ItemIndexAt(const QPoint& pos) const;
    void ClearDragMarks();

    MsgRecord& record;
    std::string topic;
    QVector<KeyValueItem*> items;
    int columnCount = 4;
    int rowCount = 0;
    bool isConverted = false;
    QGridLayout* gridLayout = nullptr;
    QVector<QString> titles;
    QMap<QString, QVector<QString>> colorMap;
    QTimer updateTimer;
    int dragSource = -1;
    int dragTarget = -1;
    QPoint pressPoint;
    QLabel* marker;
    QString backgroundColor = "white";
};

} // namespace rviz_plugin

#endif
