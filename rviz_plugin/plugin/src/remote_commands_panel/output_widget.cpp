#include "output_widget.h"

#include <QRegularExpression>

namespace rviz_plugin {

OutputWidget::OutputWidget(QWidget* parent) : QPlainTextEdit(parent)
{
    setObjectName("OutputWidget");
    setReadOnly(true);
    setMaximumBlockCount(10000);  // the newest lines of a long-running command
}

QString OutputWidget::TrimAnsiEscapeCode(const QString& text)
{
    // CSI sequences, OSC sequences (ended by BEL or ST), two-character escapes; then carriage returns.
    static const QRegularExpression escapes(
        R"(\x1B\[[0-?]*[ -/]*[@-~]|\x1B\][^\x07\x1B]*(?:\x07|\x1B\\)|\x1B[@-Z\\-_])");
    QString clean = text;
    clean.remove(escapes);
    clean.remove('\r');
    return clean;
}

void OutputWidget::OnReceivedOutput(const QString& text)
{
    moveCursor(QTextCursor::End);
    insertPlainText(TrimAnsiEscapeCode(text));
    moveCursor(QTextCursor::End);
}

} // namespace rviz_plugin
