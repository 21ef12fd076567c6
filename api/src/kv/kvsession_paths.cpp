// Names of files and directories: every default lies beside the executable,
// and a relative directory is relative to the executable, not to the shell.
#include "kvsession.h"

kvString kvSession::m_exePath;
kvString kvSession::m_defName;
kvString kvSession::m_inDir;
kvString kvSession::m_outDir;
int kvSession::m_nameMode = 0;
bool kvSession::m_nameExit = false;
int kvSession::m_exitLevel = 0;

bool kvSession::isAbsolutePath(const kvString& path) {
    if (path.length() >= 1 && (path[0] == '/' || path[0] == '\\')) return true;
    return path.length() >= 2 && path[1] == ':';
}

kvString kvSession::genDirName(kvString name) {
    kvString exeDir = m_exePath.getFileDir();
    if (name.empty()) return exeDir;
    char last = name[name.length() - 1];
    if (last != '/' && last != '\\') name += "/";
    if (isAbsolutePath(name)) return name;
    return exeDir + name;
}

void kvSession::setInDir(kvString dir) { m_inDir = genDirName(dir); }
void kvSession::setOutDir(kvString dir) { m_outDir = genDirName(dir); }
void kvSession::setDefName(kvString name) {
    m_defName = name.empty() ? m_exePath.getFileTitle() : name;
}

kvString kvSession::genPathName(kvString dir, kvString name, kvString ext) {
    if (isAbsolutePath(name)) return name;
    if (name.empty()) name = m_defName + ext;
    else if (!name.found(".")) name += ext;
    return dir + name;
}

kvString kvSession::genInPath(kvString name, kvString ext) { return genPathName(m_inDir, name, ext); }
kvString kvSession::genOutPath(kvString name, kvString ext) { return genPathName(m_outDir, name, ext); }

kvString kvSession::getDirPath(kvString name, kvString dir) {
    if (isAbsolutePath(name)) return name;
    if (dir.empty()) return m_exePath.getFileDir() + name;
    if (name.find(dir) != 0) return dir + name;
    return name;
}

kvString kvSession::getInPath(kvString name) { return getDirPath(name, m_inDir); }
kvString kvSession::getOutPath(kvString name) { return getDirPath(name, m_outDir); }

kvString kvSession::getExitInfo() {
    switch (m_exitLevel) {
    case 2: return "ignored because of -h option";
    case 1: return "ignored because of -e option";
    case 3: return "ignored because of -v option";
    default: return "ignored";
    }
}
