// How many 1080p30 cameras this machine decodes, two ways side by side on the same stream file
// (the one the build makes for the evaluation dialog):
//   - the evaluation dialog's own search (10 s rounds, up to 17 channels, software decoder), and
//   - the reference: how many times real time "ffmpeg -threads 4 -i same.h265 -f null -" decodes it,
//     i.e. how many such ffmpeg runs the machine sustains in real time.
// Also saves the dialog after the run as decode_evaluation_dialog.png in the working directory.
//   decode_evaluation_bench [--with-4k]
#include "../test/support/processes.h"
#include "../test/support/temp_dir.h"
#include "decoder_switch/evaluate_dialog.h"
#include "decoder_switch/video_stream_loader.h"

#include <QApplication>
#include <QEventLoop>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

constexpr int ffmpegThreads = 4;

// The access units of a stream package as one raw H.265 file, for the ffmpeg CLI.
bool WriteRawStream(const std::string& package, const std::string& raw, int& frames)
{
    rviz_plugin::VideoStreamLoader loader;
    const std::filesystem::path path(package);
    if (!loader.Initialize(path.parent_path().string(), {path.filename().string()})) {
        return false;
    }
    const auto* stream = loader.GetStream(path.filename().string());
    std::ofstream out(raw, std::ios::binary);
    for (const auto& unit : stream->frames) {
        out.write(reinterpret_cast<const char*>(unit.data()), static_cast<std::streamsize>(unit.size()));
    }
    frames = static_cast<int>(stream->frames.size());
    return static_cast<bool>(out);
}

double FfmpegFramesPerSecond(const std::string& file, int frames)
{
    const std::string command = "ffmpeg -loglevel error -threads " + std::to_string(ffmpegThreads) + " -i " + file +
                                " -f null - > /dev/null 2>&1";
    double best = 0.0;
    for (int run = 0; run < 3; ++run) {
        const auto start = std::chrono::steady_clock::now();
        if (std::system(command.c_str()) != 0) {
            return 0.0;
        }
        best = std::max(best, frames / std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return best;
}

} // namespace

int main(int argc, char** argv)
{
    const bool with4k = argc > 1 && std::string(argv[1]) == "--with-4k";
    const std::string videoData = RVIZ_PLUGIN_VIDEO_DATA_DIR;
    test_support::TempDir work;
    const std::filesystem::path media = work.Path() / "rviz_plugin/share/rviz_plugin/media";
    std::filesystem::create_directories(media);
    std::filesystem::create_directory_symlink(videoData, media / "video_data");

    int frames = 0;
    const std::string raw = work / "1080p.h265";
    if (!WriteRawStream(videoData + "/1080p_30hz_data.h265", raw, frames)) {
        std::fprintf(stderr, "no evaluation stream in %s: build rviz_plugin_video_data first\n", videoData.c_str());
        return 1;
    }
    const double reference = FfmpegFramesPerSecond(raw, frames);
    std::printf("reference: ffmpeg -threads %d decodes the 1080p30 stream at %.1f fps = %.2f times real time\n",
                ffmpegThreads, reference, reference / 30.0);
    std::fflush(stdout);

    test_support::VirtualDisplay xserver(work.Path().string());
    setenv("DISPLAY", xserver.Display().c_str(), 1);
    QApplication app(argc, argv);
    rviz_plugin::EvaluateDialog dialog(nullptr, rviz_plugin::EvaluateSettings(), work.Path().string());
    dialog.show();
    dialog.GetSelectWidget()->SetChecked(0, 0, true);
    dialog.GetSelectWidget()->SetChecked(0, 1, with4k);
    const auto start = std::chrono::steady_clock::now();
    // Waits in the event loop itself: polling would load the processor the evaluation measures.
    QEventLoop loop;
    QObject::connect(dialog.GetManager(), &rviz_plugin::EvaluateManager::Finished, &loop, &QEventLoop::quit);
    dialog.OnStartClicked();
    if (dialog.GetManager()->IsEvaluating()) {
        loop.exec();
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    const QString channels = dialog.GetSelectWidget()->GetResultText(0, 0);
    std::printf("evaluation: software 1080p30 %s (search took %.0f s)\n", channels.toStdString().c_str(), seconds);
    if (with4k) {
        std::printf("evaluation: software 4k30 %s\n", dialog.GetSelectWidget()->GetResultText(0, 1).toStdString().c_str());
    }
    std::printf("ratio: evaluated channels / ffmpeg real-time runs = %s / %.2f\n",
                channels.section(' ', 0, 0).toStdString().c_str(), reference / 30.0);
    dialog.adjustSize();
    QApplication::processEvents();
    dialog.grab().save("decode_evaluation_dialog.png");
    return 0;
}
