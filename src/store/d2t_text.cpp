#include "store/d2t_text.h"

#include "macro/command_text.h"

namespace vanzet {
namespace {

constexpr std::string_view kHead[] = {
    "[Tool]\n", "Name=000004\n", "[Mounting]\n", "Reference=G54 X0 Y0 Z0 I1 J0 K0 A90\n", "[Holder1]\n",
};

}  // namespace

std::span<const std::string_view> D2tHead() {
  return kHead;
}

std::string D2tLine(const D2tElement& element, bool isFirst, bool isLast) {
  std::string line = isFirst ? "Contour=G0" : "        G" + macro::FormatInt(element.gCode);
  line += " X" + macro::FormatReal(element.x) + " Y" + macro::FormatReal(element.y);
  if (element.gCode > 1) line += " R" + macro::FormatReal(element.radius);
  return line + (isLast ? "\n" : " \\\n");
}

}  // namespace vanzet
