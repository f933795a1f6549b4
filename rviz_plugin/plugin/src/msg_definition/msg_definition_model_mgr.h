#ifndef RVIZ_PLUGIN_MSG_DEFINITION_MODEL_MGR_H
#define RVIZ_PLUGIN_MSG_DEFINITION_MODEL_MGR_H

#include "definition_types.h"
#include "msg_viewer_panel/msg_data_handler.h"
#include "msg_viewer_panel/topic_msg.h"

#include <QModelIndex>
#include <QObject>
#include <QString>

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class QAbstractItemModel;
class QStandardItemModel;
class QStandardItem;

namespace rviz_plugin {

// The models of the selection dialog: the live topics and the field tree of the focused topic, with
// the rules that keep a selection within what a panel can show (15 table columns, 50 key-value pairs,
// one array of one topic for a table, no nested arrays). Every operation takes the model it works on,
// which may be a filter over the field model: what a filter hides is left as it is.
class MsgDefinitionModelMgr : public QObject {
    Q_OBJECT
public:
    using FieldTypeMap = std::map<std::string, std::string>;  // selection path -> full type
    using FieldTypePairs = std::vector<std::pair<std::string, std::string>>;

    explicit MsgDefinitionModelMgr(QObject* parent = nullptr);
    ~MsgDefinitionModelMgr() override;

    void Initialize();
    QStandardItemModel* GetModel(DefinitionModelType type) const;

    // Starts over with a saved selection (topic -> (field, type) pairs) to recover as topics come.
    void ResetModel(const std::map<std::string, FieldTypePairs>& selection, const std::string& arrayName);
    // Builds the trees of topics seen for the first time and recovers their saved selection.
    bool UpdateTopicMap(const DeserializedMsgs& deserializedMsgs);

    void GetSelectedItemMap(std::map<std::string, FieldTypePairs>& out) const;
    QString GetSelectedArrayTopic() const { return selectedArrayTopic; }
    QString GetSelectedArrayName() const { return selectedArrayName; }
    int GetSelectedFieldCount(const QString& topic = QString()) const;
    int GetSelectedTopicCount() const { return static_cast<int>(selectedMaps.size()); }
    DefinitionEditMode GetCurrentEditMode() const;
    DefinitionDisableType GetDisableType(const QString& topic) const;
    QString GetRecoverFocusTopic() const { return recoverFocusTopic; }
    void SetFocusTopic(const QString& topic) { focusTopic = topic; }
    QString GetFocusTopic() const { return focusTopic; }

    // Ticking (state Checked) or unticking (Unchecked) a leaf, a subtree, or all roots of a model.
    int SetFieldState(const QString& topic, int state, QAbstractItemModel* model, const QModelIndex& index);
    int SetSubFieldState(const QString& topic, int state, QAbstractItemModel* model, const QModelIndex& index);
    int SetAllSubFieldState(const QString& topic, int state, QAbstractItemModel* model);
    // The topic item's state from the roots of the topic's field model.
    void SetTopicItemState(const QModelIndex& topicIndex, QAbstractItemModel* fieldModel);
    void SetTopicState(QAbstractItemModel* topicModel, const QModelIndex& topicIndex, int state);

    // Leaves take their ticks from the selection and their enabled form from type.
    void RecoverFieldItems(const QString& topic, int type, QAbstractItemModel* model, const QModelIndex& parent);
    // Sets every parent from its children, bottom up; the state decided for parent.
    int RecoverFields(QAbstractItemModel* model, const QModelIndex& parent);
    void UpdateAllTopicState(QAbstractItemModel* topicModel, int oldMode, const QModelIndex& current);
    void UpdateAllTopicStateForce(QAbstractItemModel* topicModel, const QModelIndex& current);
    void UpdateAllFieldState(QAbstractItemModel* model, int oldMode);
    void UpdateAllFieldStateForce(QAbstractItemModel* model);

    bool RebuildFieldModel(const QString& topic);
    // A field model of topic of its own, for an operation on a topic out of focus; the caller owns it.
    QStandardItemModel* BuildFieldModel(const QString& topic);
    void ResetFieldModel();

    void BlockStateChangedEvent(bool block) { isStateChangedBlocked = block; }
    bool IsBlockStateChangedEvent() const { return isStateChangedBlocked; }

    static int GetCheckState(const QAbstractItemModel* model, const QModelIndex& index);
    void SetCheckState(QAbstractItemModel* model, const QModelIndex& index, int state);
    static bool IsArray(const QAbstractItemModel* model, const QModelIndex& index);
    static QString GetFullName(const QAbstractItemModel* model, const QModelIndex& index);
    // Leaves only.
    static void GetModelCount(int& checked, int& partial, int& total, const QAbstractItemModel* model,
                              const QModelIndex& parent);
    static bool FindEnableItem(const QAbstractItemModel* model, const QModelIndex& parent);

    static QString FilterKey(const std::string& fullName);

Q_SIGNALS:
    void SignalModelChanged(const QModelIndex& parent, int first, int last, const QString& focusTopic);

private:
    void SetSelectedArray(const QString& topic, const QString& name);
    int SetFieldStateInner(const QString& topic, int state, QAbstractItemModel* model, const QModelIndex& index);
    int SetSubFieldStateInner(const QString& topic, int state, QAbstractItemModel* model, const QModelIndex& index);
    int SetChildrenState(const QString& topic, int state, QAbstractItemModel* model, const QModelIndex& parent);
    void UpdateItemState(int type, QAbstractItemModel* model, const QModelIndex& index);
    void UpdateAllItemState(int type, QAbstractItemModel* model, const QModelIndex& parent);
    bool IsDisableArray(const QAbstractItemModel* model, const QModelIndex& index, int type) const;
    int GetSiblingState(const QAbstractItemModel* model, const QModelIndex& index) const;
    void UpdateParentState(QAbstractItemModel* model, const QModelIndex& index);
    QModelIndex GetSelectedArrayIdx(const QAbstractItemModel* model, const QModelIndex& index) const;
    QModelIndex FindArrayIndex(const QAbstractItemModel* model, const QModelIndex& parent) const;
    void ClearSelectedArrayIfUnticked(QAbstractItemModel* model, const QModelIndex& arrayIndex, int oldMode);
    void RecoverSelectedMap(const TopicMsg& node, const FieldTypeMap& saved, const std::string& arrayName);
    bool UpdateTopicModel(const std::vector<std::string>& newTopics);
    void CreateFieldTree(const TopicMsg& msg, QStandardItemModel* model, QStandardItem* parentItem);
    static int DecideState(const QAbstractItemModel* model, const QModelIndex& parent);

    QStandardItemModel* topicModel = nullptr;
    QStandardItemModel* fieldModel = nullptr;
    std::map<std::string, TopicMsg*> topicMap;
    QString selectedArrayTopic;
    QString selectedArrayName;
    std::string recoverArrayName;
    QString recoverFocusTopic;
    std::map<QString, std::shared_ptr<FieldTypeMap>> selectedMaps;
    std::map<std::string, std::shared_ptr<FieldTypeMap>> recoverMaps;
    int maxTableColumns = 15;
    int maxKeyValuePairs = 50;
    bool isStateChangedBlocked = false;
    QString focusTopic;
};

} // namespace rviz_plugin

#endif
