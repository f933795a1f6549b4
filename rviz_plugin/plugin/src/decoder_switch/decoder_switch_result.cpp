#include "decoder_switch_result.h"

#include "video_decoder.h"

namespace rviz_plugin {

namespace {
QString FailureLine(const QString& topic, const QString& mode, int code, const QString& reason)
{
    return QString("The decoder of KORA Vision <b>\"%1\"</b>  failed to be switched to a %2 decoder.(error code:%3 %4)")
        .arg(topic, mode)
        .arg(code)
        .arg(reason);
}
} // namespace

void DecoderSwitchResult::Start(int mode, int expectedCount)
{
    targetMode = mode;
    expected = expectedCount;
    answers.clear();
    missing.clear();
}

bool DecoderSwitchResult::AddAnswer(const QString& topic, int resultCode)
{
    answers.insert(topic, resultCode);
    missing.removeAll(topic);
    return IsComplete();
}

void DecoderSwitchResult::AddMissing(const QStringList& topics)
{
    for (const QString& topic : topics) {
        if (!answers.contains(topic) && !missing.contains(topic)) {
            missing << topic;
        }
    }
    // Decoders that did not answer and whose topic is not known either.
    for (int i = answers.size() + missing.size(); i < expected; ++i) {
        missing << QString("?%1").arg(i + 1);
    }
}

bool DecoderSwitchResult::IsSwitched(int resultCode) const
{
    return resultCode == targetMode + 1;
}

int DecoderSwitchResult::SwitchedCount() const
{
    int count = 0;
    for (int code : answers) {
        count += IsSwitched(code) ? 1 : 0;
    }
    return count;
}

int DecoderSwitchResult::FailedCount() const
{
    return answers.size() - SwitchedCount() + missing.size();
}

QString DecoderSwitchResult::ModeName(int mode)
{
    switch (mode) {
    case custom::DecoderInfo::INTEL_HARDWARE_DECODING_MODE:
        return "Intel";
    case custom::DecoderInfo::NVIDIA_HARDWARE_DECODING_MODE:
        return "NVIDIA";
    default:
        return "Software";
    }
}

QString DecoderSwitchResult::SummaryText() const
{
    QString text = QString("%1 KORA Vision decoders have been successfully switched to %2 decoders.")
                       .arg(SwitchedCount())
                       .arg(ModeName(targetMode));
    if (FailedCount() > 0) {
        text += QString(" %3 KORA Vision decoders failed to be switched. ").arg(FailedCount());
    }
    return text;
}

QStringList DecoderSwitchResult::DetailLines() const
{
    QStringList lines;
    const QString mode = ModeName(targetMode);
    for (auto answer = answers.cbegin(); answer != answers.cend(); ++answer) {
        if (IsSwitched(answer.value())) {
            lines << QString("The decoder of KORA Vision <b>\"%1\"</b> has been switched to %2").arg(answer.key(), mode);
        } else {
            lines << FailureLine(answer.key(), mode, answer.value(),
                                 VideoDecoder::StatusTexts().value(answer.value()).trimmed());
        }
    }
    for (const QString& topic : missing) {
        lines << FailureLine(topic, mode, custom::DecoderInfo::NO_DECODER_EXIST, "no answer");
    }
    return lines;
}

} // namespace rviz_plugin
