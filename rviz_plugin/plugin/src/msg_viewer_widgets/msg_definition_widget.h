#ifndef RVIZ_PLUGIN_MSG_DEFINITION_WIDGET_H
#define RVIZ_PLUGIN_MSG_DEFINITION_WIDGET_H

#include "msg_viewer_panel/msg_record_struct.h"
#include "msg_viewer_panel/msg_subscriber.h"

#include <QMap>
#include <QTimer>
#include <QWidget>

#include <map>
#include <string>
#include <utility>
#include <vector>

class QDialog;

namespace rviz_plugin {

class MsgDefinitionModelMgr;
class MsgRecord;
class MsgSelectWidget;

// The "Show in Panel" dialog and what it keeps of every user panel: the selection, name, field
// searches, kind ("isSelectedArray" or "isSelectedData") and array name, in panel order.
class MsgDefinitionWidget : public QWidget {
    Q_OBJECT
public:
    using Selection = std::map<std::string, std::vector<std::pair<std::string, std::string>>>;

    explicit MsgDefinitionWidget(QWidget* parent = nullptr);
    ~MsgDefinitionWidget() override;

    bool Initialize(MsgRecord* record);
    void ExecuteDefinitionDialog();
    void ShowDefinitionDialog(int index);
    void EditSelectItem(int index, const QString& name);
    void RemoveSelectItem(int index);
    void CloseDefinitionDialog();
    void TopicSavedOver();
    void ShowDisplayPanelWindow();
    void SaveSelectedMsgToRecord();
    void SavePanelName();
    void UpdateModelData();
    // Subscribes to the master's topics a slice at a time, so that the dialog answers meanwhile.
    void ContinueSubscribing();
    QString GetPanelName() const;
    void AddSelectedDataByLoadedData(MsgRecord* record, const MsgRecordStruct::PanelData* panel);

    const std::vector<Selection>& GetSelectedItemVec() const { return selectedItems; }
    Selection GetSelectedItemMap(int index) const;
    const std::vector<QString>& GetSelectedTypeVec() const { return selectedTypes; }
    std::string GetSelectedArrayName(int index) const;
    QMap<QString, QString> GetFieldSearchResult(int index) const;
    MsgSelectWidget* GetSelectWidget() const { return selectWidget; }
    MsgDefinitionModelMgr* GetModelMgr() const { return modelMgr; }
    QDialog* GetDialog() const { return dialog; }

Q_SIGNALS:
    void ChangedToDisplayWindow();
    void ShowDisplayWindow(int index, const QString& name);
    void SignalConfigChanged();

private:
    std::vector<Selection> selectedItems;
    std::vector<QString> panelNames;
    std::vector<QMap<QString, QString>> fieldSearchMaps;
    std::vector<QString> selectedTypes;
    std::vector<std::string> arrayNames;
    MsgSubscriber subscriber;
    MsgSelectWidget* selectWidget = nullptr;
    MsgDefinitionModelMgr* modelMgr = nullptr;
    QDialog* dialog = nullptr;
    QTimer modelTimer;
    int editIndex = -1;
};

} // namespace rviz_plugin

#endif
