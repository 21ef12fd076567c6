// Sizes of test data at the edges of the int range: element counts and
// rows times stride are formed in 64 bits, a buffer that cannot be recorded
// is refused with its exact byte count, and nothing is allocated wrapped.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "dlvector.h"
#include "kvmemory.h"
#include "testutil.h"

namespace {

class DlSize : public ::testing::Test {
protected:
    void SetUp() override {
        m_level = g_ostrm.getOutLevel();
        g_ostrm.setOutLevel(ERR);
    }
    void TearDown() override { g_ostrm.setOutLevel(m_level); }

    StreamCapture<kvOStream> m_cap{g_ostrm, "errors.txt"};
    OutputLevel m_level = 0;
};

std::string refusal(const char* bytes) {
    return std::string("-- Memory error: can't allocate ") + bytes + " bytes\n";
}

}  // namespace

TEST_F(DlSize, ElementCountJustPastTheIntRangeIsRefusedWithItsTrueSize) {
    dlVector f(DL_32F), c(DL_64FC);
    EXPECT_FALSE(f.createVector(INT_MAX / 4 + 1, -1));  // 2^31 bytes
    EXPECT_FALSE(c.createVector(INT_MAX / 16 + 1, SET_ZERO, 0, 0));
    EXPECT_FALSE(f.createVector(1073741825, -1));  // wrapped to 4 bytes in 32 bits
    EXPECT_FALSE(f.createVector(2000000000, -1));  // wrapped to a negative count
    EXPECT_EQ(m_cap.text(), refusal("2147483648") + refusal("2147483648") +
                                refusal("4294967300") + refusal("8000000000"));
    EXPECT_EQ(f.m_data, nullptr);
    EXPECT_EQ(f.m_len, 0);
    EXPECT_EQ(f.size(), 0);
}

TEST_F(DlSize, ProductsOfTwoParametersKeepTheirValue) {
    EXPECT_EQ(dlProduct(35791395, 32), 1145324640LL);
    EXPECT_EQ(dlProduct(INT_MAX, INT_MAX), 4611686014132420609LL);
    EXPECT_EQ(dlProduct(-3, 4), -12LL);

    // A count beyond 64 bits once multiplied by the item size still gets its
    // exact byte count in the message.
    dlVector c(DL_64FC);
    EXPECT_FALSE(c.createVector(dlProduct(INT_MAX, INT_MAX) * 2, -1));
    EXPECT_FALSE(c.createVector(LLONG_MIN, -1));
    EXPECT_EQ(m_cap.text(), refusal("147573952452237459488") +
                                refusal("-147573952589676412928"));
}

TEST_F(DlSize, ZeroAndNegativeCountsAreRefusedAsBefore) {
    dlVector v(DL_16S);
    EXPECT_FALSE(v.createVector(0, -1));
    EXPECT_FALSE(v.createVector(-1, -1));
    EXPECT_FALSE(v.createVector(INT_MIN, -1));
    EXPECT_EQ(m_cap.text(), refusal("0") + refusal("-2") + refusal("-4294967296"));
    EXPECT_EQ(kvMalloc(-1, 0, 0, 0), nullptr);
    EXPECT_EQ(kvMalloc(INT_MIN, 63, 32768, 0), nullptr);
}

TEST_F(DlSize, MatrixOfRowsTimesStrideBeyondTwoToThe31IsRefused) {
    dlrMatrice m(DL_32F);
    // 30 columns of 4 bytes give a stride of 128: 35791395 rows need
    // 4581298560 bytes, which wrapped to 286331264 in 32 bits.
    EXPECT_FALSE(m.createMatrice(35791395, 30, -1, -1));
    // A stride given in bytes, and one row table too large to record.
    EXPECT_FALSE(m.createMatrice(3, 1, INT_MAX, 0));
    EXPECT_FALSE(m.createMatrice(INT_MAX, 1, -1, -1));
    // A row so wide that the rounded stride leaves the int range.
    EXPECT_FALSE(m.createMatrice(2, INT_MAX, -1, -1));
    EXPECT_EQ(m_cap.text(), refusal("4581298560") + refusal("6442450941") +
                                refusal("17179869176") + refusal("17179869184"));
    EXPECT_EQ(m.m_data, nullptr);
    EXPECT_LE(m.objectSize(), INT_MAX);  // the stored sizes do not wrap either

    dlrMatrice small(DL_16S);
    ASSERT_TRUE(small.createMatrice(2, 3, SET_ONE, 0, 0));
    EXPECT_EQ(small.stride(), 16);
    EXPECT_EQ(small.getMatriceAt(1, 2), 1.0);
}

TEST_F(DlSize, NegativeRowCountMakesNoRowTable) {
    dlrMatrice m(DL_32F);
    EXPECT_FALSE(m.createMatrice(-2, 4, -1, -1));
    EXPECT_EQ(m_cap.text(), refusal("-16"));
    EXPECT_EQ(m.m_rowArray, nullptr);
}
