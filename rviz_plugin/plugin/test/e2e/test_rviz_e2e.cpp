// rviz under a virtual display with the plugin and a saved configuration: the plugin loads, logs
// to its rotating store, draws the wall, and saves its items under their numbered keys.
#include "../support/processes.h"
#include "../support/rviz_session.h"
#include "../support/temp_dir.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>

#include <pcl/PCLPointCloud2.h>
#include <pcl/io/pcd_io.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <sstream>
#include <thread>

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

const std::string sourceDirectory = RVIZ_PLUGIN_SOURCE_DIR;
const std::string artifactDirectory = RVIZ_PLUGIN_ARTIFACT_DIR;
const std::string simulatedCar = RVIZ_PLUGIN_SIMULATED_CAR;

// Pixels of the left part of the screen (where the wall is docked) that satisfy predicate.
template <typename Predicate>
int CountInWall(const QImage& image, Predicate predicate)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width() / 3; ++x) {
            count += predicate(image.pixelColor(x, y), x, y) ? 1 : 0;
        }
    }
    return count;
}

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

// How the soak script classes a wall item's picture patch: the simulated scene is blue-ish; black and
// the bright idle picture are faults.
std::string ClassifyPatch(const QImage& image, const QRect& patch)
{
    double red = 0;
    double green = 0;
    double blue = 0;
    for (int y = patch.top(); y <= patch.bottom(); ++y) {
        for (int x = patch.left(); x <= patch.right(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            red += pixel.redF();
            green += pixel.greenF();
            blue += pixel.blueF();
        }
    }
    const double count = static_cast<double>(patch.width()) * patch.height();
    red /= count;
    green /= count;
    blue /= count;
    const double mean = (red + green + blue) / 3;
    if (mean < 0.04) {
        return "black";
    }
    if (blue > red + 0.05) {
        return "picture";
    }
    return mean > 0.7 ? "idle" : "other";
}

// The image topic saved in the block of key inside a configuration, or "" when absent.
std::string SavedTopic(const std::string& config, const std::string& key)
{
    const std::regex pattern("\\n[ -]+" + std::regex_replace(key, std::regex(R"([()/])"), R"(\$&)") +
                             ":\\n(?: +[^\\n]*\\n)*?( +)Image:\\n(?:\\1 [^\\n]*\\n)*?\\1  Topic: ([^\\n]*)\\n");
    std::smatch match;
    return std::regex_search(config, match, pattern) ? match[2].str() : std::string();
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

    std::unique_ptr<test_support::RvizSession> StartRviz(const std::string& sourceConfig,
                                                         const std::string& readyLine = "KoraVisionDisplay initialized.")
    {
        const std::string config = work / fs::path(sourceConfig).filename().string();
        fs::copy_file(sourceConfig, config, fs::copy_options::overwrite_existing);
        auto rviz = std::make_unique<test_support::RvizSession>(*master, *xserver, config, work.Path().string());
        EXPECT_TRUE(rviz->WaitForLog(readyLine, 90s)) << rviz->Log();
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

TEST_F(RvizEndToEnd, ShippedLayoutShowsFourDecodedCamerasOfTheSimulatedCar)
{
    test_support::Environment environment = master->RosEnvironment();
    test_support::Process car({simulatedCar, "--cameras", "4", "--width", "640", "--height", "360", "--fps", "15"},
                              work / "simulated_car.log", environment);
    // Two cameras with custom names: the wall shows them beside the topics.
    fs::create_directories(root + "/config");
    std::ofstream(root + "/config/camera_topic_alias.json")
        << R"({"topic_alias": {"camera_front": "Front-Center-Long Focus", "camera_rear": "Rear-Center-Medium Focus"}})";
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

    // Key frames come every second; give the four streams and their perception time to start.
    std::this_thread::sleep_for(10s);
    const std::string first = artifactDirectory + "/kora_vision_cameras_1.png";
    const std::string second = artifactDirectory + "/kora_vision_cameras_2.png";
    ASSERT_TRUE(xserver->Screenshot(first));
    std::this_thread::sleep_for(1s);
    ASSERT_TRUE(xserver->Screenshot(second));
    const QImage before(QString::fromStdString(first));
    const QImage after(QString::fromStdString(second));
    ASSERT_FALSE(before.isNull());
    ASSERT_EQ(before.size(), after.size());

    // The soak script's patches of the four items (the layout's item table) lie on their pictures.
    std::map<std::string, QRect> patches;
    for (const std::string& entry : test_support::ReadLines(sourceDirectory + "/layouts/kora_vision.items")) {
        if (entry.empty() || entry[0] == '#') {
            continue;
        }
        std::istringstream fields(entry);
        std::string topic;
        int x = 0;
        int y = 0;
        int width = 0;
        int height = 0;
        ASSERT_TRUE(fields >> topic >> x >> y >> width >> height) << entry;
        patches[topic] = QRect(x, y, width, height);
        EXPECT_EQ(ClassifyPatch(before, patches[topic]), "picture") << topic;
    }
    EXPECT_EQ(patches.size(), 4U);
    // The wall's "Add" button, and the sky of the simulated scenes in the video windows.
    EXPECT_GT(CountColour(before, QColor(0x28, 0x78, 0xc5)), 300);
    const int sky = CountInWall(before, [](const QColor& c, int, int) {
        return c.blue() > 200 && c.green() > 110 && c.red() < 170 && c.red() + 30 < c.blue();
    });
    // The rear camera's sky is tinted by its segmentation: three clear skies at least.
    EXPECT_GT(sky, 3 * 4000) << "no camera picture in the wall";
    // Moving pictures: a second later the video windows have changed.
    const int changed = CountInWall(before, [&after](const QColor& c, int x, int y) {
        const QColor other = after.pixelColor(x, y);
        return std::abs(c.red() - other.red()) + std::abs(c.green() - other.green()) +
                   std::abs(c.blue() - other.blue()) > 40;
    });
    EXPECT_GT(changed, 1000) << "the pictures did not move";
    // The perception overlay on the pictures: green lane lines and the blue freespace between them.
    const int laneLines = CountInWall(before, [](const QColor& c, int, int) {
        return c.green() > 200 && c.red() < 100 && c.blue() < 100;
    });
    EXPECT_GT(laneLines, 4 * 100) << "no road lines drawn";
    const int freespace = CountInWall(before, [](const QColor& c, int, int) {
        return c.blue() > 130 && c.red() < 90 && c.green() < 90;
    });
    EXPECT_GT(freespace, 4 * 1000) << "no freespace drawn";
    // The vehicle panels, fed by the simulated car: their dark background and their cyan values.
    const QRect panels(before.width() / 3, 0, before.width() * 2 / 3, before.height());
    const auto countInPanels = [&before, &panels](auto predicate) {
        int count = 0;
        for (int y = panels.top(); y <= panels.bottom(); ++y) {
            for (int x = panels.left(); x <= panels.right(); ++x) {
                count += predicate(before.pixelColor(x, y)) ? 1 : 0;
            }
        }
        return count;
    };
    EXPECT_GT(countInPanels([](const QColor& c) { return c == QColor(20, 21, 24); }), 5 * 20000)
        << "the vehicle panels are missing";
    EXPECT_GT(countInPanels([](const QColor& c) { return c.blue() > 200 && c.green() > 180 && c.red() < 60; }), 500)
        << "no values in the vehicle panels";

    // The wall lays its items out again while frames arrive: rviz's window shrunk by a fifth and
    // restored, five times; each time every item shows its picture again.
    const test_support::Environment display{{"DISPLAY", xserver->Display()}};
    const std::string stir = "w=$(xdotool search --onlyvisible --name 'RViz' | head -n 1) && "
                             "eval \"$(xdotool getwindowgeometry --shell \"$w\")\" && "
                             "xdotool windowsize \"$w\" $((WIDTH * 4 / 5)) $((HEIGHT * 4 / 5)) && sleep 0.5 && "
                             "xdotool windowsize \"$w\" \"$WIDTH\" \"$HEIGHT\"";
    for (int round = 1; round <= 5; ++round) {
        ASSERT_EQ(test_support::RunCommand({"bash", "-c", stir}, display), 0);
        std::this_thread::sleep_for(1500ms);
        const std::string shot = artifactDirectory + "/kora_vision_resized.png";
        ASSERT_TRUE(xserver->Screenshot(shot));
        const QImage resized(QString::fromStdString(shot));
        ASSERT_EQ(resized.size(), before.size());
        for (const auto& [topic, patch] : patches) {
            EXPECT_EQ(ClassifyPatch(resized, patch), "picture") << topic << " after resize " << round;
        }
    }

    ASSERT_TRUE(rviz->SaveConfig(20s)) << rviz->Log();
    const std::string saved = test_support::ReadFile(work / "kora_vision.rviz");
    EXPECT_EQ(SavedTopic(saved, "(1)/camera_front"), "/camera_front") << saved;
    EXPECT_EQ(SavedTopic(saved, "(2)/camera_left"), "/camera_left") << saved;
    EXPECT_EQ(SavedTopic(saved, "(3)/camera_right"), "/camera_right") << saved;
    EXPECT_EQ(SavedTopic(saved, "(4)/camera_rear"), "/camera_rear") << saved;
    // The decoder switch tool loaded from the layout and saved its selection.
    EXPECT_NE(saved.find("- Class: rviz_plugin/DecoderSwitch\n      Decoder Selection: Software"), std::string::npos)
        << saved;
    EXPECT_EQ(rviz->Stop(), 0);
}

// The 3D scene layout: the simulated car's objects, radar, freespace grid, traffic lights and model.
TEST_F(RvizEndToEnd, SceneLayoutShowsTheSixDisplaysFedByTheSimulatedCar)
{
    test_support::Environment environment = master->RosEnvironment();
    test_support::Process car({simulatedCar, "--cameras", "1", "--width", "320", "--height", "180", "--fps", "10"},
                              work / "simulated_car.log", environment);
    auto rviz = StartRviz(sourceDirectory + "/layouts/scene_3d.rviz", "OpenGl version");
    ExpectNoPluginError(rviz->Log());
    std::this_thread::sleep_for(10s);
    const std::string screenshot = artifactDirectory + "/scene_3d.png";
    ASSERT_TRUE(xserver->Screenshot(screenshot));
    const QImage image(QString::fromStdString(screenshot));
    ASSERT_FALSE(image.isNull());
    // The 3D view: right of the displays panel.
    const QRect view(image.width() / 4, 60, image.width() * 3 / 4 - 10, image.height() - 100);
    const auto count = [&image, &view](auto predicate) {
        int found = 0;
        for (int y = view.top(); y <= view.bottom(); ++y) {
            for (int x = view.left(); x <= view.right(); ++x) {
                found += predicate(image.pixelColor(x, y)) ? 1 : 0;
            }
        }
        return found;
    };
    EXPECT_GT(count([](const QColor& c) { return c.red() > 245 && c.green() > 245 && c.blue() > 245; }), 60000)
        << "no freespace tiles";
    EXPECT_GT(count([](const QColor& c) { return c.red() < 8 && c.green() < 8 && c.blue() < 8; }), 5000)
        << "no unknown cells";
    // The vehicles' cuboids: their class's cyan, half transparent and shaded, over the grey of the cells
    // they block.
    EXPECT_GT(count([](const QColor& c) {
                  return c.red() > 50 && c.red() < 130 && c.green() > c.red() + 25 && c.blue() > c.red() + 40 &&
                         c.blue() < 200;
              }),
              1000)
        << "no object cuboids";
    EXPECT_GT(count([](const QColor& c) { return c.green() > 150 && c.red() < 130 && c.blue() < 130; }), 200)
        << "no radar detections";
    // Lit lamps and the countdown: pure yellow or red.
    EXPECT_GT(count([](const QColor& c) {
                  return c.red() > 200 && c.blue() < 60 && (c.green() > 200 || c.green() < 60);
              }),
              40)
        << "no traffic lights";
    EXPECT_EQ(rviz->Stop(), 0);
}

// A saved layout whose "car" row of Objects is red: the simulated car's cars get red boxes, and the
// row's default orange is nowhere.
TEST_F(RvizEndToEnd, SavedClassificationColourShowsOnTheVideo)
{
    test_support::Environment environment = master->RosEnvironment();
    test_support::Process car({simulatedCar, "--cameras", "1", "--width", "640", "--height", "360", "--fps", "15"},
                              work / "simulated_car.log", environment);
    auto rviz = StartRviz(sourceDirectory + "/test/e2e/configs/red_cars.rviz");
    ExpectNoPluginError(rviz->Log());
    std::this_thread::sleep_for(8s);
    const std::string screenshot = artifactDirectory + "/kora_vision_red_cars.png";
    ASSERT_TRUE(xserver->Screenshot(screenshot));
    const QImage image(QString::fromStdString(screenshot));
    ASSERT_FALSE(image.isNull());
    const int red = CountInWall(image, [](const QColor& c, int, int) {
        return c.red() > 235 && c.green() < 30 && c.blue() < 30;
    });
    EXPECT_GT(red, 60) << "no red boxes";
    EXPECT_LT(CountColour(image, QColor(243, 142, 0), 10), 20) << "the default car colour is still drawn";
    EXPECT_EQ(rviz->Stop(), 0);
}

TEST_F(RvizEndToEnd, KeysNumberedTwoTenOneLoadInTheOrderOneTwoTen)
{
    auto rviz = StartRviz(sourceDirectory + "/test/e2e/configs/unordered_keys.rviz");
    ExpectNoPluginError(rviz->Log());
    std::this_thread::sleep_for(2s);
    const std::string screenshot = artifactDirectory + "/kora_vision_wall_idle.png";
    ASSERT_TRUE(xserver->Screenshot(screenshot));
    const QImage image(QString::fromStdString(screenshot));
    ASSERT_FALSE(image.isNull());
    // Three items without video show the idle picture, and the wall keeps its own colours.
    EXPECT_GT(CountColour(image, QColor(0x28, 0x78, 0xc5)), 300);
    EXPECT_GT(CountInWall(image, [](const QColor& c, int, int) { return c == QColor(0x2a, 0x2f, 0x36); }), 500);
    ASSERT_TRUE(rviz->SaveConfig(20s)) << rviz->Log();
    const std::string saved = test_support::ReadFile(work / "unordered_keys.rviz");
    // Items took the keys in numeric order, so each number still carries its own topic.
    EXPECT_EQ(SavedTopic(saved, "(1)/camera/a"), "/camera/a") << saved;
    EXPECT_EQ(SavedTopic(saved, "(2)/camera/b"), "/camera/b") << saved;
    EXPECT_EQ(SavedTopic(saved, "(10)/camera/c"), "/camera/c") << saved;
    EXPECT_EQ(rviz->Stop(), 0);
}

// Pixels of a rectangle that satisfy predicate, with their centre.
struct Found {
    int count = 0;
    QPoint centre;
};
template <typename Predicate>
Found FindIn(const QImage& image, const QRect& area, Predicate predicate)
{
    Found found;
    long long sumX = 0;
    long long sumY = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (predicate(image.pixelColor(x, y))) {
                ++found.count;
                sumX += x;
                sumY += y;
            }
        }
    }
    if (found.count > 0) {
        found.centre = QPoint(static_cast<int>(sumX / found.count), static_cast<int>(sumY / found.count));
    }
    return found;
}

// The 3D view: the columns and rows mostly of its background colour.
QRect RenderArea(const QImage& image)
{
    std::vector<int> columns(static_cast<std::size_t>(image.width()));
    std::vector<int> rows(static_cast<std::size_t>(image.height()));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == QColor(48, 48, 48)) {
                ++columns[static_cast<std::size_t>(x)];
                ++rows[static_cast<std::size_t>(y)];
            }
        }
    }
    const auto span = [](const std::vector<int>& counts, int least) {
        int first = -1;
        int last = -1;
        for (int index = 0; index < static_cast<int>(counts.size()); ++index) {
            if (counts[static_cast<std::size_t>(index)] > least) {
                first = first < 0 ? index : first;
                last = index;
            }
        }
        return std::make_pair(first, last);
    };
    const auto [left, right] = span(columns, image.height() / 3);
    const auto [top, bottom] = span(rows, image.width() / 3);
    return left < 0 || top < 0 ? QRect() : QRect(QPoint(left, top), QPoint(right, bottom));
}

