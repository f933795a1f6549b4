#ifndef RVIZ_PLUGIN_DECODER_SWITCH_RESULT_H
#define RVIZ_PLUGIN_DECODER_SWITCH_RESULT_H

#include <QMap>
#include <QString>
#include <QStringList>

namespace rviz_plugin {

// The answers of all decoders to one switch command, and the texts that report them.
class DecoderSwitchResult {
public:
    // A new command to mode, answered by expectedCount decoders.
    void Start(int mode, int expectedCount);
    // Stores the answer of a decoder's topic; true once all expected decoders have answered.
    bool AddAnswer(const QString& topic, int resultCode);
    bool IsComplete() const { return answers.size() >= expected; }
    // Topics that never answered count as failed, with the text "no answer".
    void AddMissing(const QStringList& topics);

    int GetMode() const { return targetMode; }
    int SwitchedCount() const;
    int FailedCount() const;
    QString SummaryText() const;
    // One line per decoder, in topic order.
    QStringList DetailLines() const;

    // "Software", "Intel" or "NVIDIA".
    static QString ModeName(int mode);

private:
    bool IsSwitched(int resultCode) const;

    int targetMode = 0;
    int expected = 0;
    QMap<QString, int> answers;
    QStringList missing;
};

} // namespace rviz_plugin

#endif
