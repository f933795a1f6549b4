#include "vision_property.h"

#include "image_property.h"

#ifndef Q_MOC_RUN
#include <rviz/bit_allocator.h>
#include <rviz/display_context.h>
#endif

namespace rviz_plugin {

VisionProperty::VisionProperty(std::unique_ptr<IppParameters>& params) : parameters(params) {}

VisionProperty::~VisionProperty()
{
    if (context != nullptr && visibilityBit != 0) {
        context->visibilityBits()->freeBits(visibilityBit);
    }
}

void VisionProperty::Initialize(rviz::Property* parent, VideoControlWidget* item, rviz::DisplayContext* displayContext,
                                rviz::Display* /*display*/)
{
    context = displayContext;
    imageProperty = new ImageProperty(parameters);
    imageProperty->Initialize(item);
    parent->addChild(imageProperty);
    if (context != nullptr) {
        visibilityBit = context->visibilityBits()->allocBit();
    }
}

} // namespace rviz_plugin
