// Parsing of library function names. Every query parses the name afresh: the
// callers are the sort of the catalogue and the set-up of tests, both outside
// any timed region, so nothing is cached.
#include "dlfunc.h"

#include <cctype>
#include <cstring>

namespace {

struct TypeWord {
    const char* word;
    dlType type;
};

// "8u" stands before "1u" so that typeToString(8) gives "8u"; the bit-packed
// "1u" is read as one byte.
const TypeWord typeWords[] = {
    {"8u", DL_8U},     {"8s", DL_8S},     {"8sc", DL_8SC},   {"16u", DL_16U},
    {"16s", DL_16S},   {"16sc", DL_16SC}, {"16uc", DL_16UC}, {"32u", DL_32U},
    {"32s", DL_32S},   {"32sc", DL_32SC}, {"32f", DL_32F},   {"32fc", DL_32FC},
    {"64u", DL_64U},   {"64s", DL_64S},   {"64sc", DL_64SC}, {"64f", DL_64F},
    {"64fc", DL_64FC}, {"1u", DL_8U},
};

// Longer words ahead of their prefixes, so "64fc" is not taken for "64f".
const char* const baseTypeWords[] = {
    "64fc", "64sc", "64s", "64f", "32fc", "32sc", "32u", "32s",
    "32f",  "16sc", "16uc", "16u", "16s", "8sc",  "8u",  "8s",
};

struct Number {
    int key;
    int number;
};

// The library's data type numbers.
const Number vdlTypes[] = {
    {DL_8U, 1},    {DL_8S, 3},    {DL_16U, 5},   {DL_16S, 7},   {DL_16UC, 8},
    {DL_16SC, 8},  {DL_32U, 9},   {DL_32S, 11},  {DL_32SC, 12}, {DL_32F, 13},
    {DL_32FC, 14}, {DL_64U, 15},  {DL_64S, 17},  {DL_64SC, 18}, {DL_64F, 19},
    {DL_64FC, 20},
};

struct ChannelForm {
    const char* form;
    int number;
};

// The library's channel numbers.
const ChannelForm vdlChannelForms[] = {
    {"C0", 0}, {"C1", 1},  {"C2", 2},   {"C3", 3},    {"C4", 4},  {"P2", 5},
    {"P3", 6}, {"P4", 7},  {"AC1", 8},  {"AC4", 9},   {"A0C4", 10}, {"AP4", 11},
};

template <class T, int N>
int countOf(const T (&)[N]) {
    return N;
}

bool beginsWith(const kvString& s, const char* head) {
    return strncmp(s.c_str(), head, strlen(head)) == 0;
}

bool isDigitAt(const kvString& s, int i) {
    return i >= 0 && i < s.length() && isdigit((unsigned char)s[i]);
}

// A "P" with no digit behind it turns the channel form in front into planes.
bool holdsLoneP(const kvString& s) {
    for (int i = s.find("P"); i >= 0; i = s.find("P", i + 1))
        if (!isDigitAt(s, i + 1)) return true;
    return false;
}

// The source's or the destination's answer for an argument role.
template <class T>
T byArg(dlArg arg, const T& src, const T& dst, const T& other) {
    if (arg == DL_SRC1 || arg == DL_SRC2) return src;
    if (arg == DL_DST1 || arg == DL_DST2) return dst;
    return other;
}

}  // namespace

int lenOfType(const kvString& s) {
    int n = s.length();
    int i = 0;
    while (isDigitAt(s, i)) ++i;
    if (i == 0 || i >= n || !strchr("usf", s[i])) return 0;
    ++i;
    if (i < n && s[i] == 'c') ++i;
    return i;
}

int endOfBase(const kvString& name) {
    for (int i = name.find("_"); i >= 0; i = name.find("_", i + 1))
        if (lenOfType(name.substr(i + 1)) != 0) return i;
    return -1;
}

kvString firstType(const kvString& s) {
    return s.substr(0, lenOfType(s));
}

