#ifndef WIDGETS_LINE_EDIT_WITH_WARN_LABEL_H
#define WIDGETS_LINE_EDIT_WITH_WARN_LABEL_H

#include <QWidget>

#include <functional>

class QLabel;
class QLineEdit;

// A line edit with a warning below it: the check runs on every change, and a non-empty result is shown
// in red.
class LineEditWithWarnLabel : public QWidget {
    Q_OBJECT
public:
    using Check = std::function<QString(const QString&)>;
    explicit LineEditWithWarnLabel(const QString& placeholder, QWidget* parent = nullptr);
    void SetCheck(Check check);
    QLineEdit* GetLineEdit() const { return edit; }
    QString GetWarning() const;
    void ShowWarning(const QString& warning);

Q_SIGNALS:
    void WarningChanged();

private:
    QLineEdit* edit = nullptr;
    QLabel* warning = nullptr;
    Check check;
};

#endif
