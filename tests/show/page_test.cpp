#include "show/page.h"

#include <gmock/gmock.h>

#include "show/missing.h"
#include "show/rows.h"
#include "support/catalogues.h"

namespace vanzet::show {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StrEq;

const Translations kEnglish;

std::string Page(const project::Definition& definition) {
  return PageOf({1, 1001, definition}, {kEnglish, [](double millimetres) {
                                          return "<" + std::to_string(static_cast<int>(millimetres)) + ">";
                                        }});
}

project::Operation Holding(std::vector<std::vector<std::string>> sections) {
  project::Operation operation;
  operation.sections = std::move(sections);
  return operation;
}

TEST(Rows, HaveTheirValuesInOneColumn) {
  Rows rows;
  rows.AddHeading("Kopf");
  rows.Add(1, "Länge", "1");
  rows.Add(2, "Maß\x1b", "2");
  rows.Add(1, "allein", "");
  rows.AddHeading("Fuß");
  EXPECT_EQ(rows.Text(), "Kopf\n  Länge      1\n    Maß\\x1b  2\n  allein\n\nFuß\n");
}

TEST(Page, OfAnEmptyDefinitionSaysSo) {
  EXPECT_EQ(Page({}), "Spur 1: VDM 1001, version 0\n  Nothing is defined yet.\n");
}

TEST(Page, WritesEveryLengthByTheStyle) {
  project::Definition definition;
  definition.operations = {Holding({}),
                           Holding({{"Main Spindle"},
                                    {"Collet D42", "2 33 94 12 21 38 2", "0 3"},
                                    {},
                                    {"MainBillet", "1 42 50 2 3 8 0 1000"}}),
                           Holding({}), Holding({{"Datum NPV"}, {"1 0 60 40 20 -15"}})};
  const std::string page = Page(definition);
  EXPECT_THAT(page.substr(page.find('\n')), testing::Not(testing::ContainsRegex(" -?[0-9]+[,\n]")));
  for (const std::string length :
       {"<33>", "<42>", "<8>", "<1000>", "main <60>, sub <40>", "main <20>, sub <-15>"})
    EXPECT_THAT(page, HasSubstr(length));
}

TEST(Page, NamesTheDamageOfAnOperation) {
  project::Definition definition;
  definition.operations = {Holding({})};
  definition.operations[0].damage = "no header: 'rubbish'";
  EXPECT_THAT(Page(definition), testing::ContainsRegex("  Operation 0 +damaged: no header: 'rubbish'\n"));
}

TEST(Page, IsTranslatedIntoEveryLanguage) {
  test::ExpectTranslated(kTextSection, test::MarkedTexts("bench/show"));
}

TEST(MissingParts, OfASpurWithoutAnythingAreThoseOfTheMainSpindle) {
  EXPECT_THAT(MissingParts({}), ElementsAre(StrEq("a clamp device of the main spindle"),
                                            StrEq("a billet of the main spindle"), StrEq("the datum")));
}

TEST(MissingParts, OfASubSpindleAreThoseOfOneThatIsUsed) {
  scene::Equipment equipment;
  auto& [main, sub] = equipment.spindles;
  main.clamp.params.type = 2;
  main.billet.type = 1;
  main.clampingOut = 60;
  EXPECT_THAT(MissingParts(equipment), IsEmpty());
  sub.clamp.params.type = 1;
  EXPECT_THAT(MissingParts(equipment), ElementsAre(StrEq("jaws of the sub spindle")));
  sub.clamp.params.type = 0;
  sub.billet.type = 1;
  EXPECT_THAT(MissingParts(equipment), ElementsAre(StrEq("a clamp device of the sub spindle")));
}

}  // namespace
}  // namespace vanzet::show
