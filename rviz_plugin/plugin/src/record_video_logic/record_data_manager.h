#ifndef RVIZ_PLUGIN_RECORD_DATA_MANAGER_H
#define RVIZ_PLUGIN_RECORD_DATA_MANAGER_H

#include "data_recorder_base.h"
#include "encoder_type.h"

#include <QImage>
#include <QObject>
#include <QTimer>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace rviz_plugin {

// Makes one recorder per source and drives them together: a short preview (one picture of each source), then
// the recording. Sources are topics of the registered types, and pseudo topics such as the 3D view's.
class RecordDataManager : public QObject {
    Q_OBJECT

public:
    using RecorderFactory = std::function<std::unique_ptr<DataRecorderBase>()>;

    static constexpr const char* frameArrayType = "custom/AvFrameArray";
    static constexpr int previewPeriod = 300;
    static constexpr int previewRoundLimit = 15;

    explicit RecordDataManager(QObject* parent = nullptr);
    ~RecordDataManager() override;

    // Registers the camera recorder for frame arrays.
    void Initialize();
    void RegisterDataRecorder(const std::string& type, RecorderFactory factory);
    // A source that is no topic on the master (the 3D view), recorded by the factory of type.
    void AddPseudoTopic(const std::string& topic, const std::string& type);
    // Every source that can be recorded now, with its type.
    std::map<std::string, std::string> GetTopicTypeMap() const;
    // The recording sizes by name ("480P", "720P", "1080P").
    static const std::map<std::string, std::pair<int, int>>& GetResolutionTable();

    void SetTopicResolutionMap(std::pair<int, int> size) { resolution = size; }
    void SetTopicPerformanceVec(const std::vector<std::string>& topics) { selectedTopics = topics; }
    const std::vector<std::string>& GetSelectedTopics() const { return selectedTopics; }

    void StartPreview(const std::vector<std::string>& topics);
    // Records the selected topics into folder; the encoders come from the evaluation unless it is skipped.
    void StartRecord(const std::string& folder, bool skipEvaluation, bool useHardware,
                     const std::map<std::string, EncoderType>& evaluatedEncoders);
    void StartRecordingSkipEvaluation(bool useHardware);
    void StartRecordingOnEvaluation(const std::map<std::string, EncoderType>& encoders);
    void CloseRecord();
    QImage GetPreviewImage(const std::string& topic) const;
    // Mean encoding time per recorder since the last call, in milliseconds, by topic.
    std::map<std::string, double> GetRecordingDuration();
    // The files being written, by topic.
    std::map<std::string, std::string> GetRecordedFiles() const;
    // The encoder each recorder ended up with, by topic.
    std::map<std::string, EncoderType> GetEncoderTypes() const;
    bool IsRecording() const;
    static void SwitchEncoder(EncoderType& type);

Q_SIGNALS:
    void PreviewDataCapturing(int done, int total);
    void PreviewDataFinished();

private:
    DataRecorderBase* CreateRecorder(const std::string& topic, const RecordSettings& settings);
    void CheckPreviewData();
    void CreateRecorders(EncoderType type, const std::map<std::string, EncoderType>& encoders);
    // A recorder that cannot open its file is logged; the others record.
    void StartRecorders();

    std::map<std::string, RecorderFactory> factories;
    std::map<std::string, std::string> pseudoTopics;
    std::map<std::string, std::unique_ptr<DataRecorderBase>> recorders;
    std::vector<std::string> selectedTopics;
    std::pair<int, int> resolution{854, 480};
    std::string recordFolder;
    QTimer previewTimer;
    int previewRound = 0;
};

} // namespace rviz_plugin

#endif
