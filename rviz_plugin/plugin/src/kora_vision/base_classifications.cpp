#include "base_classifications.h"

#include "classification_editors/classification_value_property.h"

#ifndef Q_MOC_RUN
#include <rviz/properties/bool_property.h>
#include <rviz/properties/color_property.h>
#include <rviz/properties/float_property.h>
#include <rviz/properties/string_property.h>
#endif

#include <cmath>

namespace rviz_plugin {

namespace {
constexpr float defaultAlpha = 0.4F;
constexpr int defaultLineThickness = 2;
const char* const notConfiguredText = "not_configured";

QString RowDescription(const QString& subject)
{
    return QString("Allows users to set the text and color of the rectangle or polygon that identifies %1, which "
                   "correspond to Value under Classification. Eight color pairs are preset for objects, and users can "
                   "define the color values. The default value of Text under Classification is not_configured. After "
                   "adding a Classification record, change the value of Text.")
        .arg(subject);
}
} // namespace

BaseClassifications::BaseClassifications(const QString& description, ClassificationSummary::Kind rowKind,
                                         std::unique_ptr<IppParameters>& params, Classifications IppConfig::*rows,
                                         rviz::Property* parent)
    : ClassificationRowProperty(description, parent), kind(rowKind), parameters(params), table(rows)
{
}

void BaseClassifications::Initialize(const unsigned& value, const QColor& color, const QString& text)
{
    updating = true;
    currentValue = value;
    valueProperty = new ClassificationValueProperty(value, this);
    connect(valueProperty, &rviz::Property::changed, this, &BaseClassifications::UpdateClassificationValue);
    if (kind == ClassificationSummary::Labelled) {
        textProperty = new rviz::StringProperty(
            "Text", TrimClassificationText(text.isEmpty() ? notConfiguredText : text),
            "The text shown with the recognition results of this value.", this);
        connect(textProperty, &rviz::Property::changed, this, &BaseClassifications::UpdateClassificationData);
    }
    colorProperty = new rviz::ColorProperty("Color", color, "The color of the results of this value.", this);
    connect(colorProperty, &rviz::Property::changed, this, &BaseClassifications::UpdateClassificationData);
    if (kind == ClassificationSummary::Line) {
        isSolidProperty = new rviz::BoolProperty(
            "Is Solid", true,
            "Indicates the line type used in the road line recognition result. If you select Is Solid, solid lines are "
            "displayed. Otherwise, dashed lines are adopted.",
            this);
        lineThicknessProperty = new rviz::IntProperty(
            "Line Thickness", defaultLineThickness,
            "Indicates the line thickness in the road line recognition result. The default value is 2, and the value "
            "must be of the int type. The value range is [1, 100].",
            this);
        lineThicknessProperty->setMin(ClassificationSummary::minLineThickness);
        lineThicknessProperty->setMax(ClassificationSummary::maxLineThickness);
        connect(isSolidProperty, &rviz::Property::changed, this, &BaseClassifications::UpdateClassificationData);
        connect(lineThicknessProperty, &rviz::Property::changed, this, &BaseClassifications::UpdateClassificationData);
    }
    if (kind == ClassificationSummary::Segmentation) {
        alphaProperty = new rviz::FloatProperty("Alpha", defaultAlpha, "The opacity of this class on the image.", this);
        alphaProperty->setMin(0.0F);
        alphaProperty->setMax(1.0F);
        connect(alphaProperty, &rviz::Property::changed, this, &BaseClassifications::UpdateClassificationData);
    }
    updating = false;
    ReplaceEntry(currentValue);
}

ClassificationSummary BaseClassifications::GetSummary() const
{
    ClassificationSummary summary;
    summary.value = currentValue;
    if (textProperty != nullptr) {
        summary.text = textProperty->getString();
    }
    if (isSolidProperty != nullptr) {
        summary.isSolid = isSolidProperty->getBool();
        summary.lineThickness = lineThicknessProperty->getInt();
    }
    return summary;
}

bool BaseClassifications::setValue(const QVariant& value)
{
    if (updating || valueProperty == nullptr) {
        return rviz::Property::setValue(value);
    }
    ClassificationSummary summary = GetSummary();
    if (summary.Parse(kind, value.toString())) {
        ChangeContentValue(summary);
    }
    // The shown summary always tells what the row holds.
    SetPropertyValueString();
    return true;
}

void BaseClassifications::ChangeContentValue(const ClassificationSummary& summary)
{
    const unsigned oldValue = currentValue;
    updating = true;
    valueProperty->setInt(static_cast<int>(summary.value));
    if (textProperty != nullptr) {
        textProperty->setString(summary.text);
    }
    if (isSolidProperty != nullptr) {
        isSolidProperty->setBool(summary.isSolid);
        lineThicknessProperty->setInt(summary.lineThickness);
    }
    updating = false;
    currentValue = summary.value;
    ReplaceEntry(oldValue);
}

void BaseClassifications::UpdateClassificationValue()
{
    if (updating) {
        return;
    }
    const unsigned oldValue = currentValue;
    currentValue = static_cast<unsigned>(valueProperty->getInt());
    ReplaceEntry(oldValue);
}

void BaseClassifications::UpdateClassificationData()
{
    if (updating) {
        return;
    }
    if (textProperty != nullptr) {
        const QString trimmed = TrimClassificationText(textProperty->getString());
        if (trimmed != textProperty->getString()) {
            // Comes back here once with the cut text.
            textProperty->setString(trimmed);
            return;
        }
    }
    ReplaceEntry(currentValue);
}

void BaseClassifications::RefreshIppParameterData()
{
    ReplaceEntry(currentValue);
}

void BaseClassifications::ReplaceEntry(unsigned oldValue)
{
    if (updating) {
        return;
    }
    ClassificationDisplay entry;
    const QColor color = colorProperty->getColor();
    entry.color = {static_cast<uint8_t>(color.red()), static_cast<uint8_t>(color.green()),
                   static_cast<uint8_t>(color.blue())};
    if (textProperty != nullptr) {
        entry.text = textProperty->getStdString();
    }
    if (isSolidProperty != nullptr) {
        entry.isSolid = isSolidProperty->getBool();
        entry.lineThickness = lineThicknessProperty->getInt();
    }
    if (alphaProperty != nullptr) {
        entry.alpha = static_cast<uint8_t>(std::lround(alphaProperty->getFloat() * 255.0F));
    }
    {
        std::lock_guard<std::mutex> lock(parameters->mutex);
        Classifications& rows = parameters->config.*table;
        rows.erase(oldValue);
        rows[currentValue] = entry;
        parameters->configChanged = true;
    }
    SetPropertyValueString();
}

void BaseClassifications::SetPropertyValueString()
{
    const bool wasUpdating = updating;
    updating = true;
    rviz::Property::setValue(GetSummary().Format(kind));
    updating = wasUpdating;
}

ObjectClassifications::ObjectClassifications(std::unique_ptr<IppParameters>& params, rviz::Property* parent)
    : BaseClassifications(RowDescription("an object"), ClassificationSummary::Labelled, params,
                          &IppConfig::objectClassifications, parent)
{
}

ImgRectClassifications::ImgRectClassifications(std::unique_ptr<IppParameters>& params, rviz::Property* parent)
    : BaseClassifications(RowDescription("a traffic light"), ClassificationSummary::Labelled, params,
                          &IppConfig::imageRectangleClassifications, parent)
{
}

ImgLineClassifications::ImgLineClassifications(std::unique_ptr<IppParameters>& params, rviz::Property* parent)
    : BaseClassifications(RowDescription("a road line"), ClassificationSummary::Line, params,
                          &IppConfig::imageLineClassifications, parent)
{
}

SemanticSegmentationClassifications::SemanticSegmentationClassifications(std::unique_ptr<IppParameters>& params,
                                                                         rviz::Property* parent)
    : BaseClassifications(RowDescription("a segmentation class"), ClassificationSummary::Segmentation, params,
                          &IppConfig::semanticSegmentationClassifications, parent)
{
}

} // namespace rviz_plugin
