#include "plot_widget.h"

#include "plot_axis_item.h"
#include "plot_axis_widget.h"
#include "plot_curve.h"
#include "plot_double_slider.h"
#include "plot_edit_label.h"
#include "plot_magnifier.h"
#include "plot_more_widget.h"
#include "plot_picker.h"
#include "plot_scale_draw.h"
#include "plot_setting_dialog.h"
#include "plot_time_line.h"

#include "plot_data/plot_global.h"

#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_div.h>
#include <qwt_scale_widget.h>

#include <QHBoxLayout>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QToolTip>
#include <QVBoxLayout>

#include <cmath>
#include <limits>

namespace rviz_plugin {

namespace {
constexpr float rangeTolerance = 0.0001f;
constexpr double collapsedRange = 10.0;
constexpr float sliderStep = 0.01f;
constexpr int settingDelay = 100;
constexpr int magnifierDelay = 10;
constexpr int xLabelWidth = 120;
constexpr int yLabelHeight = 30;
constexpr int minimumCanvasWidth = 120;
constexpr int minimumCanvasHeight = 80;

// One pixel wide: the painter's fast path for antialiased lines takes pens no wider.
QPen CurvePen(const QColor& color)
{
    return QPen(color, 1.0);
}

QPushButton* ToolButton(const QString& name, const QString& icon, const QString& tip, QWidget* parent)
{
    auto* button = new QPushButton(QIcon(":/plotqrc/assets/image/" + icon), QString(), parent);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->setFixedSize(PlotWidget::buttonSize, PlotWidget::buttonSize);
    button->setFlat(true);
    return button;
}
} // namespace

PlotWidget::PlotWidget(PlotModel& model, QWidget* parent) : QWidget(parent), plotModel(model)
{
    replotTimer.setInterval(replotInterval);
    connect(&replotTimer, &QTimer::timeout, this, &PlotWidget::ReplotIfChanged);
}

PlotWidget::~PlotWidget()
{
    delete settingDialog;
    delete moreWidget;
}

void PlotWidget::InitUi()
{
    setAttribute(Qt::WA_StyledBackground);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->setSpacing(4);
    auto* header = new QHBoxLayout();
    titleLabel = new PlotEditLabel(this);
    titleLabel->SetEditPolicy(PlotEditPolicy::LabelOnly);
    titleLabel->setMaximumWidth(titleWidth);
    titleLabel->SetTitle(canvasData.setting.title, true);
    restoreBtn = ToolButton("restoreBtn", "restore_zoom.png", "Restore", this);
    restoreBtn->hide();
    axisBtn = ToolButton("axisBtn", "axis.png", "Axis", this);
    axisBtn->setCheckable(true);
    setupBtn = ToolButton("setupBtn", "setup.png", "Settings", this);
    moreBtn = ToolButton("moreBtn", "more.png", "More", this);
    header->addWidget(titleLabel);
    header->addStretch();
    header->addWidget(restoreBtn);
    header->addWidget(axisBtn);
    header->addWidget(setupBtn);
    header->addWidget(moreBtn);
    layout->addLayout(header);

    auto* body = new QHBoxLayout();
    auto* canvasColumn = new QVBoxLayout();
    InitCanvas();
    slider = new PlotDoubleSlider(this);
    canvasColumn->addWidget(plot, 1);
    canvasColumn->addWidget(slider);
    body->addLayout(canvasColumn, 1);
    axisWidget = new PlotAxisWidget(plotModel, this);
    axisWidget->InitUi();
    axisWidget->hide();
    body->addWidget(axisWidget, 0, Qt::AlignTop);
    layout->addLayout(body, 1);

    settingDialog = new PlotSettingDialog(canvasData.setting);
    moreWidget = new PlotMoreWidget();

    connect(axisBtn, &QPushButton::toggled, axisWidget, &QWidget::setVisible);
    connect(setupBtn, &QPushButton::clicked, this, [this]() {
        settingDialog->SetSettingData(canvasData.setting);
        settingDialog->SetVerifyNames(verifyNames);
        settingDialog->show();
        settingDialog->raise();
    });
    connect(moreBtn, &QPushButton::clicked, this, [this]() {
        moreWidget->move(moreBtn->mapToGlobal(QPoint(moreBtn->width() - PlotMoreWidget::menuWidth, moreBtn->height())));
        moreWidget->show();
    });
    connect(restoreBtn, &QPushButton::clicked, this, [this]() {
        RestorePlot();
        Q_EMIT SignalRestoreBtnClicked();
    });
    connect(settingDialog, &PlotSettingDialog::SignalSaveSetting, this, &PlotWidget::SlotSaveSetting);
    connect(moreWidget, &PlotMoreWidget::SignalSplit, this, &PlotWidget::SignalSplit);
    connect(moreWidget, &PlotMoreWidget::SignalRemovePlot, this, &PlotWidget::SignalRemovePlot);
    connect(moreWidget, &PlotMoreWidget::SignalMaximize, this, [this](bool maximize) {
        SetMaximize(maximize);
        Q_EMIT SignalMaximize(maximize);
        Q_EMIT SignalConfigChanged();
    });
    connect(axisWidget, &PlotAxisWidget::SignalAddLine, this, &PlotWidget::SlotAddLine);
    connect(axisWidget, &PlotAxisWidget::SignalRemoveItem, this, &PlotWidget::SlotRemoveItem);
    connect(axisWidget, &PlotAxisWidget::SignalColorChanged, this, &PlotWidget::SlotColorChanged);
    connect(axisWidget, &PlotAxisWidget::SignalStartDrawCurve, this, &PlotWidget::SlotStartDrawCurve);
    connect(axisWidget, &PlotAxisWidget::SignalUpdateCurve, this, &PlotWidget::SlotUpdateCurve);
    connect(axisWidget, &PlotAxisWidget::SignalClearCurveData, this, &PlotWidget::SlotClearCurveData);
    connect(axisWidget, &PlotAxisWidget::SignalLoopBegin, this, &PlotWidget::SlotLoopBegin);
    connect(axisWidget, &PlotAxisWidget::SignalAxisDataChanged, this, &PlotWidget::SlotAxisDataChanged);
    connect(axisWidget, &PlotAxisWidget::SignalResetPlotUi, this, &PlotWidget::SlotResetPlotUi);
    connect(magnifier, &PlotMagnifier::SignalRescale, this, [this](QWheelEvent* event) {
        if (!IsMsgPath()) {
            Q_EMIT SignalRescale(event);
        }
        SlotRescaled();
    });
    connect(slider, &PlotDoubleSlider::SliderMinValueChanged, this, [this](double value) {
        SliderMinValueChanged(value);
        if (!IsMsgPath()) {
            Q_EMIT SignalSliderMinValueChanged(value);
        }
    });
    connect(slider, &PlotDoubleSlider::SliderMaxValueChanged, this, [this](double value) {
        SliderMaxValueChanged(value);
        if (!IsMsgPath()) {
            Q_EMIT SignalSliderMaxValueChanged(value);
        }
    });
    connect(slider, &PlotDoubleSlider::SignalSliderMoved, this, [this](bool moved) {
        SetSliderMoved(moved);
        Q_EMIT SignalSetSliderMoved(moved, IsMsgPath());
    });
    UpdateSlider(0.0, canvasData.setting.xRange);
    replotTimer.start();
}

void PlotWidget::InitCanvas()
{
    plot = new QwtPlot(this);
    // Qwt asks for its size hint as a minimum; a plot may shrink further, to its axes.
    plot->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    plot->setMinimumSize(minimumCanvasWidth, minimumCanvasHeight);
    plot->setAutoReplot(false);
    plot->setCanvasBackground(Qt::white);
    plot->plotLayout()->setAlignCanvasToScales(true);
    plot->plotLayout()->setSpacing(0);
    for (int axis : {QwtPlot::xBottom, QwtPlot::yLeft}) {
        plot->axisWidget(axis)->setMargin(0);
        plot->axisWidget(axis)->setSpacing(0);
    }
    plot->setAxisScaleDraw(QwtPlot::xBottom, new PlotScaleDraw(QwtScaleDraw::BottomScale));
    plot->setAxisScaleDraw(QwtPlot::yLeft, new PlotScaleDraw(QwtScaleDraw::LeftScale));
    plot->setAxisScale(QwtPlot::xBottom, 0.0, canvasData.setting.xRange);
    plot->setAxisScale(QwtPlot::yLeft, canvasData.setting.yMin, canvasData.setting.yMax);
    auto* grid = new QwtPlotGrid();
    grid->setPen(QColor("#E2E2E2"), 1.0);
    grid->attach(plot);
    magnifier = new PlotMagnifier(plot->canvas());
    picker = new PlotPicker(plot->canvas());
    timeLine = new PlotTimeLine();
    timeLine->attach(plot);
    plot->canvas()->setMouseTracking(true);
    plot->canvas()->installEventFilter(this);
    plot->axisWidget(QwtPlot::xBottom)->installEventFilter(this);
}

PlotCurve* PlotWidget::NewCurve(const QColor& color, const QString& name)
{
    auto* curve = new PlotCurve(name);
    curve->setPen(CurvePen(color));
    curve->Series().SetSeparateTimes(IsMsgPath());
    curve->attach(plot);
    return curve;
}

bool PlotWidget::IsMsgPath() const
{
    return canvasData.axisData.isMsgPath;
}

bool PlotWidget::IsRescaled() const
{
    return magnifier != nullptr && magnifier->IsRescaled();
}

bool PlotWidget::IsSliderMoved() const
{
    return slider != nullptr && slider->IsSliderMoved();
}

void PlotWidget::SetCanvasData(const PlotCanvasData& data)
{
    canvasData = data;
    UpdatePlotWidget();
}

PlotCanvasData PlotWidget::GetCanvasData() const
{
    PlotCanvasData data = canvasData;
    data.size = size();
    // A slider that follows the data saves nothing of it: the file changes only when the user moves it.
    if (slider != nullptr && slider->IsSliderMoved()) {
        data.slider.isSliderMoved = true;
        data.slider.xMinRange = slider->GetRangeMin();
        data.slider.xMaxRange = slider->GetRangeMax();
        data.slider.xMinValue = slider->GetValueMin();
        data.slider.xMaxValue = slider->GetValueMax();
    }
    return data;
}

void PlotWidget::SetPlotName(const QString& name)
{
    canvasData.setting.title = name;
    if (titleLabel != nullptr) {
        titleLabel->SetTitle(name, true);
    }
}

QString PlotWidget::GetPlotName() const
{
    return canvasData.setting.title;
}

void PlotWidget::UpdatePlotWidget()
{
    if (plot == nullptr) {
        return;
    }
    titleLabel->SetTitle(canvasData.setting.title, true);
    for (PlotCurve* curve : curves) {
        delete curve;
    }
    curves.clear();
    for (PlotCurve* curve : bakCurves) {
        delete curve;
    }
    bakCurves.clear();
    for (const AxisLineData& line : canvasData.axisData.axisLineList) {
        curves.push_back(NewCurve(QColor(line.color), line.curveName));
    }
    axisWidget->SetAxisData(canvasData.axisData);
    axisWidget->UpdateAxisWidget();
    axisBtn->setChecked(canvasData.axisData.axisLineList.isEmpty());
    settingDialog->SetSettingData(canvasData.setting);
    plot->setAxisScale(QwtPlot::xBottom, 0.0, canvasData.setting.xRange);
    plot->setAxisScale(QwtPlot::yLeft, canvasData.setting.yMin, canvasData.setting.yMax);
    ApplySliderData();
    SetMagnifierData(canvasData.magnifierData);
    moreWidget->SetMaximize(canvasData.isMaximize);
    if (canvasData.size.isValid() && !canvasData.size.isEmpty()) {
        resize(canvasData.size);
    }
    UpdateRestoreBtn();
    plot->replot();
}

void PlotWidget::ApplySliderData()
{
    const PlotSliderData& data = canvasData.slider;
    slider->SetRange(data.xMinRange, data.xMaxRange);
    slider->SetValues(data.xMinValue, data.xMaxValue);
    slider->SetSliderMoved(data.isSliderMoved);
    if (data.isSliderMoved) {
        plot->setAxisScale(QwtPlot::xBottom, data.xMinValue, data.xMaxValue);
    }
}

void PlotWidget::SetMagnifierData(const PlotMagnifierData& data)
{
    magnifier->SetDelta(data.delta);
    if (data.delta == 0) {
        return;
    }
    QTimer::singleShot(magnifierDelay, this, [this, data]() {
        const QPoint center(plot->canvas()->width() / 2, plot->canvas()->height() / 2);
        magnifier->SetLastPosition(center);
        magnifier->RescaleByDelta(data.delta, center);
        plot->setAxisScale(QwtPlot::yLeft, data.yMin, data.yMax);
        plot->replot();
        UpdateRestoreBtn();
    });
}

void PlotWidget::GetYAxisRange(double& min, double& max) const
{
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();
    const auto extend = [&](const PlotCurve* curve) {
        if (curve->Series().HasBounds()) {
            const QRectF bounds = curve->Series().BoundingRect();
            low = std::min(low, bounds.top());
            high = std::max(high, bounds.bottom());
        }
    };
    for (const PlotCurve* curve : curves) {
        extend(curve);
    }
    for (const PlotCurve* curve : bakCurves) {
        extend(curve);
    }
    const PlotSetting& setting = canvasData.setting;
    const bool hasData = low <= high;
    min = setting.isYMinAuto ? (hasData ? low - axisMargin : PlotSetting().yMin) : setting.yMin;
    max = setting.isYMaxAuto ? (hasData ? high + axisMargin : PlotSetting().yMax) : setting.yMax;
    if (min >= max) {
        if (!setting.isYMinAuto) {
            max = min + axisMargin;
        } else if (!setting.isYMaxAuto) {
            min = max - axisMargin;
        } else {
            max = min + axisMargin;
        }
    }
}

void PlotWidget::GetXAxisRange(double& min, double& max, bool isMsgPath) const
{
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();
    for (const PlotCurve* curve : curves) {
        if (curve->Series().HasBounds()) {
            high = std::max(high, curve->Series().BoundingRect().right());
            low = std::min(low, curve->Series().BoundingRect().left());
        }
    }
    for (const PlotCurve* curve : bakCurves) {
        if (curve->Series().HasBounds()) {
            low = std::min(low, curve->Series().BoundingRect().left());
        }
    }
    const PlotSetting& setting = canvasData.setting;
    if (!(low <= high)) {
        min = 0.0;
        max = setting.xRange;
        return;
    }
    max = high;
    if (isMsgPath || setting.isXRangeAuto) {
        min = low;
    } else {
        min = max - setting.xRange;
        if (min < 0.0) {
            min = 0.0;
            max = setting.xRange;
        }
    }
    // All at one x: UpdateCurve opens the range to x + 10.
    min = std::min(min, max);
}

void PlotWidget::UpdateCurve(bool isMsgPath)
{
    if (plot == nullptr) {
        return;
    }
    double min = 0.0;
    double max = 0.0;
    GetYAxisRange(min, max);
    plot->setAxisScale(QwtPlot::yLeft, min, max);
    if (!slider->IsPressed() && !slider->IsSliderMoved()) {
        GetXAxisRange(min, max, isMsgPath);
        if (max - min < static_cast<double>(rangeTolerance)) {
            max = min + collapsedRange;
        }
        plot->setAxisScale(QwtPlot::xBottom, min, max);
        UpdateSlider(min, max);
    }
    if (timeLine->isVisible()) {
        RefreshTimeLine(timeLineX);
        return;
    }
    plot->replot();
}

void PlotWidget::ReplotIfChanged()
{
    if (!dirty || plot == nullptr) {
        return;
    }
    dirty = false;
    if (IsRescaled()) {
        plot->replot();
    } else {
        UpdateCurve(IsMsgPath());
    }
}

void PlotWidget::UpdateSlider(double min, double max)
{
    double low = min;
    double high = max;
    for (const PlotCurve* curve : curves) {
        if (curve->Series().HasBounds()) {
            low = std::min(low, curve->Series().BoundingRect().left());
            high = std::max(high, curve->Series().BoundingRect().right());
        }
    }
    slider->SetRange(low, high);
    slider->SetValues(min, max);
}

void PlotWidget::SliderMinValueChanged(double value)
{
    const double axisMax = plot->axisScaleDiv(QwtPlot::xBottom).upperBound();
    if (value > axisMax) {
        value = axisMax - static_cast<double>(sliderStep);
    }
    plot->setAxisScale(QwtPlot::xBottom, value, slider->GetValueMax());
    plot->replot();
}

void PlotWidget::SliderMaxValueChanged(double value)
{
    const double axisMin = plot->axisScaleDiv(QwtPlot::xBottom).lowerBound();
    if (value < axisMin) {
        value = axisMin + static_cast<double>(sliderStep);
    }
    plot->setAxisScale(QwtPlot::xBottom, slider->GetValueMin(), value);
    plot->replot();
}

void PlotWidget::OnSliderMoved(bool isMax, double value)
{
    if (plot == nullptr) {
        return;
    }
    if (isMax) {
        slider->SetValues(slider->GetValueMin(), value);
        SliderMaxValueChanged(value);
    } else {
        slider->SetValues(value, slider->GetValueMax());
        SliderMinValueChanged(value);
    }
}

void PlotWidget::SetSliderMoved(bool moved)
{
    slider->SetSliderMoved(moved);
    if (!moved) {
        canvasData.slider = PlotSliderData();
    }
    canvasData.slider.isSliderMoved = moved;
    UpdateRestoreBtn();
}

void PlotWidget::UpdateRestoreBtn()
{
    ShowRestoreBtn(IsRescaled() || IsSliderMoved());
}

void PlotWidget::ShowRestoreBtn(bool show)
{
    restoreBtn->setVisible(show);
}

void PlotWidget::RestorePlot()
{
    if (plot == nullptr) {
        return;
    }
    magnifier->Restore();
    canvasData.magnifierData = PlotMagnifierData();
    SetSliderMoved(false);
    const bool hasData = std::any_of(curves.begin(), curves.end(),
                                     [](const PlotCurve* curve) { return !curve->Series().empty(); });
    if (!hasData) {
        UpdateSlider(0.0, canvasData.setting.xRange);
        plot->replot();
    } else {
        UpdateCurve(IsMsgPath());
    }
    UpdateRestoreBtn();
}

void PlotWidget::Rescale(QWheelEvent* event)
{
    if (plot == nullptr) {
        return;
    }
    magnifier->Rescale(event);
    SlotRescaled();
}

void PlotWidget::SlotRescaled()
{
    canvasData.magnifierData.delta = magnifier->GetDelta();
    canvasData.magnifierData.yMin = plot->axisScaleDiv(QwtPlot::yLeft).lowerBound();
    canvasData.magnifierData.yMax = plot->axisScaleDiv(QwtPlot::yLeft).upperBound();
    const QwtScaleDiv& x = plot->axisScaleDiv(QwtPlot::xBottom);
    UpdateSlider(x.lowerBound(), x.upperBound());
    UpdateRestoreBtn();
    Q_EMIT SignalConfigChanged();
}

void PlotWidget::RefreshTimeLine(double x)
{
    if (plot == nullptr) {
        return;
    }
    const QwtScaleDiv& y = plot->axisScaleDiv(QwtPlot::yLeft);
    timeLine->SetLine(x, y.lowerBound(), y.upperBound());
    timeLine->setVisible(true);
    timeLineX = x;
    plot->replot();
}

void PlotWidget::UpdateTimeLine(double x)
{
    RefreshTimeLine(x);
    if (!IsMsgPath()) {
        Q_EMIT SignalTimeLineMoved(x);
    }
}

void PlotWidget::ShowTimeLine(bool show)
{
    if (plot == nullptr) {
        return;
    }
    timeLine->setVisible(show);
    picker->SetVisible(show);
    plot->replot();
}

void PlotWidget::SaveSetting(const PlotSetting& setting)
{
    canvasData.setting = setting;
    double min = 0.0;
    double max = 0.0;
    GetYAxisRange(min, max);
    plot->setAxisScale(QwtPlot::yLeft, min, max);
    plot->replot();
}

void PlotWidget::SaveXRange(const PlotSetting& setting)
{
    PlotSetting& current = canvasData.setting;
    if (setting.xRange == current.xRange && setting.isXRangeAuto == current.isXRangeAuto) {
        return;
    }
    current.xRange = setting.xRange;
    current.isXRangeAuto = setting.isXRangeAuto;
    if (IsMsgPath()) {
        return;
    }
    SetSliderMoved(false);
    UpdateCurve(false);
    Q_EMIT SignalSaveXRange(setting);
}

void PlotWidget::SlotSaveSetting(const PlotSetting& setting, bool isDelayed)
{
    if (isDelayed) {
        QTimer::singleShot(settingDelay, this, [this, setting]() { SlotSaveSetting(setting, false); });
        return;
    }
    if (setting.title != canvasData.setting.title) {
        titleLabel->SetTitle(setting.title, true);
        canvasData.setting.title = setting.title;
        Q_EMIT SignalTitleChanged(setting.title);
    }
    SaveXRange(setting);
    SaveSetting(setting);
    Q_EMIT SignalConfigChanged();
}

void PlotWidget::OnPlotVisibleChanged(bool visible)
{
    axisWidget->OnPlotVisibleChanged(visible);
}

void PlotWidget::SetRemoveItemDisabled(bool disabled)
{
    moreWidget->SetRemoveItemDisabled(disabled);
}

void PlotWidget::SetSplitItemDisabled(bool disabled)
{
    moreWidget->SetSplitItemDisabled(disabled);
}

void PlotWidget::SetMaximize(bool maximize)
{
    canvasData.isMaximize = maximize;
    moreWidget->SetMaximize(maximize);
}

void PlotWidget::SetVerifyName(const QStringList& names)
{
    verifyNames = names;
    settingDialog->SetVerifyNames(names);
}

void PlotWidget::HideWidgets()
{
    moreWidget->hide();
    axisWidget->HideItemViews();
}

void PlotWidget::SlotAddLine(const QString& color)
{
    if (plot == nullptr) {
        return;
    }
    curves.push_back(NewCurve(QColor(color), QString()));
}

void PlotWidget::RemoveBakCurve(int index)
{
    PlotCurve* bak = bakCurves.take(index);
    delete bak;
}

void PlotWidget::SlotRemoveItem(int index)
{
    if (plot == nullptr || index < 0 || index >= curves.size()) {
        return;
    }
    RemoveBakCurve(index);
    delete curves[index];
    curves.remove(index);
    axisWidget->UpdateItemsIndex(index);
    QMap<int, PlotCurve*> renumbered;
    for (auto it = bakCurves.begin(); it != bakCurves.end(); ++it) {
        renumbered[it.key() > index ? it.key() - 1 : it.key()] = it.value();
    }
    bakCurves = renumbered;
    dirty = true;
    plot->replot();
}

void PlotWidget::SlotColorChanged(int index, const QColor& color)
{
    if (plot == nullptr || index < 0 || index >= curves.size()) {
        return;
    }
    curves[index]->setPen(CurvePen(color));
    curves[index]->UpdateSymbol();
    if (bakCurves.contains(index)) {
        bakCurves[index]->setPen(CurvePen(color));
    }
    plot->replot();
}

void PlotWidget::SlotStartDrawCurve(int index, const QString& name)
{
    if (plot == nullptr || index < 0 || index >= curves.size()) {
        return;
    }
    curves[index]->name = name;
    curves[index]->Series().Clear();
    curves[index]->SamplesChanged();
}

void PlotWidget::SlotUpdateCurve(int index, const QVector<QPointF>& points, const QVector<double>& timestamps)
{
    if (plot == nullptr || index < 0 || index >= curves.size()) {
        return;
    }
    PlotSeries& series = curves[index]->Series();
    series.Append(points, timestamps);
    series.KeepRange(PlotSeries::historySeconds);
    curves[index]->SamplesChanged();
    dirty = true;
}

void PlotWidget::SlotClearCurveData(int index)
{
    if (plot == nullptr || index < 0 || index >= curves.size()) {
        return;
    }
    RemoveBakCurve(index);
    curves[index]->Series().Clear();
    curves[index]->SamplesChanged();
    plot->replot();
}

void PlotWidget::SlotLoopBegin(int index)
{
    if (plot == nullptr || index < 0 || index >= curves.size()) {
        return;
    }
    RemoveBakCurve(index);
    PlotCurve* live = curves[index];
    bakCurves[index] = live;
    PlotCurve* fresh = NewCurve(live->pen().color(), live->name);
    fresh->setPen(live->pen());
    curves[index] = fresh;
    dirty = true;
}

void PlotWidget::SlotAxisDataChanged(const AxisData& data)
{
    const bool modeChanged = data.isMsgPath != canvasData.axisData.isMsgPath;
    canvasData.axisData = data;
    if (modeChanged) {
        for (PlotCurve* curve : curves) {
            curve->Series().SetSeparateTimes(data.isMsgPath);
            curve->SamplesChanged();
        }
        for (int index : bakCurves.keys()) {
            RemoveBakCurve(index);
        }
        SetSliderMoved(false);
        dirty = true;
    }
    Q_EMIT SignalConfigChanged();
}

void PlotWidget::SlotResetPlotUi()
{
    magnifier->Restore();
    canvasData.magnifierData = PlotMagnifierData();
    SetSliderMoved(false);
    plot->setAxisScale(QwtPlot::xBottom, 0.0, canvasData.setting.xRange);
    plot->setAxisScale(QwtPlot::yLeft, canvasData.setting.yMin, canvasData.setting.yMax);
    UpdateSlider(0.0, canvasData.setting.xRange);
    plot->replot();
}

bool PlotWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (plot != nullptr && watched == plot->canvas()) {
        switch (event->type()) {
        case QEvent::MouseMove:
            UpdateTimeLine(plot->canvasMap(QwtPlot::xBottom).invTransform(static_cast<QMouseEvent*>(event)->pos().x()));
            break;
        case QEvent::Leave:
            ShowTimeLine(false);
            Q_EMIT SignalHideTimeLine();
            break;
        case QEvent::Enter:
            ShowTimeLine(true);
            break;
        case QEvent::LayoutRequest:
            if (timeLine->isVisible()) {
                RefreshTimeLine(timeLineX);
            }
            break;
        case QEvent::Resize:
            // As many labels as fit whole: a time in seconds since the epoch is a long number.
            plot->setAxisMaxMajor(QwtPlot::xBottom, std::max(2, plot->canvas()->width() / xLabelWidth));
            plot->setAxisMaxMajor(QwtPlot::yLeft, std::max(2, plot->canvas()->height() / yLabelHeight));
            break;
        default:
            break;
        }
    } else if (plot != nullptr && watched == plot->axisWidget(QwtPlot::xBottom) && event->type() == QEvent::ToolTip &&
               !IsMsgPath()) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const double x = plot->canvasMap(QwtPlot::xBottom).invTransform(help->pos().x());
        QToolTip::showText(help->globalPos(), PlotGlobal::XLabelToTimeStamp(x));
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace rviz_plugin
