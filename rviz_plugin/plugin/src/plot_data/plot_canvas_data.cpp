#include "plot_canvas_data.h"

#include <tuple>

namespace rviz_plugin {

namespace {
template <typename T>
std::unique_ptr<T> Clone(const std::unique_ptr<T>& source)
{
    return source ? std::make_unique<T>(*source) : nullptr;
}

template <typename T>
bool SameNode(const std::unique_ptr<T>& a, const std::unique_ptr<T>& b)
{
    return (!a && !b) || (a && b && *a == *b);
}

PlotCanvasData DefaultPlot(const QString& title, const QString& color, const QString& field)
{
    PlotCanvasData plot;
    plot.setting.title = title;
    AxisLineData line;
    line.color = color;
    line.yField = field;
    line.yFieldType = "[float64]";
    line.curveName = field;
    plot.axisData.axisLineList.push_back(line);
    return plot;
}
} // namespace

bool AxisLineData::operator==(const AxisLineData& o) const
{
    return std::tie(color, yField, yFieldType, selectedArrayName, curveName, isArray) ==
           std::tie(o.color, o.yField, o.yFieldType, o.selectedArrayName, o.curveName, o.isArray);
}

bool AxisData::operator==(const AxisData& o) const
{
    return std::tie(isMsgPath, xField, xFieldType, selectedArrayName, curveName, isArray, axisLineList) ==
           std::tie(o.isMsgPath, o.xField, o.xFieldType, o.selectedArrayName, o.curveName, o.isArray, o.axisLineList);
}

bool PlotSetting::operator==(const PlotSetting& o) const
{
    return std::tie(title, isYMinAuto, isYMaxAuto, isXRangeAuto, yMin, yMax, xRange) ==
           std::tie(o.title, o.isYMinAuto, o.isYMaxAuto, o.isXRangeAuto, o.yMin, o.yMax, o.xRange);
}

bool PlotMagnifierData::operator==(const PlotMagnifierData& o) const
{
    return std::tie(delta, yMin, yMax) == std::tie(o.delta, o.yMin, o.yMax);
}

bool PlotSliderData::operator==(const PlotSliderData& o) const
{
    return std::tie(isSliderMoved, xMinValue, xMaxValue, xMinRange, xMaxRange) ==
           std::tie(o.isSliderMoved, o.xMinValue, o.xMaxValue, o.xMinRange, o.xMaxRange);
}

bool PlotCanvasData::operator==(const PlotCanvasData& o) const
{
    return std::tie(axisData, setting, isMaximize, magnifierData, size, slider) ==
           std::tie(o.axisData, o.setting, o.isMaximize, o.magnifierData, o.size, o.slider);
}

SplitterData::SplitterData(const SplitterData& o)
    : orientation(o.orientation),
      firstSplitter(Clone(o.firstSplitter)),
      secondSplitter(Clone(o.secondSplitter)),
      firstPlot(Clone(o.firstPlot)),
      secondPlot(Clone(o.secondPlot))
{
}

SplitterData& SplitterData::operator=(const SplitterData& o)
{
    if (this != &o) {
        SplitterData copy(o);
        std::swap(orientation, copy.orientation);
        std::swap(firstSplitter, copy.firstSplitter);
        std::swap(secondSplitter, copy.secondSplitter);
        std::swap(firstPlot, copy.firstPlot);
        std::swap(secondPlot, copy.secondPlot);
    }
    return *this;
}

bool SplitterData::operator==(const SplitterData& o) const
{
    return orientation == o.orientation && SameNode(firstSplitter, o.firstSplitter) &&
           SameNode(secondSplitter, o.secondSplitter) && SameNode(firstPlot, o.firstPlot) &&
           SameNode(secondPlot, o.secondPlot);
}

std::vector<const PlotCanvasData*> SplitterData::Plots() const
{
    std::vector<const PlotCanvasData*> plots;
    const auto half = [&plots](const std::unique_ptr<SplitterData>& splitter,
                               const std::unique_ptr<PlotCanvasData>& plot) {
        if (splitter) {
            const auto below = splitter->Plots();
            plots.insert(plots.end(), below.begin(), below.end());
        } else if (plot) {
            plots.push_back(plot.get());
        }
    };
    half(firstSplitter, firstPlot);
    half(secondSplitter, secondPlot);
    return plots;
}

PlotTemplateData::PlotTemplateData(const PlotTemplateData& o) : templateName(o.templateName), root(Clone(o.root)) {}

PlotTemplateData& PlotTemplateData::operator=(const PlotTemplateData& o)
{
    if (this != &o) {
        templateName = o.templateName;
        root = Clone(o.root);
    }
    return *this;
}

PlotTemplateData DefaultPlotTemplate()
{
    PlotTemplateData data;
    data.templateName = "default";
    data.root = std::make_unique<SplitterData>();
    data.root->orientation = 1;
    const auto column = [](PlotCanvasData first, PlotCanvasData second) {
        auto splitter = std::make_unique<SplitterData>();
        splitter->orientation = 0;
        splitter->firstPlot = std::make_unique<PlotCanvasData>(std::move(first));
        splitter->secondPlot = std::make_unique<PlotCanvasData>(std::move(second));
        return splitter;
    };
    data.root->firstSplitter = column(DefaultPlot("Speed", "#77A0F0", "/TopicVehicleInfo/vehicleSpeed"),
                                      DefaultPlot("Acceleration", "#009DA5", "/TopicVehicleInfo/vehicleAcceleration"));
    data.root->secondSplitter = column(DefaultPlot("Brake", "#F8CF49", "/TopicVehicleInfo/brake"),
                                       DefaultPlot("Throttle", "#596077", "/TopicVehicleInfo/throttle"));
    return data;
}

} // namespace rviz_plugin
