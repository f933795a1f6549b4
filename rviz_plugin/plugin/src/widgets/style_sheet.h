#ifndef WIDGETS_STYLE_SHEET_H
#define WIDGETS_STYLE_SHEET_H

#include <QString>

class QWidget;

// Reads a style sheet from a Qt resource or a file and applies it to widget.
// Returns false, leaving the widget's style alone, when the file cannot be opened.
bool ApplyStyleSheet(QWidget* widget, const QString& file);

#endif
