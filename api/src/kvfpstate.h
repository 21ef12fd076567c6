// Floating-point state: the x87 control and status words and MXCSR (SSX),
// set to fixed defaults before each parameter set and watched for flags that
// the measured calls raise.
#ifndef KV_FPSTATE_H
#define KV_FPSTATE_H

#include "kvstring.h"

extern "C" {
unsigned kv_set_cw_fpu(unsigned value, unsigned mask);
unsigned kv_get_sw_fpu();
unsigned kv_get_cw_fpu();
unsigned kv_clear_fpu();
unsigned kv_set_ssx(unsigned value, unsigned mask);
unsigned kv_get_ssx();
void kv_destroy_ssx();
}

class ts87Base {
public:
    ts87Base() { setDefault(); }
    void setDefault();
    unsigned getCW() const;
    unsigned getSW() const;
    void clear();
    static kvString strSW(unsigned sw);
    static kvString strCW(unsigned cw);
    static const unsigned Precision;
    static const unsigned Rounding;
    static const unsigned Exception;
};

class tsSSXBase {
public:
    tsSSXBase();
    void setDefault();
    unsigned get() const;
    void destroy();
    kvString strExceptionState(unsigned status) const;
    kvString strCW(unsigned status) const;
    bool m_hasSSX;
    static const unsigned Rounding;
    static const unsigned Exception;
    static const unsigned FlushZero;
};

class kv87 {
public:
    kv87();
    ~kv87();
    void init();
    void clear();
    void start();
    void stop();
    kvString strSW() const;
    kvString strCW() const;
    bool badStatus() const;
    ts87Base* m_base;
    unsigned m_cw;
    unsigned m_sw;
private:
    kv87(const kv87&);
    kv87& operator=(const kv87&);
};

class kvSSX {
public:
    kvSSX();
    ~kvSSX();
    void init();
    void clear();
    void start();
    void stop();   // gathers MXCSR into m_status
    unsigned get() const { return m_status; }
    kvString strExceptionState() const;
    kvString strCW() const;
    bool badStatus() const;
    tsSSXBase* m_base;
    unsigned m_status;
private:
    kvSSX(const kvSSX&);
    kvSSX& operator=(const kvSSX&);
};

extern kv87 g_ctrl87;
extern kvSSX g_ssx;

#endif
