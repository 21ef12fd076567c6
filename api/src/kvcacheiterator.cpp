#include "kvcacheiterator.h"

#include <climits>

#include "kvmemory.h"
#include "kvstream.h"
#include "kvvdl.h"

// After this many corrections the search for a state gives up.
static const int MAX_TRIES = 11;
static const double START_LOW_FACTOR = 0.1;
static const double NARROW_LOW_FACTOR = 0.01;

kvCacheIterator::kvCacheIterator(kvParameter& parm, kvObject* object, kvCacheValidator validator)
    : m_parm(&parm),
      m_object(object),
      m_tries(0),
      m_objectSize(0),
      m_totalSize(0),
      m_wasTooBig(false),
      m_lowFactor(START_LOW_FACTOR),
      m_validator(validator) {
    init("cacheIterator");
    add(0);
    add(1);
}

bool kvCacheIterator::nextValue() {
    m_tries = 0;
    m_info = "";
    m_lowFactor = START_LOW_FACTOR;
    if (!kvIterator_NSC<int>::nextValue()) return false;
    return m_parm->firstValue();
}

kvString kvCacheIterator::getComment() const {
    return m_value == 0 ? "inCache" : "outofCache";
}

void kvCacheIterator::outputInfo() const {
    if (g_ostrm.getOutLevel() < PERF) g_ostrm << ERR << m_info << endMsg;
}

// Summed in 64 bits: a few blocks near the int limit would wrap the sum to a
// size that looks small enough. A total past the int range reads as INT_MAX.
int kvCacheIterator::getTotalSize() const {
    long long total = 0;
    int size = 0;
    for (void* p = kvMallocFirst(&size, 0); p; p = kvMallocNext(&size, 0)) total += size;
    return total > INT_MAX ? INT_MAX : (int)total;
}

int kvCacheIterator::getObjectSize() const {
    return m_object ? m_object->objectSize() : 0;
}

// Unknown (0) when the library cannot tell.
int kvCacheIterator::cacheSize() const {
    int size = 0;
    if (!vdl_GetMaxCacheSizeB || vdl_GetMaxCacheSizeB(&size) != 0) return 0;
    return size;
}

int kvCacheIterator::lowSize() const {
    double c = cacheSize();
    return m_value == 0 ? (int)(c * m_lowFactor) : (int)(c * 1.05);
}

int kvCacheIterator::highSize() const {
    return m_value == 0 ? (int)(cacheSize() * 0.9) : INT_MAX;
}

bool kvCacheIterator::validateSize() {
    m_objectSize = getObjectSize();
    m_totalSize = getTotalSize();
    if (m_objectSize == 0) m_objectSize = m_totalSize;
    int low = lowSize();
    int high = highSize();
    bool tooSmall = m_objectSize < low;
    bool tooBig = m_totalSize > high;
    if (!tooSmall && !tooBig) {
        m_tries = 0;
        m_info = "";
        return true;
    }

    kvString text;
    if (tooSmall) {
        text << "      " << getComment() << " try: cacheParm=" << valueString()
             << (m_object ? " objectSize=" : " totalSize=") << m_objectSize << " < " << low << "\n";
    }
    if (tooBig) {
        text << "      " << getComment() << " try: cacheParm=" << valueString() << " totalSize="
             << m_totalSize << " > " << high << "\n";
    }
    m_info += text;
    g_ostrm << PERF << text << endMsg;

    bool narrowed = m_lowFactor - 0.0001 <= NARROW_LOW_FACTOR;
    if (tooSmall && tooBig) {
        // No size satisfies both bounds for these buffers: widen once, then give up.
        if (narrowed) m_tries = MAX_TRIES + 1;
        else m_lowFactor = NARROW_LOW_FACTOR;
    } else if (tooSmall && m_tries > 1 && m_wasTooBig) {
        // The search jumped over the allowed range.
        if (narrowed) {
            m_tries = MAX_TRIES + 1;
        } else {
            m_lowFactor = NARROW_LOW_FACTOR;
            return validateSize();
        }
    }
    m_wasTooBig = tooBig;
    return false;
}

bool kvCacheIterator::repeatValue() {
    if (++m_tries > MAX_TRIES) return false;
    return setNewValue();
}

bool kvCacheIterator::setNewValue() {
    int size, target;
    int high = highSize();
    if (m_totalSize > high) {
        size = m_totalSize;
        target = high;
    } else {
        size = m_objectSize;
        target = lowSize();
    }
    bool refine = m_tries > 1;
    if (m_validator) return m_validator(m_parm, size, target, refine);
    return setNewValueToParm(size, target, refine);
}

bool kvCacheIterator::setNewValueToParm(int size, int target, bool refine) {
    (void)size;
    (void)target;
    (void)refine;
    return false;
}

// ------------------------------------------------------------ int sizes

bool kvCacheIteratorInt::updateValue(int& v, int size, int target, bool refine) {
    // With an unknown cache size the target is 0, which no halving reaches.
    if (target <= 0) return false;
    if (refine) {
        if (size >= target) v /= 2;
        else if (__builtin_mul_overflow(v, 2, &v)) return false;
        return v > 0;
    }
    // Data that do not grow with the parameter cannot be brought to size.
    if (size <= 0) return false;
    long long s = size;
    int n = 0;
    while (s <= target) {
        s *= 2;
        ++n;
    }
    do {
        s /= 2;
        --n;
    } while (s >= target);
    long long scaled = n > 0 ? (long long)v << n : (long long)v >> -n;
    if (scaled > INT_MAX) return false;
    v = (int)scaled;
    return v > 0;
}

bool kvCacheIteratorInt::setNewValueToParm(int size, int target, bool refine) {
    int v = m_intParm->value();
    if (!updateValue(v, size, target, refine)) return false;
    m_intParm->m_value = v;
    return true;
}

// ------------------------------------------------------------ 2-D sizes

static bool shiftAxis(int& axis, int n) {
    long long scaled = n > 0 ? (long long)axis << n : (long long)axis >> -n;
    if (scaled > INT_MAX) return false;
    axis = (int)scaled;
    return true;
}

// The axes take turns, the smaller one growing first and the larger one
// shrinking first, so that the shape stays near a square.
bool kvCacheIteratorSize::updateValue(VdliSize& v, int size, int target, bool refine) {
    if (target <= 0) return false;
    if (refine) {
        bool grow = size < target;
        if (grow) {
            int& axis = v.width <= v.height ? v.width : v.height;
            if (__builtin_mul_overflow(axis, 2, &axis)) return false;
        } else {
            int& axis = v.width > v.height ? v.width : v.height;
            axis /= 2;
        }
        return v.width >= 1 && v.height >= 1;
    }
    if (size <= 0) return false;
    long long s = size;
    int ew = 0, eh = 0;
    while (s <= target) {
        s *= 2;
        if (ew <= eh) ++ew;
        else ++eh;
    }
    do {
        s /= 2;
        if (ew > eh) --ew;
        else --eh;
    } while (s >= target);
    if (!shiftAxis(v.width, ew) || !shiftAxis(v.height, eh)) return false;
    return v.width >= 1 && v.height >= 1;
}

bool kvCacheIteratorSize::setNewValueToParm(int size, int target, bool refine) {
    VdliSize v = m_sizeParm->value();
    if (!updateValue(v, size, target, refine)) return false;
    m_sizeParm->m_value = v;
    return true;
}
