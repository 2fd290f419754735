#include <IGESCAFControl_Writer.hxx>
#include <IGESControl_Controller.hxx>
#include <Interface_Static.hxx>

#include "modeller/exchange/document.h"
#include "modeller/exchange/process.h"
#include "modeller/exchange/write_file.h"

namespace vanzet::modeller {

Result<void> WriteIges(const std::vector<ParcelBody>& bodies, const std::filesystem::path& file) {
  constexpr int kSolids = 1;  // and not surfaces side by side
  IGESControl_Controller::Init();
  Interface_Static::SetCVal("write.iges.unit", "MM");
  Interface_Static::SetIVal("write.iges.brep.mode", kSolids);
  Interface_Static::SetCVal("write.iges.header.author", "");
  Interface_Static::SetCVal("write.iges.header.company", "");
  Interface_Static::SetCVal("write.iges.header.product", "vanzet");
  Interface_Static::SetCVal("write.iges.header.receiver", "");
  IGESCAFControl_Writer writer;
  writer.SetNameMode(Standard_True);
  writer.SetColorMode(Standard_True);
  const Document document(bodies);
  if (!writer.Transfer(document.handle()) || !writer.Write(file.c_str())) {
    return Fault{"Open CASCADE could not write it" + FirstKernelMessage()};
  }
  return {};
}

}  // namespace vanzet::modeller
