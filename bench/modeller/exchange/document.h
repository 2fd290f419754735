#pragma once

#include <TDocStd_Document.hxx>

#include "modeller/exchange/parcel.h"

namespace vanzet::modeller {

/// The bodies as a document of Open CASCADE, each with its name and colour; millimetres.
Handle(TDocStd_Document) DocumentOf(const std::vector<ParcelBody>& bodies);

}  // namespace vanzet::modeller
