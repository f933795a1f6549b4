#ifndef RVIZ_PLUGIN_PLOT_ITEM_VIEW_H
#define RVIZ_PLUGIN_PLOT_ITEM_VIEW_H

#include <QStringList>
#include <QVector>
#include <QWidget>

class QScrollArea;
class QVBoxLayout;

namespace rviz_plugin {

class PlotItem;

// The list under an edit: every entry, or those that contain the typed text.
class PlotItemView : public QWidget {
    Q_OBJECT
public:
    explicit PlotItemView(QWidget* parent = nullptr);

    void SetItems(const QStringList& texts);
    void SetMaxVisibleItems(int count);
    // The titles of the rows shown (the disabled "No matching field." row included).
    QStringList GetVisibleTitles() const;

Q_SIGNALS:
    void SignalItemClicked(int index, const QString& text);

public Q_SLOTS:
    void SlotLineEditTextChanged(const QString& text);

private:
    void UpdateHeight(int shown);

    QStringList items;
    QString filter;
    PlotItem* noMatch = nullptr;
    int maxVisibleItems = 10;
    QScrollArea* scrollArea = nullptr;
    QWidget* content = nullptr;
    QVBoxLayout* contentLayout = nullptr;
    QVector<PlotItem*> rows;
};

} // namespace rviz_plugin

#endif