bool IsWayFlag(const QColor& c)
{
    return c.blue() > 120 && c.red() < 80 && c.green() > 50 && c.green() < c.blue() - 30;
}

bool IsEndFlag(const QColor& c)
{
    return c.red() > 130 && c.green() < 80 && c.blue() < 80;
}

// "received <topic>: x y z" lines of the simulated car, in order.
std::vector<std::string> Received(const std::string& log, const std::string& topic)
{
    std::vector<std::string> points;
    const std::regex line("received " + topic + R"(: (\S+) (\S+) (\S+))");
    for (auto it = std::sregex_iterator(log.begin(), log.end(), line); it != std::sregex_iterator(); ++it) {
        points.push_back((*it)[1].str() + "," + (*it)[2].str() + "," + (*it)[3].str());
    }
    return points;
}

// A top-down view centred on (10, 8) at 25 pixels a metre; the map offset is (100, 200). The saved
// route's flags stand at their points less the offset; a click with the way point tool at the view's
// centre puts a flag there and sends (110, 208); the route's "Send" sends its points in order; the
// clear tool removes the tool's flags.
TEST_F(RvizEndToEnd, RoutesAndPointsReachTheCarInMapCoordinates)
{
    test_support::Environment environment = master->RosEnvironment();
    test_support::Process car({simulatedCar, "--cameras", "1", "--width", "320", "--height", "180", "--fps", "5",
                               "--offset", "100,200"},
                              work / "simulated_car.log", environment);
    ASSERT_TRUE(test_support::WaitFor([&car]() { return car.Log().find("simulated car:") != std::string::npos; }, 30s));
    auto rviz = StartRviz(sourceDirectory + "/test/e2e/configs/route_planner.rviz", "Forcing OpenGl version");
    ExpectNoPluginError(rviz->Log());

    QImage image;
    QRect area;
    const std::string first = artifactDirectory + "/route_planner_loaded.png";
    const bool flagsShown = test_support::WaitFor(
        [&]() {
            if (!xserver->Screenshot(first)) {
                return false;
            }
            image = QImage(QString::fromStdString(first));
            area = RenderArea(image);
            return !area.isEmpty() && FindIn(image, area, IsWayFlag).count > 3 * 200 &&
                   FindIn(image, area, IsEndFlag).count > 200;
        },
        60s);
    ASSERT_TRUE(flagsShown) << "the saved route's flags are missing\n" << rviz->Log();
    // The end flag stands at (18, 18) locally: 8 m right (or left) and 10 m up (or down) of the centre.
    const Found end = FindIn(image, area, IsEndFlag);
    EXPECT_NEAR(std::abs(end.centre.x() - area.center().x()), 8 * 25, 30);
    EXPECT_NEAR(std::abs(end.centre.y() - area.center().y()), 10 * 25, 40);

    // The way point tool: focus the view, press its key, click the centre.
    const QPoint centre = area.center();
    const QRect aroundCentre(centre - QPoint(20, 20), QSize(41, 41));
    const int flagBefore = FindIn(image, aroundCentre, IsWayFlag).count;
    const auto xdotool = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "xdotool");
        test_support::Environment display{{"DISPLAY", xserver->Display()}};
        return test_support::RunCommand(arguments, display);
    };
    ASSERT_EQ(xdotool({"mousemove", std::to_string(area.right() - 10), std::to_string(area.bottom() - 10), "click", "1"}), 0);
    std::this_thread::sleep_for(300ms);  // the view takes the keyboard focus
    ASSERT_EQ(xdotool({"key", "w"}), 0);
    ASSERT_EQ(xdotool({"mousemove", std::to_string(centre.x()), std::to_string(centre.y())}), 0);
    std::this_thread::sleep_for(300ms);
    ASSERT_EQ(xdotool({"click", "1"}), 0);
    ASSERT_TRUE(test_support::WaitFor([&car]() { return !Received(car.Log(), "/TopicByWayPoint").empty(); }, 10s))
        << car.Log();
    float x = 0;
    float y = 0;
    float z = 0;
    ASSERT_EQ(std::sscanf(Received(car.Log(), "/TopicByWayPoint").front().c_str(), "%f,%f,%f", &x, &y, &z), 3);
    EXPECT_NEAR(x, 110.0F, 0.3F);
    EXPECT_NEAR(y, 208.0F, 0.3F);
    EXPECT_EQ(z, 0.0F);
    const std::string clicked = artifactDirectory + "/route_planner_clicked.png";
    ASSERT_TRUE(xserver->Screenshot(clicked));
    image = QImage(QString::fromStdString(clicked));
    const int flagAfter = FindIn(image, aroundCentre, IsWayFlag).count;
    EXPECT_GT(flagAfter, flagBefore + 100) << "no flag where the click was";

    // The route panel's "Send" (the green button): three way points, then the end point, in order.
    const Found send = FindIn(image, QRect(0, 0, area.left(), image.height()),
                              [](const QColor& c) { return c == QColor(0x1e, 0x9e, 0x5a); });
    ASSERT_GT(send.count, 100) << "no Send button";
    ASSERT_EQ(xdotool({"mousemove", std::to_string(send.centre.x()), std::to_string(send.centre.y()), "click", "1"}), 0);
    ASSERT_TRUE(test_support::WaitFor([&car]() { return !Received(car.Log(), "/TopicEndPoint").empty(); }, 10s))
        << car.Log();
    const std::vector<std::string> route = Received(car.Log(), "/TopicByWayPoint");
    ASSERT_EQ(route.size(), 4U) << car.Log();
    EXPECT_EQ(route[1], "104.000000,200.000000,0.000000");
    EXPECT_EQ(route[2], "110.000000,205.000000,0.000000");
    EXPECT_EQ(route[3], "114.000000,212.000000,0.000000");
    EXPECT_EQ(Received(car.Log(), "/TopicEndPoint"), std::vector<std::string>{"118.000000,218.000000,0.000000"});
    const std::string log = car.Log();
    EXPECT_LT(log.find("received /TopicByWayPoint: 114"), log.find("received /TopicEndPoint"));

    // The clear tool: one empty point on "ClearPoints", and the tool's flag is gone.
    ASSERT_EQ(xdotool({"mousemove", std::to_string(area.right() - 10), std::to_string(area.bottom() - 10), "click", "1"}), 0);
    std::this_thread::sleep_for(300ms);  // the view takes the keyboard focus
    ASSERT_EQ(xdotool({"key", "x"}), 0);
    ASSERT_TRUE(test_support::WaitFor([&car]() { return !Received(car.Log(), "/ClearPoints").empty(); }, 10s))
        << car.Log();
    EXPECT_EQ(Received(car.Log(), "/ClearPoints").front(), "0.000000,0.000000,0.000000");
    std::this_thread::sleep_for(500ms);
    const std::string cleared = artifactDirectory + "/route_planner_cleared.png";
    ASSERT_TRUE(xserver->Screenshot(cleared));
    image = QImage(QString::fromStdString(cleared));
    EXPECT_LT(FindIn(image, aroundCentre, IsWayFlag).count, flagAfter - 100) << "the tool's flag is still there";
    EXPECT_GT(FindIn(image, area, IsEndFlag).count, 200) << "the route's flags went too";
    EXPECT_EQ(rviz->Stop(), 0);
}

