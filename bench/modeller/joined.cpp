#include "modeller/joined.h"

#include <BRep_Builder.hxx>
#include <TopoDS_Compound.hxx>
#include <algorithm>

#include "modeller/kernel.h"
#include "modeller/shape.h"

namespace vanzet::modeller {

Result<Body> Joined(const std::vector<Body>& bodies) {
  if (bodies.empty()) return Fault{"there is no body"};
  if (bodies.size() == 1) return bodies.front();
  return Guarded([&]() -> Result<Body> {
    const BRep_Builder builder;
    TopoDS_Compound compound;
    builder.MakeCompound(compound);
    for (const Body& body : bodies) builder.Add(compound, body.shape().shape);
    return BodyOf(compound, std::ranges::all_of(bodies, &Body::IsStl));
  });
}

}  // namespace vanzet::modeller
