#include "modeller/exchange/package_xml.h"

#include <charconv>
#include <optional>

#include "base/numbers.h"
#include "base/quote.h"
#include "base/utf8.h"

namespace vanzet::modeller {
namespace {

constexpr std::size_t kDeepest = 100;

struct NamedCharacter {
  std::string_view name;
  char character;
};
constexpr NamedCharacter kNamed[] = {{"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}};

/// The character of "amp", "#228" or "#xE4".
std::optional<std::string> CharacterOf(std::string_view name) {
  for (const NamedCharacter& each : kNamed) {
    if (each.name == name) return std::string(1, each.character);
  }
  if (!name.starts_with('#')) return std::nullopt;
  name.remove_prefix(1);
  constexpr int kDecimal = 10, kHexadecimal = 16;
  const int base = name.starts_with('x') ? kHexadecimal : kDecimal;
  if (base == kHexadecimal) name.remove_prefix(1);
  std::uint32_t code = 0;
  const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), code, base);
  if (error != std::errc() || name.empty() || end != name.data() + name.size()) return std::nullopt;
  std::string character;
  AppendUtf8(character, code);
  return character;
}

std::string_view WithoutBlanks(std::string_view text) {
  while (!text.empty() && IsWhiteSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsWhiteSpace(text.back())) text.remove_suffix(1);
  return text;
}

/// The name at the begin of a tag, without its prefix.
std::string_view NameOf(std::string_view tag) {
  const std::string_view name = tag.substr(0, tag.find_first_of(" \t\r\n/"));
  const std::size_t colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  Result<std::vector<XmlElement>> Read() {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (rest_.starts_with(kByteOrderMark)) rest_.remove_prefix(kByteOrderMark.size());
    while (!rest_.empty()) VANZET_DO(rest_.front() == '<' ? ReadMark() : ReadText());
    if (!open_.empty()) return At("is cut short in " + Quoted(elements_[open_.back()].name));
    if (elements_.empty()) return At("expected XML");
    for (XmlElement& element : elements_) element.text = WithoutBlanks(element.text);
    return std::move(elements_);
  }

 private:
  Fault At(const std::string& text) const { return {.text = text, .line = line_}; }

  void Advance(std::size_t count) {
    for (const char c : rest_.substr(0, count)) line_ += c == '\n' ? 1 : 0;
    rest_.remove_prefix(count);
  }

  Result<void> ReadMark() {
    if (rest_.starts_with("<!--")) return SkipTo("-->");
    if (rest_.starts_with("<?")) return SkipTo("?>");
    constexpr std::string_view kPlain = "<![CDATA[";
    if (rest_.starts_with(kPlain)) return ReadPlainText(kPlain.size());
    if (rest_.starts_with("<!")) return At("has a document type, which is not read");
    return ReadTag();
  }

  Result<void> SkipTo(std::string_view end) {
    const std::size_t at = rest_.find(end);
    if (at == std::string_view::npos) return At("is cut short: expected " + Quoted(end));
    Advance(at + end.size());
    return {};
  }

  Result<void> ReadPlainText(std::size_t head) {
    const std::size_t end = rest_.find("]]>");
    if (end == std::string_view::npos || open_.empty()) return At("expected the end of a text, ']]>'");
    elements_[open_.back()].text += rest_.substr(head, end - head);
    Advance(end + 3);
    return {};
  }

  /// The bytes of the tag that comes next; attributes may have its end sign.
  std::optional<std::size_t> SizeOfTag() const {
    char quote = '\0';
    for (std::size_t i = 0; i < rest_.size(); ++i) {
      const char c = rest_[i];
      if (quote != '\0') {
        quote = c == quote ? '\0' : quote;
      } else if (c == '"' || c == '\'') {
        quote = c;
      } else if (c == '>') {
        return i + 1;
      }
    }
    return std::nullopt;
  }

  Result<void> ReadTag() {
    const auto size = SizeOfTag();
    if (!size) return At("is cut short: expected '>'");
    std::string_view tag = rest_.substr(1, *size - 2);
    const bool isEnd = tag.starts_with('/');
    if (isEnd) tag.remove_prefix(1);
    const std::string_view name = NameOf(tag);
    if (name.empty()) return At("expected the name of an element");
    VANZET_DO(isEnd ? Close(name) : Open(name));
    if (!isEnd && tag.ends_with('/')) open_.pop_back();
    Advance(*size);
    return {};
  }

  Result<void> Open(std::string_view name) {
    if (open_.empty() && !elements_.empty()) return At("has a second root, " + Quoted(name));
    if (open_.size() >= kDeepest) return At("has elements within elements, more than 100 levels deep");
    const std::size_t position = elements_.size();
    elements_.push_back({std::string(name), "", open_.empty() ? position : open_.back()});
    open_.push_back(position);
    return {};
  }

  Result<void> Close(std::string_view name) {
    if (open_.empty() || elements_[open_.back()].name != name)
      return At("an element ends that has not begun, " + Quoted(name));
    open_.pop_back();
    return {};
  }

  Result<void> ReadText() {
    const std::string_view raw = rest_.substr(0, rest_.find('<'));
    if (open_.empty() && !WithoutBlanks(raw).empty()) return At("expected XML");
    for (std::size_t i = 0; i < raw.size(); ++i) {
      if (raw[i] != '&') {
        if (!open_.empty()) elements_[open_.back()].text += raw[i];
        continue;
      }
      const std::size_t end = raw.find(';', i);
      const auto character =
          end == std::string_view::npos ? std::nullopt : CharacterOf(raw.substr(i + 1, end - i - 1));
      if (!character) return At("has a character that does not exist, " + Quoted(raw.substr(i, 8)));
      elements_[open_.back()].text += *character;
      i = end;
    }
    Advance(raw.size());
    return {};
  }

  std::string_view rest_;
  int line_ = 1;
  std::vector<XmlElement> elements_;
  std::vector<std::size_t> open_;
};

}  // namespace

Result<std::vector<XmlElement>> ReadXmlElements(std::string_view text) {
  return Reader(text).Read();
}

}  // namespace vanzet::modeller