// The offset settings tool: the header box ticks every topic that can be shifted, OK writes the settings
// file and tells the car; opened again the dialog shows the same ticks, so OK writes the same file.
TEST_F(RvizEndToEnd, OffsetDialogWritesTheFileAndAReopenShowsTheSameTicks)
{
    test_support::Environment environment = master->RosEnvironment();
    test_support::Process car({simulatedCar, "--cameras", "2", "--width", "320", "--height", "180", "--fps", "5"},
                              work / "simulated_car.log", environment);
    ASSERT_TRUE(test_support::WaitFor([&car]() { return car.Log().find("simulated car:") != std::string::npos; }, 30s));
    auto rviz = StartRviz(sourceDirectory + "/test/e2e/configs/route_planner.rviz", "Forcing OpenGl version");
    ExpectNoPluginError(rviz->Log());
    std::this_thread::sleep_for(8s);
    const test_support::Environment display{{"DISPLAY", xserver->Display()}};
    const std::string file = root + "/config/map_offset_filter_setting.json";
    // Opens the dialog with its key from the 3D view and gives it the keyboard.
    const auto open = [&]() {
        EXPECT_EQ(test_support::RunCommand({"xdotool", "mousemove", "1500", "900", "click", "1"}, display), 0);
        std::this_thread::sleep_for(300ms);
        EXPECT_EQ(test_support::RunCommand({"xdotool", "key", "o"}, display), 0);
        EXPECT_EQ(test_support::RunCommand({"xdotool", "search", "--sync", "--onlyvisible", "--name", "Offset Settings",
                                            "windowfocus"},
                                           display),
                  0);
        std::this_thread::sleep_for(500ms);
    };
    open();
    // From the offset boxes to the header box "Topic": Y, type, search text, search, refresh, header.
    ASSERT_EQ(test_support::RunCommand({"xdotool", "key", "Tab", "Tab", "Tab", "Tab", "Tab", "Tab", "space"}, display),
              0);
    std::this_thread::sleep_for(300ms);
    ASSERT_EQ(test_support::RunCommand({"xdotool", "key", "Return"}, display), 0);
    ASSERT_TRUE(test_support::WaitFor([&]() { return !Received(car.Log(), "/TopicRefreshMap").empty(); }, 10s))
        << car.Log();
    const std::string written = test_support::ReadFile(file);
    EXPECT_NE(written.find("\"camera_front/objects\""), std::string::npos) << written;
    EXPECT_NE(written.find("\"camera_left/markers\""), std::string::npos) << written;
    EXPECT_EQ(written.find("\"camera_front\""), std::string::npos) << "video cannot be shifted\n" << written;
    EXPECT_NE(written.find("\"tf_child_frame_id\""), std::string::npos) << written;

    const auto firstWrite = fs::last_write_time(file);
    open();
    ASSERT_TRUE(xserver->Screenshot(artifactDirectory + "/offset_settings_reopened.png"));
    ASSERT_EQ(test_support::RunCommand({"xdotool", "key", "Return"}, display), 0);
    ASSERT_TRUE(test_support::WaitFor([&]() { return Received(car.Log(), "/TopicRefreshMap").size() == 2; }, 10s))
        << car.Log();
    EXPECT_GT(fs::last_write_time(file), firstWrite);
    EXPECT_EQ(test_support::ReadFile(file), written);
    EXPECT_EQ(rviz->Stop(), 0);
}

} // namespace

