#pragma once

#include <cstdint>
#include <span>

#include "dialog/data_exchange.h"
#include "dialog/pages/page.h"
#include "store/finish_part_records.h"

namespace vanzet::dialog {

/// The base of the two pages of the finished part.
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

  std::optional<std::int32_t> ReadControls() override;
  void FillControls() override;

  /// Makes the working copy one of no type. `figureOutside` stays as it is, as with a billet.
  void Clear();

  FinishPartRecord record_;

 private:
  const Kind kind_;
};

/// The finished part as figures. Figures can be picked, but the button that would store them has no handler:
/// that is required so.
class CPageFinishpartFromFigure final : public FinishpartPage {
 public:
  explicit CPageFinishpartFromFigure(PageOwner& owner);

  void OnPress(std::int32_t button) override;

 private:
  static const Handler<CPageFinishpartFromFigure> kButtons[];

  void PickOutside();
  void PickInside();
};

/// The finished part as a solid of the host.
class CPageFinishpartFromSolid final : public FinishpartPage {
 public:
  explicit CPageFinishpartFromSolid(PageOwner& owner);

  void OnPress(std::int32_t button) override;

 private:
  static const Handler<CPageFinishpartFromSolid> kButtons[];

  void PickFinishSolid();
  void SelectFinishSolid();
};

}  // namespace vanzet::dialog
