#include "plot.h"

#include "plot_data/plot_config.h"
#include "plot_data/plot_global.h"
#include "plot_data/plot_log.h"
#include "plot_widgets/plot_axis_widget.h"
#include "plot_widgets/plot_edit_title.h"
#include "plot_widgets/plot_template_item.h"
#include "plot_widgets/plot_template_widget.h"
#include "plot_widgets/plot_widget.h"
#include "plot_widgets/plot_widget_helpers.h"

#include "foundation/set_qss.h"

#include <QDockWidget>
#include <QFile>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>
#include <set>

namespace rviz_plugin {

namespace {
const char* const plotQss = ":/plotqrc/assets/qss/plot.qss";

QSplitter* NewSplitter(Qt::Orientation orientation)
{
    auto* splitter = new QSplitter(orientation);
    splitter->setObjectName("splitter");
    splitter->setChildrenCollapsible(false);
    return splitter;
}

QSplitter* ParentSplitter(QWidget* widget)
{
    return widget == nullptr ? nullptr : qobject_cast<QSplitter*>(widget->parentWidget());
}
} // namespace

Plot::Plot(QWidget* parent) : rviz::Panel(parent), plotTemplate(*this) {}

Plot::~Plot()
{
    updateTimer.stop();
    delete templateWidget;
    // Plots removed from their own menu wait for the event loop; they read this panel's model.
    for (const QPointer<QWidget>& retired : retiredWidgets) {
        delete retired.data();
    }
}

void Plot::onInitialize()
{
    InitSubscriber();
    InitPlot();
    InitDockWidget();
    InitTemplateWidget();
    initialized = true;
    if (pendingConfig) {
        LoadPlotConfigData(*pendingConfig);
        pendingConfig.reset();
    } else {
        SetCurrentPlotTemplate(DefaultPlotTemplate());
    }
    QFile style(plotQss);
    if (!style.open(QFile::ReadOnly)) {
        PlotLog("Failed to open the file.");
    } else {
        setStyleSheet(QString::fromUtf8(style.readAll()));
    }
}

void Plot::InitSubscriber()
{
    subscriber = std::make_unique<PlotSubscriber>();
    SlotUpdateData();
    updateTimer.setInterval(updateInterval);
    connect(&updateTimer, &QTimer::timeout, this, &Plot::SlotUpdateData);
    updateTimer.start();
}

void Plot::SlotUpdateData()
{
    subscriber->UpdateMsgDefinitionSubscriber();
    plotModel.SetupModelData(subscriber->GetDeserializedMsg());
}

void Plot::InitPlot()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    editTitle = new PlotEditTitle("Plot", this);
    layout->addWidget(editTitle);
    splitter = NewSplitter(Qt::Vertical);
    layout->addWidget(splitter, 1);
}

void Plot::InitDockWidget()
{
    auto* dock = qobject_cast<QDockWidget*>(parentWidget());
    if (dock == nullptr) {
        return;
    }
    dock->setTitleBarWidget(editTitle);
    connect(editTitle, &PlotEditTitle::SignalCloseButtonClicked, dock, &QDockWidget::close);
    connect(dock, &QDockWidget::visibilityChanged, this, &Plot::SlotVisibilityChanged);
}

void Plot::InitTemplateWidget()
{
    templateWidget = new PlotTemplateWidget([this]() { return GetCurrentPlotTemplate(); });
    templateWidget->InitTemplateWidget();
    connect(editTitle, &PlotEditTitle::SignalTemplateButtonClicked, this, [this](bool checked, int x) {
        if (!checked) {
            templateWidget->hide();
            return;
        }
        const QPoint below = editTitle->GetTemplateButton()->mapToGlobal(
            QPoint(0, editTitle->GetTemplateButton()->height()));
        templateWidget->move(x, below.y());
        templateWidget->show();
    });
    connect(templateWidget, &PlotTemplateWidget::SignalPlotTemplateClosed, this,
            [this]() { editTitle->SetTemplateButtonChecked(false); });
    connect(templateWidget, &PlotTemplateWidget::SignalApplyTemplate, this, [this](const PlotTemplateData& data) {
        SetCurrentPlotTemplate(data);
        SetRemoveItemDisabled();
        SlotConfigChanged();
    });
    connect(templateWidget, &PlotTemplateWidget::SignalConfigChanged, this, &Plot::SlotConfigChanged);
}

