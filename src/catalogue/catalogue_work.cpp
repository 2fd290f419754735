#include "catalogue/catalogue_work.h"

#include <optional>
#include <string_view>
#include <vector>

#include "catalogue/catalogue_lines.h"
#include "host/bridge.h"
#include "host/message_ids.h"
#include "host/messages.h"
#include "platform/host_extensions.h"
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

/// A shop without a catalogue, and one whose catalogue is another's to change, need not be told.
bool IsUsual(const Fault& ofReading, const CDevice& catalogue) {
  return ofReading.kind == FaultKind::kMissing || catalogue.MayOnlyBeRead();
}

/// Reads the file, or another one that the user chooses, and calls `onChosen` with that. The host is given
/// the reason when the user chooses no other and the reason is not a usual one.
void ReadSomeFile(CDevice& catalogue, void* owner, const std::function<void()>& onChosen) {
  while (true) {
    const auto read = catalogue.ReadFile();
    if (read) return;
    if (!SearchesFile(catalogue, true, owner)) {
      if (!IsUsual(read.fault(), catalogue)) platform::ReportFault(read.fault());
      return;
    }
    onChosen();
  }
}

/// The catalogue of the file as it is now, empty; it is read next.
CDevice FreshCatalogue(const CDevice& dialogs) {
  CDevice fresh;
  fresh.SetPath(dialogs.path());
  return fresh;
}

/// A device that goes into a file of catalogues.
struct NewDevice {
  const std::string& name;
  const std::string& valueLine;
  bool mayReplace;  ///< the user was asked, or the name was not there
};

/// Writes the device into the file that was read before. False, with nothing written, when the name is there
/// and must not be replaced.
Result<bool> PutIntoFile(const NewDevice& device, CDevice& file) {
  return file.ChangeFile([&] {
    if (!device.mayReplace && file.HasDevice(device.name)) return false;
    file.PutDevice(device.name, device.valueLine);
    return true;
  });
}

/// Writes the content over a file that the user chose for it.
Result<bool> PutIntoOtherFile(const CDevice& content, CDevice& file) {
  return file.ChangeFile([&] {
    file.TakeLinesOf(content);
    return true;
  });
}

bool AsksToReplace() {
  return SaysYes(Text(message::kOverwriteDevice));
}

Result<bool> RemoveFromFile(const std::string& name, CDevice& file) {
  VANZET_DO(file.ReadFile());
  return file.ChangeFile([&] {
    file.RemoveDevice(name);
    return true;
  });
}

/// Tries until the device is in a file or the user gives up; then the host is given the reasons.
void SaveInSomeFile(NewDevice device, CDevice& file, void* owner) {
  const std::string readFrom = file.path();
  std::optional<CDevice> content;  ///< of the first file, once it could not be written
  std::vector<Fault> faults;
  while (true) {
    const bool isOther = file.path() != readFrom;
    const auto done = isOther ? PutIntoOtherFile(*content, file) : PutIntoFile(device, file);
    if (done && (*done || !AsksToReplace())) return;
    device.mayReplace = device.mayReplace || done;
    if (done) continue;
    faults.push_back(done.fault());
    if (!content) content.emplace(file).PutDevice(device.name, device.valueLine);
    file.TakeLinesOf(*content);
    if (!SearchesFile(file, false, owner)) break;
  }
  for (const Fault& fault : faults) platform::ReportFault(fault);
}

}  // namespace

void ReadCatalogueAtStart(CDevice& dialogs, void* owner) {
  ReadSomeFile(dialogs, owner,
               [&] { host::SendCommand("file a '' $_project 'CLAMP_DB_PATH' '" + dialogs.path() + "'"); });
}

void SaveDeviceToCatalogue(CDevice& dialogs, const std::string& typedName, const std::string& valueLine,
                           void* owner, const std::function<void()>& refill) {
  const std::string name = OneCatalogueLine(typedName);
  dialogs.PutDevice(name, valueLine);
  refill();
  CDevice fresh = FreshCatalogue(dialogs);
  ReadSomeFile(fresh, owner, [] {});
  const bool isKnown = fresh.HasDevice(name);
  if (isKnown && !AsksToReplace()) return;
  SaveInSomeFile({.name = name, .valueLine = valueLine, .mayReplace = isKnown}, fresh, owner);
}

void DeleteDeviceFromCatalogue(CDevice& dialogs, const std::string& typedName,
                               const std::function<void()>& refill) {
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): the refill empties what was typed
  const std::string name = typedName;
  if (!SaysYes(Text(message::kDeleteDevice))) return;
  dialogs.RemoveDevice(name);
  refill();
  CDevice fresh = FreshCatalogue(dialogs);
  if (const auto removed = RemoveFromFile(name, fresh); !removed) platform::ReportFault(removed.fault());
}

}  // namespace vanzet
