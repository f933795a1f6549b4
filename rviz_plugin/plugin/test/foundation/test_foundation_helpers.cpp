#include "../support/ros_test_main.h"
#include "../support/temp_dir.h"
#include "foundation/bounded_memory.h"
#include "foundation/color_pool.h"
#include "foundation/config_file_tool.h"
#include "foundation/cpu_usage_handler.h"
#include "foundation/file_hander.h"
#include "foundation/memory_exception.h"
#include "foundation/object_pool.h"
#include "foundation/string_helpers.h"
#include "foundation/topic_tf_utility.h"
#include "foundation/utils_functions.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <filesystem>
#include <memory>
#include <new>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;
using Orsa::ConfigFileTool;
using test_support::Console;
using test_support::TempDir;

namespace {


bool Contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

} // namespace

TEST(ConfigFileTool, ReadsWritesAndRoundTripsJson)
{
    TempDir dir;
    const std::string path = dir / "settings.json";
    rapidjson::Document document;
    ASSERT_FALSE(ConfigFileTool::ReadJsonString(R"({"name": "front", "fps": 30, "list": [1, 2.5]})", document));
    EXPECT_TRUE(ConfigFileTool::WriteJsonFile(path, document));
    const std::string written = test_support::ReadFile(path);
    EXPECT_TRUE(Contains(written, "\n    \"fps\": 30")) << written;  // pretty printed, four spaces

    rapidjson::Document again;
    ASSERT_FALSE(ConfigFileTool::ReadJsonFile(path, again));
    EXPECT_EQ(again, document);
    EXPECT_STREQ(again["name"].GetString(), "front");
}

TEST(ConfigFileTool, BadTextGivesTheErrorTextAndOffset)
{
    struct Case {
        std::string text;
        std::string error;
    };
    const Case cases[] = {
        {"", "Error(offset 0): The document is empty."},
        {R"({"a": 1)", "Error(offset 7): Missing a comma or '}' after an object member."},
        {R"({"a": 1} x)", "Error(offset 9): The document root must not be followed by other values."},
        {R"([1, 2)", "Missing a comma or ']' after an array element."},
        {R"({"a" 1})", "Missing a colon after a name of object member."},
        {R"({"a": "x)", "Missing a closing quotation mark in string."},
        {R"({"a": tru})", "Invalid value."},
        {R"({"a": 1.})", "Miss fraction part in number."},
        {R"({"a": 1e})", "Miss exponent in number."},
        {R"({"a": "\q"})", "Invalid escape character in string."},
    };
    for (const Case& c : cases) {
        rapidjson::Document document;
        bool failed = false;
        const std::string out = Console([&]() { failed = ConfigFileTool::ReadJsonString(c.text, document); });
        EXPECT_TRUE(failed) << c.text;
        EXPECT_TRUE(Contains(out, "[Error][FileHandler] The string '" + c.text + "' is not a valid JSON")) << out;
        EXPECT_TRUE(Contains(out, c.error)) << c.text << "\n" << out;
    }
    EXPECT_EQ(ConfigFileTool::ParseErrorText(17), "Unspecific syntax error.");
    EXPECT_EQ(ConfigFileTool::ParseErrorText(18), "Unknown error.");
    EXPECT_EQ(ConfigFileTool::ParseErrorText(-1), "Unknown error.");
}

