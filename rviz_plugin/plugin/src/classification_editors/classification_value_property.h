#ifndef RVIZ_PLUGIN_CLASSIFICATION_VALUE_PROPERTY_H
#define RVIZ_PLUGIN_CLASSIFICATION_VALUE_PROPERTY_H

#ifndef Q_MOC_RUN
#include <rviz/properties/int_property.h>
#endif

namespace rviz_plugin {

// The "Value" of a classification row: the class number a perception message carries, 0 to 255.
class ClassificationValueProperty : public rviz::IntProperty {
    Q_OBJECT
public:
    static constexpr unsigned maxValue = 255;

    explicit ClassificationValueProperty(unsigned value, rviz::Property* parent);
};

} // namespace rviz_plugin

#endif
