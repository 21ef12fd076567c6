// Registration of a test's size parameter for in-and-out-of-cache timing.
#include "kvcacheiterator.h"
#include "kvtest.h"

void kvTest::regCacheParm(kvIterator<int>& parm, kvObject* object, kvCacheValidator validator) {
    if (m_cache && !m_cacheParm) {
        // The wrapper stands in the parameter's place; the test owns it.
        m_cacheParm = new kvCacheIteratorInt(parm, object, validator);
        m_parms.insert(m_parms.end(), m_cacheParm);
    } else {
        m_parms.insert(m_parms.end(), &parm);
    }
}

void kvTest::regCacheParm(kvStepIterator<int>& parm, kvObject* object, kvCacheValidator validator) {
    regCacheParm(static_cast<kvIterator<int>&>(parm), object, validator);
}