PlotWidget* Plot::CreatePlotWidget(QSplitter* parent)
{
    auto* widget = new PlotWidget(plotModel);
    widget->setObjectName("plotWidget");
    widget->InitUi();
    widget->SetPlotName(plotWidgets.isEmpty() ? QString("Plot") : GetPlotName());
    parent->addWidget(widget);
    plotWidgets.push_back(widget);
    connect(widget, &PlotWidget::SignalSplit, this, &Plot::SlotSplit);
    connect(widget, &PlotWidget::SignalRemovePlot, this, &Plot::SlotRemovePlot);
    connect(widget, &PlotWidget::SignalMaximize, this, &Plot::SlotMaximize);
    connect(widget, &PlotWidget::SignalRestoreBtnClicked, this, &Plot::SlotRestoreBtnClicked);
    connect(widget, &PlotWidget::SignalSaveXRange, this, &Plot::SlotSaveXRange);
    connect(widget, &PlotWidget::SignalSetSliderMoved, this, &Plot::SlotSetSliderMoved);
    connect(widget, &PlotWidget::SignalHideTimeLine, this, &Plot::SlotHideTimeLine);
    connect(widget, &PlotWidget::SignalTimeLineMoved, this, &Plot::SlotTimeLineMoved);
    connect(widget, &PlotWidget::SignalRescale, this, &Plot::SlotRescale);
    connect(widget, &PlotWidget::SignalSliderMinValueChanged, this, &Plot::SlotSliderMinValueChanged);
    connect(widget, &PlotWidget::SignalSliderMaxValueChanged, this, &Plot::SlotSliderMaxValueChanged);
    connect(widget, &PlotWidget::SignalConfigChanged, this, &Plot::SlotConfigChanged);
    connect(widget, &PlotWidget::SignalTitleChanged, this, [this]() { SetTitleVerifyName(); });
    CheckPlotWidgetsSize();
    return widget;
}

QString Plot::GetPlotName() const
{
    std::set<int> used;
    static const QRegularExpression numbered("^Plot(\\d+)$");
    for (const PlotWidget* widget : plotWidgets) {
        const QRegularExpressionMatch match = numbered.match(widget->GetPlotName());
        if (match.hasMatch()) {
            used.insert(match.captured(1).toInt());
        }
    }
    int number = 1;
    while (used.count(number) != 0) {
        ++number;
    }
    return QString("Plot%1").arg(number);
}

void Plot::SetTitleVerifyName()
{
    for (PlotWidget* widget : plotWidgets) {
        QStringList others;
        for (const PlotWidget* other : plotWidgets) {
            if (other != widget) {
                others.append(other->GetPlotName());
            }
        }
        widget->SetVerifyName(others);
    }
}

void Plot::CheckPlotWidgetsSize()
{
    PlotGlobal::GetInstance().isSplitEnable = plotWidgets.size() < maxPlots;
    for (PlotWidget* widget : plotWidgets) {
        widget->SetSplitItemDisabled(!PlotGlobal::GetInstance().isSplitEnable);
    }
}

void Plot::SetRemoveItemDisabled()
{
    for (PlotWidget* widget : plotWidgets) {
        widget->SetRemoveItemDisabled(plotWidgets.size() <= 1);
    }
}

void Plot::ClonePlotWidget(PlotWidget* source)
{
    QSplitter* parent = ParentSplitter(source);
    if (parent == nullptr) {
        return;
    }
    PlotWidget* widget = CreatePlotWidget(parent);
    PlotCanvasData data = source->GetCanvasData();
    data.setting.title = widget->GetPlotName();
    data.isMaximize = false;
    widget->SetCanvasData(data);
    SetSplitterEqually(parent);
    SetTitleVerifyName();
}

