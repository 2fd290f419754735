#include "drawing/picks.h"

#include <filesystem>
#include <fstream>

#include "base/numbers.h"
#include "base/path_map.h"
#include "base/quote.h"
#include "base/text_line_reader.h"
#include "contour/contour.h"

namespace vanzet::drawing {
namespace {

constexpr std::string_view kBlanks = " \t";

/// The first line of a file that says which version of the form it has; there is only one.
constexpr std::string_view kHead = "picks 1";

struct Row {
  std::string_view word;
  Pick::Kind kind;
};
constexpr Row kRows[] = {
    {"position", Pick::Kind::kPosition},
    {"figure", Pick::Kind::kFigure},
    {"object", Pick::Kind::kObject},
    {"cancel", Pick::Kind::kCancel},
};

std::string_view WordOf(Pick::Kind kind) {
  for (const Row& row : kRows) {
    if (row.kind == kind) return row.word;
  }
  return "";
}

std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Removes the first word and returns it.
std::string_view RemoveWord(std::string_view& rest) {
  const std::size_t end = std::min(rest.find_first_of(kBlanks), rest.size());
  const std::string_view word = rest.substr(0, end);
  rest = WithoutBlanks(rest.substr(end));
  return word;
}

bool ReadPosition(std::string_view rest, geometry::Point& position) {
  const auto x = WholeReal(RemoveWord(rest)), y = WholeReal(rest);
  const auto isNear = [](double v) {
    return v >= -contour::kLargestCoordinate && v <= contour::kLargestCoordinate;
  };
  if (!x || !y || !isNear(*x) || !isNear(*y)) return false;
  position = {*x, *y};
  return true;
}

/// The fault has no file and no line yet.
Result<Pick> ReadPick(std::string_view text) {
  std::string_view rest = text;
  const std::string_view word = RemoveWord(rest);
  for (const Row& row : kRows) {
    if (row.word != word) continue;
    Pick pick{row.kind};
    if (row.kind == Pick::Kind::kPosition) {
      if (ReadPosition(rest, pick.position)) return pick;
      return Fault{"expected 'position X Y' with numbers within 1e+07, found " + Quoted(text)};
    }
    if (rest.empty() == (row.kind == Pick::Kind::kCancel)) {
      pick.name = rest;
      return pick;
    }
    return Fault{rest.empty() ? "expected a name after '" + std::string(word) + "'"
                              : "expected nothing after 'cancel', found " + Quoted(rest)};
  }
  return Fault{"expected 'position X Y', 'figure NAME', 'object NAME' or 'cancel', found " + Quoted(text)};
}

}  // namespace

Result<Picks> Picks::Read(std::istream& text, const std::string& name) {
  Picks picks;
  picks.name_ = name;
  TextLineReader lines(text, name);
  for (std::string line;;) {
    VANZET_TRY(const auto next, lines.Next(line));
    if (!next) return picks;
    const std::string_view words = WithoutBlanks(line);
    if (words.empty() || words.starts_with('#')) continue;
    if (words == kHead && picks.picks_.empty()) continue;
    auto pick = ReadPick(words);
    if (!pick) return lines.At(pick.fault());
    pick->line = lines.LineNumber();
    pick->source = line;
    picks.picks_.push_back(std::move(*pick));
  }
}

Result<Picks> Picks::ReadFile(const std::string& file) {
  const std::filesystem::path path = PathMap::OfProcess().Resolve(file);
  std::error_code error;
  if (std::filesystem::is_directory(path, error)) return Fault{"is a folder", file};
  std::ifstream text(path, std::ios::binary);
  if (!text) return Fault{.text = "cannot be read", .file = file, .kind = FaultKind::kSystem};
  return Read(text, file);
}

Result<Pick> Picks::Next(const PickQuestion& asked) {
  if (picks_.empty()) return Pick{};
  Pick pick = std::move(picks_.front());
  picks_.pop_front();
  if (pick.kind == asked.kind || pick.kind == Pick::Kind::kCancel) return pick;
  return At(pick, "expected '" + std::string(WordOf(asked.kind)) + "' or 'cancel', found '" +
                      std::string(WordOf(pick.kind)) + "'");
}

}  // namespace vanzet::drawing
