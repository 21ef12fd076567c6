// Gaussian selection: sign tables and shortlists against bit-by-bit models,
// and selected mixture scores against a brute-force log-sum over the marked
// components.
#include <cmath>
#include <functional>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "logsel_reference.h"
#include "scaled_call.h"
#include "vdlsr.h"

using namespace logselref;

namespace {

// `clust` rows of `width` random bytes and their row table.
struct Shortlists {
    Shortlists(std::mt19937& rng, int clust, int width) : rows(clust, std::vector<uint8_t>(width))
    {
        std::uniform_int_distribution<int> byte(0, 255);
        for (auto& row : rows) {
            for (auto& b : row)
                b = static_cast<uint8_t>(byte(rng));
            table.push_back(row.data());
        }
    }
    std::vector<std::vector<uint8_t>> rows;
    std::vector<Vdl8u*> table;
};

std::vector<int> randomInts(std::mt19937& rng, int count, int lo, int hi)
{
    return convert<int>(randomValues<int>(rng, count, lo, hi));
}

// Mixture bits from shift on, of every height, up to the last bit of a row.
struct BitRange {
    int width, shift, height;
};
const BitRange ranges[] = {{5, 0, 1}, {5, 3, 6}, {5, 13, 8}, {5, 7, 9}, {5, 11, 17}, {3, 7, 17}};

// For each owner o, counts[o] random values below `range`, listed in order,
// and the (row, component) bits they name: the owner is the row of a row
// form and the component of a column form. The list ends in a spare 0.
struct Listing {
    std::vector<int> idx;
    std::vector<std::pair<int, int>> marks;
};

Listing listing(std::mt19937& rng, const std::vector<int>& counts, int range, bool ownerIsRow)
{
    Listing l;
    for (int o = 0; o < static_cast<int>(counts.size()); ++o)
        for (int v : randomInts(rng, counts[o], 0, range - 1)) {
            l.idx.push_back(v);
            l.marks.push_back(ownerIsRow ? std::make_pair(o, v) : std::make_pair(v, o));
        }
    l.idx.push_back(0);
    return l;
}

TEST(SignTable, EachFrameOrsTheShortlistsOfItsClusters)
{
    std::mt19937 rng(41);
    const int clust = 7, frames = 5, num = 3;
    for (const BitRange& r : ranges) {
        SCOPED_TRACE("shift " + std::to_string(r.shift) + " height " + std::to_string(r.height));
        const Shortlists lists(rng, clust, r.width);
        const int bytes = (r.height + 7) / 8;
        // The fixed form lists `num` clusters a frame; the Var form 0 to 4.
        for (bool var : {false, true}) {
            const std::vector<int> counts = var ? randomInts(rng, frames, 0, 4) : std::vector<int>(frames, num);
            const Listing l = listing(rng, counts, clust, true);
            std::vector<std::vector<int>> perFrame(frames);
            for (const auto& m : l.marks)
                perFrame[m.first].push_back(m.second);
            std::vector<Vdl8u> sign(frames * bytes, 0xA5);
            ASSERT_EQ(var ? vdlsBuildSignTable_Var_8u1u(l.idx.data(), counts.data(), lists.table.data(), clust,
                                                        r.width, r.shift, sign.data(), frames, r.height)
                          : vdlsBuildSignTable_8u1u(l.idx.data(), num, lists.table.data(), clust, r.width,
                                                    r.shift, sign.data(), frames, r.height),
                      vdlStsNoErr);
            EXPECT_EQ(sign, signTable(perFrame, lists.rows, r.shift, r.height)) << (var ? "Var" : "fixed");
        }
    }
}

// A fill clears the mixture's bits of every row, then sets the listed
// (row, component) pairs; every other bit stays as it was.
TEST(Shortlists, RowAndColumnFormsSetExactlyTheListedBits)
{
    std::mt19937 rng(43);
    const int clust = 6, num = 3;
    for (const BitRange& r : ranges) {
        SCOPED_TRACE("shift " + std::to_string(r.shift) + " height " + std::to_string(r.height));
        auto check = [&](const char* form, const Listing& l, const std::function<VdlStatus(Vdl8u**)>& fill) {
            Shortlists lists(rng, clust, r.width);
            auto want = lists.rows;
            for (auto& row : want)
                for (int j = 0; j < r.height; ++j)
                    setBitOf(row, r.shift + j, false);
            for (const auto& m : l.marks)
                setBitOf(want[m.first], r.shift + m.second, true);
            ASSERT_EQ(fill(lists.table.data()), vdlStsNoErr) << form;
            EXPECT_EQ(lists.rows, want) << form;
        };
        const Listing row = listing(rng, std::vector<int>(clust, num), r.height, true);
        check("Row", row, [&](Vdl8u** t) {
            return vdlsFillShortlist_Row_1u(row.idx.data(), r.height, num, t, clust, r.width, r.shift);
        });
        const std::vector<int> rowCounts = randomInts(rng, clust, 0, 4);
        const Listing rowVar = listing(rng, rowCounts, r.height, true);
        check("RowVar", rowVar, [&](Vdl8u** t) {
            return vdlsFillShortlist_RowVar_1u(rowVar.idx.data(), rowCounts.data(), r.height, t, clust, r.width,
                                               r.shift);
        });
        const Listing column = listing(rng, std::vector<int>(r.height, num), clust, false);
        check("Column", column, [&](Vdl8u** t) {
            return vdlsFillShortlist_Column_1u(column.idx.data(), num, t, clust, r.width, r.shift, r.height);
        });
        const std::vector<int> columnCounts = randomInts(rng, r.height, 0, 3);
        const Listing columnVar = listing(rng, columnCounts, clust, false);
        check("ColumnVar", columnVar, [&](Vdl8u** t) {
            return vdlsFillShortlist_ColumnVar_1u(columnVar.idx.data(), columnCounts.data(), t, clust, r.width,
                                                  r.shift, r.height);
        });
    }
}

// ---- selected mixture scores

// The scene in the layouts of one element type.
template <class T>
struct Layouts {
    Layouts(const std::vector<double>& x, const std::vector<double>& mean, const std::vector<double>& var,
            int frames, int height, int width, int step)
        : x(x, frames, width, step), mean(mean, height, width, step), var(var, height, width, step) {}
    RowSet<T> x, mean, var;
};

// Frames and a mixture of whole numbers that float and 16-bit data hold
// alike; step wider than the width, which is one past a vector of floats.
struct Scene {
    static constexpr int frames = 6, height = 11, width = 17, step = 20;

