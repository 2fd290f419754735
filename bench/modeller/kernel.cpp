#include "modeller/kernel.h"

#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_PrinterOStream.hxx>
#include <Standard_OutOfMemory.hxx>
#include <mutex>
#include <string>

namespace vanzet::modeller {

void SilenceKernel() {
  // The messenger is one for all threads, and nothing guards it.
  static std::once_flag isSilent;
  std::call_once(isSilent,
                 [] { Message::DefaultMessenger()->RemovePrinters(STANDARD_TYPE(Message_PrinterOStream)); });
}

Fault KernelFault(const Standard_Failure& failure) {
  if (failure.IsKind(STANDARD_TYPE(Standard_OutOfMemory))) {
    return {.text = "out of memory", .kind = FaultKind::kSystem};
  }
  const char* message = failure.GetMessageString();
  const bool hasMessage = message != nullptr && *message != '\0';
  return {std::string("Open CASCADE: ") + (hasMessage ? message : failure.DynamicType()->Name())};
}

}  // namespace vanzet::modeller
