#include "dlscaleiterator.h"

#include "kvtest.h"

int dlScaleIterator::colmIndex() const { return kvTest::m_numParmsColm - 1; }

bool dlScaleIterator::isScaled(const dlFunc& func) const {
    kvString descr = func.descrName();
    return descr.found("Sfs") || descr.found("Fix");
}

bool dlrScaleIterator::isScaled(const dlFunc& func) const {
    return func.found("Scaled") || dlScaleIterator::isScaled(func);
}

void dlScaleIterator::setScaled() {
    reset();
    kvIterator_NSC<int>::init("ScaleFactor");
}

void dlScaleIterator::init(kvString funcName) {
    m_scaled = isScaled(dlFunc(funcName));
    if (m_scaled) {
        setScaled();
        add(0);
        add(1);
        add(2);
        add(-1);
    } else {
        reset();
        kvIterator_NSC<int>::init("");
        add(0);
    }
}
