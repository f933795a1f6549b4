#include "record_center_widget.h"

#include "record_video_logic/inquire_status.h"

#include "widgets/buttons.h"
#include "widgets/line_edit_with_warn_label.h"
#include "widgets/video_view_widget.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollArea>
#include <QVBoxLayout>

namespace rviz_plugin {

namespace {
constexpr double bytesPerGib = 1024.0 * 1024.0 * 1024.0;

QLabel* SectionTitle(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setStyleSheet("font-weight: bold;");
    return label;
}
} // namespace

RecordCenterWidget::RecordCenterWidget(bool nvidiaOffered, QWidget* parent)
    : QDialog(parent),
      generatedTaskName(DefaultTaskName()),
      capacityReader(&InquireStatus::GetCapacityInBit),
      nvidiaSupported(nvidiaOffered)
{
    setObjectName("RecordCenterWidget");
    setWindowTitle("Record Video");
    setMinimumWidth(820);

    taskName = new LineEditWithWarnLabel("Please enter a task name", this);
    taskName->GetLineEdit()->setText(generatedTaskName);
    // The generated name is taken as it is; what the user types is checked.
    taskName->SetCheck([this](const QString& text) {
        return text == generatedTaskName ? QString() : VerifyCmdContent(text);
    });
    folderEdit = new QLineEdit(QDir::homePath() + "/Downloads", this);
    auto* browse = new SecondaryButton("...", this);
    browse->setFixedWidth(32);
    auto* folderRow = new QHBoxLayout();
    folderRow->addWidget(folderEdit, 1);
    folderRow->addWidget(browse);
    formatBox = new QComboBox(this);
    formatBox->addItem("MP4");
    resolutionBox = new QComboBox(this);
    resolutionBox->addItems({"480P", "720P", "1080P"});
    skipEvaluationBox = new QCheckBox("Skip evaluation", this);
    skipEvaluationBox->setToolTip("Skip the video recording evaluation process.");
    nvidiaEncoderBox = new QCheckBox("Enable nvidia encoder", this);
    nvidiaEncoderBox->setToolTip(
        "Enabling the Nvidia encoder improves recording performance, but results in large file sizes.");
    nvidiaEncoderBox->setVisible(nvidiaOffered);

    auto* details = new QFormLayout();
    details->addRow("Task Name", taskName);
    details->addRow("Save To", folderRow);
    details->addRow("Format", formatBox);
    details->addRow("Resolution", resolutionBox);

    selectedLabel = new QLabel(this);
    auto* windowArea = new QWidget(this);
    windowGrid = new QGridLayout(windowArea);
    windowGrid->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto* scroll = new QScrollArea(this);
    scroll->setWidget(windowArea);
    scroll->setWidgetResizable(true);
    scroll->setMinimumHeight(220);

    capacityLabel = new QLabel(this);
    capacityWarning = new QLabel(this);
    capacityWarning->setStyleSheet("color: #E84A4A;");
    capacityWarning->setWordWrap(true);
    capacityWarning->hide();
    recordButton = new PrimaryButton("Record", this);
    auto* cancel = new SecondaryButton("Cancel", this);
    auto* buttons = new QHBoxLayout();
    buttons->addWidget(capacityLabel);
    buttons->addStretch(1);
    buttons->addWidget(cancel);
    buttons->addWidget(recordButton);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(SectionTitle("Details", this));
    layout->addLayout(details);
    layout->addWidget(SectionTitle("Recording window", this));
    layout->addWidget(selectedLabel);
    layout->addWidget(scroll, 1);
    layout->addWidget(skipEvaluationBox);
    layout->addWidget(nvidiaEncoderBox);
    layout->addWidget(capacityWarning);
    layout->addLayout(buttons);

    connect(browse, &QPushButton::clicked, this, &RecordCenterWidget::ChooseFolder);
    connect(folderEdit, &QLineEdit::textChanged, this, &RecordCenterWidget::UpdateCapacityValue);
    connect(taskName, &LineEditWithWarnLabel::WarningChanged, this, &RecordCenterWidget::UpdateRecordButton);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(recordButton, &QPushButton::clicked, this, &RecordCenterWidget::OnRecord);
    UpdateSelectedCount();
    UpdateCapacityValue();
}

QString RecordCenterWidget::DefaultTaskName()
{
    return QDateTime::currentDateTime().toString("yyyy-MM-dd_hh:mm:ss");
}

QString RecordCenterWidget::VerifyCmdContent(const QString& name)
{
    if (name.isEmpty()) {
        return "No content.";
    }
    static const QRegularExpression allowed("^[A-Za-z0-9_-]+$");
    if (!allowed.match(name).hasMatch()) {
        return "The command name can contain only letters, digits, _, -";
    }
    return QString();
}

QLineEdit* RecordCenterWidget::GetTaskNameEdit() const
{
    return taskName->GetLineEdit();
}

void RecordCenterWidget::AddRecordingWindow(const QString& topic, const QString& name, const QImage& preview)
{
    auto* view = new VideoViewWidget(this);
    view->Initialize(topic, name, preview);
    view->SetChecked(!preview.isNull());
    const int index = windows.size();
    windowGrid->addWidget(view, index / windowsPerRow, index % windowsPerRow);
    windows.insert(topic, view);
    connect(view, &VideoViewWidget::SendSelectStatus, this, &RecordCenterWidget::UpdateSelectedCount);
    UpdateSelectedCount();
}

void RecordCenterWidget::ClearRecordingWindows()
{
    for (VideoViewWidget* view : windows) {
        windowGrid->removeWidget(view);
        view->deleteLater();
    }
    windows.clear();
    UpdateSelectedCount();
}

void RecordCenterWidget::UpdateSelectedCount()
{
    int selected = 0;
    for (const VideoViewWidget* view : windows) {
        selected += view->GetIsChecked() ? 1 : 0;
    }
    selectedLabel->setText(QString("Recording window selected(%1/%2)").arg(selected).arg(windows.size()));
    UpdateRecordButton();
}

void RecordCenterWidget::SetCapacityReader(std::function<int64_t(const QString&)> reader)
{
    capacityReader = std::move(reader);
    UpdateCapacityValue();
}

void RecordCenterWidget::UpdateCapacityValue()
{
    const int64_t free = capacityReader(folderEdit->text());
    capacityLabel->setText(QString("Capacity: %1GB").arg(static_cast<double>(free) / bytesPerGib, 0, 'f', 2));
    capacityEnough = free >= minimumCapacity;
    capacityWarning->setText(
        capacityEnough ? QString()
                       : QString("The memory capacity is less than 1 GB. Please clear the space and restart recording."));
    capacityWarning->setVisible(!capacityEnough);
    UpdateRecordButton();
}

void RecordCenterWidget::UpdateRecordButton()
{
    bool anySelected = false;
    for (const VideoViewWidget* view : windows) {
        anySelected = anySelected || view->GetIsChecked();
    }
    const QString name = taskName->GetLineEdit()->text();
    const bool nameValid = name == generatedTaskName || VerifyCmdContent(name).isEmpty();
    recordButton->setEnabled(capacityEnough && anySelected && nameValid);
}

void RecordCenterWidget::ChooseFolder()
{
    const QString folder = QFileDialog::getExistingDirectory(this, "Save To", folderEdit->text());
    if (!folder.isEmpty()) {
        folderEdit->setText(folder);
    }
}

RecordMsg RecordCenterWidget::GetRecordMsg() const
{
    RecordMsg msg;
    msg.folder = folderEdit->text();
    msg.taskName = taskName->GetLineEdit()->text();
    msg.resolution = resolutionBox->currentText();
    msg.skipEvaluation = skipEvaluationBox->isChecked();
    msg.useNvidiaEncoder = nvidiaSupported && nvidiaEncoderBox->isChecked();
    for (const VideoViewWidget* view : windows) {
        if (view->GetIsChecked()) {
            msg.topics.append(view->GetTopic());
        }
    }
    return msg;
}

void RecordCenterWidget::OnRecord()
{
    UpdateRecordButton();
    if (!recordButton->isEnabled()) {
        return;
    }
    accept();
    Q_EMIT StartRecord(GetRecordMsg());
}

} // namespace rviz_plugin
