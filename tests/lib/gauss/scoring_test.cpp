// Every log-likelihood and Mahalanobis entry point against a double model on
// small random data, in each layout it takes, and against bad arguments.
// What a call computes is read from its name, as the header's conventions
// tell it; its element types and the order of its arguments from its type.
#include <climits>
#include <cmath>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "gauss_reference.h"
#include "vdlsr.h"

using namespace gaussref;

namespace {

enum class Shape { Frames, Components, Mixture, Single };
enum class Op { Set, LogAdd, Max, Distance, MixtureSum };

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
    bool d2, d2l, scaled, low;
};

// One call's data in double: frames and Gaussians as rows of `width`.
struct Scene {
    int width, height, sf;
    std::vector<double> frames, means, vars;
    std::vector<double> values;   // per Gaussian: pVal, or pSrcDst on input
    std::vector<double> dstInit;  // what an accumulating call meets
    double val = 0;
};

template <class S, class D>
Scene makeScene(const Form& form, unsigned seed, int sf, int width, int height)
{
    std::mt19937 rng(seed);
    Scene s{width, form.shape == Shape::Single ? 1 : height, sf, {}, {}, {}, {}, {}, 0};
    const int frameRows = form.shape == Shape::Frames ? s.height : 1;
    const int modelRows = form.manyModels() ? s.height : 1;
    const bool ints = std::is_integral<S>::value, intOut = std::is_integral<D>::value;
    const double span = ints ? 12 : 2, lo = intOut ? -1000 : -30, hi = intOut ? 1000 : 0;
    s.frames = randomValues<S>(rng, frameRows * width, -span, span);
    s.means = randomValues<S>(rng, modelRows * width, -span, span);
    s.vars = randomValues<S>(rng, modelRows * width, ints ? 1 : 0.25, ints ? 10 : 4);
    s.values = randomValues<D>(rng, s.height, lo, hi);
    s.dstInit = randomValues<D>(rng, s.height, intOut ? lo : -40, hi);
    s.val = randomValues<D>(rng, 1, lo, hi)[0];
    return s;
}

// The model's results, each with the error it allows.
struct Expected {
    std::vector<double> out;
    std::vector<double> slack;
};

template <class D>
double allowedError(const Form& form, double magnitude)
{
    if (std::is_integral<D>::value) {
        if (form.low)
            return 1 + 1e-5 * magnitude;
        // Exact sums round exactly; a division by variances may land a half
        // on the other side.
        return form.var == Var::Direct ? 1 : 0;
    }
    return (std::is_same<D, Vdl64f>::value ? 1e-12 : 2e-5) * magnitude;
}

template <class D>
Expected expect(const Form& form, const Scene& s)
{
    const double scale = std::ldexp(1.0, -s.sf);
    const auto toResult = [](double x) { return std::is_integral<D>::value ? roundSaturate<D>(x) : x; };
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
            e.out.push_back(toResult(d));
            e.slack.push_back(allowedError<D>(form, 1 + d));
            continue;
        }
        const double value = form.manyModels() ? s.values[i] : s.val;
        const double term = -0.5 * q * scale;
        const double score = toResult(value + term);
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
        e.slack.push_back(allowedError<D>(form, magnitude));
    }
    if (form.op == Op::MixtureSum) {
        e.out.push_back(total);
        e.slack.push_back(allowedError<D>(form, totalMagnitude));
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
    std::vector<double> got;
    Expected want;
    bool untouched;
};

struct Entry {
    std::string name;
    std::function<Outcome(unsigned seed, int sf, int width, int height, Fault)> run;
};

void PrintTo(const Entry& e, std::ostream* os)
{
    *os << e.name;
}

template <class S, class D, class Fn>
Entry entry(const char* name, Fn fn)
{
    return {name, [name, fn](unsigned seed, int sf, int width, int height, Fault fault) {
                const Form form(name);
                const Scene scene = makeScene<S, D>(form, seed, form.scaled ? sf : 0, width, height);
                Call<S, D> c(form, scene, fault);
                const VdlStatus status = fn(c);
                return Outcome{status, c.output(), expect<D>(form, scene), c.untouched()};
            }};
}

// An order of arguments that entry points share. S, D and the scale factor
// that 16-bit forms take last (Sf: none or one int) come from the signature.
#define ORDER(order, params, args)                                                \
    template <class S, class D, class... Sf>                                      \
    Entry order(const char* name, VdlStatus (*fn) params)                         \
    {                                                                             \
        return entry<S, D>(name, [fn](Call<S, D>& c) { return fn args; });        \
    }

