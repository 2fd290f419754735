#include "support/catalogues.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <regex>
#include <string_view>

#include "support/places.h"
#include "support/temporary_folder.h"

namespace vanzet::test {
namespace {

namespace fs = std::filesystem;

/// The character that a backslash and a letter stand for in a literal.
char Unescape(char letter) {
  switch (letter) {
    case 'n': return '\n';
    case '"':
    case '\\': return letter;
    default: ADD_FAILURE() << "an escape that these tests do not read: \\" << letter; return letter;
  }
}

/// The literals that `source` begins with, one behind the other, as one text.
std::string LiteralAt(std::string_view source) {
  std::string text;
  bool isInside = false;
  for (std::size_t i = 0; i < source.size(); ++i) {
    const char c = source[i];
    if (c == '"') {
      isInside = !isInside;
    } else if (isInside) {
      text += c == '\\' ? Unescape(source[++i]) : c;
    } else if (c != ' ' && c != '\n') {
      break;
    }
  }
  return text;
}

/// The places for values that a program fills in.
std::multiset<std::string> PlacesOf(const std::string& text) {
  static const std::regex kPlace("%[1-9]");
  std::multiset<std::string> places;
  for (std::sregex_iterator place(text.begin(), text.end(), kPlace), end; place != end; ++place)
    places.insert(place->str());
  return places;
}

}  // namespace

const std::map<std::string, Translations>& Catalogues() {
  static const std::map<std::string, Translations> kCatalogues = [] {
    static const std::regex kFile(R"(texts\.([a-z]+)\.txt)");
    std::map<std::string, Translations> catalogues;
    for (const fs::directory_entry& entry : fs::directory_iterator(VANZET_SOURCE_DIR "/share/messages")) {
      std::smatch parts;
      const std::string name = entry.path().filename().string();
      if (!std::regex_match(name, parts, kFile)) continue;
      auto translations = LoadTranslations(VANZET_SOURCE_DIR "/share", parts.str(1));
      EXPECT_TRUE(translations) << translations.fault().Message();
      if (translations) catalogues.emplace(parts.str(1), std::move(*translations));
    }
    return catalogues;
  }();
  return kCatalogues;
}

std::set<std::string> MarkedTexts(const std::string& folder) {
  static const std::regex kMark(R"(\b(Translatable|Translate)\(\s*(?="))");
  std::set<std::string> texts;
  for (const auto& entry : fs::recursive_directory_iterator(VANZET_SOURCE_DIR "/" + folder)) {
    const std::string ending = entry.path().extension().string();
    if (ending != ".cpp" && ending != ".h") continue;
    const std::string source = ReadBytes(entry.path());
    for (std::sregex_iterator mark(source.begin(), source.end(), kMark), end; mark != end; ++mark) {
      const auto at = static_cast<std::size_t>(mark->position() + mark->length());
      texts.insert(LiteralAt(std::string_view(source).substr(at)));
    }
  }
  return texts;
}

void ExpectTranslated(const std::string& section, const std::set<std::string>& texts) {
  EXPECT_FALSE(Catalogues().empty());
  for (const auto& [code, catalogue] : Catalogues()) {
    std::set<std::string> found;
    const auto entries = catalogue.Sections().find(section);
    ASSERT_NE(entries, catalogue.Sections().end()) << code;
    for (const auto& [english, translation] : entries->second) {
      found.insert(english);
      EXPECT_EQ(PlacesOf(translation), PlacesOf(english)) << code << ": " << english;
    }
    EXPECT_THAT(found, testing::ContainerEq(texts)) << code;
  }
}

}  // namespace vanzet::test
