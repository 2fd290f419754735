#include "project/bench_ini.h"

#include <gtest/gtest.h>

namespace vanzet::project {
namespace {

std::string FaultOf(const std::string& text) {
  const auto ini = ReadBenchIni(text, "bench.ini");
  return ini ? "" : ini.fault().Message();
}

TEST(BenchIni, KeepsEachSectionApart) {
  const auto ini = ReadBenchIni(
      "[environment]\nTMP=/x\n[variables]\ni_a=1\n[project]\nCLAMP_DB_PATH=c.cld\n[language]\nmessages=de\n"
      "[drives]\nD=/data\ne:=/mnt\n",
      "bench.ini");
  ASSERT_TRUE(ini);
  EXPECT_EQ(ini->environment.at("TMP").value, "/x");
  EXPECT_EQ(ini->variables.at("i_a").value, "1");
  EXPECT_EQ(ini->variables.at("i_a").place.line, 4);
  EXPECT_EQ(ini->project.at("clamp_db_path").value, "c.cld");
  EXPECT_EQ(ini->language.at("messages").value, "de");
  EXPECT_EQ(ini->drives, (PathMap::Drives{{'D', "/data"}, {'E', "/mnt"}}));
}

TEST(BenchIni, MindsTheCaseOfVariablesOnly) {
  const auto ini = ReadBenchIni("[variables]\ni_a=1\ni_A=2\n[ENVIRONMENT]\nTmp=1\nTMP=2\n", "bench.ini");
  ASSERT_TRUE(ini);
  EXPECT_EQ(ini->variables.size(), 2U);
  EXPECT_EQ(ini->environment.size(), 1U);
  EXPECT_EQ(ini->environment.at("tmp").value, "1") << "the first of equal keys counts";
}

TEST(BenchIni, MayBeEmpty) {
  EXPECT_TRUE(ReadBenchIni("", "bench.ini"));
}

TEST(BenchIni, SaysHowManyGenerationsAreKept) {
  EXPECT_EQ(ReadBenchIni("", "bench.ini")->store.keep, 200);
  EXPECT_EQ(ReadBenchIni("[store]\nkeep = 0\nKEEP=x\n", "bench.ini")->store.keep, 0);
  for (const std::string value : {"-1", "1000001", "x"}) {
    EXPECT_EQ(FaultOf("[store]\nkeep=" + value + "\n"),
              "bench.ini:2:6: 'keep' is a whole number from 0 to 1000000, not '" + value + "'");
  }
  EXPECT_EQ(FaultOf("[store]\nkept=1\n"),
            "bench.ini:2:1: unknown setting 'kept' in [store]: expected 'engine', 'project' or 'keep'");
}

TEST(BenchIni, SaysWhereTheStoreIs) {
  EXPECT_EQ(ReadBenchIni("", "bench.ini")->store.connection, "");
  EXPECT_EQ(ReadBenchIni("[store]\nengine=store.db\n", "bench.ini")->store.connection, "");
  for (const std::string text : {"postgresql://shop@db/vanzet", "host=a,b dbname=vanzet", "service = shop"}) {
    const auto ini = ReadBenchIni("[store]\nengine = '" + text + "'\nproject = job 7\n", "bench.ini");
    ASSERT_TRUE(ini) << ini.fault().Message();
    EXPECT_EQ(ini->store.connection, text);
    EXPECT_EQ(ini->store.project, "job 7");
  }
}

TEST(BenchIni, ShowsNoPassword) {
  for (const std::string line : {"engine=db password=secret", "engin=postgresql://me:secret@db/vanzet",
                                 "password=secret", "[postgresql://me:secret@db"}) {
    const auto ini = ReadBenchIni("[store]\n" + line + "\n", "bench.ini");
    ASSERT_FALSE(ini) << line;
    EXPECT_EQ(ini.fault().line, 2);
    EXPECT_EQ(ini.fault().source, "");
    EXPECT_EQ(ini.fault().Message().find("secret"), std::string::npos) << ini.fault().Message();
  }
}

TEST(BenchIni, TakesNoMeshThatTheModellerRefuses) {
  const auto finest = ReadBenchIni("[mesh]\nchord=0.005\nangle=2\n", "bench.ini");
  ASSERT_TRUE(finest);
  EXPECT_EQ(finest->mesh.chord, 0.005);
  EXPECT_EQ(finest->mesh.angle, 2);
  EXPECT_EQ(FaultOf("[mesh]\nchord=0.0049\n"),
            "bench.ini:2:7: 'chord' is a number from 0.005 to 100, not '0.0049'");
  EXPECT_EQ(FaultOf("[mesh]\nangle=1.9\n"), "bench.ini:2:7: 'angle' is a number from 2 to 90, not '1.9'");
  EXPECT_EQ(FaultOf("[mesh]\nangle=nan\n"), "bench.ini:2:7: 'angle' is a number from 2 to 90, not 'nan'");
}

TEST(BenchIni, TellsTheLineOfWhatItDoesNotUnderstand) {
  EXPECT_EQ(FaultOf("\nrubbish\n"), "bench.ini:2:1: expected '[section]' or 'key = value'");
  EXPECT_EQ(FaultOf("[environment\n"), "bench.ini:1:1: expected '[section]' or 'key = value'");
  EXPECT_EQ(FaultOf("[variabels]\ni_a=1\n"), "bench.ini:1:2: unknown section [variabels]");
  EXPECT_EQ(FaultOf("i_a=1\n"), "bench.ini:1:1: expected '[section]' before the first entry");
  EXPECT_EQ(FaultOf("[drives]\nDATA=/x\n"), "bench.ini:2:1: a drive is a letter from A to Z, not 'DATA'");
  EXPECT_EQ(FaultOf("[drives]\nD=/a;b\n"),
            "bench.ini:2:3: the root of a drive is a path without ';', not '/a;b'");
  EXPECT_EQ(FaultOf("[drives]\nD=\n"), "bench.ini:2:3: the root of a drive is a path without ';', not ''");
  EXPECT_EQ(FaultOf("[drives]\n1=/x\n"), "bench.ini:2:1: a drive is a letter from A to Z, not '1'");
}

}  // namespace
}  // namespace vanzet::project
