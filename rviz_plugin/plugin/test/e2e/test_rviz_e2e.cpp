// rviz under a virtual display with the plugin and a saved configuration: the plugin loads, logs
// to its rotating store, draws the wall, and saves its items under their numbered keys.
#include "../support/processes.h"
#include "../support/rviz_session.h"
#include "../support/temp_dir.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>

#include <filesystem>
#include <regex>
#include <thread>

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

const std::string sourceDirectory = RVIZ_PLUGIN_SOURCE_DIR;
const std::string artifactDirectory = RVIZ_PLUGIN_ARTIFACT_DIR;

// Pixels within a small distance of colour.
int CountColour(const QImage& image, const QColor& colour, int tolerance = 6)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (std::abs(pixel.red() - colour.red()) <= tolerance &&
                std::abs(pixel.green() - colour.green()) <= tolerance &&
                std::abs(pixel.blue() - colour.blue()) <= tolerance) {
                ++count;
            }
        }
    }
    return count;
}

// Value of "Topic:" in the block of key inside a saved configuration, or "" when absent.
std::string SavedTopic(const std::string& config, const std::string& key)
{
    const std::regex pattern("\\n[ -]+" + std::regex_replace(key, std::regex(R"([()/])"), R"(\$&)") +
                             ":\\n +Topic: ([^\\n]*)\\n");
    std::smatch match;
    return std::regex_search(config, match, pattern) ? match[1].str() : std::string();
}

class RvizEndToEnd : public testing::Test {
protected:
    void SetUp() override
    {
        master = std::make_unique<test_support::RosMaster>(work.Path().string());
        root = work / "orsa";
        fs::create_directories(root);
        ASSERT_TRUE(master->SetParam("orsaPath", root));
        xserver = std::make_unique<test_support::VirtualDisplay>(work.Path().string());
        fs::create_directories(artifactDirectory);
    }

    std::unique_ptr<test_support::RvizSession> StartRviz(const std::string& sourceConfig)
    {
        const std::string config = work / fs::path(sourceConfig).filename().string();
        fs::copy_file(sourceConfig, config, fs::copy_options::overwrite_existing);
        auto rviz = std::make_unique<test_support::RvizSession>(*master, *xserver, config, work.Path().string());
        EXPECT_TRUE(rviz->WaitForLog("KoraVisionDisplay initialized.", 90s)) << rviz->Log();
        return rviz;
    }

    static void ExpectNoPluginError(const std::string& log)
    {
        EXPECT_EQ(log.find("could not be loaded"), std::string::npos) << log;
        EXPECT_EQ(log.find("Failed to load library"), std::string::npos) << log;
        EXPECT_EQ(log.find("PluginlibFactory"), std::string::npos) << log;
    }

    test_support::TempDir work;
    std::string root;
    std::unique_ptr<test_support::RosMaster> master;
    std::unique_ptr<test_support::VirtualDisplay> xserver;
};

TEST_F(RvizEndToEnd, ShippedLayoutLoadsLogsDrawsTheWallAndSavesNumberedKeys)
{
    auto rviz = StartRviz(sourceDirectory + "/layouts/kora_vision.rviz");
    ExpectNoPluginError(rviz->Log());

    const std::string link = root + "/log/rviz_plugin.log";
    ASSERT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(fs::read_symlink(link), fs::path(root + "/log/.bak_0_rviz_plugin.log"));
    const std::regex line(R"(\d{4}-\d{2}-\d{2} \d{2}:\d{2}:\d{2}\.\d{3} \[Info\]\[KoraVision\] KoraVisionDisplay initialized\.)");
    bool found = false;
    for (const std::string& text : test_support::ReadLines(link)) {
        found = found || std::regex_match(text, line);
    }
    EXPECT_TRUE(found) << test_support::ReadFile(link);

    std::this_thread::sleep_for(3s);
    const std::string screenshot = artifactDirectory + "/kora_vision_wall.png";
    ASSERT_TRUE(xserver->Screenshot(screenshot));
    const QImage image(QString::fromStdString(screenshot));
    ASSERT_FALSE(image.isNull());
    // The "Add" button, the wall's background, and three video windows of at least 192 x 108.
    EXPECT_GT(CountColour(image, QColor(0x28, 0x78, 0xc5)), 300);
    EXPECT_GT(CountColour(image, QColor(0x1f, 0x23, 0x29)), 5000);
    EXPECT_GT(CountColour(image, QColor(41, 43, 48), 3), 3 * 192 * 108 / 2);

    ASSERT_TRUE(rviz->SaveConfig(20s)) << rviz->Log();
    const std::string saved = test_support::ReadFile(work / "kora_vision.rviz");
    EXPECT_EQ(SavedTopic(saved, "(1)/camera/front"), "/camera/front") << saved;
    EXPECT_EQ(SavedTopic(saved, "(2)/camera/left"), "/camera/left") << saved;
    EXPECT_EQ(SavedTopic(saved, "(3)/camera/right"), "/camera/right") << saved;
    EXPECT_EQ(rviz->Stop(), 0);
}

TEST_F(RvizEndToEnd, KeysNumberedTwoTenOneLoadInTheOrderOneTwoTen)
{
    auto rviz = StartRviz(sourceDirectory + "/test/e2e/configs/unordered_keys.rviz");
    ExpectNoPluginError(rviz->Log());
    ASSERT_TRUE(rviz->SaveConfig(20s)) << rviz->Log();
    const std::string saved = test_support::ReadFile(work / "unordered_keys.rviz");
    // Items took the keys in numeric order, so each number still carries its own topic.
    EXPECT_EQ(SavedTopic(saved, "(1)/camera/a"), "/camera/a") << saved;
    EXPECT_EQ(SavedTopic(saved, "(2)/camera/b"), "/camera/b") << saved;
    EXPECT_EQ(SavedTopic(saved, "(10)/camera/c"), "/camera/c") << saved;
    EXPECT_EQ(rviz->Stop(), 0);
}

} // namespace
