#include "decoder_switch_dialogs.h"

#include "widgets/buttons.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#ifndef Q_MOC_RUN
#include <custom/DecoderInfo.h>
#endif

namespace rviz_plugin {

namespace {
constexpr int dialogWidth = 460;

// Buttons at the bottom right of a dialog: the primary one accepts, the secondary one rejects.
QHBoxLayout* DialogButtons(QDialog* dialog, const QString& accept, const QString& reject)
{
    auto* buttons = new QHBoxLayout();
    buttons->addStretch();
    auto* primary = new PrimaryButton(accept, dialog);
    primary->setObjectName("DecoderSwitch_acceptButton");
    auto* secondary = new SecondaryButton(reject, dialog);
    secondary->setObjectName("DecoderSwitch_rejectButton");
    buttons->addWidget(primary);
    buttons->addWidget(secondary);
    QObject::connect(primary, &QPushButton::clicked, dialog, &QDialog::accept);
    QObject::connect(secondary, &QPushButton::clicked, dialog, &QDialog::reject);
    return buttons;
}
} // namespace

DecoderTypeSelectDlg::DecoderTypeSelectDlg(int currentMode, QWidget* parent)
    : QDialog(parent), choices(new QButtonGroup(this))
{
    setWindowTitle("Select Decoder");
    setMinimumWidth(dialogWidth);
    auto* layout = new QVBoxLayout(this);
    const std::pair<int, const char*> modes[] = {
        {custom::DecoderInfo::SOFTWARE_DECODING_MODE, "Software Decoder"},
        {custom::DecoderInfo::INTEL_HARDWARE_DECODING_MODE, "Intel Hardware Decoder"},
        {custom::DecoderInfo::NVIDIA_HARDWARE_DECODING_MODE, "NVIDIA Hardware Decoder"},
    };
    for (const auto& mode : modes) {
        auto* choice = new QRadioButton(mode.second, this);
        choices->addButton(choice, mode.first);
        layout->addWidget(choice);
    }
    SelectMode(currentMode);
    layout->addLayout(DialogButtons(this, "Apply", "Cancel"));
}

int DecoderTypeSelectDlg::GetSelectedMode() const
{
    return choices->checkedId();
}

void DecoderTypeSelectDlg::SelectMode(int mode)
{
    if (QAbstractButton* choice = choices->button(mode)) {
        choice->setChecked(true);
    }
}

DecoderMessageBoxAlarm::DecoderMessageBoxAlarm(const QString& text, QWidget* parent) : QDialog(parent)
{
    setWindowTitle("Switching Decoder");
    setMinimumWidth(dialogWidth);
    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(text, this);
    label->setWordWrap(true);
    layout->addWidget(label);
    layout->addLayout(DialogButtons(this, "Switch anyway", "Don't switch"));
}

DecoderMessageBoxDetail::DecoderMessageBoxDetail(const QString& summary, const QStringList& details, QWidget* parent)
    : QDialog(parent), detailLabel(new QLabel(details.join("<br>"), this)), detailButton(new SecondaryButton("Show Detail", this))
{
    setWindowTitle("Switching Decoder");
    setMinimumWidth(dialogWidth);
    auto* layout = new QVBoxLayout(this);
    auto* summaryLabel = new QLabel(summary, this);
    summaryLabel->setObjectName("DecoderSwitch_summaryLabel");
    summaryLabel->setWordWrap(true);
    layout->addWidget(summaryLabel);
    detailLabel->setObjectName("DecoderSwitch_detailLabel");
    detailLabel->setTextFormat(Qt::RichText);
    detailLabel->setWordWrap(true);
    detailLabel->hide();
    layout->addWidget(detailLabel);
    detailButton->setObjectName("DecoderSwitch_detailButton");
    detailButton->setEnabled(!details.isEmpty());
    auto* ok = new PrimaryButton("OK", this);
    auto* buttons = new QHBoxLayout();
    buttons->addWidget(detailButton);
    buttons->addStretch();
    buttons->addWidget(ok);
    layout->addLayout(buttons);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    connect(detailButton, &QPushButton::clicked, this, [this]() {
        detailLabel->setVisible(!detailLabel->isVisible());
        detailButton->setText(detailLabel->isVisible() ? "Hide Detail" : "Show Detail");
        adjustSize();
    });
}

bool DecoderMessageBoxDetail::IsDetailShown() const
{
    return detailLabel->isVisibleTo(this);
}

} // namespace rviz_plugin
