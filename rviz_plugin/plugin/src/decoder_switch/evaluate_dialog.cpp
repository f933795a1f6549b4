#include "evaluate_dialog.h"

#include "decoder_switch_result.h"

#include "widgets/buttons.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QVBoxLayout>

namespace rviz_plugin {

namespace {
const char* const notEvaluated = "Not Evaluated";
const char* const notSupported = "Not Supported";
const char* const evaluatingText = "Evaluating…";
const int decoderModes[] = {custom::DecoderInfo::SOFTWARE_DECODING_MODE,
                            custom::DecoderInfo::INTEL_HARDWARE_DECODING_MODE,
                            custom::DecoderInfo::NVIDIA_HARDWARE_DECODING_MODE};

QString ChannelsText(int channels)
{
    return QString("%1 channels").arg(channels);
}
} // namespace

EvaluateSelectWidget::EvaluateSelectWidget(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QGridLayout(this);
    layout->addWidget(new QLabel("<b>Evaluation Method</b>", this), 0, 0);
    layout->addWidget(new QLabel("<b>Evaluation Result</b>", this), 0, 1);
    layout->addWidget(new QLabel("Decoder type and video format", this), 1, 0);
    int line = 2;
    for (int mode : decoderModes) {
        for (std::size_t format = 0; format < EvaluateManager::Formats().size(); ++format) {
            Row row;
            row.choice = new QCheckBox(
                QString("%1 | %2").arg(DecoderSwitchResult::ModeName(mode), EvaluateManager::Formats()[format].name),
                this);
            row.result = new QLabel(notEvaluated, this);
            layout->addWidget(row.choice, line, 0);
            layout->addWidget(row.result, line, 1);
            rows[{mode, static_cast<int>(format)}] = row;
            ++line;
        }
    }
}

void EvaluateSelectWidget::SetSupported(const std::map<int, bool>& supported)
{
    for (auto& entry : rows) {
        const auto found = supported.find(entry.first.first);
        entry.second.supported = found == supported.end() || found->second;
        entry.second.choice->setEnabled(entry.second.supported);
        if (!entry.second.supported) {
            entry.second.choice->setChecked(false);
            entry.second.result->setText(notSupported);
        }
    }
}

void EvaluateSelectWidget::ShowHistory(const EvaluateHistory& history)
{
    for (auto& entry : rows) {
        const int channels =
            history.GetChannels(DecoderSwitchResult::ModeName(entry.first.first).toStdString(),
                                EvaluateManager::Formats()[static_cast<std::size_t>(entry.first.second)].name.toStdString());
        if (entry.second.supported && channels >= 0) {
            entry.second.result->setText(ChannelsText(channels));
        }
    }
}

void EvaluateSelectWidget::SetResultText(int mode, int format, const QString& text)
{
    const auto found = rows.find({mode, format});
    if (found != rows.end()) {
        found->second.result->setText(text);
    }
}

QString EvaluateSelectWidget::GetResultText(int mode, int format) const
{
    const auto found = rows.find({mode, format});
    return found == rows.end() ? QString() : found->second.result->text();
}

void EvaluateSelectWidget::SetChecked(int mode, int format, bool checked)
{
    const auto found = rows.find({mode, format});
    if (found != rows.end() && found->second.supported) {
        found->second.choice->setChecked(checked);
    }
}

std::vector<std::pair<int, int>> EvaluateSelectWidget::GetSelected() const
{
    std::vector<std::pair<int, int>> selected;
    for (const auto& entry : rows) {
        if (entry.second.choice->isChecked()) {
            selected.push_back(entry.first);
        }
    }
    return selected;
}

void EvaluateSelectWidget::SetEditable(bool editable)
{
    for (auto& entry : rows) {
        entry.second.choice->setEnabled(editable && entry.second.supported);
    }
}

EvaluateWidget::EvaluateWidget(QWidget* parent) : QWidget(parent), progressLabel(new QLabel(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    progressLabel->setObjectName("EvaluateWidget_progressLabel");
    progressLabel->setWordWrap(true);
    layout->addWidget(progressLabel);
}

void EvaluateWidget::SetProgress(int percent, int secondsLeft)
{
    progressLabel->setText(QString("%1% evaluated.").arg(percent) +
                           QString(" The evaluation will be completed in %1s.").arg(secondsLeft));
}

void EvaluateWidget::SetText(const QString& text)
{
    progressLabel->setText(text);
}

QString EvaluateWidget::GetText() const
{
    return progressLabel->text();
}

EvaluateDialog::EvaluateDialog(QWidget* parent, EvaluateSettings settings, const std::string& root)
    : QDialog(parent), manager(std::make_unique<EvaluateManager>(settings)),
      selectWidget(new EvaluateSelectWidget(this)), evaluateWidget(new EvaluateWidget(this)),
      startButton(new PrimaryButton("Start", this))
{
    setWindowTitle("Evaluate Decoding Performance");
    auto* layout = new QVBoxLayout(this);
    auto* note = new QLabel("The maximum number of video channels supported when the CPU usage is less than 80% is "
                            "recommended based on your decoder configuration.",
                            this);
    note->setWordWrap(true);
    layout->addWidget(note);
    layout->addWidget(selectWidget);
    layout->addWidget(new QLabel("Maximum video channels displayed in a single decode mode (error: ±1 channel)", this));
    layout->addWidget(evaluateWidget);
    auto* buttons = new QHBoxLayout();
    buttons->addStretch();
    startButton->setObjectName("EvaluateDialog_startButton");
    auto* closeButton = new SecondaryButton("Close", this);
    buttons->addWidget(startButton);
    buttons->addWidget(closeButton);
    layout->addLayout(buttons);
    connect(startButton, &QPushButton::clicked, this, &EvaluateDialog::OnStartClicked);
    connect(closeButton, &QPushButton::clicked, this, &QDialog::reject);

    initialized = manager->Initialize(root);
    if (!initialized) {
        evaluateWidget->SetText("Failed to evaluate the decoder performance.");
        startButton->setEnabled(false);
        return;
    }
    selectWidget->SetSupported(manager->CheckDecoderDevice());
    selectWidget->ShowHistory(*manager->GetHistory());
    connect(manager.get(), &EvaluateManager::Progress, evaluateWidget, &EvaluateWidget::SetProgress);
    connect(manager.get(), &EvaluateManager::ItemStarted, this,
            [this](int mode, int format) { selectWidget->SetResultText(mode, format, evaluatingText); });
    connect(manager.get(), &EvaluateManager::ItemFinished, this, &EvaluateDialog::OnItemFinished);
    connect(manager.get(), &EvaluateManager::ReadFailed, this, [this](const QString& text) {
        failed = true;
        readFailure = text;
        evaluateWidget->SetText(text);
    });
    connect(manager.get(), &EvaluateManager::Finished, this, &EvaluateDialog::OnFinished);
}

EvaluateDialog::~EvaluateDialog() = default;

void EvaluateDialog::OnStartClicked()
{
    if (manager->IsEvaluating()) {
        if (ConfirmStop("Decoding performance is being evaluated. Clicking<br><b>Yes</b> will stop the evaluation. "
                        "<b>Are you sure you</b><br><b>want to stop the evaluation?</b>")) {
            manager->Stop();
            OnFinished();
        }
        return;
    }
    const std::vector<std::pair<int, int>> selected = selectWidget->GetSelected();
    if (selected.empty()) {
        evaluateWidget->SetText("Select at least one evaluation method.");
        return;
    }
    failed = false;
    readFailure.clear();
    selectWidget->SetEditable(false);
    startButton->setText("Stop");
    manager->Start(selected);
}

void EvaluateDialog::OnItemFinished(int mode, int format, int channels)
{
    if (channels < 0) {
        failed = true;
        selectWidget->SetResultText(mode, format, notEvaluated);
        return;
    }
    selectWidget->SetResultText(mode, format, ChannelsText(channels));
}

void EvaluateDialog::OnFinished()
{
    selectWidget->SetEditable(true);
    startButton->setText("Start");
    if (!failed) {
        evaluateWidget->SetText("Decoding performance evaluation completed.");
    } else {
        // A missing stream file says which; other failures say only that the evaluation failed.
        evaluateWidget->SetText(readFailure.isEmpty() ? "Failed to evaluate the decoder performance." : readFailure);
    }
}

bool EvaluateDialog::ConfirmStop(const QString& text)
{
    if (!manager->IsEvaluating()) {
        return true;
    }
    QMessageBox box(QMessageBox::Question, windowTitle(), text, QMessageBox::Yes | QMessageBox::No, this);
    box.setTextFormat(Qt::RichText);
    confirmation = &box;
    const bool agreed = box.exec() == QMessageBox::Yes;
    confirmation = nullptr;
    return agreed;
}

void EvaluateDialog::done(int result)
{
    if (!ConfirmStop("Decoding performance is being evaluated. Clicking <b>Yes</b><br>will stop the evaluation and "
                     "close the evaluation window.<br><b>Are you sure you want to close the window?</b>")) {
        return;
    }
    manager->Stop();
    QDialog::done(result);
}

} // namespace rviz_plugin
