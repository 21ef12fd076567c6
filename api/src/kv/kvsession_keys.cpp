// The key table of the session: building it, reading the command line (or
// the .cfg file, or the built-in line) and applying each key with a report
// line, and the help that the table prints.
#include "kvsession.h"

#include <cstdio>
#include <cstring>

#include "../kvcputype.h"
#include "../kvistream.h"
#include "kvkeys.h"

// Registration order is the order of every help text.
void kvSession::registerOptions(bool libraryBound) {
    initOption('B', B_help, B_info, B_apply, B_descr, false);
    initOption('A', A_help, A_info, A_apply, A_descr, false);
    initOption('d', d_help, d_info, d_apply, d_descr, false);
    initOption('i', i_help, i_info, i_apply, i_descr, false);
    initOption('I', I_help, I_info, I_apply, I_descr, false);
    initOption('P', P_help, P_info, P_apply, P_descr, false);
    initOption('o', o_help, o_info, o_apply, o_descr, false);
    initOption('O', O_help, O_info, O_apply, O_descr, false);
    initOption('L', L_help, L_info, L_apply, L_descr, false);
    initOption('r', r_help, r_info, r_apply, r_descr, false);
    initOption('R', R_help, R_info, R_apply, R_descr, false);
    if (qKeys) {
        initOption('q', q_help, q_info, q_apply, q_descr, false);
        initOption('Q', Q_help, Q_info, Q_apply, Q_descr, false);
    }
    initOption('u', u_help, u_info, u_apply, u_descr, false);
    initOption('U', U_help, U_info, U_apply, U_descr, false);
    initOption('g', g_help, g_info, g_apply, g_descr, false);
    initOption('n', n_help, n_info, n_apply, n_descr, false);
    initOption('p', p_help, p_info, p_apply, p_descr, false);
    initOption('l', l_help, l_info, l_apply, l_descr, false);
    initOption('f', f_help, f_info, f_apply, f_descr, false);
    initOption('t', t_help, t_info, t_apply, t_descr, false);
    initOption('F', F_help, F_info, F_apply, F_descr, false);
    initOption('Y', Y_help, Y_info, Y_apply, Y_descr, false);
    initOption('H', H_help, H_info, H_apply, H_descr, false);
    if (libraryBound) {
        initOption('T', T_help, T_info, T_apply, T_descr, false);
        initOption('N', N_help, N_info, N_apply, N_descr, false);
    }
    initOption('S', S_help, S_info, S_apply, S_descr, true);
    initOption('C', C_help, C_info, C_apply, C_descr, true);
    initOption('s', s_help, s_info, s_apply, s_descr, false);
    initOption('e', e_help, e_info, e_apply, e_descr, false);
    initOption('v', v_help, v_info, v_apply, v_descr, false);
    initOption('h', h_help, h_info, h_apply, h_descr, false);
    initOption('?', "", hq_info, hq_apply, hq_descr, false);
}

void kvSession::deleteOption(kvOption* option) { delete option; }

void kvSession::initOption(char key, kvString help, kvString (*info)(kvString),
                           void (*apply)(kvString, kvSession*), kvString descr, bool hidden) {
    kvOption* option = new kvOption;
    option->m_key = key;
    option->m_hidden = hidden;
    option->m_help = help;
    option->m_info = info;
    option->m_apply = apply;
    option->m_descr = descr;
    m_options.insert(m_options.end(), option);
}

kvOption* kvSession::getOption(char key) {
    for (kvList<kvOption*>::iterator it = m_options.begin(); it != m_options.end(); ++it)
        if ((*it)->m_key == key) return *it;
    return 0;
}

// The handler runs also after an "ignored" report: it leaves a wrong
// argument without effect itself.
void kvSession::applyOption(char key, kvString arg) {
    m_optionInfo << "-" << key << arg << ": ";
    kvOption* option = getOption(key);
    if (!option) {
        m_optionInfo << "ignored: incorrect option key\n";
        return;
    }
    m_optionInfo << option->m_info(arg) << "\n";
    option->m_apply(arg, this);
}

