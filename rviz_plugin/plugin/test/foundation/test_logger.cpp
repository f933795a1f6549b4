#include "../support/temp_dir.h"
#include "foundation/logger.h"
#include "foundation/logger_stream.h"
#include "foundation/path_utils.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <future>
#include <map>
#include <regex>
#include <thread>

namespace fs = std::filesystem;
using test_support::ReadLines;
using test_support::TempDir;

namespace {

std::string LinkTarget(const std::string& link)
{
    std::error_code error;
    const fs::path target = fs::read_symlink(link, error);
    return error ? std::string() : target.filename().string();
}

std::string Numbered(int number, std::size_t width)
{
    std::string text = std::to_string(number);
    return text + std::string(width - text.size(), '.');
}

} // namespace

TEST(LogLevelFromEnv, AcceptsOnlyExactLevelNames)
{
    Orsa::Logger& logger = Orsa::Logger::GetInstance();
    unsetenv("KORA_TOOL_LOG_LEVEL");
    EXPECT_EQ(logger.GetLogLevelFromEnv(), Orsa::LogLevel::Info);
    const std::map<std::string, Orsa::LogLevel> cases = {
        {"Verbose", Orsa::LogLevel::Verbose}, {"Debug", Orsa::LogLevel::Debug}, {"Warn", Orsa::LogLevel::Warn},
        {"Error", Orsa::LogLevel::Error},     {"warn", Orsa::LogLevel::Info},   {"WARN", Orsa::LogLevel::Info},
        {"", Orsa::LogLevel::Info},           {"3", Orsa::LogLevel::Info},      {"Warn ", Orsa::LogLevel::Info},
    };
    for (const auto& [text, expected] : cases) {
        setenv("KORA_TOOL_LOG_LEVEL", text.c_str(), 1);
        EXPECT_EQ(logger.GetLogLevelFromEnv(), expected) << "value \"" << text << "\"";
    }
    unsetenv("KORA_TOOL_LOG_LEVEL");
}

TEST(LogLine, HeaderFormatAndLengthLimit)
{
    const std::string header = Orsa::Logger::GetInstance().LogHeader("Info", "KoraVision");
    EXPECT_TRUE(std::regex_match(header, std::regex(R"(\d{4}-\d{2}-\d{2} \d{2}:\d{2}:\d{2}\.\d{3} \[Info\]\[KoraVision\] )")))
        << header;

    const std::string exact(2048, 'a');
    EXPECT_EQ(Orsa::LimitLogLine(exact, 2048), exact);
    const std::string cut = Orsa::LimitLogLine(exact + "b", 2048);
    EXPECT_EQ(cut.size(), 2050U);
    EXPECT_EQ(cut, std::string(2047, 'a') + "...");
}

TEST(LogFileStore, OutsideRvizRootIsParentOfExecutableDirectory)
{
    Orsa::LogFile file;
    file.Init();
    const std::string expectedRoot = Orsa::GetRealPath(Orsa::GetExecutablePath() + "/..");
    ASSERT_FALSE(expectedRoot.empty());
    EXPECT_EQ(file.GetLinkFilePath(), expectedRoot + "/log/" + Orsa::GetExecutableName() + ".log");
    EXPECT_EQ(Orsa::GetExecutableName(), "test_logger");
}

TEST(LogFileStore, EmptyRootLeavesFileUninitialised)
{
    Orsa::LogFile file;
    testing::internal::CaptureStdout();
    file.Init("", "module");
    file.WriteLog("line");
    const std::string out = testing::internal::GetCapturedStdout();
    EXPECT_NE(out.find("orsaRootPath is empty, initialize LogFile failed"), std::string::npos);
    EXPECT_NE(out.find("LogFile is not initialized, will not write log to file."), std::string::npos);
}

