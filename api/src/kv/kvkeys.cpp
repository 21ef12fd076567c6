#include "kvkeys.h"

bool isKeyString(const kvString& word) {
    return word.length() >= 2 && (word[0] == '/' || word[0] == '-');
}

// ---------------------------------------------------------------- kvCommandKey

bool kvCommandKey::getArg(char key, kvString& arg) const {
    if (key != m_key) return false;
    arg = m_arg;
    return true;
}

// A prefix "-", "+" or "=" glued to the letter also leads an argument that
// stands in the next word, so "-f- abc" reads as "-f-abc".
bool kvCommandKey::setArg(kvString word, kvString next) {
    if (!isKeyString(word)) return false;
    m_key = word[1];
    kvString rest = word.substr(2);
    kvString prefix;
    if (!rest.empty() && (rest[0] == '-' || rest[0] == '+' || rest[0] == '=')) {
        prefix.assign(rest[0]);
        rest = rest.substr(1);
    }
    m_arg = prefix + (rest.empty() ? next : rest);
    return true;
}

// ---------------------------------------------------------------- kvCommandList

void kvCommandList::setArgs(int count, char** words) {
    kvStringList list;
    for (int i = 0; i < count; ++i) list.insert(list.end(), kvString(words[i]));
    setArgs(list);
}

void kvCommandList::setArgs(const char* line) {
    kvStringList list;
    kvString(line).parse(list, " ;\t\r\n");
    setArgs(list);
}

// A word behind a key is its argument unless it is a key itself; a word in
// key position that is no key is dropped together with such an argument.
void kvCommandList::setArgs(const kvStringList& words) {
    kvStringList::iterator it = words.begin();
    while (it != words.end()) {
        kvString word = *it;
        ++it;
        kvString next;
        if (it != words.end() && !isKeyString(*it)) {
            next = *it;
            ++it;
        }
        setArg(word, next);
    }
}

bool kvCommandList::setArg(kvString word, kvString next) {
    kvCommandKey key;
    if (!key.setArg(word, next)) return false;
    insert(end(), key);
    return true;
}

void kvCommandList::setArg(char key, kvString arg) { insert(end(), kvCommandKey(key, arg)); }

bool kvCommandList::isKey(char key) const {
    for (iterator it = begin(); it != end(); ++it)
        if (it->m_key == key) return true;
    return false;
}

bool kvCommandList::getArg(char key, kvString& arg) const {
    if (empty()) return false;
    iterator it = end();
    do {
        --it;
        if (it->getArg(key, arg)) return true;
    } while (it != begin());
    return false;
}

// ---------------------------------------------------------------- translations

int getAskLevel(kvString arg) {
    int level = 0;
    for (int i = 0; i < arg.length(); ++i) {
        switch (arg[i]) {
        case 'T': level |= 1; break;
        case 'P': level |= 2; break;
        case 'M': level |= 4; break;
        default: break;
        }
    }
    return level ? level : 15;
}

OutputLevel getLevel(kvString arg) {
    OutputLevel level = 0;
    for (int i = 0; i < arg.length(); ++i) {
        switch (arg[i]) {
        case 'E': level |= 1; break;
        case 'W': level |= 3; break;
        case 'P': level |= 7; break;
        case 'I': level |= 15; break;
        case 'T': level |= 23; break;
        case 'M': level |= 39; break;
        case 'D': level |= 71; break;
        default: break;
        }
    }
    return level;
}

int getPriority(kvString arg) {
    if (arg.empty()) return 0;
    switch (arg[0]) {
    case 'H': return 1;
    case 'N': return 2;
    case 'L': return 3;
    default: return 0;
    }
}

int getCondition(kvString& arg) {
    if (arg.empty()) return 4;
    int kind;
    switch (arg[0]) {
    case '=': kind = 3; break;
    case '+': kind = 1; break;
    case '-': kind = 2; break;
    default: return 0;
    }
    arg = arg.substr(1);
    return arg.empty() ? 4 : kind;
}
