// Runs the built program as a user would, from a directory of its own with a
// link to the program in it, and reads back the files it leaves there.
#ifndef KELVAR_RUN_PROGRAM_H
#define KELVAR_RUN_PROGRAM_H

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "test_support.h"

namespace kelvar_e2e {

struct Result {
    int code = -1;
    std::string out;
};

using namespace testsupport;

// A directory with a link to the program in it, so that every default file
// lies there; removed with all it holds.
class Sandbox {
public:
    Sandbox() : m_dir(m_temp.dir()) {
        m_exe = m_dir + "/kelvar";
        if (symlink(KELVAR_EXE, m_exe.c_str()) != 0) m_exe = KELVAR_EXE;
    }

    std::string path(const std::string& name) const { return m_temp.path(name); }
    const std::string& dir() const { return m_dir; }

    // Runs the program from `cwd` (the sandbox by default) with `input` on
    // standard input; returns its exit code and standard output.
    Result run(const std::vector<std::string>& args, const std::string& input = "",
               const std::string& cwd = "") const {
        int in[2], out[2];
        Result r;
        if (pipe(in) != 0 || pipe(out) != 0) return r;
        pid_t pid = fork();
        if (pid == 0) {
            dup2(in[0], 0);
            dup2(out[1], 1);
            close(in[1]);
            close(out[0]);
            if (chdir((cwd.empty() ? m_dir : cwd).c_str()) != 0) _exit(126);
            std::vector<char*> argv;
            argv.push_back(const_cast<char*>(m_exe.c_str()));
            for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
            argv.push_back(nullptr);
            execv(m_exe.c_str(), argv.data());
            _exit(127);
        }
        close(in[0]);
        close(out[1]);
        // The answers are short, far below what a pipe holds.
        if (!input.empty() && write(in[1], input.data(), input.size()) < 0) r.code = -2;
        close(in[1]);
        char buf[4096];
        ssize_t n;
        while ((n = read(out[0], buf, sizeof buf)) > 0) r.out.append(buf, n);
        close(out[0]);
        int status = 0;
        waitpid(pid, &status, 0);
        r.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return r;
    }

private:
    testsupport::TempDir m_temp;
    std::string m_dir;
    std::string m_exe;
};

}  // namespace kelvar_e2e

#endif
