#ifndef RVIZ_PLUGIN_PERCEPTION_MESSAGE_HANDLERS_H
#define RVIZ_PLUGIN_PERCEPTION_MESSAGE_HANDLERS_H

#include "message_handler.h"

#ifndef Q_MOC_RUN
#include <custom/ImageLineArray.h>
#include <custom/ImageRectangleArray.h>
#include <custom/ObjectArray.h>
#include <orsa_msgs/ImageFreespace.h>
#include <orsa_msgs/SemanticSegmentation.h>
#include <visualization_msgs/MarkerArray.h>
#endif

// The six perception subscribers of a video item, one per message type.
namespace rviz_plugin {

class ObjectArrayMessageHandler : public TypedMessageHandler<ObjectArrayMessageHandler, custom::ObjectArray> {
    Q_OBJECT
Q_SIGNALS:
    void SendMsg(const boost::shared_ptr<const custom::ObjectArray>& message);
};

class ImageRectangleArrayMessageHandler
    : public TypedMessageHandler<ImageRectangleArrayMessageHandler, custom::ImageRectangleArray> {
    Q_OBJECT
Q_SIGNALS:
    void SendMsg(const boost::shared_ptr<const custom::ImageRectangleArray>& message);
};

class ImageLineArrayMessageHandler
    : public TypedMessageHandler<ImageLineArrayMessageHandler, custom::ImageLineArray> {
    Q_OBJECT
Q_SIGNALS:
    void SendMsg(const boost::shared_ptr<const custom::ImageLineArray>& message);
};

class ImageFreespaceMessageHandler
    : public TypedMessageHandler<ImageFreespaceMessageHandler, orsa_msgs::ImageFreespace> {
    Q_OBJECT
Q_SIGNALS:
    void SendMsg(const boost::shared_ptr<const orsa_msgs::ImageFreespace>& message);
};

class SemanticSegmentationMessageHandler
    : public TypedMessageHandler<SemanticSegmentationMessageHandler, orsa_msgs::SemanticSegmentation> {
    Q_OBJECT
Q_SIGNALS:
    void SendMsg(const boost::shared_ptr<const orsa_msgs::SemanticSegmentation>& message);
};

class MarkerArrayMessageHandler
    : public TypedMessageHandler<MarkerArrayMessageHandler, visualization_msgs::MarkerArray> {
    Q_OBJECT
Q_SIGNALS:
    void SendMsg(const boost::shared_ptr<const visualization_msgs::MarkerArray>& message);
};

} // namespace rviz_plugin

#endif
