#include "modeller/body.h"

#include "modeller/shape.h"

namespace vanzet::modeller {

bool Body::IsStl() const {
  return shape_->fromStl;
}

}  // namespace vanzet::modeller