ORDER(framesD2, (const S*, int, const S*, const S*, int, D*, int, D, Sf...),
      (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, c.val, Sf(c.sf)...))
ORDER(framesD2L, (const S* const*, const S*, const S*, int, D*, int, D, Sf...),
      (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, c.val, Sf(c.sf)...))
ORDER(framesIdD2, (const S*, int, const S*, int, D*, int, D, Sf...),
      (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, c.val, Sf(c.sf)...))
ORDER(framesIdD2L, (const S* const*, const S*, int, D*, int, D, Sf...),
      (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, c.val, Sf(c.sf)...))
ORDER(mixD2, (const S*, const S*, int, const S*, int, D*, int, Sf...),
      (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.dst(), c.height, Sf(c.sf)...))
ORDER(mixD2L, (const S* const*, const S* const*, const S*, int, D*, int, Sf...),
      (c.rowsTable(), c.varTable(), c.frame(), c.width, c.dst(), c.height, Sf(c.sf)...))
ORDER(mixValD2, (const S*, const S*, int, const S*, int, const D*, D*, int, Sf...),
      (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.values(), c.dst(), c.height,
       Sf(c.sf)...))
ORDER(mixValD2L, (const S* const*, const S* const*, const S*, int, const D*, D*, int, Sf...),
      (c.rowsTable(), c.varTable(), c.frame(), c.width, c.values(), c.dst(), c.height, Sf(c.sf)...))
ORDER(mixtureD2, (const S*, const S*, const S*, int, int, int, const D*, D*, Sf...),
      (c.frame(), c.rowsFlat(), c.varFlat(), c.height, c.step, c.width, c.values(), c.dst(),
       Sf(c.sf)...))
ORDER(mixtureD2L, (const S*, const S* const*, const S* const*, int, int, const D*, D*, Sf...),
      (c.frame(), c.rowsTable(), c.varTable(), c.height, c.width, c.values(), c.dst(), Sf(c.sf)...))
ORDER(mixtureIdD2, (const S*, const S*, int, int, int, const D*, D*, Sf...),
      (c.frame(), c.rowsFlat(), c.height, c.step, c.width, c.values(), c.dst(), Sf(c.sf)...))
ORDER(mixtureIdD2L, (const S*, const S* const*, int, int, const D*, D*, Sf...),
      (c.frame(), c.rowsTable(), c.height, c.width, c.values(), c.dst(), Sf(c.sf)...))
ORDER(single, (const S*, const S*, const S*, int, D*, D, Sf...),
      (c.frame(), c.mean(), c.var(), c.width, c.dst(), c.val, Sf(c.sf)...))
ORDER(singleId, (const S*, const S*, int, D*, D, Sf...),
      (c.frame(), c.mean(), c.width, c.dst(), c.val, Sf(c.sf)...))
ORDER(distSingle, (const S*, const S*, const S*, int, D*, Sf...),
      (c.frame(), c.mean(), c.var(), c.width, c.dst(), Sf(c.sf)...))
ORDER(distD2, (const S*, int, const S*, const S*, int, D*, int),
      (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height))
ORDER(distD2L, (const S* const*, const S*, const S*, int, D*, int),
      (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height))

#define N(fn) #fn, fn

