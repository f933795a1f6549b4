#include "msg_definition_widget.h"

#include "msg_definition/msg_definition_model_mgr.h"
#include "msg_select_widget.h"
#include "msg_viewer_panel/viewer_log.h"

#include <QDialog>
#include <QPushButton>
#include <QVBoxLayout>

namespace rviz_plugin {

namespace {
const char* const arrayKind = "isSelectedArray";
const char* const dataKind = "isSelectedData";
} // namespace

MsgDefinitionWidget::MsgDefinitionWidget(QWidget* parent) : QWidget(parent)
{
    modelTimer.setInterval(500);
    connect(&modelTimer, &QTimer::timeout, this, &MsgDefinitionWidget::UpdateModelData);
}

MsgDefinitionWidget::~MsgDefinitionWidget()
{
    delete dialog;
}

bool MsgDefinitionWidget::Initialize(MsgRecord* /*record*/)
{
    modelMgr = new MsgDefinitionModelMgr(this);
    modelMgr->Initialize();
    dialog = new QDialog();
    dialog->setWindowTitle("Show in Panel");
    dialog->setFixedSize(732, 605);
    dialog->setModal(false);
    auto* layout = new QVBoxLayout(dialog);
    layout->setContentsMargins(0, 0, 0, 0);
    selectWidget = new MsgSelectWidget(dialog);
    layout->addWidget(selectWidget);
    if (!selectWidget->Initialize(modelMgr)) {
        ViewerLog("Failed to init definition model manager");
        return false;
    }
    connect(selectWidget->GetCancelButton(), &QPushButton::clicked, this, &MsgDefinitionWidget::CloseDefinitionDialog);
    connect(selectWidget->GetSaveButton(), &QPushButton::clicked, this, &MsgDefinitionWidget::TopicSavedOver);
    connect(dialog, &QDialog::rejected, this, &MsgDefinitionWidget::CloseDefinitionDialog);
    return true;
}

void MsgDefinitionWidget::ExecuteDefinitionDialog()
{
    if (dialog == nullptr || dialog->isVisible()) {
        return;
    }
    selectWidget->ClearSearchStatus(true);
    ShowDefinitionDialog(-1);
}

void MsgDefinitionWidget::EditSelectItem(int index, const QString& name)
{
    if (index < 0 || index >= static_cast<int>(selectedItems.size())) {
        return;
    }
    panelNames[index] = name;
    selectWidget->SetEditFieldSearchStatus(fieldSearchMaps[index]);
    selectWidget->ClearSearchStatus(false);
    ShowDefinitionDialog(index);
    selectWidget->SetPanelName(name);
}

void MsgDefinitionWidget::ShowDefinitionDialog(int index)
{
    selectWidget->ResetUi();
    editIndex = index;
    if (index < 0) {
        modelMgr->ResetModel({}, std::string());
    } else {
        modelMgr->ResetModel(selectedItems[index], arrayNames[index]);
    }
    modelMgr->UpdateTopicMap(subscriber.GetDeserializedMsg());
    modelTimer.start();
    dialog->move(600, 300);
    dialog->show();
    dialog->raise();
    ContinueSubscribing();
}

void MsgDefinitionWidget::ContinueSubscribing()
{
    constexpr std::chrono::milliseconds slice(30);
    if (dialog->isVisible() && !subscriber.UpdateMsgDefinitionSubscriber(slice)) {
        QTimer::singleShot(0, this, &MsgDefinitionWidget::ContinueSubscribing);
    }
}

void MsgDefinitionWidget::UpdateModelData()
{
    if (modelMgr == nullptr) {
        ViewerLog("Invalid msg subscriber or model manager");
        return;
    }
    ContinueSubscribing();
    modelMgr->UpdateTopicMap(subscriber.GetDeserializedMsg());
}

void MsgDefinitionWidget::CloseDefinitionDialog()
{
    if (dialog->isVisible()) {
        dialog->close();
    }
    modelTimer.stop();
    subscriber.ShutdownSubscriber();
}

void MsgDefinitionWidget::TopicSavedOver()
{
    dialog->close();
    ShowDisplayPanelWindow();
}

void MsgDefinitionWidget::ShowDisplayPanelWindow()
{
    SaveSelectedMsgToRecord();
    SavePanelName();
    CloseDefinitionDialog();
}

void MsgDefinitionWidget::SaveSelectedMsgToRecord()
{
    Selection selection;
    modelMgr->GetSelectedItemMap(selection);
    const QString arrayTopic = modelMgr->GetSelectedArrayTopic();
    const QString kind = arrayTopic.isEmpty() ? dataKind : arrayKind;
    if (!arrayTopic.isEmpty()) {
        for (auto topic = selection.begin(); topic != selection.end();) {
            topic = topic->first == arrayTopic.toStdString() ? std::next(topic) : selection.erase(topic);
        }
    }
    const std::string arrayName = modelMgr->GetSelectedArrayName().toStdString();
    if (editIndex < 0) {
        selectedItems.push_back(selection);
        fieldSearchMaps.push_back(selectWidget->GetFieldSearchMap());
        selectedTypes.push_back(kind);
        arrayNames.push_back(arrayName);
        return;
    }
    if (selection != selectedItems[editIndex]) {
        Q_EMIT SignalConfigChanged();
    }
    selectedItems[editIndex] = selection;
    fieldSearchMaps[editIndex] = selectWidget->GetFieldSearchMap();
    selectedTypes[editIndex] = kind;
    arrayNames[editIndex] = arrayName;
}

void MsgDefinitionWidget::SavePanelName()
{
    QString name = selectWidget->GetPanelName();
    if (name.isEmpty()) {
        name = modelMgr->GetSelectedArrayTopic().isEmpty() ? "Key-Value Panel" : modelMgr->GetSelectedArrayTopic();
    }
    if (editIndex < 0) {
        panelNames.push_back(name);
        Q_EMIT ChangedToDisplayWindow();
    } else {
        panelNames[editIndex] = name;
        Q_EMIT ShowDisplayWindow(editIndex, name);
    }
}

QString MsgDefinitionWidget::GetPanelName() const
{
    return panelNames.empty() ? QString() : panelNames.back();
}

void MsgDefinitionWidget::RemoveSelectItem(int index)
{
    if (index < 0 || index >= static_cast<int>(selectedItems.size())) {
        return;
    }
    selectedItems.erase(selectedItems.begin() + index);
    panelNames.erase(panelNames.begin() + index);
    fieldSearchMaps.erase(fieldSearchMaps.begin() + index);
    selectedTypes.erase(selectedTypes.begin() + index);
    arrayNames.erase(arrayNames.begin() + index);
}

void MsgDefinitionWidget::AddSelectedDataByLoadedData(MsgRecord* /*record*/, const MsgRecordStruct::PanelData* panel)
{
    if (panel == nullptr) {
        return;
    }
    selectedItems.push_back(panel->selectedItemMap);
    selectedTypes.push_back(panel->hasArrayField ? arrayKind : dataKind);
    panelNames.push_back(panel->panelName);
    fieldSearchMaps.push_back(panel->fieldSearchResult);
    arrayNames.push_back(panel->selectedArrayName);
}

MsgDefinitionWidget::Selection MsgDefinitionWidget::GetSelectedItemMap(int index) const
{
    return index >= 0 && index < static_cast<int>(selectedItems.size()) ? selectedItems[index] : Selection();
}

std::string MsgDefinitionWidget::GetSelectedArrayName(int index) const
{
    return index >= 0 && index < static_cast<int>(arrayNames.size()) ? arrayNames[index] : std::string();
}

QMap<QString, QString> MsgDefinitionWidget::GetFieldSearchResult(int index) const
{
    return index >= 0 && index < static_cast<int>(fieldSearchMaps.size()) ? fieldSearchMaps[index]
                                                                          : QMap<QString, QString>();
}

} // namespace rviz_plugin
