#include "catalogue/picture.h"

#include <algorithm>

#include "base/number_text.h"
#include "base/quote.h"
#include "base/utf8.h"
#include "base/xml_text.h"
#include "catalogue/drawn_device.h"
#include "catalogue/kinds.h"
#include "catalogue/rules.h"
#include "devices/kinds.h"

namespace vanzet::catalogue {
namespace {

constexpr double kMargin = 16, kLane = 26;

// The cells of a sheet.
constexpr double kCellWidth = 256, kCellHeight = 230, kTextOfCell = 66;
constexpr std::size_t kColumns = 4;

constexpr const char* kInk = "#20262c";
constexpr const char* kPale = "#5c6873";

std::string Number(double value) {
  return ShortDecimalText(value, 2);
}

std::string Document(double width, double height, const std::string& content) {
  const std::string size = Number(width) + "\" height=\"" + Number(height);
  return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + size + "\" viewBox=\"0 0 " + Number(width) +
         " " + Number(height) + "\" font-family=\"sans-serif\">\n<rect width=\"" + size +
         "\" fill=\"#ffffff\"/>\n" + content + "</svg>\n";
}

struct Style {
  double size;
  const char* colour;
  const char* weight = "normal";
};

std::string TextAt(double x, double y, const std::string& text, const Style& style) {
  return "<text x=\"" + Number(x) + "\" y=\"" + Number(y) + "\" font-size=\"" + Number(style.size) +
         "\" fill=\"" + style.colour + "\" font-weight=\"" + style.weight + "\">" + EscapeXml(text) +
         "</text>\n";
}

/// The beginning of a text that has this many characters, with dots for the rest.
std::string Shortened(std::string_view text, std::size_t most) {
  std::size_t bytes = 0, count = 0;
  while (bytes < text.size() && count < most) {
    bytes += std::max<std::size_t>(1, Utf8Length(text.substr(bytes)));
    ++count;
  }
  if (bytes >= text.size()) return std::string(text);
  return std::string(text.substr(0, bytes)) + "...";
}

/// The reason why a device is not drawn; empty: it is.
std::string NotDrawn(const Entry& entry) {
  if (devices::IsOwn(entry.params.type)) return "its solid is kept in a VDM";
  return ValuesRefusal(entry.params);
}

/// The kind and the letters in lines of at most this many characters.
std::vector<std::string> FactsOf(const DeviceParams& params, std::size_t most) {
  std::vector<std::string> lines = {std::string(KindWord(params.type))};
  for (const devices::Letter& letter : devices::LettersOf(params.type)) {
    const std::string text = LetterText(params, letter.letter);
    if (lines.back().size() + text.size() + 2 > most) lines.emplace_back();
    lines.back() += (lines.back().empty() ? "" : "  ") + text;
  }
  return lines;
}

std::string CellOf(const Entry& entry, double x, double y) {
  constexpr double kGap = 6, kInset = 14, kLine = 15;
  constexpr std::size_t kMostOfName = 28, kMostOfLetters = 34;
  const Frame frame{x + kGap, y + kGap, kCellWidth - 2 * kGap, kCellHeight - 2 * kGap};
  std::string svg = "<rect x=\"" + Number(frame.x) + "\" y=\"" + Number(frame.y) + "\" width=\"" +
                    Number(frame.width) + "\" height=\"" + Number(frame.height) +
                    "\" rx=\"6\" fill=\"none\" stroke=\"#c6ced6\"/>\n";
  const std::string reason = NotDrawn(entry);
  const Frame inside{frame.x + kInset, frame.y + kInset, frame.width - 2 * kInset,
                     frame.height - kInset - kTextOfCell};
  svg += reason.empty() ? DrawnDevice(entry.params, inside, 0).Svg()
                        : TextAt(inside.x, inside.y + kLine, Shortened(reason, kMostOfLetters), {11, kPale});
  double line = frame.y + frame.height - kTextOfCell + 3 * kLine / 2;
  svg += TextAt(inside.x, line, Shortened(entry.name, kMostOfName), {12, kInk, "bold"});
  for (const std::string& facts : FactsOf(entry.params, kMostOfLetters))
    svg += TextAt(inside.x, line += kLine, facts, {11, kPale});
  return svg;
}

}  // namespace

Result<std::string> PictureOf(const Entry& entry) {
  const std::string reason = NotDrawn(entry);
  if (!reason.empty()) return Fault{"the device " + Quoted(entry.name) + " cannot be drawn: " + reason};
  constexpr double kHead = 44, kFoot = 40;
  const Frame frame{kMargin, kHead, kPictureWidth - 2 * kMargin, kPictureHeight - kHead - kFoot};
  std::string svg = TextAt(kMargin, 28, Shortened(entry.name, 60), {18, kInk, "bold"});
  svg += DrawnDevice(entry.params, frame, kLane).Svg();
  svg += TextAt(kMargin, kPictureHeight - 14,
                std::string(KindWord(entry.params.type)) + ":  " + LettersText(entry.params), {13, kPale});
  return Document(kPictureWidth, kPictureHeight, svg);
}

Result<std::string> SheetOf(const std::vector<const Entry*>& entries) {
  if (entries.empty()) return Fault{"no device was found; there is nothing to draw"};
  if (entries.size() > kLargestSheet) {
    return Fault{"a sheet has room for " + std::to_string(kLargestSheet) + " devices, and there are " +
                 std::to_string(entries.size()) + "; choose fewer"};
  }
  std::string svg;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const std::size_t column = i % kColumns, row = i / kColumns;
    svg += CellOf(*entries[i], kMargin + kCellWidth * static_cast<double>(column),
                  kMargin + kCellHeight * static_cast<double>(row));
  }
  const std::size_t columns = std::min(entries.size(), kColumns),
                    rows = (entries.size() + kColumns - 1) / kColumns;
  return Document(2 * kMargin + kCellWidth * static_cast<double>(columns),
                  2 * kMargin + kCellHeight * static_cast<double>(rows), svg);
}

}  // namespace vanzet::catalogue
