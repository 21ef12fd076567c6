#include "kvinfotest.h"

#include "kvhost.h"

void __kvInfoTest::loopData() {
    g_ostrm << ERR;
    printInformation();
    g_ostrm << endMsgFlush;
    m_currentResult = KV_OK;
}

void __kvOSTest::printInformation() { g_ostrm << " OS       : " << os.text() << "\n"; }
void __kvHostTest::printInformation() { g_ostrm << " Computer : " << host.text() << "\n"; }
