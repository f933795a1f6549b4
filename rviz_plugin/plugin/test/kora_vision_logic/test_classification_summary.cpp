// Row summaries of the classification settings: what a row shows, and what a typed summary may change.
#include "kora_vision_logic/classification_summary.h"

#include <gtest/gtest.h>

using rviz_plugin::ClassificationSummary;

TEST(ClassificationSummary, EachKindShowsItsFields)
{
    ClassificationSummary row;
    row.value = 5;
    row.text = "car";
    row.isSolid = false;
    row.lineThickness = 3;
    EXPECT_EQ(row.Format(ClassificationSummary::Labelled), "5, car");
    EXPECT_EQ(row.Format(ClassificationSummary::Line), "5, dash, 3");
    EXPECT_EQ(row.Format(ClassificationSummary::Segmentation), "5");
}

TEST(ClassificationSummary, TypedSummariesChangeTheRowOrNothing)
{
    ClassificationSummary row;
    row.value = 5;
    row.text = "car";
    ASSERT_TRUE(row.Parse(ClassificationSummary::Labelled, " 7 , sedan, blue "));
    EXPECT_EQ(row.value, 7U);
    EXPECT_EQ(row.text, "sedan, blue");

    const ClassificationSummary before = row;
    for (const char* typed : {"x, car", "256, car", "-1, car", "7", ""}) {
        EXPECT_FALSE(row.Parse(ClassificationSummary::Labelled, typed)) << typed;
        EXPECT_EQ(row.value, before.value);
        EXPECT_EQ(row.text, before.text);
    }

    ASSERT_TRUE(row.Parse(ClassificationSummary::Line, "1, dash, 4"));
    EXPECT_FALSE(row.isSolid);
    EXPECT_EQ(row.lineThickness, 4);
    for (const char* typed : {"1, dotted, 4", "1, solid, 0", "1, solid, 101", "1, solid", "1, solid, 2, 3"}) {
        EXPECT_FALSE(row.Parse(ClassificationSummary::Line, typed)) << typed;
        EXPECT_EQ(row.lineThickness, 4);
        EXPECT_FALSE(row.isSolid);
    }

    EXPECT_TRUE(row.Parse(ClassificationSummary::Segmentation, "255"));
    EXPECT_EQ(row.value, 255U);
    EXPECT_FALSE(row.Parse(ClassificationSummary::Segmentation, "3, x"));
    EXPECT_EQ(row.value, 255U);
}

TEST(ClassificationSummary, LongTextsAreCutToTwentyCharacters)
{
    EXPECT_EQ(rviz_plugin::TrimClassificationText(QString(20, 'a')), QString(20, 'a'));
    EXPECT_EQ(rviz_plugin::TrimClassificationText(QString(21, 'a')), QString(20, 'a') + "...");
    ClassificationSummary row;
    ASSERT_TRUE(row.Parse(ClassificationSummary::Labelled, "1, " + QString(30, 'b')));
    EXPECT_EQ(row.text, QString(20, 'b') + "...");
}
