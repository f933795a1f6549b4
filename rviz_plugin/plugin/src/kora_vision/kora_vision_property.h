#ifndef RVIZ_PLUGIN_KORA_VISION_PROPERTY_H
#define RVIZ_PLUGIN_KORA_VISION_PROPERTY_H

#ifndef Q_MOC_RUN
#include <rviz/properties/property.h>
#endif

#include <QColor>
#include <QPointer>

namespace Ogre {
class SceneManager;
class SceneNode;
} // namespace Ogre

namespace rviz {
class Display;
class DisplayContext;
} // namespace rviz

namespace rviz_plugin {

class VideoControlWidget;

// Root of one video item in the property tree; its name is the item's "(n)topic" name,
// which is also the key the item is saved under.
class KoraVisionProperty : public rviz::Property {
    Q_OBJECT
public:
    KoraVisionProperty(const QString& name, const QString& description, rviz::Property* parent = nullptr);
    ~KoraVisionProperty() override;

    void Initialize(VideoControlWidget* item, rviz::DisplayContext* context, rviz::Display* display,
                    Ogre::SceneNode* sceneNode, Ogre::SceneManager* sceneManager);
    void SetTopic(const QString& topic, const QString& datatype);
    QString GetTopic() const;
    const QString& GetVisionName() const { return visionName; }
    void SetVisionName(const QString& name);
    void OnEnable();
    void OnDisable();

    QVariant getViewData(int column, int role) const override;
    void load(const rviz::Config& config) override;
    void save(rviz::Config config) const override;

public Q_SLOTS:
    void UpdateVisionName(const QString& topic);

private:
    void SetRenderWindowState(bool active);

    const int defaultColorRed = 40;
    const int defaultColorGreen = 120;
    const int defaultColorBlue = 197;
    const QColor defaultQColor{defaultColorRed, defaultColorGreen, defaultColorBlue, 255};
    QPointer<VideoControlWidget> item;
    QString visionName = "(1)No Image Topic";
};

} // namespace rviz_plugin

#endif
