#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <TopExp_Explorer.hxx>
#include <chrono>
#include <csignal>
#include <cstring>
#include <numbers>
#include <thread>

#include "modeller/booleans.h"
#include "modeller/foreign.h"
#include "modeller/foreign_files.h"
#include "modeller/solids.h"
#include "support/child.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"

namespace vanzet::modeller {
namespace {

using namespace test;
using testing::StartsWith;
namespace fs = std::filesystem;

class HostileFiles : public testing::Test {
 protected:
  /// One clear line that begins with the file's name.
  std::string Fault(const std::string& name) {
    const std::string message = ImportFault(folder_ / name);
    const std::string file = (folder_ / name).string() + ": ";
    EXPECT_THAT(message, StartsWith(file));
    EXPECT_EQ(message.find('\n'), std::string::npos);
    return message.substr(std::min(file.size(), message.size()));
  }

  std::string FaultOf(const std::string& name, std::string_view bytes) {
    WriteBytes(folder_ / name, bytes);
    return Fault(name);
  }

  std::string StepOfABrick() {
    WriteStep(Brick(10, 20, 30), folder_ / "brick.step");
    return ReadBytes(folder_ / "brick.step");
  }

  TemporaryFolder folder_;
};

TEST_F(HostileFiles, ThatDoNotExistAreReported) {
  EXPECT_EQ(Fault("none.step"), "does not exist");
  EXPECT_EQ(ImportBody(folder_ / "none.step", TestExchange()).fault().kind, FaultKind::kMissing);
}

TEST_F(HostileFiles, ThatAreFoldersAreReported) {
  fs::create_directory(folder_ / "folder.step");
  EXPECT_EQ(Fault("folder.step"), "not a regular file");
}

TEST_F(HostileFiles, OfAnotherKindAreReported) {
  EXPECT_EQ(FaultOf("brick.dwg", "x"), "does not end with .step, .stp, .iges, .igs, .brep, .stl or .3mf");
  EXPECT_THAT(FaultOf("brick.igs", "x"), testing::StartsWith("not a readable IGES file"));
  EXPECT_THAT(FaultOf("brick.3mf", "x"), testing::StartsWith("not a readable 3MF file"));
}

TEST_F(HostileFiles, WithoutContentAreReported) {
  EXPECT_THAT(FaultOf("empty.step", ""), StartsWith("not a readable STEP file"));
  EXPECT_NE(FaultOf("empty.stl", ""), "");
  EXPECT_THAT(FaultOf("empty.brep", ""), StartsWith("not a readable BREP file"));
}

TEST_F(HostileFiles, OfNoiseAreReported) {
  Dice dice(7);
  for (const char* name : {"noise.step", "noise.stl", "noise.brep"}) {
    for (int i = 0; i < 5; ++i) EXPECT_NE(FaultOf(name, dice.Text(2000)), "");
  }
}

TEST_F(HostileFiles, ThatAreCutShortAreReported) {
  const std::string whole = StepOfABrick();
  for (const double part : {0.1, 0.5, 0.9}) {
    EXPECT_NE(FaultOf("cut.step", whole.substr(0, static_cast<std::size_t>(part * double(whole.size())))),
              "");
  }
  WriteBrep(Brick(1, 2, 3), folder_ / "brick.brep");
  const std::string brep = ReadBytes(folder_ / "brick.brep");
  EXPECT_NE(FaultOf("cut.brep", brep.substr(0, brep.size() / 2)), "");
  WriteStl(Sphere(10), folder_ / "ball.stl", StlForm::kBinary);
  const std::string stl = ReadBytes(folder_ / "ball.stl");
  EXPECT_THAT(FaultOf("cut.stl", stl.substr(0, stl.size() / 2)), StartsWith("is cut short: it announces "));
  WriteStl(Sphere(10), folder_ / "text.stl", StlForm::kText);
  const std::string text = ReadBytes(folder_ / "text.stl");
  EXPECT_EQ(FaultOf("cut-text.stl", text.substr(0, text.size() / 2)), "is cut short: it has no 'endsolid'");
}

TEST_F(HostileFiles, WithBytesChangedNeverEndThisProcess) {
  Dice dice(11);
  const std::string whole = StepOfABrick();
  for (int i = 0; i < 25; ++i) {
    std::string changed = whole;
    for (int n = 0; n < 8; ++n)
      changed[dice.UpTo(changed.size() - 1)] = static_cast<char>(' ' + dice.UpTo(94));
    WriteBytes(folder_ / "changed.step", changed);
    static_cast<void>(ImportBody(folder_ / "changed.step", TestExchange()));
  }
}

TEST_F(HostileFiles, WithoutABodyAreReported) {
  EXPECT_THAT(FaultOf("nothing.stl", "solid nothing\nendsolid nothing\n"),
              testing::AnyOf(StartsWith("holds no body"), StartsWith("not a readable STL file")));
}

/// A STEP file of one schema with these entities.
std::string StepText(const std::string& schema, const std::string& entities) {
  return "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\nFILE_NAME('','',(''),(''),'','','');\n"
         "FILE_SCHEMA(('" +
         schema + "'));\nENDSEC;\nDATA;\n" + entities + "ENDSEC;\nEND-ISO-10303-21;\n";
}

TEST_F(HostileFiles, WithoutABodySayWhereItIsInstead) {
  const std::string assembly = StepText(
      "AUTOMOTIVE_DESIGN", "#1=DOCUMENT_TYPE('');\n#2=DOCUMENT_FILE('part-12.stp','','',#1,'',$);\n");
  EXPECT_EQ(FaultOf("assembly.step", assembly),
            "holds no body: its parts are in other files, the first in 'part-12.stp'");
  const std::string triangles = StepText(
      "AP242_MANAGED_MODEL_BASED_3D_ENGINEERING_MIM_LF",
      "#1=COORDINATES_LIST('',3,((0.,0.,0.),(1.,0.,0.),(0.,1.,0.)));\n"
      "#2=TRIANGULATED_FACE('',#1,3,((0.,0.,1.)),$,(),((1,2,3)));\n#3=TESSELLATED_SOLID('',(#2),$);\n");
  EXPECT_THAT(FaultOf("triangles.step", triangles),
              StartsWith("holds no body: it has triangles without surfaces"));
  const std::string analysis = StepText("STRUCTURAL_ANALYSIS_DESIGN", "#1=CARTESIAN_POINT('',(0.,0.,0.));\n");
  EXPECT_THAT(FaultOf("analysis.step", analysis), StartsWith("holds no body: it is a model for analysis"));
  const std::string point = StepText("AUTOMOTIVE_DESIGN", "#1=CARTESIAN_POINT('',(0.,0.,0.));\n");
  EXPECT_EQ(FaultOf("point.step", point), "holds no body");
}

TEST_F(HostileFiles, OutOfReachAreReported) {
  WriteStep(Brick(1, 1, 2e7), folder_ / "tower.step");
  EXPECT_EQ(Fault("tower.step"), "has a point that is not within 1e+07 mm");
}

TEST_F(HostileFiles, WithInvalidNumbersAreReported) {
  WriteStl(Brick(1, 1, 1), folder_ / "brick.stl", StlForm::kBinary);
  std::string bytes = ReadBytes(folder_ / "brick.stl");
  const float none = std::numeric_limits<float>::quiet_NaN();
  std::memcpy(bytes.data() + 84 + 12, &none, sizeof(none));
  EXPECT_EQ(FaultOf("nan.stl", bytes), "has a point that is not within 1e+07 mm");
}

TEST_F(HostileFiles, ThatClaimTooManyTrianglesAreReported) {
  std::string bytes(84 + 50, '\0');
  const std::uint32_t claimed = 0xFFFFFFFF;
  std::memcpy(bytes.data() + 80, &claimed, sizeof(claimed));
  EXPECT_NE(FaultOf("claims.stl", bytes), "");
}

TEST_F(HostileFiles, ThatUseOneBrickAMillionTimesAreRefusedAtOnce) {
  for (const int levels : {17, 100}) {
    WriteBrep(Doubled(Brick(1, 1, 1), levels, 0), folder_ / "nested.brep");
    EXPECT_LT(fs::file_size(folder_ / "nested.brep"), 40'000U);
    EXPECT_EQ(Fault("nested.brep"), "has more than 100000 faces");
  }
}

TEST_F(HostileFiles, ThatRepeatTheirEdgesOrFacetsWithoutEndAreRefused) {
  const TopoDS_Shape edge = TopExp_Explorer(Brick(1, 1, 1), TopAbs_EDGE).Current();
  WriteBrep(Doubled(edge, 60, 0), folder_ / "edges.brep");
  EXPECT_EQ(Fault("edges.brep"), "has more than 10000000 faces, edges, points and groups");
  WriteStl(Sphere(100), folder_ / "ball.stl", StlForm::kBinary);
  const Body ball = Get(ImportBody(folder_ / "ball.stl", TestExchange()));
  WriteBrep(Doubled(ball.shape().shape, 16, 1), folder_ / "facets.brep");
  EXPECT_EQ(Fault("facets.brep"), "has more than 5000000 facets");
}

/// A VRML text that uses one node 2^levels times.
std::string VrmlDoubled(const std::string& node, int levels) {
  std::string text = "#VRML V2.0 utf8\nDEF N0 " + node + "\n";
  for (int level = 1; level <= levels; ++level) {
    const std::string use = "USE N" + std::to_string(level - 1);
    text += "DEF N" + std::to_string(level) + " Group { children [ " + use + " " + use + " ] }\n";
  }
  return text;
}

TEST_F(HostileFiles, OfVrmlThatUseOneNodeAMillionTimesAreRefused) {
  const std::string empty = "Group { children [ ] }";
  EXPECT_EQ(Told(ImportVrml(VrmlDoubled(empty, 40), TestExchange())), "has more than 10000000 nodes");
  std::string fan =
      "Shape { geometry IndexedFaceSet { coord Coordinate { point [ 0 0 0, 1 0 0, 0 1 0 ] } coordIndex [\n";
  for (int i = 0; i < 1000; ++i) fan += "0 1 2 -1,\n";
  EXPECT_EQ(Told(ImportVrml(VrmlDoubled(fan + " ] } }", 20), TestExchange())),
            "has more than 5000000 facets");
}

TEST_F(HostileFiles, WithTooManyGroupsWithinGroupsAreRefused) {
  WriteBrep(Wrapped(Brick(1, 1, 1), 990), folder_ / "deep.brep");
  EXPECT_EQ(ImportFault(folder_ / "deep.brep"), "");
  WriteBrep(Wrapped(Brick(1, 1, 1), 3000), folder_ / "deeper.brep");
  EXPECT_EQ(Fault("deeper.brep"), "has groups within groups, more than 1000 levels deep");
}

TEST_F(HostileFiles, AreMeasuredAndMeshedUnderTheLimitsOfTheirReading) {
  // Its facets are 0.05 mm away from a ball of 2 km: tens of millions.
  WriteBrep(Sphere(1e6), folder_ / "planet.brep");
  Exchange exchange = TestExchange();
  const Body planet = Get(ImportBody(folder_ / "planet.brep", exchange));
  EXPECT_NEAR(Box(planet)[0], -1e6, 1e-3);
  EXPECT_NEAR(Measured(planet).area, 4 * std::numbers::pi * 1e12, 1e6);
  exchange.limits.seconds = 1;
  const Body impatient = ForeignBody({folder_ / "planet.brep", exchange, planet.shape().origin->surfaces});
  for (const Body& body : {impatient, Get(MoveBody(impatient, {1, 2, 3}))}) {
    EXPECT_EQ(Told(MeshOf(body, {})), (folder_ / "planet.brep").string() + ": takes longer than 1 seconds");
  }
}

TEST_F(HostileFiles, ThatTakeTooLongAreGivenUp) {
  // A program that tells nothing and never ends stands for one that reads an endless file.
  WriteBytes(folder_ / "endless", "#!/bin/sh\nexec sleep 1000\n");
  fs::permissions(folder_ / "endless", fs::perms::owner_all);
  StepOfABrick();
  const Exchange exchange = {folder_ / "endless", {.seconds = 1, .patience = 1}};
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(Told(ImportBody(folder_ / "brick.step", exchange)),
            (folder_ / "brick.step").string() + ": takes longer than 1 seconds");
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
}

/// Sets a variable of the environment for one test.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) { setenv(name, value, 1); }
  ~Variable() { unsetenv(name_); }

 private:
  const char* name_;
};

TEST_F(HostileFiles, HaveTheLimitsOfTheEnvironment) {
  StepOfABrick();
  const Variable program("VANZET_EXCHANGE", TestExchange().program.c_str());
  for (const char* const wrong : {"0", "x", "86401", "-1", "1.5"}) {
    const Variable seconds("VANZET_EXCHANGE_SECONDS", wrong);
    EXPECT_EQ(
        Told(ImportBody(folder_ / "brick.step", Exchange::OfProcess())),
        (folder_ / "brick.step").string() + ": VANZET_EXCHANGE_SECONDS is a whole number from 1 to 86400");
  }
  {
    const Variable memory("VANZET_EXCHANGE_MEMORY", "2000");
    EXPECT_EQ(Told(ImportBody(folder_ / "brick.step", Exchange::OfProcess())),
              (folder_ / "brick.step").string() +
                  ": VANZET_EXCHANGE_MEMORY is a whole number of GiB from 1 to 1024");
  }
  const Variable seconds("VANZET_EXCHANGE_SECONDS", "600"), memory("VANZET_EXCHANGE_MEMORY", "8");
  const Exchange exchange = Exchange::OfProcess();
  EXPECT_EQ(exchange.limits.seconds, 600);
  EXPECT_EQ(exchange.limits.bytes, std::uint64_t{8} << 30);
  EXPECT_TRUE(ImportBody(folder_ / "brick.step", exchange));
}

TEST_F(HostileFiles, ThatEndTheExchangeProgramAreReported) {
  WriteBytes(folder_ / "crash", "#!/bin/sh\nkill -SEGV $$\n");
  fs::permissions(folder_ / "crash", fs::perms::owner_all);
  EXPECT_EQ(Told(ImportBody(folder_ / "x.step", Exchange{folder_ / "crash", {}})),
            (folder_ / "x.step").string() + ": Open CASCADE crashed (signal 11)");
}

TEST_F(HostileFiles, WhoseExchangeProgramIsKilledAreReported) {
  WriteBytes(folder_ / "killed", "#!/bin/sh\nkill -KILL $$\n");
  fs::permissions(folder_ / "killed", fs::perms::owner_all);
  EXPECT_EQ(Told(ImportBody(folder_ / "x.step", Exchange{folder_ / "killed", {}})),
            (folder_ / "x.step").string() + ": the exchange program was killed");
}

TEST_F(HostileFiles, AreNotReadWithoutTheExchangeProgram) {
  EXPECT_EQ(Told(ImportBody(folder_ / "x.step", Exchange{folder_ / "none", {}})),
            (folder_ / "x.step").string() + ": " + (folder_ / "none").string() +
                " cannot be run: No such file or directory");
}

#ifndef __SANITIZE_ADDRESS__
TEST_F(HostileFiles, ThatNeedTooMuchMemoryAreGivenUp) {
  WriteStep(Casting(), folder_ / "casting.step");
  Exchange exchange = TestExchange();
  exchange.limits.bytes = 64 << 20;
  EXPECT_EQ(Told(ImportBody(folder_ / "casting.step", exchange)),
            (folder_ / "casting.step").string() + ": exceeds the memory limit");
}
#endif

TEST_F(HostileFiles, AreLeftAtCtrlC) {
  const fs::path started = folder_ / "started";
  WriteBytes(folder_ / "endless", "#!/bin/sh\ntouch '" + started.string() + "'\nexec sleep 1000\n");
  fs::permissions(folder_ / "endless", fs::perms::owner_all);
  Child child([&](Child::Line&) {
    const auto body = ImportBody(folder_ / "x.step", Exchange{folder_ / "endless", {}});
    return Told(body) == (folder_ / "x.step").string() + ": cancelled";
  });
  while (!fs::exists(started)) std::this_thread::sleep_for(std::chrono::milliseconds(10));
  ASSERT_EQ(kill(child.process(), SIGINT), 0);
  EXPECT_TRUE(child.End());
}

TEST_F(HostileFiles, LeaveTheAnswerToCtrlCAsItWas) {
  const auto former = std::signal(SIGINT, SIG_IGN);
  EXPECT_NE(Fault("none.step"), "");
  EXPECT_EQ(std::signal(SIGINT, former), SIG_IGN);
}

}  // namespace
}  // namespace vanzet::modeller
