// The plot's logic without a display or a master: path texts, name checks, the samples a line keeps
// and the model of plottable fields.
#include "../support/ros_test_main.h"
#include "plot_messages.h"
#include "../support/temp_dir.h"
#include "plot_data/plot_config.h"
#include "plot_data/plot_global.h"
#include "plot_data/plot_model.h"
#include "plot_data/plot_series.h"

#include <gtest/gtest.h>
#include <rviz/yaml_config_reader.h>
#include <rviz/yaml_config_writer.h>

#include <cmath>
#include <limits>

using rviz_plugin::PlotGlobal;
using rviz_plugin::PlotModel;
using rviz_plugin::PlotSeries;
using test_support::Console;

TEST(PlotGlobalTexts, PathsElementsAndTimes)
{
    EXPECT_EQ(PlotGlobal::GetTopic("/car/items.2/id"), "/car");
    EXPECT_EQ(PlotGlobal::GetTopic("/car"), "/car");
    EXPECT_EQ(PlotGlobal::GetFieldKey("/car/items.2/id"), "/items.2/id");
    EXPECT_EQ(PlotGlobal::GetFieldName("/car/items.12/id"), "/car/items/id");
    EXPECT_EQ(PlotGlobal::GetFieldName("/car/values.3"), "/car/values");
    EXPECT_EQ(PlotGlobal::GetFieldName("/car/speed"), "/car/speed");
    EXPECT_TRUE(PlotGlobal::IsArray("/car/values.3"));
    EXPECT_FALSE(PlotGlobal::IsArray("/car/speed"));
    EXPECT_FALSE(PlotGlobal::IsArray(".3"));  // a "." at the start is no element
    EXPECT_EQ(PlotGlobal::GetArrayIndex("/car/items.12/id"), 12);
    EXPECT_EQ(PlotGlobal::GetArrayIndex("/car/speed"), -1);
    EXPECT_EQ(PlotGlobal::GetArrayIndex("/car/items./id"), -1);
    EXPECT_EQ(PlotGlobal::GetArrayNames("/car/items/id", "/car/items", 7), "/car/items.7/id");
    EXPECT_EQ(PlotGlobal::GetArrayNames("/car/values", "/car/values", 0), "/car/values.0");
    EXPECT_EQ(PlotGlobal::GetArrayNames("/car/speed", "", 3), "/car/speed");
    EXPECT_EQ(PlotGlobal::GetParentArrayName("/car/items.7/id"), "/car/items");
    EXPECT_EQ(PlotGlobal::GetArrayItems(3), (QStringList{".0", ".1", ".2"}));
    std::string log = Console([]() { EXPECT_TRUE(PlotGlobal::GetArrayItems(0).isEmpty()); });
    EXPECT_NE(log.find("[Plot]"), std::string::npos) << log;
    EXPECT_NE(log.find("TableData is empty."), std::string::npos) << log;

    // The tool tip's text and the C formatter agree on the local time of a stamp.
    EXPECT_EQ(PlotGlobal::XLabelToTimeStamp(1700000000.75), PlotGlobal::TimeStampToTime(1700000000));
    EXPECT_EQ(PlotGlobal::TimeStampToTime(1700000000).size(), 19);
}

TEST(PlotGlobalTexts, NameChecksAndWideCharacters)
{
    PlotGlobal& global = PlotGlobal::GetInstance();
    std::vector<bool> warnings;
    const auto connection = QObject::connect(&global, &PlotGlobal::SignalWarningStatusChanged,
                                             [&warnings](bool warning) { warnings.push_back(warning); });
    EXPECT_EQ(global.VerifyContent(""), "No content.");
    EXPECT_EQ(global.VerifyContent("Speed"), "");
    EXPECT_EQ(global.VerifyName("Plot1", {"Plot", "Plot1"}), "Duplicate name.");
    EXPECT_EQ(global.VerifyName("Plot2", {"Plot", "Plot1"}), "");
    EXPECT_EQ(global.VerifyName("", {"Plot"}), "No content.");
    QObject::disconnect(connection);
    EXPECT_EQ(warnings, (std::vector<bool>{true, false, true, false, true}));
    EXPECT_EQ(PlotGlobal::GetChineseCount(QString::fromUtf8("速度abcé")), 2);
}

namespace {
QVector<double> Times(const QVector<QPointF>& points)
{
    QVector<double> times;
    for (const QPointF& p : points) {
        times.push_back(p.x());
    }
    return times;
}
} // namespace

