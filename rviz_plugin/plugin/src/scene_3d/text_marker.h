#ifndef RVIZ_PLUGIN_TEXT_MARKER_H
#define RVIZ_PLUGIN_TEXT_MARKER_H

#ifndef Q_MOC_RUN
#include <rviz/default_plugin/markers/text_view_facing_marker.h>
#include <rviz/ogre_helpers/movable_text.h>
#endif

namespace rviz_plugin {

// A camera-facing text whose alignment is chosen once and kept for every message (rviz's own centres it).
class TextMarker : public rviz::TextViewFacingMarker {
public:
    TextMarker(rviz::DisplayContext* context, Ogre::SceneNode* parentNode);

    void SetTextAlignment(rviz::MovableText::HorizontalAlignment horizontal,
                          rviz::MovableText::VerticalAlignment vertical);

protected:
    void onNewMessage(const MarkerConstPtr& oldMessage, const MarkerConstPtr& newMessage) override;

private:
    rviz::MovableText::HorizontalAlignment horizontalAlignment = rviz::MovableText::H_CENTER;
    rviz::MovableText::VerticalAlignment verticalAlignment = rviz::MovableText::V_CENTER;
};

} // namespace rviz_plugin

#endif
