#include "cli/hosted_project.h"

#include <cstdlib>
#include <iostream>

#include "api/module.h"
#include "api/upgrade.h"
#include "base/numbers.h"
#include "base/one_line.h"
#include "catalogue/shop_place.h"
#include "cli/exchange_options.h"
#include "cli/output_files.h"
#include "process/last_words.h"
#include "project/catalogue.h"
#include "project/definition.h"
#include "project/text_file.h"
#include "vdm/vdm_file.h"

namespace vanzet::cli {
namespace {

bool HasFact(const project::Project& project, const char* fact) {
  return IntegerOrZero(project.Environment(fact)) == 1;
}

Result<std::map<std::string, DeviceParams>> ShopOf(const project::Project& project, api::Host& host) {
  VANZET_TRY(const auto setting, host.Setting(project::kCatalogueSetting));
  const auto read = ReadCatalogue(catalogue::PlaceOf(project, setting));
  // A catalogue that does not exist has no devices, as in the dialog.
  if (!read && read.fault().kind != FaultKind::kMissing) return read.fault();
  std::map<std::string, DeviceParams> devices;
  if (!read) return devices;
  for (const catalogue::Entry& entry : read->entries()) {
    if (entry.hasValues) devices.try_emplace(entry.name, entry.params);
  }
  return devices;
}

Result<scene::DeviceClass> OwnDeviceOf(const std::string& file, const project::Project& project) {
  VANZET_TRY(const auto content, vdm::ReadVdmFile(project.paths().Resolve(file)));
  VANZET_TRY(const auto definition, project::ReadDefinition(content));
  VANZET_TRY(const auto values, scene::ReadOwnDeviceValues(definition));
  return values.deviceClass;
}

Result<void> CheckFigure(const std::string& name, api::Host& host) {
  VANZET_DO(host.board.Load());
  if (host.board.drawing().HasFigure(name)) return {};
  const auto read = host.ReadFigureFile(name);
  return read ? Result<void>() : read.fault();
}

Result<void> CheckSolid(const std::string& name, api::Host& host) {
  const auto body = host.FindBody(name);
  return body ? Result<void>() : body.fault();
}

}  // namespace

void Announce(const std::string& sentence) {
  std::cerr << "vanzet: " + OneLine(sentence) + "\n";
}

Result<std::unique_ptr<HostedProject>> HostProject(const std::filesystem::path& folder,
                                                   const std::string& traceFile, Context& context) {
  VANZET_TRY(auto project, project::Project::Open(folder, context.places.share));
  std::unique_ptr<api::Trace> trace;
  if (!traceFile.empty()) {
    VANZET_DO(CheckIsNoInput(traceFile, InputsOf(project)));
    VANZET_TRY(auto opened, api::Trace::To(traceFile));
    trace = std::move(opened);
  }
  process::SetKept(process::Kept::kNothing);
  auto hosted = std::make_unique<HostedProject>(HostedProject{std::move(project), nullptr});
  hosted->host = std::make_unique<api::Host>(hosted->project, context.panel, std::move(trace));
  hosted->host->announce = Announce;
  hosted->host->exchange = ExchangeWithProgress();
  if (!context.keepsTmp) return hosted;
  hosted->host->runFolder.Keep();
  VANZET_TRY(const auto tmp, hosted->host->runFolder.Path());
  std::cerr << "vanzet: the files of this run are kept in " + OneLine(tmp.string()) + "\n";
  return hosted;
}

Result<void> HoldProject(api::Host& host, const Context& context) {
  // The module would report a store that cannot be used once for each of its calls.
  VANZET_DO(host.store.Check());
  host.store.WaitAtMost(context.wait);
  return host.store.Hold();
}

Result<define::Surroundings> SurroundingsOf(const project::Project& project, api::Host& host) {
  VANZET_TRY(const auto spurs, project.SpindleSpurs());
  VANZET_TRY(const auto shop, ShopOf(project, host));
  define::Surroundings surroundings;
  surroundings.spurs = spurs;
  surroundings.hasSubSpindle = HasFact(project, "SubSpindleAvailable");
  surroundings.hasTailStock = HasFact(project, "TailStockAvailable");
  surroundings.hasSteadyRest = HasFact(project, "LunAvailable");
  surroundings.catalogue = shop;
  surroundings.ownDevice = [&project](const std::string& file) { return OwnDeviceOf(file, project); };
  surroundings.figure = [&host](const std::string& name) { return CheckFigure(name, host); };
  surroundings.solid = [&host](const std::string& name) { return CheckSolid(name, host); };
  return surroundings;
}

Result<void> UpgradeFirst(api::Host& host, const Context& context) {
  VANZET_TRY(const auto module, api::FindModule(context.places.program));
  return api::UpgradeWhereNeeded(module, host, Announce);
}

Result<void> KeepRun(const std::function<Result<void>()>& commit) {
  process::SetKept(process::Kept::kUnknown);
  auto done = commit();
  process::SetKept(done ? process::Kept::kAll : process::Kept::kNothing);
  return done;
}

Result<void> PlayScript(const DialogScript& script, api::Host& host, const Context& context) {
  VANZET_TRY(const auto module, api::FindModule(context.places.program));
  setenv("VANZET_SCRIPT", script.file.c_str(), 1);
  setenv("VANZET_TRANSCRIPT", script.transcript.c_str(), 1);
  setenv("VANZET_SCRIPT_NAME", script.name.c_str(), 1);
  setenv("VANZET_SCRIPT_MODE", script.mode.c_str(), 1);
  return api::CallModule(module, "mstart", host);
}

Result<std::string> PlayDialog(const std::filesystem::path& script, const std::filesystem::path& transcript,
                               api::Host& host, const Context& context) {
  VANZET_DO(PlayScript({.file = script, .transcript = transcript, .mode = "transcript"}, host, context));
  return project::ReadTextFile(transcript, transcript.string());
}

}  // namespace vanzet::cli
