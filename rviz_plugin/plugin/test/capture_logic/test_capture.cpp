// Capture against a real master: cameras and a lidar published in this process, the line-up, PNG and PCD
// files read back, a stalled topic, a topic nobody publishes, repeated stamps and a folder that cannot be made.
#include "../support/qt_events.h"
#include "../support/ros_test_main.h"

#include "capture_logic/capture_data_manager.h"

#include <QGuiApplication>
#include <QImage>
#include <QSignalSpy>

#include <custom/AvFrame.h>
#include <pcl/PCLPointCloud2.h>
#include <pcl/io/pcd_io.h>
#include <ros/ros.h>
#include <sensor_msgs/PointCloud2.h>
#include <sensor_msgs/point_cloud2_iterator.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <thread>

using rviz_plugin::CaptrueStatus;
using rviz_plugin::CaptureDataManager;

namespace {

constexpr int width = 64;
constexpr int height = 48;
constexpr uint32_t cloudPoints = 1000;

// An RGB24 camera picture: left half pure red, right half pure blue.
boost::shared_ptr<custom::AvFrame> Picture(const ros::Time& stamp)
{
    auto frame = boost::make_shared<custom::AvFrame>();
    frame->header.stamp = stamp;
    frame->format = 2;  // RGB24
    frame->width = width;
    frame->height = height;
    frame->linesize = {width * 3};
    frame->data.resize(1);
    auto& bytes = frame->data[0].data;
    bytes.resize(static_cast<std::size_t>(width) * height * 3);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            uint8_t* pixel = &bytes[(static_cast<std::size_t>(y) * width + x) * 3];
            pixel[0] = x < width / 2 ? 255 : 0;
            pixel[2] = x < width / 2 ? 0 : 255;
        }
    }
    return frame;
}

boost::shared_ptr<sensor_msgs::PointCloud2> Cloud(const ros::Time& stamp)
{
    auto cloud = boost::make_shared<sensor_msgs::PointCloud2>();
    cloud->header.stamp = stamp;
    cloud->header.frame_id = "lidar";
    sensor_msgs::PointCloud2Modifier modifier(*cloud);
    modifier.setPointCloud2Fields(4, "x", 1, sensor_msgs::PointField::FLOAT32, "y", 1,
                                  sensor_msgs::PointField::FLOAT32, "z", 1, sensor_msgs::PointField::FLOAT32,
                                  "intensity", 1, sensor_msgs::PointField::FLOAT32);
    modifier.resize(cloudPoints);
    sensor_msgs::PointCloud2Iterator<float> x(*cloud, "x");
    sensor_msgs::PointCloud2Iterator<float> intensity(*cloud, "intensity");
    for (uint32_t i = 0; i < cloudPoints; ++i, ++x, ++intensity) {
        x[0] = static_cast<float>(i) * 0.01F;
        x[1] = 1.0F;
        x[2] = -0.5F;
        *intensity = static_cast<float>(i % 100);
    }
    return cloud;
}

// Publishes on its topics at about 10 Hz until stopped; each sensor's stamps are offset a little.
class Sensors {
public:
    Sensors()
        : front(node.advertise<custom::AvFrame>("/front_avFrame", 10)),
          rear(node.advertise<custom::AvFrame>("/rear_avFrame", 10)),
          lidar(node.advertise<sensor_msgs::PointCloud2>("/lidar_points", 10))
    {
    }
    ~Sensors() { Stop(); }
    void Run(bool repeatStamps = false)
    {
        running = true;
        thread = std::thread([this, repeatStamps] {
            ros::Time stamp(1000, 0);
            while (running) {
                front.publish(Picture(stamp));
                rear.publish(Picture(stamp + ros::Duration(0.004)));
                lidar.publish(Cloud(stamp + ros::Duration(0.021)));
                if (!repeatStamps) {
                    stamp += ros::Duration(0.1);
                }
                std::this_thread::sleep_for(std::chrono::milliseconds(100));
            }
        });
    }
    void Stop()
    {
        running = false;
        if (thread.joinable()) {
            thread.join();
        }
    }
    bool Listened() const
    {
        return front.getNumSubscribers() > 0 && rear.getNumSubscribers() > 0 && lidar.getNumSubscribers() > 0;
    }

private:
    ros::NodeHandle node;
    ros::Publisher front;
    ros::Publisher rear;
    ros::Publisher lidar;
    std::atomic<bool> running{false};
    std::thread thread;
};

