#ifndef ORSA_SET_QSS_H
#define ORSA_SET_QSS_H

#include <QString>
#include <QStringList>

class QWidget;

// Reads a style sheet from a Qt resource or a file and applies it to widget.
// Returns false, leaving the widget's style alone, when the file cannot be opened.
bool ApplyStyleSheet(QWidget* widget, const QString& file);

// Applies a style sheet and logs "Qss load failed. The file name is <file>" when it cannot.
class SetQss {
public:
    void SetStyle(QWidget* widget, const QString& file) const;
    // Several sheets in one: setting a widget's sheet again after its children are styled can leave
    // them with the old look, so the sheets are joined and set once.
    void SetStyles(QWidget* widget, const QStringList& files) const;
};

#endif
