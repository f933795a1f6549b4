#ifndef ORSA_SET_QSS_H
#define ORSA_SET_QSS_H

#include <QString>

class QWidget;

// Reads a style sheet from a Qt resource or a file and applies it to widget.
// Returns false, leaving the widget's style alone, when the file cannot be opened.
bool ApplyStyleSheet(QWidget* widget, const QString& file);

// Applies a style sheet and logs "Qss load failed. The file name is <file>" when it cannot.
class SetQss {
public:
    void SetStyle(QWidget* widget, const QString& file) const;
};

#endif
