#include "set_qss.h"

#include "logger.h"

#include <QFile>
#include <QWidget>

namespace {
bool ReadStyleSheet(const QString& file, QString& sheet)
{
    QFile styleFile(file);
    if (!styleFile.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return false;
    }
    sheet = QString::fromUtf8(styleFile.readAll());
    return true;
}

void LogLoadFailure(const QString& file)
{
    Orsa::Logger::GetInstance().WriteLog("OffsetSettings", Orsa::LogLevel::Error,
                                         "Qss load failed. The file name is " + file.toStdString());
}
} // namespace

bool ApplyStyleSheet(QWidget* widget, const QString& file)
{
    QString sheet;
    if (widget == nullptr || !ReadStyleSheet(file, sheet)) {
        return false;
    }
    widget->setStyleSheet(sheet);
    return true;
}

void SetQss::SetStyle(QWidget* widget, const QString& file) const
{
    if (!ApplyStyleSheet(widget, file)) {
        LogLoadFailure(file);
    }
}

void SetQss::SetStyles(QWidget* widget, const QStringList& files) const
{
    QString sheets;
    for (const QString& file : files) {
        QString sheet;
        if (ReadStyleSheet(file, sheet)) {
            sheets += sheet + "\n";
        } else {
            LogLoadFailure(file);
        }
    }
    if (widget != nullptr) {
        widget->setStyleSheet(sheets);
    }
}