TEST(LogFileStore, FullTripRoundTheRingTruncatesTheOldestFile)
{
    TempDir dir;
    // 99 characters and a newline: nine lines fill a 1000-byte store file.
    Orsa::LogFile file(Orsa::LogFileLimits{5, 1000, 2048});
    file.Init(dir.Path().string(), "mod");
    const std::string link = dir / "log/mod.log";
    for (int line = 1; line <= 45; ++line) {
        file.WriteLog(Numbered(line, 99));
    }
    EXPECT_EQ(LinkTarget(link), ".bak_4_mod.log");
    for (int index = 0; index < 5; ++index) {
        const auto lines = ReadLines(dir / ("log/.bak_" + std::to_string(index) + "_mod.log"));
        ASSERT_EQ(lines.size(), 9U) << "store file " << index;
        EXPECT_EQ(lines.front(), Numbered(index * 9 + 1, 99));
        EXPECT_EQ(lines.back(), Numbered(index * 9 + 9, 99));
    }
    file.WriteLog(Numbered(46, 99));
    EXPECT_EQ(LinkTarget(link), ".bak_0_mod.log");
    EXPECT_EQ(ReadLines(link), std::vector<std::string>{Numbered(46, 99)});
    EXPECT_EQ(ReadLines(dir / "log/.bak_4_mod.log").back(), Numbered(45, 99));
    EXPECT_EQ(fs::status(dir / "log/.bak_0_mod.log").permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST(LogFileStore, RotatesAtFiftyMebibytes)
{
    TempDir dir;
    Orsa::LogFile file;
    file.Init(dir.Path().string(), "big");
    file.WriteLog("first");
    const std::string store0 = dir / "log/.bak_0_big.log";
    // A sparse file just under the limit: a 9-byte line still fits, a 10-byte one does not.
    fs::resize_file(store0, 52428800 - 10);
    file.WriteLog("12345678");
    EXPECT_EQ(LinkTarget(dir / "log/big.log"), ".bak_0_big.log");
    EXPECT_EQ(fs::file_size(store0), 52428800U - 1);
    file.WriteLog("x");
    EXPECT_EQ(LinkTarget(dir / "log/big.log"), ".bak_1_big.log");
    EXPECT_EQ(ReadLines(dir / "log/big.log"), std::vector<std::string>{"x"});
}

TEST(LogFileStore, RepairsLinksToMissingOrForeignFiles)
{
    TempDir dir;
    Orsa::LogFile file(Orsa::LogFileLimits{5, 1000, 2048});
    file.Init(dir.Path().string(), "mod");
    file.WriteLog("created");
    const std::string link = dir / "log/mod.log";
    struct Case {
        std::string target;
        bool createTarget;
        std::string warning;
    };
    const std::vector<Case> cases = {
        {".bak_3_mod.log", false, ""},
        {"other.log", true, ""},
        {".bak_3_other.log", true, ""},
        {".bak_7_mod.log", true, ""},
        {".bak_x_mod.log", true, "\"std::invalid_argument\" error occurred when converting the string to an integer."},
        {".bak_99999999999999999999_mod.log", true,
         "\"std::out_of_range\" error occurred when converting the string to an integer."},
    };
    for (const Case& c : cases) {
        fs::remove(link);
        if (c.createTarget) {
            test_support::WriteFile(dir / ("log/" + c.target), "foreign\n");
        }
        fs::create_symlink(dir / ("log/" + c.target), link);
        testing::internal::CaptureStdout();
        file.WriteLog("after repair");
        const std::string out = testing::internal::GetCapturedStdout();
        EXPECT_EQ(LinkTarget(link), ".bak_0_mod.log") << c.target;
        EXPECT_EQ(ReadLines(link), std::vector<std::string>{"after repair"}) << c.target;
        if (!c.warning.empty()) {
            EXPECT_NE(out.find(c.warning), std::string::npos) << out;
        }
    }
    // A plain file in place of the link is replaced by the link too.
    fs::remove(link);
    test_support::WriteFile(link, "plain\n");
    file.WriteLog("relinked");
    EXPECT_EQ(LinkTarget(link), ".bak_0_mod.log");
}

TEST(LogFileStore, UnusableLogDirectoryDropsTheLineWithAMessage)
{
    TempDir dir;
    // A plain file where the log directory should be: neither writable as a directory nor creatable.
    test_support::WriteFile(dir / "log", "not a directory\n");
    Orsa::LogFile file;
    file.Init(dir.Path().string(), "mod");
    testing::internal::CaptureStdout();
    file.WriteLog("line");
    const std::string out = testing::internal::GetCapturedStdout();
    EXPECT_NE(out.find("Create " + (dir / "log/") + " failed, will not write log to file."), std::string::npos) << out;
}

class LoggerInstance : public testing::Test {
protected:
    void SetUp() override
    {
        Orsa::LogFile probe;
        probe.Init();
        link = probe.GetLinkFilePath();
        // Start every case from an empty store. The log directory is shared with the other test
        // programs of the build, which may be writing their own logs now: only this program's files go.
        const fs::path directory = fs::path(link).parent_path();
        const std::string module = fs::path(link).stem().string();
        std::error_code ignored;
        fs::remove(link, ignored);
        for (int index = 0; index < 5; ++index) {
            fs::remove(directory / (".bak_" + std::to_string(index) + "_" + module + ".log"), ignored);
        }
        fs::remove(directory / (".bak_x_" + module + ".log"), ignored);
    }
    std::string link;
};

TEST_F(LoggerInstance, LinesFromManyThreadsAreWholeAndNoneIsLost)
{
    constexpr int threads = 8;
    constexpr int linesPerThread = 400;
    testing::internal::CaptureStdout();
    std::vector<std::thread> writers;
    for (int t = 0; t < threads; ++t) {
        writers.emplace_back([t]() {
            for (int i = 0; i < linesPerThread; ++i) {
                if (i % 2 == 0) {
                    Orsa::Logger::GetInstance().WriteLog("Test", Orsa::LogLevel::Error,
                                                         "thread " + std::to_string(t) + " line " + std::to_string(i));
                } else {
                    Orsa::LoggerStream("Test", Orsa::LogLevel::Error) << "thread " << t << " line " << i;
                }
            }
        });
    }
    for (auto& writer : writers) {
        writer.join();
    }
    const std::string console = testing::internal::GetCapturedStdout();
    const std::regex linePattern(R"(\d{4}-\d{2}-\d{2} \d{2}:\d{2}:\d{2}\.\d{3} \[Error\]\[Test\] thread (\d) line (\d+))");
    std::map<int, std::vector<bool>> seen;
    for (int t = 0; t < threads; ++t) {
        seen[t].assign(linesPerThread, false);
    }
    const auto lines = ReadLines(link);
    ASSERT_EQ(lines.size(), static_cast<std::size_t>(threads * linesPerThread));
    for (const std::string& line : lines) {
        std::smatch match;
        ASSERT_TRUE(std::regex_match(line, match, linePattern)) << line;
        seen[std::stoi(match[1])][static_cast<std::size_t>(std::stoi(match[2]))] = true;
    }
    for (const auto& [thread, flags] : seen) {
        EXPECT_EQ(std::count(flags.begin(), flags.end(), true), linesPerThread) << "thread " << thread;
    }
    EXPECT_EQ(std::count(console.begin(), console.end(), '\n'), threads * linesPerThread);
}

TEST_F(LoggerInstance, LevelFilterAndLongLines)
{
    testing::internal::CaptureStdout();
    Orsa::Logger::GetInstance().WriteLog("Test", Orsa::LogLevel::Debug, "below the level");
    Orsa::Logger::GetInstance().WriteLog("Test", Orsa::LogLevel::Warn, std::string(3000, 'w'));
    testing::internal::GetCapturedStdout();
    const auto lines = ReadLines(link);
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].size(), 2050U);
    EXPECT_EQ(lines[0].substr(2047), "...");
}

