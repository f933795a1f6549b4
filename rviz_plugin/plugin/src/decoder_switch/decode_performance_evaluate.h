#ifndef RVIZ_PLUGIN_DECODE_PERFORMANCE_EVALUATE_H
#define RVIZ_PLUGIN_DECODE_PERFORMANCE_EVALUATE_H

#include "image_convert.h"
#include "video_stream_loader.h"

#include <QObject>

#ifndef Q_MOC_RUN
#include <custom/Video.h>
#endif

#include <atomic>
#include <memory>
#include <mutex>
#include <thread>

namespace rviz_plugin {

class Decoder;

// One channel of the decoding evaluation: a stored stream fed to a decoder as a camera delivers it
// (one access unit per frame period, looping), the pictures handed to an ImageConvert, and the mean
// decoding and conversion times per frame.
class DecodePerformanceEvaluate : public QObject {
    Q_OBJECT
public:
    DecodePerformanceEvaluate(const VideoStreamLoader::Stream& stream, int selectionMode);
    ~DecodePerformanceEvaluate() override;

    // Creates the decoder and starts feeding; false when the decoder cannot be created.
    bool Start();
    void Stop();
    // The display's share: converts the pending picture, timed. Called from the evaluation's display thread.
    void ConvertImage();
    // Mean milliseconds per frame since the start; infinite when no frame was decoded or converted.
    void GetTimes(double& decodeMs, double& convertMs);

private:
    void DecodeDataStream();
    void DecodeFrame(const boost::shared_ptr<custom::Video>& message);

    const VideoStreamLoader::Stream& stream;
    int selectionMode;
    std::unique_ptr<Decoder> decoder;
    ImageConvert imageConvert;
    std::atomic<bool> running{false};
    std::thread thread;
    std::mutex timeMutex;
    double decodeSum = 0.0;
    unsigned decodeCount = 0;
    double convertSum = 0.0;
    unsigned convertCount = 0;
};

} // namespace rviz_plugin

#endif
