#ifndef RVIZ_PLUGIN_RECORD_TEST_PICTURES_H
#define RVIZ_PLUGIN_RECORD_TEST_PICTURES_H

#include "../support/processes.h"

#include <custom/AvFrame.h>

#include <QImage>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <unistd.h>

namespace record_test {

// A YUV420P camera picture of one grey level, as the decoders publish it.
inline custom::AvFrame GreyPicture(int width, int height, uint8_t luma)
{
    custom::AvFrame frame;
    frame.format = 0;
    frame.width = width;
    frame.height = height;
    frame.linesize = {width, width / 2, width / 2};
    frame.data.resize(3);
    frame.data[0].data.assign(static_cast<std::size_t>(width) * height, luma);
    frame.data[1].data.assign(static_cast<std::size_t>(width / 2) * (height / 2), 128);
    frame.data[2].data.assign(static_cast<std::size_t>(width / 2) * (height / 2), 128);
    return frame;
}

// A transparent BGRA overlay with one opaque pure red box, as the overlay node draws it.
inline custom::AvFrame OverlayWithBox(int width, int height, int left, int top, int side)
{
    custom::AvFrame frame;
    frame.format = 28;
    frame.width = width;
    frame.height = height;
    frame.linesize = {width * 4};
    frame.data.resize(1);
    auto& bytes = frame.data[0].data;
    bytes.assign(static_cast<std::size_t>(width) * height * 4, 0);
    for (int y = top; y < top + side; ++y) {
        for (int x = left; x < left + side; ++x) {
            uint8_t* pixel = &bytes[(static_cast<std::size_t>(y) * width + x) * 4];
            pixel[2] = 255; // red
            pixel[3] = 255; // opaque
        }
    }
    return frame;
}

// What ffprobe says of a file's first video stream: "codec,width,height,rate,frames", after any message at
// the log level.
inline std::string ProbeVideo(const std::string& file, const std::string& level = "error")
{
    const std::string out =
        (std::filesystem::temp_directory_path() / ("rviz_plugin_probe_" + std::to_string(getpid()) + ".txt")).string();
    test_support::RunCommand({"ffprobe", "-v", level, "-count_frames", "-select_streams", "v:0", "-show_entries",
                              "stream=codec_name,width,height,r_frame_rate,nb_read_frames", "-of", "csv=p=0", file},
                             {}, std::chrono::milliseconds(60000), out);
    std::ifstream stream(out);
    std::string text((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) {
        text.pop_back();
    }
    return text;
}

// The picture number `index` of a video file, decoded by the ffmpeg command line.
inline QImage DecodedPicture(const std::string& file, int index, const std::string& png)
{
    test_support::RunCommand({"ffmpeg", "-v", "error", "-y", "-i", file, "-vf",
                              "select=eq(n\\," + std::to_string(index) + ")", "-frames:v", "1", png});
    return QImage(QString::fromStdString(png));
}

} // namespace record_test

#endif
