#include "panel_warnings.h"

#include "view_text.h"

namespace rviz_plugin {

Warnings CollectWarnings(const QVector<FieldStatus>& fields, const QString& topicNickName, const QString& tooLongText,
                         const Warnings& errors)
{
    Warnings warnings;
    bool dataFlows = false;
    for (const FieldStatus& field : fields) {
        if (field.frequency <= 0) {
            continue;
        }
        dataFlows = true;
        for (const QString& value : field.values) {
            if (value.size() > maxTextLength) {
                warnings.push_back({field.nickName, tooLongText});
                break;
            }
        }
    }
    if (!dataFlows) {
        warnings.push_back({topicNickName, "The data receiving frequency is 0 Hz."});
    }
    return warnings + errors;
}

void AddDecodeError(Warnings& errors, const QString& topic, const QString& message, const QString& ownTopic,
                    const QString& shownName)
{
    if (message.isEmpty()) {
        errors.clear();
        return;
    }
    const QPair<QString, QString> error{topic == ownTopic && !shownName.isEmpty() ? shownName : topic, message};
    if (!errors.contains(error)) {
        errors.push_back(error);
    }
}

} // namespace rviz_plugin