bool kvSession::parseCommandLine(int argc, char** argv) {
    m_exePath = argc > 0 && argv[0] ? argv[0] : "";
    m_askMode = 0;
    m_batch = false;
    m_quickMode = false;
    m_enumMode = 100;
    m_nameMode = 0;
    m_nameExit = false;
    m_unopened = false;
    m_iniName = "";
    m_optionInfo = "Command line options: ";

    kvCommandList keys;
    kvString cfgLine, cfgName;
    if (argc >= 2) {
        keys.setArgs(argc - 1, argv + 1);
        m_optionInfo << "\n";
    } else if (readCfgFile(cfgLine, cfgName)) {
        keys.setArgs(cfgLine.c_str());
        m_optionInfo << "read from " << cfgName << " file\n";
    } else if (pCmdLine) {
        keys.setArgs(pCmdLine->c_str());
        m_optionInfo << "set by _FORCE_CMDLINE preprocessor definition\n";
    } else {
        m_optionInfo = "";
    }

    if (keys.isKey('?') || keys.isKey('h')) m_exitLevel = 2;
    else if (keys.isKey('e')) m_exitLevel = 1;
    else if (keys.isKey('v')) m_exitLevel = 3;
    else m_exitLevel = 0;

    // Directories and the default name hold for every file key, wherever
    // they stand on the line.
    kvString arg;
    setInDir("");
    if (keys.getArg('p', arg)) setInDir(arg);
    setOutDir("");
    if (keys.getArg('l', arg)) setOutDir(arg);
    setDefName("");
    if (keys.getArg('n', arg)) setDefName(arg);

    g_ostrm.setOutLevel(7);
    for (kvCommandList::iterator it = keys.begin(); it != keys.end(); ++it)
        applyOption(it->m_key, it->m_arg);
    g_ostrm << m_optionInfo;
    m_optionInfo = "";

    if (m_unopened) {
        g_ostrm << "FATAL ERROR: can't open output file for writing\n";
        return false;
    }
    if (!m_iniName.empty() && !g_istrm.setIniFile(m_iniName, m_iniWrite) && m_iniWrite) {
        g_ostrm << "FATAL ERROR: can't open ini-file for writing\n";
        return false;
    }
    updateOptions();
    return true;
}

// First the working directory, then the directory of the executable.
bool kvSession::readCfgFile(kvString& line, kvString& name) {
    name = m_exePath.getFileTitle() + ".cfg";
    FILE* f = fopen(name.c_str(), "r");
    if (!f) {
        name = m_exePath.getFileDir() + name;
        f = fopen(name.c_str(), "r");
        if (!f) return false;
    }
    char buffer[1024];
    if (!fgets(buffer, sizeof buffer, f)) buffer[0] = 0;
    fclose(f);
    buffer[strcspn(buffer, "\r\n")] = 0;
    line = buffer;
    return true;
}

void kvSession::updateOptions() {
    kvOption* cpu = getOption('T');
    if (cpu) {
        int tab = cpu->m_descr.find("\t");
        if (tab >= 0)
            cpu->m_descr = cpu->m_descr.substr(0, tab) + kvCpuType::optimizedList() +
                           cpu->m_descr.substr(tab + 1);
    }
    if (m_batch) m_askMode = 0;
    else if (m_askMode == 0) m_askMode = 3;
}

// ---- help

void kvSession::hint(char arg, bool hide) {
    if (arg == 1) hint_quick(hide);
    else if ((arg == 'h' && hide) || (arg == '?' && !hide)) hint_full(hide);
    else hint_descr(arg);
}

void kvSession::hint_quick(bool hide) {
    g_ostrm << "QUICK HELP" << (hide ? "" : " with hidden keys") << "\n";
    for (kvList<kvOption*>::iterator it = m_options.begin(); it != m_options.end(); ++it)
        if (!(hide && (*it)->m_hidden)) g_ostrm << (*it)->m_help;
}

void kvSession::hint_full(bool hide) {
    g_ostrm << "EXTENDED HELP" << (hide ? "" : " with hidden keys") << "\n";
    for (kvList<kvOption*>::iterator it = m_options.begin(); it != m_options.end(); ++it) {
        kvOption* option = *it;
        if ((hide && option->m_hidden) || option->m_help.empty()) continue;
        g_ostrm << "\n" << option->m_help;
        if (option->m_hidden) g_ostrm << "This is hidden key used by developers only\n";
        g_ostrm << option->m_descr;
    }
}

void kvSession::hint_descr(char key) {
    g_ostrm << "EXTENDED KEY HELP\n";
    kvOption* option = getOption(key);
    if (!option) {
        g_ostrm << "Key -" << key << " is not valid\n";
        return;
    }
    if (option->m_help.empty()) g_ostrm << "Key -" << key << " is deprecated\n";
    else g_ostrm << option->m_help;
    if (option->m_descr.empty()) g_ostrm << "No detailed description for this key\n";
    else g_ostrm << option->m_descr;
}
