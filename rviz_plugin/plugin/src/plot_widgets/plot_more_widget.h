#ifndef RVIZ_PLUGIN_PLOT_MORE_WIDGET_H
#define RVIZ_PLUGIN_PLOT_MORE_WIDGET_H

#include <QWidget>

class QPushButton;

namespace rviz_plugin {

// The "more" menu of a plot: split, maximise or restore, remove.
class PlotMoreWidget : public QWidget {
    Q_OBJECT
public:
    static constexpr int menuWidth = 172;
    static constexpr int itemHeight = 24;
    explicit PlotMoreWidget(QWidget* parent = nullptr);

    void SetMaximize(bool maximize);
    bool IsMaximize() const { return isMaximize; }
    void SetSplitItemDisabled(bool disabled);
    void SetRemoveItemDisabled(bool disabled);
    QPushButton* GetItem(const QString& text) const;

Q_SIGNALS:
    void SignalSplit(Qt::Orientation orientation);
    void SignalMaximize(bool maximize);
    void SignalRemovePlot();

private:
    QPushButton* AddItem(const QString& text, const QString& icon);
    void UpdateEnabled();

    QPushButton* splitHorizontal = nullptr;
    QPushButton* splitVertical = nullptr;
    QPushButton* maximize = nullptr;
    QPushButton* remove = nullptr;
    bool isMaximize = false;
    bool splitDisabled = false;
    bool removeDisabled = false;
};

} // namespace rviz_plugin

#endif
