#include "data_recorder_base.h"

#include "foundation/logger.h"

#include <QMetaObject>
#include <QThread>
#include <QTimer>

namespace rviz_plugin {

DataRecorderBase::DataRecorderBase(QObject* parent) : QObject(parent) {}

DataRecorderBase::~DataRecorderBase()
{
    ShutDown();
    delete tickTimer;
    delete encodingContext;
    delete timerThread;
    delete encodingThread;
}

void DataRecorderBase::Initialize(const std::string& recordTopic)
{
    topic = recordTopic;
    InitThread();
}

void DataRecorderBase::InitThread()
{
    encodingThread = new QThread();
    timerThread = new QThread();
    encodingContext = new QObject();
    encodingContext->moveToThread(encodingThread);
    tickTimer = new QTimer();
    tickTimer->setTimerType(Qt::PreciseTimer);
    tickTimer->setSingleShot(true);
    tickTimer->setInterval(tickInterval);
    tickTimer->moveToThread(timerThread);
    connect(timerThread, &QThread::started, tickTimer, [this] {
        schedule.Start(TickSchedule::Clock::now());
        ArmNextTick();
    });
    connect(timerThread, &QThread::finished, tickTimer, &QTimer::stop, Qt::DirectConnection);
    // Counted in on the timer thread at once, handled on the encoding thread when it gets there.
    connect(tickTimer, &QTimer::timeout, tickTimer, [this] {
        schedule.Tick();
        OnTimeout();
        ArmNextTick();
    }, Qt::DirectConnection);
    connect(tickTimer, &QTimer::timeout, encodingContext, [this] { Recording(); }, Qt::QueuedConnection);
}

void DataRecorderBase::ArmNextTick()
{
    tickTimer->start(static_cast<int>(schedule.NextWait(TickSchedule::Clock::now()).count()));
}

bool DataRecorderBase::ReadyConfig(const RecordSettings& recordSettings)
{
    settings = recordSettings;
    encoderType = settings.encoderType;
    // The container comes from the extension; Start names the file itself before it is made.
    const std::string provisional = settings.folder + "/" + "recording.mp4";
    while (true) {
        encoder = MakeEncoder(encoderType);
        if (encoder->Initialize(provisional, settings.width, settings.height) ||
            encoderType == EncoderType::Software) {
            break;
        }
        encoderType = NextEncoderType(encoderType);
    }
    return encoder->GetIsInitialized();
}

void DataRecorderBase::StartThread()
{
    if (threadsStarted || encodingThread == nullptr) {
        return;
    }
    StartSubscriber();
    encodingThread->start();
    timerThread->start();
    threadsStarted = true;
}

void DataRecorderBase::StartRecordData()
{
    if (!threadsStarted || encoder == nullptr || !encoder->GetIsInitialized()) {
        isStartSuccess = false;
        return;
    }
    bool started = false;
    QMetaObject::invokeMethod(encodingContext, [this, &started] { started = Start(); },
                              Qt::BlockingQueuedConnection);
    isStartSuccess = started;
    isActive = started;
    if (started) {
        recordStatus = recording;
    }
}

void DataRecorderBase::StopBeat()
{
    if (!threadsStarted) {
        return;
    }
    ShutDownSubscriber();
    timerThread->quit();
    timerThread->wait();
}

void DataRecorderBase::ShutDown()
{
    if (!threadsStarted) {
        return;
    }
    StopBeat();
    threadsStarted = false;
    // The beats already counted are encoded before the file is finished: frames in = beats counted.
    QMetaObject::invokeMethod(encodingContext, [] {}, Qt::BlockingQueuedConnection);
    isActive = false;
    encodingThread->quit();
    encodingThread->wait();
    recordStatus = closed;
    if (encoder != nullptr) {
        const bool written = isStartSuccess && encoder->GetIsInitialized();
        encoder->Finished();
        if (written) {
            Orsa::Logger::GetInstance().WriteLog("RecordVideoDataTool", Orsa::LogLevel::Info,
                                                 "Recorded " + std::to_string(encoder->GetFrameCount()) +
                                                     " frames of " + topic + " into " + GetFileName() + ".");
        }
    }
}

void DataRecorderBase::WarnIfStacked(int queued) const
{
    if (queued > maxQueuedTicks) {
        Orsa::Logger::GetInstance().WriteLog("RecordVideoDataTool", Orsa::LogLevel::Warn,
                                             "The encoding queue of topic " + topic + " is stacked.");
    }
}

void DataRecorderBase::StopAfterFailure()
{
    Orsa::Logger::GetInstance().WriteLog("RecordVideoDataTool", Orsa::LogLevel::Error,
                                         "The frame of " + topic + " encode failed.");
    isActive = false;
    QMetaObject::invokeMethod(this, [this] { ShutDown(); }, Qt::QueuedConnection);
}

void DataRecorderBase::AddEncodingTime(double milliseconds)
{
    std::lock_guard<std::mutex> lock(encodingMutex);
    encodeTimeSum += milliseconds;
    ++encodeCount;
}

double DataRecorderBase::GetEncodingDuration()
{
    std::lock_guard<std::mutex> lock(encodingMutex);
    const double mean = encodeCount == 0 ? 0.0 : encodeTimeSum / encodeCount;
    encodeTimeSum = 0.0;
    encodeCount = 0;
    return mean;
}

long long DataRecorderBase::GetEncodedFrames() const
{
    return encoder != nullptr ? encoder->GetFrameCount() : 0;
}

void DataRecorderBase::SetFileName(const std::string& name)
{
    std::lock_guard<std::mutex> lock(fileMutex);
    fileName = name;
}

std::string DataRecorderBase::GetFileName() const
{
    std::lock_guard<std::mutex> lock(fileMutex);
    return isStartSuccess ? fileName : std::string();
}

} // namespace rviz_plugin
