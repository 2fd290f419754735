#include <cstdlib>
#include <string_view>

#include "base/numbers.h"
#include "base/places.h"
#include "modeller/exchange.h"

namespace vanzet::modeller {
namespace {

std::string_view Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string_view() : value;
}

/// The whole number of a variable, `usual` where it is not set, 0 where it is not from 1 to `most`.
int LimitOf(const char* name, int usual, int most) {
  const std::string_view value = Variable(name);
  if (value.empty()) return usual;
  const auto number = WholeInteger(value);
  return number && *number >= 1 && *number <= most ? *number : 0;
}

ExchangeLimits LimitsOfProcess() {
  constexpr int kGibibyte = 30, kUsual = 4, kMost = 1024;
  ExchangeLimits limits;
  limits.seconds = LimitOf("VANZET_EXCHANGE_SECONDS", limits.seconds, kMostSeconds);
  limits.bytes = static_cast<std::uint64_t>(LimitOf("VANZET_EXCHANGE_MEMORY", kUsual, kMost)) << kGibibyte;
  return limits;
}

}  // namespace

Exchange Exchange::OfProcess() {
  const std::string_view named = Variable("VANZET_EXCHANGE");
  if (!named.empty()) return {named, LimitsOfProcess()};
  return {ProgramFile().parent_path() / "vanzet-exchange", LimitsOfProcess()};
}

}  // namespace vanzet::modeller
