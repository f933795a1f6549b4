#include "status_bar_view.h"

#include "edit_label.h"
#include "key_value_item.h"
#include "msg_viewer_panel/msg_record.h"
#include "panel_status_dialog.h"
#include "viewer_style.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace rviz_plugin {

StatusBarView::StatusBarView(MsgRecord& record, QWidget* parent)
    : QWidget(parent), record(record), displayTopicName(new EditLabel(false, this)), hz(new QLabel("0Hz", this)),
      stateButton(new QPushButton(this)), statusDialog(new PanelStatusDialog(this))
{
    setObjectName("statusBarView");
    setAttribute(Qt::WA_StyledBackground);
    setCursor(Qt::OpenHandCursor);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 2, 8, 2);
    layout->addWidget(displayTopicName);
    layout->addStretch(1);
    layout->addWidget(hz);
    stateButton->setIcon(QIcon(":image/warning.png"));
    stateButton->setFlat(true);
    stateButton->hide();
    layout->addWidget(stateButton);
    connect(stateButton, &QPushButton::clicked, statusDialog, &PanelStatusDialog::ExecuteStatusDialog);
    connect(displayTopicName, &EditLabel::TextEdited, this, [this](int, const QString& name) {
        this->record.UpdateTopicNickName(topic, name.toStdString());
        UpdateStatusBar(topic);
        Q_EMIT SignalConfigChanged();
    });
    statusTimer.setInterval(100);
    connect(&statusTimer, &QTimer::timeout, this, &StatusBarView::UpdateFrequency);
}

QString StatusBarView::GetTopicNickName() const
{
    return QString::fromStdString(record.GetTopicNickName(topic));
}

QString StatusBarView::GetShownName() const
{
    return displayTopicName->GetDisplayText();
}

void StatusBarView::UpdateStatusBar(const std::string& name)
{
    topic = name;
    QString shown = GetTopicNickName();
    if (shown.startsWith('/')) {
        shown.remove(0, 1);
    }
    displayTopicName->SetOriginalKey(QString::fromStdString(topic));
    displayTopicName->SetDisplayText(shown);
    const int width = QFontMetrics(displayTopicName->font()).horizontalAdvance(shown) + 10;
    displayTopicName->setFixedWidth(std::min(width + 8, maxNameWidth));
}

void StatusBarView::StartCountFrequency()
{
    statusTimer.start();
}

void StatusBarView::StartTimer(bool start)
{
    if (start) {
        statusTimer.start();
    } else {
        statusTimer.stop();
    }
}

QString StatusBarView::GetFrequencyText() const
{
    return hz->text();
}

bool StatusBarView::IsStateButtonShown() const
{
    return !warnings.isEmpty();
}

void StatusBarView::UpdateFrequency()
{
    hz->setText(QString("%1Hz").arg(record.GetSubscriber().GetHandler().GetData().GetFrequency(topic)));
    UpdateMsg();
    UpdateButtonStatues();
}

void StatusBarView::UpdateKeyValueState(QVector<KeyValueItem*>& shownItems)
{
    items = shownItems;
}

void StatusBarView::UpdateMsg()
{
    const int frequency = record.GetSubscriber().GetHandler().GetData().GetFrequency(topic);
    fields.clear();
    for (const KeyValueItem* item : items) {
        fields.push_back({item->GetKeyText(), frequency, {QString::fromStdString(item->GetValueText())}});
    }
    if (fields.isEmpty()) {
        fields.push_back({GetTopicNickName(), frequency, {}});
    }
}

void StatusBarView::UpdateButtonStatues()
{
    warnings = CollectWarnings(fields, GetTopicNickName(), "The string length exceeds 3000.", errors);
    stateButton->setVisible(!warnings.isEmpty());
    statusDialog->UpdateStatus(warnings);
}

void StatusBarView::SlotErrorCatched(const QString& errorTopic, const QString& message)
{
    AddDecodeError(errors, errorTopic, message, QString::fromStdString(topic), GetShownName());
}

void StatusBarView::SetStyleSheet(const QString& color)
{
    const bool dark = SchemeOf(color) != ViewerScheme::White;
    setStyleSheet(QString("QWidget#statusBarView{background-color:%1;} QLabel{color:%2;}")
                      .arg(dark ? "#333333" : "#F3F4F8", dark ? "#F2F1F0" : "#333333"));
}

} // namespace rviz_plugin
