#ifndef RVIZ_PLUGIN_VISION_PROPERTY_H
#define RVIZ_PLUGIN_VISION_PROPERTY_H

#include "overlay/ipp_parameters.h"

#include <QObject>

#ifndef Q_MOC_RUN
#include <rviz/properties/status_property.h>
#endif

#include <cstdint>
#include <map>
#include <memory>

namespace rviz {
class Display;
class DisplayContext;
class DisplayGroupVisibilityProperty;
class IntProperty;
class Property;
class StatusList;
} // namespace rviz

namespace rviz_plugin {

class BaseSettingProperty;
class ImageProperty;
class InputMessageBase;
class VideoControlWidget;

// Builds the property subtree of one video item: global status, the sync queue length, one
// branch per input and the "Overlay" switch.
class VisionProperty : public QObject {
    Q_OBJECT
public:
    explicit VisionProperty(std::unique_ptr<IppParameters>& parameters);
    ~VisionProperty() override;

    void Initialize(rviz::Property* parent, VideoControlWidget* item, rviz::DisplayContext* context,
                    rviz::Display* display);
    rviz::StatusList* GetGlobalStatusList() const { return globalStatusList; }
    ImageProperty* GetImageProperty() const { return imageProperty; }
    InputMessageBase* GetObjectProperty() const { return objectProperty; }
    InputMessageBase* GetImageRectangleProperty() const { return imageRectangleProperty; }
    InputMessageBase* GetImageLineProperty() const { return imageLineProperty; }
    InputMessageBase* GetImageFreespaceProperty() const { return imageFreespaceProperty; }
    InputMessageBase* GetImageSemanticSegmentationProperty() const { return imageSemanticSegmentationProperty; }
    InputMessageBase* GetMarkerArrayProperty() const { return markerArrayProperty; }
    // The input of an id; the image input for Image.
    InputMessageBase* GetInputProperty(MessageId id) const;
    BaseSettingProperty* GetObjectSetting() const { return objectSetting; }
    BaseSettingProperty* GetTrafficLightSetting() const { return trafficLightSetting; }
    BaseSettingProperty* GetRoadLineSetting() const { return roadLineSetting; }
    BaseSettingProperty* GetSegmentationSetting() const { return segmentationSetting; }
    rviz::IntProperty* GetSyncQueueSizeProperty() const { return syncQueueSizeProperty; }
    rviz::DisplayGroupVisibilityProperty* GetOverlayProperty() const { return overlayProperty; }
    uint32_t GetVisibleBit() const { return visibilityBit; }
    void SetGlobalStatus(rviz::StatusProperty::Level level, const QString& name, const QString& text);
    void DeleteGlobalStatus(const QString& name);

public Q_SLOTS:
    void UpdateSyncQueueSize();
    void UpdateSingleFrameProcessingTime(float milliseconds);
    void OnUpdateVisibilityProperty();
    void OnCalibrationStateChange();
    void OnImageCroppingStatusChange(bool cropping);

Q_SIGNALS:
    void SendVisibilityStatus(bool visible);

private:
    void InitializedBasicProperties(rviz::Property* parent);
    InputMessageBase* AddInput(rviz::Property* parent, MessageId id);
    // The display-effect and classification subtrees below the perception inputs.
    void InitDisplayEffects();

    std::unique_ptr<IppParameters>& parameters;
    rviz::StatusList* globalStatusList = nullptr;
    rviz::IntProperty* syncQueueSizeProperty = nullptr;
    ImageProperty* imageProperty = nullptr;
    InputMessageBase* objectProperty = nullptr;
    InputMessageBase* imageRectangleProperty = nullptr;
    InputMessageBase* imageLineProperty = nullptr;
    InputMessageBase* imageFreespaceProperty = nullptr;
    InputMessageBase* imageSemanticSegmentationProperty = nullptr;
    rviz::DisplayContext* context = nullptr;
    uint32_t visibilityBit = 0;
    rviz::DisplayGroupVisibilityProperty* overlayProperty = nullptr;
    InputMessageBase* markerArrayProperty = nullptr;
    BaseSettingProperty* objectSetting = nullptr;
    BaseSettingProperty* trafficLightSetting = nullptr;
    BaseSettingProperty* roadLineSetting = nullptr;
    BaseSettingProperty* segmentationSetting = nullptr;
};

} // namespace rviz_plugin

#endif
