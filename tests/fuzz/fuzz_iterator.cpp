// Fuzz target: the value syntax of parameters and iterators, and the number
// conversions of kvString beneath it.
//
// The input (up to its first NUL) is handed to translate of every parameter
// kind. A kvException is the expected answer to bad text; everything else
// must be sound: after a successful translate the walk ends, every step moves
// towards the last value without passing it, and an integer iterator reads
// its own defaultString back to the same walk.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <type_traits>
#include <vector>

#include "kvexception.h"
#include "kvparameter.h"

namespace {

// Steps a walk may take before its length is judged.
const long kWalkBound = 100000;

[[noreturn]] void fail(const char* what, const std::string& text) {
    fprintf(stderr, "FINDING: %s for input \"%s\"\n", what, text.c_str());
    abort();
}

// How many values an arithmetic or geometric walk from first to last has;
// the judge of a walk that is still going at the bound.
template <class T>
double expectedSteps(const kvStepIterator<T>& it) {
    double first = it.m_first, last = it.m_last, step = it.m_step;
    if (it.m_oprtn == STEP_MUL) {
        double ratio = std::log(last / first) / std::log(step);
        return std::isfinite(ratio) ? std::fabs(ratio) + 1 : HUGE_VAL;
    }
    double n = std::fabs((last - first) / step);
    return std::isfinite(n) ? n + 1 : HUGE_VAL;
}

// Walks once, checks every value and returns them (at most kWalkBound).
template <class T>
std::vector<T> checkedWalk(kvStepIterator<T>& it, const std::string& text) {
    std::vector<T> values;
    bool more = it.firstValue();
    if (it.m_oprtn == STEP_LIST) {
        for (; more; more = it.nextValue()) values.push_back(it.value());
        if ((int)values.size() != it.size()) fail("list walk length differs from the list", text);
        typename kvList<T>::iterator item = it.begin();
        for (size_t i = 0; i < values.size(); ++i, ++item)
            if (!(values[i] == *item) && !(values[i] != values[i])) fail("list walk value", text);
        return values;
    }
    T lo = it.m_decreasing ? it.m_last : it.m_first;
    T hi = it.m_decreasing ? it.m_first : it.m_last;
    if (more && !(it.value() == it.m_first)) fail("walk does not start at the first value", text);
    while (more) {
        T v = it.value();
        if (!(v >= lo && v <= hi)) fail("walk leaves its range", text);
        if (!values.empty()) {
            T prev = values.back();
            if (it.m_decreasing ? !(v < prev) : !(v > prev)) fail("walk makes no progress", text);
        }
        values.push_back(v);
        if ((long)values.size() >= kWalkBound) {
            if (expectedSteps(it) < kWalkBound / 2) fail("walk does not end", text);
            return values;   // long, but each step has moved on
        }
        more = it.nextValue();
    }
    return values;
}

template <class T>
void fuzzStep(const std::string& text) {
    kvStepIterator<T> it;
    it.init("Len", T(1), T(1), T(1), '+');
    bool ok = true;
    try {
        it.translate(text.c_str());
    } catch (kvException&) {
        ok = false;
    }
    if (!ok) {
        // The walk in force stays usable.
        checkedWalk(it, text);
        return;
    }
    std::vector<T> first = checkedWalk(it, text);
    // Past its end a walk starts again at the first value.
    if (!first.empty() && (long)first.size() < kWalkBound) {
        if (!it.nextValue() || !(it.value() == first[0] || first[0] != first[0]))
            fail("walk does not restart", text);
    }
    (void)it.description();
    (void)it.prompt();
    (void)it.valueString();

    // What the ini file and the console question show must read back. A
    // float loses digits in "%.3g", so only integers must give the same walk;
    // a three-value integer list whose third value is negative reads back as
    // a step form, which its own syntax cannot tell apart.
    kvString shown = it.defaultString();
    kvStepIterator<T> again;
    bool readBack = true;
    try {
        again.translate(shown);
    } catch (kvException&) {
        readBack = false;
    }
    if (readBack) checkedWalk(again, text);
    if (std::is_integral<T>::value) {
        bool ambiguous = it.m_oprtn == STEP_LIST && it.size() == 3 && first.back() < 0;
        if (ambiguous) return;
        if (!readBack) fail("defaultString does not read back", text);
        if ((long)first.size() < kWalkBound) {
            std::vector<T> second = checkedWalk(again, text);
            if (second != first) fail("defaultString reads back to another walk", text);
        }
    }
}

template <class P>
void translateQuietly(P& p, const std::string& text) {
    try {
        p.translate(text.c_str());
    } catch (kvException&) {
        return;
    }
    (void)p.valueString();
    (void)p.description();
}

void fuzzPlainAndMapped(const std::string& text) {
    kvDefault<int> plain(7, "Plain", "");
    translateQuietly(plain, text);

    DefaultAlign align(0, "Align", "");
    translateQuietly(align, text);
    if (align.value() <= -64 || align.value() >= 64) fail("misalignment not below 64", text);

    DefaultShift shift(512, "Shift", "");
    translateQuietly(shift, text);
    if (shift.value() % 64 != 0) fail("shift not a multiple of 64", text);

    kvMapDefault<int> mode(0, "Mode", "");
    mode[0] = "Auto";
    mode[1] = "Stat";
    mode[2] = "Loop";
    translateQuietly(mode, text);
    if (mode.value() < 0 || mode.value() > 2) fail("map default outside its table", text);

    kvMapIterator<int> names;
    names.init("Names");
    names.initValidation();
    names.addValidation(0, "none");
    names.addValidation(1, "fast");
    names.addValidation(2, "accurate");
    translateQuietly(names, text);
    for (bool more = names.firstValue(); more; more = names.nextValue())
        if (names.value() < 0 || names.value() > 2) fail("map iterator value not allowed", text);

    kvEnumIterator<double> sizes;
    sizes.init("Sizes");
    sizes.add(0.5);
    sizes.add(2);
    sizes.initValidation();
    translateQuietly(sizes, text);
    for (bool more = sizes.firstValue(); more; more = sizes.nextValue())
        if (sizes.value() != 0.5 && sizes.value() != 2) fail("enum iterator value not allowed", text);

    kvEnumIterator<VdlHintAlgorithm> hints;
    hints.init("Hint");
    translateQuietly(hints, text);
    for (bool more = hints.firstValue(); more; more = hints.nextValue())
        if (hints.value() < vdlAlgHintNone || hints.value() > vdlAlgHintAccurate)
            fail("hint outside its names", text);
}

// The readers themselves: a marked text leaves the target as it was.
void fuzzConversions(const std::string& text) {
    kvString t(text.c_str());
    int i = 12345;
    i << t;
    if (t.errorConvertion() && i != 12345) fail("int changed on a bad text", text);
    long long ll = 12345;
    ll << t;
    if (t.errorConvertion() && ll != 12345) fail("long long changed on a bad text", text);
    double d = 0.25;
    d << t;
    if (t.errorConvertion() && d != 0.25) fail("double changed on a bad text", text);
    float f = 0.25f;
    f << t;
    bool b = true;
    b << t;
    if (t.errorConvertion() && b) fail("bool not false on a bad text", text);
    kvString out;
    out << i << ll << d << f << b;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);
    text = text.c_str();   // kvString stops at a NUL as the readers do
    fuzzConversions(text);
    fuzzStep<int>(text);
    fuzzStep<float>(text);
    fuzzPlainAndMapped(text);
    return 0;
}
