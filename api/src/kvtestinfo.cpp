#include "kvtestinfo.h"

kvTestInfo::kvTestInfo(kvString text) {
    int p = text.find("/");
    if (p < 0) {
        m_class = text;
        return;
    }
    m_class = text.substr(0, p);
    int q = text.find("/", p + 1);
    if (q < 0) {
        m_description = text.substr(p + 1);
        return;
    }
    m_description = text.substr(p + 1, q - p - 1);
    m_tag = text.substr(q + 1);
}
