#include "base_display_effects.h"

#ifndef Q_MOC_RUN
#include <rviz/properties/bool_property.h>
#include <rviz/properties/color_property.h>
#include <rviz/properties/float_property.h>
#include <rviz/properties/int_property.h>
#endif

#include <cmath>

namespace rviz_plugin {

namespace {
constexpr float minTextScale = 0.000001F;
constexpr float maxTextScale = 100.0F;
constexpr int minTextThickness = 1;
constexpr int maxTextThickness = 100;
constexpr float defaultTextScale = 0.7F;
constexpr int defaultTextThickness = 1;
constexpr float defaultFreespaceAlpha = 0.4F;

QString ScaleDescription(const QString& subject)
{
    return QString("Indicates the scaling ratio of the type text in the %1 recognition result. The default value is "
                   "0.7, and the value must be of the double type. The value range is (0, 100].")
        .arg(subject);
}

QString ThicknessDescription(const QString& subject)
{
    return QString("Indicates the line thickness of the type text in the %1 recognition result. The default value is "
                   "1, and the value must be of the int type. The value range is [1, 100].")
        .arg(subject);
}

// Names the label rows for one input.
struct LabelTexts {
    QString classificationText;
    QString confidence;
    QString scale;
    QString thickness;
};

LabelTexts TextsFor(const QString& subject)
{
    return {QString("Displays the type in the %1 recognition result.").arg(subject),
            QString("Displays the classification confidence in the %1 recognition result.").arg(subject),
            ScaleDescription(subject), ThicknessDescription(subject)};
}

QString EffectsDescription(const QString& subject)
{
    return QString("Indicates the display effects of %1 data. You can modify the configuration items below Display "
                   "Effects to change the way the %1 recognition result is displayed on images.")
        .arg(subject);
}

void Describe(rviz::Property* property, const QString& description)
{
    if (property != nullptr) {
        property->setDescription(description);
    }
}

// Removes a row that this input does not have.
template <typename P>
void Drop(P*& property)
{
    delete property->getParent()->takeChild(property);
    property = nullptr;
}
} // namespace

BaseDisplayEffects::BaseDisplayEffects(const QString& description, std::unique_ptr<IppParameters>& params,
                                       rviz::Property* parent)
    : rviz::Property("Display Effects", QVariant(), description, parent), parameters(params)
{
}

void BaseDisplayEffects::Write(const std::function<void(IppConfig&)>& change)
{
    std::lock_guard<std::mutex> lock(parameters->mutex);
    change(parameters->config);
    parameters->configChanged = true;
}

void BaseDisplayEffects::Initialization(LabelDisplay IppConfig::*label, const bool& showConfidence,
                                        const float& textScale, const int& textThickness, const bool& showTextDisplay)
{
    const auto addBool = [this, label](const QString& name, bool value, bool LabelDisplay::*field) {
        auto* property = new rviz::BoolProperty(name, value, QString(), this);
        connect(property, &rviz::Property::changed, this, [this, property, label, field]() {
            Write([&](IppConfig& config) { (config.*label).*field = property->getBool(); });
        });
        return property;
    };
    classificationTextProperty = addBool("Classification Text", true, &LabelDisplay::showClassificationText);
    confidenceProperty = addBool("Classification Confidence", showConfidence, &LabelDisplay::showConfidence);
    objectIdProperty = addBool("Object ID", false, &LabelDisplay::showObjectId);
    trackIdProperty = addBool("Track ID", false, &LabelDisplay::showTrackId);
    textDisplayProperty = addBool("Text Display", showTextDisplay, &LabelDisplay::showTextDisplay);
    textDisplayProperty->setDescription("Displays custom data that you want to view in Label.");
    textScaleProperty = new rviz::FloatProperty("Text Scale", textScale, QString(), this);
    textScaleProperty->setMin(minTextScale);
    textScaleProperty->setMax(maxTextScale);
    connect(textScaleProperty, &rviz::Property::changed, this, [this, label]() {
        Write([&](IppConfig& config) { (config.*label).textScale = textScaleProperty->getFloat(); });
    });
    textThicknessProperty = AddTextThickness(
        QString(), [label](IppConfig& config, int thickness) { (config.*label).textThickness = thickness; });
    textThicknessProperty->setInt(textThickness);
    Write([&](IppConfig& config) {
        LabelDisplay& display = config.*label;
        display.showConfidence = showConfidence;
        display.textScale = textScale;
        display.textThickness = textThickness;
        display.showTextDisplay = showTextDisplay;
    });
}

void BaseDisplayEffects::DescribeLabels(const QString& subject)
{
    // Rows an input does not have were dropped; describing them does nothing.
    const LabelTexts texts = TextsFor(subject);
    Describe(classificationTextProperty, texts.classificationText);
    Describe(confidenceProperty, texts.confidence);
    Describe(textScaleProperty, texts.scale);
    Describe(textThicknessProperty, texts.thickness);
}

rviz::IntProperty* BaseDisplayEffects::AddTextThickness(const QString& description,
                                                       const std::function<void(IppConfig&, int)>& store)
{
    auto* property = new rviz::IntProperty("Text Thickness", defaultTextThickness, description, this);
    property->setMin(minTextThickness);
    property->setMax(maxTextThickness);
    connect(property, &rviz::Property::changed, this, [this, property, store]() {
        Write([&](IppConfig& config) { store(config, property->getInt()); });
    });
    return property;
}

void BaseDisplayEffects::load(const rviz::Config& config)
{
    rviz::Property::load(config);
    Write([](IppConfig&) {});
}

ObjectDisplayEffects::ObjectDisplayEffects(std::unique_ptr<IppParameters>& params, rviz::Property* parent)
    : BaseDisplayEffects(EffectsDescription("object"), params, parent)
{
    Initialization(&IppConfig::objectDisplay, true, defaultTextScale, defaultTextThickness, false);
    DescribeLabels("object");
    Describe(objectIdProperty, "Displays the object ID in the object recognition result.");
    Describe(trackIdProperty, "Displays the track ID in the object recognition result.");
}

ImgRectDisplayEffects::ImgRectDisplayEffects(std::unique_ptr<IppParameters>& params, rviz::Property* parent)
    : BaseDisplayEffects(EffectsDescription("traffic light"), params, parent)
{
    Initialization(&IppConfig::imageRectangleDisplay, true, defaultTextScale, defaultTextThickness, false);
    Drop(objectIdProperty);
    Drop(trackIdProperty);
    DescribeLabels("traffic light");
}

ImgLineDisplayEffects::ImgLineDisplayEffects(std::unique_ptr<IppParameters>& params, rviz::Property* parent)
    : BaseDisplayEffects(EffectsDescription("road line"), params, parent)
{
    Initialization(&IppConfig::imageLineDisplay, true, defaultTextScale, defaultTextThickness, false);
    Drop(classificationTextProperty);
    Drop(objectIdProperty);
    Drop(trackIdProperty);
    DescribeLabels("road line");
}

MarkerArrayDisplayEffects::MarkerArrayDisplayEffects(std::unique_ptr<IppParameters>& params, rviz::Property* parent)
    : BaseDisplayEffects("Indicates the display effects of MarkerArray data.", params, parent)
{
    textThicknessProperty =
        AddTextThickness("Indicates the size of the text in the Marker of the TEXT_VIEW_FACING type.",
                         [](IppConfig& config, int thickness) { config.markerThickness = thickness; });
}

FreespaceDisplayEffects::FreespaceDisplayEffects(std::unique_ptr<IppParameters>& params, rviz::Property* parent)
    : BaseDisplayEffects("Indicates the display effects of freespace data.", params, parent)
{
    colorProperty = new rviz::ColorProperty(
        "Freespace Color", QColor(Qt::blue),
        "Indicates the color of the freespace. You can modify the value of this parameter to change the color "
        "displayed on images.",
        this);
    alphaProperty = new rviz::FloatProperty(
        "Freespace Alpha", defaultFreespaceAlpha,
        "Indicates the color alpha of the freespace. You can modify the value of this parameter to change the "
        "opacity of the freespace color displayed on images.",
        this);
    alphaProperty->setMin(0.0F);
    alphaProperty->setMax(1.0F);
    connect(colorProperty, &rviz::Property::changed, this, [this]() { UpdateFreespaceColor(); });
    connect(alphaProperty, &rviz::Property::changed, this, [this]() { UpdateFreespaceColor(); });
    UpdateFreespaceColor();
}

Qt::ItemFlags FreespaceDisplayEffects::getViewFlags(int column) const
{
    return rviz::Property::getViewFlags(column) & ~Qt::ItemIsEditable;
}

void FreespaceDisplayEffects::UpdateFreespaceColor()
{
    const QColor color = colorProperty->getColor();
    const auto alpha = static_cast<uint8_t>(std::lround(alphaProperty->getFloat() * 255.0F));
    Write([&](IppConfig& config) {
        config.freespaceColor = {static_cast<uint8_t>(color.red()), static_cast<uint8_t>(color.green()),
                                 static_cast<uint8_t>(color.blue()), alpha};
    });
}

} // namespace rviz_plugin