TEST(ConfigFileTool, MissingUnreadableDirectoryAndBadFiles)
{
    TempDir dir;
    rapidjson::Document document;
    std::string out = Console([&]() { EXPECT_TRUE(ConfigFileTool::ReadJsonFile(dir / "missing.json", document)); });
    EXPECT_TRUE(Contains(out, dir / "missing.json" + " is not a file.")) << out;

    out = Console([&]() { EXPECT_TRUE(ConfigFileTool::ReadJsonFile(dir.Path().string(), document)); });
    EXPECT_TRUE(Contains(out, dir.Path().string() + " is not a file.")) << out;

    const std::string truncated = dir / "truncated.json";
    test_support::WriteFile(truncated, R"({"a": [1, 2)");
    out = Console([&]() { EXPECT_TRUE(ConfigFileTool::ReadJsonFile(truncated, document)); });
    EXPECT_TRUE(Contains(out, "Failed to read the file. The file path is " + truncated)) << out;

    if (geteuid() != 0) {
        const std::string locked = dir / "locked.json";
        test_support::WriteFile(locked, "{}");
        fs::permissions(locked, fs::perms::none);
        out = Console([&]() { EXPECT_TRUE(ConfigFileTool::ReadJsonFile(locked, document)); });
        EXPECT_TRUE(Contains(out, locked + " cannot be read. Check the file permission.")) << out;
    }

    rapidjson::Document empty;
    empty.SetObject();
    out = Console([&]() { EXPECT_FALSE(ConfigFileTool::WriteJsonFile(dir / "no/such/dir/x.json", empty)); });
    EXPECT_TRUE(Contains(out, "Can not find or create the file which named \"" + dir / "no/such/dir/x.json" + "\"."))
        << out;
}

TEST(ConfigFileTool, SchemaValidationReportsKeywordAndPointers)
{
    rapidjson::Document schema;
    ASSERT_FALSE(ConfigFileTool::ReadJsonString(
        R"({"type": "object", "required": ["topics"],
            "properties": {"topics": {"type": "array", "items": {"type": "string"}},
                           "x": {"type": "number"}}})",
        schema));
    rapidjson::Document good;
    ASSERT_FALSE(ConfigFileTool::ReadJsonString(R"({"topics": ["/a", "/b"], "x": 1.5})", good));
    EXPECT_TRUE(ConfigFileTool::IsJsonConsistentWithSchema(good, schema));

    rapidjson::Document wrongType;
    ASSERT_FALSE(ConfigFileTool::ReadJsonString(R"({"topics": ["/a", 7]})", wrongType));
    std::string out = Console([&]() { EXPECT_FALSE(ConfigFileTool::IsJsonConsistentWithSchema(wrongType, schema)); });
    EXPECT_TRUE(Contains(out, R"(Error report: {"invalidKeyword":"type","invalidSchema":"#/properties/topics/items",)"
                              R"("invalidDocument":"#/topics/1"})"))
        << out;

    rapidjson::Document missing;
    ASSERT_FALSE(ConfigFileTool::ReadJsonString(R"({"x": 1})", missing));
    out = Console([&]() { EXPECT_FALSE(ConfigFileTool::IsJsonConsistentWithSchema(missing, schema)); });
    EXPECT_TRUE(Contains(out, R"("invalidKeyword":"required")")) << out;
}

// Schemas on which RapidJSON dereferences null, asserts, recurses without end or runs out of memory
// are refused before it sees them (all found by fuzzing).
TEST(ConfigFileTool, SchemasWithoutObjectSubschemasAreRefused)
{
    rapidjson::Document document;
    ASSERT_FALSE(ConfigFileTool::ReadJsonString(R"({"name": "car"})", document));
    for (const char* text : {R"({"oneOf": [{"type": "object"}, 1, 1.5e300]})", R"({"not": 3})",
                             R"({"properties": {"a": []}})", R"({"items": [{"type": "string"}, "x"]})",
                             R"({"$ref": "#/definitions/missing"})", R"({"$ref": "#/definitions/n", "definitions": {"n": 5}})",
                             R"({"$ref": "http://example.com/schema"})", R"({"allOf": []})", R"([1, 2])",
                             R"({"patternProperties": {"a(b": {}}})", R"({"pattern": "x)("})", R"({"pattern": 5})",
                             R"({"patternProperties": [{"a": "x"}]})", R"({"dependencies": [1]})",
                             R"({"pattern": "a{99999999}"})", R"({"pattern": "a{5,2}"})", R"({"pattern": "a{x}"})",
                             R"({"pattern": "{2}"})", R"({"pattern": "(a{600}){600}"})",
                             R"({"pattern": "((a{20}){20}){20}"})", R"({"patternProperties": {"^a(b|c)+$": {}}})",
                             R"({"pattern": "^[0-9]{1,3}$"})", R"({"x-note": {"oneOf": 5}})",
                             R"({"enum": [{"oneOf": [1]}]})", R"({"dependencies": {"a": [{"not": 1}]}})",
                             R"({"pattern": "a*b*c*d*e*f*g*h*i*j*k*l*m*n*o*p*q*"})", R"({"$ref": "#"})",
                             R"({"definitions": {"a": {"$ref": "#/definitions/a"}}, "$ref": "#/definitions/a"})",
                             R"({"properties": {"patternProperties": {"a(": {}}}})",
                             R"({"definitions": {"pattern": {"type": "string"}}})",
                             R"({"dependencies": {"patternProperties": {"a(": {}}}})"}) {
        rapidjson::Document schema;
        ASSERT_FALSE(ConfigFileTool::ReadJsonString(text, schema)) << text;
        EXPECT_FALSE(ConfigFileTool::IsUsableSchema(schema)) << text;
        const std::string out =
            Console([&]() { EXPECT_FALSE(ConfigFileTool::IsJsonConsistentWithSchema(document, schema)); });
        EXPECT_TRUE(Contains(out, "The schema is not valid")) << out;
    }
    for (const char* text : {R"({"type": "object", "properties": {"name": {"$ref": "#/definitions/text"}},
                                 "definitions": {"text": {"type": "string"}}})",
                             R"({"anyOf": [{"required": ["name"]}, {"not": {"type": "array"}}],
                                 "additionalProperties": false, "properties": {"name": {}}})",
                             R"({"title": "t", "x-note": {"type": "string"}, "enum": [1, "a", {"type": "number"}]})",
                             R"({"dependencies": {"a": ["b"], "c": {"required": ["d"]}}})"}) {
        rapidjson::Document schema;
        ASSERT_FALSE(ConfigFileTool::ReadJsonString(text, schema)) << text;
        EXPECT_TRUE(ConfigFileTool::IsUsableSchema(schema)) << text;
    }
}

