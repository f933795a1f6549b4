#ifndef RVIZ_PLUGIN_PLOT_TEMPLATE_H
#define RVIZ_PLUGIN_PLOT_TEMPLATE_H

#include "plot_data/plot_canvas_data.h"

#include <memory>

class QSplitter;
class QWidget;

namespace rviz_plugin {

class Plot;

// Turns the panel's tree of splitters and plots into layout data, and layout data into the tree.
class PlotTemplate {
public:
    explicit PlotTemplate(Plot& plot);

    PlotTemplateData GetCurrentPlotTemplate() const;
    // Replaces every plot by the layout's.
    void SetCurrentPlotTemplate(const PlotTemplateData& data);
    std::unique_ptr<SplitterData> GetSplitterData(QSplitter* splitter) const;
    void SetSplitterData(QSplitter* splitter, const SplitterData& node);
    void LoadSplitterData(QSplitter* parent, const SplitterData* splitterHalf, const PlotCanvasData* plotHalf);

private:
    // One half of a node from a child of a live splitter.
    void GetHalf(QWidget* child, std::unique_ptr<SplitterData>& splitter, std::unique_ptr<PlotCanvasData>& plot) const;

    Plot& plot;
};

} // namespace rviz_plugin

#endif
