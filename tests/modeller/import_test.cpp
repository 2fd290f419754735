#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstring>
#include <sstream>
#include <thread>

#include "modeller/body.h"
#include "modeller/body_folder.h"
#include "modeller/foreign_files.h"
#include "modeller/mesh.h"
#include "modeller/solids.h"
#include "support/places.h"
#include "support/temporary_folder.h"
#include "support/vdm_values.h"

namespace vanzet::modeller {
namespace {

using namespace test;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Pointwise;
namespace fs = std::filesystem;

class Imports : public testing::Test {
 protected:
  Body Import(const std::string& name) { return Get(ImportBody(folder_ / name, TestExchange())); }

  void ExpectTheBrick(const Body& body) {
    EXPECT_THAT(Box(body), Pointwise(DoubleNear(1e-4), {0.0, 0.0, 0.0, 10.0, 20.0, 30.0}));
    EXPECT_NEAR(Measured(body).volume, 6000, 1e-2);
    EXPECT_TRUE(Measured(body).closed);
  }

  std::string NameOf(const BodyFile& file) { return file.path.filename().string(); }

  TemporaryFolder folder_;
};

TEST_F(Imports, StepInWhateverUnit) {
  for (const char* unit : {"MM", "INCH", "M"}) {
    WriteStep(Brick(10, 20, 30), folder_ / "brick.step", unit);
    const Body brick = Import("brick.step");
    ExpectTheBrick(brick);
    EXPECT_FALSE(brick.IsStl());
    EXPECT_TRUE(IsSound(brick));
  }
}

TEST_F(Imports, EndingsInAnyCase) {
  WriteStep(Brick(10, 20, 30), folder_ / "a.STP");
  WriteBrep(Brick(10, 20, 30), folder_ / "b.BRep");
  ExpectTheBrick(Import("a.STP"));
  ExpectTheBrick(Import("b.BRep"));
}

TEST_F(Imports, StlAsTrianglesAlone) {
  for (const StlForm form : {StlForm::kText, StlForm::kBinary}) {
    WriteStl(Brick(10, 20, 30), folder_ / "brick.stl", form);
    const Body brick = Import("brick.stl");
    EXPECT_TRUE(brick.IsStl());
    ExpectTheBrick(brick);
    EXPECT_EQ(Get(MeshOf(brick, {})).triangles.size(), 12U);
  }
}

TEST_F(Imports, BinaryStlWhoseBytesAreAllThoseOfAText) {
  // One triangle between the points 0, 10 along x and 10 along y, with a normal of zeros.
  std::string bytes(84 + 50, '\0');
  bytes.replace(0, 6, "binary");
  std::fill(bytes.begin() + 6, bytes.begin() + 80, ' ');
  bytes[80] = 1;
  const float ten = 10;
  std::memcpy(bytes.data() + 84 + 24, &ten, sizeof(ten));
  std::memcpy(bytes.data() + 84 + 40, &ten, sizeof(ten));
  WriteBytes(folder_ / "small.stl", bytes);
  const Body small = Import("small.stl");
  EXPECT_TRUE(small.IsStl());
  EXPECT_NEAR(Measured(small).area, 50, 1e-9);
}

TEST_F(Imports, StlWithTheExtentsOfItsTriangles) {
  WriteStl(Sphere(10), folder_ / "ball.stl", StlForm::kBinary);
  const auto box = Box(Import("ball.stl"));
  EXPECT_NEAR(box[5], 10, 1e-4) << "a pole is a point of the mesh";
  EXPECT_LT(box[4], 10) << "elsewhere facets stay inside";
  EXPECT_GT(box[4], 9.8);
}

TEST_F(Imports, KeepWhatWasRound) {
  WriteStep(Casting(), folder_ / "casting.step");
  EXPECT_NEAR(Measured(Import("casting.step")).volume, Measured(BodyOf(Casting())).volume, 1e-3);
}

TEST_F(Imports, ReportTheirProgress) {
  WriteStep(Casting(), folder_ / "casting.step");
  std::vector<double> reported;
  Exchange exchange = TestExchange();
  exchange.progress = [&](double done) { return reported.push_back(done), true; };
  EXPECT_TRUE(ImportBody(folder_ / "casting.step", exchange));
  ASSERT_FALSE(reported.empty());
  EXPECT_TRUE(std::ranges::is_sorted(reported));
  EXPECT_GT(reported.back(), 0);
  EXPECT_LE(reported.back(), 1);
}

TEST_F(Imports, StopWhenTheyAreCancelled) {
  WriteStep(Casting(), folder_ / "casting.step");
  Exchange exchange = TestExchange();
  exchange.progress = [](double) { return false; };
  const auto stopped = ImportBody(folder_ / "casting.step", exchange);
  EXPECT_EQ(Told(stopped), (folder_ / "casting.step").string() + ": cancelled");
}

TEST_F(Imports, ComeCoarseFirst) {
  WriteStep(Torus(50, 10), folder_ / "ring.step");
  std::vector<std::size_t> coarse;
  const auto whole = ImportBodyInSteps(folder_ / "ring.step", TestExchange(), {.extents = true, .mesh = true},
                                       [&](const Body& body) {
                                         coarse.push_back(Get(MeshOf(body, {})).triangles.size());
                                         EXPECT_NEAR(Box(body)[3], 60, 1e-3);
                                       });
  const std::size_t fine = Get(MeshOf(Get(whole), {})).triangles.size();
  EXPECT_EQ(fine, Get(MeshOf(Import("ring.step"), {})).triangles.size());
  ASSERT_EQ(coarse.size(), 1U);
  EXPECT_GT(coarse[0], 10U);
  EXPECT_LT(3 * coarse[0], fine);
}

TEST_F(Imports, OfFacetsComeOnce) {
  WriteStl(Brick(10, 20, 30), folder_ / "brick.stl", StlForm::kBinary);
  const auto never = [](const Body&) { ADD_FAILURE() << "a body of facets is there at once"; };
  ExpectTheBrick(
      Get(ImportBodyInSteps(folder_ / "brick.stl", TestExchange(), {.extents = true, .mesh = true}, never)));
  WriteBytes(folder_ / "broken.step", "no body at all");
  EXPECT_THAT(Told(ImportBodyInSteps(folder_ / "broken.step", TestExchange(), {}, never)),
              testing::HasSubstr("broken.step: not a readable STEP file"));
}

/// The exchange program behind a script.
class ScriptedImports : public Imports {
 protected:
  /// The script runs `before`, then the program, whose reports go to a file as well.
  Exchange Script(const std::string& name, const std::string& before) {
    Exchange exchange = TestExchange();
    const auto program = folder_ / name;
    WriteBytes(program, "#!/bin/sh\ncd '" + folder_.path().string() + "'\n" + before + "\n'" +
                            exchange.program.string() + "' \"$@\" | tee " + name + ".reports\n");
    fs::permissions(program, fs::perms::owner_all);
    exchange.program = program;
    return exchange;
  }

