// Every log-likelihood and Mahalanobis entry point against a double model on
// small random data, in each layout it takes, and against bad arguments.
// What a call computes is read from its name, as the header's conventions
// tell it.
#include <climits>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "gauss_reference.h"
#include "vdlsr.h"

using namespace gaussref;

namespace {

enum class Shape { Frames, Components, Mixture, Single };
enum class Op { Set, LogAdd, Max, Distance, MixtureSum };
enum class Kind { F32, F64, S16, S32 };

bool has(const std::string& name, const char* part)
{
    return name.find(part) != std::string::npos;
}

// The parts of a name that decide what the call computes.
struct Form {
    explicit Form(const std::string& name)
        : shape(has(name, "MultiMix")  ? Shape::Components
                : has(name, "Mixture") ? Shape::Mixture
                : has(name, "Single")  ? Shape::Single
                                       : Shape::Frames),
          op(has(name, "MahDist")      ? Op::Distance
             : has(name, "Mixture")    ? Op::MixtureSum
             : has(name, "GaussAdd")   ? Op::LogAdd
             : has(name, "GaussMax")   ? Op::Max
                                       : Op::Set),
          var(has(name, "IdVar")       ? Var::Unit
              : has(name, "DirectVar") ? Var::Direct
                                       : Var::Precision),
          src(has(name, "_16s") ? Kind::S16 : has(name, "_64f") ? Kind::F64 : Kind::F32),
          dst(has(name, "32s") ? Kind::S32 : has(name, "64f") ? Kind::F64 : Kind::F32),
          d2(has(name, "_D2") && !has(name, "_D2L")), d2l(has(name, "_D2L")),
          scaled(has(name, "Scaled") || has(name, "Sfs")), low(has(name, "Low"))
    {
    }
    bool manyModels() const { return shape == Shape::Components || shape == Shape::Mixture; }
    int outputs(int height) const
    {
        return shape == Shape::Mixture || shape == Shape::Single ? 1 : height;
    }

