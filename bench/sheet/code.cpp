#include "sheet/code.h"

#include <qrencode.h>

#include <memory>

namespace vanzet::sheet {
namespace {

constexpr int kBorder = 4;  // squares

struct FreeCode {
  void operator()(QRcode* code) const { QRcode_free(code); }
};

/// The dark squares, row by row, each run of them a rectangle.
std::string PathOf(const QRcode& code) {
  const auto isDark = [&](int x, int y) { return (code.data[y * code.width + x] & 1) != 0; };
  std::string path;
  for (int y = 0; y < code.width; ++y) {
    for (int x = 0; x < code.width; ++x) {
      if (!isDark(x, y)) continue;
      const int first = x;
      while (x < code.width && isDark(x, y)) ++x;
      const std::string run = std::to_string(x - first);
      path += "M" + std::to_string(first + kBorder) + " " + std::to_string(y + kBorder) + "h" + run + "v1h-" +
              run + "z";
    }
  }
  return path;
}

}  // namespace

std::optional<std::string> CodeSvg(const std::string& text) {
  const std::unique_ptr<QRcode, FreeCode> code(QRcode_encodeString8bit(text.c_str(), 0, QR_ECLEVEL_M));
  if (code == nullptr) return {};
  const std::string side = std::to_string(code->width + 2 * kBorder);
  return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + side + "\" height=\"" + side +
         "\" viewBox=\"0 0 " + side + " " + side + "\" shape-rendering=\"crispEdges\">\n<rect width=\"" +
         side + "\" height=\"" + side + "\" fill=\"#ffffff\"/>\n<path fill=\"#000000\" d=\"" + PathOf(*code) +
         "\"/>\n</svg>\n";
}

}  // namespace vanzet::sheet
