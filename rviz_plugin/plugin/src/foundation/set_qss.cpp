#include "set_qss.h"

#include "logger.h"

#include <QFile>
#include <QWidget>

bool ApplyStyleSheet(QWidget* widget, const QString& file)
{
    QFile styleFile(file);
    if (widget == nullptr || !styleFile.open(QIODevice::ReadOnly | QIODevice::Text)) {
        return false;
    }
    widget->setStyleSheet(QString::fromUtf8(styleFile.readAll()));
    return true;
}

void SetQss::SetStyle(QWidget* widget, const QString& file) const
{
    if (!ApplyStyleSheet(widget, file)) {
        Orsa::Logger::GetInstance().WriteLog("OffsetSettings", Orsa::LogLevel::Error,
                                             "Qss load failed. The file name is " + file.toStdString());
    }
}