    Shape shape;
    Op op;
    Var var;
    Kind src, dst;
    bool d2, d2l, scaled, low;
};

// One call's data in double: frames and Gaussians as rows of `width`.
struct Scene {
    int width = 7;
    int height = 5;
    int sf = 0;
    std::vector<double> frames, means, vars;
    std::vector<double> values;   // per Gaussian: pVal, or pSrcDst on input
    std::vector<double> dstInit;  // what an accumulating call meets
    double val = 0;
};

std::vector<double> valuesOf(Kind kind, std::mt19937& rng, int count, double lo, double hi)
{
    return kind == Kind::S16   ? randomValues<Vdl16s>(rng, count, lo, hi)
           : kind == Kind::S32 ? randomValues<Vdl32s>(rng, count, lo, hi)
           : kind == Kind::F64 ? randomValues<Vdl64f>(rng, count, lo, hi)
                               : randomValues<Vdl32f>(rng, count, lo, hi);
}

Scene makeScene(const Form& form, unsigned seed, int sf, int width = 7, int height = 5)
{
    std::mt19937 rng(seed);
    Scene s;
    s.sf = sf;
    s.width = width;
    s.height = height;
    if (form.shape == Shape::Single)
        s.height = 1;
    const int frameRows = form.shape == Shape::Frames ? s.height : 1;
    const int modelRows = form.manyModels() ? s.height : 1;
    const bool ints = form.src == Kind::S16;
    const double span = ints ? 12 : 2;
    s.frames = valuesOf(form.src, rng, frameRows * s.width, -span, span);
    s.means = valuesOf(form.src, rng, modelRows * s.width, -span, span);
    s.vars = valuesOf(form.src, rng, modelRows * s.width, ints ? 1 : 0.25, ints ? 10 : 4);
    const bool intOut = form.dst == Kind::S32;
    s.values = valuesOf(form.dst, rng, s.height, intOut ? -1000 : -30, intOut ? 1000 : 0);
    s.dstInit = valuesOf(form.dst, rng, s.height, intOut ? -1000 : -40, intOut ? 1000 : 0);
    s.val = valuesOf(form.dst, rng, 1, intOut ? -1000 : -30, intOut ? 1000 : 0)[0];
    return s;
}

// The model's results, each with the error it allows.
struct Expected {
    std::vector<double> out;
    std::vector<double> slack;
};

double allowedError(const Form& form, double magnitude)
{
    if (form.dst == Kind::S32) {
        if (form.low)
            return 1 + 1e-5 * magnitude;
        // Exact sums round exactly; a division by variances may land a half
        // on the other side.
        return form.var == Var::Direct ? 1 : 0;
    }
    return (form.dst == Kind::F64 ? 1e-12 : 2e-5) * magnitude;
}

Expected expect(const Form& form, const Scene& s)
{
    const double scale = std::ldexp(1.0, -s.sf);
    const bool intOut = form.dst == Kind::S32;
    Expected e;
    double total = -INFINITY;
    double totalMagnitude = 0;
    for (int i = 0; i < s.height; ++i) {
        const int fi = form.shape == Shape::Frames ? i : 0;
        const int mi = form.manyModels() ? i : 0;
        const double q = quadForm(&s.frames[fi * s.width], &s.means[mi * s.width],
                                  &s.vars[mi * s.width], s.width, form.var);
        if (form.op == Op::Distance) {
            const double d = std::sqrt(q) * scale;
            e.out.push_back(intOut ? saturateRound32(d) : d);
            e.slack.push_back(allowedError(form, 1 + d));
            continue;
        }
        const double value = form.manyModels() ? s.values[i] : s.val;
        const double term = -0.5 * q * scale;
        double score = value + term;
        if (intOut)
            score = saturateRound32(score);
        double magnitude = 1 + std::fabs(value) + std::fabs(term);
        double out = score;
        if (form.op == Op::LogAdd || form.op == Op::Max) {
            out = form.op == Op::LogAdd ? logAdd(s.dstInit[i], score)
                                        : std::max(s.dstInit[i], score);
            magnitude += std::fabs(s.dstInit[i]);
        }
        if (form.op == Op::MixtureSum) {
            total = logAdd(total, score);
            totalMagnitude = std::max(totalMagnitude, magnitude);
            continue;
        }
        e.out.push_back(out);
        e.slack.push_back(allowedError(form, magnitude));
    }
    if (form.op == Op::MixtureSum) {
        e.out.push_back(total);
        e.slack.push_back(allowedError(form, totalMagnitude));
    }
    return e;
}

enum class Fault { None, NullData, NullDst, ZeroWidth, ZeroHeight, NarrowStep, NullTableRow };

// The arguments of one call in the entry point's own types, with one fault
// put in where a test asks for it. The rows are laid out both ways, so
// that the _D2 and _D2L forms of an algorithm read the same data.
template <class S, class D>
class Call {
public:
    Call(const Form& form, const Scene& s, Fault fault)
        : width(fault == Fault::ZeroWidth ? 0 : s.width),
          height(fault == Fault::ZeroHeight ? 0 : s.height),
          step(fault == Fault::NarrowStep ? s.width - 1 : s.width + 3), sf(s.sf),
          val(static_cast<D>(s.val)), m_fault(fault),
          m_rows(form.manyModels() ? s.means : s.frames, form.shape == Shape::Single ? 0 : s.height,
                 s.width, s.width + 3),
          m_varRows(s.vars, form.manyModels() ? s.height : 0, s.width, s.width + 3),
          m_frame(s.frames.begin(), s.frames.begin() + s.width),
          m_mean(s.means.begin(), s.means.begin() + s.width),
          m_var(s.vars.begin(), s.vars.begin() + s.width), m_values(convert<D>(s.values))
    {
        const int outputs = form.outputs(s.height);
        if (form.op == Op::LogAdd || form.op == Op::Max)
            m_dst = convert<D>(s.dstInit);
        else if (form.shape == Shape::Components)
            m_dst = m_values;
        else
            m_dst.assign(outputs, static_cast<D>(77));
        m_dst.resize(outputs);
        m_initial = m_dst;
        if (fault == Fault::NullTableRow) {
            m_rows.table.back() = nullptr;
            if (!m_varRows.table.empty())
                m_varRows.table.back() = nullptr;
        }
    }

    const S* rowsFlat() const { return guard(m_rows.flat.data()); }
    const S* const* rowsTable() const { return guard(m_rows.table.data()); }
    const S* varFlat() const { return guard(m_varRows.flat.data()); }
    const S* const* varTable() const { return guard(m_varRows.table.data()); }
    const S* frame() const { return guard(m_frame.data()); }
    const S* mean() const { return guard(m_mean.data()); }
    const S* var() const { return guard(m_var.data()); }
    const D* values() const { return guard(m_values.data()); }
    D* dst() { return m_fault == Fault::NullDst ? nullptr : m_dst.data(); }

