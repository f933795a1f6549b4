// The table's display copy on decoded marker arrays, the texts of cells, and where docks go.
#include "../support/qt_print.h"
#include "../support/ros_test_main.h"
#include "msg_view_models/dock_layout.h"
#include "msg_view_models/table_model.h"
#include "msg_viewer_panel/msg_record.h"

#include <visualization_msgs/MarkerArray.h>

#include <gtest/gtest.h>

#include <QCoreApplication>

using namespace rviz_plugin;
using test_support::Serialize;

namespace {

struct MarkerRow {
    int id;
    std::string ns;
    float r, g, b, a;
};

RosMsgParser::ShapeShifter Markers(const std::vector<MarkerRow>& rows)
{
    visualization_msgs::MarkerArray array;
    for (const MarkerRow& row : rows) {
        visualization_msgs::Marker marker;
        marker.id = row.id;
        marker.ns = row.ns;
        marker.color.r = row.r;
        marker.color.g = row.g;
        marker.color.b = row.b;
        marker.color.a = row.a;
        array.markers.push_back(marker);
    }
    std::vector<uint8_t> bytes = Serialize(array);
    RosMsgParser::ShapeShifter shape;
    shape.morph("*", "visualization_msgs/MarkerArray",
                ros::message_traits::Definition<visualization_msgs::MarkerArray>::value());
    ros::serialization::IStream in(bytes.data(), static_cast<uint32_t>(bytes.size()));
    shape.read(in);
    return shape;
}

class Table : public testing::Test {
protected:
    void Select(const std::vector<std::string>& fields)
    {
        MsgRecord::FieldTypePairs pairs;
        for (const std::string& field : fields) {
            const bool color = field.rfind("color/", 0) == 0;
            const bool number = field.find("/id") != std::string::npos;
            pairs.emplace_back("/mk/markers/" + field,
                               color ? "[float32](color)" : (number ? "[int32]" : "[string]"));
        }
        record.UpdateSelectionDataFromDefinition(true, "/mk/markers", {{"/mk", pairs}});
        record.UpdateSelection();
    }
    void Feed(const std::vector<MarkerRow>& rows)
    {
        record.GetSubscriber().TopicCallbackDisplay(Markers(rows), "/mk");
        model.UpdateDisplayData();
    }
    QVariant Cell(int row, int column, int role = Qt::DisplayRole)
    {
        return model.data(model.index(row, column), role);
    }
    QStringList Column(int column)
    {
        QStringList cells;
        for (int row = 0; row < model.rowCount(); ++row) {
            cells << Cell(row, column).toString();
        }
        return cells;
    }

    MsgRecord record;
    TableModel model{record, "/mk"};
};

} // namespace

TEST_F(Table, FourColourChannelsBecomeOneColumnShownByItsBackground)
{
    Select({"id", "color/r", "color/g", "color/b", "color/a", "ns"});
    Feed({{1, "a", 1.0F, 0.5F, 0.0F, 1.0F}, {2, "b", 0.0F, 0.0F, 1.0F, 0.5F}});
    EXPECT_EQ(model.GetVisibleTitles(), (QVector<QString>{"/markers/id", "/markers/color", "/markers/ns"}));
    EXPECT_EQ(model.GetTitleType("/markers/color"), "[COLOR]/markers/color");
    ASSERT_EQ(model.columnCount(), 3);
    EXPECT_FALSE(Cell(0, 1).isValid());
    EXPECT_EQ(Cell(0, 1, Qt::ToolTipRole).toString(), "1, 0.5, 0, 1");
    EXPECT_EQ(Cell(1, 1, Qt::BackgroundRole).value<QColor>(), QColor(0, 0, 255, 127));
    EXPECT_EQ(Cell(0, 0, Qt::BackgroundRole).value<QColor>(), QColor("white"));
    EXPECT_EQ(Cell(0, 0, Qt::ForegroundRole).value<QColor>(), QColor(Qt::black));

    // Three channels of four stay three plain columns.
    Select({"id", "color/r", "color/g", "color/b"});
    Feed({{1, "a", 1.0F, 0.5F, 0.0F, 1.0F}});
    EXPECT_EQ(model.GetVisibleTitles(),
              (QVector<QString>{"/markers/id", "/markers/color/r", "/markers/color/g", "/markers/color/b"}));
    EXPECT_EQ(Cell(0, 2).toString(), "0.5");
}

