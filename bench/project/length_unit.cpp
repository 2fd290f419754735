#include "project/length_unit.h"

#include "base/quote.h"

namespace vanzet::project {

Result<LengthUnit> LengthUnitOf(const Project& project) {
  const BenchIni::Section& settings = project.settings().project;
  const auto setting = settings.find(kLengthUnitSetting);
  if (setting == settings.end()) return LengthUnit::kMillimetre;
  if (const auto unit = LengthUnitNamed(setting->second.value)) return *unit;
  return setting->second.At("expected 'mm' or 'inch', found " + Quoted(setting->second.value));
}

}  // namespace vanzet::project
