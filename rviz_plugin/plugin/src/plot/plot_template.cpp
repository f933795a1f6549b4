#include "plot_template.h"

#include "plot.h"

#include "plot_widgets/plot_widget.h"
#include "plot_widgets/plot_widget_helpers.h"

#include <QSplitter>

namespace rviz_plugin {

PlotTemplate::PlotTemplate(Plot& owner) : plot(owner) {}

PlotTemplateData PlotTemplate::GetCurrentPlotTemplate() const
{
    PlotTemplateData data;
    data.templateName = "current";
    data.root = GetSplitterData(plot.GetRootSplitter());
    return data;
}

void PlotTemplate::GetHalf(QWidget* child, std::unique_ptr<SplitterData>& splitter,
                           std::unique_ptr<PlotCanvasData>& canvas) const
{
    if (auto* widget = qobject_cast<PlotWidget*>(child)) {
        canvas = std::make_unique<PlotCanvasData>(widget->GetCanvasData());
    } else if (auto* inner = qobject_cast<QSplitter*>(child)) {
        splitter = GetSplitterData(inner);
    }
}

std::unique_ptr<SplitterData> PlotTemplate::GetSplitterData(QSplitter* splitter) const
{
    auto node = std::make_unique<SplitterData>();
    node->orientation = static_cast<int>(splitter->orientation());
    if (splitter->count() > 0) {
        GetHalf(splitter->widget(0), node->firstSplitter, node->firstPlot);
    }
    if (splitter->count() > 1) {
        GetHalf(splitter->widget(1), node->secondSplitter, node->secondPlot);
    }
    return node;
}

void PlotTemplate::SetCurrentPlotTemplate(const PlotTemplateData& data)
{
    plot.RemoveAllPlotWidgets();
    QSplitter* root = plot.GetRootSplitter();
    if (data.root) {
        SetSplitterData(root, *data.root);
    }
    if (plot.GetPlotWidgets().isEmpty()) {
        plot.CreatePlotWidget(root);
    }
    const auto& widgets = plot.GetPlotWidgets();
    if (widgets.size() == 1) {
        widgets.front()->SetMaximize(widgets.front()->IsMaximize());
        return;
    }
    for (PlotWidget* widget : widgets) {
        if (widget->IsMaximize()) {
            plot.MaximizePlot(widget, true);
        }
    }
}

void PlotTemplate::SetSplitterData(QSplitter* splitter, const SplitterData& node)
{
    splitter->setOrientation(static_cast<Qt::Orientation>(node.orientation));
    LoadSplitterData(splitter, node.firstSplitter.get(), node.firstPlot.get());
    LoadSplitterData(splitter, node.secondSplitter.get(), node.secondPlot.get());
    SetSplitterEqually(splitter);
}

void PlotTemplate::LoadSplitterData(QSplitter* parent, const SplitterData* splitterHalf, const PlotCanvasData* plotHalf)
{
    if (splitterHalf != nullptr) {
        auto* splitter = new QSplitter(parent);
        splitter->setObjectName("splitter");
        splitter->setChildrenCollapsible(false);
        parent->addWidget(splitter);
        SetSplitterData(splitter, *splitterHalf);
    } else if (plotHalf != nullptr && plot.GetPlotWidgets().size() < Plot::maxPlotCount) {
        PlotWidget* widget = plot.CreatePlotWidget(parent);
        widget->SetCanvasData(*plotHalf);
        plot.SetTitleVerifyName();
    }
}

} // namespace rviz_plugin
