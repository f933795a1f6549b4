#include "av_frame_thread.h"

#include "frames/frame_converter.h"

#include <QImage>

#include <utility>

namespace rviz_plugin {

AvFrameThread::AvFrameThread(const QString& exportFolder, const std::string& topic,
                             std::vector<boost::shared_ptr<const custom::AvFrame>> kept)
    : SaveThreadBase(exportFolder, ExportName(topic, "_avFrame")), frames(std::move(kept))
{
}

void AvFrameThread::run()
{
    if (frames.empty()) {
        Q_EMIT SaveFailed(NoImageData, folder);
        return;
    }
    if (!MakeFolder()) {
        return;
    }
    for (const auto& frame : frames) {
        QString path;
        if (!FreePath(frame->header.stamp, "png", path)) {
            return;
        }
        QImage image;
        if (!FrameConverter::ConvertDataToQtImage(*frame, image)) {
            Q_EMIT SaveFailed(NoImageData, path);
            return;
        }
        if (!image.save(path, "PNG", -1)) {
            Q_EMIT SaveFailed(WriteError, path);
            return;
        }
    }
    Q_EMIT SaveSucceeded();
}

} // namespace rviz_plugin