TEST(PlotSeriesHistory, KeepsAnHourAndAReplayJumpDoesNotCount)
{
    PlotSeries series;
    QVector<QPointF> points;
    for (int i = 0; i <= 5000; ++i) {
        points.push_back(QPointF(i, i % 7));  // one sample a second, 5000 s
    }
    series.Append(points, Times(points));
    ASSERT_EQ(series.size(), 5001U);
    series.KeepRange(PlotSeries::historySeconds);
    // The kept span is an hour at most, and nothing inside it was dropped.
    EXPECT_EQ(series.size(), 3601U);
    EXPECT_LE(series.Time(series.size() - 1) - series.Time(0), 3600.0001);
    EXPECT_EQ(series.Time(0), 1400.0);

    // A pass that starts over: its backward jump is skipped, the steps on both sides add up.
    PlotSeries replay;
    QVector<QPointF> first;
    QVector<QPointF> second;
    for (int i = 0; i < 2000; ++i) {
        first.push_back(QPointF(1000 + i, 1));
        second.push_back(QPointF(i, 2));
    }
    replay.Append(first, Times(first));
    replay.Append(second, Times(second));
    // 1999 s of the second pass and 1601 s of the first: 3602 samples.
    EXPECT_EQ(replay.CalcStartIndexByRange(PlotSeries::historySeconds), 398U);
    replay.KeepRange(PlotSeries::historySeconds);
    EXPECT_EQ(replay.size(), 3602U);
    EXPECT_EQ(replay.Point(0), QPointF(1398, 1));

    // Steps back smaller than the tolerance are ordinary steps.
    PlotSeries jitter;
    jitter.Append({QPointF(0, 0), QPointF(3599.99995, 0), QPointF(3599.9999, 0), QPointF(3600.0, 0)},
                  {0.0, 3599.99995, 3599.9999, 3600.0});
    EXPECT_EQ(jitter.CalcStartIndexByRange(PlotSeries::historySeconds), 0U);
}

TEST(PlotSeriesHistory, BoundsIgnoreNumbersThatAreNotFinite)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    PlotSeries series;
    EXPECT_FALSE(series.HasBounds());
    series.Append({QPointF(1, 5), QPointF(2, nan), QPointF(3, inf), QPointF(4, -2)}, {1, 2, 3, 4});
    EXPECT_EQ(series.size(), 4U);
    EXPECT_EQ(series.BoundingRect(), QRectF(QPointF(1, -2), QPointF(4, 5)));
    EXPECT_TRUE(series.IsXSorted());

    // Dropping the point on the lower edge moves the bounds.
    PlotSeries trimmed;
    trimmed.Append({QPointF(0, -50), QPointF(3000, 1), QPointF(5000, 3)}, {0, 3000, 5000});
    trimmed.KeepRange(PlotSeries::historySeconds);
    EXPECT_EQ(trimmed.BoundingRect(), QRectF(QPointF(3000, 1), QPointF(5000, 3)));

    // One point: a rectangle of no size at the point.
    PlotSeries single;
    single.Append({QPointF(7, 8)}, {7});
    EXPECT_EQ(single.BoundingRect().topLeft(), QPointF(7, 8));
    EXPECT_EQ(single.BoundingRect().width(), 0.0);
    EXPECT_EQ(single.LowerBound(7.5), 1U);
}

TEST(PlotSeriesHistory, TimesAreKeptToTheMicrosecondAcrossChunks)
{
    PlotSeries series;
    QVector<QPointF> points;
    // Stamps since the epoch, a fast stretch filling several chunks, then samples far apart.
    for (int i = 0; i < 10000; ++i) {
        points.push_back(QPointF(1795500000.0 + i * 0.001234, i));
    }
    for (int i = 0; i < 3; ++i) {
        points.push_back(QPointF(1795500100.0 + i * 3000.0, -i));
    }
    series.Append(points, Times(points));
    ASSERT_EQ(series.size(), 10003U);
    for (std::size_t i = 0; i < series.size(); i += 997) {
        EXPECT_NEAR(series.Point(i).x(), points[static_cast<int>(i)].x(), 0.6e-6) << i;
        EXPECT_EQ(series.Point(i).y(), points[static_cast<int>(i)].y());
    }
    EXPECT_EQ(series.Point(10002).x(), 1795506100.0);
    EXPECT_TRUE(series.IsXSorted());
    EXPECT_EQ(series.LowerBound(1795500100.0), 10000U);
    series.KeepRange(PlotSeries::historySeconds);
    EXPECT_EQ(series.size(), 2U);
    EXPECT_EQ(series.Point(0).y(), -1.0);
}

