// CPUID access for the library's processor detection. The answers come
// through CpuidSource so that detection can run against recorded register
// values as well as against the running processor.
#ifndef VDL_COMMON_CPUID_H
#define VDL_COMMON_CPUID_H

#include <cpuid.h>

#pragma GCC visibility push(hidden)

namespace vdl {

struct CpuidRegs {
    unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
};

inline unsigned bits(unsigned reg, int high, int low)
{
    return (reg >> low) & (0xFFFFFFFFu >> (31 - high + low));
}

inline bool bit(unsigned reg, int n)
{
    return (reg >> n) & 1u;
}

class CpuidSource {
public:
    virtual ~CpuidSource() = default;
    // Raw registers of one function and subfunction, whatever their validity.
    virtual CpuidRegs query(unsigned function, unsigned subfunction) const = 0;
    // XCR0, the register state the OS saves; only read when OSXSAVE is set.
    virtual unsigned long long xcr0() const = 0;
};

class HardwareCpuid : public CpuidSource {
public:
    CpuidRegs query(unsigned function, unsigned subfunction) const override
    {
        CpuidRegs r;
        __cpuid_count(function, subfunction, r.eax, r.ebx, r.ecx, r.edx);
        return r;
    }

    unsigned long long xcr0() const override
    {
        unsigned lo = 0, hi = 0;
        __asm__ volatile("xgetbv" : "=a"(lo), "=d"(hi) : "c"(0));
        return (static_cast<unsigned long long>(hi) << 32) | lo;
    }
};

// Guards every request by the largest basic and extended function: above
// them a processor repeats the data of its highest function instead of
// returning zeros, so such answers must not be read as real.
class CpuidView {
public:
    explicit CpuidView(const CpuidSource& source)
        : m_source(source),
          m_maxBasic(source.query(0, 0).eax),
          m_maxExtended(source.query(0x80000000u, 0).eax)
    {
        if (m_maxExtended < 0x80000000u)
            m_maxExtended = 0;
    }

    unsigned maxBasic() const { return m_maxBasic; }
    unsigned maxExtended() const { return m_maxExtended; }

    bool valid(unsigned function) const
    {
        if (function < 0x80000000u)
            return function <= m_maxBasic;
        return m_maxExtended != 0 && function <= m_maxExtended;
    }

    CpuidRegs regs(unsigned function, unsigned subfunction = 0) const
    {
        return valid(function) ? m_source.query(function, subfunction) : CpuidRegs();
    }

    unsigned long long xcr0() const { return m_source.xcr0(); }

private:
    const CpuidSource& m_source;
    unsigned m_maxBasic;
    unsigned m_maxExtended;
};

} // namespace vdl

#pragma GCC visibility pop

#endif
