#include "catalogue/picture.h"

#include <regex>

#include "base/numbers.h"
#include "catalogue/kinds.h"
#include "devices/kinds.h"
#include "shop_catalogue/shop_fixture.h"

namespace vanzet::test {
namespace {

using namespace catalogue;
using testing::HasSubstr;
using testing::Not;

/// The example of a kind.
Entry ExampleOf(const std::string& word) {
  const devices::Device& device = *devices::Find(TypesOfWord(word).front());
  return {.name = "An <odd> " + word, .params = device.example};
}

/// The numbers of all paths and places of a picture.
std::vector<double> NumbersOf(const std::string& svg) {
  static const std::regex kPlaces("(?: [xy]| d)=\"([^\"]*)\"");
  static const std::regex kNumber("-?[0-9.]+");
  std::vector<double> numbers;
  for (std::sregex_iterator place(svg.begin(), svg.end(), kPlaces), end; place != end; ++place) {
    const std::string text = (*place)[1];
    for (std::sregex_iterator number(text.begin(), text.end(), kNumber); number != end; ++number)
      numbers.push_back(RealOrZero(number->str()));
  }
  return numbers;
}

TEST(CataloguePicture, ShowsEachDimensionOfEachKindInsideThePicture) {
  for (const std::string& word : ParametricWords()) {
    const Entry entry = ExampleOf(word);
    const auto svg = PictureOf(entry);
    ASSERT_TRUE(svg) << svg.fault().text;
    EXPECT_THAT(*svg, HasSubstr("An &lt;odd&gt; " + word));
    for (const devices::Measure& measure : devices::Find(entry.params.type)->measures) {
      const bool isHalf = word.starts_with("centre") && measure.letter == 'E';
      EXPECT_THAT(*svg, HasSubstr(">" + std::string(1, measure.letter) + (isHalf ? "/2 " : " "))) << word;
    }
    for (const double number : NumbersOf(*svg)) {
      EXPECT_GE(number, 0) << word;
      EXPECT_LE(number, kPictureWidth) << word;
    }
  }
}

TEST(CataloguePicture, RefusesADeviceWithoutAnOutline) {
  EXPECT_FALSE(PictureOf({.name = "own", .params = {.type = 103, .B = 5}}));
  const auto none = PictureOf({.name = "bad", .params = ChuckOf(80, 90, 100)});
  ASSERT_FALSE(none);
  EXPECT_THAT(none.fault().text, HasSubstr("C (100) must be less than A (80)"));
}

TEST(CatalogueSheet, HasACellForEachDevice) {
  std::vector<Entry> entries;
  for (const std::string& word : ParametricWords()) entries.push_back(ExampleOf(word));
  entries.push_back({.name = "own", .params = {.type = 103, .B = 5}});
  std::vector<const Entry*> chosen;
  for (const Entry& entry : entries) chosen.push_back(&entry);
  const auto svg = SheetOf(chosen);
  ASSERT_TRUE(svg);
  for (const Entry& entry : entries)
    EXPECT_THAT(*svg, HasSubstr(entry.name.substr(entry.name.rfind(' ') + 1) + "<")) << entry.name;
  EXPECT_THAT(*svg, HasSubstr("its solid is kept in a VDM"));
}

TEST(CatalogueSheet, ShortensALongNameBetweenCharacters) {
  std::string name;
  for (int i = 0; i < 40; ++i) name += "ü";
  const Entry entry{.name = name, .params = ChuckOf(80, 90, 20)};
  const auto svg = SheetOf({&entry});
  ASSERT_TRUE(svg);
  EXPECT_THAT(*svg, HasSubstr("üü..."));
  EXPECT_THAT(*svg, Not(HasSubstr(name)));
}

TEST(CatalogueSheet, RefusesNoDevicesAndTooMany) {
  EXPECT_FALSE(SheetOf({}));
  const Entry entry{.name = "a", .params = ChuckOf(80, 90, 20)};
  EXPECT_FALSE(SheetOf(std::vector<const Entry*>(kLargestSheet + 1, &entry)));
}

}  // namespace
}  // namespace vanzet::test
