#include "viewer_style.h"

#include "foundation/set_qss.h"
#include "msg_viewer_panel/viewer_log.h"

#include <QFontMetrics>
#include <QWidget>

namespace rviz_plugin {

void ApplyViewerStyle(QWidget* widget, const QString& file)
{
    if (!ApplyStyleSheet(widget, file)) {
        ViewerLog("Failed to open the file.");
    }
}

ViewerScheme SchemeOf(const QString& color)
{
    if (color == "#0F0F0F") {
        return ViewerScheme::Black;
    }
    return color == "#6C6C6B" ? ViewerScheme::Transparent : ViewerScheme::White;
}

QString SchemeStatus(const QString& color)
{
    switch (SchemeOf(color)) {
    case ViewerScheme::Black:
        return "blackBackground";
    case ViewerScheme::Transparent:
        return "transparentBackground";
    default:
        return "whiteBackground";
    }
}

QString ElideLeftText(const QString& text, const QWidget* widget, int width)
{
    const QFontMetrics metrics(widget->font());
    return metrics.boundingRect(text).width() > width ? metrics.elidedText(text, Qt::ElideLeft, width) : text;
}

} // namespace rviz_plugin
