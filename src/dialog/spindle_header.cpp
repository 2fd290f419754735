#include "dialog/spindle_header.h"

#include "dialog/texts.h"

namespace vanzet::dialog {

std::string SpindleHeader(std::int32_t spindle, std::int32_t title, std::string_view titleText) {
  const std::string name =
      spindle == 1 ? TextByMessage(710, "Sub Spindle") : TextByMessage(704, "Main Spindle");
  return name + ": " + TextByMessage(title, titleText);
}

}  // namespace vanzet::dialog
