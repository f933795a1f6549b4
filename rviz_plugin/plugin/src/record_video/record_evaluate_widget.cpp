#include "record_evaluate_widget.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QVBoxLayout>

namespace rviz_plugin {

const char* const RecordEvaluateWidget::stopQuestion =
    "Recording performance is being evaluated. Clicking<br><b>Yes</b> will stop the evaluation. <b>Are you sure "
    "you</b><br><b>want to stop the evaluation?</b>";

RecordEvaluateWidget::RecordEvaluateWidget(QWidget* parent) : QDialog(parent)
{
    setObjectName("RecordEvaluateWidget");
    setWindowTitle("Record Video");
    auto* title = new QLabel("Evaluating the recording performance", this);
    title->setStyleSheet("font-weight: bold;");
    progressBar = new QProgressBar(this);
    progressBar->setRange(0, 100);
    progressLabel = new QLabel(this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(title);
    layout->addWidget(progressBar);
    layout->addWidget(progressLabel);
    setMinimumWidth(420);
    confirmation = [this] {
        return QMessageBox::question(this, "Record Video", stopQuestion, QMessageBox::Yes | QMessageBox::No) ==
               QMessageBox::Yes;
    };
}

void RecordEvaluateWidget::Start()
{
    finishing = false;
    progressBar->setValue(0);
    progressLabel->setText("0% evaluated. The evaluation will be completed in 10s");
    show();
}

void RecordEvaluateWidget::UpdateProgress(int percent, int secondsLeft)
{
    progressBar->setValue(percent);
    progressLabel->setText(
        QString("%1% evaluated. The evaluation will be completed in %2s.").arg(percent).arg(secondsLeft));
}

void RecordEvaluateWidget::Finish()
{
    finishing = true;
    hide();
}

void RecordEvaluateWidget::SetConfirmation(std::function<bool()> confirm)
{
    confirmation = std::move(confirm);
}

bool RecordEvaluateWidget::AskToStop()
{
    if (finishing || !confirmation()) {
        return finishing;
    }
    Q_EMIT CancelEvaluation();
    return true;
}

void RecordEvaluateWidget::closeEvent(QCloseEvent* event)
{
    if (AskToStop()) {
        event->accept();
    } else {
        event->ignore();
    }
}

void RecordEvaluateWidget::reject()
{
    if (AskToStop()) {
        QDialog::reject();
    }
}

} // namespace rviz_plugin
