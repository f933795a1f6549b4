#ifndef RVIZ_PLUGIN_CUSTOM_AV_FRAME_DATA_H
#define RVIZ_PLUGIN_CUSTOM_AV_FRAME_DATA_H

#include <custom/AvFrame.h>

#include <boost/make_shared.hpp>

#include <map>
#include <utility>
#include <vector>

struct AVFrame;

namespace rviz_plugin {

// Plane layout by FFmpeg pixel format: for plane i, (first, second) gives its byte length as
// height * first * linesize[i] / second. Formats not listed carry no plane.
using PlaneTable = std::map<int, std::vector<std::pair<int, int>>>;
const PlaneTable& GetPlaneTable();

// Fills message from a decoded picture: format, line sizes and the bytes of each plane.
void FillAvFrameMessage(const AVFrame* frame, custom::AvFrame& message);

// The decoded picture repackaged as a custom/AvFrame message, for recording and capture.
// Filling copies every plane, so it is done only while someone listens (SetActive).
class CustomAvFrameData {
public:
    CustomAvFrameData() : message(boost::make_shared<custom::AvFrame>()) {}

    void SetActive(bool listened) { active = listened; }
    bool IsActive() const { return active; }
    void SetCustomAvFrame(const AVFrame* frame)
    {
        if (active) {
            FillAvFrameMessage(frame, *message);
        }
    }
    // Hands the filled message over and starts a new one, so a published message is never written again.
    boost::shared_ptr<custom::AvFrame> TakeMessage()
    {
        auto filled = message;
        message = boost::make_shared<custom::AvFrame>();
        return filled;
    }

private:
    boost::shared_ptr<custom::AvFrame> message;
    bool active = false;
};

} // namespace rviz_plugin

#endif
