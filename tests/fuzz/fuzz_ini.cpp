// Fuzz target: the ini file reader and writer, and the -d data list.
//
// The input is written to a temporary file and opened by kvIniFile in update
// mode, so that closing rewrites it. For an input without NUL bytes the model
// read is compared with a plain model of the format, and the rewritten file
// with what that model writes. For every input the rewrite must be a fixed
// point: reading and rewriting it once more gives the same bytes, apart from
// the one item the format cannot write back (see withoutEmptyKeys).
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "kvistream.h"

namespace {

[[noreturn]] void fail(const char* what) {
    fprintf(stderr, "FINDING: %s\n", what);
    abort();
}

typedef std::vector<std::pair<std::string, std::string>> Items;
typedef std::vector<std::pair<std::string, Items>> Sections;

std::string trimmed(const std::string& s) {
    size_t b = 0, e = s.size();
    while (b < e && strchr(" \t\r", s[b])) ++b;
    while (e > b && strchr(" \t\r", s[e - 1])) --e;
    return s.substr(b, e - b);
}

// The format, written out once more over std::string. Sections and items
// are found through maps, so the model keeps up with the reader on inputs of
// megabytes.
Sections modelRead(const std::string& text) {
    Sections sections;
    std::unordered_map<std::string, size_t> sectionAt;
    std::vector<std::unordered_map<std::string, size_t>> itemAt;
    int current = -1;
    size_t pos = 0;
    while (pos < text.size()) {
        size_t eol = text.find('\n', pos);
        if (eol == std::string::npos) eol = text.size();
        std::string line = text.substr(pos, eol - pos);
        pos = eol + 1;
        size_t comment = line.find("//");
        if (comment != std::string::npos) line.erase(comment);
        line = trimmed(line);
        if (line.empty()) continue;
        size_t open = line.find('[');
        size_t close = open == std::string::npos ? open : line.find(']', open);
        if (close != std::string::npos) {
            std::string name = trimmed(line.substr(open + 1, close - open - 1));
            auto found = sectionAt.find(name);
            if (found != sectionAt.end()) {
                current = (int)found->second;
            } else {
                current = (int)sections.size();
                sectionAt[name] = sections.size();
                sections.push_back({name, Items()});
                itemAt.emplace_back();
            }
            continue;
        }
        if (current < 0) continue;
        size_t eq = line.find('=');
        std::string name = trimmed(line.substr(0, eq));
        std::string value = eq == std::string::npos ? "~~~" : trimmed(line.substr(eq + 1));
        Items& items = sections[current].second;
        auto found = itemAt[current].find(name);
        if (found != itemAt[current].end()) {
            items[found->second].second = value;
        } else {
            itemAt[current][name] = items.size();
            items.push_back({name, value});
        }
    }
    return sections;
}

std::string modelWrite(const Sections& sections) {
    std::string out;
    for (const auto& s : sections) {
        out += "\n[" + s.first + "]\n";
        for (const auto& item : s.second)
            out += item.second == "~~~" ? item.first + "\n" : item.first + "=" + item.second + "\n";
    }
    return out;
}

void compareWithModel(const kvIniFile& ini, const Sections& model) {
    for (const auto& s : model) {
        if (!ini.sectionExist(s.first.c_str())) fail("section lost");
        kvValues* values = ini.getSectionValues(s.first.c_str());
        if (!values) fail("section without values");
        size_t n = 0;
        for (kvValues::iterator v = values->begin(); v != values->end(); ++v, ++n) {
            if (n >= s.second.size()) fail("more items than the model");
            if (s.second[n].first != (*v)->name.c_str()) fail("item name");
            if (s.second[n].second != (*v)->value.c_str()) fail("item value");
            if (!(*v)->comment.empty()) fail("a read item has a comment");
        }
        if (n != s.second.size()) fail("items lost");
        for (const auto& item : s.second) {
            if (!ini.valueExist(s.first.c_str(), item.first.c_str())) fail("valueExist");
            kvString got = ini.read(s.first.c_str(), item.first.c_str(), "default");
            if (item.second != got.c_str()) fail("read");
        }
    }
}

std::string slurp(const char* path) {
    std::string text;
    FILE* f = fopen(path, "rb");
    if (!f) fail("rewritten file missing");
    char buf[4096];
    size_t n;
    while ((n = fread(buf, 1, sizeof buf, f)) > 0) text.append(buf, n);
    fclose(f);
    return text;
}

void spit(const char* path, const uint8_t* data, size_t size) {
    FILE* f = fopen(path, "wb");
    if (!f) fail("cannot write the input file");
    if (size) fwrite(data, 1, size, f);
    fclose(f);
}

// In memory where the system offers it: a disk file is flushed on every
// rewrite and slows the run down tenfold.
const char* tempPath() {
    static std::string path;
    if (path.empty()) {
        const char* dir = getenv("TMPDIR");
        if (access("/dev/shm", W_OK) == 0) dir = "/dev/shm";
        path = std::string(dir && *dir ? dir : "/tmp") + "/kelvar_fuzz_ini_" +
               std::to_string((long)getpid()) + ".ini";
        atexit([] { remove(path.c_str()); });
    }
    return path.c_str();
}

// A bare key with an empty name (the line "=~~~") is written as an empty
// line, which the next read skips: a limit of the format itself, and no loss,
// since only a named parameter reads a value. The empty lines that stand
// before a section line are the writer's own; an item line never looks like
// one, as "[" with a "]" behind it would have made it a section.
std::string withoutEmptyKeys(const std::string& written) {
    std::string out;
    size_t pos = 0;
    while (pos < written.size()) {
        size_t eol = written.find('\n', pos);
        if (eol == std::string::npos) eol = written.size() - 1;
        std::string line = written.substr(pos, eol + 1 - pos);
        pos = eol + 1;
        size_t next = written.find('\n', pos);
        bool beforeSection = pos < written.size() && written[pos] == '[' &&
                             next != std::string::npos && written[next - 1] == ']';
        if (line == "\n" && !beforeSection) continue;
        out += line;
    }
    return out;
}

// Writing through the model's operations keeps it consistent.
void editAndCheck(const char* path, const Sections& model) {
    kvIniFile ini;
    if (!ini.open(path, true)) fail("open of the rewritten file");
    kvString section = model.empty() ? "Kelvar System" : model[0].first.c_str();
    kvString name = model.empty() || model[0].second.empty() ? "Accuracy"
                                                             : model[0].second[0].first.c_str();
    ini.write(section, name, "5", "measured accuracy");
    if (!name.empty() && !(ini.read(section, name, "") == "5")) fail("write then read");
    ini.write(section, "Bare");
    if (!(ini.read(section, "Bare", "") == KV_BARE_KEY)) fail("bare key");
    ini.write("Added");
    if (!ini.sectionExist("Added")) fail("write of a section");
    ini.deleteKey(section, name);
    if (ini.valueExist(section, name)) fail("deleteKey");
    ini.eraseSection(section);
    if (ini.sectionExist(section)) fail("eraseSection");
    ini.setUpdate(false);
}

// The -d list holds the words of a command line: a few, searched one by one.
// Only the first lines of a large input go into it.
const int DATA_LINES = 2000;

void fuzzDataList(const std::string& text) {
    kvDataList list;
    size_t pos = 0;
    for (int lines = 0; pos < text.size() && lines < DATA_LINES; ++lines) {
        size_t eol = text.find('\n', pos);
        if (eol == std::string::npos) eol = text.size();
        std::string line = text.substr(pos, eol - pos);
        pos = eol + 1;
        list.set(line.c_str());
        if (line.find('"') != std::string::npos) continue;
        // Without quotes the words are the non-empty pieces between "=".
        std::vector<std::string> words;
        std::string cur;
        for (char c : line + "=") {
            if (c == '=') {
                if (!cur.empty()) words.push_back(cur);
                cur.clear();
            } else {
                cur += c;
            }
        }
        std::string name = words.empty() ? "" : trimmed(words[0]);
        std::string value = words.size() < 2 ? "" : trimmed(words[1]);
        if (name.empty()) continue;
        kvString got;
        if (!list.get(name.c_str(), got)) fail("data entry lost");
        if (value != got.c_str()) fail("data value");
    }
    int count = 0;
    for (kvList<kvData>::iterator it = list.begin(); it != list.end(); ++it) {
        ++count;
        if (list.find(it->name) != it) fail("data name twice in the list");
    }
    if (count != list.size()) fail("data list size");
}

// Above this size an input only goes through the reader: the model and the
// rewrites cost many times the read in this build, and would hide whether
// the read itself keeps pace with the size, which the per-input time limit
// of run.sh watches.
const size_t READ_ONLY_SIZE = 64 * 1024;

void readOnly(const char* path) {
    kvIniFile ini;
    if (!ini.open(path, false)) fail("open of an existing file");
    ini.read("Kelvar System", "Accuracy", "");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const char* path = tempPath();
    if (size > READ_ONLY_SIZE) {
        spit(path, data, size);
        readOnly(path);
        return 0;
    }
    std::string input(reinterpret_cast<const char*>(data), size);
    bool plain = input.find('\0') == std::string::npos;
    Sections model;
    if (plain) model = modelRead(input);

    spit(path, data, size);
    {
        kvIniFile ini;
        if (!ini.open(path, true)) fail("open of an existing file");
        if (plain) compareWithModel(ini, model);
    }
    std::string first = slurp(path);
    if (plain && first != modelWrite(model)) fail("rewrite differs from the model");
    {
        kvIniFile ini;
        if (!ini.open(path, true)) fail("open of the rewritten file");
    }
    if (slurp(path) != withoutEmptyKeys(first)) fail("rewrite is no fixed point");
    editAndCheck(path, model);

    if (plain) fuzzDataList(input);
    return 0;
}
