// Floating-point state: the low-level routines on the x87 unit and MXCSR, the
// default states, the texts of the words, and the gathering of status flags
// over the runs of one parameter set.
#include "kvfpstate.h"

#include "kvcpuprobe.h"

extern "C" {

unsigned kv_get_cw_fpu() {
    unsigned short cw;
    __asm__ __volatile__("fnstcw %0" : "=m"(cw));
    return cw;
}

unsigned kv_set_cw_fpu(unsigned value, unsigned mask) {
    unsigned short old = (unsigned short)kv_get_cw_fpu();
    unsigned short cw = (unsigned short)((old & ~mask) | (value & mask));
    __asm__ __volatile__("fldcw %0" : : "m"(cw));
    return old;
}

unsigned kv_get_sw_fpu() {
    unsigned short sw;
    __asm__ __volatile__("fnstsw %0" : "=m"(sw));
    return sw;
}

unsigned kv_clear_fpu() {
    unsigned sw = kv_get_sw_fpu();
    __asm__ __volatile__("fnclex");
    return sw;
}

unsigned kv_get_ssx() {
    unsigned csr;
    __asm__ __volatile__("stmxcsr %0" : "=m"(csr));
    return csr;
}

unsigned kv_set_ssx(unsigned value, unsigned mask) {
    unsigned old = kv_get_ssx();
    unsigned csr = (old & ~mask) | (value & mask);
    __asm__ __volatile__("ldmxcsr %0" : : "m"(csr));
    return old;
}

// A measured function that reads a vector register before writing it then
// gets all one bits, whatever ran before it.
void kv_destroy_ssx() {
    __asm__ __volatile__(
        "pcmpeqd %%xmm0, %%xmm0\n\t"
        "pcmpeqd %%xmm1, %%xmm1\n\t"
        "pcmpeqd %%xmm2, %%xmm2\n\t"
        "pcmpeqd %%xmm3, %%xmm3\n\t"
        "pcmpeqd %%xmm4, %%xmm4\n\t"
        "pcmpeqd %%xmm5, %%xmm5\n\t"
        "pcmpeqd %%xmm6, %%xmm6\n\t"
        "pcmpeqd %%xmm7, %%xmm7"
        :
        :
        : "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm7");
}

}  // extern "C"

namespace {

struct BitText {
    unsigned value;
    const char* text;
};

// Status texts of the bad flags begin with "?", and badStatus() looks for it;
// Inexact begins with "_" because it is never bad.
const BitText exceptionStatusBits87[] = {
    {0x1, "?Invalid "},   {0x2, "?Denormal "},  {0x4, "?Zerodivide "},
    {0x8, "?Overflow "},  {0x10, "?Underflow "}, {0x20, "_Inexact "}};
const BitText exceptionStatusBitsSSX[] = {
    {0x1, "?Invalid "},   {0x2, "?Denormal "},  {0x4, "?Zerodivide "},
    {0x8, "?Overflow "},  {0x10, "?Underflow "}, {0x20, "_Inexact "}};
const BitText exceptionControlBits87[] = {
    {0x1, "Invalid "},  {0x2, "Denormal "},   {0x4, "Zerodivide "},
    {0x8, "Overflow "}, {0x10, "Underflow "}, {0x20, "Inexact "}};
const BitText exceptionControlBitsSSX[] = {
    {0x80, "Invalid "},   {0x100, "Denormal "},   {0x200, "Zerodivide "},
    {0x400, "Overflow "}, {0x800, "Underflow "}, {0x1000, "Inexact "}};
const BitText precisionBits87[] = {{0, "24 "}, {0x200, "53 "}, {0x300, "64 "}};
const BitText roundingBits87[] = {{0xc00, "Zero "}, {0x800, "Up "}, {0x400, "Down "}, {0, "Near "}};
const BitText roundingBitsSSX[] = {
    {0x6000, "Zero "}, {0x4000, "Up "}, {0x2000, "Down "}, {0, "Near "}};
const BitText flushZeroBitSSX[] = {{0x8000, "FlushToZero "}, {0, "NoFlushToZero "}};

const unsigned precisionField87 = 0x300;
const unsigned roundingField87 = 0xc00;
const unsigned roundingFieldSSX = 0x6000;
const unsigned flushZeroFieldSSX = 0x8000;
const unsigned statusFlagsSSX = 0x3f;
const char* const noSSX = "cpu has not SSX extension";

// Texts of all set bits, in table order.
template <int N>
void appendBits(kvString& s, unsigned word, const BitText (&table)[N]) {
    for (const BitText& e : table)
        if (word & e.value)
            s += e.text;
}

// Text of the value that a multi-bit field holds, if the table names it.
template <int N>
void appendField(kvString& s, unsigned word, unsigned fieldMask, const BitText (&table)[N]) {
    for (const BitText& e : table)
        if ((word & fieldMask) == e.value) {
            s += e.text;
            return;
        }
}

template <int N>
kvString statusText(unsigned word, const BitText (&table)[N]) {
    kvString s;
    appendBits(s, word, table);
    if (s.empty())
        s = "Ok";
    return s;
}

}  // namespace

