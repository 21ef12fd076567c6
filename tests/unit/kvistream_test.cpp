#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "kvistream.h"

#include "testutil.h"

namespace {

// Console answers come from a file, one per line.
i_stream* answers(const TempDir& dir, const std::string& lines) {
    writeFile(dir.path("answers.txt"), lines);
    return new i_stream(dir.path("answers.txt"), IO_ASIS | IO_READ, true);
}

std::string names(kvValues* values) {
    std::string all;
    for (kvValues::iterator it = values->begin(); it != values->end(); ++it)
        all += std::string((*it)->name.c_str()) + "=" + (*it)->value.c_str() + ";";
    return all;
}

const char* const kSys = "Kelvar System";

const char* const kSample =
    "// a header comment\n"
    "orphan=1\n"
    "[ Kelvar System ]\n"
    "a=1 // note\n"
    "path=c://dir\n"
    "   bare   \n"
    "x = y = z\n"
    "\n"
    "a=2\n"
    "[s]\n"
    "k=v\r\n"
    "a=[b]\n"
    "[Kelvar System]\n"
    "c=3\n";

TEST(KvIniFile, FormatRules) {
    TempDir dir;
    writeFile(dir.path("k.ini"), kSample);
    kvIniFile ini;
    ASSERT_TRUE(ini.open(dir.path("k.ini"), false));
    EXPECT_STREQ("def", ini.read(kSys, "orphan", "def").c_str());  // before any section
    EXPECT_STREQ("2", ini.read(kSys, " a ", "").c_str());          // the last value wins
    EXPECT_STREQ("c:", ini.read(kSys, "path", "").c_str());        // "//" cuts even a value
    EXPECT_STREQ("~~~", ini.read(kSys, "bare", "").c_str());
    EXPECT_STREQ("y = z", ini.read(kSys, "x", "").c_str());
    EXPECT_STREQ("v", ini.read("s", "k", "").c_str());
    EXPECT_TRUE(ini.sectionExist("b"));  // a=[b] is a section line
    EXPECT_FALSE(ini.valueExist("s", "a"));
    EXPECT_FALSE(ini.valueExist("S", "k"));  // names are case sensitive
    // Repeated sections merge; a repeated name keeps its first place.
    EXPECT_EQ("a=2;path=c:;bare=~~~;x=y = z;c=3;", names(ini.getSectionValues(kSys)));
    EXPECT_EQ(nullptr, ini.getSectionValues("none"));
}

TEST(KvIniFile, FileWithoutSectionsHoldsNothing) {
    TempDir dir;
    writeFile(dir.path("k.ini"), "a=1\nb\n");
    kvIniFile ini;
    ASSERT_TRUE(ini.open(dir.path("k.ini"), false));
    EXPECT_FALSE(ini.sectionExist(""));
    EXPECT_STREQ("none", ini.read("", "a", "none").c_str());
}

TEST(KvIniFile, UpdateRewritesWholeFileWithoutOldComments) {
    TempDir dir;
    writeFile(dir.path("k.ini"), kSample);
    kvIniFile ini;
    ASSERT_TRUE(ini.open(dir.path("k.ini"), true));
    ini.write(kSys, "a", "5", "ignored comment");  // an old item keeps its (empty) comment
    ini.write(kSys, " n ", "7", "the n");
    ini.write("t", "flag");
    ini.write("u");
    ini.write("u", "  ", "x", "empty name: section only");
    ini.deleteKey("s", "k");
    ini.deleteKey("s", "missing");
    ini.eraseSection("b");
    ini.eraseSection("missing");
    EXPECT_EQ(kSample, readFile(dir.path("k.ini")));  // untouched until closing
    ini.close();
    EXPECT_EQ(
        "\n[Kelvar System]\na=5\npath=c:\nbare\nx=y = z\nc=3\nn=7\t// the n\n"
        "\n[s]\n"
        "\n[t]\nflag\n"
        "\n[u]\n",
        readFile(dir.path("k.ini")));
    ini.close();  // a second close must not empty the file
    EXPECT_NE("", readFile(dir.path("k.ini")));
}

TEST(KvIniFile, MissingOrUnusableFiles) {
    TempDir dir;
    kvString log = dir.path("log.txt");
    OutputLevel level = g_ostrm.getOutLevel();
    g_ostrm.addStream(log, false);
    g_ostrm.setOutLevel(ERR);
    {
        kvIniFile reading;
        EXPECT_FALSE(reading.open(dir.path("missing.ini"), false));
        kvIniFile making;  // with update a missing file is made, silently
        EXPECT_TRUE(making.open(dir.path("new.ini"), true));
        EXPECT_EQ("", readFile(dir.path("new.ini")));
        making.write(kSys, "a", "1", "");
        kvIniFile unwritable;
        EXPECT_FALSE(unwritable.open(dir.path("no/dir.ini"), true));
        EXPECT_FALSE(unwritable.getUpdate());
        kvIniFile directory;  // opens, but yields no line
        directory.open(dir.path(""), false);
        EXPECT_FALSE(directory.sectionExist(kSys));
    }
    g_ostrm.close();
    g_ostrm.setOutLevel(level);
    EXPECT_EQ("\n[Kelvar System]\na=1\n", readFile(dir.path("new.ini")));
    std::string expected = std::string("-- Can't open file ") + dir.path("missing.ini").c_str() +
                           " to read: \n-- Can't open file " + dir.path("no/dir.ini").c_str() +
                           " to write: \n";
    EXPECT_EQ(expected, readFile(log));
}

TEST(KvDataList, LastSetWinsAndOnlyTwoWordsCount) {
    kvDataList d;
    kvString v;
    d.set("a=b=c");
    ASSERT_TRUE(d.get("a", v));
    EXPECT_STREQ("b", v.c_str());
    d.set(" n = 1 ");
    d.set("m=2");
    d.set("n=3");
    ASSERT_TRUE(d.get("n", v));
    EXPECT_STREQ("3", v.c_str());
    EXPECT_STREQ("n", (--d.end())->name.c_str());  // moved to the end
    EXPECT_EQ(3, d.size());
    d.set("flag");  // no "=": stored with an empty value
    ASSERT_TRUE(d.get("flag", v));
    EXPECT_TRUE(v.empty());
    d.set(" ", "x");
    d.set("");
    EXPECT_EQ(4, d.size());
    EXPECT_FALSE(d.get("missing", v));
    EXPECT_TRUE(d.find("missing") == d.end());
}

TEST(KvIStream, SourcesInOrderDataIniConsoleDefault) {
    TempDir dir;
    writeFile(dir.path("k.ini"), "[Kelvar System]\na=5\nb=6\nbare\nempty=\n[T]\na=8\n");
    kvIStream in;
    EXPECT_EQ(KV_SOURCE_NONE, in.lastSource());
    ASSERT_TRUE(in.setIniFile(dir.path("k.ini"), false));
    in.dataList().set("a=7");
    in.setIStream(answers(dir, "42\n\n"));
    testing::internal::CaptureStdout();

    EXPECT_STREQ("7", in.getItemValue("a", "0", "", "").c_str());
    EXPECT_EQ(KV_SOURCE_DATA, in.lastSource());
    EXPECT_STREQ("6", in.getItemValue("b", "0", "", "").c_str());
    EXPECT_EQ(KV_SOURCE_INI, in.lastSource());
    EXPECT_STREQ("~~~", in.getItemValue("bare", "0", "", "").c_str());
    EXPECT_EQ(KV_SOURCE_INI, in.lastSource());
    // An empty ini value counts as absent; the first console answer is still unread.
    EXPECT_STREQ("42", in.getItemValue("empty", "0", "", "").c_str());
    EXPECT_EQ(KV_SOURCE_CONSOLE, in.lastSource());
    EXPECT_STREQ("d", in.getItemValue("c", "d", "", "").c_str());  // empty answer
    EXPECT_EQ(KV_SOURCE_DEFAULT, in.lastSource());
    EXPECT_STREQ("d", in.getItemValue("c", "d", "", "").c_str());  // end of input
    EXPECT_EQ(KV_SOURCE_DEFAULT, in.lastSource());
    // Only the console sources asked; an empty prompt shows the name.
    EXPECT_EQ("\n empty [0] = \n c [d] = \n c [d] = ", testing::internal::GetCapturedStdout());

    EXPECT_STREQ(kSys, in.setIniSection("T").c_str());
    EXPECT_STREQ("7", in.getItemValue("a", "0", "", "").c_str());  // -d is not per section
    in.dataList().clear();
    EXPECT_STREQ("8", in.getItemValue("a", "0", "", "").c_str());

    in.setIStream(0);
    EXPECT_STREQ("dflt", in.getItemValue("zz", "dflt", "", "").c_str());
    EXPECT_EQ(KV_SOURCE_DEFAULT, in.lastSource());
}

TEST(KvIStream, ConsoleQuestionGoesStraightToStdout) {
    TempDir dir;
    kvIStream in;
    in.setIStream(answers(dir, "yes\n"));
    OutputLevel level = g_ostrm.getOutLevel();
    g_ostrm.setOutLevel(0);  // the level filter does not apply
    testing::internal::CaptureStdout();
    kvString v = in.getItemValue("name", "no", "Really", "");
    std::string shown = testing::internal::GetCapturedStdout();
    g_ostrm.setOutLevel(level);
    EXPECT_STREQ("yes", v.c_str());
    EXPECT_EQ("\n Really [no] = ", shown);
}

TEST(KvIStream, UpdateModeWritesEverySettledValue) {
    TempDir dir;
    writeFile(dir.path("k.ini"), "[Kelvar System]\nold=1 // dropped comment\n");
    {
        kvIStream in;
        ASSERT_TRUE(in.setIniFile(dir.path("k.ini"), true));
        EXPECT_TRUE(in.isIniUpdate());
        in.dataList().set("fromd=9");
        in.setIStream(answers(dir, "\n"));
        EXPECT_STREQ("1", in.getItemValue("old", "0", "", "kept empty").c_str());
        EXPECT_STREQ("9", in.getItemValue("fromd", "0", "", "by key").c_str());
        testing::internal::CaptureStdout();
        EXPECT_STREQ("dflt", in.getItemValue("asked", "dflt", "", "asked one").c_str());
        testing::internal::GetCapturedStdout();
        EXPECT_EQ(KV_SOURCE_DEFAULT, in.lastSource());
        in.setIniSection("vdlsFunc");
        in.getIniFile()->write("vdlsFunc");
    }  // the ini file is rewritten when the input goes
    EXPECT_EQ(
        "\n[Kelvar System]\nold=1\nfromd=9\t// by key\nasked=dflt\t// asked one\n"
        "\n[vdlsFunc]\n",
        readFile(dir.path("k.ini")));
}

}  // namespace
