#ifndef RVIZ_PLUGIN_KORA_VISION_PROPERTY_H
#define RVIZ_PLUGIN_KORA_VISION_PROPERTY_H

#ifndef Q_MOC_RUN
#include <rviz/properties/property.h>
#endif

#include <QColor>
#include <QPointer>

#include <memory>

#include "overlay/message_id.h"

namespace Ogre {
class SceneManager;
class SceneNode;
} // namespace Ogre

namespace rviz {
class Display;
class DisplayContext;
} // namespace rviz

namespace rviz_plugin {

class FrequencyTool;
class ImageFreespaceMessageHandler;
class ImageLineArrayMessageHandler;
class ImageRectangleArrayMessageHandler;
class ImageRender;
class IppNode;
class MarkerArrayMessageHandler;
class ObjectArrayMessageHandler;
class RunningStatusTool;
class SemanticSegmentationMessageHandler;
struct IppParameters;
class VideoControlWidget;
class VideoHandler;
class VisionProperty;

// Root of one video item: its settings, property subtree, renderer, overlay node and video
// handler. Its name is the item's "(n)topic" name, which is also the key it is saved under.
class KoraVisionProperty : public rviz::Property {
    Q_OBJECT
public:
    KoraVisionProperty(const QString& name, const QString& description, rviz::Property* parent = nullptr);
    ~KoraVisionProperty() override;

    void Initialize(VideoControlWidget* item, rviz::DisplayContext* context, rviz::Display* display,
                    Ogre::SceneNode* sceneNode, Ogre::SceneManager* sceneManager);
    void Update();
    void SetTopic(const QString& topic, const QString& datatype);
    const QString& GetVisionName() const { return visionName; }
    void SetVisionName(const QString& name);
    void ClearImageDisplay();
    void OnEnable();
    void OnDisable();
    VisionProperty* GetVisionProperty() const { return visionProperty.get(); }
    IppNode* GetIppNode() const { return ippNode.get(); }
    ImageRender* GetImageRender() const { return imageRender.get(); }
    RunningStatusTool* GetRunningStatusTool() const { return runningStatusTool.get(); }
    IppParameters* GetIppParameters() const { return ippParameters.get(); }
    // The level of the item's "Global Status" list; Ok before initialisation.
    int GetGlobalStatusLevel() const;

    QVariant getViewData(int column, int role) const override;
    void load(const rviz::Config& config) override;

public Q_SLOTS:
    void UpdateVisionName(const QString& topic);
    void ResetDisplay();
    void RenderContext();

Q_SIGNALS:
    void ResetDisplaySignal();
    void RenderContextSignal();
    void EnableDisplay();
    void DisableDisplay();

private:
    void InitConnection();
    void InitPerceptionConnection();
    void InitStatusConnection();
    // Joins an input's property, its subscriber and the overlay node's slot for its messages.
    template <typename Handler, typename Slot>
    void ConnectInput(MessageId id, Handler* handler, Slot receive);

    const int defaultColorRed = 40;
    const int defaultColorGreen = 120;
    const int defaultColorBlue = 197;
    const QColor defaultQColor{defaultColorRed, defaultColorGreen, defaultColorBlue, 255};
    std::unique_ptr<IppParameters> ippParameters;
    std::unique_ptr<VisionProperty> visionProperty;
    std::unique_ptr<ImageRender> imageRender;
    std::unique_ptr<IppNode> ippNode;
    std::unique_ptr<FrequencyTool> frequencyTool;
    std::unique_ptr<RunningStatusTool> runningStatusTool;
    std::unique_ptr<VideoHandler> videoHandler;
    std::unique_ptr<ObjectArrayMessageHandler> objectArrayHandler;
    std::unique_ptr<ImageRectangleArrayMessageHandler> imageRectangleArrayHandler;
    std::unique_ptr<ImageLineArrayMessageHandler> imageLineArrayHandler;
    std::unique_ptr<ImageFreespaceMessageHandler> imageFreespaceHandler;
    std::unique_ptr<SemanticSegmentationMessageHandler> semanticSegmentationHandler;
    std::unique_ptr<MarkerArrayMessageHandler> markerArrayHandler;
    QPointer<VideoControlWidget> item;
    QString visionName = "(1)No Image Topic";
};

} // namespace rviz_plugin

#endif
