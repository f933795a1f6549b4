#include "decoder_property.h"

#include "foundation/config_load_guard.h"

#ifndef Q_MOC_RUN
#include <rviz/properties/enum_property.h>
#include <rviz/properties/int_property.h>
#endif

namespace rviz_plugin {

namespace {
constexpr uint32_t selectionQueueSize = 30;
} // namespace

int DecoderProperty::globalSettingNum = custom::DecoderInfo::SOFTWARE_DECODING_MODE;

DecoderProperty::DecoderProperty(rviz::Property* parent, int index)
    : modeNames{{custom::DecoderInfo::SOFTWARE_DECODING_MODE, "Software Decoder"},
                {custom::DecoderInfo::INTEL_HARDWARE_DECODING_MODE, "Intel Hardware Decoder"},
                {custom::DecoderInfo::NVIDIA_HARDWARE_DECODING_MODE, "NVIDIA Hardware Decoder"}}
{
    // Not part of the tree: the global choice belongs to the tool, each item shows its own selection.
    globalSettingProperty = std::make_unique<rviz::IntProperty>(
        "Global Setting", globalSettingNum, "The global decoder selection setting for each KORA Vision");
    decoderSelectionProperty = new CheckedEnumProperty(
        "Decoder Selection", modeNames.value(globalSettingNum),
        "The decoder that decodes this item's video: software, or the Intel or NVIDIA hardware decoder.", nullptr,
        SLOT(UpdateDecoderSelectionMode()), this);
    for (int mode : {custom::DecoderInfo::INTEL_HARDWARE_DECODING_MODE, custom::DecoderInfo::SOFTWARE_DECODING_MODE,
                     custom::DecoderInfo::NVIDIA_HARDWARE_DECODING_MODE}) {
        decoderSelectionProperty->AddOption(modeNames.value(mode), mode);
    }
    parent->addChild(decoderSelectionProperty, index);
    selectionSubscriber = nodeHandle.subscribe<custom::DecoderInfo>(
        "/decoder_selection_mode", selectionQueueSize, &DecoderProperty::ReceiveDecoderSelectionModeSetting, this);
}

DecoderProperty::~DecoderProperty() = default;

int DecoderProperty::GetMode() const
{
    return decoderSelectionProperty->getOptionInt();
}

void DecoderProperty::UpdateDecoderSelectionMode()
{
    if (!guard) {
        Q_EMIT SendDecoderSelectionMode(GetMode());
    }
}

void DecoderProperty::OnChangeDecoderSelectionInternal(int mode)
{
    guard = true;
    SetMode(mode);
    guard = false;
}

void DecoderProperty::ReceiveDecoderSelectionModeSetting(const custom::DecoderInfo::ConstPtr& msg)
{
    if (msg == nullptr || !modeNames.contains(msg->targetMode)) {
        return;
    }
    globalSettingNum = msg->targetMode;
    globalSettingProperty->setInt(msg->targetMode);
    SetMode(msg->targetMode);
    Q_EMIT SendDecoderInformation();
}

void DecoderProperty::SetMode(int mode)
{
    decoderSelectionProperty->setString(modeNames.value(mode));
}

} // namespace rviz_plugin