// The block of the message viewer's panels in a saved configuration.
// The saved settings of a panel: the map under its key ("MsgDataPanel", "PlotPlugin").
std::string PanelBlock(const std::string& config, const std::string& key)
{
    const std::size_t start = config.find("    " + key + ":\n");
    if (start == std::string::npos) {
        return std::string();
    }
    std::size_t end = start + 1;
    while ((end = config.find('\n', end)) != std::string::npos && end + 1 < config.size() &&
           config.compare(end + 1, 6, "      ") == 0) {
        ++end;
    }
    return config.substr(start, end == std::string::npos ? std::string::npos : end - start);
}

// A table of the objects and key-value grids of the vehicle status, fed by the simulated car; saved,
// reloaded and saved again, the viewer's panels come back with the same columns, order, names, sort
// and colours.
TEST_F(RvizEndToEnd, ViewerPanelsShowTheCarAndReloadAsSaved)
{
    test_support::Environment environment = master->RosEnvironment();
    test_support::Process car({simulatedCar, "--cameras", "1", "--width", "320", "--height", "180", "--fps", "10"},
                              work / "simulated_car.log", environment);
    auto rviz = StartRviz(sourceDirectory + "/layouts/msg_viewer.rviz", "OpenGl version");
    ExpectNoPluginError(rviz->Log());
    std::this_thread::sleep_for(8s);
    const std::string screenshot = artifactDirectory + "/msg_viewer.png";
    ASSERT_TRUE(xserver->Screenshot(screenshot));
    const QImage image(QString::fromStdString(screenshot));
    ASSERT_FALSE(image.isNull());
    // The docks' title icons, and the table's and grids' dark text on white.
    EXPECT_GT(CountColour(image, QColor(239, 119, 72), 12), 100) << "no dock titles";
    EXPECT_GT(FindIn(image, QRect(420, 90, 640, 290), [](const QColor& c) { return c.lightness() < 90; }).count, 800)
        << "no table text";
    EXPECT_GT(FindIn(image, QRect(420, 450, 640, 160), [](const QColor& c) { return c.lightness() < 90; }).count, 400)
        << "no key-value text";
    // The camera markers' colour channels merged into one column, shown by the cells' background.
    EXPECT_GT(FindIn(image, QRect(1100, 90, 440, 290), [](const QColor& c) {
                  return c.red() > 230 && c.green() > 170 && c.green() < 230 && c.blue() < 40;
              }).count,
              800)
        << "no colour column";
    ASSERT_TRUE(rviz->SaveConfig(20s)) << rviz->Log();
    const std::string first = PanelBlock(test_support::ReadFile(work / "msg_viewer.rviz"), "MsgDataPanel");
    EXPECT_EQ(rviz->Stop(), 0);
    EXPECT_NE(first.find("fieldNickName: Id"), std::string::npos) << first;
    EXPECT_NE(first.find("showStatus: 3"), std::string::npos) << first;
    EXPECT_NE(first.find("sortIndex: 1"), std::string::npos) << first;
    EXPECT_LT(first.find("/objects_3d/objectList/textDisplay"), first.find("fieldName: /objects_3d/objectList/objectId"));
    EXPECT_NE(first.find("topicNickName: Vehicle"), std::string::npos) << first;
    std::size_t channels = 0;
    for (std::size_t at = first.find("[float64](color)"); at != std::string::npos;
         at = first.find("[float64](color)", at + 1)) {
        ++channels;
    }
    EXPECT_EQ(channels, 4U) << first;

    fs::create_directories(work / "reload");
    fs::copy_file(work / "msg_viewer.rviz", fs::path(work / "reload") / "msg_viewer.rviz");
    auto again = StartRviz((fs::path(work / "reload") / "msg_viewer.rviz").string(), "OpenGl version");
    std::this_thread::sleep_for(4s);
    ASSERT_TRUE(again->SaveConfig(20s)) << again->Log();
    EXPECT_EQ(PanelBlock(test_support::ReadFile(work / "msg_viewer.rviz"), "MsgDataPanel"), first);
    EXPECT_EQ(again->Stop(), 0) << again->Log();
}

