#ifndef RVIZ_PLUGIN_OUTPUT_WIDGET_H
#define RVIZ_PLUGIN_OUTPUT_WIDGET_H

#include <QPlainTextEdit>

namespace rviz_plugin {

// What a command printed, without the terminal's escape sequences.
class OutputWidget : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit OutputWidget(QWidget* parent = nullptr);
    static QString TrimAnsiEscapeCode(const QString& text);
    void OnReceivedOutput(const QString& text);
};

} // namespace rviz_plugin

#endif
