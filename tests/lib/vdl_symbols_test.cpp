// Every entry point must be reachable under its plain C name in its own
// shared object, so that another build can be swapped in or one function
// interposed at load time.
#include <cxxabi.h>
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "vdlsr.h"

namespace {

struct Library {
    const char* soname;
    std::vector<const char*> entries;
};

const Library libraries[] = {
    {"libvdlcore.so.1",
     {"vdlGetCpuType", "vdlGetNumCoresOnDie", "vdlGetMaxCacheSizeB", "vdlGetStatusString",
      "vdlInit", "vdlInitCpu", "vdlSetNumThreads", "vdlGetEnabledCpuType", "vdlGetNumThreads"}},
    {"libvdls.so.1", {"vdlsGetLibVersion", "vdlsMalloc_8u", "vdlsFree"}},
    {"libvdlsr.so.1", {"vdlsrGetLibVersion"}},
};

// Names of the symbols a shared object defines and exports, as the
// toolchain's own symbol lister reads its dynamic symbol table.
std::vector<std::string> exportedSymbols(const std::string& path)
{
    std::vector<std::string> names;
    FILE* out = popen(("nm -D --defined-only '" + path + "'").c_str(), "r");
    char line[4096];
    while (out && std::fgets(line, sizeof line, out)) {
        std::string word(line);
        word.erase(word.find_last_not_of("\n") + 1);
        names.push_back(word.substr(word.rfind(' ') + 1));
    }
    if (out)
        pclose(out);
    return names;
}

std::string demangle(const std::string& name)
{
    int status = 0;
    char* text = abi::__cxa_demangle(name.c_str(), nullptr, nullptr, &status);
    std::string result = status == 0 ? text : name;
    std::free(text);
    return result;
}

// The shared object as the program loaded it, found by its first entry
// point: no search path is involved, which a sanitizer's own dlopen would
// not share.
void* openLoaded(const Library& lib)
{
    Dl_info info{};
    void* entry = dlsym(RTLD_DEFAULT, lib.entries.front());
    if (entry == nullptr || dladdr(entry, &info) == 0)
        return nullptr;
    return dlopen(info.dli_fname, RTLD_NOW | RTLD_NOLOAD);
}

} // namespace

TEST(VdlSymbols, EachLibraryExportsItsEntryPointsUnderPlainCNamesOnly)
{
    vdlsrGetLibVersion();  // the libraries are loaded by now
    for (const Library& lib : libraries) {
        void* handle = openLoaded(lib);
        ASSERT_NE(handle, nullptr) << lib.soname;
        Dl_info info{};
        for (const char* name : lib.entries) {
            void* sym = dlsym(handle, name);
            ASSERT_TRUE(sym != nullptr && dladdr(sym, &info) != 0) << name;
            EXPECT_NE(std::strstr(info.dli_fname, lib.soname), nullptr)
                << name << " comes from " << info.dli_fname;
        }
        const std::vector<std::string> names = exportedSymbols(info.dli_fname);
        EXPECT_FALSE(names.empty()) << info.dli_fname;
        for (const std::string& name : names) {
            if (name.rfind("_Z", 0) == 0) {
                EXPECT_EQ(demangle(name).find("vdl"), std::string::npos)
                    << name << " has C++ linkage";
            } else if (name[0] != '_') {
                EXPECT_EQ(name.rfind("vdl", 0), 0u) << name << " is not a library name";
            }
        }
        dlclose(handle);
    }
}
