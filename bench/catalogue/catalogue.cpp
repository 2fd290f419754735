#include "catalogue/catalogue.h"

#include <algorithm>

#include "base/number_text.h"
#include "base/numbers.h"
#include "base/quote.h"
#include "catalogue/kinds.h"
#include "devices/kinds.h"

namespace vanzet::catalogue {
namespace {

constexpr int kDecimals = 6;

/// The reals that a device kept in a VDM writes: A and B.
constexpr std::size_t kOwnReals = 2;

/// A line of the file: its text, and all of its bytes.
struct Line {
  std::string_view text, bytes;
  int number;
};

std::string_view WithoutReturns(std::string_view line) {
  return line.substr(0, line.find_last_not_of('\r') + 1);
}

/// Takes the lines of a text one after the other. What is longer than a line may be counts as several, all
/// with the number of the line that they are in.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : rest_(text) {}

  bool Next(Line& line) {
    if (rest_.empty()) return false;
    if (atStart_) ++number_;
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    const std::string_view text = WithoutReturns(rest_.substr(0, end));
    atStart_ = text.size() <= kLongestLine;
    const std::size_t used = atStart_ ? std::min(end + 1, rest_.size()) : kLongestLine;
    line = {WithoutReturns(text.substr(0, kLongestLine)), rest_.substr(0, used), number_};
    rest_.remove_prefix(used);
    return true;
  }

 private:
  std::string_view rest_;
  int number_ = 0;
  bool atStart_ = true;  ///< the rest begins a line of the file
};

/// The device of a value line. A field that is missing or not a number is 0; those after the last letter of
/// the type are not read.
DeviceParams ParamsOf(std::string_view values) {
  const auto take = [&values](const auto& number) {
    if (number) values.remove_prefix(number->used);
    return number ? number->value : 0;
  };
  DeviceParams params{.type = devices::NewerCode(take(IntegerPrefix(values)))};
  const auto letters = devices::LettersOf(params.type);
  if (letters.empty()) return params;
  for (char letter = 'A'; letter <= letters.back().letter; ++letter) {
    LetterOf(params, letter) = take(RealPrefix(values));
  }
  // Kinds that have all letters up to their last one have nothing else to be left out.
  const auto last = static_cast<std::size_t>(letters.back().letter - 'A');
  return letters.size() == last + 1 ? params : Normalised(params);
}

Entry EntryOf(const Line& name, const Line* values) {
  Entry entry{.name = std::string(name.text),
              .params = {},
              .line = name.number,
              .hasValues = values != nullptr,
              .bytes = name.bytes,
              .valuesAt = name.bytes.size()};
  if (values == nullptr) return entry;
  // Both lines are next to each other in the text.
  entry.bytes = {name.bytes.data(), name.bytes.size() + values->bytes.size()};
  entry.valuesSize = values->text.size();
  entry.params = ParamsOf(values->text);
  return entry;
}

void EndLine(std::string& bytes, std::string_view lineEnd) {
  if (!bytes.ends_with('\n')) bytes += lineEnd;
}

bool IsNumberLike(std::string_view field) {
  return field.find_first_not_of("0123456789+-.,eE") == std::string_view::npos;
}

std::string_view TakeField(std::string_view& rest) {
  const auto isSpace = [](char c) { return IsWhiteSpace(c); };
  const auto* const start = std::ranges::find_if_not(rest, isSpace);
  const auto* const end = std::find_if(start, rest.end(), isSpace);
  const std::string_view field(start, end);
  rest = std::string_view(end, rest.end());
  return field;
}

/// True for a type of the table and numbers, in whatever form a program once wrote them.
bool IsOfDevice(std::string_view values) {
  const auto type = WholeInteger(TakeField(values));
  if (!type || devices::KindOf(*type) == nullptr) return false;
  for (std::string_view field = TakeField(values); !field.empty(); field = TakeField(values)) {
    if (!IsNumberLike(field)) return false;
  }
  return true;
}

bool IsBlank(const Entry& entry) {
  return entry.name.empty() && entry.Values().empty();
}

}  // namespace

Catalogue Catalogue::Read(std::string text) {
  Catalogue catalogue;
  const std::string_view kept = catalogue.Keep(std::move(text));
  const std::size_t end = kept.find('\n');
  if (end != std::string_view::npos && end > 0 && kept[end - 1] == '\r') catalogue.lineEnd_ = "\r\n";
  constexpr std::size_t kUsualBytes = 100;
  catalogue.entries_.reserve(kept.size() / kUsualBytes + 1);
  LineReader reader(kept);
  for (Line name, values; reader.Next(name);) {
    catalogue.entries_.push_back(EntryOf(name, reader.Next(values) ? &values : nullptr));
  }
  return catalogue;
}

std::string_view Catalogue::Keep(std::string bytes) {
  return *texts_.emplace_back(std::make_shared<const std::string>(std::move(bytes)));
}