TEST_F(Table, CellsNumbersTextsAndConstants)
{
    Select({"id", "ns"});
    Feed({{0, "abc", 0, 0, 0, 0}, {3, "1.5", 0, 0, 0, 0}, {4, std::string(3100, 'x'), 0, 0, 0, 0}, {7, "", 0, 0, 0, 0}});
    EXPECT_EQ(Cell(0, 0), QVariant(0));
    EXPECT_EQ(Cell(1, 0), QVariant(3));
    EXPECT_EQ(Cell(0, 1).toString(), "abc");
    EXPECT_EQ(Cell(1, 1).toString(), "1.5");
    EXPECT_EQ(Cell(2, 1).toString().size(), 3000);
    EXPECT_EQ(Cell(2, 1, Qt::ToolTipRole).toString().count('\n'), 29);
    EXPECT_EQ(Cell(3, 1).toString(), "-");
    EXPECT_EQ(Cell(3, 1, Qt::BackgroundRole).value<QColor>(), QColor("white"));
    // The message's constants, sorted by number; chosen ones name the numbers of their column.
    const ConstantList constants = model.GetConvertConstants("/mk");
    ASSERT_GE(constants.size(), 12);
    EXPECT_EQ(constants.first(), qMakePair(0, QString("ARROW")));
    model.ConvertConstants(0, {{3, "FOO"}});
    EXPECT_EQ(Cell(1, 0).toString(), "FOO");
    EXPECT_EQ(Cell(2, 0).toString(), "4");
    EXPECT_EQ(model.GetConvertConstantSelected(0).size(), 1);
    model.SetBackgroundColor("#0F0F0F");
    EXPECT_EQ(Cell(0, 1, Qt::ForegroundRole).value<QColor>(), QColor(Qt::white));
}

TEST_F(Table, SortingAndBlankLinesForGaps)
{
    Select({"id", "ns"});
    Feed({{2, "3", 0, 0, 0, 0}, {5, "", 0, 0, 0, 0}, {1, "1", 0, 0, 0, 0}});
    model.SetIsShowBlankData(true, 0, true);
    EXPECT_EQ(Column(0), (QStringList{"1", "2", "-", "-", "5"}));
    model.SetIsShowBlankData(true, 0, false);
    EXPECT_EQ(Column(0), (QStringList{"5", "-", "-", "2", "1"}));
    // "-" cells go last, either way.
    model.SortByColumn(1, false);
    EXPECT_EQ(Column(1), (QStringList{"3", "1", "-"}));
    model.SortByColumn(1, true);
    EXPECT_EQ(Column(1), (QStringList{"1", "3", "-"}));
    EXPECT_EQ(model.GetOperateStatus(), TableModel::SortAscending);
    EXPECT_EQ(model.GetOperatedColumn(), 1);
    // A sort stands over new messages.
    Feed({{9, "8", 0, 0, 0, 0}, {4, "2", 0, 0, 0, 0}});
    EXPECT_EQ(Column(0), (QStringList{"4", "9"}));
    // A gap of a million makes the rows that can be shown, not a million.
    model.SetIsShowBlankData(true, 0, true);
    Feed({{-500000, "", 0, 0, 0, 0}, {500000, "", 0, 0, 0, 0}});
    EXPECT_EQ(model.rowCount(), 100);
    EXPECT_EQ(Cell(0, 0), QVariant(-500000));
}

TEST_F(Table, MovedAndHiddenColumnsFollowTheUserAndRowsStopAtAHundred)
{
    Select({"id", "ns", "color/r"});
    Feed({{1, "a", 0.25F, 0, 0, 0}});
    model.MoveColumnData(0, 3, false);  // dropped on the right edge: id goes last
    EXPECT_EQ(model.GetVisibleTitles(), (QVector<QString>{"/markers/ns", "/markers/color/r", "/markers/id"}));
    model.MoveColumnData(2, 0, false);
    EXPECT_EQ(model.GetVisibleTitles(), (QVector<QString>{"/markers/id", "/markers/ns", "/markers/color/r"}));
    model.SortByColumn(0, true);
    model.CancelColumnOperation(0);  // hides id and ends its sort
    EXPECT_EQ(model.GetVisibleTitles(), (QVector<QString>{"/markers/ns", "/markers/color/r"}));
    EXPECT_EQ(model.GetOperateStatus(), TableModel::NoOperation);
    Feed({{1, "b", 0.25F, 0, 0, 0}});
    EXPECT_EQ(model.columnCount(), 2);
    EXPECT_EQ(Cell(0, 0).toString(), "b");
    model.MoveColumnData(0, 0, true);
    EXPECT_EQ(model.GetVisibleTitles(), (QVector<QString>{"/markers/color/r", "/markers/ns"}));

    std::vector<MarkerRow> many;
    for (int i = 0; i < 1000; ++i) {
        many.push_back({i, "n", 0, 0, 0, 0});
    }
    Feed(many);
    EXPECT_EQ(model.rowCount(), 100);
}

