#include <algorithm>

#include "support/fake_call.h"

// The solids of the host in memory, the picks of them, and its window.

using namespace vanzet::test;
using namespace vanzet::test::fake;

extern "C" {

void OrvoClearSelection() {
  Note("OrvoClearSelection");
}
void OrvoSelectOneObject(Int zero, Int filterMask, const char* prompt, Int* object) {
  Note("OrvoSelectOneObject", zero, filterMask, prompt);
  FakeBodies& bodies = Host().bodies;
  if (bodies.picks.empty()) return;
  *object = 101 + static_cast<Int>(bodies.byObject.size());
  bodies.byObject[*object] = bodies.picks.front();
  bodies.picks.pop_front();
}
Int OrvoGetObjectParasolidEntityNumber(Int object) {
  Note("OrvoGetObjectParasolidEntityNumber", object);
  const auto found = Host().bodies.byObject.find(object);
  return found == Host().bodies.byObject.end() ? 0 : found->second;
}
const char* OrvoPsGetBodyNameFromNumber(Int body) {
  Note("OrvoPsGetBodyNameFromNumber", body);
  return Host().bodies.byNumber[body].name.c_str();
}
Int OrvoPsGetBodyNumberFromName(const char* name) {
  Note("OrvoPsGetBodyNumberFromName", name);
  const auto& bodies = Host().bodies.byNumber;
  const auto found = std::ranges::find_if(bodies, [&](const auto& body) { return body.second.name == name; });
  return found == bodies.end() ? 0 : found->first;
}
Int OrvoIsBodyAnSTLObject(Int body) {
  Note("OrvoIsBodyAnSTLObject", body);
  return Host().bodies.byNumber[body].isMesh ? 1 : 0;
}
void OrvoPsGetExtents(Int body, double* extents) {
  Note("OrvoPsGetExtents", body);
  std::ranges::copy(Host().bodies.byNumber[body].extents, extents);
}
void* OrvoGetStructPtr(const char* name) {
  Note("OrvoGetStructPtr", name);
  return Host().structure;
}

}  // extern "C"
