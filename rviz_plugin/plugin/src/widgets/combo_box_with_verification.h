#ifndef WIDGETS_COMBO_BOX_WITH_VERIFICATION_H
#define WIDGETS_COMBO_BOX_WITH_VERIFICATION_H

#include <QComboBox>

#include <functional>

// An editable combo box whose text is checked on every change: a non-empty result of the check is a
// warning, shown as the box's tool tip and in the warning style.
class ComboBoxWithVerification : public QComboBox {
    Q_OBJECT
public:
    using Verification = std::function<QString(const QString&)>;
    static constexpr const char* normalStyle = ":/ui_kit_1_5/combobox/style/combo_box.qss";
    static constexpr const char* warningStyle = ":/ui_kit_1_5/combobox/style/warning_combo_box.qss";

    explicit ComboBoxWithVerification(QWidget* parent = nullptr);
    void SetVerification(Verification check) { verification = std::move(check); }
    const QString& GetWarning() const { return warning; }
    void OnTextChanged(const QString& text);

Q_SIGNALS:
    void WarningChanged(const QString& warning);

private:
    Verification verification;
    QString warning;
};

#endif
