#include "modeller/kernel.h"

#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_PrinterOStream.hxx>
#include <string>

namespace vanzet::modeller {

void QuietKernel() {
  Message::DefaultMessenger()->RemovePrinters(STANDARD_TYPE(Message_PrinterOStream));
}

Fault KernelFault(const Standard_Failure& failure) {
  const char* message = failure.GetMessageString();
  const bool isTold = message != nullptr && *message != '\0';
  return {std::string("Open CASCADE: ") + (isTold ? message : failure.DynamicType()->Name())};
}

}  // namespace vanzet::modeller