TEST_F(Table, ARangeErrorFreezesTheTableUntilAGoodMessage)
{
    Select({"id"});
    Feed({{1, "", 0, 0, 0, 0}});
    model.OnErrorCatched("/mk", "too large");
    Feed({{2, "", 0, 0, 0, 0}});
    EXPECT_EQ(Cell(0, 0), QVariant(1));
    model.OnErrorCatched("", "");
    model.UpdateDisplayData();
    EXPECT_EQ(Cell(0, 0), QVariant(2));
}

TEST(ViewText, FeedLinesColoursAndConstants)
{
    EXPECT_EQ(ToolTipFeedLine(QString(100, 'a')), QString(100, 'a'));
    EXPECT_EQ(ToolTipFeedLine(QString(201, 'a')).split('\n').size(), 3);
    EXPECT_EQ(ConvertConstantText("3", {{3, "FOO"}}), "FOO");
    EXPECT_EQ(ConvertConstantText("abc", {{3, "FOO"}}), "abc");
    const auto groups = ComposeColorMap({"/a/c/r", "/a/c/g", "/a/c/b", "/a/c/a", "/a/d/r"});
    ASSERT_EQ(groups.size(), 1);
    EXPECT_EQ(groups.firstKey(), "/a/c");
    EXPECT_EQ(SortedConstants({{"5", "B"}, {"-1", "A"}}), (ConstantList{{-1, "A"}, {5, "B"}}));
    EXPECT_EQ(ColorGroup(ColorKey("/a/c")), "/a/c");
    EXPECT_TRUE(ColorGroup("/a/COLOR/r").isEmpty());
}

TEST(DockLayoutGeometry, CascadeCapacitiesAndSlots)
{
    const DockLayout layout;
    EXPECT_EQ(layout.CascadePosition(0), QPoint(712, 314));
    EXPECT_EQ(layout.CascadePosition(1), QPoint(736, 338));
    EXPECT_EQ(layout.CascadeHeight(300, true), 300);
    EXPECT_EQ(layout.CascadeHeight(452, true), 452);
    EXPECT_EQ(layout.CascadeHeight(0, true), 452);
    EXPECT_EQ(layout.CascadeHeight(300, false), 452);
    // Left area by height, bottom area by width less 30, at every threshold.
    const auto left = [&](int height) { return layout.Capacity(LeftArea, QSize(1000, height)); };
    EXPECT_EQ(left(560), 0);
    EXPECT_EQ(left(561), 1);
    EXPECT_EQ(left(839), 1);
    EXPECT_EQ(left(840), 2);
    EXPECT_EQ(layout.Capacity(LeftArea, QSize(329, 900)), 0);
    EXPECT_EQ(layout.Capacity(LeftArea, QSize(330, 900)), 2);
    const auto bottom = [&](int width) { return layout.Capacity(BottomArea, QSize(width + 30, 700)); };
    EXPECT_EQ(bottom(599), 1);
    EXPECT_EQ(bottom(600), 2);
    EXPECT_EQ(bottom(899), 2);
    EXPECT_EQ(bottom(900), 3);
    EXPECT_EQ(layout.Capacity(BottomArea, QSize(1000, 279)), 0);
    EXPECT_EQ(layout.Capacity(BottomArea, QSize(1000, 280)), 3);

    // A central widget of 930 x 900 at (10, 20): columns of 300, rows of 300.
    const QPoint origin(10, 20);
    const QSize central(930, 900);
    EXPECT_EQ(layout.Area(LeftArea, origin, central), QRect(QPoint(10, 20), QPoint(310, 620)));
    EXPECT_EQ(layout.Area(BottomArea, origin, central), QRect(QPoint(10, 620), QPoint(910, 920)));
    const QVector<QRect> leftSlots = layout.Slots(LeftArea, origin, central, 2, 2);
    EXPECT_EQ(leftSlots[0], QRect(27, 22, 298, 297));
    EXPECT_EQ(leftSlots[1], QRect(27, 321, 298, 297));
    const QVector<QRect> bottomSlots = layout.Slots(BottomArea, origin, central, 3, 2);
    ASSERT_EQ(bottomSlots.size(), 2);  // a hidden dock counts but takes no slot
    EXPECT_EQ(bottomSlots[0], QRect(27, 620, 297, 300));
    EXPECT_EQ(bottomSlots[1], QRect(326, 620, 297, 300));
    EXPECT_EQ(layout.ThrownOutPosition(origin, central, 1), QPoint(10 + 930 - 496 + 24, 44));
    EXPECT_EQ(layout.KeyValueColumns(109), 0);
    EXPECT_EQ(layout.KeyValueColumns(219), 1);
    EXPECT_EQ(layout.KeyValueColumns(220), 2);
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return test_support::WithRosMaster(argc, argv, "msg_view_models_test", [&]() {
        QCoreApplication app(argc, argv);
        return RUN_ALL_TESTS();
    });
}
