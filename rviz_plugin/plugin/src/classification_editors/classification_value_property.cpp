#include "classification_value_property.h"

namespace rviz_plugin {

ClassificationValueProperty::ClassificationValueProperty(unsigned value, rviz::Property* parent)
    : rviz::IntProperty("Value", static_cast<int>(value), "The classification value carried by the recognition result.",
                        parent)
{
    setMin(0);
    setMax(static_cast<int>(maxValue));
}

} // namespace rviz_plugin
