#include "labels.h"

Label::Label(const QString& text, QWidget* parent) : QLabel(text, parent) {}
