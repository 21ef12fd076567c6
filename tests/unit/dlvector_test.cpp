// Test data vectors and matrices: types, creation, fills, the random
// generator, text, reserved copies, row layout, sizes at the edge of the int
// range, and buffers at any byte offset.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "dlvector.h"
#include "kvmemory.h"
#include "kvtest.h"
#include "testutil.h"

namespace {

std::string str(const kvString& s) { return s.c_str(); }

// Element i of a complex vector as "re,im".
std::string complexAt(const dlVector& v, int i) {
    double re = 0, im = 0;
    v.getIndex(i, re, im);
    char text[64];
    snprintf(text, sizeof text, "%g,%g", re, im);
    return text;
}

// The first n elements as their real parts.
std::vector<double> values(const dlVector& v, int n) {
    std::vector<double> r;
    for (int i = 0; i < n; ++i) r.push_back(v.getIndex(i));
    return r;
}

std::string refusal(const char* bytes) {
    return std::string("-- Memory error: can't allocate ") + bytes + " bytes\n";
}

// Every test starts from the seed of a test run; refusals are caught.
class DlVector : public ::testing::Test {
protected:
    void SetUp() override { dlVector::m_seed = 7; }
    LogCapture m_errors{ERR};
};

}  // namespace

TEST_F(DlVector, LimitsAndItemSizes) {
    EXPECT_EQ(dlVector::getMaxValue(DL_64U), 9223372036854775808.0);
    EXPECT_EQ(dlVector::getMaxValue(7), 1.0);  // no type: the unit range
    EXPECT_EQ(dlVector::item("vdlsPack_1u"), 1);
    EXPECT_EQ(dlVector::item("_16sc_"), 4);
    EXPECT_EQ(dlVector::item("vdlsX_16s32f"), 2);  // the first type
    EXPECT_EQ(dlVector::item("_undef_"), 0);
}

TEST_F(DlVector, InitTakesTypeAndChannelsFromTheFunction) {
    dlFunc f("vdliConvert_8u32f_C3P3R");
    dlVector dst(f, DL_DST1);
    EXPECT_EQ(dst.m_type, DL_32F);
    EXPECT_EQ(str(dst.m_func), "_32f_P3");
    dlVector src(f, 1);
    EXPECT_EQ(src.m_type, DL_8U);
    EXPECT_EQ(str(src.m_func), "_8u_C3");

    dlVector v(DL_16S);
    ASSERT_TRUE(v.createVector(4, -1));
    v.init(DL_64F);  // drops the buffer
    EXPECT_EQ(v.m_data, nullptr);
    EXPECT_EQ(v.m_len, 0);
    EXPECT_EQ(str(v.m_func), "_64f_");
}

TEST_F(DlVector, CreationHoldsTheDefaultConstantAndTypedPointer) {
    dlVector f32(DL_32F), s16(DL_16SC);
    ASSERT_TRUE(f32.createVector(3, -1));
    ASSERT_TRUE(s16.createVector(3, -1));
    EXPECT_EQ(((float*)f32)[2], 1.00001f);
    EXPECT_EQ(((dl16sc*)s16)[1].re, 2);
    EXPECT_EQ(((dl16sc*)s16)[1].im, 2);
    EXPECT_EQ((float*)f32, f32.m_data);
    EXPECT_EQ((short*)f32, nullptr);  // only the pointer of its own type is set
    EXPECT_EQ(f32.objectSize(), 12);
    EXPECT_EQ(str(s16.objectInfo()), "Vector 16sc len=3");

    // The block is listed with the vector as its owner.
    int size = 0;
    void* owner = 0;
    ASSERT_TRUE(kvMallocInfo(f32.m_data, &size, &owner));
    EXPECT_EQ(size, 12);
    EXPECT_EQ(owner, static_cast<kvObject*>(&f32));

    void* block = f32.m_data;
    f32.deleteVector();
    EXPECT_EQ((float*)f32, nullptr);
    EXPECT_EQ(f32.size(), 0);
    EXPECT_FALSE(kvMallocInfo(block, 0, 0));
}

