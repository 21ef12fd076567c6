// The framework's string, its number texts and parsing, the word splitter
// and the linked list.
#include <gtest/gtest.h>

#include "kvstring.h"

namespace {

kvString tokens(const char* text, const char* separators) {
    kvStringList list;
    kvString(text).parse(list, separators);
    kvString all;
    for (kvStringList::iterator it = list.begin(); it != list.end(); ++it) all << "<" << *it << ">";
    return all;
}

TEST(KvString, CapacityIsNextMultipleOf16AboveLength) {
    EXPECT_EQ(16, kvString::getBufSize(15));
    EXPECT_EQ(32, kvString::getBufSize(16));
    kvString s("123456789012345");
    EXPECT_EQ(16, s.capacity());
    s += 'x';
    EXPECT_EQ(32, s.capacity());
    EXPECT_STREQ("123456789012345x", s.c_str());
    s = "ab";  // assignment shrinks as well as grows
    EXPECT_EQ(16, s.capacity());
    s.resize(5, '.');
    EXPECT_STREQ("ab...", s.c_str());
    s.resize(1, '.');
    EXPECT_EQ(1, s.length());
}

// Growth by doubling keeps appending linear in the total length.
TEST(KvString, GrowingTextIsAmortised) {
    kvString s;
    int grown = 0, lastCap = s.capacity();
    for (int i = 0; i < 100000; ++i) {
        s += "abcdefg";
        if (s.capacity() == lastCap) continue;
        ++grown;
        lastCap = s.capacity();
        ASSERT_EQ(lastCap % 16, 0);
        ASSERT_GT(lastCap, s.length());
    }
    EXPECT_EQ(s.length(), 700000);
    EXPECT_LT(grown, 40);
    EXPECT_EQ(s[s.length()], '\0');
}

TEST(KvString, CompareUsesSignedCharsAndLengths) {
    EXPECT_EQ(3, kvString("abc").compare(""));
    EXPECT_EQ(-1, kvString("abc").compare("abd"));
    EXPECT_EQ(-1, kvString("abc").compare("abcd"));
    EXPECT_EQ(-1, kvString("\x80").compare("a"));  // signed: -128 sorts first
}

TEST(KvString, SearchSubstringsAndTrim) {
    kvString s("abcabc");
    EXPECT_EQ(3, s.find("abc", 1));
    EXPECT_EQ(6, s.rfind(""));
    EXPECT_EQ(-1, kvString("ab").rfind("abc"));
    EXPECT_TRUE(kvString("hello").substr(10).empty());
    EXPECT_STREQ("llo", kvString("hello").substr(2, 100).c_str());
    kvString t(" \t a b\n\r ");
    EXPECT_STREQ("a b\n", t.trim().c_str());  // line feeds stay
    EXPECT_TRUE(kvString(" \t\r").trim().empty());
}

TEST(KvString, NumberFormats) {
    kvString s;
    s << 0.0 << " " << 1000000.0 << " " << 1234.5 << " " << 2.5f << " " << -7 << " " << 12345678901LL
      << " " << true << " " << false << " " << (const void*)0 << " " << (const void*)0x1f;
    EXPECT_STREQ("0 1e+06 1.23e+03 2.5 -7 12345678901 yes no NULL 1F", s.c_str());
}

TEST(KvString, ParsingNumbersSetsMarkOnlyWhenNothingConverts) {
    struct Case { const char* text; int value; bool mark; };
    const Case cases[] = {{"0x1F", 31, false},
                          {" 0x1F", 0, false},  // only the first two characters decide on hex
                          {"12abc", 12, false}, {"abc", 5, true},
                          {"", 5, false}};      // empty text: end of input, value kept
    for (const Case& c : cases) {
        kvString text(c.text);
        int v = 5;
        v << text;
        EXPECT_EQ(c.value, v) << c.text;
        EXPECT_EQ(c.mark, text.errorConvertion()) << c.text;
        EXPECT_FALSE(kvString(text).errorConvertion());  // the mark is not copied
    }

    kvString big("0x100000000");
    long long ll = 0;
    ll << big;
    EXPECT_EQ(0x100000000LL, ll);
}

TEST(KvString, ParsingBoolWords) {
    struct Case { const char* text; bool value; bool mark; };
    const Case cases[] = {{" TRUE ", true, false}, {"Yellow", true, false}, {"1", true, false},
                          {"False", false, false}, {"0", false, false},     {"10", false, true},
                          {"", false, true},       {"maybe", false, true}};
    for (const Case& c : cases) {
        kvString text(c.text);
        bool b = !c.value;
        b << text;
        EXPECT_EQ(c.value, b) << c.text;
        EXPECT_EQ(c.mark, text.errorConvertion()) << c.text;
    }
}

TEST(KvString, NameTables) {
    const int values[] = {1, 2, 4};
    const kvString names[] = {"kvNone", "kvFast", "kvAccurate"};
    EXPECT_STREQ("9", kvString::enumString(9, values, names, 3).c_str());
    EXPECT_EQ(4, kvString::enumValue("ACC", values, names, 3, 2));  // prefix passed over
    EXPECT_EQ(2, kvString::enumValue("kvf", values, names, 3, 2));  // whole name
    EXPECT_EQ(1, kvString::enumValue("", values, names, 3, 2));     // empty fits the first
    EXPECT_EQ(0, kvString::enumValue("slow", values, names, 3, 2));
    EXPECT_STREQ("kvNone|kvAccurate", kvString::flagString(5, values, names, 3).c_str());
    EXPECT_EQ(7, kvString::flagValue("none|fast, acc", values, names, 3, 2));
    EXPECT_EQ(4, kvString::flagValue("slow;accurate", values, names, 3, 2));
}

TEST(KvParse, SeparatorsAndQuotes) {
    EXPECT_STREQ("<a><b><c>", tokens("a;;b c", " ;\t\r\n").c_str());  // no empty words
    EXPECT_STREQ("", tokens(" ;; \t", " ;\t\r\n").c_str());
    // Quotes protect separators but stay; the doubled quote collapses to one.
    EXPECT_STREQ("<say><x\"a b\"><c>", tokens("say x\"a b\" c", " ").c_str());
    EXPECT_STREQ("<x\"y z>", tokens("x\"\"y z", " ").c_str());
    EXPECT_STREQ("<a><\"b c>", tokens("a \"b c", " ").c_str());  // unclosed: runs to the end
    EXPECT_STREQ("<a><b c>", tokens("a\"b c", "\"").c_str());    // a quote as separator
    kvString a, b, c;
    EXPECT_EQ(1, kvString("only").parse(a, b, c, " "));
    EXPECT_STREQ("only", a.c_str());
    EXPECT_TRUE(b.empty() && c.empty());
}

bool lessKey(int& a, int& b) { return a / 10 < b / 10; }

kvString listText(kvList<int>& l) {
    kvString s;
    for (kvList<int>::iterator it = l.begin(); it != l.end(); ++it) s << *it << " ";
    return s;
}

TEST(KvList, InsertEraseSwap) {
    kvList<int> l;
    for (int v : {2, 3, 4}) l.insert(l.end(), v);
    l.insert(l.begin(), 1);  // before the head moves the head
    kvList<int>::iterator fourth = l.erase(++l.begin(), ++(++l.begin()));
    EXPECT_EQ(3, *fourth);
    EXPECT_EQ(4, *l.erase(fourth));
    kvList<int> other;
    other.insert(other.end(), 9);
    l.swap(other);
    EXPECT_STREQ("9 ", listText(l).c_str());
    EXPECT_STREQ("1 4 ", listText(other).c_str());
}

TEST(KvList, MergeIsStableAndEmptiesOther) {
    kvList<int> a, b;
    for (int v : {11, 31, 51}) a.insert(a.end(), v);
    for (int v : {12, 22, 32, 62, 72}) b.insert(b.end(), v);
    a.merge(b, lessKey);
    EXPECT_STREQ("11 12 22 31 32 51 62 72 ", listText(a).c_str());
    EXPECT_TRUE(b.empty());
    a.merge(a, lessKey);  // with itself: nothing
    EXPECT_EQ(8, a.size());
}

}  // namespace
