#ifndef RVIZ_PLUGIN_EVALUATE_DIALOG_H
#define RVIZ_PLUGIN_EVALUATE_DIALOG_H

#include "evaluate_manager.h"

#include <QDialog>
#include <QWidget>

#include <map>
#include <memory>
#include <utility>
#include <vector>

class QCheckBox;
class QLabel;
class QMessageBox;
class QPushButton;

namespace rviz_plugin {

// The choice of what to evaluate: one row per decoder and video format, with its result.
class EvaluateSelectWidget : public QWidget {
    Q_OBJECT
public:
    explicit EvaluateSelectWidget(QWidget* parent = nullptr);

    // Rows of decoders that cannot be created here show "Not Supported" and cannot be chosen.
    void SetSupported(const std::map<int, bool>& supported);
    void ShowHistory(const EvaluateHistory& history);
    void SetResultText(int mode, int format, const QString& text);
    QString GetResultText(int mode, int format) const;
    void SetChecked(int mode, int format, bool checked);
    std::vector<std::pair<int, int>> GetSelected() const;
    void SetEditable(bool editable);

private:
    struct Row {
        QCheckBox* choice = nullptr;
        QLabel* result = nullptr;
        bool supported = true;
    };
    std::map<std::pair<int, int>, Row> rows;
};

// Progress of a running evaluation and its outcome.
class EvaluateWidget : public QWidget {
    Q_OBJECT
public:
    explicit EvaluateWidget(QWidget* parent = nullptr);
    void SetProgress(int percent, int secondsLeft);
    void SetText(const QString& text);
    QString GetText() const;

private:
    QLabel* progressLabel;
};

// "Evaluate Decoding Performance": choose decoders and formats, run, read the channel counts.
class EvaluateDialog : public QDialog {
    Q_OBJECT
public:
    explicit EvaluateDialog(QWidget* parent = nullptr, EvaluateSettings settings = EvaluateSettings(),
                            const std::string& root = std::string());
    ~EvaluateDialog() override;

    EvaluateSelectWidget* GetSelectWidget() const { return selectWidget; }
    EvaluateWidget* GetEvaluateWidget() const { return evaluateWidget; }
    EvaluateManager* GetManager() const { return manager.get(); }
    QMessageBox* GetConfirmation() const { return confirmation; }

public Q_SLOTS:
    void OnStartClicked();
    void done(int result) override;

private:
    // Asks before a running evaluation is stopped; true when the user agreed (or nothing runs).
    bool ConfirmStop(const QString& text);
    void OnItemFinished(int mode, int format, int channels);
    void OnFinished();

    std::unique_ptr<EvaluateManager> manager;
    bool initialized = false;
    EvaluateSelectWidget* selectWidget;
    EvaluateWidget* evaluateWidget;
    QPushButton* startButton;
    QMessageBox* confirmation = nullptr;
    bool failed = false;
    QString readFailure;
};

} // namespace rviz_plugin

#endif
