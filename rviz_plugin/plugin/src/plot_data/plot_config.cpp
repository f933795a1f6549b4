#include "plot_config.h"

#include "foundation/rviz_helpers.h"

namespace rviz_plugin {

namespace {
const char* const rootKey = "PlotPlugin";
const char* const defaultLineColor = "#77A0F0";
} // namespace

void PlotConfig::Save(const PlotConfigData& data, rviz::Config config)
{
    rviz::Config plugin = config.mapMakeChild(rootKey);
    rviz::Config geometry = plugin.mapMakeChild("plotGeometry");
    geometry.mapSetValue("x", data.geometry.x());
    geometry.mapSetValue("y", data.geometry.y());
    geometry.mapSetValue("width", data.geometry.width());
    geometry.mapSetValue("height", data.geometry.height());
    rviz::Config list = plugin.mapMakeChild("plotTemplateList");
    for (std::size_t i = 0; i < data.templates.size(); ++i) {
        rviz::Config item = list.mapMakeChild(QString("plotTemplate_%1").arg(i));
        item.mapSetValue("templateName", data.templates[i].templateName);
        SaveTemplate(data.templates[i], item);
    }
    SaveTemplate(data.current, plugin.mapMakeChild("currentTemplate"));
}

void PlotConfig::SaveTemplate(const PlotTemplateData& data, rviz::Config config)
{
    if (data.root) {
        SaveSplitter(*data.root, config.mapMakeChild("splitter"));
    }
}

void PlotConfig::SaveSplitter(const SplitterData& node, rviz::Config config)
{
    config.mapSetValue("orientation", node.orientation);
    if (node.firstSplitter) {
        SaveSplitter(*node.firstSplitter, config.mapMakeChild("firstSplitter"));
    }
    if (node.secondSplitter) {
        SaveSplitter(*node.secondSplitter, config.mapMakeChild("secondSplitter"));
    }
    if (node.firstPlot) {
        SavePlotCanvas(*node.firstPlot, config.mapMakeChild("firstPlot"));
    }
    if (node.secondPlot) {
        SavePlotCanvas(*node.secondPlot, config.mapMakeChild("secondPlot"));
    }
}

void PlotConfig::SavePlotCanvas(const PlotCanvasData& data, rviz::Config config)
{
    rviz::Config axis = config.mapMakeChild("axisData");
    axis.mapSetValue("isMsgPath", data.axisData.isMsgPath);
    axis.mapSetValue("xField", data.axisData.xField);
    axis.mapSetValue("xFieldType", data.axisData.xFieldType);
    axis.mapSetValue("selectedArrayName", data.axisData.selectedArrayName);
    axis.mapSetValue("curveName", data.axisData.curveName);
    axis.mapSetValue("isArray", data.axisData.isArray);
    rviz::Config lines = axis.mapMakeChild("axisLineList");
    for (int i = 0; i < data.axisData.axisLineList.size(); ++i) {
        const AxisLineData& line = data.axisData.axisLineList[i];
        rviz::Config child = lines.mapMakeChild(QString("axisLine_%1").arg(i));
        child.mapSetValue("color", line.color);
        child.mapSetValue("yField", line.yField);
        child.mapSetValue("yFieldType", line.yFieldType);
        child.mapSetValue("selectedArrayName", line.selectedArrayName);
        child.mapSetValue("curveName", line.curveName);
        child.mapSetValue("isArray", line.isArray);
    }
    rviz::Config setting = config.mapMakeChild("setting");
    setting.mapSetValue("title", data.setting.title);
    setting.mapSetValue("isYMinAuto", data.setting.isYMinAuto);
    setting.mapSetValue("isYMaxAuto", data.setting.isYMaxAuto);
    setting.mapSetValue("isXRangeAuto", data.setting.isXRangeAuto);
    setting.mapSetValue("yMin", data.setting.yMin);
    setting.mapSetValue("yMax", data.setting.yMax);
    setting.mapSetValue("xRange", data.setting.xRange);
    config.mapMakeChild("max").mapSetValue("isMaximize", data.isMaximize);
    rviz::Config magnifier = config.mapMakeChild("magnifierData");
    magnifier.mapSetValue("delta", data.magnifierData.delta);
    magnifier.mapSetValue("yMin", data.magnifierData.yMin);
    magnifier.mapSetValue("yMax", data.magnifierData.yMax);
    rviz::Config size = config.mapMakeChild("size");
    size.mapSetValue("width", data.size.width());
    size.mapSetValue("height", data.size.height());
    rviz::Config slider = config.mapMakeChild("slider");
    slider.mapSetValue("isSliderMoved", data.slider.isSliderMoved);
    slider.mapSetValue("xMinValue", data.slider.xMinValue);
    slider.mapSetValue("xMaxValue", data.slider.xMaxValue);
    slider.mapSetValue("xMinRange", data.slider.xMinRange);
    slider.mapSetValue("xMaxRange", data.slider.xMaxRange);
}

std::unique_ptr<PlotConfigData> PlotConfig::Load(const rviz::Config& config)
{
    const rviz::Config plugin = config.mapGetChild(rootKey);
    if (!plugin.isValid()) {
        return nullptr;
    }
    auto data = std::make_unique<PlotConfigData>();
    const rviz::Config geometry = plugin.mapGetChild("plotGeometry");
    data->geometry = QRect(ConfigInt(geometry, "x"), ConfigInt(geometry, "y"), ConfigInt(geometry, "width"),
                           ConfigInt(geometry, "height"));
    for (const auto& [number, item] : NumberedChildren(plugin.mapGetChild("plotTemplateList"), "plotTemplate_")) {
        data->templates.push_back(LoadTemplate(item));
    }
    data->current = LoadTemplate(plugin.mapGetChild("currentTemplate"));
    return data;
}

PlotTemplateData PlotConfig::LoadTemplate(const rviz::Config& config)
{
    PlotTemplateData data;
    data.templateName = ConfigString(config, "templateName");
    const rviz::Config splitter = config.mapGetChild("splitter");
    if (splitter.isValid()) {
        data.root = LoadSplitter(splitter);
    }
    return data;
}

std::unique_ptr<SplitterData> PlotConfig::LoadSplitter(const rviz::Config& config)
{
    auto node = std::make_unique<SplitterData>();
    node->orientation = ConfigInt(config, "orientation");
    const auto half = [&config](const char* splitterKey, const char* plotKey, std::unique_ptr<SplitterData>& splitter,
                                std::unique_ptr<PlotCanvasData>& plot) {
        const rviz::Config splitterChild = config.mapGetChild(splitterKey);
        const rviz::Config plotChild = config.mapGetChild(plotKey);
        if (splitterChild.isValid()) {
            splitter = LoadSplitter(splitterChild);
        } else if (plotChild.isValid()) {
            plot = LoadPlotCanvas(plotChild);
        }
    };
    half("firstSplitter", "firstPlot", node->firstSplitter, node->firstPlot);
    half("secondSplitter", "secondPlot", node->secondSplitter, node->secondPlot);
    return node;
}

AxisData PlotConfig::LoadAxisData(const rviz::Config& config)
{
    AxisData axis;
    axis.isMsgPath = ConfigBool(config, "isMsgPath");
    axis.xField = ConfigString(config, "xField");
    axis.xFieldType = ConfigString(config, "xFieldType");
    axis.selectedArrayName = ConfigString(config, "selectedArrayName");
    axis.curveName = ConfigString(config, "curveName");
    axis.isArray = ConfigBool(config, "isArray");
    for (const auto& [number, child] : NumberedChildren(config.mapGetChild("axisLineList"), "axisLine_")) {
        AxisLineData line;
        line.color = ConfigString(child, "color");
        if (line.color.isEmpty()) {
            line.color = defaultLineColor;
        }
        line.yField = ConfigString(child, "yField");
        line.yFieldType = ConfigString(child, "yFieldType");
        line.selectedArrayName = ConfigString(child, "selectedArrayName");
        line.curveName = ConfigString(child, "curveName");
        line.isArray = ConfigBool(child, "isArray");
        axis.axisLineList.push_back(line);
    }
    return axis;
}

std::unique_ptr<PlotCanvasData> PlotConfig::LoadPlotCanvas(const rviz::Config& config)
{
    auto data = std::make_unique<PlotCanvasData>();
    data->axisData = LoadAxisData(config.mapGetChild("axisData"));
    const rviz::Config setting = config.mapGetChild("setting");
    const PlotSetting defaults;
    data->setting.title = ConfigString(setting, "title");
    data->setting.isYMinAuto = ConfigBool(setting, "isYMinAuto", defaults.isYMinAuto);
    data->setting.isYMaxAuto = ConfigBool(setting, "isYMaxAuto", defaults.isYMaxAuto);
    data->setting.isXRangeAuto = ConfigBool(setting, "isXRangeAuto", defaults.isXRangeAuto);
    data->setting.yMin = ConfigDouble(setting, "yMin", defaults.yMin);
    data->setting.yMax = ConfigDouble(setting, "yMax", defaults.yMax);
    data->setting.xRange = ConfigDouble(setting, "xRange", defaults.xRange);
    data->isMaximize = ConfigBool(config.mapGetChild("max"), "isMaximize");
    const rviz::Config magnifier = config.mapGetChild("magnifierData");
    data->magnifierData.delta = ConfigInt(magnifier, "delta");
    data->magnifierData.yMin = ConfigDouble(magnifier, "yMin", data->magnifierData.yMin);
    data->magnifierData.yMax = ConfigDouble(magnifier, "yMax", data->magnifierData.yMax);
    const rviz::Config size = config.mapGetChild("size");
    data->size = QSize(ConfigInt(size, "width"), ConfigInt(size, "height"));
    const rviz::Config slider = config.mapGetChild("slider");
    const PlotSliderData sliderDefaults;
    data->slider.isSliderMoved = ConfigBool(slider, "isSliderMoved");
    data->slider.xMinValue = ConfigDouble(slider, "xMinValue", sliderDefaults.xMinValue);
    data->slider.xMaxValue = ConfigDouble(slider, "xMaxValue", sliderDefaults.xMaxValue);
    data->slider.xMinRange = ConfigDouble(slider, "xMinRange", sliderDefaults.xMinRange);
    data->slider.xMaxRange = ConfigDouble(slider, "xMaxRange", sliderDefaults.xMaxRange);
    return data;
}

} // namespace rviz_plugin
