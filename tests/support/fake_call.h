#pragma once

#include <cstdint>
#include <string>

#include "base/one_line.h"
#include "support/fake_host.h"

/// How the functions of the host in memory write down that they were called.
namespace vanzet::test::fake {

using Int = std::int32_t;
using Word = std::uint32_t;

inline FakeHost& Host() {
  return FakeHost::Current();
}

inline std::string Shown(const char* text) {
  return "'" + OneLine(text) + "'";
}
inline std::string Shown(Int number) {
  return std::to_string(number);
}
inline std::string Shown(Word number) {
  return std::to_string(number);
}

/// Notes the call before it does anything; an order to throw is carried out here.
template <class... Arguments>
void Note(const char* name, Arguments... arguments) {
  if (Host().keepsCalls) {
    std::string call = std::string(name) + "(";
    [[maybe_unused]] const char* separator = "";
    ((call += separator + Shown(arguments), separator = ", "), ...);
    Host().calls.push_back(call + ")");
  }
  if (Host().onCall) Host().onCall(name);
}

}  // namespace vanzet::test::fake
