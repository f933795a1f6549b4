#ifndef RVIZ_PLUGIN_PLOT_WARN_EDIT_H
#define RVIZ_PLUGIN_PLOT_WARN_EDIT_H

#include "widgets/line_edit_with_warn_label.h"

#include <QStringList>

namespace rviz_plugin {

// A name edit: 60 characters, fewer when they are wide; an empty name, or one in use, warns.
class PlotWarnEdit : public LineEditWithWarnLabel {
    Q_OBJECT
public:
    static constexpr int maxLength = 60;
    explicit PlotWarnEdit(const QString& placeholder, QWidget* parent = nullptr);

    void SetVerifyNames(const QStringList& names);
    // Checks the present text now (an empty text warns "No content.").
    void SetVerifyContent();
    void ClearWarning();
    bool HasWarning() const { return !GetWarning().isEmpty(); }

Q_SIGNALS:
    void SignalWarningStatusChanged(bool warning);

private Q_SLOTS:
    void SlotWarningStatusChanged();

private:
    void InstallChecks();
    void LimitLength(const QString& text);

    QStringList verifyNames;
    bool hasVerifyNames = false;
    bool checksInstalled = false;
};

} // namespace rviz_plugin

#endif