int compareTs(const kvString& a, const kvString& b) {
    if (a.empty() && b.empty()) return 0;
    if (a.empty()) return -1;
    if (b.empty()) return 1;
    dlType ta = dlFunc::stringToType(a);
    dlType tb = dlFunc::stringToType(b);
    int d = (ta & ~DL_TYPE_CPLX) - (tb & ~DL_TYPE_CPLX);
    if (d != 0) return d;
    return (ta & DL_TYPE_CPLX) - (tb & DL_TYPE_CPLX);
}

int numChannels(const kvString& form) {
    if (form.empty()) return 0;
    int i = form[0] == 'A' ? 2 : 1;
    if (!isDigitAt(form, i)) return 0;
    int n = form[i] - '0';
    return n > 4 ? 0 : n;
}

bool planeChannel(const kvString& form) {
    int i = (!form.empty() && form[0] == 'A') ? 1 : 0;
    return i < form.length() && form[i] == 'P';
}

bool alphaChannel(const kvString& form) {
    return !form.empty() && form[0] == 'A';
}

bool isChannelIndex(int i, const kvString& s) {
    return i >= 0 && i < s.length() && s[i] >= '1' && s[i] <= '4';
}

kvString firstChanStr(kvString& d) {
    if (d.empty()) return kvString();
    int c = d.find("C");
    int p = d.find("P");
    int i = c < 0 ? p : (p < 0 || c < p ? c : p);
    if (i < 0 || !isChannelIndex(i + 1, d)) {
        d = "";
        return kvString();
    }
    int from = i;
    int len = 2;
    if (i > 0 && d[i - 1] == 'A') {
        from = i - 1;
        len = 3;
    }
    kvString form = d.substr(from, len);
    d = d.substr(i + 2);
    if (holdsLoneP(d)) form[len - 2] = 'P';
    return form;
}

kvString dlFunc::typeToString(dlType type) {
    for (int i = 0; i < countOf(typeWords); ++i)
        if (typeWords[i].type == type) return typeWords[i].word;
    return "undef";
}

dlType dlFunc::stringToType(const kvString& word) {
    for (int i = 0; i < countOf(typeWords); ++i)
        if (word == typeWords[i].word) return typeWords[i].type;
    return DL_TYPE_UNDEF;
}

int dlFunc::compareTypes(const kvString& a, const kvString& b) {
    return compareTs(firstType(a), firstType(b));
}

int dlFunc::compareDescr(const kvString& a, const kvString& b) {
    bool inplaceA = a.found("I");
    bool inplaceB = b.found("I");
    if (inplaceA && !inplaceB) return 1;
    if (inplaceB && !inplaceA) return -1;
    if (beginsWith(a, "AC4") && beginsWith(b, "C")) return 1;
    if (beginsWith(a, "C") && beginsWith(b, "AC4")) return -1;
    return a.compare(b);
}

int dlFunc::vdlType(dlType type) {
    for (int i = 0; i < countOf(vdlTypes); ++i)
        if (vdlTypes[i].key == type) return vdlTypes[i].number;
    return 0;
}

void dlFunc::parseFunction(kvString& base, kvString& types, kvString& descr) const {
    base = "";
    types = "";
    descr = "";
    int skip = prefix().empty() ? 0 : 4;
    int e = endOfBase(*this);
    if (e < 0) {
        base = substr(skip);
        return;
    }
    int n = find("_", e + 1);
    base = substr(skip, e - skip);
    if (n < 0) {
        types = substr(e + 1);
    } else {
        types = substr(e + 1, n - e - 1);
        descr = substr(n + 1);
    }
}

void dlFunc::parseFunction(kvString& base, kvString& type1, kvString& type2, kvString& type3,
                           kvString& descr) const {
    kvString types;
    parseFunction(base, types, descr);
    type1 = firstType(types);
    kvString rest = types.substr(type1.length());
    if (rest.empty()) {
        type2 = type1;
        type3 = type1;
        return;
    }
    type2 = firstType(rest);
    rest = rest.substr(type2.length());
    if (rest.empty()) {
        type3 = type2;
        return;
    }
    type3 = firstType(rest);  // a fourth word is dropped
}

