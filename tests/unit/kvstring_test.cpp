#include <gtest/gtest.h>

#include "kvstring.h"

namespace {

kvString words(const kvStringList& list) {
    kvString all;
    for (kvStringList::iterator it = list.begin(); it != list.end(); ++it) all << "<" << *it << ">";
    return all;
}

kvString tokens(const char* text, const char* separators) {
    kvStringList list;
    kvString(text).parse(list, separators);
    return words(list);
}

TEST(KvString, CapacityIsNextMultipleOf16AboveLength) {
    EXPECT_EQ(16, kvString::getBufSize(0));
    EXPECT_EQ(16, kvString::getBufSize(15));
    EXPECT_EQ(32, kvString::getBufSize(16));

    kvString empty;
    EXPECT_TRUE(empty.empty());
    EXPECT_EQ(16, empty.capacity());
    EXPECT_EQ('\0', empty[0]);
    EXPECT_TRUE(empty == kvString(""));

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
    EXPECT_STREQ("a", s.c_str());
    EXPECT_EQ(1, s.length());
}

TEST(KvString, CompareUsesSignedCharsAndLengths) {
    EXPECT_EQ(3, kvString("abc").compare(""));
    EXPECT_EQ(-2, kvString("").compare("ab"));
    EXPECT_EQ(-1, kvString("abc").compare("abd"));
    EXPECT_EQ(1, kvString("abd").compare("abc"));
    EXPECT_EQ(-1, kvString("abc").compare("abcd"));
    EXPECT_EQ(0, kvString("abc").compare("abc"));
    EXPECT_EQ(-1, kvString("\x80").compare("a"));  // signed: -128 sorts first
}

TEST(KvString, SearchAndSubstrings) {
    kvString s("abcabc");
    EXPECT_EQ(3, s.find("abc", 1));
    EXPECT_EQ(-1, s.find("x"));
    EXPECT_EQ(3, s.rfind("abc"));
    EXPECT_EQ(6, s.rfind(""));
    EXPECT_EQ(-1, kvString("ab").rfind("abc"));
    EXPECT_TRUE(kvString("hello").substr(10).empty());
    EXPECT_STREQ("llo", kvString("hello").substr(2, 100).c_str());
    EXPECT_TRUE(kvString("hello").substr(1, 0).empty());

    kvString t(" \t a b\n\r ");
    t.trim();
    EXPECT_STREQ("a b\n", t.c_str());  // line feeds stay
    kvString blanks(" \t\r");
    EXPECT_TRUE(blanks.trim().empty());
    EXPECT_STREQ("mixed", kvString("MiXeD").toLower().c_str());
}

TEST(KvString, FileNameParts) {
    kvString p("dir/name.tar.gz");
    EXPECT_STREQ("name.tar.gz", p.getFileName().c_str());
    EXPECT_STREQ("dir/", p.getFileDir().c_str());
    EXPECT_STREQ("name.tar", p.getFileTitle().c_str());
    EXPECT_STREQ("c", kvString("a/b\\c").getFileName().c_str());
    EXPECT_STREQ("a\\b/", kvString("a\\b/c").getFileDir().c_str());
    EXPECT_TRUE(kvString("bare").getFileDir().empty());
    EXPECT_STREQ("bare", kvString("bare").getFileTitle().c_str());
}

TEST(KvString, NumberFormats) {
    kvString s;
    s << 0.0 << " " << 1000000.0 << " " << 1234.5 << " " << 0.5 << " " << 2.5f;
    EXPECT_STREQ("0 1e+06 1.23e+03 0.5 2.5", s.c_str());
    kvString t;
    t << -7 << " " << 12345678901LL << " " << true << " " << false;
    EXPECT_STREQ("-7 12345678901 yes no", t.c_str());
    kvString p;
    p << (const void*)0 << " " << (const void*)0x1f;
    EXPECT_STREQ("NULL 1F", p.c_str());
}

TEST(KvString, ParsingNumbersSetsMarkOnlyWhenNothingConverts) {
    kvString hex("0x1F"), upper("0X1f"), blankHex(" 0x1F"), partial("12abc"), bad("abc"), none("");
    int v = 5;
    v << hex;
    EXPECT_EQ(31, v);
    v << upper;
    EXPECT_EQ(31, v);
    v << blankHex;
    EXPECT_EQ(0, v);  // only the first two characters decide on hexadecimal
    v << partial;
    EXPECT_EQ(12, v);
    EXPECT_FALSE(partial.errorConvertion());
    v = 5;
    v << bad;
    EXPECT_EQ(5, v);
    EXPECT_TRUE(bad.errorConvertion());
    v << none;  // empty text: end of input, no mark, value kept
    EXPECT_EQ(5, v);
    EXPECT_FALSE(none.errorConvertion());

    kvString big("0x100000000"), d("2.5e3");
    long long ll = 0;
    ll << big;
    EXPECT_EQ(0x100000000LL, ll);
    double dv = 0;
    dv << d;
    EXPECT_DOUBLE_EQ(2500.0, dv);

    kvString copy(bad);  // the mark is not copied
    EXPECT_FALSE(copy.errorConvertion());
}

TEST(KvString, ParsingBoolWords) {
    struct Case { const char* text; bool value; bool mark; };
    const Case cases[] = {
        {"yes", true, false}, {" TRUE ", true, false}, {"Yellow", true, false}, {"1", true, false},
        {"no", false, false}, {"False", false, false}, {"0", false, false},
        {"10", false, true},  {"", false, true},      {"  ", false, true},    {"maybe", false, true},
    };
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
    EXPECT_STREQ("kvFast", kvString::enumString(2, values, names, 3).c_str());
    EXPECT_STREQ("9", kvString::enumString(9, values, names, 3).c_str());
    EXPECT_EQ(4, kvString::enumValue("ACC", values, names, 3, 2));      // prefix passed over
    EXPECT_EQ(2, kvString::enumValue("kvf", values, names, 3, 2));      // whole name
    EXPECT_EQ(1, kvString::enumValue("", values, names, 3, 2));         // empty fits the first
    EXPECT_EQ(0, kvString::enumValue("slow", values, names, 3, 2));
    EXPECT_STREQ("kvNone|kvAccurate", kvString::flagString(5, values, names, 3).c_str());
    EXPECT_STREQ("8", kvString::flagString(8, values, names, 3).c_str());
    EXPECT_EQ(7, kvString::flagValue("none|fast, acc", values, names, 3, 2));
    EXPECT_EQ(4, kvString::flagValue("slow;accurate", values, names, 3, 2));
    EXPECT_TRUE(kvString::fitString("NO", "abcnone", 3));
    EXPECT_TRUE(kvString::fitString("ab", "abcnone", 3));
    EXPECT_FALSE(kvString::fitString("none", "abcnone", 2));
}

TEST(KvParse, SeparatorsInARowMakeNoEmptyWords) {
    EXPECT_STREQ("<a><b><c>", tokens("a;;b c", " ;\t\r\n").c_str());
    EXPECT_STREQ("", tokens(" ;; \t", " ;\t\r\n").c_str());

    kvString a, b, c;
    EXPECT_EQ(3, kvString("x y z").parse(a, b, " "));
    EXPECT_STREQ("x", a.c_str());
    EXPECT_STREQ("y", b.c_str());
    EXPECT_EQ(1, kvString("only").parse(a, b, c, " "));
    EXPECT_STREQ("only", a.c_str());
    EXPECT_TRUE(b.empty() && c.empty());
}

TEST(KvParse, QuotesProtectSeparatorsButStay) {
    EXPECT_STREQ("<say><x\"a b\"><c>", tokens("say x\"a b\" c", " ").c_str());
    // A quote that opens a word protects what follows it too.
    EXPECT_STREQ("<\"a b\"><c>", tokens("\"a b\" c", " ").c_str());
    // A quote right behind the opening one keeps the scan inside quotes; the
    // doubled quote collapses to one.
    EXPECT_STREQ("<x\"y z>", tokens("x\"\"y z", " ").c_str());
    EXPECT_STREQ("<a><\"b c>", tokens("a \"b c", " ").c_str());  // unclosed: runs to the end
    // A quote among the separators switches quoting off.
    EXPECT_STREQ("<a><b c>", tokens("a\"b c", "\"").c_str());
}

bool lessKey(int& a, int& b) { return a / 10 < b / 10; }

kvString listText(kvList<int>& l) {
    kvString s;
    for (kvList<int>::iterator it = l.begin(); it != l.end(); ++it) s << *it << " ";
    return s;
}

TEST(KvList, InsertEraseSwap) {
    kvList<int> l;
    EXPECT_EQ(0, *l.end());  // the sentinel holds a default value
    l.insert(l.end(), 2);
    l.insert(l.begin(), 1);  // before the head moves the head
    l.insert(l.end(), 3);
    l.insert(l.end(), 4);
    EXPECT_STREQ("1 2 3 4 ", listText(l).c_str());
    kvList<int>::iterator second = ++l.begin();
    kvList<int>::iterator fourth = l.erase(second, ++(++l.begin()));
    EXPECT_EQ(3, *fourth);
    EXPECT_EQ(3, l.size());
    EXPECT_EQ(4, *l.erase(fourth));

    kvList<int> other;
    other.insert(other.end(), 9);
    l.swap(other);
    EXPECT_STREQ("9 ", listText(l).c_str());
    EXPECT_STREQ("1 4 ", listText(other).c_str());
    other.clear();
    EXPECT_TRUE(other.empty());
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

    kvList<int> empty;
    empty.merge(a, lessKey);
    EXPECT_EQ(8, empty.size());
    EXPECT_TRUE(a.empty());
}

}  // namespace
