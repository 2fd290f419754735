#pragma once

#include "store/billet_vdm.h"

namespace vanzet {

/// Keeps the jaw's description as a tool holder (store/d2t_text.h), made from the host's contour 30001, in an
/// open definition. A contour that the host does not have leaves it empty. False when the operation cannot
/// be used.
bool StoreJawD2t(BilletVdm& definition, bool isSub);

}  // namespace vanzet