TEST_F(LoggerInstance, BadStoreNameDuringWriteDoesNotDeadlock)
{
    Orsa::Logger::GetInstance().WriteLog("Test", Orsa::LogLevel::Error, "first");
    const fs::path directory = fs::path(link).parent_path();
    const std::string bad = (directory / (".bak_x_" + fs::path(link).filename().string())).string();
    test_support::WriteFile(bad, "old\n");
    fs::remove(link);
    fs::create_symlink(bad, link);

    testing::internal::CaptureStdout();
    auto done = std::async(std::launch::async, []() {
        Orsa::Logger::GetInstance().WriteLog("Test", Orsa::LogLevel::Error, "second");
    });
    const bool finished = done.wait_for(std::chrono::seconds(10)) == std::future_status::ready;
    const std::string out = testing::internal::GetCapturedStdout();
    ASSERT_TRUE(finished) << "the logger re-entered its own lock";
    EXPECT_NE(out.find("[Warn][ORSA] \"std::invalid_argument\" error occurred"), std::string::npos) << out;
    EXPECT_EQ(LinkTarget(link).rfind(".bak_0_", 0), 0U);
    ASSERT_EQ(ReadLines(link).size(), 1U);
    EXPECT_NE(ReadLines(link)[0].find("second"), std::string::npos);
}
