#include "dialog/spindle_header.h"

#include "dialog/texts.h"
#include "host/message_ids.h"

namespace vanzet::dialog {

std::string SpindleHeader(std::int32_t spindle, std::int32_t title) {
  const std::string name = spindle == 1 ? TextByMessage(message::kSubSpindle, "Sub Spindle")
                                        : TextByMessage(message::kMainSpindle, "Main Spindle");
  return name + ": " + TextByMessage(title);
}

}  // namespace vanzet::dialog
