#include <algorithm>

#include "api/call.h"
#include "api/exports.h"

using namespace vanzet;
using namespace vanzet::api;

namespace {

/// The result of a call that cannot return a handle.
constexpr std::uint32_t kNoHandle = 0xFFFFFFFF;

std::int32_t FlagOf(Host& host, const Result<bool>& state) {
  return Succeeded(host, state) && *state ? 1 : 0;
}

std::uint32_t HandleOrNone(Host& host, const Result<vdm::Handle>& handle) {
  return Succeeded(host, handle) ? static_cast<std::uint32_t>(*handle) : kNoHandle;
}

/// Runs `work` on the open VDM of a handle; a handle that is not open is ignored.
template <class Work>
void OnOpen(const char* name, Arguments arguments, std::uint32_t handle, Work work) {
  Answer(name, arguments, [&](Host& host, Json&) {
    if (vdm::OpenVdm* const open = host.store.Find(vdm::Handle{handle})) work(host, *open);
  });
}

}  // namespace

extern "C" {

std::int32_t OrvoMacroVdmExists(std::uint32_t vdm) {
  return Answer("OrvoMacroVdmExists", {vdm},
                [&](Host& host, Json&) { return FlagOf(host, host.store.Exists(vdm)); });
}

std::uint32_t OrvoMacroVdmCreate(std::uint32_t vdm, std::int32_t zero) {
  return Answer("OrvoMacroVdmCreate", {vdm, zero},
                [&](Host& host, Json&) { return HandleOrNone(host, host.store.Create(vdm)); });
}

std::uint32_t OrvoMacroVdmOpen(std::uint32_t vdm, std::int32_t one) {
  return Answer("OrvoMacroVdmOpen", {vdm, one},
                [&](Host& host, Json&) { return HandleOrNone(host, host.store.Open(vdm)); });
}

std::int32_t OrvoMacroVdmCheckOpen(std::uint32_t vdm) {
  return Answer("OrvoMacroVdmCheckOpen", {vdm},
                [&](Host& host, Json&) { return FlagOf(host, host.store.IsOpen(vdm)); });
}

void OrvoMacroVdmClose(std::uint32_t handle) {
  Answer("OrvoMacroVdmClose", {handle}, [&](Host& host, Json&) { host.store.Close(vdm::Handle{handle}); });
}

void OrvoMacroVdmDelete(std::uint32_t vdm) {
  Answer("OrvoMacroVdmDelete", {vdm}, [&](Host& host, Json&) { ReportFault(host, host.store.Delete(vdm)); });
}

std::int32_t OrvoMacroVdmSize(std::uint32_t handle) {
  return Answer("OrvoMacroVdmSize", {handle}, [&](Host& host, Json&) {
    return static_cast<std::int32_t>(host.store.Size(vdm::Handle{handle}));
  });
}

void OrvoMacroVdmSeek(std::uint32_t handle, std::int32_t record, std::int32_t origin) {
  OnOpen("OrvoMacroVdmSeek", {handle, record, origin}, handle,
         [&](Host&, vdm::OpenVdm& open) { open.Seek(record); });
}

void OrvoMacroVdmInsertText(std::uint32_t handle, const char* text, std::int32_t count) {
  OnOpen("OrvoMacroVdmInsert$", {handle, TextOf(text), count}, handle,
         [&](Host& host, vdm::OpenVdm& open) { ReportFault(host, open.Insert(TextOf(text))); });
}

void OrvoMacroVdmRemove(std::uint32_t handle, std::int32_t count) {
  OnOpen("OrvoMacroVdmRemove", {handle, count}, handle,
         [&](Host&, vdm::OpenVdm& open) { open.Remove(count); });
}

void OrvoMacroVdmSingleSeek(std::uint32_t handle, std::int32_t count) {
  OnOpen("OrvoMacroVdmSingleSeek", {handle, count}, handle,
         [&](Host& host, vdm::OpenVdm& open) { ReportFault(host, open.SingleSeek(count)); });
}

void OrvoMacroVdmSingleGetText(std::uint32_t handle, char* buffer, std::int32_t count) {
  Put(buffer, '\0');
  Answer("OrvoMacroVdmSingleGet$", {handle, count}, [&](Host& host, Json& out) {
    vdm::OpenVdm* const open = host.store.Find(vdm::Handle{handle});
    const auto item = open == nullptr ? Result<std::string_view>(std::string_view()) : open->SingleGet();
    if (!Succeeded(host, item)) return;
    if (buffer != nullptr) *std::ranges::copy(*item, buffer).out = '\0';
    out = {*item};
  });
}

void OrvoMacroVdmSingleAddText(std::uint32_t handle, const char* text, std::int32_t count) {
  OnOpen("OrvoMacroVdmSingleAdd$", {handle, TextOf(text), count}, handle,
         [&](Host& host, vdm::OpenVdm& open) { ReportFault(host, open.SingleAdd(TextOf(text))); });
}

void OrvoMacroVdmSingleReplaceText(std::uint32_t handle, const char* text, std::int32_t count) {
  OnOpen("OrvoMacroVdmSingleReplace$", {handle, TextOf(text), count}, handle,
         [&](Host& host, vdm::OpenVdm& open) { ReportFault(host, open.SingleReplace(TextOf(text))); });
}

void OrvoMacroVdmSingleDelete(std::uint32_t handle, std::int32_t count) {
  OnOpen("OrvoMacroVdmSingleDelete", {handle, count}, handle,
         [&](Host& host, vdm::OpenVdm& open) { ReportFault(host, open.SingleDelete(count)); });
}
}
