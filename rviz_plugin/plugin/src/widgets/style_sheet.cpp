#include "style_sheet.h"

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