std::vector<Entry> entries()
{
    return {
        framesD2(N(vdlsLogGauss_32f_D2)), framesD2(N(vdlsLogGauss_64f_D2)),
        framesD2(N(vdlsLogGauss_Scaled_16s32f_D2)), framesD2(N(vdlsLogGauss_16s32s_D2Sfs)),
        framesD2L(N(vdlsLogGauss_32f_D2L)), framesD2L(N(vdlsLogGauss_64f_D2L)),
        framesD2L(N(vdlsLogGauss_Scaled_16s32f_D2L)), framesD2L(N(vdlsLogGauss_16s32s_D2LSfs)),
        framesIdD2(N(vdlsLogGauss_IdVar_32f_D2)), framesIdD2(N(vdlsLogGauss_IdVar_64f_D2)),
        framesIdD2(N(vdlsLogGauss_IdVarScaled_16s32f_D2)),
        framesIdD2(N(vdlsLogGauss_IdVar_16s32s_D2Sfs)), framesIdD2L(N(vdlsLogGauss_IdVar_32f_D2L)),
        framesIdD2L(N(vdlsLogGauss_IdVar_64f_D2L)),
        framesIdD2L(N(vdlsLogGauss_IdVarScaled_16s32f_D2L)),
        framesIdD2L(N(vdlsLogGauss_IdVar_16s32s_D2LSfs)),
        framesD2(N(vdlsLogGauss_Low_16s32s_D2Sfs)), framesD2L(N(vdlsLogGauss_Low_16s32s_D2LSfs)),
        framesD2(N(vdlsLogGauss_LowScaled_16s32f_D2)),
        framesD2L(N(vdlsLogGauss_LowScaled_16s32f_D2L)),
        framesIdD2(N(vdlsLogGauss_IdVarLow_16s32s_D2Sfs)),
        framesIdD2L(N(vdlsLogGauss_IdVarLow_16s32s_D2LSfs)),
        framesIdD2(N(vdlsLogGauss_IdVarLowScaled_16s32f_D2)),
        framesIdD2L(N(vdlsLogGauss_IdVarLowScaled_16s32f_D2L)),
        mixD2(N(vdlsLogGaussMultiMix_32f_D2)), mixD2(N(vdlsLogGaussMultiMix_64f_D2)),
        mixD2(N(vdlsLogGaussMultiMix_Scaled_16s32f_D2)),
        mixD2(N(vdlsLogGaussMultiMix_16s32s_D2Sfs)), mixD2L(N(vdlsLogGaussMultiMix_32f_D2L)),
        mixD2L(N(vdlsLogGaussMultiMix_64f_D2L)), mixD2L(N(vdlsLogGaussMultiMix_Scaled_16s32f_D2L)),
        mixD2L(N(vdlsLogGaussMultiMix_16s32s_D2LSfs)),
        mixD2(N(vdlsLogGaussMultiMix_Low_16s32s_D2Sfs)),
        mixD2L(N(vdlsLogGaussMultiMix_Low_16s32s_D2LSfs)),
        mixD2(N(vdlsLogGaussMultiMix_LowScaled_16s32f_D2)),
        mixD2L(N(vdlsLogGaussMultiMix_LowScaled_16s32f_D2L)), framesD2(N(vdlsLogGaussAdd_32f_D2)),
        framesD2L(N(vdlsLogGaussAdd_32f_D2L)), framesD2(N(vdlsLogGaussAdd_64f_D2)),
        framesD2L(N(vdlsLogGaussAdd_64f_D2L)), framesD2(N(vdlsLogGaussAdd_Scaled_16s32f_D2)),
        framesD2L(N(vdlsLogGaussAdd_Scaled_16s32f_D2L)),
        framesIdD2(N(vdlsLogGaussAdd_IdVar_32f_D2)), framesIdD2L(N(vdlsLogGaussAdd_IdVar_32f_D2L)),
        framesIdD2(N(vdlsLogGaussAdd_IdVar_64f_D2)), framesIdD2L(N(vdlsLogGaussAdd_IdVar_64f_D2L)),
        framesIdD2(N(vdlsLogGaussAdd_IdVarScaled_16s32f_D2)),
        framesIdD2L(N(vdlsLogGaussAdd_IdVarScaled_16s32f_D2L)),
        framesD2(N(vdlsLogGaussAdd_LowScaled_16s32f_D2)),
        framesD2L(N(vdlsLogGaussAdd_LowScaled_16s32f_D2L)),
        framesIdD2(N(vdlsLogGaussAdd_IdVarLowScaled_16s32f_D2)),
        framesIdD2L(N(vdlsLogGaussAdd_IdVarLowScaled_16s32f_D2L)),
        mixValD2(N(vdlsLogGaussAddMultiMix_32f_D2)), mixValD2L(N(vdlsLogGaussAddMultiMix_32f_D2L)),
        mixValD2(N(vdlsLogGaussAddMultiMix_64f_D2)), mixValD2L(N(vdlsLogGaussAddMultiMix_64f_D2L)),
        mixValD2(N(vdlsLogGaussAddMultiMix_Scaled_16s32f_D2)),
        mixValD2L(N(vdlsLogGaussAddMultiMix_Scaled_16s32f_D2L)),
        mixValD2(N(vdlsLogGaussAddMultiMix_LowScaled_16s32f_D2)),
        mixValD2L(N(vdlsLogGaussAddMultiMix_LowScaled_16s32f_D2L)),
        framesD2(N(vdlsLogGaussMax_32f_D2)), framesD2L(N(vdlsLogGaussMax_32f_D2L)),
        framesD2(N(vdlsLogGaussMax_64f_D2)), framesD2L(N(vdlsLogGaussMax_64f_D2L)),
        framesD2(N(vdlsLogGaussMax_Scaled_16s32f_D2)),
        framesD2L(N(vdlsLogGaussMax_Scaled_16s32f_D2L)), framesD2(N(vdlsLogGaussMax_16s32s_D2Sfs)),
        framesD2L(N(vdlsLogGaussMax_16s32s_D2LSfs)), framesIdD2(N(vdlsLogGaussMax_IdVar_32f_D2)),
        framesIdD2L(N(vdlsLogGaussMax_IdVar_32f_D2L)), framesIdD2(N(vdlsLogGaussMax_IdVar_64f_D2)),
        framesIdD2L(N(vdlsLogGaussMax_IdVar_64f_D2L)),
        framesIdD2(N(vdlsLogGaussMax_IdVarScaled_16s32f_D2)),
        framesIdD2L(N(vdlsLogGaussMax_IdVarScaled_16s32f_D2L)),
        framesIdD2(N(vdlsLogGaussMax_IdVar_16s32s_D2Sfs)),
        framesIdD2L(N(vdlsLogGaussMax_IdVar_16s32s_D2LSfs)),
        framesD2(N(vdlsLogGaussMax_LowScaled_16s32f_D2)),
        framesD2L(N(vdlsLogGaussMax_LowScaled_16s32f_D2L)),
        framesD2(N(vdlsLogGaussMax_Low_16s32s_D2Sfs)),
        framesD2L(N(vdlsLogGaussMax_Low_16s32s_D2LSfs)),
        framesIdD2(N(vdlsLogGaussMax_IdVarLowScaled_16s32f_D2)),
        framesIdD2L(N(vdlsLogGaussMax_IdVarLowScaled_16s32f_D2L)),
        framesIdD2(N(vdlsLogGaussMax_IdVarLow_16s32s_D2Sfs)),
        framesIdD2L(N(vdlsLogGaussMax_IdVarLow_16s32s_D2LSfs)),
        mixValD2(N(vdlsLogGaussMaxMultiMix_32f_D2)), mixValD2L(N(vdlsLogGaussMaxMultiMix_32f_D2L)),
        mixValD2(N(vdlsLogGaussMaxMultiMix_64f_D2)), mixValD2L(N(vdlsLogGaussMaxMultiMix_64f_D2L)),
        mixValD2(N(vdlsLogGaussMaxMultiMix_Scaled_16s32f_D2)),
        mixValD2L(N(vdlsLogGaussMaxMultiMix_Scaled_16s32f_D2L)),
        mixValD2(N(vdlsLogGaussMaxMultiMix_16s32s_D2Sfs)),
        mixValD2L(N(vdlsLogGaussMaxMultiMix_16s32s_D2LSfs)),
        mixValD2(N(vdlsLogGaussMaxMultiMix_LowScaled_16s32f_D2)),
        mixValD2L(N(vdlsLogGaussMaxMultiMix_LowScaled_16s32f_D2L)),
        mixValD2(N(vdlsLogGaussMaxMultiMix_Low_16s32s_D2Sfs)),
        mixValD2L(N(vdlsLogGaussMaxMultiMix_Low_16s32s_D2LSfs)),
        mixtureD2(N(vdlsLogGaussMixture_Scaled_16s32f_D2)),
        mixtureD2L(N(vdlsLogGaussMixture_Scaled_16s32f_D2L)),
        mixtureD2(N(vdlsLogGaussMixture_LowScaled_16s32f_D2)),
        mixtureD2L(N(vdlsLogGaussMixture_LowScaled_16s32f_D2L)),
        mixtureD2(N(vdlsLogGaussMixture_32f_D2)), mixtureD2L(N(vdlsLogGaussMixture_32f_D2L)),
        mixtureD2(N(vdlsLogGaussMixture_64f_D2)), mixtureD2L(N(vdlsLogGaussMixture_64f_D2L)),
        mixtureIdD2(N(vdlsLogGaussMixture_IdVarScaled_16s32f_D2)),
        mixtureIdD2L(N(vdlsLogGaussMixture_IdVarScaled_16s32f_D2L)),
        mixtureIdD2(N(vdlsLogGaussMixture_IdVarLowScaled_16s32f_D2)),
        mixtureIdD2L(N(vdlsLogGaussMixture_IdVarLowScaled_16s32f_D2L)),
        mixtureIdD2(N(vdlsLogGaussMixture_IdVar_32f_D2)),
        mixtureIdD2L(N(vdlsLogGaussMixture_IdVar_32f_D2L)),
        mixtureIdD2(N(vdlsLogGaussMixture_IdVar_64f_D2)),
        mixtureIdD2L(N(vdlsLogGaussMixture_IdVar_64f_D2L)), single(N(vdlsLogGaussSingle_32f)),
        single(N(vdlsLogGaussSingle_64f)), single(N(vdlsLogGaussSingle_32f64f)),
        single(N(vdlsLogGaussSingle_Scaled_16s32f)),
        singleId(N(vdlsLogGaussSingle_IdVarScaled_16s32f)),
        single(N(vdlsLogGaussSingle_16s32s_Sfs)), singleId(N(vdlsLogGaussSingle_IdVar_16s32s_Sfs)),
        singleId(N(vdlsLogGaussSingle_IdVar_32f)), singleId(N(vdlsLogGaussSingle_IdVar_64f)),
        singleId(N(vdlsLogGaussSingle_IdVar_32f64f)), single(N(vdlsLogGaussSingle_DirectVar_32f)),
        single(N(vdlsLogGaussSingle_DirectVar_64f)), single(N(vdlsLogGaussSingle_DirectVar_32f64f)),
        single(N(vdlsLogGaussSingle_DirectVarScaled_16s32f)),
        single(N(vdlsLogGaussSingle_LowScaled_16s32f)),
        singleId(N(vdlsLogGaussSingle_IdVarLowScaled_16s32f)),
        single(N(vdlsLogGaussSingle_DirectVar_16s32s_Sfs)),
        single(N(vdlsLogGaussSingle_Low_16s32s_Sfs)),
        singleId(N(vdlsLogGaussSingle_IdVarLow_16s32s_Sfs)), distSingle(N(vdlsMahDistSingle_32f)),
        distSingle(N(vdlsMahDistSingle_64f)), distSingle(N(vdlsMahDistSingle_32f64f)),
        distSingle(N(vdlsMahDistSingle_16s32f)), distSingle(N(vdlsMahDistSingle_16s32s_Sfs)),
        distD2(N(vdlsMahDist_32f_D2)), distD2(N(vdlsMahDist_64f_D2)),
        distD2L(N(vdlsMahDist_32f_D2L)), distD2L(N(vdlsMahDist_64f_D2L)),
        mixD2(N(vdlsMahDistMultiMix_32f_D2)), mixD2(N(vdlsMahDistMultiMix_64f_D2)),
        mixD2L(N(vdlsMahDistMultiMix_32f_D2L)), mixD2L(N(vdlsMahDistMultiMix_64f_D2L))
    };
}

