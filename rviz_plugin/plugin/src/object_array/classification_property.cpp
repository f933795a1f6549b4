#include "classification_property.h"

#include "classification_editors/classification_value_property.h"
#include "kora_vision_logic/classification_summary.h"

#ifndef Q_MOC_RUN
#include <rviz/properties/color_property.h>
#include <rviz/properties/float_property.h>
#include <rviz/properties/string_property.h>
#endif

namespace rviz_plugin {

ClassificationProperty::ClassificationProperty(ObjectArraySettings& objectSettings, rviz::Property* parent)
    : ClassificationRowProperty("Allows users to set the text and colors of the cuboid and polygon that draw an "
                                "object, which correspond to Value under Classification. After adding a "
                                "Classification record, change the value of Text.",
                                parent),
      settings(objectSettings)
{
}

void ClassificationProperty::Initialize(unsigned value, const ObjectClassification& record)
{
    updating = true;
    currentValue = value;
    valueProperty = new ClassificationValueProperty(value, this);
    textProperty = new rviz::StringProperty("Text", TrimClassificationText(record.text),
                                            "The text shown with the objects of this value.", this);
    cuboidColorProperty = new rviz::ColorProperty("Cuboid Color", record.cuboidColor,
                                                  "The color of the cuboids of this value.", this);
    polygonColorProperty = new rviz::ColorProperty("Polygon Color", record.polygonColor,
                                                   "The color of the polygons of this value.", this);
    alphaProperty = new rviz::FloatProperty("Cuboid Alpha", record.cuboidAlpha,
                                            "The opacity of the cuboids of this value.", this);
    alphaProperty->setMin(0.0F);
    alphaProperty->setMax(1.0F);
    for (rviz::Property* child : {static_cast<rviz::Property*>(valueProperty), static_cast<rviz::Property*>(textProperty),
                                  static_cast<rviz::Property*>(cuboidColorProperty),
                                  static_cast<rviz::Property*>(polygonColorProperty),
                                  static_cast<rviz::Property*>(alphaProperty)}) {
        connect(child, &rviz::Property::changed, this, &ClassificationProperty::OnChildChanged);
    }
    updating = false;
    ReplaceEntry(currentValue);
}

void ClassificationProperty::OnChildChanged()
{
    if (updating) {
        return;
    }
    const QString trimmed = TrimClassificationText(textProperty->getString());
    if (trimmed != textProperty->getString()) {
        textProperty->setString(trimmed);  // comes back here with the cut text
        return;
    }
    const unsigned oldValue = currentValue;
    currentValue = static_cast<unsigned>(valueProperty->getInt());
    ReplaceEntry(oldValue);
}

void ClassificationProperty::WriteRecord()
{
    ReplaceEntry(currentValue);
}

void ClassificationProperty::ReplaceEntry(unsigned oldValue)
{
    if (updating) {
        return;
    }
    ObjectClassification record;
    record.text = textProperty->getString();
    record.cuboidColor = cuboidColorProperty->getColor();
    record.polygonColor = polygonColorProperty->getColor();
    record.cuboidAlpha = alphaProperty->getFloat();
    settings.classifications.erase(static_cast<int>(oldValue));
    settings.classifications[static_cast<int>(currentValue)] = record;
    ShowSummary();
    Q_EMIT RecordChanged();
}

void ClassificationProperty::ShowSummary()
{
    ClassificationSummary summary;
    summary.value = currentValue;
    summary.text = textProperty->getString();
    const bool wasUpdating = updating;
    updating = true;
    rviz::Property::setValue(summary.Format(ClassificationSummary::Labelled));
    updating = wasUpdating;
}

bool ClassificationProperty::setValue(const QVariant& value)
{
    if (updating || valueProperty == nullptr) {
        return rviz::Property::setValue(value);
    }
    ClassificationSummary summary;
    summary.value = currentValue;
    summary.text = textProperty->getString();
    if (summary.Parse(ClassificationSummary::Labelled, value.toString())) {
        const unsigned oldValue = currentValue;
        updating = true;
        valueProperty->setInt(static_cast<int>(summary.value));
        textProperty->setString(summary.text);
        updating = false;
        currentValue = summary.value;
        ReplaceEntry(oldValue);
    }
    ShowSummary();
    return true;
}

} // namespace rviz_plugin
