#include "video_handler.h"

#include "video_decoder.h"

#include "foundation/logger.h"
#include "frames/image_cache_node.h"

namespace rviz_plugin {

QMap<QString, std::shared_ptr<VideoDecoder>> VideoHandler::decoders;
QMap<QString, int> VideoHandler::decoderRefNums;
QMap<QString, int> VideoHandler::decoderSubNums;
std::recursive_mutex VideoHandler::decoderMapMutex;

namespace {
constexpr int decoderNumberQueueSize = 30;

} // namespace

VideoHandler::VideoHandler(ImageCacheNode& node, rviz::DisplayContext* displayContext)
    : ippNode(node), context(displayContext)
{
}

VideoHandler::~VideoHandler()
{
    std::lock_guard<std::recursive_mutex> lock(decoderMapMutex);
    VideoDecoder* decoder = FindDecoder(topic);
    if (decoder != nullptr) {
        DisconnectSlots(decoder);
        if (subscribed) {
            if (decoderSubNums.value(topic) == 1) {
                decoder->Unsubscribe();
            }
            DecreaseDecoderSubNumber(topic);
            if (queueSize > 0) {
                decoder->RemoveQueueSizeRecord(queueSize);
            }
        }
        DecreaseDecoderRefNumber(topic);
    }
}

void VideoHandler::Initialize()
{
    inquireSubscriber = nodeHandle.subscribe("/inquire_decoder_number", decoderNumberQueueSize,
                                             &VideoHandler::SendDecoderNumberInfo, this);
    decoderNumberPublisher = nodeHandle.advertise<custom::DecoderInfo>("/decoder_number", decoderNumberQueueSize);
}

QString VideoHandler::GetRealTopic(const QString& name)
{
    const int slash = name.lastIndexOf('/');
    return slash < 0 ? name : name.mid(slash + 1);
}

int VideoHandler::GetDecoderCount()
{
    std::lock_guard<std::recursive_mutex> lock(decoderMapMutex);
    return decoders.size();
}

QStringList VideoHandler::GetDecoderTopics()
{
    std::lock_guard<std::recursive_mutex> lock(decoderMapMutex);
    return decoders.keys();
}

VideoDecoder* VideoHandler::FindDecoder(const QString& realTopic)
{
    std::lock_guard<std::recursive_mutex> lock(decoderMapMutex);
    const auto found = decoders.find(realTopic);
    return found == decoders.end() ? nullptr : found.value().get();
}

void VideoHandler::ConnectSlots(VideoDecoder* decoder)
{
    decoder->AddIppNode(&ippNode);
    connect(decoder, &VideoDecoder::SetStatus, this, &VideoHandler::OnSetStatus, Qt::QueuedConnection);
    connect(decoder, &VideoDecoder::DeleteStatus, this, &VideoHandler::OnDeleteStatus, Qt::QueuedConnection);
    connect(decoder, &VideoDecoder::ChangeDecoderSelectionByDecoder, this,
            &VideoHandler::OnChangeDecoderSelectionByDecoder);
    connect(decoder, &VideoDecoder::SendCameraInfoMsg, this, &VideoHandler::OnSendCameraInfoMsg);
    connect(this, &VideoHandler::UpdateCameraDecoder, decoder, &VideoDecoder::OnUpdateCameraDecoder);
    connect(this, &VideoHandler::SendDecoderInformation, decoder, &VideoDecoder::OnSendDecoderInformation);
}

void VideoHandler::DisconnectSlots(VideoDecoder* decoder)
{
    decoder->RemoveIppNode(static_cast<unsigned>(ippNode.GetIppNodeNo()));
    disconnect(decoder, nullptr, this, nullptr);
    disconnect(this, nullptr, decoder, nullptr);
}

void VideoHandler::InstantiationNewDecoder(const QString& realTopic)
{
    auto decoder = std::make_shared<VideoDecoder>();
    decoders.insert(realTopic, decoder);
    decoder->Initialize(realTopic, context, selectionMode);
    decoderRefNums.insert(realTopic, 0);
}

void VideoHandler::DecreaseDecoderRefNumber(const QString& realTopic)
{
    if (!decoderRefNums.contains(realTopic)) {
        return;
    }
    if (decoderRefNums[realTopic] > 0) {
        --decoderRefNums[realTopic];
    }
    if (decoderRefNums[realTopic] == 0) {
        decoders.remove(realTopic);  // ends that decoder's thread
        decoderRefNums.remove(realTopic);
        decoderSubNums.remove(realTopic);
    }
}

void VideoHandler::DecreaseDecoderSubNumber(const QString& realTopic)
{
    if (decoderSubNums.value(realTopic) > 0) {
        --decoderSubNums[realTopic];
    }
}

void VideoHandler::OnSubscribe(const QString& chosenTopic, int size)
{
    std::lock_guard<std::recursive_mutex> lock(decoderMapMutex);
    try {
        const QString realTopic = GetRealTopic(chosenTopic);
        const bool topicChanges = realTopic != topic;
        if (VideoDecoder* current = FindDecoder(topic)) {
            if (queueSize > 0) {
                current->RemoveQueueSizeRecord(queueSize);
                queueSize = 0;
            }
            if (topicChanges) {
                DisconnectSlots(current);
                if (subscribed) {
                    DecreaseDecoderSubNumber(topic);
                    subscribed = false;
                }
                DecreaseDecoderRefNumber(topic);
            }
        }
        const bool alreadyExisted = decoders.contains(realTopic);
        if (!alreadyExisted) {
            InstantiationNewDecoder(realTopic);
        }
        if (topicChanges) {
            ippNode.RegisterFrameArrayNode(realTopic, alreadyExisted);
        }
        VideoDecoder* decoder = FindDecoder(realTopic);
        decoder->AddQueueSizeRecord(size);
        queueSize = size;
        DisconnectSlots(decoder);
        ConnectSlots(decoder);
        if (!subscribed) {
            ++decoderSubNums[realTopic];
            subscribed = true;
        }
        if (topicChanges) {
            ++decoderRefNums[realTopic];
        }
        RefreshSubscription(decoder);
        topic = realTopic;
        Q_EMIT ChangeTopicName(chosenTopic);
        decoder->UpdateDecoderSelection();
        decoder->UpdateDecoderStatus();
    } catch (const std::exception& exception) {
        Orsa::LogUnexpectedException("KoraVision", exception.what());
    } catch (...) {
        Orsa::LogUnexpectedException("KoraVision", nullptr);
    }
}

void VideoHandler::RefreshSubscription(VideoDecoder* decoder)
{
    Q_EMIT RequestDisplayReset();
    decoder->Subscribe();
    Q_EMIT RequestDisplayRenderContext();
}

void VideoHandler::OnUnsubscribe()
{
    VideoDecoder* decoder = FindDecoder(topic);
    if (decoder == nullptr || !subscribed) {
        return;
    }
    if (decoderSubNums.value(topic) == 1) {
        decoder->Unsubscribe();
    }
    DecreaseDecoderSubNumber(topic);
    subscribed = false;
    if (queueSize > 0) {
        decoder->RemoveQueueSizeRecord(queueSize);
        queueSize = 0;
    }
    DisconnectSlots(decoder);
}

void VideoHandler::SendDecoderNumberInfo(const custom::DecoderInfo::ConstPtr& msg)
{
    if (msg == nullptr || !msg->isInquiring) {
        return;
    }
    try {
        std::lock_guard<std::recursive_mutex> lock(decoderMapMutex);
        for (const auto& decoder : decoders) {
            decoder->ResetDecoderInfoStatus();
        }
        custom::DecoderInfo answer;
        answer.decoderNum = static_cast<uint8_t>(decoders.size());
        decoderNumberPublisher.publish(answer);
    } catch (const std::exception& exception) {
        Orsa::LogUnexpectedException("KoraVision", exception.what());
    }
}

void VideoHandler::OnSendDecoderSelectionMode(int mode)
{
    selectionMode = mode;
    if (!topic.isEmpty()) {
        Q_EMIT UpdateCameraDecoder(mode);
    }
}

void VideoHandler::OnSendDecoderInformation()
{
    Q_EMIT SendDecoderInformation();
}

void VideoHandler::OnSetStatus(rviz::StatusProperty::Level level, const QString& name, const QString& text)
{
    Q_EMIT SetStatus(level, name, text);
}

void VideoHandler::OnDeleteStatus(const QString& name)
{
    Q_EMIT DeleteStatus(name);
}

void VideoHandler::OnChangeDecoderSelectionByDecoder(int mode)
{
    Q_EMIT ChangeDecoderSelectionInternal(mode);
}

void VideoHandler::OnSendCameraInfoMsg(const boost::shared_ptr<const sensor_msgs::CameraInfo>& info)
{
    Q_EMIT UpdateCameraInfo(info);
}

} // namespace rviz_plugin