TEST(PlotSeriesHistory, FieldAgainstFieldKeepsTimesBeside)
{
    PlotSeries series;
    series.SetSeparateTimes(true);
    series.Append({QPointF(5, 1), QPointF(-3, 2), QPointF(0, 3)}, {100.0, 2000.0, 4000.0});
    EXPECT_FALSE(series.IsXSorted());
    EXPECT_EQ(series.Time(1), 2000.0);
    series.KeepRange(PlotSeries::historySeconds);
    ASSERT_EQ(series.size(), 2U);
    EXPECT_EQ(series.Point(0), QPointF(-3, 2));
    EXPECT_EQ(series.Time(0), 2000.0);
}

TEST(PlotSeriesHistory, BlockSummariesAgreeWithAScanAfterTrimming)
{
    PlotSeries series;
    QVector<QPointF> points;
    QVector<double> times;
    unsigned state = 12345;
    for (int i = 0; i < 5000; ++i) {
        state = state * 1103515245U + 12345U;
        const double y = (i % 97 == 0) ? std::numeric_limits<double>::quiet_NaN() : static_cast<double>(state % 1000);
        points.push_back(QPointF(i, y));
        times.push_back(i);
    }
    series.Append(points, times);
    series.Append(points, times);  // a replay: two chunks and more
    series.KeepRange(7000.0);  // the first chunk is cut in the middle of a block
    ASSERT_EQ(series.size(), 7002U);
    const auto scan = [&series](std::size_t begin, std::size_t end, double& low, double& high) {
        low = std::numeric_limits<double>::infinity();
        high = -low;
        for (std::size_t i = begin; i < end; ++i) {
            if (std::isfinite(series.Point(i).y())) {
                low = std::min(low, series.Point(i).y());
                high = std::max(high, series.Point(i).y());
            }
        }
        return low <= high;
    };
    for (std::size_t begin = 0; begin < series.size(); begin += 37) {
        for (std::size_t length : {1U, 5U, 31U, 32U, 33U, 100U, 1000U, 5000U}) {
            const std::size_t end = std::min(series.size(), begin + length);
            double low = 0.0;
            double high = 0.0;
            double expectedLow = 0.0;
            double expectedHigh = 0.0;
            ASSERT_EQ(series.MinMaxY(begin, end, low, high), scan(begin, end, expectedLow, expectedHigh));
            if (expectedLow <= expectedHigh) {
                // Summaries are floats rounded outwards: never inside the range, a hair outside at most.
                ASSERT_LE(low, expectedLow) << begin << " " << end;
                ASSERT_GE(high, expectedHigh) << begin << " " << end;
                ASSERT_NEAR(low, expectedLow, 1e-3) << begin << " " << end;
                ASSERT_NEAR(high, expectedHigh, 1e-3) << begin << " " << end;
            }
        }
    }
    double low = 0.0;
    double high = 0.0;
    EXPECT_FALSE(series.MinMaxY(10, 10, low, high));
}

namespace {
struct Definition {
    Definition(const std::string& topic, const std::string& type, const std::string& text)
        : parser(topic, RosMsgParser::ROSType(type), text)
    {
        msg.flatMessage.schema = parser.getSchema();
    }
    RosMsgParser::Parser parser;
    rviz_plugin::MsgParsers::DeserializedMsg msg;
};
} // namespace

