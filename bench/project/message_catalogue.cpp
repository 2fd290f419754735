#include "project/message_catalogue.h"

#include "base/ini.h"
#include "base/numbers.h"
#include "base/quote.h"
#include "base/text_stream.h"

namespace vanzet::project {

Result<MessageCatalogue> ReadMessageCatalogue(const std::string& text, const std::string& name) {
  TextStream stream(text);
  IniReader reader(stream, name);
  IniLine line;
  MessageCatalogue messages;
  while (reader.Next(line)) {
    if (line.kind == IniLine::Kind::kNothing) continue;
    if (line.kind != IniLine::Kind::kEntry) return reader.At("expected 'id = text'");
    const auto id = WholeInteger(line.name);
    if (!id || *id < 0) {
      return reader.At("expected the number of a message, found " + Quoted(line.name), line.name);
    }
    if (line.value.empty()) return reader.At("the text is missing", line.value);
    if (!messages.emplace(*id, line.value).second) return reader.At("this message already has a text");
  }
  return messages;
}

}  // namespace vanzet::project
