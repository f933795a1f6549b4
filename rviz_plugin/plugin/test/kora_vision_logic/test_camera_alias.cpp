// Camera alias rules: keys, file names, the byte length and the duplicate book-keeping.
#include "kora_vision_logic/camera_alias.h"

#include <gtest/gtest.h>

namespace rviz_plugin {
namespace {

TEST(CameraAlias, KeysTopicsAndFileNames)
{
    EXPECT_EQ(AliasKey("/camera_front"), "camera_front");
    EXPECT_EQ(AliasKey("/rig/front"), "rig/front");  // a nested topic keeps its inner "/"
    EXPECT_EQ(AliasKey("rig/front"), "rig/front");
    EXPECT_EQ(GetRealTopic("abc"), "abc");
    EXPECT_EQ(GetRealTopic("/rig/front"), "front");
    EXPECT_EQ(GetRealTopic("/rig/"), "");
    EXPECT_EQ(GetCameraFileName("/a/b"), "a-b");
    EXPECT_EQ(GetCameraFileName("//a"), "--a");
    EXPECT_EQ(GetCameraFileName("a/b/c"), "a-b-c");
    EXPECT_EQ(GetCameraFileName("/"), "");
}

TEST(CameraAlias, LengthCountsUtf8Bytes)
{
    EXPECT_EQ(VerifyLengthValidity(std::string(30, 'a')), "");
    EXPECT_EQ(VerifyLengthValidity(std::string(31, 'a')), "A custom name cannot exceed 30 characters.");
    // 15 two-byte characters are 30 bytes; one more ASCII character makes 31.
    std::string accented;
    for (int i = 0; i < 15; ++i) {
        accented += "\xC3\xA9";
    }
    EXPECT_EQ(VerifyLengthValidity(accented), "");
    EXPECT_EQ(VerifyLengthValidity(accented + "x"), lengthWarning);
    EXPECT_EQ(VerifyLengthValidity(""), "");
}

// What the table does on each edit: record, remove, refresh.
void Edit(int row, const std::string& name, RowWarnings& warnings, NameRows& duplicates)
{
    RecordCurrentItemDuplicateName(row, name, warnings, duplicates);
    RemoveCorrespondItemDuplicateName(row, name, warnings, duplicates);
    RefreshDuplicateNameRecord(warnings, duplicates);
}

TEST(CameraAlias, DuplicatesWarnEveryRowAndClearWhenOneIsLeft)
{
    RowWarnings warnings;
    NameRows duplicates;
    Edit(0, "Front", warnings, duplicates);
    Edit(1, "Rear", warnings, duplicates);
    EXPECT_TRUE(warnings.empty());
    Edit(1, "Front", warnings, duplicates);
    EXPECT_EQ(warnings, (RowWarnings{{0, duplicateWarning}, {1, duplicateWarning}}));
    Edit(2, "Front", warnings, duplicates);
    EXPECT_EQ(warnings.size(), 3U);
    Edit(2, "Side", warnings, duplicates);
    EXPECT_EQ(warnings.size(), 2U);
    Edit(1, "", warnings, duplicates);  // cleared: row 0 is alone again
    EXPECT_TRUE(warnings.empty());
    EXPECT_EQ(duplicates.count("Rear"), 0U);  // empty sets go
    // A length warning is not taken away by the duplicate book-keeping.
    warnings[5] = lengthWarning;
    Edit(5, "Unique", warnings, duplicates);
    EXPECT_EQ(warnings[5], lengthWarning);
}

} // namespace
} // namespace rviz_plugin
