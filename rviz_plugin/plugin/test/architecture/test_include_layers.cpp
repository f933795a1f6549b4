// Every folder under src/ is one library; a file may include headers of its own folder and of the
// folders its library depends on, never of a folder above it. The dependencies come from the build
// (one line "folder: dependency folders" per library), so a new folder needs no entry here.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "../support/temp_dir.h"

namespace {

namespace fs = std::filesystem;
using Layers = std::map<std::string, std::set<std::string>>;

Layers ParseLayers(std::istream& in)
{
    Layers layers;
    std::string line;
    while (std::getline(in, line)) {
        const auto colon = line.find(':');
        if (colon == std::string::npos) {
            continue;
        }
        auto& dependencies = layers[line.substr(0, colon)];
        std::istringstream words(line.substr(colon + 1));
        for (std::string word; words >> word;) {
            dependencies.insert(word);
        }
    }
    return layers;
}

// The quoted name of an `#include "..."` line, or nothing.
std::optional<std::string> QuotedInclude(const std::string& line)
{
    std::size_t at = line.find_first_not_of(" \t");
    if (at == std::string::npos || line[at] != '#') {
        return std::nullopt;
    }
    at = line.find_first_not_of(" \t", at + 1);
    if (at == std::string::npos || line.compare(at, 7, "include") != 0) {
        return std::nullopt;
    }
    at = line.find_first_not_of(" \t", at + 7);
    const auto end = at == std::string::npos || line[at] != '"' ? std::string::npos : line.find('"', at + 1);
    if (end == std::string::npos) {
        return std::nullopt;
    }
    return line.substr(at + 1, end - at - 1);
}

// Folders reachable from `folder` in one or more steps; `folder` itself only through a cycle.
std::set<std::string> Below(const Layers& layers, const std::string& folder)
{
    std::set<std::string> seen;
    std::vector<std::string> open{folder};
    while (!open.empty()) {
        const auto current = open.back();
        open.pop_back();
        const auto found = layers.find(current);
        if (found == layers.end()) {
            continue;
        }
        for (const auto& next : found->second) {
            if (seen.insert(next).second) {
                open.push_back(next);
            }
        }
    }
    return seen;
}

struct Report {
    std::vector<std::string> problems;
    // folder -> the other folders its files include
    std::map<std::string, std::set<std::string>> includes;
};

Report CheckTree(const fs::path& sourceRoot, const Layers& layers)
{
    Report report;
    for (const auto& [folder, dependencies] : layers) {
        for (const auto& dependency : dependencies) {
            if (layers.count(dependency) == 0) {
                report.problems.push_back(folder + " depends on " + dependency + ", which is not a library");
            }
        }
        if (Below(layers, folder).count(folder) != 0) {
            report.problems.push_back(folder + " depends on itself through its dependencies");
        }
    }

    for (const auto& entry : fs::directory_iterator(sourceRoot)) {
        if (!entry.is_directory()) {
            continue;
        }
        const auto folder = entry.path().filename().string();
        bool hasCode = false;
        const auto below = Below(layers, folder);
        for (const auto& file : fs::directory_iterator(entry.path())) {
            const auto extension = file.path().extension();
            if (extension != ".h" && extension != ".cpp") {
                continue;
            }
            hasCode = true;
            std::ifstream in(file.path());
            int number = 0;
            for (std::string line; std::getline(in, line);) {
                ++number;
                const auto included = QuotedInclude(line);
                if (!included) {
                    continue;
                }
                const std::string& target = *included;
                const auto where = folder + "/" + file.path().filename().string() + ":" + std::to_string(number);
                const auto slash = target.find('/');
                if (slash == std::string::npos) {
                    if (!fs::exists(entry.path() / target)) {
                        report.problems.push_back(where + " includes \"" + target + "\", which is not in " + folder);
                    }
                    continue;
                }
                const auto other = target.substr(0, slash);
                if (other == "." || other == ".." || !fs::is_directory(sourceRoot / other)) {
                    report.problems.push_back(where + " includes \"" + target + "\" from outside the source folders");
                } else if (other != folder) {
                    report.includes[folder].insert(other);
                    if (below.count(other) == 0) {
                        report.problems.push_back(where + " includes \"" + target + "\": " + folder +
                                                  " does not depend on " + other + " (an upward include)");
                    }
                }
            }
        }
        if (hasCode && layers.count(folder) == 0) {
            report.problems.push_back(folder + " holds code but builds no library");
        }
    }
    return report;
}

std::string Joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const auto& line : lines) {
        text += line + "\n";
    }
    return text;
}

