#include "edit_title.h"

#include "msg_view_models/view_text.h"
#include "msg_viewer_panel/msg_record.h"
#include "panel_status_dialog.h"
#include "viewer_style.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace rviz_plugin {

EditTitle::EditTitle(MsgRecord& record, QWidget* parent)
    : QWidget(parent), record(record), icon(new QLabel(this)), title(new QLabel(this)), frequency(new QLabel("0Hz", this)),
      statusButton(new QPushButton(this)), closeButton(new QPushButton(this)), statusDialog(new PanelStatusDialog(this))
{
    timer.setInterval(100);
    connect(&timer, &QTimer::timeout, this, &EditTitle::UpdateFrequency);
}

void EditTitle::OnInitEditTitle()
{
    setObjectName("editTitle");
    setAutoFillBackground(true);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 4, 4);
    icon->setPixmap(QPixmap(":/assets/image/sheet.png"));
    title->setObjectName("titleLabel");
    frequency->setObjectName("frequencyLabel");
    statusButton->setIcon(QIcon(":image/warning.png"));
    statusButton->setFlat(true);
    statusButton->setVisible(false);
    closeButton->setIcon(QIcon(":/image/close.png"));
    closeButton->setFlat(true);
    layout->addWidget(icon);
    layout->addWidget(title, 1);
    layout->addWidget(frequency);
    layout->addWidget(statusButton);
    layout->addWidget(closeButton);
    connect(closeButton, &QPushButton::clicked, this, &EditTitle::CloseClicked);
    connect(statusButton, &QPushButton::clicked, statusDialog, &PanelStatusDialog::ExecuteStatusDialog);
    timer.start();
}

void EditTitle::SetTitleShowContent(const QString& name)
{
    title->setText(name);
    title->setToolTip(ToolTipFeedLine(name));
}

QString EditTitle::GetTitleText() const
{
    return title->text();
}

void EditTitle::UpdateStatusButtonIconShow(bool show)
{
    statusIconShown = show;
    statusButton->setVisible(show && !warnings.isEmpty());
}

bool EditTitle::IsStatusButtonShown() const
{
    return statusIconShown && !warnings.isEmpty();
}

void EditTitle::SetTitleBackgroundColor(const QString& color)
{
    const bool dark = SchemeOf(color) != ViewerScheme::White;
    setStyleSheet(QString("QWidget#editTitle{background-color:%1;} QLabel{color:%2;}")
                      .arg(dark ? color : "#F2F1F0", dark ? "white" : "#333333"));
}

void EditTitle::StartTimer(bool start)
{
    if (start) {
        timer.start();
    } else {
        timer.stop();
    }
}

QString EditTitle::Topic() const
{
    const auto& topics = record.GetTopicFields();
    return topics.empty() ? QString() : QString::fromStdString(topics.begin()->first);
}

QString EditTitle::GetFrequencyText() const
{
    return frequency->text();
}

void EditTitle::UpdateFrequency()
{
    UpdateMsg();
    UpdateStatusButton();
}

void EditTitle::UpdateMsg()
{
    const std::string topic = Topic().toStdString();
    const MsgData& data = record.GetSubscriber().GetHandler().GetData();
    const int hz = data.GetFrequency(topic);
    frequency->setText(QString("%1Hz").arg(hz));
    fields.clear();
    const auto& topics = record.GetTopicFields();
    const auto selected = topics.find(topic);
    if (selected == topics.end()) {
        return;
    }
    const auto& titles = data.GetDisplayTitle();
    for (const std::string& field : selected->second) {
        FieldStatus status;
        const QString name = QString::fromStdString(record.GetFieldsNickName(topic, field));
        status.nickName = name == QString::fromStdString(field) ? "/" + LastComponent(name) : name;
        status.frequency = hz;
        std::string shortName = field;
        shortName.erase(0, topic.size());
        const auto column = std::find(titles.begin(), titles.end(), shortName);
        if (column != titles.end()) {
            const std::size_t at = static_cast<std::size_t>(column - titles.begin());
            for (const auto& row : data.GetTableData()) {
                if (at < row.size()) {
                    status.values.push_back(QString::fromStdString(row[at]));
                }
            }
        }
        fields.push_back(status);
    }
}

void EditTitle::UpdateStatusButton()
{
    const std::string topic = Topic().toStdString();
    warnings = CollectWarnings(fields, QString::fromStdString(record.GetTopicNickName(topic)),
                               "The number of character strings exceeds 3000.", errors);
    statusButton->setVisible(statusIconShown && !warnings.isEmpty());
    statusDialog->UpdateStatus(warnings);
}

void EditTitle::SlotErrorCatched(const QString& topic, const QString& message)
{
    const std::string own = Topic().toStdString();
    AddDecodeError(errors, topic, message, Topic(), QString::fromStdString(record.GetTopicNickName(own)));
}

} // namespace rviz_plugin
