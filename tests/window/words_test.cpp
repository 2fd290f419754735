#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <set>

#include "project/message_catalogue.h"
#include "support/catalogues.h"
#include "support/places.h"
#include "support/temporary_folder.h"

namespace vanzet::test {
namespace {

/// A thing that the dialog names by a message and the window by texts of its own.
struct Thing {
  int message;
  std::vector<std::pair<const char*, const char*>> texts;  ///< section and English text
};

// clang-format off
const std::vector<Thing> kThings = {
    {  406, { { "view", "Solid" } } },
    {  700, { { "window", "Definition" }, { "window", "Equipment" }, { "view", "Equipment" } } },
    {  703, { { "section", "Clamp device" }, { "definition", "clamp device" } } },
    {  704, { { "show", "Main spindle" }, { "definition", "Main spindle" } } },
    {  705, { { "show", "Chuck" }, { "definition", "chuck" }, { "view", "Chuck" } } },
    {  706, { { "section", "Jaw" }, { "view", "Jaw" } } },
    {  707, { { "show", "Collet" }, { "definition", "collet" }, { "view", "Collet" } } },
    {  708, { { "show", "Mandrel" }, { "definition", "mandrel" }, { "view", "Mandrel" } } },
    {  709, { { "show", "Face driver" }, { "definition", "face driver" }, { "view", "Face driver" } } },
    {  710, { { "show", "Sub spindle" }, { "definition", "Sub spindle" } } },
    {  712, { { "show", "Center" }, { "section", "Center" }, { "definition", "Center" }, { "view", "Center" } } },
    {  713, { { "show", "Steady rest" }, { "section", "Steady rest" }, { "definition", "Steady rest" },
              { "definition", "steady rest" }, { "view", "Steady rest" } } },
    {  714, { { "show", "Billet" }, { "section", "Billet" }, { "definition", "billet" } } },
    {  719, { { "section", "Datum" }, { "definition", "Datum" } } },
    {  741, { { "view", "Spindle" } } },
    { 1164, { { "show", "Part length" }, { "section", "Part length" }, { "view", "Part length" } } },
    { 1166, { { "show", "Clamp diameter" }, { "section", "Clamp diameter" } } },
    { 1167, { { "show", "Angle" } } },
    { 1171, { { "show", "Finished part" }, { "section", "Finished part" }, { "definition", "finish part" } } },
    { 1175, { { "show", "Clamping out" }, { "section", "Clamping out" } } },
    { 1176, { { "show", "Clamping out" }, { "section", "Clamping out" } } },
    { 1177, { { "show", "Origin translation" } } },
};
// clang-format on

project::MessageCatalogue MessagesIn(const std::string& language) {
  const std::string name = language + ".txt";
  const auto messages =
      project::ReadMessageCatalogue(ReadBytes(VANZET_SOURCE_DIR "/share/messages/" + name), name);
  EXPECT_TRUE(messages);
  return messages ? *messages : project::MessageCatalogue();
}

/// Letters alone, small: "Mainspindle" and "Main spindle" are one word.
std::string Letters(const std::string& text) {
  std::string letters;
  for (const char c : text) {
    if (c != ' ') letters += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return letters;
}

/// Whether the dialog's text is the word, or a text about it: "Equipment Definition", "(A) Clamping out".
bool Has(const std::string& dialog, const std::string& word) {
  return Letters(dialog).find(Letters(word)) != std::string::npos;
}

TEST(Words, OfOneThingAreTheSameInDialogAndWindowInEveryLanguage) {
  for (const auto& [language, translations] : Catalogues()) {
    const project::MessageCatalogue messages = MessagesIn(language);
    for (const auto& [message, texts] : kThings) {
      ASSERT_TRUE(messages.contains(message)) << language << " " << message;
      for (const auto& [section, english] : texts) {
        const std::string word(translations.Translate(section, english));
        EXPECT_TRUE(Has(messages.at(message), word))
            << language << ": the dialog says '" << messages.at(message) << "', [" << section << "] '" << word
            << "'";
      }
    }
  }
}

// The dialog's texts are kept as they are. Everything else says what people at a lathe say.
TEST(Words, OfOneThingAreTheSameInEnglishButForTwo) {
  const project::MessageCatalogue messages = MessagesIn("en");
  std::set<std::string> others;
  for (const auto& [message, texts] : kThings) {
    for (const auto& [section, english] : texts) {
      if (!Has(messages.at(message), english)) others.insert(messages.at(message) + ": " + Letters(english));
    }
  }
  EXPECT_THAT(others, testing::ElementsAre("Bezel: steadyrest", "Finishpart: finishedpart"));
}

}  // namespace
}  // namespace vanzet::test
