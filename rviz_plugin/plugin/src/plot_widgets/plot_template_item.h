#ifndef RVIZ_PLUGIN_PLOT_TEMPLATE_ITEM_H
#define RVIZ_PLUGIN_PLOT_TEMPLATE_ITEM_H

#include "plot_data/plot_canvas_data.h"

#include <QWidget>

class QLabel;

namespace rviz_plugin {

// A row of the template list: icon, name and the layout it stands for. Also the list's two actions,
// which carry no layout.
class PlotTemplateItem : public QWidget {
    Q_OBJECT
public:
    static constexpr int height = 28;
    PlotTemplateItem(const QString& icon, const QString& text, QWidget* parent = nullptr);

    void SetData(const PlotTemplateData& data) { templateData = data; }
    const PlotTemplateData& GetData() const { return templateData; }
    void SetText(const QString& text);
    QString GetText() const;
    void SetIcon(const QString& icon);
    void SetItemEnabled(bool enabled);
    bool IsItemEnabled() const { return enabled; }

Q_SIGNALS:
    void SignalClicked(PlotTemplateItem* item);

protected:
    void enterEvent(QEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void SetBackground(const QString& color);

    PlotTemplateData templateData;
    QLabel* iconLabel = nullptr;
    QLabel* textLabel = nullptr;
    bool enabled = true;
};

} // namespace rviz_plugin

#endif