TEST(FileHander, PathsAndFiles)
{
    TempDir dir;
    const std::string file = dir / "a.txt";
    test_support::WriteFile(file, "content\n");
    EXPECT_TRUE(Orsa::FileHander::IsFileExist(file));
    EXPECT_FALSE(Orsa::FileHander::IsFileExist(dir.Path().string()));
    EXPECT_TRUE(Orsa::FileHander::IsFileReadable(file));
    EXPECT_EQ(Orsa::FileHander::ReadFile(file), "content\n");
    std::string windows = "C:\\data\\b.json";
    std::string unix = "/opt/x/y.json";
    EXPECT_EQ(Orsa::FileHander::SplitDirectoryToGetFileName(windows), "b.json");
    EXPECT_EQ(Orsa::FileHander::SplitDirectoryToGetFileName(unix), "y.json");
    const std::string out = Console([&]() {
        EXPECT_EQ(Orsa::FileHander::RelativePathToAbsolutePath(dir / "new.json"), dir / "new.json");
        EXPECT_EQ(Orsa::FileHander::ReadFile(dir / "none"), "");
    });
    EXPECT_TRUE(Contains(out, "Failed to resolve the realpath from " + dir / "new.json")) << out;
    EXPECT_FALSE(Orsa::FileHander::GetExecutablePath().empty());
}

