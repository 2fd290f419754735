#include <algorithm>

#include "api/call.h"
#include "api/exports.h"
#include "modeller/measures.h"

using namespace vanzet;
using namespace vanzet::api;

namespace {

constexpr std::int32_t kNoBody = 0;

/// Asks for a body and returns its number, or 0 for a pick that is cancelled or fails.
std::int32_t PickBody(std::string_view prompt, Host& host) {
  const auto pick = host.picks->Next({drawing::Pick::Kind::kObject, std::string(prompt)});
  if (!Succeeded(host, pick) || pick->kind != drawing::Pick::Kind::kObject) return kNoBody;
  const auto body = host.FindBody(pick->name);
  if (body) return *body;
  host.panel.Tell(host.picks->At(*pick, body.fault().Message()));
  return kNoBody;
}

/// Returns the body, or reports that it does not exist.
std::optional<modeller::Body> Find(Host& host, std::int32_t number) {
  const auto body = host.bodies.Get(number);
  if (!Succeeded(host, body)) return std::nullopt;
  return *body;
}

}  // namespace

extern "C" {

void OrvoClearSelection() {
  // Picks leave no marks.
  Answer("OrvoClearSelection", {}, [](Host&, Json&) {});
}

void OrvoSelectOneObject(std::int32_t zero, std::int32_t filterMask, const char* prompt,
                         std::int32_t* object) {
  // Objects are numbered as the bodies that they are.
  Answer("OrvoSelectOneObject", {zero, filterMask, TextOf(prompt)}, [&](Host& host, Json& out) {
    const std::int32_t picked = PickBody(TextOf(prompt), host);
    Put(object, picked);
    out = {picked};
  });
}

std::int32_t OrvoGetObjectParasolidEntityNumber(std::int32_t object) {
  return Answer("OrvoGetObjectParasolidEntityNumber", {object},
                [&](Host& host, Json&) { return host.bodies.Get(object) ? object : kNoBody; });
}

const char* OrvoPsGetBodyNameFromNumber(std::int32_t body) {
  const char* text = Answer("OrvoPsGetBodyNameFromNumber", {body},
                            [&](Host& host, Json&) { return ReturnText(host, host.bodies.NameOf(body)); });
  return text == nullptr ? "" : text;
}

std::int32_t OrvoPsGetBodyNumberFromName(const char* name) {
  return Answer("OrvoPsGetBodyNumberFromName", {TextOf(name)}, [&](Host& host, Json&) {
    if (TextOf(name).empty()) return kNoBody;
    const auto body = host.FindBody(TextOf(name));
    return Succeeded(host, body) ? *body : kNoBody;
  });
}

std::int32_t OrvoIsBodyAnSTLObject(std::int32_t body) {
  return Answer("OrvoIsBodyAnSTLObject", {body}, [&](Host& host, Json&) {
    const auto found = Find(host, body);
    return found && found->IsStl() ? 1 : 0;
  });
}

void OrvoPsGetExtents(std::int32_t body, double* extents) {
  Answer("OrvoPsGetExtents", {body}, [&](Host& host, Json& out) {
    const auto found = Find(host, body);
    if (!found || extents == nullptr) return;
    const auto box = modeller::Extents(*found);
    if (!Succeeded(host, box)) return;
    const auto metres = modeller::InMetres(*box);
    std::ranges::copy(metres, extents);
    out = metres;
  });
}

void OrvoPsDeleteBody(std::int32_t body) {
  Answer("OrvoPsDeleteBody", {body}, [&](Host& host, Json&) { ReportFault(host, host.bodies.Delete(body)); });
}
}
