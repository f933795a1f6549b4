#ifndef RVIZ_PLUGIN_AV_FRAME_THREAD_H
#define RVIZ_PLUGIN_AV_FRAME_THREAD_H

#include "save_thread_base.h"

#ifndef Q_MOC_RUN
#include <custom/AvFrame.h>
#endif

#include <vector>

namespace rviz_plugin {

// Writes a camera's kept pictures as "<camera>-<sec>-<nsec>.png" into "<export folder>/<camera>".
class AvFrameThread : public SaveThreadBase {
    Q_OBJECT

public:
    AvFrameThread(const QString& exportFolder, const std::string& topic,
                  std::vector<boost::shared_ptr<const custom::AvFrame>> frames);

protected:
    void run() override;

private:
    std::vector<boost::shared_ptr<const custom::AvFrame>> frames;
};

} // namespace rviz_plugin

#endif
