#include "object_info_property.h"

#ifndef Q_MOC_RUN
#include <rviz/properties/color_property.h>
#include <rviz/properties/float_property.h>
#endif

namespace rviz_plugin {

ObjectInfoProperty::ObjectInfoProperty(ObjectArraySettings& objectSettings, rviz::Property* parent)
    : rviz::BoolProperty("Object Info", objectSettings.objectInfoEnabled,
                         "Displays the information of each object as a text above it in the 3D display area.", parent),
      settings(objectSettings)
{
    connect(this, &rviz::Property::changed, this, &ObjectInfoProperty::OnChanged);
    textScaleProperty = new rviz::FloatProperty("Text Scale", settings.textScale,
                                                "The size of the object texts, from 0 to 3.", this);
    textScaleProperty->setMin(0.0F);
    textScaleProperty->setMax(3.0F);
    textColorProperty = new rviz::ColorProperty("Text Color", settings.textColor, "The color of the object texts.", this);
    connect(textScaleProperty, &rviz::Property::changed, this, &ObjectInfoProperty::OnChanged);
    connect(textColorProperty, &rviz::Property::changed, this, &ObjectInfoProperty::OnChanged);
    const struct {
        const char* name;
        bool ObjectArraySettings::*field;
        const char* description;
    } children[] = {
        {"Classification", &ObjectArraySettings::showClassification, "Displays the text of the object's class."},
        {"Classification Confidence", &ObjectArraySettings::showClassificationConfidence,
         "Displays the classification confidence."},
        {"Velocity", &ObjectArraySettings::showVelocity, "Displays the object's speed."},
        {"Object ID", &ObjectArraySettings::showObjectId, "Displays the object ID."},
        {"Track ID", &ObjectArraySettings::showTrackId, "Displays the track ID."},
        {"Existence Probability", &ObjectArraySettings::showExistenceProbability,
         "Displays the existence probability."},
        {"Size", &ObjectArraySettings::showBoxSize, "Displays the size of the object's box."},
        {"Center", &ObjectArraySettings::showBoxCenter, "Displays the centre of the object's box."},
        {"Orientation", &ObjectArraySettings::showBoxOrientation, "Displays the orientation of the object's box."},
        {"Text Display", &ObjectArraySettings::showTextDisplay, "Displays the textDisplay field of the object."},
    };
    for (const auto& child : children) {
        auto* property = new rviz::BoolProperty(child.name, settings.*child.field, child.description, this);
        connect(property, &rviz::Property::changed, this, &ObjectInfoProperty::OnChanged);
        lines.emplace_back(property, child.field);
    }
}

void ObjectInfoProperty::UpdateSettings()
{
    settings.objectInfoEnabled = getBool();
    settings.textScale = textScaleProperty->getFloat();
    settings.textColor = textColorProperty->getColor();
    for (const auto& line : lines) {
        settings.*line.second = line.first->getBool();
    }
}

void ObjectInfoProperty::OnChanged()
{
    UpdateSettings();
    Q_EMIT InfoChanged();
}

} // namespace rviz_plugin
