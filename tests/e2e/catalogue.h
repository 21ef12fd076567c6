// What every family's catalogue test checks of the built program: the -e
// listing of its functions with their classes and modules, and a quick
// Manual run of the family that ends clean over grids of the expected size.
// A family's file gives its row of FamilyCatalogue and its own checks.
#ifndef KELVAR_CATALOGUE_H
#define KELVAR_CATALOGUE_H

#include <map>
#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "run_program.h"

namespace kelvar_e2e {

// A test class of the catalogue: its module and the functions it times,
// separated by blanks, where "a{b,c}d" stands for "abd acd".
struct TestClass {
    const char* name;
    const char* source;
    const char* functions;
};

// A family's row of FamilyCatalogue.
struct Family {
    const char* name;
    std::vector<TestClass> classes;
    std::map<std::string, int> rows;  // table rows of a few functions after a quick run
};

inline std::vector<std::string> expandBraces(const std::string& pattern) {
    const size_t open = pattern.find('{'), close = pattern.find('}', open);
    if (open == std::string::npos) return {pattern};
    std::vector<std::string> out;
    for (const std::string& choice : split(pattern.substr(open + 1, close - open - 1), ','))
        for (const std::string& rest : expandBraces(pattern.substr(close + 1)))
            out.push_back(pattern.substr(0, open) + choice + rest);
    return out;
}

// Function name -> (class, module), from the family's patterns or from the
// rows of an -e listing (number, function, class, module, each cell
// followed by a tab).
using Listing = std::map<std::string, std::pair<std::string, std::string>>;

inline Listing expectedListing(const Family& family) {
    Listing names;
    for (const TestClass& c : family.classes)
        for (const std::string& pattern : split(c.functions, ' '))
            if (!pattern.empty())
                for (const std::string& f : expandBraces(pattern)) names[f] = {c.name, c.source};
    return names;
}

inline Listing listing(const std::string& out) {
    Listing rows;
    for (const std::string& line : split(out, '\n')) {
        std::vector<std::string> cells = split(line, '\t');
        if (cells.size() == 5 && cells[0] != "   #") rows[cells[1]] = {cells[2], cells[3]};
    }
    return rows;
}

// Cells of the performance-table rows.
using Rows = std::vector<std::vector<std::string>>;

// The cells of each performance-table row of one function, named as the
// table splits it: prefix and base, types, descriptor ("-" for none).
inline Rows rowsOf(const std::string& table, const std::string& base, const std::string& types,
                   const std::string& descr) {
    Rows rows;
    for (const std::string& line : split(table, '\n')) {
        std::vector<std::string> cells = split(line, ',');
        if (cells.size() > 12 && cells[0] == base && cells[1] == types && cells[2] == descr)
            rows.push_back(cells);
    }
    return rows;
}

// Cell `value` of the rows by their cell `key`, say the stride by the
// column count.
inline std::map<std::string, std::string> cellBy(const Rows& rows, size_t key, size_t value) {
    std::map<std::string, std::string> cells;
    for (const std::vector<std::string>& r : rows) cells[r[key]] = r[value];
    return cells;
}

// The values of cell `i` over the rows.
inline std::set<std::string> cellsAt(const Rows& rows, size_t i) {
    std::set<std::string> cells;
    for (const std::vector<std::string>& r : rows) cells.insert(r[i]);
    return cells;
}

// Rows of the performance table per function name.
inline std::map<std::string, int> rowsPerFunction(const std::string& table) {
    std::map<std::string, int> counts;
    for (const std::string& line : split(table, '\n')) {
        std::vector<std::string> cells = split(line, ',');
        if (cells.size() < 3) continue;
        std::string name = cells[0] + "_" + cells[1];
        if (cells[2] != "-" && !cells[2].empty()) name += "_" + cells[2];
        ++counts[name];
    }
    return counts;
}

// The value of a row of the closing summary, as "label,value".
inline std::string summaryValue(const std::string& sum, const std::string& label) {
    for (const std::string& line : split(sum, '\n'))
        if (startsWith(line, label + ",")) return line.substr(label.size() + 1);
    return "(missing)";
}

// The files of one quick run of some classes: each grid point timed once by
// the Manual method. Extra keys (say -d of a size) go behind.
struct QuickRun {
    int code = -1;
    std::string table;    // the performance table
    std::string summary;  // the summary table
};

inline QuickRun runQuickly(const Sandbox& box, const std::vector<TestClass>& classes,
                           const std::vector<std::string>& extra = {}) {
    std::vector<std::string> args = {"-B", "-dMethod=Manual", "-dNumLoops=1",
                                     "-r" + box.path("f.csv"), "-u" + box.path("f_sum.csv")};
    for (const TestClass& c : classes) args.push_back(std::string("-t=") + c.name);
    args.insert(args.end(), extra.begin(), extra.end());
    QuickRun run;
    run.code = box.run(args).code;
    run.table = readFile(box.path("f.csv"));
    run.summary = readFile(box.path("f_sum.csv"));
    return run;
}

// The quick run of a whole family, made once and shared by its checks.
inline const QuickRun& quickRun(const Family& family) {
    static Sandbox box;
    static std::map<const Family*, QuickRun> runs;
    if (!runs.count(&family)) runs[&family] = runQuickly(box, family.classes);
    return runs[&family];
}

// Names the family in test names, where a pointer would print its address.
inline void PrintTo(const Family* family, std::ostream* out) { *out << family->name; }

class FamilyCatalogue : public ::testing::TestWithParam<const Family*> {};

TEST_P(FamilyCatalogue, ListsEachFunctionWithItsClassAndModule) {
    const Family& family = *GetParam();
    std::vector<std::string> args = {"-e"};
    for (const TestClass& c : family.classes) args.push_back(std::string("-t=") + c.name);
    Sandbox box;
    Result r = box.run(args);
    EXPECT_EQ(0, r.code);
    EXPECT_THAT(listing(r.out), ::testing::ContainerEq(expectedListing(family)));
}

TEST_P(FamilyCatalogue, QuickRunEndsCleanOverWholeGrids) {
    const Family& family = *GetParam();
    const QuickRun& run = quickRun(family);
    EXPECT_EQ(0, run.code);
    EXPECT_EQ(std::to_string(expectedListing(family).size()),
              summaryValue(run.summary, ".Number of tests"));
    EXPECT_EQ("0", summaryValue(run.summary, ".Failures       "));
    EXPECT_EQ("0", summaryValue(run.summary, "...Warnings     "));
    std::map<std::string, int> all = rowsPerFunction(run.table), seen;
    for (const auto& expected : family.rows) seen[expected.first] = all[expected.first];
    EXPECT_EQ(family.rows, seen);
}

}  // namespace kelvar_e2e

#endif
