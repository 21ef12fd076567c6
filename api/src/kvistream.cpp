#include "kvistream.h"

#include "kv/kvsession.h"

const char* const KV_BARE_KEY = "~~~";

kvValueItem* kvValues::exist(const kvString& name) const {
    for (iterator it = begin(); it != end(); ++it)
        if ((*it)->name == name) return *it;
    return 0;
}

kvSectionItem* kvSections::exist(const kvString& name) const {
    for (iterator it = begin(); it != end(); ++it)
        if ((*it)->name == name) return *it;
    return 0;
}

// ---------------------------------------------------------------- kvIniFile

kvIniFile::kvIniFile() : m_update(false) {}

kvIniFile::~kvIniFile() { close(); }

// Index keys: a section by its name, an item by its section and its name.
// Names are compared as zero-terminated texts, as kvString's == does.
static std::string sectionKey(const kvString& name) {
    return std::string(name.c_str());
}

static std::string itemKey(const kvSectionItem* section, const kvString& name) {
    std::string key(reinterpret_cast<const char*>(&section), sizeof section);
    key += name.c_str();
    return key;
}

bool kvIniFile::open(kvString name, bool update) {
    m_update = update;
    m_fileName = name;
    {
        // A file that is to be made need not exist yet: no complaint then.
        i_stream in(name, IO_ASIS | IO_READ, !update);
        if (in.isOpen()) {
            kvSectionItem* current = 0;
            kvString line;
            while (in.getline(line)) parseLine(line, current);
            return true;
        }
    }
    if (!update) return false;
    o_stream out(name, IO_ASIS | IO_WRITE, true);
    if (out.isOpen()) return true;
    m_update = false;
    return false;
}

void kvIniFile::close() {
    updateFile();
    // Written once: a second close must not replace the file with nothing.
    m_update = false;
    for (kvSections::iterator s = m_sections.begin(); s != m_sections.end(); ++s) {
        kvValues* values = (*s)->values;
        for (kvValues::iterator v = values->begin(); v != values->end(); ++v) delete *v;
        values->clear();
        delete values;
        delete *s;
    }
    m_sections.clear();
    clearIndex();
}

void kvIniFile::clearIndex() {
    m_sectionIndex.clear();
    m_itemIndex.clear();
}

void kvIniFile::updateFile() {
    if (!m_update) return;
    o_stream out(m_fileName, IO_ASIS | IO_WRITE, true);
    if (!out.isOpen()) return;
    for (kvSections::iterator s = m_sections.begin(); s != m_sections.end(); ++s) {
        kvString text;
        text << "\n[" << (*s)->name << "]\n";
        kvValues* values = (*s)->values;
        for (kvValues::iterator v = values->begin(); v != values->end(); ++v) {
            kvValueItem* item = *v;
            if (item->value == KV_BARE_KEY) {
                text << item->name << "\n";
                continue;
            }
            text << item->name << "=" << item->value;
            if (!item->comment.empty()) text << "\t// " << item->comment;
            text << "\n";
        }
        out << text;
    }
}

// A line with "[" and a "]" behind it names a section, whatever stands around
// the brackets; so this test comes before the one for a value.
bool kvIniFile::getSection(kvString line, kvString& name) {
    int open = line.find("[");
    if (open < 0) return false;
    int close = line.find("]", open);
    if (close < 0) return false;
    name = line.substr(open + 1, close - open - 1);
    name.trim();
    return true;
}

bool kvIniFile::getValue(kvString line, kvString& name, kvString& value) {
    int eq = line.find("=");
    if (eq < 0) {
        name = line;
        value = KV_BARE_KEY;
    } else {
        name = line.substr(0, eq);
        value = line.substr(eq + 1);
    }
    return true;
}

// Nothing is rejected: a line without "=" is a bare key, and a value line
// before the first section is ignored. The line is cut in place: it may be
// megabytes long, and each copy of it would cost its length once more.
void kvIniFile::parseLine(kvString& line, kvSectionItem*& current) {
    int comment = line.find("//");
    if (comment >= 0) line.resize(comment, 0);
    line.trim();
    if (line.empty()) return;

    kvString name, value;
    if (line.find("[") >= 0 && getSection(line, name)) {
        current = findSection(name);
        if (!current) current = addSection(name);
        return;
    }
    if (!current) return;
    getValue(line, name, value);
    name.trim();
    value.trim();
    kvValueItem* item = findItem(current, name);
    if (item) {
        item->value = value;
        return;
    }
    setItem(current, name, value, "");
}

kvSectionItem* kvIniFile::addSection(const kvString& name) {
    kvSectionItem* section = new kvSectionItem;
    section->name = name;
    section->values = new kvValues;
    m_sectionIndex[sectionKey(name)] = m_sections.insert(m_sections.end(), section);
    return section;
}

kvSectionItem* kvIniFile::findSection(const kvString& name) const {
    auto it = m_sectionIndex.find(sectionKey(name));
    return it == m_sectionIndex.end() ? 0 : *it->second;
}

kvValueItem* kvIniFile::findItem(const kvSectionItem* section, const kvString& name) const {
    auto it = m_itemIndex.find(itemKey(section, name));
    return it == m_itemIndex.end() ? 0 : *it->second;
}

// Appends a new item to the section.
void kvIniFile::setItem(kvSectionItem* section, const kvString& name, const kvString& value,
                        const kvString& comment) {
    kvValueItem* item = new kvValueItem;
    item->name = name;
    item->value = value;
    item->comment = comment;
    m_itemIndex[itemKey(section, name)] = section->values->insert(section->values->end(), item);
}

