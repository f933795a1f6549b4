#ifndef RVIZ_PLUGIN_POINT_WIDGET_H
#define RVIZ_PLUGIN_POINT_WIDGET_H

#include <QWidget>

class QLabel;
class QLineEdit;
class QToolButton;

namespace rviz_plugin {

// One way point of a route: its name "W<row + 1>", the coordinate box, and the add and delete buttons
// shown while the mouse is over the row.
class PointWidget : public QWidget {
    Q_OBJECT
public:
    explicit PointWidget(QWidget* parent = nullptr);

    void SetName(int row);
    QLineEdit* GetLineEdit() const { return lineEdit; }
    void SetAddEnabled(bool enabled);
    void SetEditable(bool editable);
    bool eventFilter(QObject* object, QEvent* event) override;

Q_SIGNALS:
    void FocusIn(PointWidget* widget);
    void EditingFinished(PointWidget* widget);
    void AddClicked(PointWidget* widget);
    void DeleteClicked(PointWidget* widget);

protected:
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void SetButtonsVisible(bool visible);

    QLabel* nameLabel = nullptr;
    QLineEdit* lineEdit = nullptr;
    QToolButton* addButton = nullptr;
    QToolButton* deleteButton = nullptr;
    bool editable = true;
};

} // namespace rviz_plugin

#endif
