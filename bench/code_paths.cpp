// Clocks per element of the library's hot functions on each code path this
// processor runs, in one process, beside a plain loop of the same
// computation compiled here for this machine. Each figure is the least of
// many timed batches, so that a busy machine lengthens the run rather than
// the figures.
#include <x86intrin.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "native_loops.h"
#include "vdlsr.h"

namespace {

struct PathChoice {
    const char* name;
    VdlCpuType type;
};

const PathChoice paths[] = {
    {"baseline", vdlCpuUnknown}, {"vec256", vdlCpuAvx2}, {"vec512", vdlCpuAvx512}};

// Calls per timed batch: batches of at least about 200k clocks.
int callsPerBatch(const std::function<void()>& call)
{
    call();
    const unsigned long long t0 = __rdtsc();
    call();
    const unsigned long long one = std::max(1ull, __rdtsc() - t0);
    return static_cast<int>(std::clamp(200000ull / one, 1ull, 10000ull));
}

// Clocks of one call in one batch of `calls` calls.
double batchClocks(const std::function<void()>& call, int calls)
{
    const unsigned long long t0 = __rdtsc();
    for (int c = 0; c < calls; ++c)
        call();
    return double(__rdtsc() - t0) / calls;
}

// A matrix of `rows` frames of `cols` values, rows `step` apart, and one
// Gaussian.
struct Scene {
    int rows, cols, step;
    std::vector<float> src, mean, var, dst;
    Scene(int r, int c) : rows(r), cols(c), step((c + 3) / 4 * 4)
    {
        std::mt19937 rng(7);
        std::uniform_real_distribution<float> u(-2, 2), w(0.25f, 4);
        src.resize(static_cast<size_t>(rows) * step);
        for (float& x : src) x = u(rng);
        mean.resize(cols);
        var.resize(cols);
        for (int k = 0; k < cols; ++k) {
            mean[k] = u(rng);
            var[k] = w(rng);
        }
        dst.resize(rows);
    }
};

struct Case {
    std::string name;
    int rows, cols;
    std::function<void(Scene&)> library;
    std::function<void(Scene&)> native;
};

const std::vector<Case>& cases()
{
    static const std::vector<Case> list = {
        {"vdlsLogGauss_32f_D2", 1000, 40,
         [](Scene& s) {
             vdlsLogGauss_32f_D2(s.src.data(), s.step, s.mean.data(), s.var.data(), s.cols,
                                 s.dst.data(), s.rows, -3.5f);
         },
         [](Scene& s) {
             nativeLogGauss(s.src.data(), s.step, s.mean.data(), s.var.data(), s.cols,
                            s.dst.data(), s.rows, -3.5f);
         }},
        {"vdlsMahDist_32f_D2", 1000, 40,
         [](Scene& s) {
             vdlsMahDist_32f_D2(s.src.data(), s.step, s.mean.data(), s.var.data(), s.cols,
                                s.dst.data(), s.rows);
         },
         [](Scene& s) {
             nativeMahDist(s.src.data(), s.step, s.mean.data(), s.var.data(), s.cols,
                           s.dst.data(), s.rows);
         }},
    };
    return list;
}

} // namespace

// One contender of a case: a code path of the library, or the native loop.
struct Contender {
    const char* name;
    std::function<void()> select;  // sets the path in force before its batches
    std::function<void()> call;
    int calls = 1;
    double best = 1e300;
};

int main()
{
    std::printf("%-24s %9s %10s %10s %10s %10s\n", "function (rows x cols)", "path",
                "clk/elem", "vs base", "native", "vs native");
    constexpr int rounds = 60;
    for (const Case& c : cases()) {
        Scene scene(c.rows, c.cols);
        std::vector<Contender> contenders;
        contenders.push_back({"native", [] {}, [&] { c.native(scene); }});
        for (const PathChoice& p : paths) {
            if (vdlInitCpu(p.type) < 0 || std::string(vdlGetCodePathName()) != p.name)
                continue;  // this processor or this build lacks the path
            const VdlCpuType type = p.type;
            contenders.push_back({p.name, [type] { vdlInitCpu(type); },
                                  [&] { c.library(scene); }});
        }
        for (Contender& k : contenders) {
            k.select();
            k.calls = callsPerBatch(k.call);
        }
        // Rounds of one batch each, in turn, so that a change in the
        // machine's load falls on every contender alike; the least batch
        // of each counts.
        for (int r = 0; r < rounds; ++r)
            for (Contender& k : contenders) {
                k.select();
                k.call();  // a first call after the switch warms what the other one cooled
                k.best = std::min(k.best, batchClocks(k.call, k.calls));
            }
        const double elements = double(c.rows) * c.cols;
        const double native = contenders[0].best / elements;
        const double baseline = contenders.size() > 1 ? contenders[1].best / elements : 0;
        for (size_t i = 1; i < contenders.size(); ++i) {
            const double clocks = contenders[i].best / elements;
            std::printf("%-24s %9s %10.3f %10.2f %10.3f %10.2f\n",
                        (c.name + " " + std::to_string(c.rows) + "x" + std::to_string(c.cols)).c_str(),
                        contenders[i].name, clocks, baseline / clocks, native, clocks / native);
        }
    }
    vdlInit();
    return 0;
}
