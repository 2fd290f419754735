#include "cli/sheet_folder.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>
#include <set>

#include "base/files/regular_file.h"
#include "base/files/system_fault.h"
#include "base/files/whole_file.h"
#include "cli/exchange_options.h"
#include "cli/length_unit.h"
#include "cli/progress_line.h"
#include "cli/written_files.h"
#include "project/project.h"
#include "sheet/html.h"
#include "sheet/index.h"

namespace vanzet::cli {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSheets = "sheets";

/// The projects in a folder, in the order of their names.
Result<std::set<fs::path>> ProjectsIn(const fs::path& folder) {
  std::set<fs::path> projects;
  std::error_code error;
  for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error)) {
    std::error_code unknown;
    if (fs::is_directory(each->path(), unknown) && project::IsMarkedAsProject(each->path())) {
      projects.insert(each->path());
    }
  }
  if (error) return files::SystemFault("cannot be read", error, folder);
  if (projects.empty()) {
    return Fault{
        .text = "has no folder that is a project", .file = folder.string(), .kind = FaultKind::kMissing};
  }
  return projects;
}

/// Fails when the sheets would be among the files of a project.
Result<void> CheckIsOutside(const fs::path& sheets, const std::set<fs::path>& projects) {
  std::error_code unknown;
  const fs::path whole = fs::weakly_canonical(fs::absolute(sheets, unknown), unknown);
  for (const fs::path& project : projects) {
    const fs::path other = fs::weakly_canonical(fs::absolute(project, unknown), unknown);
    if (std::ranges::mismatch(other, whole).in1 != other.end()) continue;
    return Fault{"cannot be the folder of the sheets: it is in the project " + other.filename().string(),
                 sheets.string()};
  }
  return {};
}

/// Shows faults with the name of their project, and removes the line of the progress before.
class ProjectPanel : public project::MessagePanel {
 public:
  ProjectPanel(project::MessagePanel& panel, ProgressLine& line) : panel_(panel), line_(line) {}

  void BeginProject(const std::string& name) { name_ = name; }

 private:
  void Show(const Fault& fault) override {
    line_.Erase();
    panel_.Tell({.text = name_ + ": " + fault.Message(), .kind = fault.kind});
  }

  project::MessagePanel& panel_;
  ProgressLine& line_;
  std::string name_;
};

/// Writes the sheets one after the other.
class SheetWriter {
 public:
  SheetWriter(const SheetFolder& folder, const sheet::Assets& assets, Context& context)
      : folder_(folder), assets_(assets), context_(context), panel_(context.panel, line_) {}

  void Write(const std::set<fs::path>& projects) {
    for (const fs::path& project : projects) {
      const std::string name = project.filename().string();
      if (isatty(STDERR_FILENO) != 0) {
        line_.Show(std::to_string(entries_.size() + 1) + " of " + std::to_string(projects.size()) + ": " +
                   OneLine(name));
      }
      panel_.BeginProject(name);
      if (auto entry = WriteOne(project, name)) {
        entries_.push_back(*std::move(entry));
      } else {
        panel_.Tell(entry.fault());
        entries_.push_back({.name = name, .file = "", .fault = entry.fault().Message()});
      }
    }
    line_.Erase();
  }

  const std::vector<sheet::IndexEntry>& entries() const { return entries_; }
  bool HasFaults() const { return panel_.faults() > 0; }

 private:
  Result<sheet::IndexEntry> WriteOne(const fs::path& path, const std::string& name) {
    VANZET_TRY(const auto project, project::Project::Open(path, context_.places.share));
    VANZET_TRY(const auto unit, UnitOf(folder_.unit, project));
    const sheet::Words words{folder_.texts, unit};
    VANZET_TRY(auto made,
               sheet::MakeSheet(project, folder_.options, words, modeller::Exchange::OfProcess(), panel_));
    const std::string file = std::string(kSheets) + "/" + name + ".html";
    VANZET_DO(files::ReplaceFile(folder_.out / file, sheet::HtmlOf(made.sheet, assets_, words)));
    return sheet::IndexEntry{.name = name, .file = file, .fault = "", .summary = std::move(made.summary)};
  }

  const SheetFolder& folder_;
  const sheet::Assets& assets_;
  Context& context_;
  ProgressLine line_{std::cerr};
  ProjectPanel panel_;
  std::vector<sheet::IndexEntry> entries_;
};

/// The name of a folder, also of one that was given as "." or with a separator at its end.
std::string NameOf(const fs::path& folder) {
  std::error_code unknown;
  const fs::path whole = fs::weakly_canonical(fs::absolute(folder, unknown), unknown);
  return (whole.has_filename() ? whole : whole.parent_path()).filename().string();
}

}  // namespace

Result<void> WriteSheetFolder(const SheetFolder& folder, Context& context) {
  VANZET_TRY(const auto projects, ProjectsIn(folder.projects));
  VANZET_DO(CheckIsOutside(folder.out / kSheets, projects));
  VANZET_TRY(const auto assets, sheet::Assets::Read(context.places.share));
  std::error_code error;
  fs::create_directories(folder.out / kSheets, error);
  if (error) return files::SystemFault("cannot be created", error, folder.out / kSheets);

  SheetWriter writer(folder, assets, context);
  writer.Write(projects);
  const sheet::Words words{folder.texts};
  const std::string index = sheet::IndexHtmlOf(
      {.language = folder.options.language, .folder = NameOf(folder.projects), .entries = writer.entries()},
      assets, words);
  VANZET_DO(files::ReplaceFile(folder.out / "index.html", index));
  std::vector<results::WrittenFile> written = {{folder.out / "index.html", {}}};
  bool isComplete = true;
  for (const sheet::IndexEntry& entry : writer.entries()) {
    if (entry.file.empty()) {
      isComplete = false;
    } else {
      written.push_back({folder.out / entry.file, {}});
    }
  }
  VANZET_DO(PrintWrittenFiles(written, {.isJson = folder.isJson}));
  return isComplete && !(folder.isStrict && writer.HasFaults()) ? Result<void>() : ReportedFault();
}

}  // namespace vanzet::cli
