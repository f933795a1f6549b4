#ifndef RVIZ_PLUGIN_RECORD_EVALUATE_WIDGET_H
#define RVIZ_PLUGIN_RECORD_EVALUATE_WIDGET_H

#include <QDialog>

#include <functional>

class QLabel;
class QProgressBar;

namespace rviz_plugin {

// The progress of the recording evaluation; closing it asks whether to stop the evaluation.
class RecordEvaluateWidget : public QDialog {
    Q_OBJECT

public:
    explicit RecordEvaluateWidget(QWidget* parent = nullptr);
    void Start();
    void UpdateProgress(int percent, int secondsLeft);
    // Closes without asking (the evaluation has ended).
    void Finish();
    // Whether the user confirms stopping; replaced in tests.
    void SetConfirmation(std::function<bool()> confirm);
    QLabel* GetProgressLabel() const { return progressLabel; }

    static const char* const stopQuestion;

Q_SIGNALS:
    void CancelEvaluation();

protected:
    void closeEvent(QCloseEvent* event) override;
    void reject() override;

private:
    bool AskToStop();

    QLabel* progressLabel = nullptr;
    QProgressBar* progressBar = nullptr;
    std::function<bool()> confirmation;
    bool finishing = false;
};

} // namespace rviz_plugin

#endif
