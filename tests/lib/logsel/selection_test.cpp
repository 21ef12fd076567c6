// Gaussian selection: sign tables and shortlists against bit-by-bit models,
// and selected mixture scores against a brute-force log-sum over the marked
// components and, with every component marked, the full mixture score.
#include <cmath>
#include <functional>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "../gauss/gauss_reference.h"
#include "logsel_reference.h"
#include "vdlsr.h"

using namespace logselref;

namespace {

// `clust` rows of `width` random bytes and their row table.
struct Shortlists {
    Shortlists(std::mt19937& rng, int clust, int width) : rows(clust, std::vector<uint8_t>(width))
    {
        std::uniform_int_distribution<int> byte(0, 255);
        for (auto& row : rows)
            for (auto& b : row)
                b = static_cast<uint8_t>(byte(rng));
        for (auto& row : rows)
            table.push_back(row.data());
    }
    std::vector<std::vector<uint8_t>> rows;
    std::vector<Vdl8u*> table;
};

std::vector<int> randomInts(std::mt19937& rng, int count, int lo, int hi)
{
    std::uniform_int_distribution<int> dist(lo, hi);
    std::vector<int> v(count);
    for (int& x : v)
        x = dist(rng);
    return v;
}

// Mixture bits from shift on, of every height, up to the last bit of a row.
struct BitRange {
    int width, shift, height;
};
const BitRange ranges[] = {{5, 0, 1}, {5, 3, 6}, {5, 13, 8}, {5, 7, 9}, {5, 11, 17}, {3, 7, 17}};

TEST(SignTable, EachFrameOrsTheShortlistsOfItsClusters)
{
    std::mt19937 rng(41);
    const int clust = 7, frames = 5, num = 3;
    for (const BitRange& r : ranges) {
        SCOPED_TRACE("shift " + std::to_string(r.shift) + " height " + std::to_string(r.height));
        const Shortlists lists(rng, clust, r.width);
        const int bytes = (r.height + 7) / 8;

        const std::vector<int> idx = randomInts(rng, num * frames, 0, clust - 1);
        std::vector<std::vector<int>> perFrame(frames);
        for (int f = 0; f < frames; ++f)
            perFrame[f].assign(idx.begin() + f * num, idx.begin() + (f + 1) * num);
        std::vector<Vdl8u> sign(frames * bytes, 0xA5);
        ASSERT_EQ(vdlsBuildSignTable_8u1u(idx.data(), num, lists.table.data(), clust, r.width,
                                          r.shift, sign.data(), frames, r.height),
                  vdlStsNoErr);
        EXPECT_EQ(sign, signTable(perFrame, lists.rows, r.shift, r.height));

        // Counts of 0 to 4: a frame may belong to no cluster at all.
        const std::vector<int> counts = randomInts(rng, frames, 0, 4);
        std::vector<int> varIdx;
        for (int f = 0; f < frames; ++f) {
            perFrame[f] = randomInts(rng, counts[f], 0, clust - 1);
            varIdx.insert(varIdx.end(), perFrame[f].begin(), perFrame[f].end());
        }
        varIdx.push_back(0);
        std::fill(sign.begin(), sign.end(), 0x5A);
        ASSERT_EQ(vdlsBuildSignTable_Var_8u1u(varIdx.data(), counts.data(), lists.table.data(),
                                              clust, r.width, r.shift, sign.data(), frames,
                                              r.height),
                  vdlStsNoErr);
        EXPECT_EQ(sign, signTable(perFrame, lists.rows, r.shift, r.height));
    }
}

// The model of a fill: the mixture's bits of every row cleared, then the
// listed (row, component) pairs set; every other bit as it was.
std::vector<std::vector<uint8_t>> filled(std::vector<std::vector<uint8_t>> rows, int shift,
                                         int height,
                                         const std::vector<std::pair<int, int>>& marks)
{
    for (auto& row : rows)
        for (int j = 0; j < height; ++j)
            setBitOf(row, shift + j, false);
    for (const auto& m : marks)
        setBitOf(rows[m.first], shift + m.second, true);
    return rows;
}

TEST(Shortlists, RowAndColumnFormsSetExactlyTheListedBits)
{
    std::mt19937 rng(43);
    const int clust = 6, num = 3;
    for (const BitRange& r : ranges) {
        SCOPED_TRACE("shift " + std::to_string(r.shift) + " height " + std::to_string(r.height));
        {
            Shortlists lists(rng, clust, r.width);
            const auto before = lists.rows;
            const std::vector<int> idx = randomInts(rng, num * clust, 0, r.height - 1);
            std::vector<std::pair<int, int>> marks;
            for (int i = 0; i < num * clust; ++i)
                marks.push_back({i / num, idx[i]});
            ASSERT_EQ(vdlsFillShortlist_Row_1u(idx.data(), r.height, num, lists.table.data(),
                                               clust, r.width, r.shift),
                      vdlStsNoErr);
            EXPECT_EQ(lists.rows, filled(before, r.shift, r.height, marks));
        }
        {
            Shortlists lists(rng, clust, r.width);
            const auto before = lists.rows;
            const std::vector<int> counts = randomInts(rng, clust, 0, 4);
            std::vector<int> idx;
            std::vector<std::pair<int, int>> marks;
            for (int c = 0; c < clust; ++c)
                for (int j : randomInts(rng, counts[c], 0, r.height - 1)) {
                    idx.push_back(j);
                    marks.push_back({c, j});
                }
            idx.push_back(0);
            ASSERT_EQ(vdlsFillShortlist_RowVar_1u(idx.data(), counts.data(), r.height,
                                                  lists.table.data(), clust, r.width, r.shift),
                      vdlStsNoErr);
            EXPECT_EQ(lists.rows, filled(before, r.shift, r.height, marks));
        }
        {
            Shortlists lists(rng, clust, r.width);
            const auto before = lists.rows;
            const std::vector<int> idx = randomInts(rng, num * r.height, 0, clust - 1);
            std::vector<std::pair<int, int>> marks;
            for (int i = 0; i < num * r.height; ++i)
                marks.push_back({idx[i], i / num});
            ASSERT_EQ(vdlsFillShortlist_Column_1u(idx.data(), num, lists.table.data(), clust,
                                                  r.width, r.shift, r.height),
                      vdlStsNoErr);
            EXPECT_EQ(lists.rows, filled(before, r.shift, r.height, marks));
        }
        {
            Shortlists lists(rng, clust, r.width);
            const auto before = lists.rows;
            const std::vector<int> counts = randomInts(rng, r.height, 0, 3);
            std::vector<int> idx;
            std::vector<std::pair<int, int>> marks;
            for (int j = 0; j < r.height; ++j)
                for (int c : randomInts(rng, counts[j], 0, clust - 1)) {
                    idx.push_back(c);
                    marks.push_back({c, j});
                }
            idx.push_back(0);
            ASSERT_EQ(vdlsFillShortlist_ColumnVar_1u(idx.data(), counts.data(), lists.table.data(),
                                                     clust, r.width, r.shift, r.height),
                      vdlStsNoErr);
            EXPECT_EQ(lists.rows, filled(before, r.shift, r.height, marks));
        }
    }
}

// ---- selected mixture scores

// Frames and a mixture of whole numbers that float and 16-bit data hold
// alike; step wider than the width, which is one past a vector of floats.
struct Scene {
    static constexpr int frames = 6, height = 11, width = 17, step = 20;

