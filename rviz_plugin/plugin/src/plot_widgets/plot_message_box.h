#ifndef RVIZ_PLUGIN_PLOT_MESSAGE_BOX_H
#define RVIZ_PLUGIN_PLOT_MESSAGE_BOX_H

#include <QMessageBox>

namespace rviz_plugin {

// The plot's question box: "Plot", with the given text, "Yes" and "No".
class PlotMessageBox : public QMessageBox {
    Q_OBJECT
public:
    PlotMessageBox(const QString& text, QWidget* parent);
};

} // namespace rviz_plugin

#endif