  /// The fractions that such a script reported.
  std::vector<double> Reports(const std::string& name) {
    std::istringstream lines(ReadBytes(folder_ / (name + ".reports")));
    std::vector<double> reports;
    for (std::string word, number; lines >> word;) {
      if (word == "progress" && lines >> number) reports.push_back(std::stod(number));
    }
    return reports;
  }
};

TEST_F(ScriptedImports, ReportEachStageOfTheWork) {
  WriteStep(ChuckBody(), folder_ / "chuck.step");
  const auto done = ImportBodyInSteps(folder_ / "chuck.step", Script("all", ""),
                                      {.extents = true, .mesh = true}, [](const Body&) {});
  ASSERT_TRUE(done) << Told(done);
  const auto reports = Reports("all");
  EXPECT_TRUE(std::ranges::is_sorted(reports));
  // The text, the surfaces, the coarse mesh, the fine one.
  for (const auto& [from, to] : {std::pair{0.0, 0.24}, {0.26, 0.69}, {0.76, 0.84}, {0.86, 0.999}}) {
    const auto isWithin = [from = from, to = to](double report) { return report > from && report < to; };
    EXPECT_GE(std::ranges::count_if(reports, isWithin), 3) << from << " to " << to;
  }
}

TEST_F(ScriptedImports, ThatOverlapLeaveCtrlCAsItWas) {
  WriteStep(Brick(10, 20, 30), folder_ / "brick.step");
  const auto waitFor = [](const std::string& name) {
    return "until [ -e " + name + " ]; do sleep 0.01; done";
  };
  struct sigaction before = {}, after = {};
  sigaction(SIGINT, nullptr, &before);
  std::atomic<bool> hasBegun = false, hasEnded = false;
  std::thread first([&, exchange = Script("first", waitFor("go-first"))]() mutable {
    exchange.progress = [&](double) { return hasBegun = true, true; };
    EXPECT_TRUE(ImportBody(folder_ / "brick.step", exchange));
    hasEnded = true;
  });
  while (!hasBegun) std::this_thread::yield();
  Exchange second = Script("second", waitFor("go-second"));
  second.progress = [&](double) {
    WriteBytes(folder_ / "go-first", "");
    if (hasEnded) WriteBytes(folder_ / "go-second", "");
    return true;
  };
  EXPECT_TRUE(ImportBody(folder_ / "brick.step", second));
  first.join();
  sigaction(SIGINT, nullptr, &after);
  EXPECT_EQ(after.sa_handler, before.sa_handler);
}

/// The exchange program behind a script that counts its runs.
class CountedImports : public Imports {
 protected:
  CountedImports() {
    exchange_.program = folder_ / "counted";
    WriteBytes(exchange_.program, "#!/bin/sh\necho run >>'" + (folder_ / "runs").string() + "'\nexec '" +
                                      TestExchange().program.string() + "' \"$@\"\n");
    fs::permissions(exchange_.program, fs::perms::owner_all);
    WriteStep(Casting(), folder_ / "casting.step");
    WriteStl(Brick(10, 20, 30), folder_ / "brick.stl", StlForm::kBinary);
    WriteStep(Brick(10, 20, 30), folder_ / "brick.step");
    WriteBytes(folder_ / "broken.step", "no body at all");
  }

