#include "dllp.h"

#include <cmath>

void dlLags(const float* x, int count, float* r, int lags) {
    for (int k = 0; k <= lags; ++k) {
        long double sum = 0;
        for (int j = k; j < count; ++j) sum += (long double)x[j - k] * x[j];
        r[k] = (float)sum;
    }
    if (r[0] < 1.0f) r[0] = 1.0f;
}

void dlSine(float* x, int count, double divisor) {
    for (int i = 1; i <= count; ++i) x[i - 1] = (float)std::sin(i / divisor);
}

bool dlLagsTest::canStart() {
    m_lenTmp = 200;
    dlStep(m_data.len, "Lenght", m_firstLen, 32, 1, '+');
    dlScale(m_data.scaleFactor, m_func, -8);
    m_data.src.init(m_func, 1);
    m_data.dst.init(m_func, 1);
    m_data.srcFloat.init(dlFunc("_32f_"), 1);
    m_data.tmp.init(dlFunc("_32f_"), 1);
    return true;
}

bool dlLagsTest::canContinue() {
    if (!stepOdometer({&m_data.scaleFactor, &m_data.len})) return false;
    const int len = m_data.len;
    if (!m_data.src.createVectorExt(len + 1, 0, SET_DEFAULT, 0, 0) ||
        !m_data.srcFloat.createVectorExt(len + 1, 0, SET_DEFAULT, 0, 0) ||
        !m_data.tmp.createVectorExt(m_lenTmp, 0, SET_DEFAULT, 0, 0))
        return false;
    setData();
    return m_data.dst.createVector(len, SET_ZERO, 0, 0);
}

void dlLagsTest::setData() {
    const int len = m_data.len;
    dlSine(m_data.tmp, m_lenTmp, 1000.0);
    dlLags(m_data.tmp, m_lenTmp, m_16s ? (dl32f*)m_data.srcFloat : (dl32f*)m_data.src, len);
    if (m_16s) vdlsConvert_32f16s_Sfs(m_data.srcFloat, m_data.src, len + 1, 1, m_data.scaleFactor);
}

void dlLagsTest::flushData() {
    m_data.src.deleteVector();
    m_data.dst.deleteVector();
    m_data.srcFloat.deleteVector();
    m_data.tmp.deleteVector();
}
