#include "encoder_type.h"

#include "nv_encoder.h"
#include "qsv_encoder.h"
#include "software_encoder.h"

namespace rviz_plugin {

std::unique_ptr<Encoder> MakeEncoder(EncoderType type)
{
    std::unique_ptr<Encoder> encoder;
    switch (type) {
    case EncoderType::Nvidia:
        encoder = std::make_unique<NvEncoder>();
        break;
    case EncoderType::Intel:
        encoder = std::make_unique<QsvEncoder>();
        break;
    case EncoderType::Software:
        encoder = std::make_unique<SoftwareEncoder>();
        break;
    }
    encoder->SetTimeBase(AVRational{1, 30});
    return encoder;
}

EncoderType NextEncoderType(EncoderType type)
{
    return type == EncoderType::Nvidia ? EncoderType::Intel : EncoderType::Software;
}

} // namespace rviz_plugin
