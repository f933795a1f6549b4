#ifndef RVIZ_PLUGIN_KEY_VALUE_VIEW_H
#define RVIZ_PLUGIN_KEY_VALUE_VIEW_H

#include <QList>
#include <QPoint>
#include <QWidget>

class QFrame;
class QVBoxLayout;

namespace rviz_plugin {

class KeyValuePanel;
class MsgRecord;

// A key-value panel's content: one inner panel per topic, stacked; an inner panel is dragged by its
// status bar to another place.
class KeyValueView : public QWidget {
    Q_OBJECT
public:
    KeyValueView(MsgRecord& record, QWidget* parent = nullptr);

    void InitKeyValueView();
    void UpdateKeyValueView();
    void ClearPanels();
    void StartTimer(bool start);
    void AdjustLayout(int columns);
    void SetKeyValueViewBackgroundColor(const QString& color);
    void SetKeyValueViewAlignment(Qt::Alignment alignment);
    const QList<KeyValuePanel*>& GetKeyValuePanels() const { return panels; }
    int GetHeight() const;
    int CalculateFrameHeight(int count) const;
    // Moves the panel at from to the place to, as a drop does.
    void MovePanel(int from, int to);

    static bool viewDrag;

Q_SIGNALS:
    void SignalConfigChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void DoDrag(KeyValuePanel* panel);
    int TargetPosition(int y) const;

    MsgRecord& record;
    QVBoxLayout* layout = nullptr;
    QList<KeyValuePanel*> panels;
    KeyValuePanel* dragPanel = nullptr;
    QFrame* dragFrame = nullptr;
    QPoint pressPoint;
    int oldPosition = -1;
    int targetPosition = 0;
    QString backgroundColor = "white";
    Qt::Alignment alignment = Qt::AlignLeft;
};

} // namespace rviz_plugin

#endif