kvString dlFunc::prefix() const {
    if (beginsWith(*this, "vdls") || beginsWith(*this, "vdli")) return substr(0, 4);
    return kvString();
}

kvString dlFunc::baseName() const {
    kvString base, types, descr;
    parseFunction(base, types, descr);
    return base;
}

kvString dlFunc::typeName() const {
    kvString base, types, descr;
    parseFunction(base, types, descr);
    return types;
}

kvString dlFunc::descrName() const {
    kvString base, types, descr;
    parseFunction(base, types, descr);
    return descr;
}

dlType dlFunc::type(int n) const {
    if (n < 0 || n > 3) return DL_TYPE_UNDEF;
    if (n == 0) {
        dlType t = typeFromBase();
        if (t != DL_TYPE_UNDEF) return t;
        n = 1;
    }
    kvString base, t1, t2, t3, descr;
    parseFunction(base, t1, t2, t3, descr);
    return stringToType(n == 1 ? t1 : (n == 2 ? t2 : t3));
}

dlType dlFunc::type(dlArg arg) const {
    dlType src1, src2, dst1, dst2;
    getTypes(src1, src2, dst1, dst2);
    switch (arg) {
    case DL_SRC1: return src1;
    case DL_SRC2: return src2;
    case DL_DST1: return dst1;
    case DL_DST2: return dst2;
    }
    return DL_TYPE_UNDEF;
}

// One word types all arguments; two words are sources, then destinations;
// three are first source, second source, destination.
void dlFunc::getTypes(dlType& src1, dlType& src2, dlType& dst1, dlType& dst2) const {
    kvString base, t1, t2, t3, descr;
    parseFunction(base, t1, t2, t3, descr);
    src1 = stringToType(t1);
    dst1 = stringToType(t3);
    src2 = t2 == t3 ? src1 : stringToType(t2);
    dst2 = dst1;
    updateTypes(src1, src2, dst1, dst2);
}

dlType dlFunc::typeFromBase() const {
    kvString base = baseName();
    for (int i = 0; i < countOf(baseTypeWords); ++i)
        if (base.found(baseTypeWords[i])) return stringToType(baseTypeWords[i]);
    return DL_TYPE_UNDEF;
}

void dlFunc::updateTypes(dlType& src1, dlType& src2, dlType& dst1, dlType& dst2) const {
    kvString pre = prefix();
    kvString base = baseName();
    if (pre == "vdls") {
        if (base == "Real" || base == "Imag" || base == "Magnitude" || base == "Phase" ||
            base == "CplxToReal" || base == "CartToPolar" || base == "PowerSpectr") {
            dst1 &= ~DL_TYPE_CPLX;
            dst2 &= ~DL_TYPE_CPLX;
        }
        if (base == "PolarToCart") {
            src1 &= ~DL_TYPE_CPLX;
            src2 = src1;
        }
        if (base == "RealToCplx") {
            dst1 |= DL_TYPE_CPLX;
            dst2 |= DL_TYPE_CPLX;
        }
        if (base == "DotProd" && src1 == src2 && !(src1 & DL_TYPE_CPLX) &&
            (dst1 & DL_TYPE_CPLX))
            src2 = dst1;
        if (found("Mul_16u16s")) src2 = dst1;
        if (found("Goertz")) {
            dst1 |= DL_TYPE_CPLX;
            dst2 |= DL_TYPE_CPLX;
        }
    } else if (pre == "vdli") {
        if (base == "Sum" || base == "Mean") {
            dst1 = DL_64F;
            dst2 = DL_64F;
        }
        if (base == "Copy" || base == "Set") src2 = DL_8U;
        if (base.found("Compare")) {
            dst1 = DL_8U;
            dst2 = DL_8U;
        }
    }
}

void dlFunc::getChannelsName(kvString& src, kvString& dst) const {
    kvString d = descrName();
    src = firstChanStr(d);
    dst = firstChanStr(d);
    if (dst.empty()) dst = src;
}

