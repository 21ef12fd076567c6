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
enum class Fault { None, NullData, NullDst, ZeroWidth, ZeroHeight, NarrowStep, NullTableRow };

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

    Shape shape;
    Op op;
    Var var;
    bool d2, d2l, scaled, low;
};

// One call: random frames and Gaussians in double for the model, and the
// arguments in the entry point's own types, with one fault put in where a
// test asks for it. Rows are laid out both ways, so that the _D2 and _D2L
// forms of an algorithm read the same data.
template <class S, class D>
class Call {
public:
    Call(const Form& form, unsigned seed, int scaleFactor, int w, int h, Fault fault)
        : width(fault == Fault::ZeroWidth ? 0 : w),
          height(fault == Fault::ZeroHeight ? 0 : form.shape == Shape::Single ? 1 : h),
          step(fault == Fault::NarrowStep ? w - 1 : w + 3), sf(form.scaled ? scaleFactor : 0),
          m_fault(fault)
    {
        std::mt19937 rng(seed);
        h = form.shape == Shape::Single ? 1 : h;
        const bool ints = std::is_integral<S>::value, intOut = std::is_integral<D>::value;
        const double span = ints ? 12 : 2, lo = intOut ? -1000 : -30, hi = intOut ? 1000 : 0;
        frames = randomValues<S>(rng, (form.shape == Shape::Frames ? h : 1) * w, -span, span);
        means = randomValues<S>(rng, (form.manyModels() ? h : 1) * w, -span, span);
        vars = randomValues<S>(rng, (form.manyModels() ? h : 1) * w, ints ? 1 : 0.25, ints ? 10 : 4);
        perGaussian = randomValues<D>(rng, h, lo, hi);  // pVal, or pSrcDst on input
        dstInit = randomValues<D>(rng, h, intOut ? lo : -40, hi);  // what accumulating calls meet
        val = randomValues<D>(rng, 1, lo, hi)[0];

        m_rows = RowSet<S>(form.manyModels() ? means : frames, form.shape == Shape::Single ? 0 : h, w, w + 3);
        m_varRows = RowSet<S>(vars, form.manyModels() ? h : 0, w, w + 3);
        m_frame = convert<S>({frames.begin(), frames.begin() + w});
        m_mean = convert<S>({means.begin(), means.begin() + w});
        m_var = convert<S>({vars.begin(), vars.begin() + w});
        m_values = convert<D>(perGaussian);
        if (form.op == Op::LogAdd || form.op == Op::Max)
            m_dst = convert<D>(dstInit);
        else if (form.shape == Shape::Components)
            m_dst = m_values;
        else
            m_dst.assign(h, static_cast<D>(77));
        m_dst.resize(form.shape == Shape::Mixture ? 1 : h);
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
    std::vector<double> frames, means, vars, perGaussian, dstInit;
    double val = 0;

private:
    template <class P>
    P* guard(P* p) const { return m_fault == Fault::NullData ? nullptr : p; }

    Fault m_fault;
    RowSet<S> m_rows{{}, 0, 0, 0}, m_varRows{{}, 0, 0, 0};
    std::vector<S> m_frame, m_mean, m_var;
    std::vector<D> m_values, m_dst, m_initial;
};

// The model's results, each with the error it allows.
struct Expected {
    std::vector<double> out, slack;
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

template <class S, class D>
Expected expect(const Form& form, const Call<S, D>& c)
{
    const double scale = std::ldexp(1.0, -c.sf);
    const auto toResult = [](double x) { return std::is_integral<D>::value ? roundSaturate<D>(x) : x; };
    Expected e;
    double total = -INFINITY, totalMagnitude = 0;
    for (int i = 0; i < c.height; ++i) {
        const int fi = form.shape == Shape::Frames ? i : 0;
        const int mi = form.manyModels() ? i : 0;
        const double q = quadForm(&c.frames[fi * c.width], &c.means[mi * c.width],
                                  &c.vars[mi * c.width], c.width, form.var);
        if (form.op == Op::Distance) {
            const double d = std::sqrt(q) * scale;
            e.out.push_back(toResult(d));
            e.slack.push_back(allowedError<D>(form, 1 + d));
            continue;
        }
        const double value = form.manyModels() ? c.perGaussian[i] : c.val;
        const double term = -0.5 * q * scale;
        const double score = toResult(value + term);
        double magnitude = 1 + std::fabs(value) + std::fabs(term);
        double out = score;
        if (form.op == Op::LogAdd || form.op == Op::Max) {
            out = form.op == Op::LogAdd ? logAdd(c.dstInit[i], score) : std::max(c.dstInit[i], score);
            magnitude += std::fabs(c.dstInit[i]);
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
Entry entry(const std::string& name, Fn fn)
{
    return {name, [name, fn](unsigned seed, int sf, int width, int height, Fault fault) {
                const Form form(name);
                Call<S, D> c(form, seed, sf, width, height, fault);
                const VdlStatus status = fn(c);
                return Outcome{status, c.output(), expect(form, c), c.untouched()};
            }};
}

// An order of arguments that entry points share. S, D and the scale factor
// that 16-bit forms take last (Sf: none or one int) come from the signature.
#define ORDER(order, params, args)                                                \
    struct order {                                                                \
        template <class S, class D, class... Sf>                                  \
        Entry operator()(const std::string& name, VdlStatus(*fn) params) const    \
        {                                                                         \
            return entry<S, D>(name, [fn](Call<S, D>& c) { return fn args; });    \
        }                                                                         \
    };

ORDER(FramesD2, (const S*, int, const S*, const S*, int, D*, int, D, Sf...),
      (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height, D(c.val), Sf(c.sf)...))
ORDER(FramesD2L, (const S* const*, const S*, const S*, int, D*, int, D, Sf...),
      (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height, D(c.val), Sf(c.sf)...))
ORDER(FramesIdD2, (const S*, int, const S*, int, D*, int, D, Sf...),
      (c.rowsFlat(), c.step, c.mean(), c.width, c.dst(), c.height, D(c.val), Sf(c.sf)...))
ORDER(FramesIdD2L, (const S* const*, const S*, int, D*, int, D, Sf...),
      (c.rowsTable(), c.mean(), c.width, c.dst(), c.height, D(c.val), Sf(c.sf)...))
ORDER(MixD2, (const S*, const S*, int, const S*, int, D*, int, Sf...),
      (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.dst(), c.height, Sf(c.sf)...))
ORDER(MixD2L, (const S* const*, const S* const*, const S*, int, D*, int, Sf...),
      (c.rowsTable(), c.varTable(), c.frame(), c.width, c.dst(), c.height, Sf(c.sf)...))
ORDER(MixValD2, (const S*, const S*, int, const S*, int, const D*, D*, int, Sf...),
      (c.rowsFlat(), c.varFlat(), c.step, c.frame(), c.width, c.values(), c.dst(), c.height,
       Sf(c.sf)...))
ORDER(MixValD2L, (const S* const*, const S* const*, const S*, int, const D*, D*, int, Sf...),
      (c.rowsTable(), c.varTable(), c.frame(), c.width, c.values(), c.dst(), c.height, Sf(c.sf)...))
ORDER(MixtureD2, (const S*, const S*, const S*, int, int, int, const D*, D*, Sf...),
      (c.frame(), c.rowsFlat(), c.varFlat(), c.height, c.step, c.width, c.values(), c.dst(),
       Sf(c.sf)...))
ORDER(MixtureD2L, (const S*, const S* const*, const S* const*, int, int, const D*, D*, Sf...),
      (c.frame(), c.rowsTable(), c.varTable(), c.height, c.width, c.values(), c.dst(), Sf(c.sf)...))
ORDER(MixtureIdD2, (const S*, const S*, int, int, int, const D*, D*, Sf...),
      (c.frame(), c.rowsFlat(), c.height, c.step, c.width, c.values(), c.dst(), Sf(c.sf)...))
ORDER(MixtureIdD2L, (const S*, const S* const*, int, int, const D*, D*, Sf...),
      (c.frame(), c.rowsTable(), c.height, c.width, c.values(), c.dst(), Sf(c.sf)...))
ORDER(Single, (const S*, const S*, const S*, int, D*, D, Sf...),
      (c.frame(), c.mean(), c.var(), c.width, c.dst(), D(c.val), Sf(c.sf)...))
ORDER(SingleId, (const S*, const S*, int, D*, D, Sf...),
      (c.frame(), c.mean(), c.width, c.dst(), D(c.val), Sf(c.sf)...))
ORDER(DistSingle, (const S*, const S*, const S*, int, D*, Sf...),
      (c.frame(), c.mean(), c.var(), c.width, c.dst(), Sf(c.sf)...))
ORDER(DistD2, (const S*, int, const S*, const S*, int, D*, int),
      (c.rowsFlat(), c.step, c.mean(), c.var(), c.width, c.dst(), c.height))
ORDER(DistD2L, (const S* const*, const S*, const S*, int, D*, int),
      (c.rowsTable(), c.mean(), c.var(), c.width, c.dst(), c.height))

// Entries of one order: `names` is the list of the functions as written.
template <class Order, class... Fns>
void add(std::vector<Entry>& entries, Order order, std::string names, Fns... fns)
{
    const auto next = [&names] {
        const size_t comma = std::min(names.find(','), names.size());
        const std::string name = names.substr(0, comma);
        names.erase(0, names.find_first_not_of(", ", comma));
        return name;
    };
    (entries.push_back(order(next(), fns)), ...);
}

#define ADD(order, ...) add(list, order(), #__VA_ARGS__, __VA_ARGS__)

std::vector<Entry> entries()
{
    std::vector<Entry> list;
    ADD(FramesD2, vdlsLogGauss_32f_D2, vdlsLogGauss_64f_D2, vdlsLogGauss_Scaled_16s32f_D2,
        vdlsLogGauss_16s32s_D2Sfs, vdlsLogGauss_Low_16s32s_D2Sfs, vdlsLogGauss_LowScaled_16s32f_D2,
        vdlsLogGaussAdd_32f_D2, vdlsLogGaussAdd_64f_D2, vdlsLogGaussAdd_Scaled_16s32f_D2,
        vdlsLogGaussAdd_LowScaled_16s32f_D2, vdlsLogGaussMax_32f_D2, vdlsLogGaussMax_64f_D2,
        vdlsLogGaussMax_Scaled_16s32f_D2, vdlsLogGaussMax_16s32s_D2Sfs,
        vdlsLogGaussMax_LowScaled_16s32f_D2, vdlsLogGaussMax_Low_16s32s_D2Sfs);
    ADD(FramesD2L, vdlsLogGauss_32f_D2L, vdlsLogGauss_64f_D2L, vdlsLogGauss_Scaled_16s32f_D2L,
        vdlsLogGauss_16s32s_D2LSfs, vdlsLogGauss_Low_16s32s_D2LSfs,
        vdlsLogGauss_LowScaled_16s32f_D2L, vdlsLogGaussAdd_32f_D2L, vdlsLogGaussAdd_64f_D2L,
        vdlsLogGaussAdd_Scaled_16s32f_D2L, vdlsLogGaussAdd_LowScaled_16s32f_D2L,
        vdlsLogGaussMax_32f_D2L, vdlsLogGaussMax_64f_D2L, vdlsLogGaussMax_Scaled_16s32f_D2L,
        vdlsLogGaussMax_16s32s_D2LSfs, vdlsLogGaussMax_LowScaled_16s32f_D2L,
        vdlsLogGaussMax_Low_16s32s_D2LSfs);
    ADD(FramesIdD2, vdlsLogGauss_IdVar_32f_D2, vdlsLogGauss_IdVar_64f_D2,
        vdlsLogGauss_IdVarScaled_16s32f_D2, vdlsLogGauss_IdVar_16s32s_D2Sfs,
        vdlsLogGauss_IdVarLow_16s32s_D2Sfs, vdlsLogGauss_IdVarLowScaled_16s32f_D2,
        vdlsLogGaussAdd_IdVar_32f_D2, vdlsLogGaussAdd_IdVar_64f_D2,
        vdlsLogGaussAdd_IdVarScaled_16s32f_D2, vdlsLogGaussAdd_IdVarLowScaled_16s32f_D2,
        vdlsLogGaussMax_IdVar_32f_D2, vdlsLogGaussMax_IdVar_64f_D2,
        vdlsLogGaussMax_IdVarScaled_16s32f_D2, vdlsLogGaussMax_IdVar_16s32s_D2Sfs,
        vdlsLogGaussMax_IdVarLowScaled_16s32f_D2, vdlsLogGaussMax_IdVarLow_16s32s_D2Sfs);
    ADD(FramesIdD2L, vdlsLogGauss_IdVar_32f_D2L, vdlsLogGauss_IdVar_64f_D2L,
        vdlsLogGauss_IdVarScaled_16s32f_D2L, vdlsLogGauss_IdVar_16s32s_D2LSfs,
        vdlsLogGauss_IdVarLow_16s32s_D2LSfs, vdlsLogGauss_IdVarLowScaled_16s32f_D2L,
        vdlsLogGaussAdd_IdVar_32f_D2L, vdlsLogGaussAdd_IdVar_64f_D2L,
        vdlsLogGaussAdd_IdVarScaled_16s32f_D2L, vdlsLogGaussAdd_IdVarLowScaled_16s32f_D2L,
        vdlsLogGaussMax_IdVar_32f_D2L, vdlsLogGaussMax_IdVar_64f_D2L,
        vdlsLogGaussMax_IdVarScaled_16s32f_D2L, vdlsLogGaussMax_IdVar_16s32s_D2LSfs,
        vdlsLogGaussMax_IdVarLowScaled_16s32f_D2L, vdlsLogGaussMax_IdVarLow_16s32s_D2LSfs);
    ADD(MixD2, vdlsLogGaussMultiMix_32f_D2, vdlsLogGaussMultiMix_64f_D2,
        vdlsLogGaussMultiMix_Scaled_16s32f_D2, vdlsLogGaussMultiMix_16s32s_D2Sfs,
        vdlsLogGaussMultiMix_Low_16s32s_D2Sfs, vdlsLogGaussMultiMix_LowScaled_16s32f_D2,
        vdlsMahDistMultiMix_32f_D2, vdlsMahDistMultiMix_64f_D2);
    ADD(MixD2L, vdlsLogGaussMultiMix_32f_D2L, vdlsLogGaussMultiMix_64f_D2L,
        vdlsLogGaussMultiMix_Scaled_16s32f_D2L, vdlsLogGaussMultiMix_16s32s_D2LSfs,
        vdlsLogGaussMultiMix_Low_16s32s_D2LSfs, vdlsLogGaussMultiMix_LowScaled_16s32f_D2L,
        vdlsMahDistMultiMix_32f_D2L, vdlsMahDistMultiMix_64f_D2L);
    ADD(MixValD2, vdlsLogGaussAddMultiMix_32f_D2, vdlsLogGaussAddMultiMix_64f_D2,
        vdlsLogGaussAddMultiMix_Scaled_16s32f_D2, vdlsLogGaussAddMultiMix_LowScaled_16s32f_D2,
        vdlsLogGaussMaxMultiMix_32f_D2, vdlsLogGaussMaxMultiMix_64f_D2,
        vdlsLogGaussMaxMultiMix_Scaled_16s32f_D2, vdlsLogGaussMaxMultiMix_16s32s_D2Sfs,
        vdlsLogGaussMaxMultiMix_LowScaled_16s32f_D2, vdlsLogGaussMaxMultiMix_Low_16s32s_D2Sfs);
    ADD(MixValD2L, vdlsLogGaussAddMultiMix_32f_D2L, vdlsLogGaussAddMultiMix_64f_D2L,
        vdlsLogGaussAddMultiMix_Scaled_16s32f_D2L, vdlsLogGaussAddMultiMix_LowScaled_16s32f_D2L,
        vdlsLogGaussMaxMultiMix_32f_D2L, vdlsLogGaussMaxMultiMix_64f_D2L,
        vdlsLogGaussMaxMultiMix_Scaled_16s32f_D2L, vdlsLogGaussMaxMultiMix_16s32s_D2LSfs,
        vdlsLogGaussMaxMultiMix_LowScaled_16s32f_D2L, vdlsLogGaussMaxMultiMix_Low_16s32s_D2LSfs);
    ADD(MixtureD2, vdlsLogGaussMixture_Scaled_16s32f_D2, vdlsLogGaussMixture_LowScaled_16s32f_D2,
        vdlsLogGaussMixture_32f_D2, vdlsLogGaussMixture_64f_D2);
    ADD(MixtureD2L, vdlsLogGaussMixture_Scaled_16s32f_D2L, vdlsLogGaussMixture_LowScaled_16s32f_D2L,
        vdlsLogGaussMixture_32f_D2L, vdlsLogGaussMixture_64f_D2L);
    ADD(MixtureIdD2, vdlsLogGaussMixture_IdVarScaled_16s32f_D2,
        vdlsLogGaussMixture_IdVarLowScaled_16s32f_D2, vdlsLogGaussMixture_IdVar_32f_D2,
        vdlsLogGaussMixture_IdVar_64f_D2);
    ADD(MixtureIdD2L, vdlsLogGaussMixture_IdVarScaled_16s32f_D2L,
        vdlsLogGaussMixture_IdVarLowScaled_16s32f_D2L, vdlsLogGaussMixture_IdVar_32f_D2L,
        vdlsLogGaussMixture_IdVar_64f_D2L);
    ADD(Single, vdlsLogGaussSingle_32f, vdlsLogGaussSingle_64f, vdlsLogGaussSingle_32f64f,
        vdlsLogGaussSingle_Scaled_16s32f, vdlsLogGaussSingle_16s32s_Sfs,
        vdlsLogGaussSingle_DirectVar_32f, vdlsLogGaussSingle_DirectVar_64f,
        vdlsLogGaussSingle_DirectVar_32f64f, vdlsLogGaussSingle_DirectVarScaled_16s32f,
        vdlsLogGaussSingle_LowScaled_16s32f, vdlsLogGaussSingle_DirectVar_16s32s_Sfs,
        vdlsLogGaussSingle_Low_16s32s_Sfs);
    ADD(SingleId, vdlsLogGaussSingle_IdVarScaled_16s32f, vdlsLogGaussSingle_IdVar_16s32s_Sfs,
        vdlsLogGaussSingle_IdVar_32f, vdlsLogGaussSingle_IdVar_64f, vdlsLogGaussSingle_IdVar_32f64f,
        vdlsLogGaussSingle_IdVarLowScaled_16s32f, vdlsLogGaussSingle_IdVarLow_16s32s_Sfs);
    ADD(DistSingle, vdlsMahDistSingle_32f, vdlsMahDistSingle_64f, vdlsMahDistSingle_32f64f,
        vdlsMahDistSingle_16s32f, vdlsMahDistSingle_16s32s_Sfs);
    ADD(DistD2, vdlsMahDist_32f_D2, vdlsMahDist_64f_D2);
    ADD(DistD2L, vdlsMahDist_32f_D2L, vdlsMahDist_64f_D2L);
    return list;
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

// Hand-worked integer scores: halves round away from zero, the widest
// distance with the largest precision (and with a negative one) saturates,
// and scale factors beyond any shift stay defined.
TEST(GaussScoringEdges, IntegerScoresRoundSaturateAndTakeAnyScaleFactor)
{
    const Vdl16s three[1] = {3}, zero[1] = {0}, one[1] = {1};
    const Vdl16s hi[4] = {32767, 32767, 32767, 32767}, lo[4] = {-32768, -32768, -32768, -32768};
    const Vdl16s x[2] = {5, -5}, w[2] = {3, 3}, off[2] = {6, -5};
    const struct {
        const Vdl16s *x, *m, *w;
        int len, val, sf;
        bool low;
        Vdl32s want;
    } cases[] = {
        {three, zero, one, 1, 0, 0, false, -5},  // -4.5
        {three, zero, one, 1, 10, 0, false, 6},  // 5.5
        {three, zero, one, 1, 0, 1, false, -2},  // -2.25
        {hi, lo, hi, 4, 0, 0, false, INT_MIN},
        {hi, lo, hi, 4, 0, 0, true, INT_MIN},
        {hi, lo, lo, 4, 0, 0, false, INT_MAX},
        {x, x, w, 2, 42, INT_MIN, false, 42},  // a perfect match scores val at any scale
        {x, x, w, 2, 42, INT_MAX, false, 42},
        {off, x, w, 2, 42, INT_MIN, false, INT_MIN},
    };
    for (const auto& c : cases) {
        Vdl32s r = 0;
        const auto score = c.low ? vdlsLogGaussSingle_Low_16s32s_Sfs : vdlsLogGaussSingle_16s32s_Sfs;
        ASSERT_EQ(score(c.x, c.m, c.w, c.len, &r, c.val, c.sf), vdlStsNoErr);
        EXPECT_EQ(r, c.want) << "x[0] " << c.x[0] << " val " << c.val << " sf " << c.sf << " low " << c.low;
    }
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