// The plot panel without a saved layout shows the default template: four plots of the vehicle status,
// each drawing its line. A saved layout of three plots, one of them a field against a field and one
// of array elements, draws its lines, and saved, reloaded and saved again comes back the same.
TEST_F(RvizEndToEnd, PlotDefaultTemplateAndASavedLayoutReloadAsSaved)
{
    test_support::Environment environment = master->RosEnvironment();
    test_support::Process car({simulatedCar, "--cameras", "1", "--width", "320", "--height", "180", "--fps", "10"},
                              work / "simulated_car.log", environment);
    // A line's pixels: its colour over white at 40 % to full cover (a line between two pixel rows is
    // blended with the white around it).
    const auto lineColour = [](const QImage& image, const char* name) {
        const QColor colour(name);
        const int channels[3] = {colour.red(), colour.green(), colour.blue()};
        const int widest = static_cast<int>(std::min_element(channels, channels + 3) - channels);
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor pixel = image.pixelColor(x, y);
                const int values[3] = {pixel.red(), pixel.green(), pixel.blue()};
                const double cover = (255.0 - values[widest]) / (255.0 - channels[widest]);
                bool match = cover >= 0.4 && cover <= 1.05;
                for (int c = 0; c < 3 && match; ++c) {
                    match = std::abs(values[c] - (255.0 - cover * (255.0 - channels[c]))) <= 14.0;
                }
                count += match ? 1 : 0;
            }
        }
        return count;
    };
    {
        auto rviz = StartRviz(sourceDirectory + "/test/e2e/configs/plot_default.rviz", "OpenGl version");
        ExpectNoPluginError(rviz->Log());
        // The lines select their fields 1.5 s after the layout, then send once a second.
        std::this_thread::sleep_for(8s);
        const std::string screenshot = artifactDirectory + "/plot_default.png";
        ASSERT_TRUE(xserver->Screenshot(screenshot));
        const QImage image(QString::fromStdString(screenshot));
        ASSERT_FALSE(image.isNull());
        for (const char* colour : {"#77A0F0", "#009DA5", "#F8CF49", "#596077"}) {
            EXPECT_GT(lineColour(image, colour), 150) << "no line in " << colour;
        }
        EXPECT_EQ(rviz->Log().find("Failed to open the file."), std::string::npos) << rviz->Log();
        EXPECT_EQ(rviz->Stop(), 0);
    }

    auto rviz = StartRviz(sourceDirectory + "/layouts/plot.rviz", "OpenGl version");
    ExpectNoPluginError(rviz->Log());
    std::this_thread::sleep_for(8s);
    const std::string screenshot = artifactDirectory + "/plot.png";
    ASSERT_TRUE(xserver->Screenshot(screenshot));
    const QImage image(QString::fromStdString(screenshot));
    ASSERT_FALSE(image.isNull());
    for (const char* colour : {"#77A0F0", "#009DA5", "#F8CF49", "#596077", "#9C74F2"}) {
        EXPECT_GT(lineColour(image, colour), 150) << "no line in " << colour;
    }
    ASSERT_TRUE(rviz->SaveConfig(20s)) << rviz->Log();
    const std::string first = PanelBlock(test_support::ReadFile(work / "plot.rviz"), "PlotPlugin");
    EXPECT_EQ(rviz->Stop(), 0);
    EXPECT_NE(first.find("title: Acceleration by speed"), std::string::npos) << first;
    EXPECT_NE(first.find("isMsgPath: true"), std::string::npos) << first;
    EXPECT_NE(first.find("xField: /TopicVehicleInfo/vehicleSpeed"), std::string::npos) << first;
    EXPECT_NE(first.find("curveName: /objects_3d/objectList.0/objectBoxCenter/x"), std::string::npos) << first;
    EXPECT_EQ(first.find("templateName: default"), std::string::npos) << first;

    fs::create_directories(work / "reload");
    fs::copy_file(work / "plot.rviz", fs::path(work / "reload") / "plot.rviz");
    auto again = StartRviz((fs::path(work / "reload") / "plot.rviz").string(), "OpenGl version");
    std::this_thread::sleep_for(4s);
    ASSERT_TRUE(again->SaveConfig(20s)) << again->Log();
    EXPECT_EQ(PanelBlock(test_support::ReadFile(work / "plot.rviz"), "PlotPlugin"), first);
    EXPECT_EQ(again->Stop(), 0) << again->Log();
}

