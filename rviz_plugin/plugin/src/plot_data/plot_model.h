#ifndef RVIZ_PLUGIN_PLOT_MODEL_H
#define RVIZ_PLUGIN_PLOT_MODEL_H

#include "plot_types.h"

#include "msg_viewer_panel/msg_data_handler.h"

#include <QObject>
#include <QStringList>

#include <map>
#include <string>

namespace rviz_plugin {

// Every field that can be plotted, by its selection path: the numeric leaves of every topic that is
// not inside two arrays.
class PlotModel : public QObject {
    Q_OBJECT
public:
    PlotModel() = default;
    ~PlotModel() override;

    // The definitions of the topics on the master; the model is rebuilt when a topic is new.
    void SetupModelData(const DeserializedMsgs& msgs);
    // Null for a path that is no plottable field; a path typed by the user is logged.
    const PlotTopicMsg* GetTopicMsg(const std::string& path) const;
    // As GetTopicMsg, without logging: for checks made message after message.
    bool HasField(const std::string& path) const { return fieldMsgs.count(path) != 0; }
    const QStringList& GetFieldList() const { return fieldList; }
    bool IsSendTopicChanged(const DeserializedMsgs& msgs) const;
    static bool HasParentArray(const PlotTopicMsg* node);

private:
    void UpdateTopicMsg(const DeserializedMsgs& msgs);
    void SaveField(const PlotTopicMsg* node);
    void Clear();

    std::map<std::string, PlotTopicMsg*> topicMsgs;
    QStringList fieldList;
    std::map<std::string, const PlotTopicMsg*> fieldMsgs;
};

} // namespace rviz_plugin

#endif