const std::vector<std::pair<std::string, std::string>> selection = {
    {"/lidar_points", "sensor_msgs/PointCloud2"},
    {"/front_avFrame", "custom/AvFrame"},
    {"/rear_avFrame", "custom/AvFrame"},
};

// Waits until the master lists the topics, then captures count messages of each.
bool Capture(CaptureDataManager& manager, int count, QSignalSpy& finished)
{
    if (!test_support::WaitFor([&] { return manager.GetTopicList("custom/AvFrame").size() >= 2; },
                               std::chrono::seconds(10))) {
        return false;
    }
    manager.StartCapture(selection, count);
    return test_support::ServeEvents([&] { return finished.count() > 0; }, std::chrono::seconds(20));
}

std::vector<std::filesystem::path> Files(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

TEST(CaptureDataManager, CamerasAndLidarAreLinedUpAndExportedAsTheyCame)
{
    Sensors sensors;
    sensors.Run();
    CaptureDataManager manager;
    manager.Init();
    QSignalSpy finished(&manager, &CaptureDataManager::SendCaptureFinished);
    QSignalSpy status(&manager, &CaptureDataManager::SendCaptureStatusUpdate);
    ASSERT_TRUE(Capture(manager, 3, finished));
    sensors.Stop();
    EXPECT_EQ(manager.GetStatus(), CaptrueStatus::Success);
    EXPECT_EQ(status.last().at(0).value<CaptrueStatus>(), CaptrueStatus::Success);
    // The first selected camera leads, though the lidar was chosen first.
    EXPECT_EQ(manager.GetReferenceTopic(), "/front_avFrame");
    const auto synced = manager.GetSyncCaptureDataHeaderStamps();
    ASSERT_EQ(synced.at("/front_avFrame").size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(synced.at("/rear_avFrame")[i] - synced.at("/front_avFrame")[i], ros::Duration(0.004));
        EXPECT_EQ(synced.at("/lidar_points")[i] - synced.at("/front_avFrame")[i], ros::Duration(0.021));
    }
    const auto previews = manager.GetImages("/front_avFrame", synced.at("/front_avFrame"));
    ASSERT_EQ(previews.size(), 3u);
    EXPECT_EQ(previews.begin()->second.size(), QSize(width, height));

    test_support::TempDir work;
    QSignalSpy progress(&manager, &CaptureDataManager::SendSaveDataStatusUpdate);
    const QString exported = manager.SaveData({"/front_avFrame", "/rear_avFrame", "/lidar_points"},
                                              QString::fromStdString(work / "exports"), "MultiFrame");
    ASSERT_FALSE(exported.isEmpty());
    ASSERT_TRUE(test_support::ServeEvents([&] { return !manager.IsSaving(); }, std::chrono::seconds(20)));
    EXPECT_EQ(progress.last().at(0).toInt(), 3);
    EXPECT_EQ(progress.last().at(1).toInt(), 3);
    const auto files = Files(exported.toStdString());
    ASSERT_EQ(files.size(), 9u);
    const std::string firstFront = "front-" + std::to_string(synced.at("/front_avFrame")[0].sec) + "-" +
                                   std::to_string(synced.at("/front_avFrame")[0].nsec) + ".png";
    const std::filesystem::path png = std::filesystem::path(exported.toStdString()) / "front" / firstFront;
    ASSERT_TRUE(std::filesystem::exists(png)) << png;
    // The picture as it was sent: red on the left, blue on the right.
    const QImage image(QString::fromStdString(png.string()));
    ASSERT_EQ(image.size(), QSize(width, height));
    EXPECT_EQ(image.pixelColor(5, 5), QColor(255, 0, 0));
    EXPECT_EQ(image.pixelColor(width - 5, 5), QColor(0, 0, 255));
    // The cloud reloads with its fields and points.
    const auto pcd = std::find_if(files.begin(), files.end(),
                                  [](const std::filesystem::path& file) { return file.extension() == ".pcd"; });
    ASSERT_NE(pcd, files.end());
    EXPECT_EQ(pcd->parent_path().filename(), "lidar_points");
    pcl::PCLPointCloud2 reloaded;
    ASSERT_EQ(pcl::io::loadPCDFile(pcd->string(), reloaded), 0);
    EXPECT_EQ(reloaded.width * reloaded.height, cloudPoints);
    ASSERT_EQ(reloaded.fields.size(), 4u);
    EXPECT_EQ(reloaded.fields[3].name, "intensity");
    float lastX = 0;
    std::memcpy(&lastX, &reloaded.data[(cloudPoints - 1) * reloaded.point_step + reloaded.fields[0].offset],
                sizeof(float));
    EXPECT_FLOAT_EQ(lastX, (cloudPoints - 1) * 0.01F);
}

TEST(CaptureDataManager, AStalledTopicTimesOutAndAnUnpublishedOneIsASubscriptionError)
{
    Sensors sensors;
    CaptureDataManager manager;
    manager.Init();
    QSignalSpy finished(&manager, &CaptureDataManager::SendCaptureFinished);
    QSignalSpy status(&manager, &CaptureDataManager::SendCaptureStatusUpdate);
    ASSERT_TRUE(test_support::WaitFor([&] { return manager.GetTopicList("custom/AvFrame").size() >= 2; },
                                      std::chrono::seconds(10)));
    // Advertised, but nothing comes: timed out after 1.5 to 3 s.
    const auto begin = std::chrono::steady_clock::now();
    manager.StartCapture(selection, 5);
    ASSERT_TRUE(test_support::ServeEvents([&] { return finished.count() > 0; }, std::chrono::seconds(10)));
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    EXPECT_EQ(manager.GetStatus(), CaptrueStatus::TimedOut);
    EXPECT_GE(seconds, 1.4);
    EXPECT_LE(seconds, 3.5);

    status.clear();
    manager.StartCapture({{"/nobody_avFrame", "custom/AvFrame"}}, 1);
    ASSERT_EQ(status.count(), 1);
    EXPECT_EQ(status.first().at(0).value<CaptrueStatus>(), CaptrueStatus::SubscriptionError);
    EXPECT_EQ(status.first().at(1).toInt(), -1);
}

TEST(CaptureDataManager, RepeatedStampsStopTheExportAndAFolderThatCannotBeMadeIsReported)
{
    Sensors sensors;
    sensors.Run(true);
    CaptureDataManager manager;
    manager.Init();
    QSignalSpy finished(&manager, &CaptureDataManager::SendCaptureFinished);
    ASSERT_TRUE(Capture(manager, 2, finished));
    sensors.Stop();
    test_support::TempDir work;
    QSignalSpy conflicts(&manager, &CaptureDataManager::SendSaveConflict);
    manager.SaveData({"/front_avFrame"}, QString::fromStdString(work / "exports"), "MultiFrame");
    ASSERT_TRUE(test_support::ServeEvents([&] { return !manager.IsSaving(); }, std::chrono::seconds(10)));
    ASSERT_EQ(conflicts.count(), 1);
    EXPECT_EQ(conflicts.first().at(0).value<std::string>(), "/front_avFrame");

    std::ofstream(work / "a_file") << "not a folder";
    QSignalSpy mkdirFailed(&manager, &CaptureDataManager::SendMkdirFailed);
    EXPECT_TRUE(manager.SaveData({"/front_avFrame"}, QString::fromStdString(work / "a_file/exports"), "x").isEmpty());
    ASSERT_EQ(mkdirFailed.count(), 1);
    EXPECT_EQ(mkdirFailed.first().at(0).toString().toStdString(), work / "a_file/exports");
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    return test_support::WithRosMaster(argc, argv, "test_capture", [] { return RUN_ALL_TESTS(); });
}
