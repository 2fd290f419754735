#include "store/record_frame.h"

#include <functional>
#include <memory>

#include "store/billet_records.h"
#include "store/clamp_records.h"
#include "store/datum_records.h"
#include "store/device_import.h"
#include "store/finish_part_records.h"
#include "store/record_fixture.h"
#include "support/failing_call.h"
#include "support/golden.h"

namespace vanzet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t kSource = 1900;

// What the operations work on.
DeviceParams params = {.type = 2, .A = 40, .B = 60, .C = 10, .D = 15, .E = 30, .F = 2};
std::string name = "Collet 42";
bool inner = true;
std::int32_t jaws = 3;
BilletRecord billet;
FinishPartRecord finishPart;
DatumRecord datum;
BezelRecord bezel;

BilletRecord BilletOfType(std::int32_t type) {
  BilletRecord record;
  record.type = type;
  record.partLength = 100;
  record.outerDiameter = 80;
  record.figureOutside = "outside";
  record.solidName = "solid";
  return record;
}

struct Operation {
  std::string name;
  std::function<std::int32_t()> run;
};

const std::vector<Operation> kWriters = {
    {"write_clamp_device", [] { return WriteClampDevice(0, 0, "Collet 42", params); }},
    {"write_clamp_options", [] { return WriteClampOptions(0, 1, true, 4); }},
    {"write_jaw", [] { return WriteJaw(0, 1, "Jaw", params); }},
    {"clear_jaw", [] { return ClearJaw(0, 0); }},
    {"write_center", [] { return WriteCenter(0, true, "Center", params); }},
    {"write_billet", [] { return WriteBillet(0, 0, BilletOfType(1)); }},
    {"write_billet_from_figures", [] { return WriteBillet(0, 1, BilletOfType(2)); }},
    {"write_finish_part",
     [] {
       return WriteFinishPart(0, 1, {1, "outside", "inside", ""});
     }},
    {"write_datum",
     [] {
       return WriteDatum(0, {1, 2, 3, 4});
     }},
    {"write_bezel", [] { return WriteBezel(0, {1}); }},
};

const std::vector<Operation> kReaders = {
    {"read_clamp_device", [] { return ReadClampDevice(0, 0, name, params); }},
    {"read_clamp_options", [] { return ReadClampOptions(0, 1, inner, jaws); }},
    {"read_jaw", [] { return ReadJaw(0, 1, name, params); }},
    {"read_center", [] { return ReadCenter(0, true, name, params); }},
    {"read_billet", [] { return ReadBillet(0, 0, billet); }},
    {"read_finish_part", [] { return ReadFinishPart(0, 1, finishPart); }},
    {"read_datum", [] { return ReadDatum(0, datum); }},
    {"read_bezel", [] { return ReadBezel(0, bezel); }},
};

const Operation kImport = {"import_device", [] { return ImportDevice(0, 0, true, kSource); }};

std::vector<Operation> AllOperations() {
  std::vector<Operation> all = kWriters;
  all.insert(all.end(), kReaders.begin(), kReaders.end());
  all.push_back(kImport);
  return all;
}

/// A definition with records in it, and an own device beside it.
struct FilledWorld : DefinitionWorld {
  FilledWorld() {
    params = {.type = 2, .A = 40, .B = 60, .C = 10, .D = 15, .E = 30, .F = 2};
    WriteCenter(0, true, "Center", {.type = 13, .A = 5});
    WriteBillet(0, 0, BilletOfType(3));
    WriteFinishPart(0, 1, {2, "", "", "solid"});
    host.vdms[kSource].records = {
        {"1 1 0"},
        {"2 1 4 1 2 1 2", "Own", "#VRML", "Shape {}", "3 1 2 3", "0 1 2 0 0 0 0", "3 4 5 0 0 0 6"}};
    host.TakeCalls();
    host.TakeBoxes();
  }
};

TEST(Records, AreWrittenAndReadByTheseCalls) {
  for (const Operation& operation : AllOperations()) {
    SCOPED_TRACE(operation.name);
    FilledWorld world;
    EXPECT_EQ(operation.run(), 0);
    EXPECT_GOLDEN(Lines(world.host.calls), "store/records/" + operation.name + ".trace");
    EXPECT_THAT(world.host.boxes, IsEmpty());
  }
}

