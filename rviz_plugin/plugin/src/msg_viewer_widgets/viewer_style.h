#ifndef RVIZ_PLUGIN_VIEWER_STYLE_H
#define RVIZ_PLUGIN_VIEWER_STYLE_H

#include <QString>

class QWidget;

namespace rviz_plugin {

// Applies a style sheet of the viewer's resources; logs "Failed to open the file." and leaves the
// default look when it cannot be read.
void ApplyViewerStyle(QWidget* widget, const QString& file);

// The three looks of the viewer's panels, by background colour name.
enum class ViewerScheme { White, Black, Transparent };
ViewerScheme SchemeOf(const QString& color);
// The dynamic property "status" of views for the style sheets.
QString SchemeStatus(const QString& color);

// Text elided at the left to width pixels, only when wider.
QString ElideLeftText(const QString& text, const QWidget* widget, int width);

} // namespace rviz_plugin

#endif
