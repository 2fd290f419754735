#include <cstdlib>

#include "base/places.h"
#include "modeller/exchange.h"

namespace vanzet::modeller {

Exchange Exchange::OfProcess() {
  if (const char* named = std::getenv("VANZET_EXCHANGE"); named != nullptr && *named != '\0')
    return {named, {}};
  return {ProgramFile().parent_path() / "vanzet-exchange", {}};
}

}  // namespace vanzet::modeller
