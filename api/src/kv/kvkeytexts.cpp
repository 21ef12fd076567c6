// The help line and the extended description of every key. They go out as
// they stand, so a change here is a change of the program's output.
#include "kvkeys.h"

// Pieces shared by the descriptions of the file keys; the ending of the
// key's file follows the first piece.
#define KV_D1 "If file-name is empty then default file path will be used:\n    <default-dir>/<default-name>"
#define KV_D2 "    <default-dir> : <exe-file-dir> or -l key argument if any\n"
#define KV_D3 "    <default-dir> : <exe-file-dir> or -p key argument if any\n"
#define KV_D4 "    <default-name>: <exe-file-name-without-extention> or -n key argument if any\n"

const char* const B_help = "-B               = batch mode (no console input)\n";
const char* const B_descr = "If both -B and -A key present in command line then -B key is performed\n";

const char* const A_help = "-A<Timing|Params|Misalign|All> = set detail level of the console input\n";
const char* const A_descr =
    "Timing  : adjust timing method at the very beginning\n"
    "Params  : adjust common parameters for all tests at the very beginning\n"
    "Misalign: adjust memory misalignment at the very beginning\n"
    "All     : adjust all above-listed and adjust test parameters\n"
    "          before each test running\n"
    "Certain parameter may be adjusted from console only if it is not defined\n"
    "    by -d key or in ini-file\n"
    "If -A has no mode then -AAll mode is implemented\n"
    "If several -A keys present in command line then all modes are combined\n"
    "If both -A and -B key present in command line then -B key is performed\n"
    "If neither of -A and -B key present in command line then\n"
    "    -ATimingParams is performed\n";

const char* const d_help = "-d<name>=<value> = set KV parameter value\n";
const char* const d_descr =
    "Any parameter asked from console or written in ini-file may be set by -d key\n"
    "Data set by -d option has the highest priority\n"
    "-d key may be used several times in command line\n";

const char* const i_help = "-i[<file-name>]  = read KV parameters from ini-file\n";
const char* const i_descr =
    "Ini-file section [Kelvar System] contains common parameters for all tests\n"
    "Ini-file section [<func-name>] contains parameters for measurement of this function\n"
    "A parameter is read from ini-file only if it is not defined by -d key\n"
    "At the same time this parameter will not be asked from console\n"
    KV_D1 ".ini\n" KV_D3 KV_D4
    "If several -i or -I keys present in command line then only the last key is valid\n";

const char* const I_help = "-I[<file-name>]  = write KV parameters to ini-file and exit\n";
const char* const I_descr =
    "This key opens ini-file and put test parameters with default values\n"
    "If the parameter is already present in ini-file then KV doesn't overwrite it\n"
    "Ini-file section [Kelvar System] will contain common parameters for all tests\n"
    "Ini-file section [<func-name>] will contain parameters for measurement of this function\n"
    KV_D1 ".ini\n" KV_D3 KV_D4
    "If several -i or -I keys present in command line then only the last key is valid\n";

const char* const P_help = "-P               = read tested function names from ini-file\n";
const char* const P_descr =
    "This key affects only if -i key is present in command line\n"
    "All functions present in ini-file as section names will be measured\n"
    "Other functions will not be measured\n";

const char* const o_help = "-o[<file-name>]  = create txt-file and write console output\n";
const char* const o_descr =
    KV_D1 ".txt\n" KV_D2 KV_D4
    "If several -o keys present in command line then all these files will be created\n"
    "    and filled\n";

const char* const O_help = "-O[<file-name>]  = add console output to txt-file\n";
const char* const O_descr =
    KV_D1 ".txt\n" KV_D2 KV_D4
    "If several -O keys present in command line then all these files will be opened\n"
    "    and filled\n";

const char* const L_help = "-L<ERR|WARN|PERF|INFO|TRACE|DATA> = set detail level of the console output\n";
const char* const L_descr =
    "ERR  : output errors\n"
    "WARN : output errors & warnings\n"
    "PERF : output errors & warnings & performance for each parameter set\n"
    "INFO : output errors & warnings & performance for each parameter set &\n"
    "       detailed course of performance measurement\n"
    "TRACE: output errors & warnings & performance for each parameter set &\n"
    "       KV function call tracing\n"
    "DATA : output errors & warnings & performance for each parameter set &\n"
    "       vectors data before and after vdl function call\n"
    "If several -L keys present in command line then all modes are combined\n";

const char* const r_help = "-r[<file-name>]  = create csv-file and write KV results\n";
const char* const r_descr =
    "This key creates table file for performance results\n"
    KV_D1 ".csv\n" KV_D2 KV_D4
    "If several -r keys present in command line then all these files will be created\n"
    "    and filled\n";

const char* const R_help = "-R[<file-name>]  = add KV results to csv-file\n";
const char* const R_descr =
    "This key adds for performance results to table file\n"
    KV_D1 ".csv\n" KV_D2 KV_D4
    "If several -R keys present in command line then all these files will be opened\n"
    "    and filled\n";

const char* const q_help =
    "-q[<file-name>]  = create csv-file (*_name.csv is default) and write function parameter name lines\n"
    "-q+              = add function parameter name lines to KV results table file\n";
const char* const q_descr =
    KV_D1 "_name.csv\n" KV_D2 KV_D4
    "If several -q[] keys present in command line then all these files will be created\n"
    "    and filled\n";

const char* const Q_help = "-Q               = exit after function parameter name table creation\n";
const char* const Q_descr = KV_D1 "_name.csv\n" KV_D2 KV_D4;

const char* const u_help =
    "-u[<file-name>]  = create csv-file and write summary table ('_sum' is added to default title name)\n";
