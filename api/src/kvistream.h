// Parameter input: the ini file model, the -d data list and kvIStream, which
// settles a value from -d, the ini file, the console or the default.
#ifndef KV_ISTREAM_H
#define KV_ISTREAM_H

#include <string>
#include <unordered_map>

#include "kvstream.h"

// Value of a bare key (a line without "=").
extern const char* const KV_BARE_KEY;

struct kvValueItem {
    kvString name;
    kvString value;
    kvString comment;
};

class kvValues : public kvList<kvValueItem*> {
public:
    virtual ~kvValues() {}
    kvValueItem* exist(const kvString& name) const;
};

struct kvSectionItem {
    kvString name;
    kvValues* values;
};

class kvSections : public kvList<kvSectionItem*> {
public:
    virtual ~kvSections() {}
    kvSectionItem* exist(const kvString& name) const;
};

class kvIniFile {
public:
    kvIniFile();
    ~kvIniFile();

    bool open(kvString name, bool update);
    void close();
    void updateFile();
    static bool getSection(kvString line, kvString& name);
    static bool getValue(kvString line, kvString& name, kvString& value);
    bool sectionExist(kvString section) const;
    bool valueExist(kvString section, kvString name) const;
    kvString read(kvString section, kvString name, kvString def) const;
    void write(kvString section, kvString name, kvString value, kvString comment);
    void write(kvString section, kvString name);
    void write(kvString section);
    kvValues* getSectionValues(kvString section) const;
    void eraseSection(kvString section);
    void deleteKey(kvString section, kvString name);

    bool getUpdate() const { return m_update; }
    void setUpdate(bool update) { m_update = update; }
    const kvString& getFileName() const { return m_fileName; }

private:
    void parseLine(kvString& line, kvSectionItem*& current);
    kvSectionItem* addSection(const kvString& name);
    kvSectionItem* findSection(const kvString& name) const;
    kvValueItem* findItem(const kvSectionItem* section, const kvString& name) const;
    void setItem(kvSectionItem* section, const kvString& name, const kvString& value,
                 const kvString& comment);
    void clearIndex();

    kvString m_fileName;
    kvSections m_sections;
    bool m_update;
    // Indexes of the two lists, so that reading a file costs time linear in
    // its size however many sections and items it holds. Items are keyed by
    // their section's address and their name.
    std::unordered_map<std::string, kvSections::iterator> m_sectionIndex;
    std::unordered_map<std::string, kvValues::iterator> m_itemIndex;
};

struct kvData {
    kvString name;
    kvString value;
};

class kvDataList : protected kvList<kvData> {
public:
    virtual ~kvDataList() {}
    void set(kvString text);
    void set(kvString name, kvString value);
    bool get(kvString name, kvString& value) const;
    kvList<kvData>::iterator find(kvString name) const;
    using kvList<kvData>::begin;
    using kvList<kvData>::end;
    using kvList<kvData>::clear;
    using kvList<kvData>::size;
};

// Where the latest value came from.
enum {
    KV_SOURCE_DEFAULT = 0,
    KV_SOURCE_CONSOLE = 1,
    KV_SOURCE_INI = 2,
    KV_SOURCE_DATA = 3,
    KV_SOURCE_NONE = 4
};

class kvIStream {
public:
    kvIStream();
    virtual ~kvIStream();

    void setIStream(i_stream* in);
    i_stream* getIStream() const { return m_in; }
    void deleteIStream();
    bool setIniFile(kvString name, bool update);
    void deleteIniFile();
    kvIniFile* getIniFile() const { return m_ini; }
    // True when an ini file is open and marked to be rewritten (-I).
    bool isIniUpdate() const { return m_ini != 0 && m_update; }
    kvString setIniSection(kvString section);
    const kvString& getIniSection() const { return m_section; }
    kvDataList& dataList() { return m_data; }
    int lastSource() const { return m_lastSource; }
    void close() {}

    kvString getItemValue(kvString name, kvString def, kvString prompt, kvString comment);
    kvString getItemValue(i_stream& in, kvString prompt, kvString def);

private:
    i_stream* m_in;
    kvIniFile* m_ini;
    kvDataList m_data;
    kvString m_section;
    bool m_update;
    int m_lastSource;
};

#endif
