#pragma once

#include <Quantity_ColorRGBA.hxx>
#include <TDocStd_Document.hxx>
#include <string>
#include <vector>

#include "modeller/parcel.h"

namespace vanzet::modeller {

constexpr double kMillimetre = 0.001;  // in metres

/// The colour of a body, with its transparency.
Quantity_ColorRGBA ColourOf(const Appearance& appearance);

/// Bodies as a document of Open CASCADE, each with its name and colour; millimetres. It is closed with its
/// owner: the application would keep it.
class Document {
 public:
  /// The bodies beside each other; with a name for all of them, as the parts of one assembly.
  explicit Document(const std::vector<ParcelBody>& bodies, const std::string& assembly = "");
  ~Document();
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  const Handle(TDocStd_Document) & handle() const { return handle_; }

 private:
  Handle(TDocStd_Document) handle_;
};

}  // namespace vanzet::modeller
