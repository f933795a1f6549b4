#ifndef RVIZ_PLUGIN_PLOT_WIDGET_H
#define RVIZ_PLUGIN_PLOT_WIDGET_H

#include "plot_data/plot_canvas_data.h"

#include <QColor>
#include <QMap>
#include <QPointF>
#include <QStringList>
#include <QTimer>
#include <QVector>
#include <QWidget>

class QwtPlot;
class QPushButton;
class QWheelEvent;

namespace rviz_plugin {

class PlotAxisWidget;
class PlotCurve;
class PlotDoubleSlider;
class PlotEditLabel;
class PlotMagnifier;
class PlotModel;
class PlotMoreWidget;
class PlotPicker;
class PlotSettingDialog;
class PlotTimeLine;

// One plot: the canvas with its lines, time line, range slider and buttons, and the pane that edits
// its axes. States: automatic (the ranges follow the data), slider moved (x stays), zoomed (both stay),
// maximised.
class PlotWidget : public QWidget {
    Q_OBJECT
public:
    static constexpr int buttonSize = 24;
    static constexpr int titleWidth = 200;
    static constexpr int axisMargin = 1;
    static constexpr int replotInterval = 1000;

    explicit PlotWidget(PlotModel& model, QWidget* parent = nullptr);
    ~PlotWidget() override;

    void InitUi();
    void SetCanvasData(const PlotCanvasData& data);
    // The saved state, with the live size.
    PlotCanvasData GetCanvasData() const;
    void SetPlotName(const QString& name);
    QString GetPlotName() const;
    QString GetPlotTitle() const { return canvasData.setting.title; }
    void UpdateCurve(bool isMsgPath);
    void UpdatePlotWidget();
    void RestorePlot();
    void RefreshTimeLine(double x);
    void UpdateTimeLine(double x);
    void ShowTimeLine(bool show);
    void OnSliderMoved(bool isMax, double value);
    void SetSliderMoved(bool moved);
    void SaveXRange(const PlotSetting& setting);
    void SaveSetting(const PlotSetting& setting);
    void Rescale(QWheelEvent* event);
    void OnPlotVisibleChanged(bool visible);
    void SetRemoveItemDisabled(bool disabled);
    void SetSplitItemDisabled(bool disabled);
    void ShowRestoreBtn(bool show);
    void SetMaximize(bool maximize);
    bool IsMaximize() const { return canvasData.isMaximize; }
    void SetVerifyName(const QStringList& names);
    void HideWidgets();
    bool IsMsgPath() const;
    bool IsRescaled() const;
    bool IsSliderMoved() const;

    // For tests and benchmarks.
    QwtPlot* GetPlot() const { return plot; }
    const QVector<PlotCurve*>& GetCurves() const { return curves; }
    const QMap<int, PlotCurve*>& GetBakCurves() const { return bakCurves; }
    PlotAxisWidget* GetAxisWidget() const { return axisWidget; }
    PlotMoreWidget* GetMoreWidget() const { return moreWidget; }
    PlotDoubleSlider* GetSlider() const { return slider; }
    PlotMagnifier* GetMagnifier() const { return magnifier; }
    PlotSettingDialog* GetSettingDialog() const { return settingDialog; }
    PlotTimeLine* GetTimeLine() const { return timeLine; }
    QPushButton* GetRestoreButton() const { return restoreBtn; }
    void GetXAxisRange(double& min, double& max, bool isMsgPath) const;
    void GetYAxisRange(double& min, double& max) const;
    // Draws whatever arrived since the last replot.
    void ReplotIfChanged();

Q_SIGNALS:
    void SignalSplit(Qt::Orientation orientation);
    void SignalRemovePlot();
    void SignalMaximize(bool maximize);
    void SignalTitleChanged(const QString& title);
    void SignalConfigChanged();
    void SignalSaveXRange(const PlotSetting& setting);
    void SignalSetSliderMoved(bool moved, bool isMsgPath);
    void SignalHideTimeLine();
    void SignalTimeLineMoved(double x);
    void SignalRescale(QWheelEvent* event);
    void SignalSliderMinValueChanged(double value);
    void SignalSliderMaxValueChanged(double value);
    void SignalRestoreBtnClicked();

public Q_SLOTS:
    void SlotAddLine(const QString& color);
    void SlotRemoveItem(int index);
    void SlotColorChanged(int index, const QColor& color);
    void SlotStartDrawCurve(int index, const QString& name);
    void SlotUpdateCurve(int index, const QVector<QPointF>& points, const QVector<double>& timestamps);
    void SlotClearCurveData(int index);
    void SlotLoopBegin(int index);
    void SlotAxisDataChanged(const AxisData& data);
    void SlotSaveSetting(const PlotSetting& setting, bool isDelayed);
    void SlotRescaled();
    void SlotResetPlotUi();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void InitCanvas();
    void UpdateSlider(double min, double max);
    void SliderMinValueChanged(double value);
    void SliderMaxValueChanged(double value);
    void UpdateRestoreBtn();
    void RemoveBakCurve(int index);
    PlotCurve* NewCurve(const QColor& color, const QString& name);
    void SetMagnifierData(const PlotMagnifierData& data);
    void ApplySliderData();

    PlotModel& plotModel;
    QwtPlot* plot = nullptr;
    PlotMagnifier* magnifier = nullptr;
    PlotPicker* picker = nullptr;
    PlotTimeLine* timeLine = nullptr;
    double timeLineX = 0.0;
    QVector<PlotCurve*> curves;
    QMap<int, PlotCurve*> bakCurves;
    PlotEditLabel* titleLabel = nullptr;
    QPushButton* restoreBtn = nullptr;
    QPushButton* axisBtn = nullptr;
    QPushButton* setupBtn = nullptr;
    QPushButton* moreBtn = nullptr;
    PlotAxisWidget* axisWidget = nullptr;
    PlotSettingDialog* settingDialog = nullptr;
    PlotMoreWidget* moreWidget = nullptr;
    PlotDoubleSlider* slider = nullptr;
    PlotCanvasData canvasData;
    QStringList verifyNames;
    QTimer replotTimer;
    bool dirty = false;
};

} // namespace rviz_plugin

#endif