namespace {

// Where a window with this title lies on the screen; the largest visible one when several match.
QRect WindowGeometry(const test_support::Environment& display, const std::string& title, const fs::path& scratch)
{
    const std::string list = (scratch / "windows.txt").string();
    test_support::RunCommand({"xdotool", "search", "--onlyvisible", "--name", title}, display,
                             std::chrono::seconds(10), list);
    QRect best;
    for (const std::string& window : test_support::ReadLines(list)) {
        const std::string shell = (scratch / "geometry.txt").string();
        test_support::RunCommand({"xdotool", "getwindowgeometry", "--shell", window}, display,
                                 std::chrono::seconds(10), shell);
        std::map<std::string, int> values;
        for (const std::string& line : test_support::ReadLines(shell)) {
            const auto equals = line.find('=');
            if (equals != std::string::npos && line.substr(0, equals) != "WINDOW") {
                values[line.substr(0, equals)] = std::atoi(line.c_str() + equals + 1);
            }
        }
        const QRect rect(values["X"], values["Y"], values["WIDTH"], values["HEIGHT"]);
        if (rect.width() * rect.height() > best.width() * best.height()) {
            best = rect;
        }
    }
    return best;
}

int CountWhere(const QImage& image, const std::function<bool(const QColor&)>& predicate)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += predicate(image.pixelColor(x, y)) ? 1 : 0;
        }
    }
    return count;
}