// Element counts and rows times stride are formed in 64 bits: a buffer that
// cannot be recorded is refused with its exact byte count, never allocated
// wrapped.
TEST_F(DlVector, SizesPastTheIntRangeAreRefusedWithTheirTrueByteCount) {
    dlVector f(DL_32F), c(DL_64FC), s(DL_16S);
    EXPECT_FALSE(f.createVector(INT_MAX / 4 + 1, -1));  // 2^31 bytes
    EXPECT_FALSE(f.createVector(1073741825, -1));  // wrapped to 4 bytes in 32 bits
    EXPECT_FALSE(f.createVector(2000000000, -1));  // wrapped to a negative count
    EXPECT_FALSE(c.createVector(dlProduct(INT_MAX, INT_MAX) * 2, -1));  // past 64 bits
    EXPECT_FALSE(c.createVector(LLONG_MIN, -1));
    EXPECT_FALSE(s.createVector(0, -1));
    EXPECT_FALSE(s.createVector(INT_MIN, SET_ZERO, 0, 0));
    EXPECT_EQ(m_errors.text(), refusal("2147483648") + refusal("4294967300") +
                                   refusal("8000000000") + refusal("147573952452237459488") +
                                   refusal("-147573952589676412928") + refusal("0") +
                                   refusal("-4294967296"));
    EXPECT_EQ(f.m_data, nullptr);
    EXPECT_EQ(f.m_len, 0);
    EXPECT_EQ(kvMalloc(INT_MIN, 63, 32768, 0), nullptr);
    s.setConst(1, 1);  // fills without a buffer do nothing
    s.setRandom();
    EXPECT_EQ(s.getIndex(0), 0.0);
    EXPECT_TRUE(s.getString().empty());
}

TEST_F(DlVector, MatrixOfRowsTimesStridePastTheIntRangeIsRefused) {
    dlrMatrice m(DL_32F);
    // 30 columns of 4 bytes give a stride of 128: 35791395 rows need
    // 4581298560 bytes, which wrapped to 286331264 in 32 bits.
    EXPECT_FALSE(m.createMatrice(35791395, 30, -1, -1));
    // A stride given in bytes, and one row table too large to record.
    EXPECT_FALSE(m.createMatrice(3, 1, INT_MAX, 0));
    EXPECT_FALSE(m.createMatrice(INT_MAX, 1, -1, -1));
    // A row so wide that the rounded stride leaves the int range.
    EXPECT_FALSE(m.createMatrice(2, INT_MAX, -1, -1));
    EXPECT_FALSE(m.createMatrice(-2, 4, -1, -1));
    EXPECT_EQ(m_errors.text(), refusal("4581298560") + refusal("6442450941") +
                                   refusal("17179869176") + refusal("17179869184") +
                                   refusal("-16"));
    EXPECT_EQ(m.m_data, nullptr);
    EXPECT_EQ(m.m_rowArray, nullptr);
    EXPECT_LE(m.objectSize(), INT_MAX);  // the stored sizes do not wrap either
}

// Pinned from the generator and checked by hand for the first two draws:
// a=7, b=1014387726, c=4253218985; draw 1: z=2061989128, t=1056136036
// (not negative, carry 0), r=-1176842132; draw 2: z=3720418011,
// t=3280579577 (negative, carry -1, n=t-18), r=-1588937022.
TEST_F(DlVector, GeneratorFromSeedSeven) {
    dlVector f(DL_32F);
    ASSERT_TRUE(f.createVector(6, SET_RANDOM, -1.0, 1.0));
    const float want32f[] = {-0.548009813f, -0.73990643f, -0.126509771f,
                             -0.64395082f,  0.156196311f, -0.41857937f};
    for (int i = 0; i < 6; ++i) EXPECT_FLOAT_EQ(((float*)f)[i], want32f[i]) << i;
    EXPECT_EQ(dlVector::m_seed, 1168307477u);

    // Default range of an integer type: its limits, truncated toward zero.
    // Equal bounds mean that range, not a constant; the seeded form restarts.
    dlVector s(DL_16S);
    ASSERT_TRUE(s.createVector(6, -1));
    const std::vector<double> want16s = {-17957, -24245, -4145, -21101, 5117, -13716};
    dlVector::m_seed = 7;
    s.setRandom();
    EXPECT_EQ(values(s, 6), want16s);
    dlVector::m_seed = 7;
    s.setVector(SET_RANDOM, 5.0, 5.0);
    EXPECT_EQ(values(s, 6), want16s);
    s.setRandom(-32768, 32767, 7);
    EXPECT_EQ(values(s, 6), want16s);
    s.setDataRandom(s.m_data, 0, -1, 1);  // an empty fill leaves the seed
    EXPECT_EQ(dlVector::m_seed, 1168307477u);
}

