#ifndef RVIZ_PLUGIN_BASE_DISPLAY_EFFECTS_H
#define RVIZ_PLUGIN_BASE_DISPLAY_EFFECTS_H

#include "overlay/ipp_parameters.h"

#ifndef Q_MOC_RUN
#include <rviz/properties/property.h>
#endif

#include <functional>
#include <memory>

namespace rviz {
class BoolProperty;
class ColorProperty;
class FloatProperty;
class IntProperty;
} // namespace rviz

namespace rviz_plugin {

// The "Display Effects" node of an input: how its labels look. Every change is written to the item's
// settings under their mutex and raises their changed flag.
class BaseDisplayEffects : public rviz::Property {
    Q_OBJECT
public:
    BaseDisplayEffects(const QString& description, std::unique_ptr<IppParameters>& parameters,
                       rviz::Property* parent = nullptr);

    void load(const rviz::Config& config) override;

protected:
    // The label rows of objects, traffic lights and road lines, writing into label of the settings.
    void Initialization(LabelDisplay IppConfig::*label, const bool& showConfidence, const float& textScale,
                        const int& textThickness, const bool& showTextDisplay);
    // Describes the label rows for subject ("object", "traffic light", "road line").
    void DescribeLabels(const QString& subject);
    // Writes one change into the settings.
    void Write(const std::function<void(IppConfig&)>& change);
    rviz::IntProperty* AddTextThickness(const QString& description, const std::function<void(IppConfig&, int)>& store);

    std::unique_ptr<IppParameters>& parameters;
    rviz::BoolProperty* classificationTextProperty = nullptr;
    rviz::BoolProperty* confidenceProperty = nullptr;
    rviz::BoolProperty* objectIdProperty = nullptr;
    rviz::BoolProperty* trackIdProperty = nullptr;
    rviz::BoolProperty* textDisplayProperty = nullptr;
    rviz::FloatProperty* textScaleProperty = nullptr;
    rviz::IntProperty* textThicknessProperty = nullptr;
};

class ObjectDisplayEffects : public BaseDisplayEffects {
    Q_OBJECT
public:
    ObjectDisplayEffects(std::unique_ptr<IppParameters>& parameters, rviz::Property* parent = nullptr);
};

class ImgRectDisplayEffects : public BaseDisplayEffects {
    Q_OBJECT
public:
    ImgRectDisplayEffects(std::unique_ptr<IppParameters>& parameters, rviz::Property* parent = nullptr);
};

class ImgLineDisplayEffects : public BaseDisplayEffects {
    Q_OBJECT
public:
    ImgLineDisplayEffects(std::unique_ptr<IppParameters>& parameters, rviz::Property* parent = nullptr);
};

class MarkerArrayDisplayEffects : public BaseDisplayEffects {
    Q_OBJECT
public:
    MarkerArrayDisplayEffects(std::unique_ptr<IppParameters>& parameters, rviz::Property* parent = nullptr);
};

// Freespace's colour and opacity; the node itself holds no value.
class FreespaceDisplayEffects : public BaseDisplayEffects {
    Q_OBJECT
public:
    FreespaceDisplayEffects(std::unique_ptr<IppParameters>& parameters, rviz::Property* parent = nullptr);
    Qt::ItemFlags getViewFlags(int column) const override;

private:
    void UpdateFreespaceColor();

    rviz::ColorProperty* colorProperty = nullptr;
    rviz::FloatProperty* alphaProperty = nullptr;
};

} // namespace rviz_plugin

#endif