  std::ptrdiff_t Runs() { return std::ranges::count(ReadBytes(folder_ / "runs"), '\n'); }

  std::vector<Result<Body>> ImportAll(const std::vector<std::string>& names, const Foresight& foresight) {
    std::vector<fs::path> files;
    for (const std::string& name : names) files.push_back(folder_ / name);
    return ImportBodies(files, exchange_, foresight);
  }

  static Body HalfTurned(const Body& body) {
    const Body turned = Get(TurnBody(body, {{5, 0, 0}, {0, 1, 0}}, 180));
    return Get(MoveBody(turned, {100, 0.5, -3}));
  }

  Exchange exchange_ = TestExchange();
};

TEST_F(CountedImports, OfSeveralFilesTakeOneProcessThatAnswersWhatIsAskedNext) {
  const auto bodies = ImportAll({"casting.step", "brick.stl", "brick.step"}, {true, true, true});
  const Body casting = HalfTurned(Get(bodies[0])), plain = HalfTurned(Import("casting.step"));
  EXPECT_THAT(Box(casting), Pointwise(DoubleNear(1e-3), Box(plain)));
  EXPECT_NEAR(Measured(casting).volume, Measured(plain).volume, 1e-6);
  EXPECT_NEAR(Dist(Measured(casting).centroid, Measured(plain).centroid), 0, 1e-6);
  const Mesh known = Get(MeshOf(casting, {})), asked = Get(MeshOf(plain, {}));
  EXPECT_EQ(known.triangles.size(), asked.triangles.size());
  EXPECT_NEAR(MeasuresOf(known).volume, MeasuresOf(asked).volume, 0.01);
  ExpectTheBrick(Get(bodies[1]));
  ExpectTheBrick(Get(bodies[2]));
  EXPECT_EQ(Runs(), 1);
}

TEST_F(CountedImports, AskAgainWhatWasNotForeseen) {
  const Body brick = Get(ImportAll({"brick.step"}, {.extents = true}).front());
  const Body oblique = Get(TurnBody(brick, {{0, 0, 0}, {0, 0, 1}}, 45));
  EXPECT_EQ(Runs(), 1);
  EXPECT_NEAR(Box(oblique)[4], 30 * std::sqrt(0.5), 1e-3) << "a turned box is larger than the body";
  EXPECT_EQ(Runs(), 2);
  EXPECT_EQ(Get(MeshOf(brick, {.chord = 0.1})).triangles.size(), 12U);
  EXPECT_EQ(Runs(), 3);
}

TEST_F(CountedImports, OfABrokenFileLeaveTheOthers) {
  for (const auto& names : {std::vector<std::string>{"brick.step", "broken.step", "brick.stl"},
                            {"broken.step", "brick.step", "brick.stl"}}) {
    const auto bodies = ImportAll(names, {true, true, true});
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (names[i] != "broken.step") {
        ExpectTheBrick(Get(bodies[i]));
        continue;
      }
      ASSERT_FALSE(bodies[i]);
      EXPECT_EQ(bodies[i].fault().file, folder_ / names[i]);
      EXPECT_THAT(bodies[i].fault().text, testing::StartsWith("not a readable STEP file"));
    }
  }
}

TEST_F(CountedImports, ThatAreCancelledReadNothingElse) {
  exchange_.progress = [](double) { return false; };
  for (const auto& body : ImportAll({"casting.step", "brick.step"}, {true, true, true})) {
    EXPECT_THAT(Told(body), testing::EndsWith(".step: cancelled"));
  }
}

TEST_F(Imports, ListAFolderWithoutReadingIt) {
  for (const char* name :
       {"b.step", "B.stl", "a.STP", "a.brep", "c.stl", "d.txt", "e.dxf", "step", ".step"}) {
    WriteBytes(folder_ / name, "no body at all");
  }
  fs::create_directory(folder_ / "f.step");
  const auto files = BodyFilesIn(folder_.path());
  std::vector<std::string> names;
  for (const BodyFile& file : files) names.push_back(file.name + " " + NameOf(file));
  EXPECT_THAT(names, ElementsAre("a a.STP", "b b.step", "c c.stl"));
}

TEST_F(Imports, FindNothingInAMissingFolder) {
  EXPECT_TRUE(BodyFilesIn(folder_ / "none").empty());
}

TEST_F(Imports, ReadANamedBodyOnceAndKeepItsNumber) {
  WriteStep(Brick(10, 20, 30), folder_ / "Brick.step");
  BodyTable table;
  const auto number = Get(FindOrImportBody("brick", table, folder_.path(), TestExchange(), {}));
  EXPECT_EQ(number, 1);
  EXPECT_EQ(table.NameOf(1), "Brick");
  fs::remove(folder_ / "Brick.step");
  EXPECT_EQ(Get(FindOrImportBody("BRICK", table, folder_.path(), TestExchange(), {})), 1);
  ExpectTheBrick(Get(table.Get(1)));
}

TEST_F(Imports, ReportAnUnknownName) {
  BodyTable table;
  EXPECT_EQ(Told(FindOrImportBody("brick", table, folder_.path(), TestExchange(), {})),
            folder_.path().string() + ": body 'brick' does not exist");
  EXPECT_TRUE(table.Numbers().empty());
}

TEST_F(Imports, OfTheExamples) {
  const fs::path examples = VANZET_SOURCE_DIR "/examples/bodies";
  const Body casting = Get(ImportBody(examples / "casting.step", TestExchange()));
  EXPECT_THAT(Box(casting), Pointwise(DoubleNear(1e-3), {0.0, 0.0, 0.0, 60.0, 40.0, 30.0}));
  EXPECT_NEAR(Measured(casting).volume, Measured(BodyOf(Casting())).volume, 1e-2);
  const Body scan = Get(ImportBody(examples / "scan.stl", TestExchange()));
  EXPECT_TRUE(scan.IsStl());
  EXPECT_TRUE(Measured(scan).closed);
}

}  // namespace
}  // namespace vanzet::modeller