kvString dlFunc::channelsName(int n) const {
    if (n != 1 && n != 2) return kvString();
    kvString src, dst;
    getChannelsName(src, dst);
    return n == 1 ? src : dst;
}

kvString dlFunc::channelsName(dlArg arg) const {
    kvString src, dst;
    getChannelsName(src, dst);
    return byArg(arg, src, dst, kvString());
}

kvString dlFunc::srcChannelsName() const {
    return channelsName(1);
}

kvString dlFunc::dstChannelsName() const {
    return channelsName(2);
}

int dlFunc::channels(int n) const {
    if (n != 1 && n != 2) return 1;
    return numChannels(channelsName(n));
}

int dlFunc::channels(dlArg arg) const {
    int src, dst;
    getChannels(src, dst);
    return byArg(arg, src, dst, 1);
}

void dlFunc::getChannels(int& src, int& dst) const {
    kvString srcName, dstName;
    getChannelsName(srcName, dstName);
    src = numChannels(srcName);
    dst = numChannels(dstName);
    updateChannels(src, dst);
}

void dlFunc::updateChannels(int& src, int& dst) const {
    (void)src;
    if (prefix() == "vdli" && baseName().found("Compare")) dst = 1;
}

int dlFunc::vdlChannels(int n) const {
    kvString form = channelsName(n);
    for (int i = 0; i < countOf(vdlChannelForms); ++i)
        if (form == vdlChannelForms[i].form) return vdlChannelForms[i].number;
    return 0;
}

void dlFunc::getPlanes(bool& src, bool& dst) const {
    src = false;
    dst = false;
    kvString d = descrName();
    int p = d.find("P");
    if (p >= 0) {
        int c = d.find("C");
        if (c < 0) {
            src = true;
            dst = true;
        } else if (c > p) {
            src = true;
        } else {
            dst = true;
        }
    }
    updatePlanes(src, dst);
}

bool dlFunc::plane(int n) const {
    return (n == 1 || n == 2) && planeChannel(channelsName(n));
}

bool dlFunc::plane(dlArg arg) const {
    bool src, dst;
    getPlanes(src, dst);
    return byArg(arg, src, dst, false);
}

bool dlFunc::srcPlane() const {
    bool src, dst;
    getPlanes(src, dst);
    return src;
}

bool dlFunc::dstPlane() const {
    bool src, dst;
    getPlanes(src, dst);
    return dst;
}

void dlFunc::getAlpha(bool& src, bool& dst) const {
    kvString srcName, dstName;
    getChannelsName(srcName, dstName);
    src = alphaChannel(srcName);
    dst = alphaChannel(dstName);
}

bool dlFunc::alpha(int n) const {
    return (n == 1 || n == 2) && alphaChannel(channelsName(n));
}

bool dlFunc::alpha(dlArg arg) const {
    bool src, dst;
    getAlpha(src, dst);
    return byArg(arg, src, dst, false);
}

bool dlFunc::srcAlpha() const {
    bool src, dst;
    getAlpha(src, dst);
    return src;
}

bool dlFunc::dstAlpha() const {
    bool src, dst;
    getAlpha(src, dst);
    return dst;
}

bool dlFunc::inplace() const {
    return descrName().found("I");
}

bool dlFunc::mask() const {
    return descrName().found("M");
}

bool dlFunc::scale() const {
    return descrName().found("Sfs");
}

bool dlFunc::roi() const {
    return descrName().found("R");
}

// A "C" without a channel count behind it is the channel-of-interest flag.
bool dlFunc::coi() const {
    kvString d = descrName();
    for (int i = d.find("C"); i >= 0; i = d.find("C", i + 1))
        if (!isChannelIndex(i + 1, d)) return true;
    return false;
}

int dlFunc::compare(const dlFunc& other) const {
    int r = (prefix() + baseName()).compare(other.prefix() + other.baseName());
    if (r != 0) return r;
    r = compareTypes(typeName(), other.typeName());
    if (r != 0) return r;
    return compareDescr(descrName(), other.descrName());
}
