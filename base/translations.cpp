#include "base/translations.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

#include "base/letter_case.h"
#include "base/text_line_reader.h"
#include "base/utf8.h"

namespace vanzet {
namespace {

namespace fs = std::filesystem;

constexpr const char* kEnglish = "en";
constexpr std::string_view kFilePrefix = "texts.";
constexpr std::string_view kFileEnding = ".txt";

constexpr std::string_view kLanguage = "language ";
constexpr std::string_view kBlanks = " \t";

struct Escape {
  char letter;
  char character;
};
constexpr Escape kEscapes[] = {
    {'n', '\n'}, {'s', ' '}, {'\\', '\\'}, {'#', '#'}, {'[', '['}, {'=', '='},
};

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool IsLanguageCode(std::string_view code) {
  return !code.empty() && LanguageOfLocale(code) == code;
}

/// The language of a catalogue's file name, empty for other files.
std::string CodeOfFile(const std::string& name) {
  if (!name.starts_with(kFilePrefix) || !name.ends_with(kFileEnding)) return {};
  if (name.size() <= kFilePrefix.size() + kFileEnding.size()) return {};
  const std::string code =
      name.substr(kFilePrefix.size(), name.size() - kFilePrefix.size() - kFileEnding.size());
  return IsLanguageCode(code) ? code : std::string();
}

/// Reads the lines of a catalogue one by one.
class Reader {
 public:
  Reader(std::string_view text, const std::string& name)
      : text_(std::string(text)), lines_(text_, name), name_(name) {}

  Result<Translations> Read() {
    for (;;) {
      VANZET_TRY(const bool isLine, lines_.Next(source_));
      if (!isLine) break;
      line_ = Trim(source_);
      VANZET_DO(CheckUtf8());
      if (!line_.empty() && line_.front() != '#') VANZET_DO(ReadLine());
    }
    line_ = {};
    if (languageName_.empty()) return Fault{"expected 'language NAME'", name_};
    VANZET_DO(CheckComplete());
    return Translations(std::move(languageName_), std::move(sections_));
  }

 private:
  Result<void> CheckUtf8() const {
    for (std::size_t at = 0; at < source_.size();) {
      const std::size_t length = Utf8Length(std::string_view(source_).substr(at));
      if (length == 0) return FaultAt(source_.data() + at, "expected UTF-8");
      at += length;
    }
    return {};
  }

  Result<void> ReadLine() {
    if (languageName_.empty()) return ReadLanguage();
    switch (line_.front()) {
      case '[': return ReadSection();
      case '=': return ReadTranslation();
      default: return ReadEnglish();
    }
  }

  Result<void> ReadLanguage() {
    if (!line_.starts_with(kLanguage)) return FaultHere("expected 'language NAME'");
    languageName_ = Trim(line_.substr(kLanguage.size()));
    return {};
  }

  Result<void> ReadSection() {
    VANZET_DO(CheckComplete());
    if (line_.size() < 3 || line_.back() != ']') return FaultHere("expected '[section]'");
    section_ = &sections_[std::string(line_.substr(1, line_.size() - 2))];
    return {};
  }

  Result<void> ReadEnglish() {
    VANZET_DO(CheckComplete());
    if (section_ == nullptr) return FaultHere("expected '[section]' before the first text");
    VANZET_TRY(const std::string english, Unescape(line_));
    const auto [entry, isNew] = section_->try_emplace(english);
    if (!isNew) return FaultHere("this text has a translation already");
    pending_ = &entry->second;
    return {};
  }

  Result<void> ReadTranslation() {
    if (pending_ == nullptr) return FaultHere("expected an English text before its translation");
    const std::string_view text = Trim(line_.substr(1));
    if (text.empty()) return FaultHere("the translation is empty");
    VANZET_TRY(*pending_, Unescape(text));
    pending_ = nullptr;
    return {};
  }

  /// Fails when the English text that was read last has no translation yet.
  Result<void> CheckComplete() const {
    if (pending_ == nullptr) return {};
    return FaultHere("expected '= TRANSLATION' after an English text");
  }

  Result<std::string> Unescape(std::string_view text) const {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] != '\\') {
        plain += text[i];
        continue;
      }
      const char letter = i + 1 < text.size() ? text[i + 1] : '\0';
      const auto* const escape = std::ranges::find(kEscapes, letter, &Escape::letter);
      if (escape == std::end(kEscapes))
        return FaultAt(text.data() + i, R"(unknown escape: expected \n, \s, \\, \#, \[ or \=)");
      plain += escape->character;
      ++i;
    }
    return plain;
  }

  Fault FaultHere(std::string text) const { return FaultAt(line_.data(), std::move(text)); }

  /// `place` points into the line.
  Fault FaultAt(const char* place, std::string text) const {
    return lines_.At(std::move(text), line_.empty() ? 0 : static_cast<int>(place - source_.data()) + 1);
  }

  std::istringstream text_;
  TextLineReader lines_;
  const std::string& name_;
  std::string source_;     ///< the line
  std::string_view line_;  ///< the line without the blanks around it
  std::string languageName_;
  Translations::SectionTable sections_;
  Translations::Section* section_ = nullptr;
  std::string* pending_ = nullptr;  ///< the translation that has to come next
};

}  // namespace

Result<Translations> Translations::Read(std::string_view text, const std::string& name) {
  return Reader(text, name).Read();
}

std::string_view Translations::Translate(std::string_view section, std::string_view english) const {
  const auto texts = sections_.find(section);
  if (texts == sections_.end()) return english;
  const auto text = texts->second.find(english);
  return text == texts->second.end() ? english : std::string_view(text->second);
}

std::string LanguageOfLocale(std::string_view locale) {
  std::string language;
  for (const char c : locale) {
    const char small = SmallLetter(c);
    if (small < 'a' || small > 'z') break;
    language += small;
  }
  return language;
}

std::vector<Language> AvailableLanguages(const fs::path& share) {
  std::vector<Language> languages = {{kEnglish, Translations().LanguageName()}};
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(share / "messages", error)) {
    const std::string code = CodeOfFile(entry.path().filename().string());
    if (code.empty() || code == kEnglish) continue;
    const auto texts = LoadTranslations(share, code);
    if (texts) languages.push_back({code, texts->LanguageName()});
  }
  std::ranges::sort(languages.begin() + 1, languages.end(), {}, &Language::code);
  return languages;
}

Result<Translations> LoadTranslations(const fs::path& share, std::string_view code) {
  if (code == kEnglish) return Translations();
  const fs::path file =
      share / "messages" / (std::string(kFilePrefix) + std::string(code) + std::string(kFileEnding));
  std::ifstream stream;
  if (IsLanguageCode(code)) stream.open(file, std::ios::binary);
  if (!stream.is_open())
    return Fault{.text = "no texts in the language '" + std::string(code) + "'", .kind = FaultKind::kMissing};
  const std::string text(std::istreambuf_iterator<char>(stream), {});
  return Translations::Read(text, file.string());
}

}  // namespace vanzet