class SyntheticTree : public ::testing::Test {
protected:
    void Write(const std::string& relative, const std::string& text)
    {
        const auto path = root.Path() / relative;
        fs::create_directories(path.parent_path());
        std::ofstream(path) << text;
    }
    Report Check(const std::string& layersText)
    {
        std::istringstream in(layersText);
        return CheckTree(root.Path(), ParseLayers(in));
    }
    test_support::TempDir root;
};

TEST_F(SyntheticTree, DownwardIncludesPassAndAnUpwardOneIsNamed)
{
    Write("low/a.h", "#include \"b.h\"\n#include <vector>\n");
    Write("low/b.h", "");
    Write("mid/c.cpp", "#include \"low/a.h\"\n");
    Write("high/d.cpp", "#include \"mid/c.h\"\n  #  include \"low/b.h\"\n");
    Write("mid/c.h", "");
    const auto layers = "low:\nmid: low\nhigh: mid\n";
    EXPECT_EQ(Joined(Check(layers).problems), "");

    Write("low/e.cpp", "// the decoder must not know the display\n#include \"high/d.h\"\n");
    const auto report = Check(layers);
    ASSERT_EQ(report.problems.size(), 1u) << Joined(report.problems);
    EXPECT_NE(report.problems[0].find("low/e.cpp:2"), std::string::npos);
    EXPECT_NE(report.problems[0].find("upward include"), std::string::npos);
    EXPECT_EQ(report.includes.at("low"), std::set<std::string>{"high"});
    EXPECT_EQ(report.includes.at("high"), (std::set<std::string>{"low", "mid"}));
}

TEST_F(SyntheticTree, CyclesUnknownFoldersAndStrayHeadersAreReported)
{
    Write("a/x.cpp", "#include \"y.h\"\n");   // y.h lives in b, not beside x.cpp
    Write("b/y.h", "#include \"../a/z.h\"\n"); // a path that climbs out of the folder
    Write("c/w.cpp", "");
    const auto report = Check("a: b\nb: a ghost\n");
    const auto text = Joined(report.problems);
    EXPECT_NE(text.find("a depends on itself"), std::string::npos) << text;
    EXPECT_NE(text.find("b depends on itself"), std::string::npos) << text;
    EXPECT_NE(text.find("b depends on ghost, which is not a library"), std::string::npos) << text;
    EXPECT_NE(text.find("a/x.cpp:1 includes \"y.h\", which is not in a"), std::string::npos) << text;
    EXPECT_NE(text.find("b/y.h:1 includes \"../a/z.h\" from outside"), std::string::npos) << text;
    EXPECT_NE(text.find("c holds code but builds no library"), std::string::npos) << text;
}

TEST(IncludeLayers, SourceTreeHasNoUpwardInclude)
{
    std::ifstream in(RVIZ_PLUGIN_LAYERS_FILE);
    ASSERT_TRUE(in.good()) << RVIZ_PLUGIN_LAYERS_FILE;
    const auto layers = ParseLayers(in);
    for (const auto* folder : {"foundation", "frames", "decoder_switch", "overlay", "kora_vision"}) {
        EXPECT_EQ(layers.count(folder), 1u) << folder;
    }
    const auto report = CheckTree(RVIZ_PLUGIN_SOURCE_ROOT, layers);
    for (const auto& [folder, dependencies] : layers) {
        std::cout << folder << " depends on:";
        for (const auto& dependency : dependencies) {
            std::cout << " " << dependency;
        }
        std::cout << "; includes:";
        if (report.includes.count(folder) != 0) {
            for (const auto& other : report.includes.at(folder)) {
                std::cout << " " << other;
            }
        }
        std::cout << "\n";
    }
    EXPECT_EQ(Joined(report.problems), "");
}

} // namespace
