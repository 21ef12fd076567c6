// The parameter family: named values that a test or the session depends on,
// read in one text syntax (from -d, the ini file or the console), reported in
// text and table, and, for iterators, walked as one axis of a test's grid.
#ifndef KV_PARAMETER_H
#define KV_PARAMETER_H

#include <cmath>

#include "kvlist.h"
#include "kvstring.h"
#include "vdlcore.h"

class kvOStream;
class kvCStream;
class kvIStream;

// The operation of a step iterator; the values are the character codes of
// the signs, so that the sign read from the text is the operation.
enum StepOprtn {
    STEP_ADD = '+',
    STEP_SUB = '-',
    STEP_MUL = '*',
    STEP_LIST = '?'   // no step: the iterator walks its list
};

// Text of every input error and of a step range that cannot be walked.
extern const char* const KV_CONFLICT_TEXT;
extern const char* const KV_EMPTY_ITERATOR_TEXT;

// Throws the input-error kvException ("--VDL. Exception: " text).
[[noreturn]] void kvThrowInputError(const kvString& text);

class kvParameter {
public:
    kvParameter();
    kvParameter(kvString name, kvString prompt);
    virtual ~kvParameter() {}

    void init(kvString name, kvString prompt);

    virtual void reset() { m_hasValue = false; }
    virtual kvString valueString() const { return kvString(); }
    virtual kvString defaultString() const { return valueString(); }
    virtual kvString validString() const { return kvString(); }
    virtual kvString description() const;
    virtual kvString prompt() const;
    virtual void resetIterator() { m_hasValue = false; }
    virtual bool firstValue();
    // A plain parameter has one value per walk.
    virtual bool nextValue() { m_hasValue = !m_hasValue; return m_hasValue; }
    virtual bool isDeprecatedParm() { return false; }
    virtual bool isDeprecatedValue() { return false; }
    virtual bool setDeprecatedFlag(bool flag) { (void)flag; return false; }
    virtual void toOStream(kvOStream& s) const;
    virtual int colmIndex() const { return -1; }
    virtual void toCStream(kvCStream& cs) const;
    virtual void nameToCStream(kvCStream& cs) const;
    virtual void fromIStream(kvIStream& istrm);
    virtual void translate(kvString text) { (void)text; }

    const kvString& name() const { return m_name; }
    bool hasValue() const { return m_hasValue; }
    bool toRead() const { return m_toRead; }
    void setToRead(bool toRead) { m_toRead = toRead; }

    kvString m_name;
    kvString m_prompt;
    bool m_hasValue;
    bool m_toRead;
    bool m_deprecatedOut;
    kvString m_deprecatedText;

protected:
    // Writes one table cell at the parameter's column.
    void cellToCStream(kvCStream& cs, const kvString& cell) const;
};

// Text forms of the value types: numbers through kvString's formatter and
// parser, bool as "yes"/"no", the library's hint by its names.
template <class T> struct kvTextForm;

template <> struct kvTextForm<int> {
    static kvString toString(int v);
    static int fromString(kvString& text);
};
template <> struct kvTextForm<float> {
    static kvString toString(float v);
    static float fromString(kvString& text);
};
template <> struct kvTextForm<double> {
    static kvString toString(double v);
    static double fromString(kvString& text);
};
template <> struct kvTextForm<bool> {
    static kvString toString(bool v);
    static bool fromString(kvString& text);
};
template <> struct kvTextForm<VdlHintAlgorithm> {
    static kvString toString(VdlHintAlgorithm v);
    static VdlHintAlgorithm fromString(kvString& text);
};

// The hint names, in the order of their values.
extern const char* const kvHintNames[3];

// ---------------------------------------------------------------------------

template <class T>
class kvDefault_NSC : public kvParameter {
public:
    kvDefault_NSC() : m_value() {}
    kvDefault_NSC(T value, kvString name, kvString prompt)
        : kvParameter(name, prompt), m_value(value) {}

    using kvParameter::init;
    void init(T value, kvString name, kvString prompt) {
        kvParameter::init(name, prompt);
        m_value = value;
    }

    void reset() override { kvParameter::reset(); m_value = T(); }
    kvString valueString() const override { return valueToString(value()); }
    bool isDeprecatedParm() override { return !m_deprecatedValues.empty(); }
    bool setDeprecatedFlag(bool flag) override;
    void translate(kvString text) override { m_value = validItem(text); }

