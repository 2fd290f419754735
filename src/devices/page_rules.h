#pragma once

#include <string>

#include "devices/device_params.h"
#include "devices/kinds.h"

/// The demands of the pages on what is entered. A page applies them when its button is pressed; its picture
/// shows beforehand what the page will do then.
namespace vanzet::devices {

/// The letters of a device that its catalogue page misses, in order: each must have a value that is not 0.
inline std::string MissingLetters(const DeviceParams& params) {
  std::string missing;
  for (const Letter& each : LettersOf(params.type)) {
    if (each.entry == Entry::kNeeded && ValueOf(params, each.letter) == 0) missing += each.letter;
  }
  return missing;
}

/// The values of a billet by numbers.
struct BilletSizes {
  double outer = 0, length = 0, front = 0, rear = 0, inner = 0, bar = 0;

  /// Without a diameter or a length the page removes the billet, and no other demand counts.
  bool AreOfABillet() const { return length != 0 && outer != 0; }

  double LeastBar() const { return length + front + rear; }
  bool IsBarTooShort() const { return bar > 0 && bar < LeastBar(); }
  bool IsBoreTooWide() const { return inner > outer; }
};

}  // namespace vanzet::devices
