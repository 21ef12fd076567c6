// Polyphase resampling of sines: frequency and amplitude kept in the pass
// band, a sine above the lower Nyquist frequency removed, output counts and
// time positions by the ratio, in one call or in pieces.
#include <cmath>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "align_reference.h"
#include "vdlsr.h"

namespace {

constexpr int history = 32;
constexpr double t0 = 40;        // at least the filter's reach in front
constexpr int len = 300;
constexpr float norm = 0.98f;

struct Rates {
    int in, out;
    double factor() const { return static_cast<double>(out) / in; }
};

struct Form {
    bool fixed;
    bool s16;
    VdlHintAlgorithm hint;
    std::string name() const
    {
        return std::string(fixed ? "Fixed" : "Any") + (s16 ? "16s" : "32f") +
               (hint == vdlAlgHintFast ? "Fast" : "Accurate");
    }
};

struct Output {
    VdlStatus status = vdlStsErr;
    std::vector<double> values;
    double time = 0;
};

// Resamples `signal` (at least t0 + len + history + 2 samples) in calls of
// `piece` inputs from t0 on.
template <class T>
Output resample(const Form& form, Rates rates, const std::vector<double>& signal, int piece = len)
{
    const std::vector<T> src(signal.begin(), signal.end());
    std::vector<T> dst(static_cast<size_t>(len * rates.factor()) + 8, T(-1));
    Output out;
    double time = t0;
    int done = 0;
    const double f = rates.factor();
    for (int first = 0; first < len; first += piece) {
        int n = 0;
        VdlStatus s;
        if (!form.fixed) {
            const float window = f > 1 ? 2 * history : static_cast<float>(2 * history * f);
            if constexpr (std::is_same<T, Vdl32f>::value) {
                VdlsResamplingPolyphase_32f* st = nullptr;
                EXPECT_EQ(vdlsResamplePolyphaseInitAlloc_32f(&st, window, 256, 0.95f, 9.0f, form.hint), vdlStsNoErr);
                s = vdlsResamplePolyphase_32f(st, src.data(), piece, dst.data() + done, f, norm, &time, &n);
                vdlsResamplePolyphaseFree_32f(st);
            } else {
                VdlsResamplingPolyphase_16s* st = nullptr;
                EXPECT_EQ(vdlsResamplePolyphaseInitAlloc_16s(&st, window, 256, 0.95f, 9.0f, form.hint), vdlStsNoErr);
                s = vdlsResamplePolyphase_16s(st, src.data(), piece, dst.data() + done, f, norm, &time, &n);
                vdlsResamplePolyphaseFree_16s(st);
            }
        } else {
            if constexpr (std::is_same<T, Vdl32f>::value) {
                VdlsResamplingPolyphaseFixed_32f* st = nullptr;
                EXPECT_EQ(vdlsResamplePolyphaseFixedInitAlloc_32f(&st, rates.in, rates.out, 2 * history, 0.95f, 9.0f, form.hint), vdlStsNoErr);
                s = vdlsResamplePolyphaseFixed_32f(st, src.data(), piece, dst.data() + done, norm, &time, &n);
                vdlsResamplePolyphaseFixedFree_32f(st);
            } else {
                VdlsResamplingPolyphaseFixed_16s* st = nullptr;
                EXPECT_EQ(vdlsResamplePolyphaseFixedInitAlloc_16s(&st, rates.in, rates.out, 2 * history, 0.95f, 9.0f, form.hint), vdlStsNoErr);
                s = vdlsResamplePolyphaseFixed_16s(st, src.data(), piece, dst.data() + done, norm, &time, &n);
                vdlsResamplePolyphaseFixedFree_16s(st);
            }
        }
        out.status = s;
        if (s != vdlStsNoErr)
            return out;
        done += n;
    }
    out.values.assign(dst.begin(), dst.begin() + done);
    EXPECT_EQ(dst[done], T(-1)) << "written past the count";
    out.time = time;
    return out;
}

Output resample(const Form& form, Rates rates, const std::vector<double>& signal, int piece = len)
{
    return form.s16 ? resample<Vdl16s>(form, rates, signal, piece)
                    : resample<Vdl32f>(form, rates, signal, piece);
}

// Samples of amp * sin(2 pi freq n); whole numbers for the 16-bit forms.
std::vector<double> sine(double freq, double amp, bool whole)
{
    std::vector<double> v(static_cast<size_t>(t0) + len + history + 8);
    for (size_t n = 0; n < v.size(); ++n) {
        const double x = amp * std::sin(2 * M_PI * freq * n);
        v[n] = whole ? std::round(x) : static_cast<float>(x);
    }
    return v;
}

const Rates rateTable[] = {{8000, 11025}, {16000, 8000}, {8000, 16000}, {22050, 16000}, {11025, 8000}};

class Resample : public ::testing::TestWithParam<Form> {
protected:
    double amplitude() const { return GetParam().s16 ? 10000 : 1; }
    // Pass-band error: phases taken at the nearest table entry are off by up
    // to half an entry; 16-bit outputs round.
    double tolerance() const
    {
        const bool nearest = !GetParam().fixed && GetParam().hint == vdlAlgHintFast;
        return amplitude() * (nearest ? 5e-3 : 5e-4) + (GetParam().s16 ? 0.5 : 0);
    }
};

TEST_P(Resample, KeepsASineOfThePassBand)
{
    for (const Rates& r : rateTable) {
        SCOPED_TRACE(::testing::Message() << r.in << " -> " << r.out);
        const double f = r.factor();
        const double freq = 0.05 * (f < 1 ? f : 1.0);  // cycles per input sample
        const Output out = resample(GetParam(), r, sine(freq, amplitude(), GetParam().s16));
        ASSERT_EQ(out.status, vdlStsNoErr);
        const int count = static_cast<int>(std::ceil(len * f - 1e-9));
        ASSERT_EQ(static_cast<int>(out.values.size()), count);
        EXPECT_NEAR(out.time, t0 + count / f, 1e-9);
        double worst = 0;
        for (int k = 0; k < count; ++k) {
            const double t = t0 + k / f;
            worst = std::max(worst, std::fabs(out.values[k] - norm * amplitude() * std::sin(2 * M_PI * freq * t)));
        }
        EXPECT_LE(worst, tolerance());
    }
}

TEST_P(Resample, RemovesASineAboveTheLowerNyquistFrequency)
{
    const Rates down = {16000, 8000};
    const Output out = resample(GetParam(), down, sine(0.4, amplitude(), GetParam().s16));
    ASSERT_EQ(out.status, vdlStsNoErr);
    for (double v : out.values)
        ASSERT_LE(std::fabs(v), amplitude() * 1e-3 + (GetParam().s16 ? 1 : 0));
}

TEST_P(Resample, CallsInPiecesGoOnWithoutASeam)
{
    const Rates r = {8000, 11025};
    const std::vector<double> s = sine(0.03, amplitude(), GetParam().s16);
    const Output whole = resample(GetParam(), r, s, len);
    const Output pieces = resample(GetParam(), r, s, len / 3);
    ASSERT_EQ(pieces.status, vdlStsNoErr);
    ASSERT_EQ(pieces.values.size(), whole.values.size());
    for (size_t k = 0; k < whole.values.size(); ++k)
        EXPECT_NEAR(pieces.values[k], whole.values[k], amplitude() * 1e-5 + (GetParam().s16 ? 1 : 0)) << k;
    EXPECT_NEAR(pieces.time, whole.time, 1e-9);
}

std::vector<Form> allForms()
{
    std::vector<Form> forms;
    for (bool fixed : {false, true})
        for (bool s16 : {false, true})
            for (VdlHintAlgorithm h : {vdlAlgHintFast, vdlAlgHintAccurate})
                forms.push_back({fixed, s16, h});
    return forms;
}

INSTANTIATE_TEST_SUITE_P(Forms, Resample, ::testing::ValuesIn(allForms()),
                         [](const ::testing::TestParamInfo<Form>& info) { return info.param.name(); });

TEST(ResampleForms, AStateOfAnotherKindIsRefused)
{
    VdlsResamplingPolyphase_32f* st = nullptr;
    ASSERT_EQ(vdlsResamplePolyphaseInitAlloc_32f(&st, 64, 16, 0.9f, 5, vdlAlgHintFast), vdlStsNoErr);
    const std::vector<Vdl16s> src(200, 1);
    std::vector<Vdl16s> dst(200, 3);
    double time = t0;
    int n = -1;
    EXPECT_EQ(vdlsResamplePolyphase_16s(reinterpret_cast<VdlsResamplingPolyphase_16s*>(st), src.data(), 10,
                                        dst.data(), 1.0, 1, &time, &n),
              vdlStsContextMatchErr);
    EXPECT_EQ(vdlsResamplePolyphaseFixedFree_32f(reinterpret_cast<VdlsResamplingPolyphaseFixed_32f*>(st)),
              vdlStsContextMatchErr);
    EXPECT_EQ(n, -1);
    EXPECT_EQ(dst[0], 3);
    EXPECT_EQ(vdlsResamplePolyphaseFree_32f(st), vdlStsNoErr);
}

} // namespace
