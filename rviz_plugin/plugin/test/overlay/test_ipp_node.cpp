// The overlay node with its real thread: which pictures go out with which perception data, queue
// limits and statuses, and that a node waiting for a silent input sleeps.
#include "frames/rgba_texture_data.h"
#include "frames/yuv_texture_data.h"
#include "overlay/canvas_pool.h"
#include "overlay/ipp_node.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>

extern "C" {
#include <libavutil/frame.h>
}

#include <sys/resource.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

using namespace rviz_plugin;
using namespace std::chrono_literals;

namespace {

// Stands in for the renderer: keeps what the overlay thread hands over.
class RecordingRender : public ImageTextureSink {
public:
    struct Frame {
        ros::Time stamp;
        std::shared_ptr<RgbaTextureData> canvas;
    };

    void UpdateImageTexture(const std::shared_ptr<YuvTextureData>& yuv,
                            const std::shared_ptr<RgbaTextureData>& rgba) override
    {
        std::lock_guard<std::mutex> lock(mutex);
        frames.push_back({yuv->GetFrameHeader().stamp, rgba});
        arrived.notify_all();
    }

    bool WaitForFrames(std::size_t count, std::chrono::milliseconds timeout = 3000ms)
    {
        std::unique_lock<std::mutex> lock(mutex);
        return arrived.wait_for(lock, timeout, [&]() { return frames.size() >= count; });
    }

    std::vector<Frame> Frames()
    {
        std::lock_guard<std::mutex> lock(mutex);
        return frames;
    }

private:
    std::mutex mutex;
    std::condition_variable arrived;
    std::vector<Frame> frames;
};

// A stamp at a real-world value, where double seconds lose the nanoseconds.
const ros::Time base(1700000000, 123456789);

ros::Time At(int64_t nanoseconds)
{
    return base + ros::Duration().fromNSec(nanoseconds);
}

std::shared_ptr<YuvTextureData> Picture(const ros::Time& stamp)
{
    auto picture = std::make_shared<YuvTextureData>();
    picture->GetAvFrame()->width = 320;
    picture->GetAvFrame()->height = 180;
    std_msgs::Header header;
    header.stamp = stamp;
    header.frame_id = "camera_front";
    picture->SetFrameHeader(header);
    return picture;
}

boost::shared_ptr<const custom::ObjectArray> ObjectsAt(const ros::Time& stamp)
{
    auto objects = boost::make_shared<custom::ObjectArray>();
    objects->header.stamp = stamp;
    custom::Object object;
    object.boxImage.x = 50;
    object.boxImage.y = 60;
    object.boxImage.width = 100;
    object.boxImage.height = 50;
    object.classification = 5;
    objects->objectList.push_back(object);
    return objects;
}

template <typename Predicate>
bool WaitUntil(Predicate predicate, std::chrono::milliseconds timeout = 3000ms)
{
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (!predicate()) {
        if (std::chrono::steady_clock::now() > deadline) {
            return false;
        }
        std::this_thread::sleep_for(1ms);
    }
    return true;
}

double ProcessCpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

class IppNodeTest : public testing::Test {
protected:
    void SetUp() override
    {
        QObject::connect(node.get(), &IppNode::DetectedDiscardImageData, [this]() { ++discardedImages; });
        QObject::connect(node.get(), &IppNode::DetectedDiscardPerceptionData, [this]() { ++discardedPerception; });
        QObject::connect(node.get(), &IppNode::ImageQueueStatusChanged,
                         [this](rviz::StatusProperty::Level, const QString&, const QString& text) {
                             imageQueueStatus = text;
                         });
        node->Initialize();
    }

    void Configure(bool objectsEnabled, unsigned queueSize = 30)
    {
        {
            std::lock_guard<std::mutex> lock(parameters->mutex);
            parameters->config.messages[Objects].enabled = objectsEnabled;
            parameters->config.queueSize = queueSize;
            parameters->configChanged = true;
        }
        node->RefreshConfig();
    }

    RecordingRender* Render() { return &render; }

    std::unique_ptr<IppParameters> parameters = std::make_unique<IppParameters>();
    RecordingRender render;
    std::unique_ptr<IppNode> node = std::make_unique<IppNode>(parameters, &render);
    std::atomic<int> discardedImages{0};
    std::atomic<int> discardedPerception{0};
    QString imageQueueStatus;
};

} // namespace