class GaussScoring : public ::testing::TestWithParam<Entry> {};

TEST_P(GaussScoring, MatchesDoubleModel)
{
    // Widths of one, one past the eight double and the sixteen float lanes,
    // and past twice that; the last height spans two of the blocks a kernel
    // call takes.
    const struct { int sf, width, height; } runs[] = {{0, 1, 5}, {3, 9, 5}, {-2, 17, 3}, {1, 33, 70}};
    for (int run = 0; run < 4; ++run) {
        const Outcome o = GetParam().run(100 + run, runs[run].sf, runs[run].width,
                                         runs[run].height, Fault::None);
        ASSERT_EQ(o.status, vdlStsNoErr);
        ASSERT_EQ(o.got.size(), o.want.out.size());
        for (size_t i = 0; i < o.got.size(); ++i)
            EXPECT_NEAR(o.got[i], o.want.out[i], o.want.slack[i]) << "run " << run << ", result " << i;
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
    for (const Case& c : cases) {
        const Outcome got = GetParam().run(7, 0, 7, 5, c.fault);
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

    // The widest distance with the largest precision, and with a negative one.
    const Vdl16s hi[4] = {32767, 32767, 32767, 32767}, lo[4] = {-32768, -32768, -32768, -32768};
    ASSERT_EQ(vdlsLogGaussSingle_16s32s_Sfs(hi, lo, hi, 4, &r, 0, 0), vdlStsNoErr);
    EXPECT_EQ(r, INT_MIN);
    ASSERT_EQ(vdlsLogGaussSingle_Low_16s32s_Sfs(hi, lo, hi, 4, &r, 0, 0), vdlStsNoErr);
    EXPECT_EQ(r, INT_MIN);
    ASSERT_EQ(vdlsLogGaussSingle_16s32s_Sfs(hi, lo, lo, 4, &r, 0, 0), vdlStsNoErr);
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
