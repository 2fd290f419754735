#include <nlohmann/json.hpp>

#include "define/check.h"
#include "define/events.h"
#include "fuzz.h"

// A form, from its text to the script that would be played.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace vanzet;
  auto form = define::ReadJson(fuzz::TextOf(data, size), "fuzz");
  if (!form) return 0;
  define::Surroundings surroundings;
  surroundings.spurs = 3;
  surroundings.hasSubSpindle = surroundings.hasTailStock = surroundings.hasSteadyRest = true;
  surroundings.catalogue = {{"Chuck", DeviceParams{.type = 1, .A = 80, .B = 90}}};
  surroundings.ownDevice = [](const std::string&) { return scene::DeviceClass::kChuck; };
  surroundings.figure = surroundings.solid = [](const std::string&) { return Result<void>(); };
  if (!define::CheckForm(*form, surroundings).empty()) return 0;
  const auto steps = define::StepsOf(*form, *form, true, true);
  define::ScriptOf(steps);
  for (const auto& play : define::PlaysOf(steps)) define::CatalogueText(play);
  return 0;
}
