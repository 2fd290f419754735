#pragma once

#include <cstdint>
#include <span>

#include "dialog/data_exchange.h"
#include "dialog/pages/page.h"
#include "store/billet_records.h"

namespace vanzet::dialog {

/// The base of the three billet pages. All edit the same record; its type says to which page it belongs.
class BilletPage : public Page {
 public:
  void OnSetActive() override;

 protected:
  struct Kind {
    std::int32_t billetType;
    std::int32_t title;  ///< a message
    std::span<const Field<BilletRecord>> fields;
  };
  BilletPage(PageOwner& owner, const PageTemplate& page, const Kind& kind);

  std::optional<std::int32_t> ReadControls() override;
  void FillControls() override;

  /// Writes the working copy, marks its node and has it drawn.
  void Store();

  void PickLength();
  void PickDiameter(double BilletRecord::*field);

  BilletRecord record_;

 private:
  const Kind kind_;
};

}  // namespace vanzet::dialog
