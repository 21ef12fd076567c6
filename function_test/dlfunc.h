// dlFunc: the name of a library function read as a small language. A name
// such as "vdlsMeanVarColumn_16s16s32s_D2" states a prefix, a base name, the
// element types of the arguments and a descriptor of call variants; tests
// read their data types and channel layout from it instead of declaring them,
// and the order of all function tests is the order of their names.
#ifndef DL_FUNC_H
#define DL_FUNC_H

#include "kvstring.h"

// Element type as a bit field: the low byte is the component width in bits.
typedef int dlType;

enum {
    DL_TYPE_UNDEF = 0,
    DL_TYPE_WIDTH = 0xff,
    DL_TYPE_SIGNED = 0x100,
    DL_TYPE_FLOAT = 0x200,
    DL_TYPE_CPLX = 0x400,

    DL_8U = 8,
    DL_16U = 16,
    DL_32U = 32,
    DL_64U = 64,
    DL_8S = DL_TYPE_SIGNED | 8,
    DL_16S = DL_TYPE_SIGNED | 16,
    DL_32S = DL_TYPE_SIGNED | 32,
    DL_64S = DL_TYPE_SIGNED | 64,
    DL_32F = DL_TYPE_FLOAT | 32,
    DL_64F = DL_TYPE_FLOAT | 64,
    DL_8SC = DL_TYPE_CPLX | DL_8S,
    DL_16SC = DL_TYPE_CPLX | DL_16S,
    DL_16UC = DL_TYPE_CPLX | DL_16U,
    DL_32SC = DL_TYPE_CPLX | DL_32S,
    DL_64SC = DL_TYPE_CPLX | DL_64S,
    DL_32FC = DL_TYPE_CPLX | DL_32F,
    DL_64FC = DL_TYPE_CPLX | DL_64F
};

// The role of an argument of a library function.
enum dlArg {
    DL_SRC1 = 1,
    DL_SRC2 = 2,
    DL_DST1 = 4,
    DL_DST2 = 8
};

class dlFunc : public kvString {
public:
    dlFunc() {}
    dlFunc(const kvString& name) : kvString(name) {}
    dlFunc(const char* name) : kvString(name) {}
    dlFunc(const dlFunc& other) : kvString(other) {}
    dlFunc& operator=(const dlFunc& other) { assign(other); return *this; }
    dlFunc& operator=(const kvString& other) { assign(other); return *this; }
    dlFunc& operator=(const char* text) { assign(text); return *this; }
    virtual ~dlFunc() {}

    // Corrections for names whose grammar does not tell the real types,
    // channels or planes; a derived class may add its own.
    virtual void updateTypes(dlType& src1, dlType& src2, dlType& dst1, dlType& dst2) const;
    virtual void updateChannels(int& src, int& dst) const;
    virtual void updatePlanes(bool& src, bool& dst) const { (void)src; (void)dst; }

    static kvString typeToString(dlType type);
    static dlType stringToType(const kvString& word);
    static int compareTypes(const kvString& a, const kvString& b);
    static int compareDescr(const kvString& a, const kvString& b);
    static int vdlType(dlType type);

    void parseFunction(kvString& base, kvString& types, kvString& descr) const;
    void parseFunction(kvString& base, kvString& type1, kvString& type2, kvString& type3,
                       kvString& descr) const;
    kvString prefix() const;
    kvString baseName() const;
    kvString typeName() const;
    kvString descrName() const;

    // type(1..3): the type words as written; type(0) prefers a type word
    // inside the base name.
    dlType type(int n) const;
    dlType type(dlArg arg) const;
    void getTypes(dlType& src1, dlType& src2, dlType& dst1, dlType& dst2) const;
    dlType typeFromBase() const;

    // Channel forms: 1 is the source's, 2 the destination's.
    kvString channelsName(int n) const;
    kvString channelsName(dlArg arg) const;
    kvString srcChannelsName() const;
    kvString dstChannelsName() const;
    int channels(int n) const;
    int channels(dlArg arg) const;
    void getChannelsName(kvString& src, kvString& dst) const;
    void getChannels(int& src, int& dst) const;
    int vdlChannels(int n) const;

    bool plane(int n) const;
    bool plane(dlArg arg) const;
    bool srcPlane() const;
    bool dstPlane() const;
    void getPlanes(bool& src, bool& dst) const;
    bool alpha(int n) const;
    bool alpha(dlArg arg) const;
    bool srcAlpha() const;
    bool dstAlpha() const;
    void getAlpha(bool& src, bool& dst) const;

    bool inplace() const;
    bool mask() const;
    bool scale() const;
    bool roi() const;
    bool coi() const;

    // The order of function tests: prefix and base, first type word, descriptor.
    int compare(const dlFunc& other) const;
};

// Length of the type word at the start of `s`: digits, one of "usf", an
// optional "c"; 0 when there is none.
int lenOfType(const kvString& s);
// Position of the "_" that ends the base name, negative when there is none.
int endOfBase(const kvString& name);
kvString firstType(const kvString& s);
int compareTs(const kvString& a, const kvString& b);
int numChannels(const kvString& form);
bool planeChannel(const kvString& form);
bool alphaChannel(const kvString& form);
// True when position `i` of `s` holds a channel count, one of "1234".
bool isChannelIndex(int i, const kvString& s);
// Takes the first channel form off `d` and returns it.
kvString firstChanStr(kvString& d);

#endif
