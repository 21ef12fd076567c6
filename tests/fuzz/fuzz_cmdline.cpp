// Fuzz target: the command-line tokenizer.
//
// The input is read twice: as a .cfg line (the text up to its first NUL,
// split by kvString::parse on " ;\t\r\n") and as an argv (the input split at
// its NUL bytes). Both lists of keys are compared with a plain model of the
// key rules, and the words of the parse with the text they came from.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "kv/kvkeys.h"

namespace {

const char* const kLineSeparators = " ;\t\r\n";

[[noreturn]] void fail(const char* what) {
    fprintf(stderr, "FINDING: %s\n", what);
    abort();
}

struct Key {
    char letter;
    std::string arg;
};

bool isKeyWord(const std::string& w) { return w.size() >= 2 && (w[0] == '-' || w[0] == '/'); }

// The rules of a command line, written out once more: a key word takes the
// next word unless that is a key; a prefix -, + or = stays in front of the
// argument, wherever the argument stands.
std::vector<Key> modelKeys(const std::vector<std::string>& words) {
    std::vector<Key> keys;
    for (size_t i = 0; i < words.size();) {
        const std::string& word = words[i++];
        std::string next;
        if (i < words.size() && !isKeyWord(words[i])) next = words[i++];
        if (!isKeyWord(word)) continue;
        std::string rest = word.substr(2), prefix;
        if (!rest.empty() && strchr("-+=", rest[0])) {
            prefix = rest.substr(0, 1);
            rest = rest.substr(1);
        }
        keys.push_back({word[1], prefix + (rest.empty() ? next : rest)});
    }
    return keys;
}

void compareKeys(const kvCommandList& list, const std::vector<Key>& model) {
    size_t n = 0;
    for (kvCommandList::iterator it = list.begin(); it != list.end(); ++it, ++n) {
        if (n >= model.size()) fail("more keys than words allow");
        if (it->m_key != model[n].letter) fail("key letter");
        if (model[n].arg != it->m_arg.c_str()) fail("key argument");
    }
    if (n != model.size()) fail("keys lost");
    // Every letter on the line, and a few that are not.
    std::string letters = "\x01 ?z";
    for (const Key& k : model)
        if (letters.find(k.letter) == std::string::npos) letters += k.letter;
    kvString arg;
    for (char c : letters) {
        const Key* last = 0;
        for (const Key& k : model)
            if (k.letter == c) last = &k;
        if (list.isKey(c) != (last != 0)) fail("isKey");
        arg = "untouched";
        bool found = list.getArg(c, arg);
        if (found != (last != 0)) fail("getArg finds a key isKey does not");
        if (found && last->arg != arg.c_str()) fail("getArg is not the last occurrence");
        if (!found && !(arg == "untouched")) fail("getArg changed the argument of a missing key");
    }
}

// The translations of a key argument stay within their ranges.
void translateArgs(const kvCommandList& list) {
    for (kvCommandList::iterator it = list.begin(); it != list.end(); ++it) {
        int ask = getAskLevel(it->m_arg);
        if (ask < 1 || ask > 15) fail("ask level");
        OutputLevel level = getLevel(it->m_arg);
        if (level > 127) fail("output level");
        int priority = getPriority(it->m_arg);
        if (priority < 0 || priority > 3) fail("priority");
        kvString pattern = it->m_arg;
        int condition = getCondition(pattern);
        if (condition < 0 || condition > 4) fail("condition");
        if (pattern.length() < it->m_arg.length() - 1) fail("condition cut more than its prefix");
    }
}

// Words of the .cfg line: never empty, and without quotes they are exactly
// the runs of non-separators.
std::vector<std::string> checkedWords(const std::string& line) {
    kvStringList list;
    int count = kvString(line.c_str()).parse(list, kLineSeparators);
    if (count != list.size()) fail("parse count differs from the list");
    std::vector<std::string> words;
    size_t total = 0;
    for (kvStringList::iterator w = list.begin(); w != list.end(); ++w) {
        if (w->empty()) fail("empty word");
        if ((int)strlen(w->c_str()) != w->length()) fail("word length");
        words.push_back(w->c_str());
        total += w->length();
    }
    if (total > line.size()) fail("words longer than the line");

    if (line.find('"') == std::string::npos) {
        std::vector<std::string> plain;
        std::string cur;
        for (char c : line) {
            if (strchr(kLineSeparators, c)) {
                if (!cur.empty()) plain.push_back(cur);
                cur.clear();
            } else {
                cur += c;
            }
        }
        if (!cur.empty()) plain.push_back(cur);
        if (plain != words) fail("words differ from a plain split");
    }

    kvString a("x"), b("x"), c("x");
    int n3 = kvString(line.c_str()).parse(a, b, c, kLineSeparators);
    if (n3 != count) fail("three-word parse count");
    const kvString* abc[3] = {&a, &b, &c};
    for (int i = 0; i < 3; ++i) {
        const char* want = i < count ? words[i].c_str() : "";
        if (strcmp(abc[i]->c_str(), want) != 0) fail("three-word parse word");
    }
    return words;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string input(reinterpret_cast<const char*>(data), size);

    std::string line = input.c_str();
    std::vector<std::string> words = checkedWords(line);
    kvCommandList fromLine;
    fromLine.setArgs(line.c_str());
    compareKeys(fromLine, modelKeys(words));
    translateArgs(fromLine);

    std::vector<std::string> argvWords;
    size_t start = 0;
    for (size_t i = 0; i <= size; ++i) {
        if (i == size || input[i] == 0) {
            argvWords.push_back(input.substr(start, i - start));
            start = i + 1;
        }
    }
    std::vector<char*> argv;
    for (std::string& w : argvWords) argv.push_back(&w[0]);
    kvCommandList fromArgv;
    fromArgv.setArgs((int)argv.size(), argv.data());
    compareKeys(fromArgv, modelKeys(argvWords));
    translateArgs(fromArgv);

    // Keys added by letter go behind and win.
    fromArgv.setArg('z', kvString("last"));
    kvString arg;
    if (!fromArgv.getArg('z', arg) || !(arg == "last")) fail("a later key does not win");
    return 0;
}
