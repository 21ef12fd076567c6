// The ini file, the -d data list and the parameter input that asks them,
// the console and the default in turn.
#include <gtest/gtest.h>

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
    EXPECT_STREQ("c:", ini.read(kSys, "path", "").c_str());        // "//" cuts even a value
    EXPECT_STREQ("~~~", ini.read(kSys, "bare", "").c_str());
    EXPECT_STREQ("v", ini.read("s", "k", "").c_str());
    EXPECT_TRUE(ini.sectionExist("b"));  // a=[b] is a section line
    EXPECT_FALSE(ini.valueExist("S", "k"));  // names are case sensitive
    // Repeated sections merge; a repeated name keeps its first place and its last value.
    EXPECT_EQ("a=2;path=c:;bare=~~~;x=y = z;c=3;", names(ini.getSectionValues(kSys)));
}

TEST(KvIniFile, UpdateRewritesWholeFileWithoutOldComments) {
    TempDir dir;
    writeFile(dir.path("k.ini"), kSample);
    kvIniFile ini;
    ASSERT_TRUE(ini.open(dir.path("k.ini"), true));
    ini.write(kSys, "a", "5", "ignored comment");  // an old item keeps its (empty) comment
    ini.write(kSys, " n ", "7", "the n");
    ini.write("t", "flag");
    ini.write("u", "  ", "x", "empty name: section only");
    ini.deleteKey("s", "k");
    ini.eraseSection("b");
    EXPECT_EQ(kSample, readFile(dir.path("k.ini")));  // untouched until closing
    ini.close();
    EXPECT_EQ("\n[Kelvar System]\na=5\npath=c:\nbare\nx=y = z\nc=3\nn=7\t// the n\n"
              "\n[s]\n\n[t]\nflag\n\n[u]\n",
              readFile(dir.path("k.ini")));
    ini.close();  // a second close must not empty the file
    EXPECT_NE("", readFile(dir.path("k.ini")));
}

TEST(KvIniFile, MissingOrUnusableFiles) {
    TempDir dir;
    LogCapture log(ERR);
    kvIniFile reading, making, unwritable;
    EXPECT_FALSE(reading.open(dir.path("missing.ini"), false));
    EXPECT_TRUE(making.open(dir.path("new.ini"), true));  // with update: made, silently
    EXPECT_FALSE(unwritable.open(dir.path("no/dir.ini"), true));
    EXPECT_FALSE(unwritable.getUpdate());
    EXPECT_EQ(std::string("-- Can't open file ") + dir.path("missing.ini").c_str() +
                  " to read: \n-- Can't open file " + dir.path("no/dir.ini").c_str() +
                  " to write: \n",
              log.text());
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
    d.set(" ", "x");
    d.set("");
    EXPECT_EQ(3, d.size());
}

TEST(KvIStream, SourcesInOrderDataIniConsoleDefault) {
    TempDir dir;
    writeFile(dir.path("k.ini"), "[Kelvar System]\na=5\nb=6\nempty=\n[T]\na=8\n");
    kvIStream in;
    ASSERT_TRUE(in.setIniFile(dir.path("k.ini"), false));
    in.dataList().set("a=7");
    in.setIStream(answers(dir, "42\n\n"));
    LogCapture silent(0);  // questions pass by the level filter
    testing::internal::CaptureStdout();
    const struct {
        const char* name;
        const char* value;
        int source;
    } steps[] = {{"a", "7", KV_SOURCE_DATA},
                 {"b", "6", KV_SOURCE_INI},
                 // An empty ini value counts as absent; the first answer is still unread.
                 {"empty", "42", KV_SOURCE_CONSOLE},
                 {"c", "d", KV_SOURCE_DEFAULT},  // an empty answer
                 {"c", "d", KV_SOURCE_DEFAULT}};  // the end of input
    for (const auto& step : steps) {
        EXPECT_STREQ(step.value, in.getItemValue(step.name, "d", "", "").c_str()) << step.name;
        EXPECT_EQ(step.source, in.lastSource()) << step.name;
    }
    // Only the console sources asked, straight to stdout; an empty prompt shows the name.
    EXPECT_EQ("\n empty [d] = \n c [d] = \n c [d] = ", testing::internal::GetCapturedStdout());

    EXPECT_STREQ(kSys, in.setIniSection("T").c_str());
    EXPECT_STREQ("7", in.getItemValue("a", "0", "", "").c_str());  // -d is not per section
    in.dataList().clear();
    EXPECT_STREQ("8", in.getItemValue("a", "0", "", "").c_str());
}

TEST(KvIStream, UpdateModeWritesEverySettledValue) {
    TempDir dir;
    writeFile(dir.path("k.ini"), "[Kelvar System]\nold=1 // dropped comment\n");
    {
        kvIStream in;
        ASSERT_TRUE(in.setIniFile(dir.path("k.ini"), true));
        in.dataList().set("fromd=9");
        in.setIStream(answers(dir, "\n"));
        EXPECT_STREQ("1", in.getItemValue("old", "0", "", "kept empty").c_str());
        EXPECT_STREQ("9", in.getItemValue("fromd", "0", "", "by key").c_str());
        testing::internal::CaptureStdout();
        EXPECT_STREQ("dflt", in.getItemValue("asked", "dflt", "", "asked one").c_str());
        testing::internal::GetCapturedStdout();
        in.setIniSection("vdlsFunc");
        in.getIniFile()->write("vdlsFunc");
    }  // the ini file is rewritten when the input goes
    EXPECT_EQ("\n[Kelvar System]\nold=1\nfromd=9\t// by key\nasked=dflt\t// asked one\n"
              "\n[vdlsFunc]\n",
              readFile(dir.path("k.ini")));
}

}  // namespace
