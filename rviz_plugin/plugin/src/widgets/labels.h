#ifndef WIDGETS_LABELS_H
#define WIDGETS_LABELS_H

#include <QLabel>

// Plain text of the shared look.
class Label : public QLabel {
    Q_OBJECT
public:
    explicit Label(const QString& text = QString(), QWidget* parent = nullptr);
};

#endif