TEST_F(IppNodeTest, WithOnlyTheImageEveryPictureGoesOutInOrderWithoutCanvas)
{
    for (int index = 0; index < 5; ++index) {
        node->SaveImageToCache(Picture(At(index * 33000000LL)));
    }
    ASSERT_TRUE(Render()->WaitForFrames(5));
    const auto frames = Render()->Frames();
    for (int index = 0; index < 5; ++index) {
        EXPECT_EQ(frames[static_cast<std::size_t>(index)].stamp, At(index * 33000000LL));
        EXPECT_EQ(frames[static_cast<std::size_t>(index)].canvas, nullptr);
    }
    EXPECT_EQ(imageQueueStatus, "Queue is normal.");
}

TEST_F(IppNodeTest, StampsExactlyTenMillisecondsApartMatchAndTheCanvasCarriesTheBox)
{
    Configure(true);
    node->OnSendObjectArray(ObjectsAt(At(10000000)));
    node->SaveImageToCache(Picture(At(0)));
    ASSERT_TRUE(Render()->WaitForFrames(1));
    const auto frame = Render()->Frames().front();
    EXPECT_EQ(frame.stamp, At(0));
    ASSERT_NE(frame.canvas, nullptr);
    const sensor_msgs::Image& canvas = *frame.canvas->GetSensorImage();
    EXPECT_EQ(canvas.width, 320U);
    EXPECT_EQ(canvas.height, 180U);
    EXPECT_EQ(canvas.encoding, "bgra8");
    // Left edge of the box, in the colour of "car" (243, 142, 0), opaque; the inside transparent.
    const auto pixel = [&canvas](int x, int y) { return &canvas.data[static_cast<std::size_t>(y) * canvas.step + 4 * x]; };
    EXPECT_NEAR(pixel(50, 85)[0], 0, 12);
    EXPECT_NEAR(pixel(50, 85)[1], 142, 12);
    EXPECT_NEAR(pixel(50, 85)[2], 243, 12);
    EXPECT_EQ(pixel(50, 85)[3], 255);
    EXPECT_EQ(pixel(100, 85)[3], 0);
    EXPECT_EQ(discardedImages, 0);
    EXPECT_EQ(discardedPerception, 0);
}

TEST_F(IppNodeTest, OneNanosecondMoreThanTenMillisecondsDoesNotMatch)
{
    Configure(true);
    node->OnSendObjectArray(ObjectsAt(At(10000001)));
    node->SaveImageToCache(Picture(At(0)));
    ASSERT_TRUE(WaitUntil([this]() { return discardedImages == 1; }));
    EXPECT_TRUE(Render()->Frames().empty());
    // The next picture at the perception's stamp goes out with it.
    node->SaveImageToCache(Picture(At(10000001)));
    ASSERT_TRUE(Render()->WaitForFrames(1));
    EXPECT_EQ(Render()->Frames().front().stamp, At(10000001));
    EXPECT_NE(Render()->Frames().front().canvas, nullptr);
    EXPECT_EQ(discardedPerception, 0);
}

TEST_F(IppNodeTest, PerceptionOlderThanEveryPictureIsDiscardedAndThePicturesWait)
{
    Configure(true);
    node->OnSendObjectArray(ObjectsAt(At(-50000000)));
    node->SaveImageToCache(Picture(At(0)));
    node->SaveImageToCache(Picture(At(33000000)));
    ASSERT_TRUE(WaitUntil([this]() { return discardedPerception == 1; }));
    std::this_thread::sleep_for(50ms);
    EXPECT_TRUE(Render()->Frames().empty());
    EXPECT_EQ(discardedImages, 0);
    node->OnSendObjectArray(ObjectsAt(At(33000000)));
    ASSERT_TRUE(Render()->WaitForFrames(1));
    EXPECT_EQ(Render()->Frames().front().stamp, At(33000000));
    EXPECT_EQ(discardedImages, 1);
}

TEST_F(IppNodeTest, ASilentInputFillsTheImageQueueWhileTheThreadSleeps)
{
    Configure(true);
    for (int index = 0; index < 40; ++index) {
        node->SaveImageToCache(Picture(At(index * 33000000LL)));
    }
    EXPECT_EQ(node->GetQueueSizes()[Image], 30U);
    EXPECT_EQ(imageQueueStatus, "Queue full.");
    std::this_thread::sleep_for(50ms);
    const double before = ProcessCpuSeconds();
    std::this_thread::sleep_for(1s);
    EXPECT_LT(ProcessCpuSeconds() - before, 0.05) << "the overlay thread spins while an input is silent";
    EXPECT_TRUE(Render()->Frames().empty());

    // Switching the input off clears its queue and the waiting pictures go out.
    {
        std::lock_guard<std::mutex> lock(parameters->mutex);
        parameters->config.messages[Objects].enabled = false;
        parameters->configChanged = true;
    }
    node->OnClearQueue(Objects);
    ASSERT_TRUE(Render()->WaitForFrames(30));
    EXPECT_EQ(Render()->Frames().front().stamp, At(10 * 33000000LL));
}

