#ifndef RVIZ_PLUGIN_PLOT_SPIN_BOX_H
#define RVIZ_PLUGIN_PLOT_SPIN_BOX_H

#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;

namespace rviz_plugin {

// What a spin box warns of; NoWarning clears it.
enum class WarningType { MaxBelowMin = 0, MinAboveMax = 1, InvalidInput = 2, Empty = 3, NoWarning = 4 };

// A number box that reads "AUTO" until a value is typed; a range box holds 1 to 3600 (seconds).
class PlotSpinBox : public QWidget {
    Q_OBJECT
public:
    static constexpr long double plainLimit = 1e19L;
    static constexpr long double minRange = 1.0L;
    static constexpr long double maxRange = 3600.0L;

    explicit PlotSpinBox(bool isRange, QWidget* parent = nullptr);

    void SetAuto(bool isAuto);
    bool IsAuto() const { return isAuto; }
    void SetValue(long double value);
    // The typed value; a text that is no number is logged and gives 0.
    long double GetValue() const;
    long double GetMinRange() const { return isRange ? minRange : -plainLimit; }
    long double GetMaxRange() const { return isRange ? maxRange : plainLimit; }
    void ShowWarning(bool show, WarningType type);
    bool HasWarning() const { return warning; }
    QString GetWarningText() const;
    QString GetText() const;
    QLineEdit* GetEdit() const { return edit; }
    QPushButton* GetUpButton() const { return upBtn; }
    QPushButton* GetDownButton() const { return downBtn; }

Q_SIGNALS:
    void SignalTextChanged();
    void SignalWarningStatusChanged(bool warning);

private Q_SLOTS:
    void SlotUpBtnClicked();
    void SlotDownBtnClicked();
    void SlotTextChanged(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Step(long double step);
    void UpdateBtnStatus(long double value);
    void SetTextSilently(const QString& text);

    bool isRange = false;
    bool isAuto = true;
    bool warning = false;
    // Set by the user's typing while the box reads "AUTO".
    bool isEditing = false;
    QLineEdit* edit = nullptr;
    QLabel* warningLabel = nullptr;
    QPushButton* upBtn = nullptr;
    QPushButton* downBtn = nullptr;
};

} // namespace rviz_plugin

#endif
