#include "language/commands.h"
#include "vdm/vdm_file.h"

/// VDMs and .vdm files: vdm save 'file' i_ret i_billet_vdm, vdm load 'file' i_ret 1000.
namespace vanzet::language {
namespace {

constexpr std::int32_t kDone = 0;
constexpr std::int32_t kFailed = -1;

/// The operands of both commands: '{file}' {status variable} {VDM}.
struct Request {
  const std::string& file;
  const std::string& status;
  std::int32_t vdm;

  explicit Request(const Operands& operands)
      : file(operands[0].text), status(operands[1].text), vdm(operands[2].number) {}
};

/// Sets the status variable to what became of the work, and gives the work's fault on.
Result<void> Report(const Result<void>& work, const std::string& status, project::Variables& variables) {
  VANZET_DO(variables.Set(status, work ? kDone : kFailed));
  return work;
}

Result<void> Save(const Request& request, Surroundings& surroundings) {
  VANZET_TRY(const auto content, surroundings.store.Snapshot(request.vdm));
  const auto file = surroundings.paths.Resolve(request.file);
  VANZET_DO(surroundings.store.CheckTarget(file));
  return vdm::WriteVdmFile(file, content);
}

Result<void> Load(const Request& request, Surroundings& surroundings) {
  const auto content = vdm::ReadVdmFile(surroundings.paths.Resolve(request.file));
  const Result<void> kept =
      content ? surroundings.store.Replace(request.vdm, *content) : Result<void>(content.fault());
  if (kept) return kept;
  // A load that fails leaves no VDM under the number: who loads has given the old content up.
  const auto removed = surroundings.store.Delete(request.vdm);
  return removed ? kept : removed;
}

}  // namespace

Result<void> VdmSave(const Operands& operands, Surroundings& surroundings) {
  const Request request(operands);
  return Report(Save(request, surroundings), request.status, surroundings.variables);
}

Result<void> VdmLoad(const Operands& operands, Surroundings& surroundings) {
  const Request request(operands);
  return Report(Load(request, surroundings), request.status, surroundings.variables);
}

}  // namespace vanzet::language
