#include "language/commands.h"
#include "vdm/vdm_file.h"

/// The project's environment, settings and VDMs: env 'KEY' $_x, file e '' $_project 'KEY' $_x,
/// file a '' $_project 'KEY' 'value', vdm save 'file' i_ret i_billet_vdm, vdm load 'file' i_ret 1000.
namespace vanzet::language {
namespace {

/// The operands of both `file` commands begin alike: '' $_project 'KEY'.
Result<void> CheckProject(const Operands& operands) {
  if (operands[0].text.empty()) return {};
  return operands[0].At("expected an empty text: the project's own file is the only one");
}

constexpr std::int32_t kDone = 0;
constexpr std::int32_t kFailed = -1;

/// The operands of both `vdm` commands: '{file}' {status variable} {VDM}.
struct Request {
  const std::string& file;
  const std::string& status;
  std::int32_t vdm;

  explicit Request(const Operands& operands)
      : file(operands[0].text), status(operands[1].text), vdm(operands[2].number) {}
};

/// Sets the status variable to the outcome of the work, and returns the fault of the work.
Result<void> SetStatus(const Result<void>& work, const std::string& status, project::Variables& variables) {
  VANZET_DO(variables.Set(status, work ? kDone : kFailed));
  return work;
}

Result<void> Save(const Request& request, Surroundings& surroundings) {
  VANZET_TRY(const auto content, surroundings.store.Snapshot(request.vdm));
  const auto file = surroundings.paths.Resolve(request.file);
  VANZET_DO(surroundings.store.CheckTarget(file));
  return surroundings.workplace.MayWrite(file) ? vdm::WriteVdmFile(file, content) : Result<void>();
}

/// After a load that failed: the caller may have deleted the VDM before, for the content that did not come.
/// That is taken back; a VDM that was there all along has to go when the file itself is refused.
Result<void> EndFailedLoad(const Fault& fault, std::int32_t number, vdm::VdmStore& store) {
  const bool wasRead = fault.kind != FaultKind::kSystem && fault.kind != FaultKind::kBusy;
  if (!store.PutBackDeleted(number) && wasRead) VANZET_DO(store.Delete(number));
  return fault;
}

Result<void> Load(const Request& request, Surroundings& surroundings) {
  const auto content = vdm::ReadVdmFile(surroundings.paths.Resolve(request.file));
  if (!content) return EndFailedLoad(content.fault(), request.vdm, surroundings.store);
  return surroundings.store.Replace(request.vdm, *content);
}

}  // namespace

Result<void> ReadEnvironment(const Operands& operands, Surroundings& surroundings) {
  return surroundings.variables.Set(operands[1].text, surroundings.workplace.Environment(operands[0].text));
}

Result<void> FileRead(const Operands& operands, Surroundings& surroundings) {
  VANZET_DO(CheckProject(operands));
  VANZET_TRY(const auto value, surroundings.workplace.Setting(operands[2].text));
  return surroundings.variables.Set(operands[3].text, value);
}

Result<void> FileStore(const Operands& operands, Surroundings& surroundings) {
  VANZET_DO(CheckProject(operands));
  return operands[2].WithPlace(surroundings.workplace.SetSetting(operands[2].text, operands[3].text));
}

Result<void> VdmSave(const Operands& operands, Surroundings& surroundings) {
  const Request request(operands);
  return SetStatus(Save(request, surroundings), request.status, surroundings.variables);
}

Result<void> VdmLoad(const Operands& operands, Surroundings& surroundings) {
  const Request request(operands);
  return SetStatus(Load(request, surroundings), request.status, surroundings.variables);
}

}  // namespace vanzet::language