TEST(StringToNumber, ConvertsOrLogsAndGivesZero)
{
    using Orsa::UtilsFunctions::StringToNumber;
    EXPECT_EQ(StringToNumber<int32_t>("-42", "Test"), -42);
    EXPECT_DOUBLE_EQ(StringToNumber<double>("2.5e3", "Test"), 2500.0);
    EXPECT_EQ(StringToNumber<long double>("0.125", "Test"), 0.125L);
    EXPECT_EQ(StringToNumber<uint64_t>("18446744073709551615", "Test"), 18446744073709551615ULL);
    EXPECT_EQ(StringToNumber<unsigned>("4294967295", "Test"), 4294967295U);

    std::string out = Console([]() { EXPECT_EQ(StringToNumber<double>("", "Test"), 0.0); });
    EXPECT_TRUE(Contains(out, "[Warn][Test] \"std::invalid_argument\" error occurred when converting the string to an "
                              "integer. The integer will be set to 0."))
        << out;
    out = Console([]() {
        EXPECT_EQ(StringToNumber<int32_t>("2147483648", "Test"), 0);
        EXPECT_EQ(StringToNumber<unsigned>("4294967296", "Test"), 0U);
        EXPECT_EQ(StringToNumber<double>("1e999", "Test"), 0.0);
    });
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 3) << out;
    EXPECT_TRUE(Contains(out, "\"std::out_of_range\" error occurred")) << out;
    out = Console([]() { EXPECT_EQ(StringToNumber<int32_t>("abc", "Other"), 0); });
    EXPECT_TRUE(Contains(out, "[Warn][Other]")) << out;
}

class CpuUsage : public testing::Test {
protected:
    void Sample(const std::string& statLine)
    {
        test_support::WriteFile(path, statLine + "\ncpu0 1 2 3 4 5 6 7\n");
        handler.CalculateCpuUsage();
    }
    TempDir dir;
    std::string path = dir / "stat";
    Orsa::CpuUsageHandler handler{path};
};

TEST_F(CpuUsage, NormalPairGivesTheBusyShare)
{
    handler.InitCpuUsageThreshold(0.9);
    Sample("cpu  100 0 100 700 100 0 0 0 0 0");
    Sample("cpu  200 0 200 1000 200 0 0 0 0 0");  // 600 more, of which 300 idle and 100 iowait
    EXPECT_FALSE(handler.IsCpuStatError());
    EXPECT_NEAR(handler.GetSystemCpuUsage(), 1.0 - 400.0 / 600.0, 1e-12);
}

TEST_F(CpuUsage, EqualTotalsAndBackwardCountersReportTheThreshold)
{
    handler.InitCpuUsageThreshold(0.75);
    Sample("cpu  100 0 100 700 100 0 0");
    Sample("cpu  100 0 100 700 100 0 0");
    EXPECT_TRUE(handler.IsCpuStatError());
    EXPECT_DOUBLE_EQ(handler.GetSystemCpuUsage(), 0.75);

    Sample("cpu  300 0 300 900 100 0 0");
    EXPECT_FALSE(handler.IsCpuStatError());
    std::string out = Console([&]() { Sample("cpu  400 0 400 800 100 0 0"); });  // idle went backwards
    EXPECT_TRUE(handler.IsCpuStatError());
    EXPECT_DOUBLE_EQ(handler.GetSystemCpuUsage(), 0.75);
    EXPECT_TRUE(Contains(out, "[Error][DecodeSwitch] Failed to read stat from " + path + ". current cpu time : 1700 "
                              "last cpu time: 1600 current idle time: 800 last idle time: 900"))
        << out;

    Sample("cpu  400 0 400 1800 100 0 0");  // all new time idle: a share of 1 is unusable too
    EXPECT_TRUE(handler.IsCpuStatError());

    out = Console([&]() {
        fs::remove(path);
        handler.CalculateCpuUsage();
    });
    EXPECT_TRUE(Contains(out, "Failed to open " + path)) << out;
}

TEST_F(CpuUsage, OverflowingCountersStopTheSum)
{
    handler.InitCpuUsageThreshold(0.5);
    Sample("cpu  18446744073709551615 1 1 1 1 1 1");
    Sample("cpu  18446744073709551615 1 1 1 1 1 1");
    EXPECT_TRUE(handler.IsCpuStatError());
    EXPECT_DOUBLE_EQ(handler.GetSystemCpuUsage(), 0.5);
}