TEST_F(IppNodeTest, QueueLimitPopsTheOldestAndAStreamGoingBackStartsAnew)
{
    Configure(true, 5);
    for (int index = 0; index < 4; ++index) {
        node->OnSendObjectArray(ObjectsAt(At(index)));
    }
    EXPECT_EQ(node->GetQueueSizes()[Objects], 4U);
    QString objectStatus;
    QObject::connect(node.get(), &IppNode::ObjectArrayQueueStatusChanged,
                     [&objectStatus](rviz::StatusProperty::Level, const QString& key, const QString& text) {
                         EXPECT_EQ(key, "Queue Status");
                         objectStatus = text;
                     });
    node->OnSendObjectArray(ObjectsAt(At(4)));
    EXPECT_EQ(objectStatus, "Queue full.");
    node->OnSendObjectArray(ObjectsAt(At(5)));
    EXPECT_EQ(node->GetQueueSizes()[Objects], 5U);
    // A restarted bag: earlier stamps empty the queue once, then it fills again.
    node->OnSendObjectArray(ObjectsAt(At(-100)));
    EXPECT_EQ(node->GetQueueSizes()[Objects], 1U);
    EXPECT_EQ(objectStatus, "Queue is normal.");
    node->OnSendObjectArray(ObjectsAt(At(-99)));
    EXPECT_EQ(node->GetQueueSizes()[Objects], 2U);
}

TEST_F(IppNodeTest, DisabledDisplayQueuesNoPictures)
{
    node->DisableDisplay();
    node->SaveImageToCache(Picture(At(0)));
    EXPECT_EQ(node->GetQueueSizes()[Image], 0U);
    node->EnableDisplay();
    node->SaveImageToCache(Picture(At(1)));
    ASSERT_TRUE(Render()->WaitForFrames(1));
}

TEST_F(IppNodeTest, BadPerceptionDataNeverEndsTheOverlayThread)
{
    {
        std::lock_guard<std::mutex> lock(parameters->mutex);
        parameters->config.messages[SemanticSegmentation].enabled = true;
        parameters->configChanged = true;
    }
    node->RefreshConfig();
    for (int index = 0; index < 3; ++index) {
        auto segmentation = boost::make_shared<orsa_msgs::SemanticSegmentation>();
        segmentation->header.stamp = At(index);
        segmentation->width = 64;
        segmentation->height = 36;
        segmentation->classification.assign(index == 1 ? 10 : 64 * 36, 1);  // the second is short
        segmentation->segmentationReservedByte = index == 0 ? 200 : 0;    // the first has no interpolation
        node->OnSendSemanticSegmentation(segmentation);
        node->SaveImageToCache(Picture(At(index)));
        ASSERT_TRUE(Render()->WaitForFrames(static_cast<std::size_t>(index) + 1));
    }
    const auto frames = Render()->Frames();
    const sensor_msgs::Image& last = *frames.back().canvas->GetSensorImage();
    EXPECT_EQ(last.data[3], 102) << "the good mask is painted";
    EXPECT_EQ(frames.front().canvas->GetSensorImage()->data[3], 0) << "the refused mask is not";
}

TEST(CanvasPool, CanvasesComeBackWithTheirPixelsUpToTheKeptNumber)
{
    auto pool = std::make_unique<CanvasPool>(2);
    auto first = pool->Take(4, 2);
    EXPECT_EQ(first->encoding, "bgra8");
    EXPECT_EQ(first->step, 16U);
    ASSERT_EQ(first->data.size(), 32U);
    first->data[5] = 77;
    const uint8_t* pixels = first->data.data();
    first.reset();
    EXPECT_EQ(pool->Idle(), 1U);
    // The same canvas again, its pixels as they were: the painter decides whether to clear it.
    auto again = pool->Take(4, 2);
    EXPECT_EQ(again->data.data(), pixels);
    EXPECT_EQ(again->data[5], 77);
    EXPECT_EQ(pool->Idle(), 0U);
    // Another size reuses the storage at the new size.
    again.reset();
    auto larger = pool->Take(8, 4);
    EXPECT_EQ(larger->data.size(), 128U);
    EXPECT_EQ(larger->width, 8U);
    // Three in use, two kept when they come back.
    auto second = pool->Take(8, 4);
    auto third = pool->Take(8, 4);
    larger.reset();
    second.reset();
    third.reset();
    EXPECT_EQ(pool->Idle(), 2U);
    // A canvas held by the renderer outlives the node's pool, and lets go of it on another thread.
    auto held = pool->Take(8, 4);
    pool.reset();
    std::thread([canvas = std::move(held)]() mutable { canvas.reset(); }).join();
}
