// What every family's catalogue test checks of the built program: the -e
// listing of its functions with their classes and modules, and a quick
// Manual run of the family with its performance and summary tables.
#ifndef KELVAR_CATALOGUE_H
#define KELVAR_CATALOGUE_H

#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "run_program.h"

namespace kelvar_e2e {

// A test class of the catalogue: its module and the functions it times.
struct TestClass {
    const char* name;
    const char* source;
    std::vector<std::string> functions;
};

struct Listed {
    std::string testClass;
    std::string source;
};

// The rows of an -e listing: number, function, class, source, each cell
// followed by a tab.
inline std::map<std::string, Listed> listing(const std::string& out) {
    std::map<std::string, Listed> rows;
    for (const std::string& line : split(out, '\n')) {
        std::vector<std::string> cells = split(line, '\t');
        if (cells.size() != 5 || cells[0] == "   #") continue;
        rows[cells[1]] = Listed{cells[2], cells[3]};
    }
    return rows;
}

// Rows of the performance table per function: a row begins with the
// function's prefix and base name, its types and its descriptor.
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
        if (line.compare(0, label.size() + 1, label + ",") == 0) return line.substr(label.size() + 1);
    return "(missing)";
}

// -e over the classes of a family; the listed rows by function name.
inline std::map<std::string, Listed> listFamily(const Sandbox& box,
                                                const std::vector<TestClass>& family, int* code) {
    std::vector<std::string> args = {"-e"};
    for (const TestClass& c : family) args.push_back(std::string("-t=") + c.name);
    Result r = box.run(args);
    *code = r.code;
    return listing(r.out);
}

// The files of one quick run of a family's classes: each grid point timed
// once by the Manual method. Extra keys (say -d of a size) go behind.
struct QuickRun {
    int code = -1;
    std::string table;    // the performance table
    std::string summary;  // the summary table
};

inline QuickRun runFamilyQuickly(const Sandbox& box, const std::vector<TestClass>& family,
                                 const std::vector<std::string>& extra = {}) {
    std::vector<std::string> args = {"-B", "-dMethod=Manual", "-dNumLoops=1",
                                     "-r" + box.path("family.csv"), "-u" + box.path("family_sum.csv")};
    for (const TestClass& c : family) args.push_back(std::string("-t=") + c.name);
    args.insert(args.end(), extra.begin(), extra.end());
    QuickRun run;
    run.code = box.run(args).code;
    run.table = readFile(box.path("family.csv"));
    run.summary = readFile(box.path("family_sum.csv"));
    return run;
}

// The count of tests that ended in an error result, from the summary.
inline int failures(const std::string& summary) {
    return std::atoi(summaryValue(summary, ".Failures       ").c_str());
}

inline size_t functionCount(const std::vector<TestClass>& family) {
    size_t n = 0;
    for (const TestClass& c : family) n += c.functions.size();
    return n;
}

// -e over the family's classes lists exactly its `count` functions, each
// with its class and module.
inline void expectFamilyListed(const std::vector<TestClass>& family, size_t count) {
    Sandbox box;
    int code = -1;
    std::map<std::string, Listed> rows = listFamily(box, family, &code);
    EXPECT_EQ(0, code);
    EXPECT_EQ(count, rows.size());
    EXPECT_EQ(count, functionCount(family));
    for (const TestClass& c : family) {
        for (const std::string& f : c.functions) {
            SCOPED_TRACE(f);
            std::map<std::string, Listed>::const_iterator row = rows.find(f);
            if (row == rows.end()) {
                ADD_FAILURE() << "not listed";
                continue;
            }
            EXPECT_EQ(c.name, row->second.testClass);
            EXPECT_EQ(c.source, row->second.source);
        }
    }
}

}  // namespace kelvar_e2e

#endif
