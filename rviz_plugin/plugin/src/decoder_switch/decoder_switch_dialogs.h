#ifndef RVIZ_PLUGIN_DECODER_SWITCH_DIALOGS_H
#define RVIZ_PLUGIN_DECODER_SWITCH_DIALOGS_H

#include <QDialog>
#include <QStringList>

class QButtonGroup;
class QLabel;
class QPushButton;

namespace rviz_plugin {

// "Select Decoder": the decoder all video items are to use.
class DecoderTypeSelectDlg : public QDialog {
    Q_OBJECT
public:
    explicit DecoderTypeSelectDlg(int currentMode, QWidget* parent = nullptr);
    int GetSelectedMode() const;
    void SelectMode(int mode);

private:
    QButtonGroup* choices;
};

// "Switching Decoder": the warning before a switch to software decoding when the processor is busy.
class DecoderMessageBoxAlarm : public QDialog {
    Q_OBJECT
public:
    DecoderMessageBoxAlarm(const QString& text, QWidget* parent = nullptr);
};

// The outcome of a switch, with the per-decoder lines behind "Show Detail".
class DecoderMessageBoxDetail : public QDialog {
    Q_OBJECT
public:
    DecoderMessageBoxDetail(const QString& summary, const QStringList& details, QWidget* parent = nullptr);
    bool IsDetailShown() const;

private:
    QLabel* detailLabel;
    QPushButton* detailButton;
};

} // namespace rviz_plugin

#endif
