// The cache iterator: under -C a test's size parameter is searched instead of
// walked. The iterator has two values of its own, "inCache" and "outofCache",
// and for each of them changes the wrapped parameter until the memory that
// the test really allocated fits that state.
#ifndef KV_CACHEITERATOR_H
#define KV_CACHEITERATOR_H

#include "kvparameter.h"

class kvObject;

// Width and height of a two-dimensional size.
struct VdliSize {
    int width;
    int height;
};

typedef bool (*kvCacheValidator)(kvParameter* parm, int size, int target, bool refine);

class kvCacheIterator : public kvIterator<int> {
public:
    kvCacheIterator(kvParameter& parm, kvObject* object, kvCacheValidator validator);
    ~kvCacheIterator() override {}

    // The report shows the wrapped parameter.
    kvString valueString() const override { return m_parm->valueString(); }
    kvString defaultString() const override { return m_parm->defaultString(); }
    kvString validString() const override { return m_parm->validString(); }
    kvString description() const override { return m_parm->description(); }
    kvString prompt() const override { return m_parm->prompt(); }
    void toOStream(kvOStream& s) const override { m_parm->toOStream(s); }
    void toCStream(kvCStream& cs) const override { m_parm->toCStream(cs); }
    void fromIStream(kvIStream& istrm) override { m_parm->fromIStream(istrm); }

    // Each state starts from the first value of the wrapped parameter.
    bool nextValue() override;
    // Changes the size for another try; false when no try is left.
    virtual bool repeatValue();
    virtual bool setNewValueToParm(int size, int target, bool refine);

    // Does the data just allocated fit the state.
    bool validateSize();
    kvString getComment() const;
    void outputInfo() const;
    int getTotalSize() const;
    int getObjectSize() const;
    int cacheSize() const;
    int lowSize() const;
    int highSize() const;
    bool setNewValue();

    kvParameter* getParm() const { return m_parm; }

    kvParameter* m_parm;
    kvObject* m_object;
    int m_tries;
    int m_objectSize;
    int m_totalSize;
    bool m_wasTooBig;
    double m_lowFactor;
    kvString m_info;
    kvCacheValidator m_validator;
};

// For a size parameter of type int.
class kvCacheIteratorInt : public kvCacheIterator {
public:
    kvCacheIteratorInt(kvDefault_NSC<int>& parm, kvObject* object, kvCacheValidator validator)
        : kvCacheIterator(parm, object, validator), m_intParm(&parm) {}
    bool setNewValueToParm(int size, int target, bool refine) override;
    // Scales `v` so that `size` comes just below `target`: first by a power
    // of two, and by a factor of two when refining; false when no positive
    // value is left.
    static bool updateValue(int& v, int size, int target, bool refine);
private:
    kvDefault_NSC<int>* m_intParm;
};

// For a size parameter of type VdliSize: the same search on two axes.
class kvCacheIteratorSize : public kvCacheIterator {
public:
    kvCacheIteratorSize(kvDefault_NSC<VdliSize>& parm, kvObject* object, kvCacheValidator validator)
        : kvCacheIterator(parm, object, validator), m_sizeParm(&parm) {}
    bool setNewValueToParm(int size, int target, bool refine) override;
    static bool updateValue(VdliSize& v, int size, int target, bool refine);
private:
    kvDefault_NSC<VdliSize>* m_sizeParm;
};

#endif
