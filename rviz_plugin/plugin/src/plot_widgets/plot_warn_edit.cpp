#include "plot_warn_edit.h"

#include "plot_data/plot_global.h"

#include <QLineEdit>

namespace rviz_plugin {

PlotWarnEdit::PlotWarnEdit(const QString& placeholder, QWidget* parent) : LineEditWithWarnLabel(placeholder, parent)
{
    GetLineEdit()->setMaxLength(maxLength * 2);
    connect(GetLineEdit(), &QLineEdit::textChanged, this, [this](const QString& text) {
        LimitLength(text);
        InstallChecks();
    });
    connect(this, &LineEditWithWarnLabel::WarningChanged, this, &PlotWarnEdit::SlotWarningStatusChanged);
}

void PlotWarnEdit::LimitLength(const QString& text)
{
    // A wide character takes the room of two: (60 - wide characters) x 2 characters at most.
    const auto limit = [](int wide) { return (maxLength - wide) * 2; };
    if (text.size() <= limit(PlotGlobal::GetChineseCount(text))) {
        GetLineEdit()->setMaxLength(limit(PlotGlobal::GetChineseCount(text)));
        return;
    }
    // Pasted text beyond the limit: its longest start within it stays (the limit alone could be
    // negative and empty the edit).
    int kept = 0;
    int wide = 0;
    while (kept < text.size()) {
        const int nextWide = wide + PlotGlobal::GetChineseCount(text.mid(kept, 1));
        if (kept + 1 > limit(nextWide)) {
            break;
        }
        wide = nextWide;
        ++kept;
    }
    GetLineEdit()->setMaxLength(limit(wide));
    GetLineEdit()->setText(text.left(kept));
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