    // Kept a plain read: it stands in the argument lists of measured calls.
    virtual T value() const { return m_value; }
    virtual kvString valueToString(T v) const { (void)v; return kvString(); }
    virtual T stringToValue(kvString& text) const { (void)text; return T(); }
    virtual T validItem(kvString text);

    operator T() const { return m_value; }

    // A value whose table cell is to show `text` in the extra deprecated line.
    void addDeprecated(T v, kvString text) {
        m_deprecatedValues.insert(m_deprecatedValues.end(), v);
        m_deprecatedTexts.insert(m_deprecatedTexts.end(), text);
    }

    T m_value;
    kvList<T> m_deprecatedValues;
    kvList<kvString> m_deprecatedTexts;
};

template <class T>
bool kvDefault_NSC<T>::setDeprecatedFlag(bool flag) {
    if (flag) {
        kvString now = valueToString(value());
        typename kvList<kvString>::iterator text = m_deprecatedTexts.begin();
        for (typename kvList<T>::iterator v = m_deprecatedValues.begin();
             v != m_deprecatedValues.end(); ++v, ++text) {
            if (valueToString(*v) == now) {
                m_deprecatedText = text != m_deprecatedTexts.end() ? *text : kvString();
                m_deprecatedOut = true;
                return true;
            }
        }
    }
    m_deprecatedOut = false;
    return false;
}

template <class T>
T kvDefault_NSC<T>::validItem(kvString text) {
    T v = stringToValue(text);
    if (text.errorConvertion()) kvThrowInputError("Invalid value of " + m_name + " = " + text);
    return v;
}

// A plain value with its number text form.
template <class T>
class kvDefault : public kvDefault_NSC<T> {
public:
    kvDefault() {}
    kvDefault(T value, kvString name, kvString prompt) : kvDefault_NSC<T>(value, name, prompt) {}
    kvString valueToString(T v) const override { return kvTextForm<T>::toString(v); }
    T stringToValue(kvString& text) const override { return kvTextForm<T>::fromString(text); }
};

// A misalignment in bytes: the value is kept below 64 in magnitude.
class DefaultAlign : public kvDefault<int> {
public:
    DefaultAlign() {}
    DefaultAlign(int value, kvString name, kvString prompt) : kvDefault<int>(value, name, prompt) {}
    int validItem(kvString text) override { return kvDefault<int>::validItem(text) % 64; }
};

// A shift in bytes: rounded down to a multiple of 64.
class DefaultShift : public kvDefault<int> {
public:
    DefaultShift() {}
    DefaultShift(int value, kvString name, kvString prompt) : kvDefault<int>(value, name, prompt) {}
    int validItem(kvString text) override { return kvDefault<int>::validItem(text) & ~63; }
};

// Case-insensitive: true when `name` begins with `text`.
bool kvIsNamePrefix(const kvString& text, const kvString& name);

// A value chosen by name from a table; input may shorten a name to any start.
template <class T>
class kvMapDefault : public kvDefault_NSC<T> {
public:
    kvMapDefault() {}
    kvMapDefault(T value, kvString name, kvString prompt) : kvDefault_NSC<T>(value, name, prompt) {}

    kvString validString() const override {
        kvString r;
        for (typename kvList<kvString>::iterator n = m_names.begin(); n != m_names.end(); ++n) {
            if (n != m_names.begin()) r += "|";
            r += *n;
        }
        return r;
    }
    kvString valueToString(T v) const override {
        typename kvList<kvString>::iterator n = m_names.begin();
        for (typename kvList<T>::iterator k = m_values.begin(); k != m_values.end(); ++k, ++n)
            if (*k == v) return *n;
        return kvString();
    }
    T stringToValue(kvString& text) const override {
        text.setErrorConvertion(false);
        typename kvList<T>::iterator k = m_values.begin();
        for (typename kvList<kvString>::iterator n = m_names.begin(); n != m_names.end(); ++n, ++k)
            if (kvIsNamePrefix(text, *n)) return *k;
        text.setErrorConvertion(true);
        return T();
    }

    // The name of `key`, made (empty) if the table has none.
    kvString& operator[](T key) {
        typename kvList<kvString>::iterator n = m_names.begin();
        for (typename kvList<T>::iterator k = m_values.begin(); k != m_values.end(); ++k, ++n)
            if (*k == key) return *n;
        m_values.insert(m_values.end(), key);
        return *m_names.insert(m_names.end(), kvString());
    }

    kvList<T> m_values;
    kvList<kvString> m_names;
};

