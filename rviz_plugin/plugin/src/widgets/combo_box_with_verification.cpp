#include "combo_box_with_verification.h"

#include "foundation/set_qss.h"

ComboBoxWithVerification::ComboBoxWithVerification(QWidget* parent) : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    ApplyStyleSheet(this, normalStyle);
    connect(this, &QComboBox::editTextChanged, this, &ComboBoxWithVerification::OnTextChanged);
}

void ComboBoxWithVerification::OnTextChanged(const QString& text)
{
    const QString result = verification ? verification(text) : QString();
    if (result == warning) {
        return;
    }
    warning = result;
    ApplyStyleSheet(this, warning.isEmpty() ? normalStyle : warningStyle);
    setToolTip(warning);
    Q_EMIT WarningChanged(warning);
}