bool kvIniFile::sectionExist(kvString section) const { return findSection(section) != 0; }

bool kvIniFile::valueExist(kvString section, kvString name) const {
    kvSectionItem* s = findSection(section);
    return s && findItem(s, name);
}

kvString kvIniFile::read(kvString section, kvString name, kvString def) const {
    name.trim();
    kvSectionItem* s = findSection(section);
    if (!s) return def;
    kvValueItem* item = findItem(s, name);
    return item ? item->value : def;
}

void kvIniFile::write(kvString section, kvString name, kvString value, kvString comment) {
    kvSectionItem* s = findSection(section);
    if (!s) s = addSection(section);
    name.trim();
    if (name.empty()) return;
    kvValueItem* item = findItem(s, name);
    if (item) {
        item->value = value;
        return;
    }
    setItem(s, name, value, comment);
}

void kvIniFile::write(kvString section, kvString name) { write(section, name, KV_BARE_KEY, ""); }

void kvIniFile::write(kvString section) { write(section, "", "", ""); }

kvValues* kvIniFile::getSectionValues(kvString section) const {
    kvSectionItem* s = findSection(section);
    return s ? s->values : 0;
}

void kvIniFile::eraseSection(kvString section) {
    auto found = m_sectionIndex.find(sectionKey(section));
    if (found == m_sectionIndex.end()) return;
    kvSections::iterator s = found->second;
    kvValues* values = (*s)->values;
    for (kvValues::iterator v = values->begin(); v != values->end(); ++v) {
        m_itemIndex.erase(itemKey(*s, (*v)->name));
        delete *v;
    }
    values->clear();
    delete values;
    delete *s;
    m_sections.erase(s);
    m_sectionIndex.erase(found);
}

void kvIniFile::deleteKey(kvString section, kvString name) {
    kvSectionItem* s = findSection(section);
    if (!s) return;
    auto found = m_itemIndex.find(itemKey(s, name));
    if (found == m_itemIndex.end()) return;
    delete *found->second;
    s->values->erase(found->second);
    m_itemIndex.erase(found);
}

// ---------------------------------------------------------------- kvDataList

// Only the first two words count, so a value cannot itself hold "=".
void kvDataList::set(kvString text) {
    kvString name, value;
    text.parse(name, value, "=");
    set(name, value);
}

void kvDataList::set(kvString name, kvString value) {
    name.trim();
    value.trim();
    if (name.empty()) return;
    iterator it = find(name);
    if (it != end()) erase(it);
    kvData data;
    data.name = name;
    data.value = value;
    insert(end(), data);
}

bool kvDataList::get(kvString name, kvString& value) const {
    iterator it = find(name);
    if (it == end()) return false;
    value = it->value;
    return true;
}

kvList<kvData>::iterator kvDataList::find(kvString name) const {
    iterator it = begin();
    while (it != end() && !(it->name == name)) ++it;
    return it;
}

// ---------------------------------------------------------------- kvIStream

kvIStream::kvIStream()
    : m_in(0), m_ini(0), m_section("Kelvar System"), m_update(false), m_lastSource(KV_SOURCE_NONE) {}

kvIStream::~kvIStream() {
    deleteIniFile();
    deleteIStream();
}

void kvIStream::setIStream(i_stream* in) {
    if (in == m_in) return;
    deleteIStream();
    m_in = in;
}

void kvIStream::deleteIStream() {
    if (m_in != &c_in) delete m_in;
    m_in = 0;
}

bool kvIStream::setIniFile(kvString name, bool update) {
    deleteIniFile();
    m_ini = new kvIniFile;
    m_update = update;
    return m_ini->open(kvSession::getInPath(name), update);
}

// The ini file rewrites itself here when it is marked for update.
void kvIStream::deleteIniFile() {
    delete m_ini;
    m_ini = 0;
    m_update = false;
}

kvString kvIStream::setIniSection(kvString section) {
    kvString old = m_section;
    m_section = section;
    return old;
}

// -d first, then the ini file, then the console, then the default. Whatever
// the source, in update mode the value goes into the ini file.
kvString kvIStream::getItemValue(kvString name, kvString def, kvString prompt, kvString comment) {
    if (prompt.empty()) prompt = name;
    m_lastSource = m_in ? KV_SOURCE_CONSOLE : KV_SOURCE_DEFAULT;
    kvString value;
    if (m_data.get(name, value)) {
        m_lastSource = KV_SOURCE_DATA;
    } else if (m_ini) {
        kvString fromIni = m_ini->read(m_section, name, "");
        if (!fromIni.empty()) {
            value = fromIni;
            m_lastSource = KV_SOURCE_INI;
        }
    }
    if (m_lastSource == KV_SOURCE_CONSOLE) value = getItemValue(*m_in, prompt, def);
    if (m_lastSource == KV_SOURCE_DEFAULT) value = def;
    if (m_update && m_ini) m_ini->write(m_section, name, value, comment);
    return value;
}

// The question goes straight to the console, past the level filter.
kvString kvIStream::getItemValue(i_stream& in, kvString prompt, kvString def) {
    kvString question;
    question << "\n " << prompt << " [" << def << "] = ";
    c_out << question;
    fflush(c_out.file() ? c_out.file() : stdout);
    kvString answer;
    in.getline(answer);
    if (answer.empty()) {
        m_lastSource = KV_SOURCE_DEFAULT;
        return def;
    }
    m_lastSource = KV_SOURCE_CONSOLE;
    return answer;
}