TEST(StringHelpers, TrimZeroTrimBySizeAndSplit)
{
    using rviz_plugin::ToStringAndTrimZero;
    EXPECT_EQ(ToStringAndTrimZero(1.5), "1.5");
    EXPECT_EQ(ToStringAndTrimZero(1.0), "1");
    EXPECT_EQ(ToStringAndTrimZero(1.05), "1.05");
    EXPECT_EQ(ToStringAndTrimZero(2.999), "3");
    EXPECT_EQ(ToStringAndTrimZero(-12.345), "-12.35");
    EXPECT_EQ(ToStringAndTrimZero(1e300).substr(0, 2), "10");
    EXPECT_EQ(ToStringAndTrimZero(std::nan("")), "nan");
    EXPECT_EQ(ToStringAndTrimZero(3600.0L, 6), "3600");
    EXPECT_EQ(ToStringAndTrimZero(-1.25L, 6), "-1.25");
    EXPECT_EQ(ToStringAndTrimZero(0.1234567L, 6), "0.123457");
    EXPECT_EQ(ToStringAndTrimZero(1e19L, 6), "10000000000000000000");

    EXPECT_EQ(rviz_plugin::TrimStringBySize("abcdef", 3), "abc...");
    EXPECT_EQ(rviz_plugin::TrimStringBySize("abc", 3), "abc");

    EXPECT_TRUE(rviz_plugin::SplitStringToVector("", 25).empty());
    const auto pieces = rviz_plugin::SplitStringToVector(std::string(60, 'x'), 25);
    ASSERT_EQ(pieces.size(), 3U);
    EXPECT_EQ(pieces[2].size(), 10U);
    EXPECT_EQ(rviz_plugin::SplitStringToVector("abc", 0), std::vector<std::string>{"abc"});
}

TEST(BoundedMemory, ChecksEveryLengthBeforeWriting)
{
    unsigned char buffer[16];
    std::fill(std::begin(buffer), std::end(buffer), 0xAA);
    EXPECT_EQ(memset_s(buffer, sizeof(buffer), 0, sizeof(buffer)), 0);
    EXPECT_EQ(std::count(std::begin(buffer), std::end(buffer), 0), 16);

    // n larger than the buffer: only smax bytes are set, and the call reports it.
    unsigned char guarded[24];
    std::fill(std::begin(guarded), std::end(guarded), 0xAA);
    EXPECT_NE(memset_s(guarded, 16, 0x11, 24), 0);
    EXPECT_EQ(std::count(guarded, guarded + 16, 0x11), 16);
    EXPECT_EQ(std::count(guarded + 16, guarded + 24, 0xAA), 8);
    EXPECT_EQ(memset_s(nullptr, 16, 0, 16), EINVAL);
    EXPECT_EQ(memset_s(buffer, static_cast<rsize_t>(-1), 0, 1), EINVAL);

    const char source[] = "secret-password";
    char target[8] = "xxxxxxx";
    EXPECT_NE(memcpy_s(target, sizeof(target), source, sizeof(source)), 0);
    EXPECT_EQ(std::count(std::begin(target), std::end(target), 0), 8);  // cleared, nothing copied
    char wide[32] = {};
    EXPECT_EQ(memcpy_s(wide, sizeof(wide), source, sizeof(source)), 0);
    EXPECT_STREQ(wide, source);
    EXPECT_NE(memcpy_s(wide, sizeof(wide), wide + 4, 8), 0);  // overlap
    EXPECT_EQ(memcpy_s(wide, sizeof(wide), nullptr, 4), EINVAL);

    char moving[16] = "abcdefgh";
    EXPECT_EQ(memmove_s(moving + 2, sizeof(moving) - 2, moving, 8), 0);
    EXPECT_STREQ(moving, "ababcdefgh");
    EXPECT_NE(memmove_s(moving, 4, "0123456789", 10), 0);
}

TEST(MemoryException, NewHandlerPrintsTheMessageAndExitsWithOne)
{
    TempDir dir;
    const std::string output = dir / "stdout.txt";
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        if (std::freopen(output.c_str(), "w", stdout) == nullptr) {
            _exit(99);
        }
        std::set_new_handler(Orsa::HandleMemoryException);
        std::get_new_handler()();
        _exit(98);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_EQ(test_support::ReadFile(output),
              "Orsa exits due to insufficient memory. Free up the memory and restart the tool.\n");
}

