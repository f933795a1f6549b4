#ifndef RVIZ_PLUGIN_IMAGE_PROPERTY_H
#define RVIZ_PLUGIN_IMAGE_PROPERTY_H

#include "input_message_base.h"

#include <QPointer>

namespace rviz {
class BoolProperty;
class IntProperty;
} // namespace rviz

namespace rviz_plugin {

class CheckedEnumProperty;

class DecoderProperty;
class VideoControlWidget;

// The "Image" input: always on; its topic follows the item's topic chooser and the other way round.
// Below it sits the cropping branch, which excludes the item's "Overlay".
class ImageProperty : public InputMessageBase {
    Q_OBJECT
public:
    ImageProperty(std::unique_ptr<IppParameters>& parameters, rviz::Property* parent = nullptr);
    ~ImageProperty() override;

    void Initialize(VideoControlWidget* widget);
    Qt::ItemFlags getViewFlags(int column) const override;
    QVariant getViewData(int column, int role) const override;

    rviz::BoolProperty* GetCroppingProperty() const { return croppingProperty; }
    DecoderProperty* GetDecoderProperty() const { return decoderProperty.get(); }

public Q_SLOTS:
    void OnSubscriptionInfoChanged() override;
    void OnSendTopicComboboxTextChanged(const QString& text);
    void OnVisibilityStatusChanged(bool visible);
    void OnCroppingChange();
    void OnZoomChange();
    void OnZoomFactorChange();
    void OnTopCroppingChange();
    void OnDownCroppingChange();
    void OnLeftCroppingChange();
    void OnRightCroppingChange();

Q_SIGNALS:
    void SubscriptionInfoChanged(const QString& topic);
    void SendCroppingStatus(bool cropping);
    void SendCroppingType(bool zoom);
    void SendZoomFactor(int factor);
    // side: top 0, down 1, left 2, right 3.
    void SendCroppingPercentage(int percentage, int side);

protected:
    void InitializeBasicProperties(const QString& messageType, const QString& topicDescription,
                                   const QString& queueDescription) override;

private:
    rviz::IntProperty* AddEdgeProperty(const QString& name, const QString& description, const char* slot);

    QPointer<VideoControlWidget> videoControlWidget;
    std::unique_ptr<DecoderProperty> decoderProperty;
    const int minZoomFactor = 100;
    const int maxZoomFactor = 200;
    rviz::BoolProperty* croppingProperty = nullptr;
    CheckedEnumProperty* croppingTypeProperty = nullptr;
    rviz::IntProperty* zoomFactorProperty = nullptr;
    rviz::IntProperty* topCroppingProperty = nullptr;
    rviz::IntProperty* downCroppingProperty = nullptr;
    rviz::IntProperty* leftCroppingProperty = nullptr;
    rviz::IntProperty* rightCroppingProperty = nullptr;
};

} // namespace rviz_plugin

#endif
