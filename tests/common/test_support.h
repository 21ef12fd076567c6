// What every kind of test here needs once: a scratch folder that is gone
// with everything in it when the test ends, whole-file reads and writes,
// and the one way the tests split text into lines and comma cells.
#ifndef KELVAR_TEST_SUPPORT_H
#define KELVAR_TEST_SUPPORT_H

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace testsupport {

class TempDir {
public:
    TempDir() {
        std::string pattern = (std::filesystem::temp_directory_path() / "kelvarXXXXXX").string();
        if (mkdtemp(pattern.data()) != nullptr) m_dir = pattern;
    }
    ~TempDir() {
        std::error_code ignored;
        if (!m_dir.empty()) std::filesystem::remove_all(m_dir, ignored);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    std::string path(const std::string& name) const { return m_dir + "/" + name; }
    const std::string& dir() const { return m_dir; }

private:
    std::string m_dir;
};

inline std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

inline void writeFile(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

inline bool exists(const std::string& path) {
    return std::filesystem::exists(path);
}

inline bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

inline bool startsWith(const std::string& text, const std::string& head) {
    return text.compare(0, head.size(), head) == 0;
}

// Cells between separators: n separators give n + 1 cells, so a trailing
// separator gives an empty last cell.
inline std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> cells;
    std::string::size_type begin = 0, end;
    while ((end = text.find(separator, begin)) != std::string::npos) {
        cells.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    cells.push_back(text.substr(begin));
    return cells;
}

// Lines without their line feeds; a final line feed ends the last line and
// starts none.
inline std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> out = split(text, '\n');
    if (!out.empty() && out.back().empty()) out.pop_back();
    return out;
}

}  // namespace testsupport

#endif