namespace {
struct PooledObject {
    explicit PooledObject(int* created) : id((*created)++) {}
    void Hide() { shown = false; ++resets; }
    int id;
    bool shown = true;
    int resets = 0;
};
} // namespace

TEST(ObjectPool, CreatesOnlyTheShortfallAndParksTheSurplus)
{
    int created = 0;
    rviz_plugin::ObjectPool<PooledObject> pool([&created]() { return std::make_unique<PooledObject>(&created); });
    pool.InitDefault();
    EXPECT_EQ(created, 5);
    EXPECT_EQ(pool.Get(3).size(), 3U);
    EXPECT_EQ(pool.GetIdleSize(), 2U);
    EXPECT_EQ(pool.Get(8).size(), 8U);
    EXPECT_EQ(created, 8);  // three more made, the five reused
    EXPECT_EQ(pool.GetIdleSize(), 0U);

    auto& working = pool.Get(6);
    ASSERT_EQ(working.size(), 6U);
    EXPECT_EQ(pool.GetIdleSize(), 2U);
    for (const auto& object : working) {
        EXPECT_EQ(object->resets, 0);
    }
    EXPECT_EQ(pool.Get(0).size(), 0U);  // everything goes idle, reset
    EXPECT_EQ(pool.GetIdleSize(), 8U);
    EXPECT_EQ(pool.GetUsedSize(), 0U);
    pool.Get(8);
    for (const auto& object : pool.Get(8)) {
        EXPECT_FALSE(object->shown);
    }
    pool.Reset();
    EXPECT_EQ(pool.GetUsedSize(), 0U);
    EXPECT_EQ(created, 8);
}

TEST(ColorPool, TablesWrapAndSpecialTypes)
{
    using rviz_plugin::ColorPool;
    EXPECT_EQ(ColorPool::GetColor(0, ColorPool::Objects), QColor(255, 204, 2));
    EXPECT_EQ(ColorPool::GetColor(9, ColorPool::Objects), QColor(60, 56, 239));
    EXPECT_EQ(ColorPool::GetColor(6, ColorPool::TrafficLights), QColor(255, 0, 0));
    EXPECT_EQ(ColorPool::GetColor(3, ColorPool::Lines), QColor(Qt::green));
    EXPECT_EQ(ColorPool::GetColor(15, ColorPool::SemanticSegmentation), QColor(255, 114, 213));
    EXPECT_EQ(ColorPool::GetColor(1, static_cast<ColorPool::ColorType>(7)), QColor(Qt::white));
}

namespace {
class FakeSettings : public Orsa::TopicTfSettings {
public:
    void SetFilePath(const std::string& file) override { path = file; }
    bool ParseConfigFile() override { return parses; }
    std::vector<std::string> GetNeedModifiedTopics() const override { return {"objects", "radar"}; }
    std::vector<std::string> GetNeedModifiedTfChildFrameIds() const override { return {"base_link"}; }
    std::string path;
    bool parses = true;
};
} // namespace

TEST(TopicTfUtility, TopicNamesAndTheSettingsFile)
{
    std::string topic = "/objects[custom/ObjectArray]";
    rviz_plugin::TopicTfUtility::ParseTopic(topic);
    EXPECT_EQ(topic, "objects");
    topic = "//a";
    rviz_plugin::TopicTfUtility::ParseTopic(topic);
    EXPECT_EQ(topic, "/a");

    FakeSettings settings;
    rviz_plugin::TopicTfUtility utility(settings);
    std::string path = "/opt/orsa/config/map_offset_filter_setting.json";
    EXPECT_EQ(Console([&]() { utility.ReadJson(path); }), "");
    EXPECT_EQ(settings.path, path);
    EXPECT_EQ(utility.GetTopicTfInJson().first, (std::vector<std::string>{"objects", "radar"}));
    EXPECT_EQ(utility.GetTopicTfInJson().second, std::vector<std::string>{"base_link"});
    settings.parses = false;
    const std::string out = Console([&]() { utility.ReadJson(path); });
    EXPECT_NE(out.find("[Error][OffsetSettings] Failed to parse the JSON file. The file name is " + path),
              std::string::npos)
        << out;
}