// ---------------------------------------------------------------------------

// A list of values and a walk over it.
template <class T>
class kvIterator_NSC : public kvDefault_NSC<T>, public kvList<T> {
public:
    typedef typename kvList<T>::iterator list_iterator;

    kvIterator_NSC() : m_current(this->end()) {}
    ~kvIterator_NSC() override {}

    virtual void add(T v) { this->insert(this->end(), v); }

    using kvDefault_NSC<T>::init;
    // The name is also the prompt.
    void init(kvString name) { kvParameter::init(name, name); }

    void reset() override {
        kvDefault_NSC<T>::reset();
        this->clear();
        m_current = this->end();
        this->m_hasValue = false;
    }
    kvString defaultString() const override { return listDescr(*this, "; "); }
    bool nextValue() override;
    void translate(kvString text) override;

    kvString listDescr(const kvList<T>& list, kvString separator) const {
        kvString r;
        for (list_iterator i = list.begin(); i != list.end(); ++i) {
            if (i != list.begin()) r += separator;
            r += this->valueToString(*i);
        }
        return r;
    }

    list_iterator m_current;

protected:
    // Replaces the list with the values of a ";"-separated text; the old
    // list stays if any word is bad.
    void translateList(const kvString& text);
};

template <class T>
bool kvIterator_NSC<T>::nextValue() {
    if (!this->m_hasValue || m_current == this->end()) m_current = this->begin();
    else ++m_current;
    this->m_hasValue = m_current != this->end();
    if (this->m_hasValue) this->m_value = *m_current;
    return this->m_hasValue;
}

template <class T>
void kvIterator_NSC<T>::translateList(const kvString& text) {
    kvStringList words;
    text.parse(words, ";");
    kvList<T> values;
    for (kvStringList::iterator w = words.begin(); w != words.end(); ++w) {
        // A blank word is no value, as an empty one between two ";" is not.
        if (w->trim().empty()) continue;
        T v = this->stringToValue(*w);
        if (w->errorConvertion())
            kvThrowInputError("Invalid value of " + this->m_name + " = " + *w);
        values.insert(values.end(), v);
    }
    if (values.empty()) kvThrowInputError(KV_EMPTY_ITERATOR_TEXT);
    this->swap(values);
    m_current = this->end();
    this->m_hasValue = false;
}

template <class T>
void kvIterator_NSC<T>::translate(kvString text) {
    translateList(text);
}

// A list iterator with the number text form.
template <class T>
class kvIterator : public kvIterator_NSC<T> {
public:
    kvString valueToString(T v) const override { return kvTextForm<T>::toString(v); }
    T stringToValue(kvString& text) const override { return kvTextForm<T>::fromString(text); }
};

// ---------------------------------------------------------------------------

// One step of a walk; false when the result leaves the range of T.
inline bool kvStepApply(int& v, int op, int step) {
    int r;
    bool overflow = false;
    if (op == STEP_ADD) overflow = __builtin_add_overflow(v, step, &r);
    else if (op == STEP_SUB) overflow = __builtin_sub_overflow(v, step, &r);
    else if (op == STEP_MUL) overflow = __builtin_mul_overflow(v, step, &r);
    else r = v;
    if (overflow) return false;
    v = r;
    return true;
}

inline bool kvStepApply(float& v, int op, float step) {
    if (op == STEP_ADD) v += step;
    else if (op == STEP_SUB) v -= step;
    else if (op == STEP_MUL) v *= step;
    return true;
}

// The '*' rule: integers grow away from 0 only; floats may also shrink
// towards 0 with a factor below 1.
inline bool kvMulStepValid(int first, int last, int step, bool decreasing) {
    bool positive = first > 0 && last > 0;
    bool negative = first < 0 && last < 0;
    if (!positive && !negative) return false;
    if (step <= 1) return false;
    return positive ? !decreasing : decreasing;
}

inline bool kvMulStepValid(float first, float last, float step, bool decreasing) {
    bool positive = first > 0 && last > 0;
    bool negative = first < 0 && last < 0;
    if (!positive && !negative) return false;
    if (step <= 0) return false;
    bool awayFromZero = positive ? !decreasing : decreasing;
    return awayFromZero ? step > 1 : step < 1;
}

// A '+' or '-' step moves every value of the walk: always for integers; for
// floats only a step above half the spacing at the larger limit does, since
// at exactly half, rounding to even holds the value once it is even.
inline bool kvAddStepAdvances(int first, int last, int step) {
    (void)first; (void)last; (void)step;
    return true;
}

