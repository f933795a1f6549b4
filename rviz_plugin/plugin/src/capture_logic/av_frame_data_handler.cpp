#include "av_frame_data_handler.h"

#include "av_frame_thread.h"

#include "frames/frame_converter.h"

namespace rviz_plugin {

std::map<ros::Time, QImage> AvFrameDataHandler::GetImages(const std::vector<ros::Time>& stamps) const
{
    std::map<ros::Time, QImage> images;
    for (const auto& frame : Select(stamps)) {
        QImage image;
        if (FrameConverter::ConvertDataToQtImage(*frame, image)) {
            images[frame->header.stamp] = image;
        }
    }
    return images;
}

QThread* AvFrameDataHandler::MakeSaveThread(const QString& folder, const std::vector<ros::Time>& stamps)
{
    auto* thread = new AvFrameThread(folder, topic, Select(stamps));
    ConnectSaveThread(thread);
    return thread;
}

} // namespace rviz_plugin
