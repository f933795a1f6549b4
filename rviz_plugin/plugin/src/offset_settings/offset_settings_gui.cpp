#include "offset_settings_gui.h"

#include "foundation/master_topics.h"
#include "foundation/path_utils.h"
#include "foundation/set_qss.h"
#include "offset_xy_display.h"
#include "ok_cancel_button.h"
#include "refresh_button.h"
#include "search_box.h"
#include "tf_tree.h"
#include "topic_list.h"
#include "type_combo_box.h"

#include <ros/master.h>
#include <rviz/display_context.h>
#include <rviz/frame_manager.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace rviz_plugin {

namespace {
const char* const dialogTitle = "Offset Settings";

// A group's title line: its icon, its name and, with a question mark, its hint.
QWidget* GroupTitle(const QString& icon, const QString& title, const QString& hint, QWidget* parent)
{
    auto* line = new QWidget(parent);
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* picture = new QLabel(line);
    picture->setPixmap(QIcon(icon).pixmap(18, 18));
    auto* name = new QLabel(title, line);
    name->setObjectName("GroupTitle");
    layout->addWidget(picture);
    layout->addWidget(name);
    if (!hint.isEmpty()) {
        auto* question = new QLabel(line);
        question->setPixmap(QIcon(":/icons/questionMarkPic.svg").pixmap(14, 14));
        question->setToolTip(hint);
        auto* text = new QLabel(hint, line);
        text->setObjectName("GroupHint");
        layout->addWidget(question);
        layout->addWidget(text);
    }
    layout->addStretch(1);
    return line;
}

QGroupBox* Group(const QString& objectName, QWidget* parent)
{
    auto* group = new QGroupBox(parent);
    group->setObjectName(objectName);
    return group;
}
} // namespace

OffsetSettingsGui::OffsetSettingsGui(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(dialogTitle);
    setObjectName("OffsetSettingsGui");
}

void OffsetSettingsGui::SetPublisher(const ros::Publisher& publisher)
{
    okCancelButton->SetPublisher(publisher);
}

void OffsetSettingsGui::Init()
{
    auto* layout = new QVBoxLayout(this);

    layout->addWidget(GroupTitle(":/icons/offsetBoxPic.svg", "Offset", QString(), this));
    QGroupBox* offset = Group("OffsetGroup", this);
    auto* offsetLayout = new QHBoxLayout(offset);
    xDisplay = new OffsetXyDisplay("X:", "offsetX", offset);
    yDisplay = new OffsetXyDisplay("Y:", "offsetY", offset);
    offsetLayout->addWidget(xDisplay);
    offsetLayout->addWidget(yDisplay);
    layout->addWidget(offset);

    layout->addWidget(GroupTitle(":/icons/topicsBoxPic.svg", "Topics",
                                 "Only topics of 3D visualized data in the map coordinate system can be selected.",
                                 this));
    QGroupBox* topics = Group("TopicsGroup", this);
    auto* topicsLayout = new QVBoxLayout(topics);
    auto* filters = new QHBoxLayout;
    typeComboBox = new TypeComboBox(topics);
    searchBox = new SearchBox(topics);
    refreshButton = new RefreshButton(topics);
    filters->addWidget(typeComboBox);
    filters->addWidget(searchBox, 1);
    filters->addWidget(refreshButton);
    topicsLayout->addLayout(filters);
    topicHeader = new QCheckBox("Topic", topics);
    topicHeader->setObjectName("TopicHeader");
    topicsLayout->addWidget(topicHeader);
    topicList = new TopicList(topics);
    topicsLayout->addWidget(topicList, 1);
    layout->addWidget(topics, 3);

    layout->addWidget(GroupTitle(
        ":/icons/tfBoxPic.svg", "TF",
        "Only frame IDs of the coordinates directly associated with the map coordinate system can be selected.", this));
    QGroupBox* frames = Group("TfGroup", this);
    auto* framesLayout = new QVBoxLayout(frames);
    tfTree = new TfTree(frames);
    framesLayout->addWidget(tfTree);
    layout->addWidget(frames, 2);

    okCancelButton = new OkCancelButton(topicList, tfTree, this);
    layout->addWidget(okCancelButton);

    SetQss().SetStyles(this, {":/qss/type_qcombobox.qss", ":/qss/topiclist_qlistwidget.qss",
                              ":/qss/select_group_box_qgroupbox.qss", ":/qss/line_qframe.qss",
                              ":/qss/node_qcheckbox.qss", ":/qss/topic_check_box_qgroupbox.qss",
                              ":/qss/label_font.qss"});
    resize(560, 680);

    connect(typeComboBox, &QComboBox::currentTextChanged, topicList, &TopicList::TypeFilter);
    connect(searchBox, &SearchBox::Search, topicList, &TopicList::SearchFilter);
    connect(refreshButton, &RefreshButton::RefreshPage, this, &OffsetSettingsGui::RefreshPage);
    connect(topicHeader, &QCheckBox::clicked, this, [this]() {
        topicList->OtherTopicStateChanged(topicList->GetHeaderState() != TopicSelection::HeaderState::Checked);
    });
    connect(topicList, &TopicList::TopicStateChanged, topicHeader, &QCheckBox::setCheckState);
    connect(okCancelButton, &OkCancelButton::CloseWindow, this, &OffsetSettingsGui::CloseWindow);
    InitConfigFilePath();
}