    explicit Scene(std::mt19937 rng)
        : x(randomValues<Vdl16s>(rng, frames * width, -6, 6)),
          mean(randomValues<Vdl16s>(rng, height * width, -6, 6)),
          var(randomValues<Vdl16s>(rng, height * width, 1, 3)),
          val(convert<Vdl32f>(randomValues<Vdl32f>(rng, height, -5, 0))),
          f(x, mean, var, frames, height, width, step), s(x, mean, var, frames, height, width, step)
    {
        for (int m : randomInts(rng, frames * height, -200, 255))
            sign.push_back(static_cast<Vdl8u>(m < 0 ? 0 : m));
        // Frame 1 has no mark, frame 2 every one.
        std::fill(sign.begin() + height, sign.begin() + 2 * height, 0);
        std::fill(sign.begin() + 2 * height, sign.begin() + 3 * height, 1);
    }
    const Layouts<Vdl32f>& in(Vdl32f) const { return f; }
    const Layouts<Vdl16s>& in(Vdl16s) const { return s; }

    std::vector<double> x, mean, var;
    std::vector<Vdl32f> val;
    std::vector<Vdl8u> sign;
    Layouts<Vdl32f> f;
    Layouts<Vdl16s> s;
};

using SelectFn = std::function<VdlStatus(const Scene&, Vdl32f* result, Vdl32f floor, int sf)>;

struct SelectForm {
    std::string name;
    bool idVar, scaled;
    SelectFn call;
};

// Test names show the form, not the bytes of the entry.
void PrintTo(const SelectForm& form, std::ostream* os) { *os << form.name; }

// A form over data of type T, with or without variances (IdVar), rows
// `step` apart or behind a table: the arguments before the weights differ.
template <class T, bool IdVar, bool Table, class Fn>
SelectForm form(std::string name, Fn fn)
{
    const SelectFn call = [fn](const Scene& s, Vdl32f* r, Vdl32f floor, int sf) {
        const Layouts<T>& l = s.in(T());
        auto with = [&](auto... head) {
            return callScaled(fn, sf, head..., s.val.data(), s.sign.data(), Scene::height, r, Scene::frames,
                              floor);
        };
        if constexpr (Table && IdVar)
            return with(l.x.table.data(), l.mean.table.data(), Scene::width);
        else if constexpr (Table)
            return with(l.x.table.data(), l.mean.table.data(), l.var.table.data(), Scene::width);
        else if constexpr (IdVar)
            return with(l.x.flat.data(), l.mean.flat.data(), Scene::step, Scene::width);
        else
            return with(l.x.flat.data(), l.mean.flat.data(), l.var.flat.data(), Scene::step, Scene::width);
    };
    return {name, IdVar, std::is_integral<T>::value, call};
}

std::vector<SelectForm> selectForms()
{
    return {
        form<Vdl32f, false, false>("Select_32f_D2", vdlsLogGaussMixture_Select_32f_D2),
        form<Vdl32f, true, false>("SelectIdVar_32f_D2", vdlsLogGaussMixture_SelectIdVar_32f_D2),
        form<Vdl16s, false, false>("SelectScaled_16s32f_D2", vdlsLogGaussMixture_SelectScaled_16s32f_D2),
        form<Vdl16s, true, false>("SelectIdVarScaled_16s32f_D2", vdlsLogGaussMixture_SelectIdVarScaled_16s32f_D2),
        form<Vdl32f, false, true>("Select_32f_D2L", vdlsLogGaussMixture_Select_32f_D2L),
        form<Vdl32f, true, true>("SelectIdVar_32f_D2L", vdlsLogGaussMixture_SelectIdVar_32f_D2L),
        form<Vdl16s, false, true>("SelectScaled_16s32f_D2L", vdlsLogGaussMixture_SelectScaled_16s32f_D2L),
        form<Vdl16s, true, true>("SelectIdVarScaled_16s32f_D2L", vdlsLogGaussMixture_SelectIdVarScaled_16s32f_D2L),
    };
}

class SelectScoring : public ::testing::TestWithParam<SelectForm> {};

TEST_P(SelectScoring, LogSumsTheMarkedComponentsOnly)
{
    const SelectForm& form = GetParam();
    const Scene scene(std::mt19937(50));
    const Vdl32f floor = -1e4f;
    for (int sf : form.scaled ? std::vector<int>{0, 3, -1} : std::vector<int>{0}) {
        std::vector<Vdl32f> got(Scene::frames + 1, 12345.0f);
        ASSERT_EQ(form.call(scene, got.data(), floor, sf), vdlStsNoErr);
        EXPECT_EQ(got[Scene::frames], 12345.0f) << "wrote past the last frame";
        const gaussref::Var kind = form.idVar ? gaussref::Var::Unit : gaussref::Var::Precision;
        for (int f = 0; f < Scene::frames; ++f) {
            std::vector<double> scores;
            for (int j = 0; j < Scene::height; ++j)
                if (scene.sign[f * Scene::height + j])
                    scores.push_back(scene.val[j] - 0.5 * std::ldexp(1.0, -sf) *
                                                        gaussref::quadForm(&scene.x[f * Scene::width],
                                                                           &scene.mean[j * Scene::width],
                                                                           &scene.var[j * Scene::width],
                                                                           Scene::width, kind));
            if (scores.empty()) {
                EXPECT_EQ(got[f], floor) << "frame " << f << " has no mark";
                continue;
            }
            const double want = logSum(scores);
            EXPECT_NEAR(got[f], want, 1e-5 * (1 + std::fabs(want))) << "frame " << f << " sf " << sf;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(EveryForm, SelectScoring, ::testing::ValuesIn(selectForms()),
                         [](const ::testing::TestParamInfo<SelectForm>& info) { return info.param.name; });

} // namespace
