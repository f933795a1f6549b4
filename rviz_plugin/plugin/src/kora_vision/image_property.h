#ifndef RVIZ_PLUGIN_IMAGE_PROPERTY_H
#define RVIZ_PLUGIN_IMAGE_PROPERTY_H

#include "input_message_base.h"

#include <QPointer>

namespace rviz_plugin {

class VideoControlWidget;

// The "Image" input: always on; its topic follows the item's topic chooser and the other way round.
class ImageProperty : public InputMessageBase {
    Q_OBJECT
public:
    ImageProperty(std::unique_ptr<IppParameters>& parameters, rviz::Property* parent = nullptr);

    void Initialize(VideoControlWidget* widget);
    Qt::ItemFlags getViewFlags(int column) const override;
    QVariant getViewData(int column, int role) const override;

public Q_SLOTS:
    void OnSubscriptionInfoChanged() override;
    void OnSendTopicComboboxTextChanged(const QString& text);

Q_SIGNALS:
    void SubscriptionInfoChanged(const QString& topic);

private:
    QPointer<VideoControlWidget> videoControlWidget;
};

} // namespace rviz_plugin

#endif
