#pragma once

#include <cstdint>
#include <span>

#include "dialog/data_exchange.h"
#include "dialog/pages/page.h"
#include "store/finish_part_records.h"

namespace vanzet::dialog {

/// What the two pages of the finished part have in common.
class FinishpartPage : public Page {
 public:
  void OnSetActive() override;

 protected:
  struct Kind {
    std::int32_t finishPartType;
    std::int32_t title;  ///< a message
    std::span<const Field<FinishPartRecord>> fields;
  };
  FinishpartPage(PageOwner& owner, const PageTemplate& page, const Kind& kind);

  std::optional<std::int32_t> TakeControls() override;
  void FillControls() override;

  /// Makes the working copy one of no type. `figureOutside` stays as it is, as with a billet.
  void Clear();

  FinishPartRecord record_;

 private:
  const Kind kind_;
};

}  // namespace vanzet::dialog
