#ifndef RVIZ_PLUGIN_PLOT_WIDGET_HELPERS_H
#define RVIZ_PLUGIN_PLOT_WIDGET_HELPERS_H

class QBoxLayout;
class QDialog;
class QPushButton;
class QSplitter;
class QWidget;

namespace rviz_plugin {

// Asks whether to cancel the changes being edited in parent; true when the user says so.
bool ShowMsgBox(QWidget& parent);

// Adds the right-aligned "Cancel" and "Save" row of the plot's dialogs under layout; gives them back.
void AddCancelSaveButtons(QDialog& dialog, QBoxLayout& layout, QPushButton*& cancel, QPushButton*& save);

// Gives every widget of the splitter the same size.
void SetSplitterEqually(QSplitter* splitter);

} // namespace rviz_plugin

#endif