bool IsLaneGreen(const QColor& c)
{
    return c.green() > 200 && c.red() < 100 && c.blue() < 100;
}

} // namespace

// Both tools on the shipped layout: a multi-frame capture of the four cameras and the lidar exported as PNG
// and PCD, then a recording of every camera with its overlay and of the 3D view, checked with ffprobe.
TEST_F(RvizEndToEnd, CaptureAndRecordingFromTheShippedLayout)
{
    test_support::Environment environment = master->RosEnvironment();
    test_support::Process car({simulatedCar, "--cameras", "4", "--width", "640", "--height", "360", "--fps", "15"},
                              work / "simulated_car.log", environment);
    auto rviz = StartRviz(sourceDirectory + "/layouts/kora_vision.rviz");
    ExpectNoPluginError(rviz->Log());
    std::this_thread::sleep_for(10s);
    const test_support::Environment display{{"DISPLAY", xserver->Display()}};
    const auto xdotool = [&display](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "xdotool");
        return test_support::RunCommand(arguments, display);
    };
    const auto click = [&xdotool](int x, int y) {
        return xdotool({"mousemove", std::to_string(x), std::to_string(y), "click", "1"});
    };

    // Capture: three frames of every offered topic (the layout's setting), all kept.
    ASSERT_EQ(click(20, 300), 0);
    ASSERT_EQ(xdotool({"key", "ctrl+m"}), 0);
    ASSERT_TRUE(test_support::WaitFor([&] { return !WindowGeometry(display, "Capture Multisensor Data", work.Path()).isEmpty(); }, 10s));
    std::this_thread::sleep_for(500ms);
    ASSERT_EQ(xdotool({"key", "Return"}), 0);
    QRect preview;
    ASSERT_TRUE(test_support::WaitFor([&] {
        preview = WindowGeometry(display, "Capture Multisensor Data", work.Path());
        return preview.width() > 800;
    }, 20s)) << rviz->Log();
    std::this_thread::sleep_for(1s);
    ASSERT_TRUE(xserver->Screenshot(artifactDirectory + "/capture_preview.png"));
    ASSERT_EQ(click(preview.right() - 55, preview.bottom() - 22), 0);
    const fs::path downloads = work / "Downloads";
    std::vector<fs::path> pictures;
    std::vector<fs::path> clouds;
    const bool exported = test_support::WaitFor([&] {
        pictures.clear();
        clouds.clear();
        if (fs::exists(downloads)) {
            for (const auto& entry : fs::recursive_directory_iterator(downloads)) {
                (entry.path().extension() == ".png" ? pictures : clouds).push_back(entry.path());
                if (entry.path().extension() != ".png" && entry.path().extension() != ".pcd") {
                    clouds.pop_back();
                }
            }
        }
        return pictures.size() == 12 && clouds.size() == 3;
    }, 20s);
    ASSERT_TRUE(exported) << pictures.size() << " pictures, " << clouds.size() << " clouds\n" << rviz->Log();
    std::this_thread::sleep_for(1s);
    ASSERT_TRUE(xserver->Screenshot(artifactDirectory + "/capture_exported.png"));
    for (const fs::path& file : pictures) {
        const QImage picture(QString::fromStdString(file.string()));
        ASSERT_EQ(picture.size(), QSize(640, 360)) << file;
        // The scene's sky is light blue: red and blue the right way round.
        const QColor sky = picture.pixelColor(320, 40);
        EXPECT_GT(sky.blue(), sky.red() + 40) << file;
        // The decoded picture without the overlay: the front camera's lane lines are not drawn in it.
        if (file.parent_path().filename() == "camera_front") {
            EXPECT_LT(CountWhere(picture, IsLaneGreen), 20) << file;
        }
    }
    for (const fs::path& file : clouds) {
        pcl::PCLPointCloud2 cloud;
        ASSERT_EQ(pcl::io::loadPCDFile(file.string(), cloud), 0) << file;
        ASSERT_EQ(cloud.fields.size(), 4u);
        EXPECT_EQ(cloud.fields[0].name + cloud.fields[1].name + cloud.fields[2].name + cloud.fields[3].name,
                  "xyzintensity");
        EXPECT_GT(cloud.width * cloud.height, 80000u) << file;
        EXPECT_EQ(cloud.data.size(), static_cast<std::size_t>(cloud.width) * cloud.height * cloud.point_step);
    }

    // Recording: the tool's button (the fourth of the tool bar), the evaluation skipped, a few seconds of every
    // source.
    ASSERT_EQ(click(403, 41), 0);
    QRect dialog;
    ASSERT_TRUE(test_support::WaitFor([&] {
        dialog = WindowGeometry(display, "Record Video", work.Path());
        return dialog.width() > 600;
    }, 20s)) << rviz->Log();
    std::this_thread::sleep_for(1s);
    ASSERT_TRUE(xserver->Screenshot(artifactDirectory + "/record_dialog.png"));
    ASSERT_EQ(click(dialog.left() + 17, dialog.bottom() - 51), 0);  // "Skip evaluation"
    std::this_thread::sleep_for(300ms);
    ASSERT_EQ(click(dialog.right() - 53, dialog.bottom() - 21), 0);  // "Record"
    std::this_thread::sleep_for(6s);
    ASSERT_TRUE(xserver->Screenshot(artifactDirectory + "/recording_status.png"));
    // "Stop" in the recording panel finishes every file: frames in each file = the beats its recorder counted.
    const QRect panel = WindowGeometry(display, "Recording", work.Path());
    ASSERT_FALSE(panel.isEmpty());
    ASSERT_EQ(click(panel.right() - 52, panel.top() + 22), 0);  // "Stop", beside the title
    const std::regex recorded(R"(Recorded (\d+) frames of (\S+) into (.+\.mp4)\.)");
    std::map<std::string, std::pair<int, std::string>> files;
    std::string log;
    const bool finished = test_support::WaitFor([&] {
        log = rviz->Log();
        files.clear();
        for (auto match = std::sregex_iterator(log.begin(), log.end(), recorded); match != std::sregex_iterator();
             ++match) {
            files[(*match)[2]] = {std::stoi((*match)[1]), (*match)[3]};
        }
        return files.size() == 5;
    }, 60s);
    EXPECT_EQ(rviz->Stop(), 0);
    ASSERT_TRUE(finished) << log;
    ASSERT_EQ(files.count("/3d_area_data"), 1u) << log;
    for (const auto& [topic, file] : files) {
        EXPECT_GT(file.first, 100) << topic;
        const std::string probe = (work / "probe.txt");
        test_support::RunCommand({"ffprobe", "-v", "error", "-count_frames", "-select_streams", "v:0", "-show_entries",
                                  "stream=codec_name,width,height,r_frame_rate,nb_read_frames", "-of", "csv=p=0",
                                  file.second},
                                 {}, 60s, probe);
        EXPECT_EQ(test_support::ReadLines(probe).at(0), "h264,854,480,30/1," + std::to_string(file.first)) << topic;
    }
    // The overlay is in the camera's recording: its green lane lines in a decoded frame.
    const auto& front = files.at("/camera_front_frameArray");
    const std::string frame = artifactDirectory + "/recorded_front_frame.png";
    test_support::RunCommand({"ffmpeg", "-v", "error", "-y", "-i", front.second, "-vf",
                              "select=eq(n\\," + std::to_string(front.first / 2) + ")", "-frames:v", "1", frame});
    const QImage decoded(QString::fromStdString(frame));
    ASSERT_EQ(decoded.size(), QSize(854, 480));
    EXPECT_GT(CountWhere(decoded, IsLaneGreen), 300) << "no overlay in the recording";
}
