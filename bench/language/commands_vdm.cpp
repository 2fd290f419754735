#include "language/commands.h"
#include "vdm/vdm_file.h"

namespace vanzet::language {
namespace {

constexpr std::int32_t kDone = 0;
constexpr std::int32_t kFailed = -1;

/// The operands of both commands: '{file}' {status variable} {VDM}.
struct Operands {
  std::string file;
  std::string status;
  std::int32_t vdm;
};

Result<Operands> ReadOperands(CommandLine& line, const project::Variables& variables) {
  const auto file = line.QuotedText("the file");
  if (!file) return file.fault();
  const auto status = line.Word("the variable for the status");
  if (!status) return status.fault();
  if (!project::Variables::IsInteger(*status)) {
    return line.FaultHere("expected an integer variable for the status, found '" + std::string(*status) +
                          "'");
  }
  const auto vdm = line.Integer("the number of a VDM", variables);
  if (!vdm) return vdm.fault();
  if (const auto end = line.End(); !end) return end.fault();
  return Operands{*file, std::string(*status), *vdm};
}

/// Sets the status variable to what became of the work, and gives the work's fault on.
Result<void> Report(const Result<void>& work, const std::string& status, project::Variables& variables) {
  if (const auto set = variables.Set(status, work ? kDone : kFailed); !set) return set.fault();
  return work;
}

Result<void> Save(const Operands& operands, Surroundings& surroundings) {
  const auto content = surroundings.store.Snapshot(operands.vdm);
  if (!content) return content.fault();
  return vdm::WriteVdmFile(surroundings.paths.Resolve(operands.file), *content);
}

Result<void> Load(const Operands& operands, Surroundings& surroundings) {
  const auto content = vdm::ReadVdmFile(surroundings.paths.Resolve(operands.file));
  const Result<void> kept =
      content ? surroundings.store.Replace(operands.vdm, *content) : Result<void>(content.fault());
  if (kept) return kept;
  // A load that fails leaves no VDM under the number: who loads has given the old content up.
  const auto removed = surroundings.store.Delete(operands.vdm);
  return removed ? kept : removed;
}

}  // namespace

Result<void> VdmSave(CommandLine& line, Surroundings& surroundings) {
  const auto operands = ReadOperands(line, surroundings.variables);
  if (!operands) return operands.fault();
  return Report(Save(*operands, surroundings), operands->status, surroundings.variables);
}

Result<void> VdmLoad(CommandLine& line, Surroundings& surroundings) {
  const auto operands = ReadOperands(line, surroundings.variables);
  if (!operands) return operands.fault();
  return Report(Load(*operands, surroundings), operands->status, surroundings.variables);
}

}  // namespace vanzet::language
