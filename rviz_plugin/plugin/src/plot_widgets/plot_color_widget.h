#ifndef RVIZ_PLUGIN_PLOT_COLOR_WIDGET_H
#define RVIZ_PLUGIN_PLOT_COLOR_WIDGET_H

#include <QColor>
#include <QWidget>

class QColorDialog;

namespace rviz_plugin {

// A colour picker with "Reset", "Cancel" and "Confirm".
class PlotColorWidget : public QWidget {
    Q_OBJECT
public:
    PlotColorWidget(const QColor& color, QWidget* parent = nullptr);
    QColor GetColor() const { return color; }

Q_SIGNALS:
    void SignalSelectedColor(const QColor& color);
    void SignalCloseWin();

public Q_SLOTS:
    void OnColorChanged(const QColor& color);
    void OnConfirmBtnClicked();
    void OnResetBtnClicked();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QColor initialColor;
    QColor color;
    QColorDialog* picker = nullptr;
};

} // namespace rviz_plugin

#endif
