#include "kvparameter.h"

#include <cstdio>

#include "kvcstream.h"
#include "kvexception.h"
#include "kvistream.h"
#include "kvstream.h"

const char* const KV_CONFLICT_TEXT = "Conflict between iterator limits and operation";
const char* const KV_EMPTY_ITERATOR_TEXT = "Empty iterator definition";

void kvThrowInputError(const kvString& text) {
    throw kvException(text);
}

kvParameter::kvParameter() : m_hasValue(false), m_toRead(true), m_deprecatedOut(false) {}

kvParameter::kvParameter(kvString name, kvString prompt)
    : m_hasValue(false), m_toRead(true), m_deprecatedOut(false) {
    init(name, prompt);
}

void kvParameter::init(kvString name, kvString prompt) {
    m_name = name;
    m_prompt = prompt.empty() ? name : prompt;
}

kvString kvParameter::description() const {
    return m_name + " = " + defaultString();
}

kvString kvParameter::prompt() const {
    kvString valid = validString();
    if (valid.empty()) return m_prompt;
    return m_prompt + " {" + valid + "}";
}

bool kvParameter::firstValue() {
    resetIterator();
    return nextValue();
}

void kvParameter::toOStream(kvOStream& s) const {
    if (m_name.empty()) return;
    s << m_name << "=" << valueString() << " ";
}

void kvParameter::cellToCStream(kvCStream& cs, const kvString& cell) const {
    int colm = colmIndex();
    if (colm < 0) cs.addCell(cell);
    else cs.setColm(colm, cell);
}

void kvParameter::toCStream(kvCStream& cs) const {
    kvString cell;
    if (m_deprecatedOut) cell = m_deprecatedText;
    else if (!m_name.empty()) cell = valueString();
    cellToCStream(cs, cell);
}

void kvParameter::nameToCStream(kvCStream& cs) const {
    cellToCStream(cs, m_name);
}

void kvParameter::fromIStream(kvIStream& istrm) {
    if (m_name.empty()) return;
    if (!m_toRead) {
        g_ostrm << " " << description() << "\n";
        return;
    }
    const OutputLevel oldLevel = g_ostrm.getOutLevel();
    // Questions and their echo must be seen even under a quiet console level.
    if (istrm.getIStream()) g_ostrm.setOutLevel(7);
    try {
        KV_SIGNAL_REGION(region);
        kvString value = istrm.getItemValue(m_name, defaultString(), prompt(), validString());
        translate(value);
    } catch (kvException& e) {
        // A bad value from any source keeps the value in force.
        g_ostrm << "-" << e.info() << "\n";
    }
    g_ostrm << " " << description() << "\n";
    if (istrm.lastSource() == KV_SOURCE_CONSOLE) fflush(c_out.file() ? c_out.file() : stdout);
    g_ostrm.setOutLevel(oldLevel);
}

bool kvIsNamePrefix(const kvString& text, const kvString& name) {
    kvString t = text.toLower();
    t.trim();
    return name.toLower().find(t) == 0;
}

// ---------------------------------------------------------------------------

const char* const kvHintNames[3] = {"none", "fast", "accurate"};

kvString kvTextForm<int>::toString(int v) { return kvString() << v; }
int kvTextForm<int>::fromString(kvString& text) {
    int v = 0;
    v << text;
    return v;
}

kvString kvTextForm<float>::toString(float v) { return kvString() << v; }
float kvTextForm<float>::fromString(kvString& text) {
    float v = 0;
    v << text;
    return v;
}

kvString kvTextForm<double>::toString(double v) { return kvString() << v; }
double kvTextForm<double>::fromString(kvString& text) {
    double v = 0;
    v << text;
    return v;
}

kvString kvTextForm<bool>::toString(bool v) { return kvString() << v; }
bool kvTextForm<bool>::fromString(kvString& text) {
    bool v = false;
    v << text;
    return v;
}

kvString kvTextForm<VdlHintAlgorithm>::toString(VdlHintAlgorithm v) {
    const int values[3] = {vdlAlgHintNone, vdlAlgHintFast, vdlAlgHintAccurate};
    const kvString names[3] = {kvHintNames[0], kvHintNames[1], kvHintNames[2]};
    return kvString::enumString((int)v, values, names, 3);
}

// By name first, the first name that the text begins; else as a number.
VdlHintAlgorithm kvTextForm<VdlHintAlgorithm>::fromString(kvString& text) {
    text.setErrorConvertion(false);
    const VdlHintAlgorithm values[3] = {vdlAlgHintNone, vdlAlgHintFast, vdlAlgHintAccurate};
    for (int i = 0; i < 3; ++i)
        if (kvIsNamePrefix(text, kvHintNames[i])) return values[i];
    int v = 0;
    v << text;
    if (text.errorConvertion() || v < vdlAlgHintNone || v > vdlAlgHintAccurate) {
        text.setErrorConvertion(true);
        return vdlAlgHintNone;
    }
    return values[v];
}

// The instances the framework and the catalogue use; compiled here once so
// that every one of them is checked whatever the modules include.
template class kvDefault_NSC<int>;
template class kvDefault_NSC<float>;
template class kvDefault_NSC<double>;
template class kvDefault_NSC<bool>;
template class kvDefault_NSC<VdlHintAlgorithm>;
template class kvDefault<int>;
template class kvMapDefault<int>;
template class kvMapDefault<bool>;
template class kvIterator_NSC<int>;
template class kvIterator_NSC<float>;
template class kvIterator_NSC<double>;
template class kvIterator_NSC<VdlHintAlgorithm>;
template class kvIterator<int>;
template class kvIterator<float>;
template class kvStepIterator<int>;
template class kvStepIterator<float>;
template class kvEnumIterator_NCS<int>;
template class kvEnumIterator_NCS<double>;
template class kvEnumIterator_NCS<VdlHintAlgorithm>;
template class kvEnumIterator<double>;
template class kvEnumIterator<VdlHintAlgorithm>;
template class kvMapIterator<int>;