TEST(PlotModelFields, NumericLeavesOutsideNestedArrays)
{
    Definition plot("/plot", plot_test::plotType, plot_test::plotDefinition);
    Definition plain("/plain", plot_test::plainType, plot_test::plainDefinition);
    PlotModel model;
    std::string log = Console([&]() { model.SetupModelData({{"/plot", &plot.msg}}); });
    EXPECT_EQ(model.GetFieldList(),
              (QStringList{"/plot/header/seq", "/plot/header/stamp/nsecs", "/plot/header/stamp/secs", "/plot/speed",
                           "/plot/items/id", "/plot/values"}));
    // Text fields are not plotted; the array inside an array is logged once.
    EXPECT_NE(log.find("[Info][Plot] Nest array not support, field name:/plot/items/samples"), std::string::npos)
        << log;
    const auto* stamp = model.GetTopicMsg("/plot/header/stamp/secs");
    ASSERT_NE(stamp, nullptr);
    EXPECT_EQ(PlotGlobal::GetFieldType(stamp), "time");
    EXPECT_EQ(PlotGlobal::GetFieldType(model.GetTopicMsg("/plot/values")), "[float32[]]");
    EXPECT_EQ(PlotGlobal::GetFieldType(model.GetTopicMsg("/plot/speed")), "[float64]");
    EXPECT_EQ(PlotGlobal::GetArrayName(model.GetTopicMsg("/plot/items/id")), "/plot/items");
    EXPECT_EQ(PlotGlobal::GetArrayName(model.GetTopicMsg("/plot/speed")), "");

    // The same topics again: no rebuild, no log.
    log = Console([&]() { model.SetupModelData({{"/plot", &plot.msg}}); });
    EXPECT_EQ(log, "");
    // A new topic rebuilds the whole model, and the nested array is logged again.
    log = Console([&]() { model.SetupModelData({{"/plot", &plot.msg}, {"/plain", &plain.msg}}); });
    EXPECT_NE(log.find("Nest array not support"), std::string::npos);
    EXPECT_TRUE(model.HasField("/plain/level"));
    EXPECT_EQ(model.GetFieldList().size(), 8);

    // A path the user typed that is no field.
    log = Console([&]() { EXPECT_EQ(model.GetTopicMsg("/plot/name"), nullptr); });
    EXPECT_NE(log.find("[Error][Plot] Invalid field name:/plot/name"), std::string::npos) << log;
    log = Console([&]() { EXPECT_EQ(model.GetTopicMsg(""), nullptr); });
    EXPECT_EQ(log, "");
}

namespace {
// Three plots: two against time in one column, and a field against another field beside them.
rviz_plugin::PlotConfigData ThreePlots()
{
    using namespace rviz_plugin;
    PlotConfigData data;
    data.geometry = QRect(10, 20, 800, 600);
    data.current.root = std::make_unique<SplitterData>();
    data.current.root->orientation = 1;
    PlotCanvasData xy;
    xy.setting.title = "Track";
    xy.setting.isYMinAuto = false;
    xy.setting.yMin = -0.123456789012345;
    xy.axisData.isMsgPath = true;
    xy.axisData.xField = "/plot/speed";
    xy.axisData.xFieldType = "[float64]";
    AxisLineData element;
    element.color = "#009DA5";
    element.yField = "/plot/items/id";
    element.yFieldType = "[int32]";
    element.selectedArrayName = "/plot/items";
    element.curveName = "/plot/items.2/id";
    element.isArray = true;
    xy.axisData.axisLineList = {element};
    xy.isMaximize = true;
    xy.magnifierData = {2, -3.5, 7.25};
    xy.size = QSize(400, 300);
    xy.slider = {true, 1.5, 9.5, 0.0, 12.0};
    data.current.root->firstPlot = std::make_unique<PlotCanvasData>(xy);
    auto column = std::make_unique<SplitterData>();
    column->orientation = 2;
    PlotTemplateData defaults = DefaultPlotTemplate();
    column->firstPlot = std::make_unique<PlotCanvasData>(*defaults.root->firstSplitter->firstPlot);
    column->secondPlot = std::make_unique<PlotCanvasData>(*defaults.root->secondSplitter->secondPlot);
    data.current.root->secondSplitter = std::move(column);
    data.templates.push_back(defaults);
    data.templates.back().templateName = "mine";
    return data;
}
} // namespace

TEST(PlotConfigFile, ALayoutSavedToAFileLoadsBackWhole)
{
    const rviz_plugin::PlotConfigData saved = ThreePlots();
    rviz::Config config;
    config.mapSetValue("Class", "rviz_plugin/Plot");
    rviz_plugin::PlotConfig::Save(saved, config);
    test_support::TempDir dir;
    const QString file = QString::fromStdString((dir.Path() / "plot.rviz").string());
    rviz::YamlConfigWriter writer;
    writer.writeFile(config, file);
    ASSERT_FALSE(writer.error()) << writer.errorMessage().toStdString();
    rviz::Config read;
    rviz::YamlConfigReader reader;
    reader.readFile(read, file);
    ASSERT_FALSE(reader.error());

    const auto loaded = rviz_plugin::PlotConfig::Load(read);
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(loaded->geometry, saved.geometry);
    ASSERT_NE(loaded->current.root, nullptr);
    EXPECT_TRUE(*loaded->current.root == *saved.current.root);
    ASSERT_EQ(loaded->current.root->Plots().size(), 3U);
    EXPECT_EQ(loaded->current.root->Plots()[0]->setting.yMin, -0.123456789012345);
    EXPECT_EQ(loaded->current.root->Plots()[2]->setting.title, "Throttle");
    ASSERT_EQ(loaded->templates.size(), 1U);
    EXPECT_EQ(loaded->templates[0].templateName, "mine");
    EXPECT_TRUE(*loaded->templates[0].root == *saved.templates[0].root);

    // Saved again, the file is the same.
    rviz::Config again;
    again.mapSetValue("Class", "rviz_plugin/Plot");
    rviz_plugin::PlotConfig::Save(*loaded, again);
    EXPECT_EQ(writer.writeString(again), writer.writeString(config));
}