inline bool kvAddStepAdvances(float first, float last, float step) {
    float top = std::fabs(first) > std::fabs(last) ? std::fabs(first) : std::fabs(last);
    return 2 * std::fabs(step) > std::nextafter(top, HUGE_VALF) - top;
}

// first, last and a step, or a list when the text is no step form.
template <class T>
class kvStepIterator : public kvIterator<T> {
public:
    kvStepIterator() : m_first(), m_last(), m_step(), m_oprtn(STEP_LIST), m_decreasing(false) {}

    using kvIterator_NSC<T>::init;
    void init(kvString name, T first, T last, T step, int op) {
        StepOprtn o = (StepOprtn)op;
        bool decreasing = false;
        validate(first, last, step, o, decreasing);
        kvIterator_NSC<T>::init(name);
        m_first = first;
        m_last = last;
        m_step = step;
        m_oprtn = o;
        m_decreasing = decreasing;
    }
    void init(T first, T last, T step, int op, kvString name) { init(name, first, last, step, op); }

    kvString defaultString() const override;
    kvString description() const override;
    kvString prompt() const override {
        return m_oprtn != STEP_LIST ? "for " + this->m_name : this->m_name;
    }
    bool nextValue() override;
    void translate(kvString text) override;

    // Throws the conflict text when the walk from first to last by the
    // operation would never end or never start; sets `decreasing`.
    void validate(T first, T last, T& step, StepOprtn& op, bool& decreasing) const;
    void validate() { validate(m_first, m_last, m_step, m_oprtn, m_decreasing); }
    bool translateStep(kvString text);

    T m_first;
    T m_last;
    T m_step;
    StepOprtn m_oprtn;
    bool m_decreasing;
};

template <class T>
kvString kvStepIterator<T>::defaultString() const {
    if (m_oprtn == STEP_LIST) return kvIterator_NSC<T>::defaultString();
    return this->valueToString(m_first) + "; " + this->valueToString(m_last) + "; " +
           kvString().assign((char)m_oprtn) + this->valueToString(m_step);
}

template <class T>
kvString kvStepIterator<T>::description() const {
    if (m_oprtn == STEP_LIST) return kvParameter::description();
    const kvString& n = this->m_name;
    return "for (" + n + " = " + this->valueToString(m_first) + "; " + n +
           (m_decreasing ? " >= " : " <= ") + this->valueToString(m_last) + "; " + n + " " +
           kvString().assign((char)m_oprtn) + "= " + this->valueToString(m_step) + ")";
}

template <class T>
bool kvStepIterator<T>::nextValue() {
    if (m_oprtn == STEP_LIST) return kvIterator_NSC<T>::nextValue();
    if (!this->m_hasValue) {
        this->m_value = m_first;
    } else if (!kvStepApply(this->m_value, m_oprtn, m_step)) {
        this->m_hasValue = false;   // beyond the type's range, so beyond the last value
        return false;
    }
    this->m_hasValue = m_decreasing ? this->m_value >= m_last : this->m_value <= m_last;
    return this->m_hasValue;
}

template <class T>
void kvStepIterator<T>::validate(T first, T last, T& step, StepOprtn& op, bool& decreasing) const {
    decreasing = first > last;
    bool ok = true;
    switch (op) {
    case STEP_ADD: ok = step > 0 ? !decreasing : decreasing; break;
    case STEP_SUB: ok = step > 0 ? decreasing : !decreasing; break;
    case STEP_MUL: ok = kvMulStepValid(first, last, step, decreasing); break;
    default: return;
    }
    // A step that leaves the value unchanged (0, a factor of 1, or too small
    // for a float of that size) would walk forever.
    if (ok) {
        T a = first, b = last;
        if ((kvStepApply(a, op, step) && a == first) || (kvStepApply(b, op, step) && b == last))
            ok = false;
        if ((op == STEP_ADD || op == STEP_SUB) && !kvAddStepAdvances(first, last, step)) ok = false;
    }
    if (!ok) kvThrowInputError(KV_CONFLICT_TEXT);
}

