#include "support/fake_host_functions.h"

#include <algorithm>
#include <cstring>
#include <sstream>

#include "platform/symbols.h"
#include "support/fake_call.h"

namespace vanzet::test {

/// What a call of the fallback gives: zero as an integer and as a real, whatever is expected of it.
struct Zero {
  long integer;
  double real;
};

namespace {

using namespace fake;

/// The place that readers have for an item; what does not fit is refused.
constexpr std::size_t kItemBytes = 5000;

template <class Map>
auto Read(const Map& map, const char* name, Int* ok) {
  const auto found = map.find(name);
  *ok = found != map.end() ? 1 : 0;
  return found != map.end() ? found->second : typename Map::mapped_type{};
}

}  // namespace
}  // namespace vanzet::test

using namespace vanzet::test;
using namespace vanzet::test::fake;

extern "C" {

// The names that a C++ identifier cannot have.
void OrvoReadGlobalStr(const char* name, char* buffer, Int* ok) __asm__("OrvoReadGlobal$");
void OrvoWriteGlobalStr(const char* name, const char* value, Int* ok) __asm__("OrvoWriteGlobal$");
void OrvoMacroVdmInsertStr(Word handle, const char* text, Int count) __asm__("OrvoMacroVdmInsert$");
void OrvoMacroVdmSingleGetStr(Word handle, char* buffer, Int count) __asm__("OrvoMacroVdmSingleGet$");
void OrvoMacroVdmSingleAddStr(Word handle, const char* text, Int count) __asm__("OrvoMacroVdmSingleAdd$");
void OrvoMacroVdmSingleReplaceStr(Word handle, const char* text,
                                  Int count) __asm__("OrvoMacroVdmSingleReplace$");

Zero OrvoMissingAPI() {
  Note("OrvoMissingAPI");
  ++Host().missingCalls;
  return {};
}

void OrvoCommand(const char* line) {
  Note("OrvoCommand", line);
  if (Host().onCommand) Host().onCommand(line);
}
void OrvoMacroExec(const char* macro, const char* arguments) {
  Note("OrvoMacroExec", macro, arguments);
  if (Host().onMacro) Host().onMacro(macro, arguments);
}

const char* OrvoEnvironment(const char* key) {
  Note("OrvoEnvironment", key);
  return Host().environment[key].c_str();
}

Int OrvoReadGlobalI(const char* name, Int* ok) {
  Note("OrvoReadGlobalI", name);
  return Read(Host().integers, name, ok);
}
double OrvoReadGlobalW(const char* name, Int* ok) {
  Note("OrvoReadGlobalW", name);
  return Read(Host().reals, name, ok);
}
void OrvoReadGlobalStr(const char* name, char* buffer, Int* ok) {
  Note("OrvoReadGlobal$", name);
  std::strcpy(buffer, Read(Host().texts, name, ok).c_str());
}
void OrvoWriteGlobalStr(const char* name, const char* value, Int* ok) {
  Note("OrvoWriteGlobal$", name, value);
  *ok = Host().texts.contains(name) ? 1 : 0;
  if (*ok != 0) Host().texts[name] = value;
}
void OrvoWriteGlobalI(const char* name, Int value, Int* ok) {
  Note("OrvoWriteGlobalI", name, value);
  Host().integers[name] = value;
  *ok = 1;
}

Int OrvoGetCurrentLayer() {
  Note("OrvoGetCurrentLayer");
  return Host().currentLayer;
}
const char* OrvoGetLayerName(Int layer) {
  Note("OrvoGetLayerName", layer);
  const auto index = static_cast<std::size_t>(layer);
  return index < Host().layers.size() ? Host().layers[index].c_str() : "";
}

const char* OrvoStrMessage(Int group, Int id, const char* defaultText) {
  Note("OrvoStrMessage", group, id, defaultText);
  const auto found = Host().translations.find(id);
  return found == Host().translations.end() ? defaultText : found->second.c_str();
}
void* OrvoGetWnd(Int selector) {
  Note("OrvoGetWnd", selector);
  return FakeHost::WindowOf(selector);
}

Int OrvoMacroVdmExists(Word vdm) {
  Note("OrvoMacroVdmExists", vdm);
  return Host().vdms.contains(vdm) ? Host().existsFlag : 0;
}
Word OrvoMacroVdmCreate(Word vdm, Int zero) {
  Note("OrvoMacroVdmCreate", vdm, zero);
  if (Host().refusesCreate) return 0xFFFFFFFF;
  Host().vdms[vdm] = {};
  return Host().vdms[vdm].handle = Host().nextHandle++;
}
Word OrvoMacroVdmOpen(Word vdm, Int one) {
  Note("OrvoMacroVdmOpen", vdm, one);
  const auto found = Host().vdms.find(vdm);
  if (Host().refusesOpen || found == Host().vdms.end()) return 0xFFFFFFFF;
  found->second.record = found->second.item = 0;
  return found->second.handle = Host().nextHandle++;
}
Int OrvoMacroVdmCheckOpen(Word vdm) {
  Note("OrvoMacroVdmCheckOpen", vdm);
  if (Host().checkOpenFlag) return *Host().checkOpenFlag;
  const auto found = Host().vdms.find(vdm);
  if (found == Host().vdms.end()) return 0;
  return found->second.handle != 0 || found->second.openElsewhere ? 1 : 0;
}
void OrvoMacroVdmClose(Word handle) {
  Note("OrvoMacroVdmClose", handle);
  if (FakeHost::Vdm* vdm = Host().Open(handle)) vdm->handle = 0;
}
void OrvoMacroVdmDelete(Word vdm) {
  Note("OrvoMacroVdmDelete", vdm);
  Host().vdms.erase(vdm);
}
Int OrvoMacroVdmSize(Word handle) {
  Note("OrvoMacroVdmSize", handle);
  const FakeHost::Vdm* vdm = Host().Open(handle);
  return vdm == nullptr ? 0 : static_cast<Int>(vdm->records.size());
}
void OrvoMacroVdmSeek(Word handle, Int record, Int origin) {
  Note("OrvoMacroVdmSeek", handle, record, origin);
  if (FakeHost::Vdm* vdm = Host().Open(handle)) {
    vdm->record = record;
    vdm->item = 0;
  }
}
void OrvoMacroVdmInsertStr(Word handle, const char* text, Int count) {
  Note("OrvoMacroVdmInsert$", handle, text, count);
  FakeHost::Vdm* vdm = Host().Open(handle);
  if (vdm == nullptr || vdm->record < 0) return;
  const auto at = std::min(static_cast<std::size_t>(vdm->record), vdm->records.size());
  vdm->records.insert(vdm->records.begin() + static_cast<std::ptrdiff_t>(at), {text});
}
void OrvoMacroVdmRemove(Word handle, Int count) {
  Note("OrvoMacroVdmRemove", handle, count);
  FakeHost::Vdm* vdm = Host().Open(handle);
  if (FakeHost::Current(vdm) != nullptr) vdm->records.erase(vdm->records.begin() + vdm->record);
}
void OrvoMacroVdmSingleSeek(Word handle, Int count) {
  Note("OrvoMacroVdmSingleSeek", handle, count);
  if (FakeHost::Vdm* vdm = Host().Open(handle)) vdm->item += std::max(count, 0);
}
void OrvoMacroVdmSingleGetStr(Word handle, char* buffer, Int count) {
  Note("OrvoMacroVdmSingleGet$", handle, count);
  *buffer = '\0';
  FakeHost::Vdm* vdm = Host().Open(handle);
  const FakeHost::Record* record = FakeHost::Current(vdm);
  if (record == nullptr || vdm->item >= static_cast<Int>(record->size())) return;
  std::strcpy(buffer, (*record)[static_cast<std::size_t>(vdm->item++)].c_str());
}
void OrvoMacroVdmSingleAddStr(Word handle, const char* text, Int count) {
  Note("OrvoMacroVdmSingleAdd$", handle, text, count);
  FakeHost::Vdm* vdm = Host().Open(handle);
  FakeHost::Record* record = FakeHost::Current(vdm);
  if (record == nullptr || std::strlen(text) >= kItemBytes) return;
  vdm->item = std::min(vdm->item, static_cast<Int>(record->size()));
  record->insert(record->begin() + vdm->item++, text);
}
void OrvoMacroVdmSingleReplaceStr(Word handle, const char* text, Int count) {
  Note("OrvoMacroVdmSingleReplace$", handle, text, count);
  FakeHost::Vdm* vdm = Host().Open(handle);
  FakeHost::Record* record = FakeHost::Current(vdm);
  if (record == nullptr || vdm->item >= static_cast<Int>(record->size())) return;
  if (std::strlen(text) >= kItemBytes) return;
  (*record)[static_cast<std::size_t>(vdm->item)] = text;
}
void OrvoMacroVdmSingleDelete(Word handle, Int count) {
  Note("OrvoMacroVdmSingleDelete", handle, count);
  FakeHost::Vdm* vdm = Host().Open(handle);
  FakeHost::Record* record = FakeHost::Current(vdm);
  if (record == nullptr || count <= 0) return;
  const Int last = std::min(vdm->item + count, static_cast<Int>(record->size()));
  record->erase(record->begin() + std::min(vdm->item, last), record->begin() + last);
}

}  // extern "C"

namespace vanzet::test {

void* FakeFunction(const char* name) {
  return platform::FindSymbol(nullptr, name);
}

}  // namespace vanzet::test