    std::vector<double> output() const { return std::vector<double>(m_dst.begin(), m_dst.end()); }
    bool untouched() const { return m_dst == m_initial; }

    const int width, height, step, sf;
    const D val;

private:
    template <class P>
    P* guard(P* p) const { return m_fault == Fault::NullData ? nullptr : p; }

    Fault m_fault;
    RowSet<S> m_rows;
    RowSet<S> m_varRows;
    std::vector<S> m_frame, m_mean, m_var;
    std::vector<D> m_values, m_dst, m_initial;
};

struct Outcome {
    VdlStatus status;
    std::vector<double> out;
    bool untouched;
};

struct Entry {
    std::string name;
    std::function<Outcome(const Scene&, Fault)> run;
};

void PrintTo(const Entry& e, std::ostream* os)
{
    *os << e.name;
}

template <class S, class D, class Fn>
Entry entry(const char* name, Fn fn)
{
    return {name, [name, fn](const Scene& scene, Fault fault) {
                Call<S, D> c(Form(name), scene, fault);
                const VdlStatus status = fn(c);
                return Outcome{status, c.output(), c.untouched()};
            }};
}

#define ENTRY(S, D, fn, args) entry<S, D>(#fn, [](Call<S, D>& c) { return fn args; })

std::vector<Entry> entries()
{
    return {
    ENTRY(Vdl32f, Vdl32f, vdlsLogGauss_32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGauss_64f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGauss_Scaled_16s32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGauss_16s32s_D2Sfs,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGauss_32f_D2L,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGauss_64f_D2L,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGauss_Scaled_16s32f_D2L,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGauss_16s32s_D2LSfs,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGauss_IdVar_32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGauss_IdVar_64f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGauss_IdVarScaled_16s32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGauss_IdVar_16s32s_D2Sfs,
          (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGauss_IdVar_32f_D2L,
          (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGauss_IdVar_64f_D2L,
          (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGauss_IdVarScaled_16s32f_D2L,
          (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGauss_IdVar_16s32s_D2LSfs,
          (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGauss_Low_16s32s_D2Sfs,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGauss_Low_16s32s_D2LSfs,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGauss_LowScaled_16s32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGauss_LowScaled_16s32f_D2L,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGauss_IdVarLow_16s32s_D2Sfs,
          (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGauss_IdVarLow_16s32s_D2LSfs,
          (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGauss_IdVarLowScaled_16s32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGauss_IdVarLowScaled_16s32f_D2L,
          (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussMultiMix_32f_D2,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.dst(), c.height)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussMultiMix_64f_D2,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.dst(), c.height)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMultiMix_Scaled_16s32f_D2,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.dst(), c.height, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussMultiMix_16s32s_D2Sfs,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.dst(), c.height, c.sf)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussMultiMix_32f_D2L,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.dst(), c.height)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussMultiMix_64f_D2L,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.dst(), c.height)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMultiMix_Scaled_16s32f_D2L,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.dst(), c.height, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussMultiMix_16s32s_D2LSfs,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.dst(), c.height, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussMultiMix_Low_16s32s_D2Sfs,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.dst(), c.height, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussMultiMix_Low_16s32s_D2LSfs,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.dst(), c.height, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMultiMix_LowScaled_16s32f_D2,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.dst(), c.height, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMultiMix_LowScaled_16s32f_D2L,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.dst(), c.height, c.sf)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussAdd_32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussAdd_32f_D2L,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussAdd_64f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussAdd_64f_D2L,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussAdd_Scaled_16s32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussAdd_Scaled_16s32f_D2L,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussAdd_IdVar_32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussAdd_IdVar_32f_D2L,
          (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussAdd_IdVar_64f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussAdd_IdVar_64f_D2L,
          (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussAdd_IdVarScaled_16s32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussAdd_IdVarScaled_16s32f_D2L,
          (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussAdd_LowScaled_16s32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussAdd_LowScaled_16s32f_D2L,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussAdd_IdVarLowScaled_16s32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussAdd_IdVarLowScaled_16s32f_D2L,
          (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussAddMultiMix_32f_D2,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.values(), c.dst(), c.height)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussAddMultiMix_32f_D2L,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.values(), c.dst(), c.height)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussAddMultiMix_64f_D2,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.values(), c.dst(), c.height)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussAddMultiMix_64f_D2L,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.values(), c.dst(), c.height)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussAddMultiMix_Scaled_16s32f_D2,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.values(), c.dst(), c.height,
           c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussAddMultiMix_Scaled_16s32f_D2L,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.values(), c.dst(), c.height, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussAddMultiMix_LowScaled_16s32f_D2,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.values(), c.dst(), c.height,
           c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussAddMultiMix_LowScaled_16s32f_D2L,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.values(), c.dst(), c.height, c.sf)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussMax_32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussMax_32f_D2L,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussMax_64f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussMax_64f_D2L,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMax_Scaled_16s32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMax_Scaled_16s32f_D2L,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussMax_16s32s_D2Sfs,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussMax_16s32s_D2LSfs,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussMax_IdVar_32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussMax_IdVar_32f_D2L,
          (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussMax_IdVar_64f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussMax_IdVar_64f_D2L,
          (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, c.val)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMax_IdVarScaled_16s32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMax_IdVarScaled_16s32f_D2L,
          (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussMax_IdVar_16s32s_D2Sfs,
          (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussMax_IdVar_16s32s_D2LSfs,
          (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMax_LowScaled_16s32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMax_LowScaled_16s32f_D2L,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussMax_Low_16s32s_D2Sfs,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussMax_Low_16s32s_D2LSfs,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMax_IdVarLowScaled_16s32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMax_IdVarLowScaled_16s32f_D2L,
          (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussMax_IdVarLow_16s32s_D2Sfs,
          (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussMax_IdVarLow_16s32s_D2LSfs,
          (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, c.val, c.sf)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussMaxMultiMix_32f_D2,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.values(), c.dst(), c.height)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussMaxMultiMix_32f_D2L,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.values(), c.dst(), c.height)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussMaxMultiMix_64f_D2,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.values(), c.dst(), c.height)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussMaxMultiMix_64f_D2L,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.values(), c.dst(), c.height)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMaxMultiMix_Scaled_16s32f_D2,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.values(), c.dst(), c.height,
           c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMaxMultiMix_Scaled_16s32f_D2L,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.values(), c.dst(), c.height, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussMaxMultiMix_16s32s_D2Sfs,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.values(), c.dst(), c.height,
           c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussMaxMultiMix_16s32s_D2LSfs,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.values(), c.dst(), c.height, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMaxMultiMix_LowScaled_16s32f_D2,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.values(), c.dst(), c.height,
           c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMaxMultiMix_LowScaled_16s32f_D2L,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.values(), c.dst(), c.height, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussMaxMultiMix_Low_16s32s_D2Sfs,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.values(), c.dst(), c.height,
           c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussMaxMultiMix_Low_16s32s_D2LSfs,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.values(), c.dst(), c.height, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMixture_Scaled_16s32f_D2,
          (c.frame(), c.rowsFlat(), c.varFlat(), c.height, c.step, c.width, c.values(), c.dst(),
           c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMixture_Scaled_16s32f_D2L,
          (c.frame(), c.rowsTable(), c.varTable(), c.height, c.width, c.values(), c.dst(), c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMixture_LowScaled_16s32f_D2,
          (c.frame(), c.rowsFlat(), c.varFlat(), c.height, c.step, c.width, c.values(), c.dst(),
           c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMixture_LowScaled_16s32f_D2L,
          (c.frame(), c.rowsTable(), c.varTable(), c.height, c.width, c.values(), c.dst(), c.sf)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussMixture_32f_D2,
          (c.frame(), c.rowsFlat(), c.varFlat(), c.height, c.step, c.width, c.values(), c.dst())),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussMixture_32f_D2L,
          (c.frame(), c.rowsTable(), c.varTable(), c.height, c.width, c.values(), c.dst())),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussMixture_64f_D2,
          (c.frame(), c.rowsFlat(), c.varFlat(), c.height, c.step, c.width, c.values(), c.dst())),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussMixture_64f_D2L,
          (c.frame(), c.rowsTable(), c.varTable(), c.height, c.width, c.values(), c.dst())),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMixture_IdVarScaled_16s32f_D2,
          (c.frame(), c.rowsFlat(), c.height, c.step, c.width, c.values(), c.dst(), c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMixture_IdVarScaled_16s32f_D2L,
          (c.frame(), c.rowsTable(), c.height, c.width, c.values(), c.dst(), c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMixture_IdVarLowScaled_16s32f_D2,
          (c.frame(), c.rowsFlat(), c.height, c.step, c.width, c.values(), c.dst(), c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussMixture_IdVarLowScaled_16s32f_D2L,
          (c.frame(), c.rowsTable(), c.height, c.width, c.values(), c.dst(), c.sf)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussMixture_IdVar_32f_D2,
          (c.frame(), c.rowsFlat(), c.height, c.step, c.width, c.values(), c.dst())),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussMixture_IdVar_32f_D2L,
          (c.frame(), c.rowsTable(), c.height, c.width, c.values(), c.dst())),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussMixture_IdVar_64f_D2,
          (c.frame(), c.rowsFlat(), c.height, c.step, c.width, c.values(), c.dst())),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussMixture_IdVar_64f_D2L,
          (c.frame(), c.rowsTable(), c.height, c.width, c.values(), c.dst())),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussSingle_32f,
          (c.frame(), c.mean(), c.var(), c.width, c.dst(), c.val)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussSingle_64f,
          (c.frame(), c.mean(), c.var(), c.width, c.dst(), c.val)),
    ENTRY(Vdl32f, Vdl64f, vdlsLogGaussSingle_32f64f,
          (c.frame(), c.mean(), c.var(), c.width, c.dst(), c.val)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussSingle_Scaled_16s32f,
          (c.frame(), c.mean(), c.var(), c.width, c.dst(), c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussSingle_IdVarScaled_16s32f,
          (c.frame(), c.mean(), c.width, c.dst(), c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussSingle_16s32s_Sfs,
          (c.frame(), c.mean(), c.var(), c.width, c.dst(), c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussSingle_IdVar_16s32s_Sfs,
          (c.frame(), c.mean(), c.width, c.dst(), c.val, c.sf)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussSingle_IdVar_32f,
          (c.frame(), c.mean(), c.width, c.dst(), c.val)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussSingle_IdVar_64f,
          (c.frame(), c.mean(), c.width, c.dst(), c.val)),
    ENTRY(Vdl32f, Vdl64f, vdlsLogGaussSingle_IdVar_32f64f,
          (c.frame(), c.mean(), c.width, c.dst(), c.val)),
    ENTRY(Vdl32f, Vdl32f, vdlsLogGaussSingle_DirectVar_32f,
          (c.frame(), c.mean(), c.var(), c.width, c.dst(), c.val)),
    ENTRY(Vdl64f, Vdl64f, vdlsLogGaussSingle_DirectVar_64f,
          (c.frame(), c.mean(), c.var(), c.width, c.dst(), c.val)),
    ENTRY(Vdl32f, Vdl64f, vdlsLogGaussSingle_DirectVar_32f64f,
          (c.frame(), c.mean(), c.var(), c.width, c.dst(), c.val)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussSingle_DirectVarScaled_16s32f,
          (c.frame(), c.mean(), c.var(), c.width, c.dst(), c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussSingle_LowScaled_16s32f,
          (c.frame(), c.mean(), c.var(), c.width, c.dst(), c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32f, vdlsLogGaussSingle_IdVarLowScaled_16s32f,
          (c.frame(), c.mean(), c.width, c.dst(), c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussSingle_DirectVar_16s32s_Sfs,
          (c.frame(), c.mean(), c.var(), c.width, c.dst(), c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussSingle_Low_16s32s_Sfs,
          (c.frame(), c.mean(), c.var(), c.width, c.dst(), c.val, c.sf)),
    ENTRY(Vdl16s, Vdl32s, vdlsLogGaussSingle_IdVarLow_16s32s_Sfs,
          (c.frame(), c.mean(), c.width, c.dst(), c.val, c.sf)),
    ENTRY(Vdl32f, Vdl32f, vdlsMahDistSingle_32f,
          (c.frame(), c.mean(), c.var(), c.width, c.dst())),
    ENTRY(Vdl64f, Vdl64f, vdlsMahDistSingle_64f,
          (c.frame(), c.mean(), c.var(), c.width, c.dst())),
    ENTRY(Vdl32f, Vdl64f, vdlsMahDistSingle_32f64f,
          (c.frame(), c.mean(), c.var(), c.width, c.dst())),
    ENTRY(Vdl16s, Vdl32f, vdlsMahDistSingle_16s32f,
          (c.frame(), c.mean(), c.var(), c.width, c.dst())),
    ENTRY(Vdl16s, Vdl32s, vdlsMahDistSingle_16s32s_Sfs,
          (c.frame(), c.mean(), c.var(), c.width, c.dst(), c.sf)),
    ENTRY(Vdl32f, Vdl32f, vdlsMahDist_32f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height)),
    ENTRY(Vdl64f, Vdl64f, vdlsMahDist_64f_D2,
          (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height)),
    ENTRY(Vdl32f, Vdl32f, vdlsMahDist_32f_D2L,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height)),
    ENTRY(Vdl64f, Vdl64f, vdlsMahDist_64f_D2L,
          (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height)),
    ENTRY(Vdl32f, Vdl32f, vdlsMahDistMultiMix_32f_D2,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.dst(), c.height)),
    ENTRY(Vdl64f, Vdl64f, vdlsMahDistMultiMix_64f_D2,
          (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.dst(), c.height)),
    ENTRY(Vdl32f, Vdl32f, vdlsMahDistMultiMix_32f_D2L,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.dst(), c.height)),
    ENTRY(Vdl64f, Vdl64f, vdlsMahDistMultiMix_64f_D2L,
          (c.rowsTable(), c.varTable(), c.frame(), c.width, c.dst(), c.height)),
    };
}

class GaussScoring : public ::testing::TestWithParam<Entry> {};

TEST_P(GaussScoring, MatchesDoubleModel)
{
    const Form form(GetParam().name);
    // Widths below, inside and one past the kernels' sixteen lanes (twice);
    // the last height spans two of the blocks a kernel call takes.
    const struct { int sf, width, height; } runs[] = {{0, 1, 5}, {3, 7, 5}, {-2, 17, 3}, {1, 33, 70}};
    for (int run = 0; run < 4; ++run) {
        const Scene scene = makeScene(form, 100 + run, form.scaled ? runs[run].sf : 0,
                                      runs[run].width, runs[run].height);
        const Outcome got = GetParam().run(scene, Fault::None);
        ASSERT_EQ(got.status, vdlStsNoErr);
        const Expected want = expect(form, scene);
        ASSERT_EQ(got.out.size(), want.out.size());
        for (size_t i = 0; i < want.out.size(); ++i)
            EXPECT_NEAR(got.out[i], want.out[i], want.slack[i])
                << "run " << run << ", result " << i;
    }
}

TEST_P(GaussScoring, RejectsBadArgumentsWithoutWriting)
{
    const Form form(GetParam().name);
    struct Case {
        Fault fault;
        VdlStatus status;
        const char* what;
    };
    std::vector<Case> cases = {{Fault::NullData, vdlStsNullPtrErr, "null inputs"},
                               {Fault::NullDst, vdlStsNullPtrErr, "null result"},
                               {Fault::ZeroWidth, vdlStsSizeErr, "zero width"}};
    if (form.shape != Shape::Single)
        cases.push_back({Fault::ZeroHeight, vdlStsSizeErr, "zero height"});
    if (form.d2)
        cases.push_back({Fault::NarrowStep, vdlStsStepErr, "step below width"});
    if (form.d2l)
        cases.push_back({Fault::NullTableRow, vdlStsNullPtrErr, "null row in table"});
    const Scene scene = makeScene(form, 7, 0);
    for (const Case& c : cases) {
        const Outcome got = GetParam().run(scene, c.fault);
        EXPECT_EQ(got.status, c.status) << c.what;
        EXPECT_TRUE(got.untouched) << c.what;
    }
}

INSTANTIATE_TEST_SUITE_P(EveryForm, GaussScoring, ::testing::ValuesIn(entries()),
                         [](const ::testing::TestParamInfo<Entry>& info) {
                             return info.param.name.substr(4);
                         });

TEST(GaussScoringEdges, IntegerScoresRoundHalvesAwayFromZeroAndSaturate)
{
    const Vdl16s x[1] = {3}, m[1] = {0}, w[1] = {1};
    Vdl32s r = 0;
    ASSERT_EQ(vdlsLogGaussSingle_16s32s_Sfs(x, m, w, 1, &r, 0, 0), vdlStsNoErr);
    EXPECT_EQ(r, -5);  // -4.5
    ASSERT_EQ(vdlsLogGaussSingle_16s32s_Sfs(x, m, w, 1, &r, 10, 0), vdlStsNoErr);
    EXPECT_EQ(r, 6);  // 5.5
    ASSERT_EQ(vdlsLogGaussSingle_16s32s_Sfs(x, m, w, 1, &r, 0, 1), vdlStsNoErr);
    EXPECT_EQ(r, -2);  // -2.25

    const Vdl16s far[4] = {32767, 32767, 32767, 32767};
    const Vdl16s near[4] = {-32768, -32768, -32768, -32768};
    const Vdl16s heavy[4] = {32767, 32767, 32767, 32767};
    const Vdl16s negative[4] = {-32768, -32768, -32768, -32768};
    ASSERT_EQ(vdlsLogGaussSingle_16s32s_Sfs(far, near, heavy, 4, &r, 0, 0), vdlStsNoErr);
    EXPECT_EQ(r, INT_MIN);
    ASSERT_EQ(vdlsLogGaussSingle_Low_16s32s_Sfs(far, near, heavy, 4, &r, 0, 0), vdlStsNoErr);
    EXPECT_EQ(r, INT_MIN);
    ASSERT_EQ(vdlsLogGaussSingle_16s32s_Sfs(far, near, negative, 4, &r, 0, 0), vdlStsNoErr);
    EXPECT_EQ(r, INT_MAX);
}

TEST(GaussScoringEdges, ExtremeScaleFactorsStayDefined)
{
    const Vdl16s x[2] = {5, -5}, m[2] = {5, -5}, w[2] = {3, 3};
    Vdl32s r = 0;
    // A perfect match scores val at any scale.
    ASSERT_EQ(vdlsLogGaussSingle_16s32s_Sfs(x, m, w, 2, &r, 42, INT_MIN), vdlStsNoErr);
    EXPECT_EQ(r, 42);
    ASSERT_EQ(vdlsLogGaussSingle_16s32s_Sfs(x, m, w, 2, &r, 42, INT_MAX), vdlStsNoErr);
    EXPECT_EQ(r, 42);
    const Vdl16s off[2] = {6, -5};
    ASSERT_EQ(vdlsLogGaussSingle_16s32s_Sfs(off, m, w, 2, &r, 42, INT_MIN), vdlStsNoErr);
    EXPECT_EQ(r, INT_MIN);
}

TEST(GaussScoringEdges, LogAddIntoMinusInfinityGivesThePlainScore)
{
    const Vdl32f src[2][4] = {{0.5f, -1, 2, 0}, {1, 1, 1, 1}};
    const Vdl32f mean[3] = {0, 0.5f, 1};
    const Vdl32f var[3] = {2, 1, 0.5f};
    Vdl32f plain[2] = {0, 0};
    Vdl32f added[2] = {-INFINITY, -INFINITY};
    ASSERT_EQ(vdlsLogGauss_32f_D2(src[0], 4, mean, var, 3, plain, 2, -1.5f), vdlStsNoErr);
    ASSERT_EQ(vdlsLogGaussAdd_32f_D2(src[0], 4, mean, var, 3, added, 2, -1.5f), vdlStsNoErr);
    EXPECT_EQ(added[0], plain[0]);
    EXPECT_EQ(added[1], plain[1]);
}

TEST(GaussScoringEdges, DirectVarRefusesNonPositiveVariances)
{
    const Vdl32f x[3] = {1, 2, 3}, m[3] = {0, 0, 0}, v[3] = {1, 0, 2};
    Vdl32f r = 9;
    EXPECT_EQ(vdlsLogGaussSingle_DirectVar_32f(x, m, v, 3, &r, 0), vdlStsBadArgErr);
    EXPECT_EQ(r, 9);
    const Vdl16s xi[2] = {1, 2}, mi[2] = {0, 0}, vi[2] = {4, -1};
    Vdl32s ri = 9;
    EXPECT_EQ(vdlsLogGaussSingle_DirectVar_16s32s_Sfs(xi, mi, vi, 2, &ri, 0, 0), vdlStsBadArgErr);
    EXPECT_EQ(ri, 9);
}

} // namespace