TEST(PlotConfigFile, NumberedKeysInNumericOrderAndMissingColours)
{
    rviz::Config config;
    rviz::Config list = config.mapMakeChild("PlotPlugin").mapMakeChild("plotTemplateList");
    for (int i : {10, 2, 1}) {
        list.mapMakeChild(QString("plotTemplate_%1").arg(i)).mapSetValue("templateName", QString("t%1").arg(i));
    }
    rviz::Config lines = config.mapGetChild("PlotPlugin")
                             .mapMakeChild("currentTemplate")
                             .mapMakeChild("splitter")
                             .mapMakeChild("firstPlot")
                             .mapMakeChild("axisData")
                             .mapMakeChild("axisLineList");
    lines.mapMakeChild("axisLine_11").mapSetValue("yField", "/b");
    lines.mapMakeChild("axisLine_3").mapSetValue("yField", "/a");
    const auto loaded = rviz_plugin::PlotConfig::Load(config);
    ASSERT_NE(loaded, nullptr);
    ASSERT_EQ(loaded->templates.size(), 3U);
    EXPECT_EQ(loaded->templates[0].templateName, "t1");
    EXPECT_EQ(loaded->templates[2].templateName, "t10");
    const auto plots = loaded->current.root->Plots();
    ASSERT_EQ(plots.size(), 1U);
    ASSERT_EQ(plots[0]->axisData.axisLineList.size(), 2);
    EXPECT_EQ(plots[0]->axisData.axisLineList[0].yField, "/a");
    EXPECT_EQ(plots[0]->axisData.axisLineList[1].color, "#77A0F0");
    // Missing settings take the defaults.
    EXPECT_TRUE(plots[0]->setting.isYMaxAuto);
    EXPECT_EQ(plots[0]->setting.xRange, 10.0);
    EXPECT_EQ(rviz_plugin::PlotConfig::Load(rviz::Config()), nullptr);
}

TEST(PlotConfigFile, TheDefaultTemplate)
{
    const rviz_plugin::PlotTemplateData data = rviz_plugin::DefaultPlotTemplate();
    EXPECT_EQ(data.templateName, "default");
    ASSERT_NE(data.root, nullptr);
    EXPECT_EQ(data.root->orientation, 1);
    ASSERT_NE(data.root->firstSplitter, nullptr);
    EXPECT_EQ(data.root->firstSplitter->orientation, 0);
    const auto plots = data.root->Plots();
    ASSERT_EQ(plots.size(), 4U);
    const std::vector<std::pair<QString, QString>> expected = {{"Speed", "/TopicVehicleInfo/vehicleSpeed"},
                                                               {"Acceleration", "/TopicVehicleInfo/vehicleAcceleration"},
                                                               {"Brake", "/TopicVehicleInfo/brake"},
                                                               {"Throttle", "/TopicVehicleInfo/throttle"}};
    const QStringList colors = {"#77A0F0", "#009DA5", "#F8CF49", "#596077"};
    for (std::size_t i = 0; i < plots.size(); ++i) {
        EXPECT_EQ(plots[i]->setting.title, expected[i].first);
        ASSERT_EQ(plots[i]->axisData.axisLineList.size(), 1);
        EXPECT_EQ(plots[i]->axisData.axisLineList[0].yField, expected[i].second);
        EXPECT_EQ(plots[i]->axisData.axisLineList[0].color, colors[static_cast<int>(i)]);
        EXPECT_FALSE(plots[i]->axisData.isMsgPath);
        EXPECT_TRUE(plots[i]->setting.isXRangeAuto);
        EXPECT_EQ(plots[i]->setting.xRange, 10.0);
        EXPECT_EQ(plots[i]->magnifierData.yMax, 10.0);
    }
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
