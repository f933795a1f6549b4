#include "topic_list.h"

namespace rviz_plugin {

namespace {
const char* const notOffsetTip = "Not 3D visualized data, so cannot be offset.";
} // namespace

TopicList::TopicList(QWidget* parent) : QListWidget(parent)
{
    setObjectName("TopicList");
    connect(this, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) {
        selection.SetChecked(static_cast<std::size_t>(row(item)), item->checkState() == Qt::Checked);
        SetTopicStatus();
    });
}

void TopicList::Refresh(const std::vector<std::pair<std::string, std::string>>& liveTopics,
                        const std::vector<std::string>& fileTopics)
{
    selection.Build(liveTopics, fileTopics);
    selection.TypeFilter(TopicSelection::allTypes);
    selection.SearchFilter("");
    BuildTopicList();
}

void TopicList::BuildTopicList()
{
    {
        const QSignalBlocker blocker(this);
        clear();
        for (const TopicSelection::Entry& entry : selection.GetEntries()) {
            auto* item = new QListWidgetItem(QString::fromStdString(entry.name + "[" + entry.type + "]"), this);
            Qt::ItemFlags flags = Qt::ItemIsUserCheckable;
            if (entry.enabled) {
                flags |= Qt::ItemIsEnabled;
            } else {
                item->setToolTip(notOffsetTip);
            }
            item->setFlags(flags);
        }
    }
    SetTopicStatus();  // also tells the header box
}

void TopicList::SetTopicStatus()
{
    {
        const QSignalBlocker blocker(this);
        const auto& entries = selection.GetEntries();
        for (int index = 0; index < count(); ++index) {
            item(index)->setCheckState(entries[static_cast<std::size_t>(index)].checked ? Qt::Checked : Qt::Unchecked);
        }
        DisplayTopic();
    }
    const TopicSelection::HeaderState header = selection.GetHeaderState();
    Q_EMIT TopicStateChanged(header == TopicSelection::HeaderState::Checked
                                 ? Qt::Checked
                                 : (header == TopicSelection::HeaderState::Partial ? Qt::PartiallyChecked
                                                                                    : Qt::Unchecked));
}

void TopicList::DisplayTopic()
{
    const auto& entries = selection.GetEntries();
    for (int index = 0; index < count(); ++index) {
        item(index)->setHidden(!entries[static_cast<std::size_t>(index)].visible);
    }
}

void TopicList::TypeFilter(const QString& type)
{
    selection.TypeFilter(type.toStdString());
    SetTopicStatus();
}

void TopicList::SearchFilter(const QString& text)
{
    selection.SearchFilter(text.toStdString());
    SetTopicStatus();
}

void TopicList::OtherTopicStateChanged(bool checked)
{
    selection.SetShownChecked(checked);
    SetTopicStatus();
}

} // namespace rviz_plugin