void OffsetSettingsGui::InitConfigFilePath()
{
    std::string root;
    Orsa::GetOrsaPath(root);
    configFilePath = Orsa::JoinPath(root, std::string("config/") + Orsa::MapOffsetFilterSettingFile::fileName);
}

void OffsetSettingsGui::RefreshPage()
{
    InitConfigFilePath();
    utility.ReadJson(configFilePath);
    xDisplay->SetOffsetValue();
    yDisplay->SetOffsetValue();
    const auto [fileTopics, fileFrames] = utility.GetTopicTfInJson();
    topicList->Refresh(LiveTopics(), fileTopics);
    typeComboBox->Refresh(topicList->GetTypes());
    searchBox->Clear();
    tfTree->Refresh(TransformLinks(), fileFrames);
    okCancelButton->SetConfigFilePath(configFilePath);
}

std::vector<std::pair<std::string, std::string>> OffsetSettingsGui::LiveTopics() const
{
    ros::master::V_TopicInfo topics;
    GetTopicsWithoutWaiting(topics);
    std::vector<std::pair<std::string, std::string>> live;
    for (const ros::master::TopicInfo& topic : topics) {
        live.emplace_back(topic.name, topic.datatype);
    }
    std::sort(live.begin(), live.end());
    return live;
}

std::vector<std::pair<std::string, std::string>> OffsetSettingsGui::TransformLinks() const
{
    std::vector<std::pair<std::string, std::string>> links;
    if (context == nullptr || context->getFrameManager() == nullptr) {
        return links;
    }
    const auto buffer = context->getFrameManager()->getTF2BufferPtr();
    std::vector<std::string> frames;
    buffer->_getFrameStrings(frames);
    for (const std::string& frame : frames) {
        std::string parent;
        if (!buffer->_getParent(frame, ros::Time(), parent)) {
            parent.clear();
        }
        links.emplace_back(frame, parent);
    }
    return links;
}

void OffsetSettingsGui::CloseWindow()
{
    QDialog::reject();
}

void OffsetSettingsGui::reject()
{
    if (topicList->IsTopicModified() || tfTree->IsTfModified()) {
        CreateExitMessageBox();
    } else {
        CloseWindow();
    }
}

void OffsetSettingsGui::CreateExitMessageBox()
{
    QMessageBox box(QMessageBox::Warning, dialogTitle, "There are unsaved changes.",
                    QMessageBox::Discard | QMessageBox::Save | QMessageBox::Cancel, this);
    switch (box.exec()) {
    case QMessageBox::Discard: CloseWindow(); break;
    case QMessageBox::Save: okCancelButton->OkButtonEvent(); break;
    default: break;
    }
}

} // namespace rviz_plugin
