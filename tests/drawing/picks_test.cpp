#include "drawing/picks.h"

#include "drawing_fixture.h"

namespace vanzet::drawing {
namespace {

Result<Picks> Read(const std::string& text) {
  std::istringstream stream(text);
  return Picks::Read(stream, "p.txt");
}

TEST(Picks, AreUsedUpInOrder) {
  auto picks = Read("# a remark\n\nposition -1.5 2e1\r\n  figure Outer ring \nobject jaw\ncancel\n");
  ASSERT_TRUE(picks) << picks.fault().Message();
  const auto position = picks->Next({Pick::Kind::kPosition});
  ASSERT_TRUE(position);
  EXPECT_EQ(position->position.x, -1.5);
  EXPECT_EQ(position->position.y, 20);
  EXPECT_EQ(picks->Next({Pick::Kind::kFigure})->name, "Outer ring");
  EXPECT_EQ(picks->Next({Pick::Kind::kObject})->name, "jaw");
  EXPECT_EQ(picks->Next({Pick::Kind::kFigure})->kind, Pick::Kind::kCancel);
  EXPECT_EQ(picks->Next({Pick::Kind::kFigure})->kind, Pick::Kind::kCancel) << "none is left";
}

TEST(Picks, OfAnotherKindAreUsedUpAndReported) {
  auto picks = Read("\nobject jaw\nfigure F\n");
  EXPECT_EQ(picks->Next({Pick::Kind::kFigure}).fault().Message(),
            "p.txt:2: expected 'figure' or 'cancel', found 'object'");
  EXPECT_EQ(picks->Next({Pick::Kind::kFigure})->name, "F");
}

TEST(Picks, ThatAreWrongAreReportedWithTheirLine) {
  struct Case {
    const char* text;
    const char* message;
  };
  for (const auto& [text, message] : std::initializer_list<Case>{
           {"point 1 2\n",
            "p.txt:1: expected 'position X Y', 'figure NAME', 'object NAME' or 'cancel', found "
            "'point 1 2'"},
           {"\nposition 1\n",
            "p.txt:2: expected 'position X Y' with numbers within 1e+07, found 'position 1'"},
           {"position 1 2 3\n",
            "p.txt:1: expected 'position X Y' with numbers within 1e+07, found 'position 1 "
            "2 3'"},
           {"position 1 2e9\n",
            "p.txt:1: expected 'position X Y' with numbers within 1e+07, found 'position 1 "
            "2e9'"},
           {"figure\n", "p.txt:1: expected a name after 'figure'"},
           {"cancel now\n", "p.txt:1: expected nothing after 'cancel', found 'now'"},
           {"figure a\x01\n", "p.txt:1: not a text file: the line has a control character"},
       }) {
    const auto picks = Read(text);
    ASSERT_FALSE(picks) << text;
    EXPECT_EQ(picks.fault().Message(), message);
  }
}

TEST(Picks, CarryTheVersionOfTheirFormInTheFirstLine) {
  EXPECT_TRUE(Read("picks 1\ncancel\n"));
  EXPECT_TRUE(Read("# a comment\npicks 1\n"));
  EXPECT_FALSE(Read("picks 2\ncancel\n"));
  EXPECT_FALSE(Read("cancel\npicks 1\n"));
}

TEST(Picks, FaultsQuoteTheirLine) {
  EXPECT_EQ(Read("cancel\npoint 1 2\n").fault().source, "point 1 2");
  auto picks = Read(" figure Outside\n");
  ASSERT_TRUE(picks);
  EXPECT_EQ(picks->Next({Pick::Kind::kPosition}).fault().source, " figure Outside");
}

TEST(Picks, OfAMissingFileAreAFault) {
  EXPECT_EQ(Picks::ReadFile("/no/such/picks").fault().Message(), "/no/such/picks: cannot be read");
  EXPECT_EQ(Picks::ReadFile("/tmp").fault().Message(), "/tmp: is a folder");
}

}  // namespace
}  // namespace vanzet::drawing
