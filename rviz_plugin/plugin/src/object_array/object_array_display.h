#ifndef RVIZ_PLUGIN_OBJECT_ARRAY_DISPLAY_H
#define RVIZ_PLUGIN_OBJECT_ARRAY_DISPLAY_H

#include "scene_3d/display_status_sink.h"
#include "scene_3d/receive_monitor.h"
#include "scene_3d_logic/object_array_settings.h"
#include "scene_3d_logic/status_sink.h"

#ifndef Q_MOC_RUN
#include <custom/ObjectArray.h>
#include <rviz/message_filter_display.h>
#endif

#include <memory>

namespace rviz {
class BoolProperty;
class ColorProperty;
class VectorProperty;
} // namespace rviz

namespace rviz_plugin {

class ClassificationSettingProperty;
class MsgChecker;
class ObjectArrayVisual;
class ObjectInfoProperty;

// The objects of a custom/ObjectArray in the 3D view: cuboids, footprint polygons, velocity arrows and
// texts, coloured by class. A bad field hides only the drawing that needs it and raises a status.
class ObjectArrayDisplay : public rviz::MessageFilterDisplay<custom::ObjectArray> {
    Q_OBJECT
public:
    ObjectArrayDisplay();
    ~ObjectArrayDisplay() override;

    void reset() override;
    void load(const rviz::Config& config) override;

    const ObjectArraySettings& Settings() const { return *settings; }
    std::size_t ShownObjectCount() const;

protected:
    void onInitialize() override;
    void onEnable() override;
    void updateTopic() override;
    void processMessage(const custom::ObjectArray::ConstPtr& message) override;

private Q_SLOTS:
    void OnCubePropertyChanged();
    void OnPolygonPropertyChanged();
    void OnVelocityPropertyChanged();
    void OnArrowColorPropertyChanged();
    void OnArrowScalePropertyChanged();
    void OnObjectInfoChanged();
    void OnClassificationChanged();

private:
    void InitProperties();
    void SetName();
    void ReRender();
    static void CheckBound(float& value);

    std::unique_ptr<ObjectArraySettings> settings;
    DisplayStatusSink statusSink{this};
    std::unique_ptr<MsgChecker> msgChecker;
    std::unique_ptr<ObjectArrayVisual> visual;
    custom::ObjectArray::ConstPtr lastMessage;
    ReceiveMonitor* receiveMonitor = nullptr;

    rviz::BoolProperty* cubeProperty = nullptr;
    rviz::BoolProperty* polygonProperty = nullptr;
    rviz::BoolProperty* velocityProperty = nullptr;
    rviz::ColorProperty* arrowColorProperty = nullptr;
    rviz::VectorProperty* arrowScaleProperty = nullptr;
    ObjectInfoProperty* objectInfoProperty = nullptr;
    ClassificationSettingProperty* classificationProperty = nullptr;
};

} // namespace rviz_plugin

#endif