template <class T>
bool kvStepIterator<T>::translateStep(kvString text) {
    kvStringList words;
    if (text.parse(words, "; ") != 3) return false;
    kvStringList::iterator w = words.begin();
    kvString first = *w++;
    kvString last = *w++;
    kvString third = *w;
    char sign = third.empty() ? 0 : third[0];
    if (sign != STEP_ADD && sign != STEP_SUB && sign != STEP_MUL) return false;
    StepOprtn op = (StepOprtn)sign;
    kvString stepText = third.substr(1);

    T f = this->stringToValue(first);
    if (first.errorConvertion()) kvThrowInputError("Invalid first value = " + first);
    T l = this->stringToValue(last);
    if (last.errorConvertion()) kvThrowInputError("Invalid last value = " + last);
    T s = this->stringToValue(stepText);
    if (stepText.errorConvertion()) kvThrowInputError("Invalid step = " + stepText);

    bool decreasing = false;
    validate(f, l, s, op, decreasing);
    m_first = f;
    m_last = l;
    m_step = s;
    m_oprtn = op;
    m_decreasing = decreasing;
    this->m_hasValue = false;
    return true;
}

template <class T>
void kvStepIterator<T>::translate(kvString text) {
    if (translateStep(text)) return;
    this->translateList(text);
    m_oprtn = STEP_LIST;
}

// ---------------------------------------------------------------------------

// A list iterator that may restrict its values to an allowed list.
template <class T>
class kvEnumIterator_NCS : public kvIterator_NSC<T> {
public:
    kvEnumIterator_NCS() : m_validating(false) {}

    void add(T v) override {
        kvIterator_NSC<T>::add(v);
        if (m_validating) addValidation(v);
    }
    kvString validString() const override {
        return m_validating ? this->listDescr(m_valid, "|") : kvString();
    }

    virtual void initValidation() {
        resetValidation();
        m_validating = true;
        for (typename kvList<T>::iterator i = this->begin(); i != this->end(); ++i) addValidation(*i);
    }
    virtual void resetValidation() {
        m_validating = false;
        m_valid.clear();
    }
    virtual bool addValidation(T v) {
        if (!m_validating) initValidation();
        if (isAllowed(v)) return false;
        m_valid.insert(m_valid.end(), v);
        return true;
    }
    virtual void addValidation(const kvList<T>* values) {
        if (!values) return;
        for (typename kvList<T>::iterator i = values->begin(); i != values->end(); ++i)
            addValidation(*i);
    }

    bool isAllowed(T v) const {
        for (typename kvList<T>::iterator i = m_valid.begin(); i != m_valid.end(); ++i)
            if (*i == v) return true;
        return false;
    }

    kvList<T> m_valid;
    bool m_validating;
};

// Enumerated values with their text forms; a value outside the allowed list
// is refused while validating.
template <class T>
class kvEnumIterator : public kvEnumIterator_NCS<T> {
public:
    kvString valueToString(T v) const override { return kvTextForm<T>::toString(v); }
    T stringToValue(kvString& text) const override {
        T v = kvTextForm<T>::fromString(text);
        if (text.errorConvertion()) return T();
        if (this->m_validating && !this->isAllowed(v)) {
            text.setErrorConvertion(true);
            return T();
        }
        return v;
    }
};

// Values shown and read by name; the names run parallel to the allowed list.
template <class T>
class kvMapIterator : public kvEnumIterator_NCS<T> {
public:
    using kvEnumIterator_NCS<T>::addValidation;
    // Allows `v` and gives it `name`; false if it was allowed already.
    bool addValidation(T v, kvString name) {
        if (!addValidation(v)) return false;
        m_names.insert(m_names.end(), name);
        return true;
    }

    kvString valueToString(T v) const override {
        typename kvList<kvString>::iterator n = m_names.begin();
        for (typename kvList<T>::iterator k = this->m_valid.begin();
             k != this->m_valid.end() && n != m_names.end(); ++k, ++n)
            if (*k == v) return *n;
        return kvString();
    }
    T stringToValue(kvString& text) const override {
        text.setErrorConvertion(false);
        typename kvList<T>::iterator k = this->m_valid.begin();
        for (typename kvList<kvString>::iterator n = m_names.begin();
             n != m_names.end() && k != this->m_valid.end(); ++n, ++k)
            if (kvIsNamePrefix(text, *n)) return *k;
        text.setErrorConvertion(true);
        return T();
    }

    void initValidation() override {
        this->m_valid.clear();
        this->m_validating = true;
    }
    void resetValidation() override {
        kvEnumIterator_NCS<T>::resetValidation();
        m_names.clear();
    }
    virtual void resetMap() {
        this->reset();
        resetValidation();
    }

    kvList<kvString> m_names;
};

#endif