    explicit Scene(int seed)
    {
        std::mt19937 rng(seed);
        x = randomValues<Vdl16s>(rng, frames * width, -6, 6);
        mean = randomValues<Vdl16s>(rng, height * width, -6, 6);
        var = randomValues<Vdl16s>(rng, height * width, 1, 3);
        val = convert<Vdl32f>(randomValues<Vdl32f>(rng, height, -5, 0));
        const std::vector<int> marks = randomInts(rng, frames * height, -200, 255);
        for (int m : marks)
            sign.push_back(static_cast<Vdl8u>(m < 0 ? 0 : m));
        // Frame 1 has no mark, frame 2 every one.
        std::fill(sign.begin() + height, sign.begin() + 2 * height, 0);
        std::fill(sign.begin() + 2 * height, sign.begin() + 3 * height, 1);
    }
    std::vector<double> x, mean, var;
    std::vector<Vdl32f> val;
    std::vector<Vdl8u> sign;
};

// The scene in the layouts of one element type.
template <class T>
struct Layouts {
    explicit Layouts(const Scene& s)
        : x(s.x, s.frames, s.width, s.step), mean(s.mean, s.height, s.width, s.step),
          var(s.var, s.height, s.width, s.step) {}
    RowSet<T> x, mean, var;
};

struct Data {
    explicit Data(const Scene& s) : scene(s), f(s), s(s) {}
    const Scene& scene;
    Layouts<Vdl32f> f;
    Layouts<Vdl16s> s;
};

using SelectFn = std::function<VdlStatus(const Data&, Vdl32f* result, Vdl32f floor, int sf)>;

struct SelectForm {
    std::string name;
    bool idVar, scaled;
    SelectFn call;
};

// Test names show the form, not the bytes of the entry.
void PrintTo(const SelectForm& form, std::ostream* os) { *os << form.name; }

const Vdl32f* pf(const std::vector<Vdl32f>& v) { return v.data(); }

std::vector<SelectForm> selectForms()
{
    using S = Scene;
    return {
        {"Select_32f_D2", false, false,
         [](const Data& d, Vdl32f* r, Vdl32f v, int) {
             return vdlsLogGaussMixture_Select_32f_D2(d.f.x.flat.data(), d.f.mean.flat.data(),
                                                      d.f.var.flat.data(), S::step, S::width,
                                                      pf(d.scene.val), d.scene.sign.data(),
                                                      S::height, r, S::frames, v);
         }},
        {"SelectIdVar_32f_D2", true, false,
         [](const Data& d, Vdl32f* r, Vdl32f v, int) {
             return vdlsLogGaussMixture_SelectIdVar_32f_D2(
                 d.f.x.flat.data(), d.f.mean.flat.data(), S::step, S::width, pf(d.scene.val),
                 d.scene.sign.data(), S::height, r, S::frames, v);
         }},
        {"SelectScaled_16s32f_D2", false, true,
         [](const Data& d, Vdl32f* r, Vdl32f v, int sf) {
             return vdlsLogGaussMixture_SelectScaled_16s32f_D2(
                 d.s.x.flat.data(), d.s.mean.flat.data(), d.s.var.flat.data(), S::step, S::width,
                 pf(d.scene.val), d.scene.sign.data(), S::height, r, S::frames, v, sf);
         }},
        {"SelectIdVarScaled_16s32f_D2", true, true,
         [](const Data& d, Vdl32f* r, Vdl32f v, int sf) {
             return vdlsLogGaussMixture_SelectIdVarScaled_16s32f_D2(
                 d.s.x.flat.data(), d.s.mean.flat.data(), S::step, S::width, pf(d.scene.val),
                 d.scene.sign.data(), S::height, r, S::frames, v, sf);
         }},
        {"Select_32f_D2L", false, false,
         [](const Data& d, Vdl32f* r, Vdl32f v, int) {
             return vdlsLogGaussMixture_Select_32f_D2L(d.f.x.table.data(), d.f.mean.table.data(),
                                                       d.f.var.table.data(), S::width,
                                                       pf(d.scene.val), d.scene.sign.data(),
                                                       S::height, r, S::frames, v);
         }},
        {"SelectIdVar_32f_D2L", true, false,
         [](const Data& d, Vdl32f* r, Vdl32f v, int) {
             return vdlsLogGaussMixture_SelectIdVar_32f_D2L(
                 d.f.x.table.data(), d.f.mean.table.data(), S::width, pf(d.scene.val),
                 d.scene.sign.data(), S::height, r, S::frames, v);
         }},
        {"SelectScaled_16s32f_D2L", false, true,
         [](const Data& d, Vdl32f* r, Vdl32f v, int sf) {
             return vdlsLogGaussMixture_SelectScaled_16s32f_D2L(
                 d.s.x.table.data(), d.s.mean.table.data(), d.s.var.table.data(), S::width,
                 pf(d.scene.val), d.scene.sign.data(), S::height, r, S::frames, v, sf);
         }},
        {"SelectIdVarScaled_16s32f_D2L", true, true,
         [](const Data& d, Vdl32f* r, Vdl32f v, int sf) {
             return vdlsLogGaussMixture_SelectIdVarScaled_16s32f_D2L(
                 d.s.x.table.data(), d.s.mean.table.data(), S::width, pf(d.scene.val),
                 d.scene.sign.data(), S::height, r, S::frames, v, sf);
         }},
    };
}

class SelectScoring : public ::testing::TestWithParam<SelectForm> {};

TEST_P(SelectScoring, LogSumsTheMarkedComponentsOnly)
{
    const SelectForm& form = GetParam();
    const Scene scene(50);
    const Data data(scene);
    const Vdl32f floor = -1e4f;
    for (int sf : form.scaled ? std::vector<int>{0, 3, -1} : std::vector<int>{0}) {
        std::vector<Vdl32f> got(Scene::frames + 1, 12345.0f);
        ASSERT_EQ(form.call(data, got.data(), floor, sf), vdlStsNoErr);
        EXPECT_EQ(got[Scene::frames], 12345.0f) << "wrote past the last frame";
        const gaussref::Var kind = form.idVar ? gaussref::Var::Unit : gaussref::Var::Precision;
        for (int f = 0; f < Scene::frames; ++f) {
            std::vector<double> scores;
            for (int j = 0; j < Scene::height; ++j)
                if (scene.sign[f * Scene::height + j])
                    scores.push_back(scene.val[j] - 0.5 * std::ldexp(1.0, -sf) *
                                                        gaussref::quadForm(
                                                            &scene.x[f * Scene::width],
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
                         [](const ::testing::TestParamInfo<SelectForm>& info) {
                             return info.param.name;
                         });

// With every component marked a frame scores as the whole mixture does.
TEST(SelectScoringAllMarked, EqualsTheFullMixtureScore)
{
    Scene scene(51);
    std::fill(scene.sign.begin(), scene.sign.end(), 1);
    const Data d(scene);
    const int sf = 2;
    std::vector<Vdl32f> sel(Scene::frames), full(Scene::frames), selId(Scene::frames),
        fullId(Scene::frames);
    ASSERT_EQ(selectForms()[2].call(d, sel.data(), 0, sf), vdlStsNoErr);
    ASSERT_EQ(selectForms()[1].call(d, selId.data(), 0, 0), vdlStsNoErr);
    for (int f = 0; f < Scene::frames; ++f) {
        ASSERT_EQ(vdlsLogGaussMixture_Scaled_16s32f_D2(
                      d.s.x.flat.data() + f * Scene::step, d.s.mean.flat.data(),
                      d.s.var.flat.data(), Scene::height, Scene::step, Scene::width,
                      scene.val.data(), &full[f], sf),
                  vdlStsNoErr);
        ASSERT_EQ(vdlsLogGaussMixture_IdVar_32f_D2(d.f.x.flat.data() + f * Scene::step,
                                                   d.f.mean.flat.data(), Scene::height,
                                                   Scene::step, Scene::width, scene.val.data(),
                                                   &fullId[f]),
                  vdlStsNoErr);
    }
    EXPECT_EQ(sel, full);
    EXPECT_EQ(selId, fullId);
}

} // namespace
