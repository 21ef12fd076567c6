// Every entry point must be reachable under its plain C name in its own
// shared object, so that another build can be swapped in or one function
// interposed at load time.
#include <cxxabi.h>
#include <dlfcn.h>
#include <elf.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
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

// Names of the symbols a shared object defines and exports, from its
// dynamic symbol table.
std::vector<std::string> exportedSymbols(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> image{std::istreambuf_iterator<char>(file), {}};
    std::vector<std::string> names;
    if (image.size() < sizeof(Elf64_Ehdr))
        return names;
    const auto* ehdr = reinterpret_cast<const Elf64_Ehdr*>(image.data());
    const auto* sections = reinterpret_cast<const Elf64_Shdr*>(image.data() + ehdr->e_shoff);
    for (int i = 0; i < ehdr->e_shnum; ++i) {
        if (sections[i].sh_type != SHT_DYNSYM)
            continue;
        const char* strings = image.data() + sections[sections[i].sh_link].sh_offset;
        const auto* syms = reinterpret_cast<const Elf64_Sym*>(image.data() + sections[i].sh_offset);
        const size_t count = sections[i].sh_size / sizeof(Elf64_Sym);
        for (size_t k = 0; k < count; ++k) {
            const int bind = ELF64_ST_BIND(syms[k].st_info);
            if (syms[k].st_shndx == SHN_UNDEF || (bind != STB_GLOBAL && bind != STB_WEAK) ||
                ELF64_ST_VISIBILITY(syms[k].st_other) != STV_DEFAULT)
                continue;
            names.emplace_back(strings + syms[k].st_name);
        }
    }
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

TEST(VdlSymbols, EntryPointsHavePlainNamesInTheirOwnLibrary)
{
    vdlsrGetLibVersion();  // the libraries are loaded by now
    for (const Library& lib : libraries) {
        void* handle = openLoaded(lib);
        ASSERT_NE(handle, nullptr) << lib.soname;
        for (const char* name : lib.entries) {
            void* sym = dlsym(handle, name);
            ASSERT_NE(sym, nullptr) << name;
            Dl_info info{};
            ASSERT_NE(dladdr(sym, &info), 0) << name;
            EXPECT_NE(std::strstr(info.dli_fname, lib.soname), nullptr)
                << name << " comes from " << info.dli_fname;
        }
        dlclose(handle);
    }
}

TEST(VdlSymbols, NoLibraryExportsCxxNamesOfItsOwn)
{
    for (const Library& lib : libraries) {
        Dl_info info{};
        void* handle = openLoaded(lib);
        ASSERT_NE(handle, nullptr) << lib.soname;
        ASSERT_NE(dladdr(dlsym(handle, lib.entries.front()), &info), 0);
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
