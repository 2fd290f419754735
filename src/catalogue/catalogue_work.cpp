#include "catalogue/catalogue_work.h"

#include <string_view>

#include "catalogue/catalogue_lines.h"
#include "host/bridge.h"
#include "host/message_ids.h"
#include "host/messages.h"
#include "platform/message_box.h"

namespace vanzet {
namespace {

using platform::answer::kYes;
using platform::box::kQuestionIcon;
using platform::box::kYesNo;

std::string Text(std::int32_t id) {
  std::string text;
  host::TextMessage(id, host::DefaultText(id), text);
  return text;
}

bool SaysYes(const std::string& question, std::int32_t type = kYesNo) {
  return host::HostMessageBox("", question, type) == kYes;
}

/// The text with every '#' replaced by the path, which may hold some itself.
std::string WithPath(std::string_view text, const std::string& path) {
  std::string shown;
  for (const char c : text) {
    if (c == '#') {
      shown += path;
    } else {
      shown += c;
    }
  }
  return shown;
}

/// Asks about the file that could not be used; true when the user has chosen another one.
bool SearchesFile(CDevice& catalogue, bool forReading, void* owner) {
  return SaysYes(WithPath(Text(message::kNoCatalogue), catalogue.path()), kYesNo + kQuestionIcon) &&
         catalogue.SelectFile(forReading, owner);
}

/// The catalogue of the file as it is now, empty; it is read next.
CDevice FreshCatalogue(const CDevice& dialogs) {
  CDevice fresh;
  fresh.SetPath(dialogs.path());
  return fresh;
}

}  // namespace

void ReadCatalogueAtStart(CDevice& dialogs, void* owner) {
  while (!dialogs.ReadFile() && SearchesFile(dialogs, true, owner)) {
    host::SendCommand("file a '' $_project 'CLAMP_DB_PATH' '" + dialogs.path() + "'");
  }
}

void SaveDeviceToCatalogue(CDevice& dialogs, const std::string& typedName, const std::string& valueLine,
                           void* owner, const std::function<void()>& refill) {
  const std::string name = OneCatalogueLine(typedName);
  dialogs.PutDevice(name, valueLine);
  refill();
  CDevice fresh = FreshCatalogue(dialogs);
  while (!fresh.ReadFile() && SearchesFile(fresh, true, owner)) {
  }
  if (fresh.HasDevice(name) && !SaysYes(Text(message::kOverwriteDevice))) return;
  fresh.PutDevice(name, valueLine);
  while (!fresh.WriteFile() && SearchesFile(fresh, false, owner)) {
  }
}

void DeleteDeviceFromCatalogue(CDevice& dialogs, const std::string& typedName,
                               const std::function<void()>& refill) {
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the refill empties what was typed
  const std::string name = typedName;
  if (!SaysYes(Text(message::kDeleteDevice))) return;
  dialogs.RemoveDevice(name);
  refill();
  CDevice fresh = FreshCatalogue(dialogs);
  if (!fresh.ReadFile()) return;
  fresh.RemoveDevice(name);
  fresh.WriteFile();
}

}  // namespace vanzet
