#ifndef RVIZ_PLUGIN_PLOT_SETTING_DIALOG_H
#define RVIZ_PLUGIN_PLOT_SETTING_DIALOG_H

#include "plot_data/plot_canvas_data.h"

#include <QDialog>
#include <QStringList>

class QPushButton;

namespace rviz_plugin {

class PlotSpinBox;
class PlotWarnEdit;

// "Plot Settings": title, y limits and the x range of a time series.
class PlotSettingDialog : public QDialog {
    Q_OBJECT
public:
    PlotSettingDialog(const PlotSetting& setting, QWidget* parent = nullptr);

    QString GetTitle() const;
    double GetYMin() const;
    double GetYMax() const;
    double GetXRange() const;
    bool GetYMinAuto() const;
    bool GetYMaxAuto() const;
    bool GetXRangeAuto() const;
    void SetVerifyNames(const QStringList& names);
    // Shows setting in the controls.
    void SetSettingData(const PlotSetting& setting);
    // The controls' values as a setting.
    PlotSetting UpdateSettingData() const;
    bool IsSaveEnabled() const;
    PlotSpinBox* GetYMinBox() const { return yMinBox; }
    PlotSpinBox* GetYMaxBox() const { return yMaxBox; }
    PlotSpinBox* GetXRangeBox() const { return xRangeBox; }
    PlotWarnEdit* GetTitleEdit() const { return titleEdit; }

Q_SIGNALS:
    void SignalSaveSetting(const PlotSetting& setting, bool isDelayed);

private Q_SLOTS:
    void SlotYSpinBoxTextChanged();
    void SlotWarningStatusChanged();
    void SlotSaveBtnClicked();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    PlotSetting saved;
    PlotWarnEdit* titleEdit = nullptr;
    PlotSpinBox* yMinBox = nullptr;
    PlotSpinBox* yMaxBox = nullptr;
    PlotSpinBox* xRangeBox = nullptr;
    QPushButton* saveBtn = nullptr;
    bool saving = false;
};

} // namespace rviz_plugin

#endif
