// kvTestInfo: the registration text of a test, "class/description/tag".
#ifndef KV_TESTINFO_H
#define KV_TESTINFO_H

#include "kvstring.h"

class kvTestInfo {
public:
    kvTestInfo() {}
    explicit kvTestInfo(kvString text);
    kvString m_class;
    kvString m_description;
    kvString m_tag;
};

#endif