TEST_F(DlVector, GeneratorDrawsComplexPartsIndependentlyAndClamps) {
    dlVector c(DL_32FC);
    ASSERT_TRUE(c.createVector(2, -1));
    c.setRandom();
    EXPECT_FLOAT_EQ(((float*)c.m_data)[0], -0.548009813f);
    EXPECT_FLOAT_EQ(((float*)c.m_data)[1], -0.73990643f);

    // A range beyond the type's limits is the type's range.
    dlVector a(DL_8U), b(DL_8U);
    ASSERT_TRUE(a.createVector(50, -1));
    ASSERT_TRUE(b.createVector(50, -1));
    a.setRandom(-1000, 1000, 11);
    b.setRandom(0, 255, 11);
    EXPECT_EQ(memcmp(a.m_data, b.m_data, 50), 0);

    // setIndex with equal bounds draws between the limits, also for floats.
    dlVector f(DL_32F);
    ASSERT_TRUE(f.createVector(1, -1));
    f.setIndex(0, SET_RANDOM, 3, 3);
    EXPECT_GT(std::fabs(f.getIndex(0)), 1e17);
}

TEST_F(DlVector, Sequences) {
    // Integers: the step 0.5 is raised to 1, and behind 10 it starts again.
    dlVector s(DL_16S);
    ASSERT_TRUE(s.createVector(20, SET_SEQUENCE, 0, 10));
    EXPECT_EQ(values(s, 13), (std::vector<double>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0, 1}));

    // Floats divide by the length and end one step short.
    dlVector f(DL_32F);
    ASSERT_TRUE(f.createVector(20, SET_SEQUENCE, 0, 10));
    EXPECT_EQ(f.getIndex(1), 0.5);
    EXPECT_EQ(f.getIndex(19), 9.5);
    // The two-argument form divides by the length less one and reaches 10.
    f.setSequence(0, 10);
    EXPECT_EQ(f.getIndex(19), 10.0);
    EXPECT_FLOAT_EQ((float)f.getIndex(18), (float)(180.0 / 19));

    // Without wrap the rest stays at the end; start and stop are clamped.
    dlVector u(DL_8U);
    ASSERT_TRUE(u.createVector(6, -1));
    u.setSequence(-5, 3, 1, false);
    EXPECT_EQ(values(u, 6), (std::vector<double>{0, 1, 2, 3, 3, 3}));

    dlVector one(DL_16SC);
    ASSERT_TRUE(one.createVector(1, -1));
    one.setSequence(4, 9);
    EXPECT_EQ(complexAt(one, 0), "4,0");
}

TEST_F(DlVector, JaehneChirp) {
    dlVector f(DL_32F);
    ASSERT_TRUE(f.createVector(4, -1));
    f.setJaehne();  // magnitude 1, k = pi / 8
    EXPECT_EQ(f.getIndex(0), 0.0);
    EXPECT_FLOAT_EQ((float)f.getIndex(1), (float)std::sin(M_PI / 8));
    EXPECT_FLOAT_EQ((float)f.getIndex(2), 1.0f);

    // A negative magnitude leaves the data as they were.
    f.setJaehne(-1);
    EXPECT_FLOAT_EQ((float)f.getIndex(2), 1.0f);

    // Unsigned types swing around the middle; the magnitude is clamped to it.
    dlVector u(DL_8U);
    ASSERT_TRUE(u.createVector(4, -1));
    u.setJaehne(1000);
    const double above = std::trunc(127.5 * std::sin(M_PI / 8) + 127.5);
    const double below = std::trunc(127.5 * std::sin(9 * M_PI / 8) + 127.5);
    EXPECT_EQ(values(u, 4), (std::vector<double>{127, above, 255, below}));  // 127.5 first

    dlVector s(DL_16SC);
    ASSERT_TRUE(s.createVector(4, -1));
    s.setJaehne();  // half the distance of the limits, no offset
    EXPECT_EQ(complexAt(s, 2), "32767,32767");
}

