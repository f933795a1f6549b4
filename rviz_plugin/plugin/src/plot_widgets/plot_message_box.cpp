#include "plot_message_box.h"

namespace rviz_plugin {

PlotMessageBox::PlotMessageBox(const QString& text, QWidget* parent)
    : QMessageBox(QMessageBox::Question, "Plot", text, QMessageBox::Yes | QMessageBox::No, parent)
{
    setObjectName("plotMessageBox");
    setDefaultButton(QMessageBox::No);
}

} // namespace rviz_plugin
