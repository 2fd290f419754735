#include "project/message_catalogue.h"

#include <sstream>

#include "base/ini.h"
#include "base/numbers.h"

namespace vanzet::project {

Result<MessageCatalogue> ReadMessageCatalogue(const std::string& text, const std::string& name) {
  std::istringstream stream(text);
  IniReader reader(stream);
  IniLine line;
  MessageCatalogue messages;
  const auto fault = [&](std::string problem) {
    return Fault{std::move(problem), name, reader.LineNumber()};
  };
  while (reader.Next(line)) {
    if (line.kind == IniLine::Kind::kNothing) continue;
    if (line.kind != IniLine::Kind::kEntry) return fault("expected 'id = text'");
    const auto id = WholeInteger(line.name);
    if (!id || *id < 0)
      return fault("expected the number of a message, found '" + std::string(line.name) + "'");
    if (line.value.empty()) return fault("the text is missing");
    if (!messages.emplace(*id, line.value).second) return fault("this message has a text already");
  }
  return messages;
}

}  // namespace vanzet::project