/// Replaces the values of an entry; one without a value line gets it.
void Catalogue::SetValues(Entry& entry, const DeviceParams& params) {
  std::string bytes(entry.bytes);
  if (!entry.hasValues) {
    EndLine(bytes, lineEnd_);
    entry.valuesAt = bytes.size();
    bytes += lineEnd_;
    entry.hasValues = true;
  }
  const std::string values = ValueLineOf(params);
  bytes.replace(entry.valuesAt, entry.valuesSize, values);
  entry.bytes = Keep(std::move(bytes));
  entry.valuesSize = values.size();
  entry.params = Normalised(params);
}

const Entry* Catalogue::Find(std::string_view name) const {
  const auto found = Positions().find(std::string(name));
  return found == positions_.end() ? nullptr : &entries_[found->second];
}

std::unordered_map<std::string, std::size_t>& Catalogue::Positions() const {
  if (!positions_.empty() || entries_.empty()) return positions_;
  positions_.reserve(entries_.size());
  for (std::size_t i = 0; i < entries_.size(); ++i) positions_.try_emplace(entries_[i].name, i);
  return positions_;
}

Result<void> Catalogue::EndLast() {
  if (!entries_.empty() && !entries_.back().hasValues) {
    return Fault{"the device " + Quoted(entries_.back().name) + " has no value line; remove it first", "",
                 entries_.back().line};
  }
  if (!entries_.empty() && !entries_.back().bytes.ends_with('\n'))
    entries_.back().bytes = Keep(std::string(entries_.back().bytes) + std::string(lineEnd_));
  return {};
}

Result<void> Catalogue::Put(const std::string& name, const DeviceParams& params) {
  if (const auto found = Positions().find(name); found != positions_.end()) {
    SetValues(entries_[found->second], params);
    return {};
  }
  VANZET_DO(EndLast());
  positions_.emplace(name, entries_.size());
  const std::string_view nameLine = Keep(name + std::string(lineEnd_));
  SetValues(entries_.emplace_back(Entry{.name = name, .params = {}, .hasValues = false, .bytes = nameLine}),
            params);
  return {};
}

bool Catalogue::Remove(std::string_view name) {
  const auto found = Positions().find(std::string(name));
  if (found == positions_.end()) return false;
  entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(found->second));
  positions_.clear();
  return true;
}

bool Catalogue::Rename(std::string_view name, const std::string& newName) {
  const auto found = Positions().find(std::string(name));
  if (found == positions_.end()) return false;
  Entry& entry = entries_[found->second];
  entry.bytes = Keep(newName + std::string(entry.bytes.substr(entry.name.size())));
  entry.valuesAt += newName.size() - entry.name.size();
  entry.name = newName;
  positions_.clear();
  return true;
}

Result<void> Catalogue::Insert(std::size_t position, Entry entry) {
  std::string bytes(entry.bytes);
  if (position < entries_.size() && entry.hasValues) {
    EndLine(bytes, lineEnd_);
  } else {
    VANZET_DO(EndLast());
    position = entries_.size();
  }
  entry.bytes = Keep(std::move(bytes));
  entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(position), std::move(entry));
  positions_.clear();
  return {};
}

std::vector<std::string> Catalogue::Names() const {
  std::vector<std::string> names;
  for (const Entry& entry : entries_) {
    if (Find(entry.name) == &entry) names.push_back(entry.name);
  }
  return names;
}

std::string Catalogue::Text() const {
  std::string text;
  for (const Entry& entry : entries_) text += entry.bytes;
  return text;
}

Catalogue Catalogue::ShownIn(LengthUnit unit) const {
  Catalogue shown = *this;
  for (Entry& entry : shown.entries_) entry.params = catalogue::ShownIn(entry.params, unit);
  return shown;
}

Result<void> CheckIsCatalogue(const Catalogue& catalogue, const std::string& file) {
  if (std::ranges::all_of(catalogue.entries(), IsBlank)) return {};
  std::size_t pairs = 0, devices = 0;
  int firstOther = 0;
  for (const Entry& entry : catalogue.entries()) {
    const bool isDevice = entry.hasValues && IsOfDevice(entry.Values());
    if (entry.hasValues) ++pairs;
    if (isDevice) ++devices;
    if (!isDevice && entry.hasValues && firstOther == 0) firstOther = entry.ValuesLine();
  }
  if (devices > pairs - devices) return {};
  return Fault{"expected the values of a device; a file that is not a catalogue is not changed", file,
               std::max(firstOther, 1)};
}

std::string ValueLineOf(const DeviceParams& params) {
  std::string line = std::to_string(params.type);
  const std::size_t count = devices::IsOwn(params.type) ? kOwnReals : kDeviceReals.size();
  for (std::size_t i = 0; i < count; ++i) line += " " + FixedText(params.*kDeviceReals[i], kDecimals);
  return line;
}

}  // namespace vanzet::catalogue
