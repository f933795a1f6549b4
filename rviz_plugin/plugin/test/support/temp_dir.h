#ifndef RVIZ_PLUGIN_TEST_TEMP_DIR_H
#define RVIZ_PLUGIN_TEST_TEMP_DIR_H

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace test_support {

// A fresh directory under the system's temporary directory, removed with everything in it.
class TempDir {
public:
    TempDir()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "rviz_plugin_test_XXXXXX").string();
        path = mkdtemp(pattern.data()) != nullptr ? std::filesystem::path(pattern) : std::filesystem::path();
    }
    ~TempDir()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::filesystem::path& Path() const { return path; }
    std::string operator/(const std::string& name) const { return (path / name).string(); }

private:
    std::filesystem::path path;
};

inline std::string ReadFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

inline std::vector<std::string> ReadLines(const std::string& path)
{
    std::ifstream in(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

inline void WriteFile(const std::string& path, const std::string& content)
{
    std::ofstream(path, std::ios::binary | std::ios::trunc) << content;
}

} // namespace test_support

#endif
