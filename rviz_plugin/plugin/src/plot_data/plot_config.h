#ifndef RVIZ_PLUGIN_PLOT_CONFIG_H
#define RVIZ_PLUGIN_PLOT_CONFIG_H

#include "plot_canvas_data.h"

#ifndef Q_MOC_RUN
#include <rviz/config.h>
#endif

#include <memory>

namespace rviz_plugin {

// Writes the plot panel's layout, templates and rectangle under "PlotPlugin" in rviz's configuration,
// and reads them back.
class PlotConfig {
public:
    static void Save(const PlotConfigData& data, rviz::Config config);
    // Null when the configuration has no "PlotPlugin".
    static std::unique_ptr<PlotConfigData> Load(const rviz::Config& config);

    static void SaveSplitter(const SplitterData& node, rviz::Config config);
    static void SavePlotCanvas(const PlotCanvasData& data, rviz::Config config);
    static void SaveTemplate(const PlotTemplateData& data, rviz::Config config);
    static std::unique_ptr<SplitterData> LoadSplitter(const rviz::Config& config);
    static std::unique_ptr<PlotCanvasData> LoadPlotCanvas(const rviz::Config& config);
    static AxisData LoadAxisData(const rviz::Config& config);
    static PlotTemplateData LoadTemplate(const rviz::Config& config);
};

} // namespace rviz_plugin

#endif