TEST(Records, OfAMissingDefinitionAreToldByWritersAlone) {
  FilledWorld world;
  world.host.vdms.erase(kVdm);
  for (const Operation& writer : kWriters) {
    EXPECT_EQ(writer.run(), -1) << writer.name;
    EXPECT_THAT(world.host.TakeBoxes(), ElementsAre(BaseBox("Open: vdm doesn't exist"))) << writer.name;
  }
  for (const Operation& reader : kReaders) {
    EXPECT_EQ(reader.run(), -1) << reader.name;
    EXPECT_THAT(world.host.TakeBoxes(), IsEmpty()) << reader.name;
  }
}

TEST(Records, OfADefinitionThatIsOpenElsewhereAreToldByAll) {
  FilledWorld world;
  const auto before = world.host.vdms[kVdm].records;
  world.host.vdms[kVdm].openElsewhere = true;
  for (const Operation& operation : AllOperations()) {
    EXPECT_EQ(operation.run(), -1) << operation.name;
    EXPECT_THAT(world.host.TakeBoxes(), ElementsAre(BaseBox("Open: already open by another process")))
        << operation.name;
  }
  EXPECT_EQ(world.host.vdms[kVdm].records, before);
}

TEST(Records, OfADefinitionThatTheHostDoesNotOpenAreToldByAll) {
  FilledWorld world;
  world.host.refusesOpen = true;
  for (const Operation& writer : kWriters) {
    EXPECT_EQ(writer.run(), -1) << writer.name;
    EXPECT_THAT(world.host.TakeBoxes(), ElementsAre(BaseBox("Open: ORVO can not open"))) << writer.name;
  }
}

TEST(Records, AreDoneAlsoWhenAnotherProcessClosedTheDefinition) {
  FilledWorld world;
  world.host.checkOpenFlag = 0;
  EXPECT_EQ(WriteBezel(0, {1}), 0);
  EXPECT_THAT(world.host.TakeBoxes(), ElementsAre(BaseBox("Close: already closed by another process")));
}

TEST(Records, OfAnEmptyDefinitionDoNotCrash) {
  for (const Operation& operation : AllOperations()) {
    FilledWorld world;
    world.host.vdms[kVdm].records.clear();
    operation.run();
    EXPECT_EQ(world.host.vdms[kVdm].handle, 0U) << operation.name;
    EXPECT_THAT(world.host.vdms[kVdm].records, IsEmpty()) << operation.name;
  }
}

class EveryCall : public testing::TestWithParam<Failure> {};

TEST_P(EveryCall, MayFailAndNoDefinitionStaysOpen) {
  for (const Operation& operation : AllOperations()) {
    SCOPED_TRACE(operation.name);
    int failures = 0;
    WithEveryCallFailing(
        GetParam(), [] { return std::make_unique<FilledWorld>(); }, [&](FilledWorld&) { operation.run(); },
        [&](FilledWorld& world, const std::string& failed) {
          ++failures;
          // Where closing itself goes wrong, or the host says that nothing is open, it stays so.
          if (failed == "OrvoMacroVdmClose" || failed == "OrvoMacroVdmCheckOpen") return;
          EXPECT_EQ(world.host.vdms[kVdm].handle, 0U) << failed;
          EXPECT_EQ(world.host.vdms[kSource].handle, 0U) << failed;
        });
    EXPECT_GT(failures, 6) << "calls were counted";
  }
}

TEST_P(EveryCall, ThatFailsLeavesAReaderAResultOfItsOwn) {
  for (const Operation& reader : kReaders) {
    SCOPED_TRACE(reader.name);
    WithEveryCallFailing(
        GetParam(), [] { return std::make_unique<FilledWorld>(); },
        [&](FilledWorld&) {
          const std::int32_t result = reader.run();
          EXPECT_TRUE(result == 0 || result == -1);
        },
        [](FilledWorld& world, const std::string& failed) {
          EXPECT_EQ(world.host.ItemsOf(kVdm, 1).size(), 9U) << failed << ": a reader changes nothing";
        });
  }
}

INSTANTIATE_TEST_SUITE_P(Of, EveryCall, testing::Values(Failure::kRefused, Failure::kMissing),
                         [](const auto& tested) {
                           return tested.param == Failure::kRefused ? "AHostThatRefuses" : "AHostThatLacksIt";
                         });

}  // namespace
}  // namespace vanzet::test
