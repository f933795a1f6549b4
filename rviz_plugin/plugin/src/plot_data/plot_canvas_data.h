#ifndef RVIZ_PLUGIN_PLOT_CANVAS_DATA_H
#define RVIZ_PLUGIN_PLOT_CANVAS_DATA_H

#include <QRect>
#include <QSize>
#include <QString>
#include <QVector>

#include <memory>
#include <vector>

namespace rviz_plugin {

// One line of a plot.
struct AxisLineData {
    QString color;
    QString yField;
    QString yFieldType;
    QString selectedArrayName;
    QString curveName;
    bool isArray = false;
    bool operator==(const AxisLineData& other) const;
};

// The axes of a plot: x is time, or a field with isMsgPath.
struct AxisData {
    bool isMsgPath = false;
    QString xField;
    QString xFieldType;
    QString selectedArrayName;
    QString curveName;
    bool isArray = false;
    QVector<AxisLineData> axisLineList;
    bool operator==(const AxisData& other) const;
};

// The settings dialog's values.
struct PlotSetting {
    QString title = "Plot";
    bool isYMinAuto = true;
    bool isYMaxAuto = true;
    bool isXRangeAuto = true;
    double yMin = 0.0;
    double yMax = 10.0;
    double xRange = 10.0;
    bool operator==(const PlotSetting& other) const;
};

// How far the wheel zoomed, and the y range it left.
struct PlotMagnifierData {
    int delta = 0;
    double yMin = 0.0;
    double yMax = 10.0;
    bool operator==(const PlotMagnifierData& other) const;
};

// The range slider under the canvas.
struct PlotSliderData {
    bool isSliderMoved = false;
    double xMinValue = 0.0;
    double xMaxValue = 10.0;
    double xMinRange = 0.0;
    double xMaxRange = 10.0;
    bool operator==(const PlotSliderData& other) const;
};

// Everything of one plot that is saved.
struct PlotCanvasData {
    AxisData axisData;
    PlotSetting setting;
    bool isMaximize = false;
    PlotMagnifierData magnifierData;
    QSize size;
    PlotSliderData slider;
    bool operator==(const PlotCanvasData& other) const;
};

// A node of the layout: each half holds a splitter or a plot, or nothing.
struct SplitterData {
    int orientation = 0;
    std::unique_ptr<SplitterData> firstSplitter;
    std::unique_ptr<SplitterData> secondSplitter;
    std::unique_ptr<PlotCanvasData> firstPlot;
    std::unique_ptr<PlotCanvasData> secondPlot;

    SplitterData() = default;
    SplitterData(const SplitterData& other);
    SplitterData& operator=(const SplitterData& other);
    bool operator==(const SplitterData& other) const;
    // The plots of the tree, depth first, first half before second.
    std::vector<const PlotCanvasData*> Plots() const;
};

// A saved layout under a name.
struct PlotTemplateData {
    QString templateName;
    std::unique_ptr<SplitterData> root;

    PlotTemplateData() = default;
    PlotTemplateData(const PlotTemplateData& other);
    PlotTemplateData& operator=(const PlotTemplateData& other);
};

// What the panel saves: the user's templates, the current layout and the panel's rectangle.
struct PlotConfigData {
    std::vector<PlotTemplateData> templates;
    PlotTemplateData current;
    QRect geometry;
};

// The layout the program brings: four plots of the vehicle's speed, acceleration, brake and throttle.
PlotTemplateData DefaultPlotTemplate();

} // namespace rviz_plugin

#endif
