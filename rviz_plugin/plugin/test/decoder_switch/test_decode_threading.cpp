// The choice between one thread and frame threads of one stream's software decoder.
#include "decoder_switch/decode_threading.h"

#include <gtest/gtest.h>

using rviz_plugin::DecodeThreading;

TEST(DecodeThreading, FrameThreadsFromTheKeyFrameAfterTheQueueFellBehind)
{
    DecodeThreading threading({3, 5});
    EXPECT_FALSE(threading.FrameThreads());
    // Keeping up: one or two units waiting now and then changes nothing, key frames included.
    for (std::size_t waiting : {0, 2, 1, 0}) {
        EXPECT_FALSE(threading.Next(waiting, false));
    }
    EXPECT_FALSE(threading.Next(2, true));
    EXPECT_FALSE(threading.FrameThreads());
    // Three waiting: behind, but the decoder only changes at the next key frame.
    EXPECT_FALSE(threading.Next(3, false));
    EXPECT_FALSE(threading.Next(0, false));
    EXPECT_FALSE(threading.FrameThreads());
    EXPECT_TRUE(threading.Next(0, true));
    EXPECT_TRUE(threading.FrameThreads());
    // Being behind on frame threads changes nothing.
    EXPECT_FALSE(threading.Next(10, true));
    EXPECT_TRUE(threading.FrameThreads());
}

TEST(DecodeThreading, OneThreadAgainAfterALongCalm)
{
    DecodeThreading threading({3, 5});
    threading.Next(4, false);
    ASSERT_TRUE(threading.Next(0, true));
    // Four calm units and a key frame: not yet. A unit waiting starts the count again.
    for (int unit = 0; unit < 3; ++unit) {
        EXPECT_FALSE(threading.Next(0, false));
    }
    EXPECT_FALSE(threading.Next(1, false));
    for (int unit = 0; unit < 4; ++unit) {
        EXPECT_FALSE(threading.Next(0, false));
    }
    EXPECT_FALSE(threading.Next(0, false));
    EXPECT_TRUE(threading.FrameThreads());
    // Five calm units reached: back at the key frame.
    EXPECT_TRUE(threading.Next(0, true));
    EXPECT_FALSE(threading.FrameThreads());
    // Having been behind before the change does not carry over.
    EXPECT_FALSE(threading.Next(0, true));
    EXPECT_FALSE(threading.FrameThreads());
}

TEST(DecodeThreading, ResetStartsOnOneThread)
{
    DecodeThreading threading;
    threading.Next(DecodeThreading::Settings().behindQueueLength, false);
    ASSERT_TRUE(threading.Next(0, true));
    threading.Reset();
    EXPECT_FALSE(threading.FrameThreads());
    EXPECT_FALSE(threading.Next(0, true));
}