TEST_F(DlVector, ConversionTruncatesIntegersAndRoundsFloats) {
    dlVector s(DL_16S);
    ASSERT_TRUE(s.createVector(1, -1));
    for (double v : {-2.9, 2.9}) {
        s.setConst(v, 0);
        EXPECT_EQ(s.getIndex(0), std::trunc(v));
    }

    dlVector f(DL_32F);
    ASSERT_TRUE(f.createVector(1, -1));
    f.setConst(0.1, 0);
    EXPECT_EQ(((float*)f)[0], 0.1f);

    dlVector i32(DL_32S), u64(DL_64U);
    ASSERT_TRUE(i32.createVector(1, SET_MIN, 0, 0));
    ASSERT_TRUE(u64.createVector(1, SET_MAX, 0, 0));
    EXPECT_EQ(((int*)i32)[0], INT_MIN);
    EXPECT_EQ(((unsigned long long*)u64)[0], 9223372036854775808ull);
}

TEST_F(DlVector, ModesOfOneElement) {
    dlVector c(DL_16SC);
    ASSERT_TRUE(c.createVector(4, SET_ZERO, 0, 0));
    c.setIndex(0, SET_MAX, 0, 0);
    c.setIndex(1, SET_SEQUENCE, 5, 6);
    c.setIndex(2, SET_VALUE, 3, -4);
    c.setIndex(3, SET_DEFAULT, 0, 0);
    const char* const want[] = {"32767,0", "5,0", "3,-4", "2,2"};
    for (int i = 0; i < 4; ++i) EXPECT_EQ(complexAt(c, i), want[i]) << i;
    c.setVector(SET_ONE, 9, 9);
    c.setVector(99, 7, 7);  // unknown mode: nothing
    EXPECT_EQ(c.getIndex(3), 1);
}

TEST_F(DlVector, PrintFormats) {
    dlVector s(DL_16S);
    ASSERT_TRUE(s.createVector(2, SET_VALUE, -2, 0));
    s.setIndex(0, SET_VALUE, 1, 0);
    EXPECT_EQ(str(s.getString()), "      1     -2");

    short pair[] = {1, -2};
    EXPECT_EQ(str(dlVector::getDataString(DL_16SC, pair, 1)), " (      1,     -2)");
    unsigned char bytes[] = {1, 255};
    EXPECT_EQ(str(dlVector::getDataString(DL_8S, bytes, 2)), "    1   -1");
    unsigned long long ubig = 18446744073709551615ull;
    EXPECT_EQ(str(dlVector::getDataString(DL_64U, &ubig, 1)), "    18446744073709551615");
    float fl = 1.5f;
    EXPECT_EQ(str(dlVector::getDataString(DL_32F, &fl, 1)), "           1.5");
    double db[] = {0.25, -3};
    EXPECT_EQ(str(dlVector::getDataString(DL_64FC, db, 1)),
              " (                0.25,                  -3)");

    EXPECT_EQ(str(dlVector::getByteString(bytes, 2)), " 01 FF");
    EXPECT_TRUE(dlVector::getByteString(0, 2).empty());
    EXPECT_TRUE(dlVector::getDataString(7, bytes, 2).empty());
}

TEST_F(DlVector, ReservedCopy) {
    dlVector v(DL_32S);
    EXPECT_FALSE(v.reserveCopy());  // no buffer
    ASSERT_TRUE(v.createVector(3, SET_SEQUENCE, 1, 3));
    EXPECT_FALSE(v.setReservedCopy());
    ASSERT_TRUE(v.reserveCopy());
    v.setConst(0, 0);
    EXPECT_TRUE(v.setReservedCopy());
    EXPECT_EQ(v.getIndex(2), 3);
    v.deleteVector();
    EXPECT_EQ(v.getReservedData(), nullptr);
}

