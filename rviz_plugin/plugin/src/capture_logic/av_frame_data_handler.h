#ifndef RVIZ_PLUGIN_AV_FRAME_DATA_HANDLER_H
#define RVIZ_PLUGIN_AV_FRAME_DATA_HANDLER_H

#include "cached_data_handler.h"

#ifndef Q_MOC_RUN
#include <custom/AvFrame.h>
#endif

namespace rviz_plugin {

// Captures a camera's decoded pictures from "<topic>_avFrame"; exports PNG.
class AvFrameDataHandler : public CachedDataHandler<custom::AvFrame> {
    Q_OBJECT

public:
    static constexpr const char* topicType = "custom/AvFrame";

    std::map<ros::Time, QImage> GetImages(const std::vector<ros::Time>& stamps) const override;

protected:
    QThread* MakeSaveThread(const QString& folder, const std::vector<ros::Time>& stamps) override;
};

} // namespace rviz_plugin

#endif
