// The global streams, all in this one unit so that their order is fixed:
// destruction runs in reverse, and g_istrm, which rewrites its ini file at
// exit and may complain through g_ostrm, goes before g_ostrm and the console.
#include "kvcstream.h"
#include "kvistream.h"
#include "kvstream.h"

i_stream c_in(stdin);
o_stream c_out(stdout);
kvOStream g_ostrm;
kvCStream g_cstrm;
kvCStream g_qstrm;
kvCStream g_ustrm;
kvIStream g_istrm;
kvTrace g_trace;

const char* extIni = ".ini";
const char* extCsv = ".csv";
const char* extOut = ".txt";
const char* extSgl = ".end";
const char* extName = "_name.csv";
const char* extSum = "_sum.csv";
