#include "project/definition.h"

#include <gmock/gmock.h>

#include <sstream>

#include "vdm/vdm_file.h"

namespace vanzet::project {
namespace {

using testing::ElementsAre;

Definition Read(const std::string& records, int count) {
  std::istringstream text("vdm 1\n" + records + "end " + std::to_string(count) + "\n");
  const auto content = vdm::ReadVdm(text, "test");
  EXPECT_TRUE(content) << content.fault().Message();
  const auto definition = ReadDefinition(*content);
  EXPECT_TRUE(definition);
  return *definition;
}

Operation ReadOne(const std::string& items) {
  return Read("record\n" + items, 1).operations.at(0);
}

TEST(ReadDefinition, DividesEachRecordIntoSections) {
  const Operation operation = ReadOne(".2 1 4 1 3 0 1\n.Main Spindle\n.a\n.b\n.c\n.d\n");
  EXPECT_EQ(operation.kind, 2);
  EXPECT_TRUE(operation.flag);
  EXPECT_THAT(operation.sections, ElementsAre(ElementsAre("Main Spindle"), ElementsAre("a", "b", "c"),
                                              ElementsAre(), ElementsAre("d")));
  EXPECT_EQ(operation.Label(), "Main Spindle");
  EXPECT_EQ(operation.damage, "");
}

TEST(ReadDefinition, OfAHeadHasTheCountsOfAllItemsAndTheFirstOfThem) {
  vdm::RecordHeads heads(1);
  heads[0] = {vdm::Record({"2 1 3 1 4 1", "VRML Main Jaw", "a"}), 7};
  const Operation operation = ReadDefinition(heads).operations.at(0);
  EXPECT_EQ(operation.damage, "");
  EXPECT_THAT(operation.counts, ElementsAre(1U, 4U, 1U));
  EXPECT_THAT(operation.sections, ElementsAre(ElementsAre("VRML Main Jaw"), ElementsAre("a"), ElementsAre()));
  heads[0].items = 6;
  EXPECT_EQ(ReadDefinition(heads).operations.at(0).damage, "the header counts more items than there are");
}

TEST(ReadDefinition, TakesTheVersionFromTheFirstOperation) {
  EXPECT_EQ(Read("record\n.1 1 1 2\n.Billet definition\n.100\n", 1).version, 100);
  EXPECT_EQ(Read("record\n.1 1 1 2\n.Billet definition\n.99 x\n", 1).version, 99);
  EXPECT_EQ(Read("record\n.1 1 1 1\n.Billet definition\n", 1).version, 0);
  EXPECT_EQ(Read("record\n.1 1 1 2\n.Billet definition\n.99999999999\n", 1).version, 0)
      << "as the module reads it";
  EXPECT_EQ(Read("", 0).version, 0);
}

TEST(ReadDefinition, TellsADamagedRecordAndReadsTheOthers) {
  const Definition definition = Read("record\n.rubbish\nrecord\n.2 1 1 1\n.Center\n", 2);
  EXPECT_TRUE(definition.IsDamaged());
  EXPECT_EQ(definition.operations[0].damage, "no header: 'rubbish'");
  EXPECT_EQ(definition.operations[0].Label(), "");
  EXPECT_EQ(definition.operations[1].Label(), "Center");
}

TEST(ReadDefinition, TellsHowAHeaderIsWrong) {
  EXPECT_EQ(ReadOne("").damage, "the record has no header");
  EXPECT_EQ(ReadOne(".2 1\n").damage, "no header: '2 1'");
  EXPECT_EQ(ReadOne(".2 1 3 1 1\n.a\n.b\n").damage, "the header counts fewer sections than it says");
  EXPECT_EQ(ReadOne(".2 1 1 1 0\n.a\n").damage, "the header counts more sections than it says");
  EXPECT_EQ(ReadOne(".2 1 1 2\n.a\n").damage, "the header counts more items than there are");
  EXPECT_EQ(ReadOne(".2 1 1 1\n.a\n.b\n").damage, "the header counts fewer items than there are");
  EXPECT_EQ(ReadOne(".2 1 2147483647 2147483647\n").damage, "the header counts more items than there are");
}

}  // namespace
}  // namespace vanzet::project
