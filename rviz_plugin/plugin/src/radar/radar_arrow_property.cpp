#include "radar_arrow_property.h"

#ifndef Q_MOC_RUN
#include <rviz/properties/bool_property.h>
#include <rviz/properties/color_property.h>
#include <rviz/properties/float_property.h>
#include <rviz/properties/vector_property.h>
#endif

#include <algorithm>

namespace rviz_plugin {

RadarArrowProperty::RadarArrowProperty(rviz::BoolProperty* switchProperty, RadarArrowSettings& arrowSettings)
    : QObject(switchProperty), parent(switchProperty), arrow(arrowSettings)
{
    colorProperty = new rviz::ColorProperty("Arrow Color", QColor(arrow.color.rgb()), "The color of the arrows.", parent);
    alphaProperty = new rviz::FloatProperty("Arrow Alpha", static_cast<float>(arrow.color.alphaF()),
                                            "The opacity of the arrows, from 0 to 1.", colorProperty);
    alphaProperty->setMin(0.0F);
    alphaProperty->setMax(1.0F);
    scaleProperty = new rviz::VectorProperty("Arrow Scale", Ogre::Vector3(arrow.scale[0], arrow.scale[1], arrow.scale[2]),
                                             "Length per unit (x), width (y) and height (z) of the arrows, each from 0 "
                                             "to 3.",
                                             parent);
    for (rviz::Property* property : {static_cast<rviz::Property*>(parent), static_cast<rviz::Property*>(colorProperty),
                                     static_cast<rviz::Property*>(alphaProperty),
                                     static_cast<rviz::Property*>(scaleProperty)}) {
        connect(property, &rviz::Property::changed, this, &RadarArrowProperty::OnChanged);
    }
    OnChanged();
}

void RadarArrowProperty::OnChanged()
{
    const Ogre::Vector3 typed = scaleProperty->getVector();
    const Ogre::Vector3 clamped(std::clamp(typed.x, 0.0F, 3.0F), std::clamp(typed.y, 0.0F, 3.0F),
                                std::clamp(typed.z, 0.0F, 3.0F));
    if (clamped != typed) {
        scaleProperty->setVector(clamped);  // comes back here with the clamped vector
        return;
    }
    const bool enabled = parent->getBool();
    colorProperty->setReadOnly(!enabled);
    alphaProperty->setReadOnly(!enabled);
    scaleProperty->setReadOnly(!enabled);
    arrow.color = colorProperty->getColor();
    arrow.color.setAlphaF(static_cast<double>(alphaProperty->getFloat()));
    arrow.scale = {clamped.x, clamped.y, clamped.z};
    Q_EMIT ArrowChanged();
}

} // namespace rviz_plugin
