#include "ok_cancel_button.h"

#include "foundation/config_file_tool.h"
#include "foundation/logger.h"
#include "tf_tree.h"
#include "topic_list.h"
#include "widgets/buttons.h"

#include <geometry_msgs/PointStamped.h>

#include <QHBoxLayout>

#include <filesystem>

namespace rviz_plugin {

namespace {
void AddCheckedItem(rapidjson::Document& document, const char* key, const std::vector<std::string>& names)
{
    rapidjson::Value array(rapidjson::kArrayType);
    for (const std::string& name : names) {
        array.PushBack(rapidjson::Value(name.c_str(), document.GetAllocator()), document.GetAllocator());
    }
    document.AddMember(rapidjson::StringRef(key), array, document.GetAllocator());
}
} // namespace

OkCancelButton::OkCancelButton(TopicList* topics, TfTree* frames, QWidget* parent)
    : QWidget(parent), topicList(topics), tfTree(frames)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch(1);
    auto* ok = new PrimaryButton("OK", this);
    ok->setObjectName("OkCancelButton_ok");
    ok->setDefault(true);  // Enter means OK
    auto* cancel = new SecondaryButton("Cancel", this);
    layout->addWidget(ok);
    layout->addWidget(cancel);
    connect(ok, &QPushButton::clicked, this, &OkCancelButton::OkButtonEvent);
    connect(cancel, &QPushButton::clicked, this, &OkCancelButton::CancelButtonEvent);
}

void OkCancelButton::OkButtonEvent()
{
    if (WriteJson()) {
        SendSignalToKora();
    }
    CancelButtonEvent();
}

void OkCancelButton::CancelButtonEvent()
{
    Q_EMIT CloseWindow();
}

bool OkCancelButton::WriteJson() const
{
    rapidjson::Document document(rapidjson::kObjectType);
    AddCheckedItem(document, "topics", topicList->GetTopicListCheckStatus());
    AddCheckedItem(document, "tf_child_frame_id", tfTree->GetTfTreeCheckStatus());
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(configFilePath).parent_path(), error);
    if (!Orsa::ConfigFileTool::WriteJsonFile(configFilePath, document)) {
        Orsa::Logger::GetInstance().WriteLog("OffsetSettings", Orsa::LogLevel::Error,
                                             "Failed to write the JSON file. The file name is " + configFilePath);
        return false;
    }
    return true;
}

void OkCancelButton::SendSignalToKora() const
{
    publisher.publish(geometry_msgs::PointStamped());  // only its arrival means anything
}

} // namespace rviz_plugin