// x87 default: 53-bit mantissa, round to nearest, every exception masked but
// zero-divide, which therefore traps as SIGFPE.
const unsigned ts87Base::Precision = 0x200;
const unsigned ts87Base::Rounding = 0;
const unsigned ts87Base::Exception = 0x3b;

void ts87Base::setDefault() {
    kv_clear_fpu();
    kv_set_cw_fpu(Exception | Precision | Rounding, 0xf3f);
}

unsigned ts87Base::getCW() const { return kv_get_cw_fpu(); }
unsigned ts87Base::getSW() const { return kv_get_sw_fpu(); }
void ts87Base::clear() { kv_clear_fpu(); }

kvString ts87Base::strSW(unsigned sw) { return statusText(sw, exceptionStatusBits87); }

kvString ts87Base::strCW(unsigned cw) {
    kvString s;
    appendField(s, cw, roundingField87, roundingBits87);
    appendField(s, cw, precisionField87, precisionBits87);
    appendBits(s, cw, exceptionControlBits87);
    return s;
}

// MXCSR default: round to nearest, all exceptions masked, flush to zero.
const unsigned tsSSXBase::Rounding = 0;
const unsigned tsSSXBase::Exception = 0x1f80;
const unsigned tsSSXBase::FlushZero = 0x8000;

tsSSXBase::tsSSXBase() : m_hasSSX(vdl_is_ssx_extension() != 0) { setDefault(); }

// The mask leaves only denormals-are-zero (0x40) alone and clears the flags.
void tsSSXBase::setDefault() {
    if (m_hasSSX)
        kv_set_ssx(Rounding | Exception | FlushZero, 0xffbf);
}

unsigned tsSSXBase::get() const { return m_hasSSX ? kv_get_ssx() : 0; }

void tsSSXBase::destroy() {
    if (m_hasSSX)
        kv_destroy_ssx();
}

kvString tsSSXBase::strExceptionState(unsigned status) const {
    if (!m_hasSSX)
        return noSSX;
    return statusText(status, exceptionStatusBitsSSX);
}

kvString tsSSXBase::strCW(unsigned status) const {
    if (!m_hasSSX)
        return noSSX;
    kvString s;
    appendField(s, status, roundingFieldSSX, roundingBitsSSX);
    appendBits(s, status, exceptionControlBitsSSX);
    appendField(s, status, flushZeroFieldSSX, flushZeroBitSSX);
    return s;
}

kv87::kv87() : m_base(new ts87Base), m_cw(0), m_sw(0) { init(); }
kv87::~kv87() { delete m_base; }

void kv87::init() {
    m_cw = 0;
    m_sw = 0;
    m_base->setDefault();
}

void kv87::clear() {
    m_cw = 0;
    m_sw = 0;
    m_base->clear();
}

void kv87::start() { m_base->clear(); }

void kv87::stop() {
    m_sw |= m_base->getSW();
    m_cw |= m_base->getCW();
}

kvString kv87::strSW() const { return ts87Base::strSW(m_sw); }
kvString kv87::strCW() const { return ts87Base::strCW(m_cw); }
bool kv87::badStatus() const { return strSW().found("?"); }

kvSSX::kvSSX() : m_base(new tsSSXBase), m_status(0) { init(); }
kvSSX::~kvSSX() { delete m_base; }

void kvSSX::init() {
    m_status = 0;
    m_base->destroy();
    m_base->setDefault();
}

void kvSSX::clear() {
    m_status = 0;
    m_base->destroy();
    if (m_base->m_hasSSX)
        kv_set_ssx(0, statusFlagsSSX);
}

// MXCSR flags are not cleared here: they gather until clear() or init().
void kvSSX::start() { m_base->destroy(); }
void kvSSX::stop() { m_status |= m_base->get(); }

kvString kvSSX::strExceptionState() const { return m_base->strExceptionState(m_status); }
kvString kvSSX::strCW() const { return m_base->strCW(m_status); }
bool kvSSX::badStatus() const { return strExceptionState().found("?"); }

kv87 g_ctrl87;
kvSSX g_ssx;
