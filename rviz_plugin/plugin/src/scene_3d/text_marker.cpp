#include "text_marker.h"

namespace rviz_plugin {

TextMarker::TextMarker(rviz::DisplayContext* context, Ogre::SceneNode* parentNode)
    : rviz::TextViewFacingMarker(nullptr, context, parentNode)
{
}

void TextMarker::SetTextAlignment(rviz::MovableText::HorizontalAlignment horizontal,
                                  rviz::MovableText::VerticalAlignment vertical)
{
    horizontalAlignment = horizontal;
    verticalAlignment = vertical;
    if (text_ != nullptr) {
        text_->setTextAlignment(horizontalAlignment, verticalAlignment);
    }
}

void TextMarker::onNewMessage(const MarkerConstPtr& oldMessage, const MarkerConstPtr& newMessage)
{
    rviz::TextViewFacingMarker::onNewMessage(oldMessage, newMessage);
    if (text_ != nullptr) {
        text_->setTextAlignment(horizontalAlignment, verticalAlignment);
    }
}

} // namespace rviz_plugin