TEST_F(DlVector, MatrixRowsAndStride) {
    dlrMatrice m(DL_32F);
    ASSERT_TRUE(m.createMatrice(3, 5, SET_ZERO, 0, 0));
    EXPECT_EQ(m.stride(), 32);  // 20 bytes rounded up to 16
    EXPECT_EQ(m.objectSize(), 60);
    EXPECT_EQ(str(m.objectInfo()), "rMatrix 32f rows=3 columns=5");
    float** rows = m;
    ASSERT_NE(rows, nullptr);
    for (int i = 0; i < 3; ++i) EXPECT_EQ((char*)rows[i], (char*)m.m_data + 32 * i);
    EXPECT_EQ((short**)m, nullptr);

    // Fills go row by row and leave the spare bytes of each row zero.
    m.setConst(7, 0);
    m.setJaehne();
    const unsigned char* bytes = (const unsigned char*)m.m_data;
    for (int r = 0; r < 3; ++r) {
        for (int b = 20; b < 32; ++b) EXPECT_EQ(bytes[32 * r + b], 0) << r << " " << b;
        EXPECT_EQ(memcmp(rows[r], rows[0], 20), 0);  // the chirp restarts per row
    }
    m.setRandom();
    for (int b = 20; b < 32; ++b) EXPECT_EQ(bytes[32 * 2 + b], 0);
    m.setMatriceAt(1, 4, 6.5, 0);
    EXPECT_EQ(rows[1][4], 6.5f);

    dlrMatrice exact(DL_16S);
    ASSERT_TRUE(exact.createMatrice(2, 8, 0, 0));   // 16 bytes: already a multiple
    EXPECT_EQ(exact.stride(), 16);
    ASSERT_TRUE(exact.createMatrice(2, 3, 40, 0));  // a given stride stays
    EXPECT_EQ(exact.stride(), 40);
    exact.deleteMatrice();
    EXPECT_EQ(exact.m_data, nullptr);
    EXPECT_EQ(exact.rows(), 0);

    // Printed one line per row.
    dlrMatrice bytes8(DL_8U);
    ASSERT_TRUE(bytes8.createMatrice(2, 3, SET_SEQUENCE, 1, 3));
    g_ostrm << ERR << bytes8 << endMsgFlush;
    EXPECT_EQ(m_errors.text(), "   1   2   3\n   1   2   3\n");
}

// Under the sanitizer build a typed access through a misaligned pointer
// would end the test.
TEST_F(DlVector, EveryTypeFillsAndReadsAtEveryByteOffset) {
    const dlType types[] = {DL_8U,   DL_16U,  DL_32U, DL_64U, DL_8S,  DL_16S,  DL_32S,  DL_64S, DL_8SC,
                            DL_16SC, DL_16UC, DL_32SC, DL_64SC, DL_32F, DL_64F, DL_32FC, DL_64FC};
    const unsigned char guard = 0xA5;
    const int len = 5;
    for (dlType type : types) {
        dlVector v(type);
        const int item = dlVector::item(v.m_func);
        for (int offset = 1; offset < 16; ++offset) {
            SCOPED_TRACE(testing::Message() << "type " << type << " offset " << offset);
            std::vector<unsigned char> raw(16 + len * item + 16, guard);
            void* p = raw.data() + offset;
            v.setDataConst(p, len, 3, 4);
            double re = 0, im = 0;
            v.getElement((char*)p + (len - 1) * item, re, im);
            EXPECT_EQ(re, 3.0);
            v.setDataSequence(p, len, 1, 100, 1, 1.0);
            EXPECT_EQ(v.getElement((char*)p + 4 * item), 5.0);
            v.setDataRandom(p, len, 0, 50);
            v.setVectorJaehne(p, len, 10);
            EXPECT_FALSE(v.getDataString(p, len).empty());
            // Nothing outside the elements was written.
            for (int i = 0; i < offset; ++i) ASSERT_EQ(raw[i], guard);
            for (size_t i = offset + len * item; i < raw.size(); ++i) ASSERT_EQ(raw[i], guard);
        }
    }
}

TEST_F(DlVector, VectorsAndMatrixRowsOfAByteMisalignedSetWork) {
    kvSetAlignByByte(true);
    kvSetVectorAlign(3);
    kvSetAlignSrc(true);
    kvTest::m_vectorNum = 0;
    dlVector d(DL_64FC);
    ASSERT_TRUE(d.createVector(9, SET_RANDOM, -1, 1));
    EXPECT_EQ((uintptr_t)d.m_data % 64, 3u);
    d.setIndex(8, SET_VALUE, 2.5, -1.5);
    EXPECT_EQ(complexAt(d, 8), "2.5,-1.5");
    // The rows of an odd stride are misaligned one by one.
    kvTest::m_vectorNum = 0;
    dlrMatrice m(DL_32F);
    ASSERT_TRUE(m.createMatrice(3, 2, 13, -1));
    m.setRandom(-1, 1);
    m.setMatriceAt(2, 1, 7, 0);
    EXPECT_EQ(m.getMatriceAt(2, 1), 7.0);
    kvSetVectorAlign(0);
    kvSetAlignByByte(false);
}
