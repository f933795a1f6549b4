#ifndef RVIZ_PLUGIN_VISION_PROPERTY_H
#define RVIZ_PLUGIN_VISION_PROPERTY_H

#include "ipp_parameters.h"

#include <QObject>

#include <cstdint>
#include <memory>

namespace rviz {
class Display;
class DisplayContext;
class Property;
} // namespace rviz

namespace rviz_plugin {

class ImageProperty;
class VideoControlWidget;

// Builds the property subtree of one video item.
class VisionProperty : public QObject {
    Q_OBJECT
public:
    explicit VisionProperty(std::unique_ptr<IppParameters>& parameters);
    ~VisionProperty() override;

    void Initialize(rviz::Property* parent, VideoControlWidget* item, rviz::DisplayContext* context,
                    rviz::Display* display);
    ImageProperty* GetImageProperty() const { return imageProperty; }
    uint32_t GetVisibleBit() const { return visibilityBit; }

private:
    std::unique_ptr<IppParameters>& parameters;
    ImageProperty* imageProperty = nullptr;
    rviz::DisplayContext* context = nullptr;
    uint32_t visibilityBit = 0;
};

} // namespace rviz_plugin

#endif