const char* const u_descr =
    KV_D1 "_sum.csv\n" KV_D2 KV_D4
    "If several -u keys present in command line then all these files will be created\n"
    "    and filled\n";

const char* const U_help =
    "-U[<file-name>]  = add summary table to csv-file ('_sum' is added to default title name)\n";
const char* const U_descr =
    KV_D1 "_sum.csv\n" KV_D2 KV_D4
    "If several -U keys present in command line then all these files will be opened\n"
    "    and filled\n";

const char* const g_help = "-g[<file-name>]  = create signal file at the end of the whole testing\n";
const char* const g_descr =
    KV_D1 ".end\n" KV_D2 KV_D4
    "If several -g keys present in command line then only the last key is valid\n";

const char* const n_help = "-n<title-name>   = default title name for ini-file and output files\n";
const char* const n_descr =
    "This key sets default file name for input and output files defined by \n"
    "    -i, -I, -o, -O, -r, -R, -u, -U, -g, -q keys\n"
    "If several -n keys present in command line then only the last key is valid\n";

const char* const p_help =
    "-p<dir-name>     = default directory for input files i.e. ini & test data files\n";
const char* const p_descr =
    "This key sets default file directory for input files defined by -i, -I keys\n"
    "    and also for data files opened in a test by i_stream class\n"
    "If several -p keys present in command line then only the last key is valid\n";

const char* const l_help = "-l<dir-name>     = default directory for output files (listings)\n";
const char* const l_descr =
    "This key sets default file directory for output files defined by \n"
    "    -o, -O, -r, -R, -u, -U, -g, -q keys\n"
    "If several -l keys present in command line then only the last key is valid\n";

const char* const f_help =
    "-f < or-pattern> = run tests for functions with pattern in name\n"
    "-f-<not-pattern> = don't run tests for functions with pattern in name\n"
    "-f+<and-pattern> = run only tests for functions with pattern in name\n"
    "-f=< eq-pattern> = run tests for function with this full name\n";
const char* const f_descr =
    "Several -f keys may present in command line.\n"
    "Then function list is created such a way:\n"
    "    At first all functions defined by -f keys are combined in the list\n"
    "    Then functions defined by -f- keys are excluded from the list\n"
    "    Then functions that is not defined my -f+ keys are excluded from the list\n"
    "    Then functions defined my -f= keys are added to the list\n";

const char* const t_help = "-t[-/+/=]<patrn> = run (don't run) tests with pattern in test name\n";
const char* const t_descr =
    "Several -t keys may present in command line.\n"
    "Then test list is created such a way:\n"
    "    At first all tests defined by -t keys are combined in the list\n"
    "    Then tests defined by -t- keys are excluded from the list\n"
    "    Then tests that is not defined my -t+ keys are excluded from the list\n"
    "    Then tests defined my -t= keys are added to the list\n";

const char* const F_help = "-F<func-name>    = start testing from function with func-name full name\n";
const char* const F_descr = "If several -F keys present in command line then only the last key is valid\n";

const char* const Y_help = "-Y<HIGH|NORMAL>  = set high or normal process prioritY (normal is default)\n";
const char* const Y_descr = "If several -Y keys present in command line then only the last key is valid\n";

const char* const H_help =
    "-H[ONLY]         = add 'Interest' column to table file [and run only hot tests]\n";
const char* const H_descr = "If both -H & -HO keys present in command line then only the last key is valid\n";

const char* const T_help = "-T[<cpu-name>]   = call vdlInitStaticCpu( vdlCpu<cpu-name> )\n";
// The tab marks where the list of processor names goes (updateOptions).
const char* const T_descr =
    "This key works only if you link vdl*merged libraries\n"
    "    and include <vdlcore.h> before <dl.h> in your test file.\n"
    "To run VDL code optimized for specific processor enter following {cpu-name}:\n"
    "\tIf several -T keys present in command line then only the last key is valid\n";

const char* const N_help = "-N[<num-threads>]= call vdlSetNumThreads( <num-threads> )\n";
const char* const N_descr =
    "This key works only if you link vdl* libraries\n"
    "    and include <vdlcore.h> before <dl.h> in your test file.\n"
    "If several -N keys present in command line then only the last key is valid\n";

const char* const S_help = "-SU              = measure functions with data set & use\n";
const char* const S_descr =
    "This option should be used to prove parallelize function advantage\n"
    "Test does not show clear function performance\n";

const char* const C_help =
    "-C               = run tests with data in cache and out of cache (if that is supported by test)\n";
const char* const C_descr =
    "This option should be used to clarify performance difference between in-cache and out-of-cache data\n"
    "Not all tests support this option\n";

const char* const s_help = "-s[-]            = sort or don't sort functions (sort mode is default)\n";
const char* const s_descr = "If both -s & -s- keys present in command line then only the last key is valid\n";

const char* const e_help = "-e               = enumerate tests and exit\n";
const char* const e_descr = "";

const char* const v_help = "-v               = type the version number of the Kelvar System and exit\n";
const char* const v_descr = "";

const char* const h_help =
    "-h               = type short help and exit\n"
    "-hh              = type extended help and exit\n"
    "-h<key>          = type extended help for the key and exit\n";
const char* const h_descr = "If several -h present in command line then only the last key is valid\n";

// -? has no help line of its own: its lines stand in the description.
const char* const hq_descr =
    "-?               = type short help with hidden keys and exit\n"
    "-??              = type extended help with hidden keys and exit\n"
    "-?<key>          = type extended help for the key and exit\n"
    "If several -? keys present in command line then only the last key is valid\n";
