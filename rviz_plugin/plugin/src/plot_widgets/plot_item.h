#ifndef RVIZ_PLUGIN_PLOT_ITEM_H
#define RVIZ_PLUGIN_PLOT_ITEM_H

#include <QWidget>

class QLabel;

namespace rviz_plugin {

// One row of a field list: a title, or a title with its type and a colour text.
class PlotItem : public QWidget {
    Q_OBJECT
public:
    static constexpr int height = 24;
    PlotItem(int index, const QString& title, QWidget* parent = nullptr);
    PlotItem(int index, const QString& title, const QString& type, const QString& color, QWidget* parent = nullptr);

    void SetDisabled(bool disabled);
    QString GetTitle() const;
    int GetIndex() const { return index; }

Q_SIGNALS:
    void SignalItemClicked(int index, const QString& text);

protected:
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void SetBackground(const QString& color);

    int index = 0;
    bool disabled = false;
    QLabel* titleLabel = nullptr;
    QLabel* typeLabel = nullptr;
};

} // namespace rviz_plugin

#endif
