#include "radar_info_property.h"

#include "scene_3d_logic/radar_settings.h"

#ifndef Q_MOC_RUN
#include <rviz/properties/color_property.h>
#include <rviz/properties/float_property.h>
#endif

namespace rviz_plugin {

RadarInfoItemProperty::RadarInfoItemProperty(const QString& name, bool ticked, const QString& description,
                                             rviz::Property* parent)
    : rviz::BoolProperty(name, ticked, description, parent)
{
}

void RadarInfoItemProperty::SetDisable(bool disable)
{
    disabled = disable;
}

Qt::ItemFlags RadarInfoItemProperty::getViewFlags(int column) const
{
    return disabled ? Qt::ItemFlags() : rviz::BoolProperty::getViewFlags(column);
}

RadarInfoProperty::RadarInfoProperty(bool shown, const QColor& textColor, float textScale, const QString& description,
                                     rviz::Property* parent)
    : rviz::BoolProperty("Info", shown, description, parent)
{
    textColorProperty = new rviz::ColorProperty("Text Color", QColor(textColor.rgb()), "The color of the texts.", this);
    textAlphaProperty = new rviz::FloatProperty("Text Alpha", static_cast<float>(textColor.alphaF()),
                                                "The opacity of the texts, from 0 to 1.", textColorProperty);
    textAlphaProperty->setMin(0.0F);
    textAlphaProperty->setMax(1.0F);
    textSizeProperty = new rviz::FloatProperty("Text Size", textScale, "The size of the texts, from 0 to 3.", this);
    textSizeProperty->setMin(0.0F);
    textSizeProperty->setMax(3.0F);
    connect(this, &rviz::Property::changed, this, &RadarInfoProperty::OnChanged);
    for (rviz::Property* child : {static_cast<rviz::Property*>(textColorProperty),
                                  static_cast<rviz::Property*>(textAlphaProperty),
                                  static_cast<rviz::Property*>(textSizeProperty)}) {
        connect(child, &rviz::Property::changed, this, &RadarInfoProperty::OnChanged);
    }
}

void RadarInfoProperty::AddFields(const std::vector<Field>& fields, const std::vector<bool>& ticked)
{
    for (std::size_t index = 0; index < fields.size(); ++index) {
        auto* item = new RadarInfoItemProperty(fields[index].name, index < ticked.size() && ticked[index],
                                               fields[index].description, this);
        connect(item, &rviz::Property::changed, this, &RadarInfoProperty::OnChanged);
        items.push_back(item);
    }
    UpdateEnabledFields();
}

QColor RadarInfoProperty::TextColor() const
{
    QColor color = textColorProperty->getColor();
    color.setAlphaF(static_cast<double>(textAlphaProperty->getFloat()));
    return color;
}

float RadarInfoProperty::TextScale() const
{
    return textSizeProperty->getFloat();
}

std::vector<bool> RadarInfoProperty::TickedFields() const
{
    std::vector<bool> ticked;
    for (const RadarInfoItemProperty* item : items) {
        ticked.push_back(item->getBool());
    }
    return ticked;
}

void RadarInfoProperty::UpdateEnabledFields()
{
    int tickedCount = 0;
    for (const RadarInfoItemProperty* item : items) {
        tickedCount += item->getBool() ? 1 : 0;
    }
    for (RadarInfoItemProperty* item : items) {
        item->SetDisable(tickedCount >= maxTickedInfoFields && !item->getBool());
    }
}

void RadarInfoProperty::OnChanged()
{
    UpdateEnabledFields();
    Q_EMIT InfoChanged();
}

} // namespace rviz_plugin
