// Test main of the library's family tests. With --vdl-path=<name> every
// test runs on that code path; a path that this processor cannot run skips
// the whole program instead of failing it.
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "vdlcore.h"

namespace {

struct PathChoice {
    const char* name;
    VdlCpuType type;
    int path;
};

const PathChoice choices[] = {
    {"baseline", vdlCpuUnknown, 0},
    {"vec256", vdlCpuAvx2, 1},
    {"vec512", vdlCpuAvx512, 2},
};

class PathEnvironment : public ::testing::Environment {
public:
    explicit PathEnvironment(std::string skipReason) : m_skipReason(std::move(skipReason)) {}
    void SetUp() override
    {
        if (!m_skipReason.empty())
            GTEST_SKIP() << m_skipReason;
    }

private:
    std::string m_skipReason;
};

// Selects the path named by the argument; the reason to skip, or "".
std::string selectPath(const char* name)
{
    for (const PathChoice& c : choices) {
        if (std::strcmp(c.name, name) != 0)
            continue;
        if (vdlInitCpu(c.type) < 0)
            return std::string("this processor cannot run the ") + name + " path";
        if (vdlGetCodePath() != c.path)
            return std::string("the library was built without the ") + name + " path";
        return "";
    }
    return std::string("unknown code path ") + name;
}

} // namespace

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    const char* const prefix = "--vdl-path=";
    for (int i = 1; i < argc; ++i)
        if (std::strncmp(argv[i], prefix, std::strlen(prefix)) == 0)
            ::testing::AddGlobalTestEnvironment(
                new PathEnvironment(selectPath(argv[i] + std::strlen(prefix))));
    return RUN_ALL_TESTS();
}