void Plot::SlotSplit(Qt::Orientation orientation)
{
    auto* sender = qobject_cast<PlotWidget*>(QObject::sender());
    QSplitter* parent = ParentSplitter(sender);
    if (sender == nullptr || parent == nullptr || plotWidgets.size() >= maxPlots) {
        return;
    }
    // "Split Horizontal" puts the new plot under the old one.
    const Qt::Orientation newOrientation = orientation == Qt::Horizontal ? Qt::Vertical : Qt::Horizontal;
    if (parent->count() == 1) {
        parent->setOrientation(newOrientation);
        ClonePlotWidget(sender);
        if (parent == splitter) {
            sender->SetRemoveItemDisabled(false);
        }
    } else {
        // Splits nest: the sender gets a splitter of its own with its clone.
        const int index = parent->indexOf(sender);
        QSplitter* wrapper = NewSplitter(newOrientation);
        parent->insertWidget(index, wrapper);
        wrapper->addWidget(sender);
        ClonePlotWidget(sender);
        SetSplitterEqually(parent);
    }
    CheckPlotWidgetsSize();
    SetRemoveItemDisabled();
    SlotConfigChanged();
}

void Plot::SlotRemovePlot()
{
    auto* sender = qobject_cast<PlotWidget*>(QObject::sender());
    if (sender == nullptr || plotWidgets.size() <= 1) {
        return;
    }
    QSplitter* parent = ParentSplitter(sender);
    sender->hide();
    sender->setParent(nullptr);
    plotWidgets.removeAll(sender);
    // The plot's own menu asked: it goes once its signal has returned.
    sender->deleteLater();
    retiredWidgets.push_back(sender);
    if (parent != nullptr && parent != splitter && parent->count() == 0) {
        RemovePlotWidget(parent);
    } else if (parent != nullptr && parent->count() == 1) {
        // A splitter with one splitter left in it takes that one's children.
        RemovePlotWidget(qobject_cast<QSplitter*>(parent->widget(0)) != nullptr ? parent : nullptr);
    }
    if (isMaximized) {
        SlotMaximize(false);
    }
    SetRemoveItemDisabled();
    CheckPlotWidgetsSize();
    SetTitleVerifyName();
    SlotConfigChanged();
}

void Plot::RemovePlotWidget(QSplitter* emptied)
{
    if (emptied == nullptr) {
        return;
    }
    QSplitter* parent = ParentSplitter(emptied);
    if (emptied->count() == 0 && parent != nullptr) {
        delete emptied;
        if (parent->count() == 1) {
            RemovePlotWidget(parent);
        }
        return;
    }
    // One child left and it is a splitter: its children move up, in its place.
    auto* only = emptied->count() == 1 ? qobject_cast<QSplitter*>(emptied->widget(0)) : nullptr;
    if (only == nullptr) {
        return;
    }
    emptied->setOrientation(only->orientation());
    while (only->count() > 0) {
        emptied->addWidget(only->widget(0));
    }
    delete only;
    SetSplitterEqually(emptied);
}

void Plot::RemoveAllPlotWidgets()
{
    plotWidgets.clear();
    while (splitter->count() > 0) {
        delete splitter->widget(0);
    }
    splitter->setOrientation(Qt::Vertical);
    isMaximized = false;
}

void Plot::MaximizePlot(PlotWidget* widget, bool maximize)
{
    if (plotWidgets.size() <= 1) {
        SetRemoveItemDisabled();
        return;
    }
    isMaximized = maximize;
    for (PlotWidget* other : plotWidgets) {
        if (other != widget) {
            other->setVisible(!maximize);
            other->HideWidgets();
            other->SetMaximize(false);
        }
    }
    // The splitters on the way to the plot stay.
    QWidget* splitterOnPath = widget->parentWidget();
    while (splitterOnPath != nullptr && splitterOnPath != splitter) {
        splitterOnPath->setVisible(true);
        splitterOnPath = splitterOnPath->parentWidget();
    }
    widget->SetMaximize(maximize);
    CheckPlotWidgetsSize();
}

void Plot::SlotMaximize(bool isMax)
{
    auto* sender = qobject_cast<PlotWidget*>(QObject::sender());
    if (sender != nullptr) {
        MaximizePlot(sender, isMax);
    }
}

