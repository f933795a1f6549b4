#include "line_edit_with_warn_label.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

LineEditWithWarnLabel::LineEditWithWarnLabel(const QString& placeholder, QWidget* parent) : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    edit = new QLineEdit(this);
    edit->setPlaceholderText(placeholder);
    warning = new QLabel(this);
    warning->setObjectName("LineEditWithWarnLabel_warning");
    warning->setStyleSheet("color: #e02020;");
    warning->setWordWrap(true);
    warning->hide();
    layout->addWidget(edit);
    layout->addWidget(warning);
    connect(edit, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (check) {
            ShowWarning(check(text));
        }
    });
}

void LineEditWithWarnLabel::SetCheck(Check newCheck)
{
    check = std::move(newCheck);
}

QString LineEditWithWarnLabel::GetWarning() const
{
    return warning->text();
}

void LineEditWithWarnLabel::ShowWarning(const QString& text)
{
    warning->setText(text);
    warning->setVisible(!text.isEmpty());
    Q_EMIT WarningChanged();
}
