#include "plot_spin_box.h"

#include "plot_double_validator.h"

#include "foundation/set_qss.h"
#include "foundation/string_helpers.h"
#include "foundation/utils_functions.h"
#include "plot_data/plot_log.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace rviz_plugin {

namespace {
const char* const autoText = "AUTO";
constexpr int valueDecimals = 6;
} // namespace

PlotSpinBox::PlotSpinBox(bool range, QWidget* parent) : QWidget(parent), isRange(range)
{
    setFixedHeight(24);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    edit = new QLineEdit(this);
    edit->setObjectName("spinEdit");
    edit->setValidator(new PlotDoubleValidator(edit));
    edit->installEventFilter(this);
    warningLabel = new QLabel(this);
    warningLabel->setObjectName("warningLabel");
    warningLabel->setFixedSize(16, 16);
    warningLabel->setPixmap(QPixmap(":/plotqrc/assets/image/warning.png"));
    warningLabel->hide();
    auto* buttons = new QVBoxLayout();
    buttons->setSpacing(0);
    upBtn = new QPushButton(QString::fromUtf8("\u25B4"), this);
    upBtn->setObjectName("upBtn");
    downBtn = new QPushButton(QString::fromUtf8("\u25BE"), this);
    downBtn->setObjectName("downBtn");
    for (QPushButton* button : {upBtn, downBtn}) {
        button->setFixedSize(16, 12);
        buttons->addWidget(button);
    }
    layout->addWidget(edit, 1);
    layout->addWidget(warningLabel);
    layout->addLayout(buttons);
    connect(upBtn, &QPushButton::clicked, this, &PlotSpinBox::SlotUpBtnClicked);
    connect(downBtn, &QPushButton::clicked, this, &PlotSpinBox::SlotDownBtnClicked);
    connect(edit, &QLineEdit::textChanged, this, &PlotSpinBox::SlotTextChanged);
    SetAuto(true);
}

void PlotSpinBox::SetTextSilently(const QString& text)
{
    const QSignalBlocker blocker(edit);
    edit->setText(text);
}

void PlotSpinBox::SetAuto(bool autoValue)
{
    isAuto = autoValue;
    if (autoValue) {
        SetTextSilently(autoText);
        ShowWarning(false, WarningType::NoWarning);
        UpdateBtnStatus(GetValue());
    } else {
        SetTextSilently(QString());
        ShowWarning(true, WarningType::Empty);
        UpdateBtnStatus(0.0L);
    }
}

void PlotSpinBox::SetValue(long double value)
{
    isAuto = false;
    SetTextSilently(QString::fromStdString(ToStringAndTrimZero(value, valueDecimals)));
    ShowWarning(false, WarningType::NoWarning);
    UpdateBtnStatus(value);
}

QString PlotSpinBox::GetText() const
{
    return edit->text();
}

long double PlotSpinBox::GetValue() const
{
    if (isAuto || edit->text().isEmpty()) {
        return 0.0L;
    }
    return Orsa::UtilsFunctions::StringToNumber<long double>(edit->text().toStdString(), plotLogTag);
}

QString PlotSpinBox::GetWarningText() const
{
    return warningLabel->toolTip();
}

void PlotSpinBox::ShowWarning(bool show, WarningType type)
{
    switch (type) {
    case WarningType::MaxBelowMin:
        warningLabel->setToolTip("The maximum value must be greater than the minimum value.");
        break;
    case WarningType::MinAboveMax:
        warningLabel->setToolTip("The minimum value must be less than the maximum value.");
        break;
    case WarningType::InvalidInput:
        warningLabel->setToolTip("Invalid input value.");
        break;
    case WarningType::Empty:
        warningLabel->setToolTip("Please enter a value, or step back to AUTO.");
        break;
    case WarningType::NoWarning:
        warningLabel->setToolTip(QString());
        break;
    }
    warning = show && type != WarningType::NoWarning;
    warningLabel->setVisible(warning);
    SetQss().SetStyle(this, warning ? ":/plotqrc/assets/qss/plot_spin_box_warning.qss"
                                    : ":/plotqrc/assets/qss/plot_spin_box.qss");
    Q_EMIT SignalWarningStatusChanged(warning);
}

void PlotSpinBox::UpdateBtnStatus(long double value)
{
    upBtn->setEnabled(isAuto || value < GetMaxRange());
    downBtn->setEnabled(isAuto || value > GetMinRange());
}

void PlotSpinBox::Step(long double step)
{
    if (isAuto) {
        SetAuto(false);
    }
    const long double value = GetValue() + step;
    if (value < GetMinRange() || value > GetMaxRange()) {
        SetAuto(true);
    } else {
        SetValue(value);
    }
    Q_EMIT SignalTextChanged();
}

void PlotSpinBox::SlotUpBtnClicked()
{
    Step(1.0L);
}

void PlotSpinBox::SlotDownBtnClicked()
{
    Step(-1.0L);
}

void PlotSpinBox::SlotTextChanged(const QString& text)
{
    ShowWarning(text.isEmpty(), text.isEmpty() ? WarningType::Empty : WarningType::NoWarning);
    if (isAuto) {
        if (!isEditing) {
            SetAuto(true);
            return;
        }
        isEditing = false;
        if (isRange && (text == "0" || text == "-")) {
            SetAuto(true);
            return;
        }
        SetAuto(false);
        bool number = false;
        text.toDouble(&number);
        if (number || text == "-") {
            SetTextSilently(text);
            ShowWarning(text == "-", text == "-" ? WarningType::InvalidInput : WarningType::NoWarning);
        }
        Q_EMIT SignalTextChanged();
        return;
    }
    if (text.isEmpty()) {
        SetAuto(true);
        Q_EMIT SignalTextChanged();
        return;
    }
    if (text == "-") {
        ShowWarning(true, WarningType::InvalidInput);
        return;
    }
    UpdateBtnStatus(GetValue());
    Q_EMIT SignalTextChanged();
}

bool PlotSpinBox::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == edit && event->type() == QEvent::KeyPress && isAuto) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Backspace && edit->cursorPosition() >= 1) {
            SetAuto(false);
            Q_EMIT SignalTextChanged();
            return true;
        }
        // Typing over "AUTO" starts a value.
        const QString typed = key->text();
        if (!typed.isEmpty() && (typed[0].isDigit() || typed == "-" || typed == ".")) {
            isEditing = true;
            SetTextSilently(QString());
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace rviz_plugin
