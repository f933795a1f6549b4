#include "plot_warn_edit.h"

#include "plot_data/plot_global.h"

#include <QLineEdit>

namespace rviz_plugin {

PlotWarnEdit::PlotWarnEdit(const QString& placeholder, QWidget* parent) : LineEditWithWarnLabel(placeholder, parent)
{
    GetLineEdit()->setMaxLength(maxLength * 2);
    connect(GetLineEdit(), &QLineEdit::textChanged, this, [this](const QString& text) {
        GetLineEdit()->setMaxLength((maxLength - PlotGlobal::GetChineseCount(text)) * 2);
        InstallChecks();
    });
    connect(this, &LineEditWithWarnLabel::WarningChanged, this, &PlotWarnEdit::SlotWarningStatusChanged);
}

void PlotWarnEdit::InstallChecks()
{
    if (checksInstalled) {
        return;
    }
    checksInstalled = true;
    SetCheck([this](const QString& text) {
        return hasVerifyNames ? PlotGlobal::GetInstance().VerifyName(text, verifyNames)
                              : PlotGlobal::GetInstance().VerifyContent(text);
    });
    // The first change has already happened: check it.
    ShowWarning(hasVerifyNames ? PlotGlobal::GetInstance().VerifyName(GetLineEdit()->text(), verifyNames)
                               : PlotGlobal::GetInstance().VerifyContent(GetLineEdit()->text()));
}

void PlotWarnEdit::SetVerifyNames(const QStringList& names)
{
    verifyNames = names;
    hasVerifyNames = true;
}

void PlotWarnEdit::SetVerifyContent()
{
    ShowWarning(PlotGlobal::GetInstance().VerifyContent(GetLineEdit()->text()));
}

void PlotWarnEdit::ClearWarning()
{
    ShowWarning(QString());
}

void PlotWarnEdit::SlotWarningStatusChanged()
{
    const bool warning = HasWarning();
    Q_EMIT SignalWarningStatusChanged(warning);
}

} // namespace rviz_plugin
