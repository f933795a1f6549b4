#include "../support/temp_dir.h"
#include "foundation/heap_settings.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <cstdlib>
#include <memory>
#include <regex>
#include <string>

// The C library's heap figures only move with its own allocator; under the sanitizers theirs serves every
// block, so the accounting check runs in the plain build (label allocator) and skips itself there.
TEST(HeapFigures, LargeBlocksCountOnTheirOwnAndNotAsInUse)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the sanitizer's allocator serves the blocks";
#endif
    rviz_plugin::ReturnLargeBuffersToTheSystem();
    const rviz_plugin::HeapFigures before = rviz_plugin::CurrentHeapFigures();
    auto large = std::make_unique<char[]>(4 * rviz_plugin::largeBlockBytes);
    large[0] = 1;
    const rviz_plugin::HeapFigures during = rviz_plugin::CurrentHeapFigures();
    EXPECT_GE(during.ownBlocks, before.ownBlocks + 4 * rviz_plugin::largeBlockBytes);
    EXPECT_LT(during.inUse, before.inUse + rviz_plugin::largeBlockBytes);

    // Below the threshold a block comes from the shared heap.
    auto small = std::make_unique<char[]>(rviz_plugin::largeBlockBytes / 2);
    small[0] = 1;
    const rviz_plugin::HeapFigures withSmall = rviz_plugin::CurrentHeapFigures();
    EXPECT_GE(withSmall.inUse, during.inUse + rviz_plugin::largeBlockBytes / 2);
    EXPECT_LT(withSmall.ownBlocks, during.ownBlocks + rviz_plugin::largeBlockBytes / 2);

    large.reset();
    EXPECT_LE(rviz_plugin::CurrentHeapFigures().ownBlocks, before.ownBlocks);
}

TEST(HeapFigures, TheFileGetsALineAtOnceAndOncePerProcess)
{
    test_support::TempDir directory;
    const std::string file = (directory.Path() / "heap.csv").string();
    ASSERT_EQ(setenv(rviz_plugin::heapFiguresVariable, file.c_str(), 1), 0);
    int argc = 1;
    char name[] = "test";
    char* argv[] = {name, nullptr};
    QCoreApplication application(argc, argv);
    rviz_plugin::WriteHeapFiguresWhenAsked();
    rviz_plugin::WriteHeapFiguresWhenAsked();
    const std::string text = test_support::ReadFile(file);
    EXPECT_TRUE(std::regex_match(text, std::regex(R"(0,\d+\.\d,\d+\.\d,\d+\.\d\n)"))) << text;
    unsetenv(rviz_plugin::heapFiguresVariable);
}
