#ifndef RVIZ_PLUGIN_DECODER_PROPERTY_H
#define RVIZ_PLUGIN_DECODER_PROPERTY_H

#include <QMap>
#include <QObject>
#include <QString>

#include <memory>

#ifndef Q_MOC_RUN
#include <custom/DecoderInfo.h>
#include <ros/ros.h>
#endif

namespace rviz {
class IntProperty;
class Property;
} // namespace rviz

namespace rviz_plugin {

class CheckedEnumProperty;

// The decoder choice of one video item ("Decoder Selection" under "Image"). A choice made by hand
// applies to this item; the decoder switch tool sets every item at once over
// "/decoder_selection_mode", and each item's decoder then reports its result.
class DecoderProperty : public QObject {
    Q_OBJECT
public:
    // The choice that new items take: the last one the decoder switch tool sent.
    static int globalSettingNum;

    DecoderProperty(rviz::Property* parent, int index);
    ~DecoderProperty() override;

    int GetMode() const;

public Q_SLOTS:
    void UpdateDecoderSelectionMode();
    void OnChangeDecoderSelectionInternal(int mode);
    void ReceiveDecoderSelectionModeSetting(const custom::DecoderInfo::ConstPtr& msg);

Q_SIGNALS:
    void SendDecoderSelectionMode(int mode);
    void SendDecoderInformation();

private:
    void SetMode(int mode);

    std::unique_ptr<rviz::IntProperty> globalSettingProperty;
    CheckedEnumProperty* decoderSelectionProperty = nullptr;
    QMap<int, QString> modeNames;
    // Set while the choice is changed from the decoder's side, so that no new command goes out.
    bool guard = false;
    ros::NodeHandle nodeHandle;
    ros::Subscriber selectionSubscriber;
};

} // namespace rviz_plugin

#endif