void Plot::SlotVisibilityChanged(bool visible)
{
    isHidden = !visible;
    if (!visible) {
        updateTimer.stop();
        subscriber->ShutdownSubscriber();
    } else {
        updateTimer.start();
    }
    for (PlotWidget* widget : plotWidgets) {
        widget->OnPlotVisibleChanged(visible);
    }
}

QVector<PlotWidget*> Plot::OtherTimePlots(QObject* sender) const
{
    QVector<PlotWidget*> others;
    for (PlotWidget* widget : plotWidgets) {
        if (widget != sender && !widget->IsMsgPath()) {
            others.push_back(widget);
        }
    }
    return others;
}

void Plot::SlotRestoreBtnClicked()
{
    for (PlotWidget* widget : OtherTimePlots(sender())) {
        widget->RestorePlot();
    }
}

void Plot::SlotSaveXRange(const PlotSetting& setting)
{
    for (PlotWidget* widget : OtherTimePlots(sender())) {
        widget->SaveXRange(setting);
    }
}

void Plot::SlotSetSliderMoved(bool moved, bool isMsgPath)
{
    for (PlotWidget* widget : plotWidgets) {
        if (widget != sender() && widget->IsMsgPath() == isMsgPath) {
            widget->SetSliderMoved(moved);
        }
    }
}

void Plot::SlotHideTimeLine()
{
    for (PlotWidget* widget : OtherTimePlots(sender())) {
        widget->ShowTimeLine(false);
    }
}

void Plot::SlotTimeLineMoved(double x)
{
    for (PlotWidget* widget : OtherTimePlots(sender())) {
        widget->RefreshTimeLine(x);
    }
}

void Plot::SlotRescale(QWheelEvent* event)
{
    for (PlotWidget* widget : OtherTimePlots(sender())) {
        widget->Rescale(event);
    }
}

void Plot::SlotSliderMinValueChanged(double value)
{
    for (PlotWidget* widget : OtherTimePlots(sender())) {
        widget->OnSliderMoved(false, value);
    }
}

void Plot::SlotSliderMaxValueChanged(double value)
{
    for (PlotWidget* widget : OtherTimePlots(sender())) {
        widget->OnSliderMoved(true, value);
    }
}

void Plot::SlotConfigChanged()
{
    Q_EMIT configChanged();
}

PlotTemplateData Plot::GetCurrentPlotTemplate() const
{
    return plotTemplate.GetCurrentPlotTemplate();
}

void Plot::SetCurrentPlotTemplate(const PlotTemplateData& data)
{
    plotTemplate.SetCurrentPlotTemplate(data);
    SetRemoveItemDisabled();
    CheckPlotWidgetsSize();
    SetTitleVerifyName();
}

PlotConfigData Plot::GetPlotConfigData() const
{
    PlotConfigData data;
    data.geometry = geometry();
    for (const PlotTemplateItem* item : templateWidget->GetTemplateItems()) {
        PlotTemplateData saved = item->GetData();
        saved.templateName = item->GetText();
        data.templates.push_back(saved);
    }
    data.current = GetCurrentPlotTemplate();
    return data;
}

void Plot::LoadPlotConfigData(const PlotConfigData& data)
{
    if (data.geometry.isValid()) {
        resize(data.geometry.size());
    }
    for (const PlotTemplateData& saved : data.templates) {
        templateWidget->AddTemplateItem(saved);
    }
    SetCurrentPlotTemplate(data.current.root ? data.current : DefaultPlotTemplate());
    SetRemoveItemDisabled();
}

void Plot::save(rviz::Config config) const
{
    rviz::Panel::save(config);
    if (initialized) {
        PlotConfig::Save(GetPlotConfigData(), config);
    }
}

void Plot::load(const rviz::Config& config)
{
    rviz::Panel::load(config);
    std::unique_ptr<PlotConfigData> data = PlotConfig::Load(config);
    if (!data) {
        return;
    }
    if (!initialized) {
        pendingConfig = std::move(data);
        return;
    }
    LoadPlotConfigData(*data);
}

} // namespace rviz_plugin
