#include "cli/application.h"

#include <fcntl.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <csignal>
#include <exception>

#include "cli/commands.h"
#include "cli/context.h"

namespace vanzet::cli {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

constexpr void (*kCommands[])(CLI::App&, Context&) = {
    AddNew,     AddOpen,    AddUpgrade, AddScript, AddShow,    AddDefine,     AddItems,  AddVdm,
    AddCommand, AddPicture, AddExport,  AddDevice, AddContour, AddCompletion, AddManual,
};

/// Operands by their names alone: "[PROJECT]" where one may be left out.
class Help : public CLI::Formatter {
 public:
  std::string make_option_usage(const CLI::Option* option) const override {
    const std::string name = make_option_name(option, true);
    return option->get_required() ? name : "[" + name + "]";
  }
  std::string make_option_opts(const CLI::Option* option) const override {
    return option->get_positional() ? "" : Formatter::make_option_opts(option);
  }
};

/// A stream that the caller has closed is taken up by nothing else: what is written there fails, as it
/// should.
void KeepStandardStreams() {
  for (int descriptor = 0; descriptor < 3; ++descriptor) {
    if (fcntl(descriptor, F_GETFD) < 0 && errno == EBADF) open("/dev/null", O_RDONLY | O_CLOEXEC);
  }
}

/// A first word that is no command, or nothing.
std::string UnknownCommand(const CLI::App& app, int argc, const char* const* argv) {
  const std::string first = argc > 1 ? argv[1] : "";
  if (argc < 2 || first.starts_with('-')) return "";
  const auto commands =
      app.get_subcommands([&](const CLI::App* command) { return command->get_name() == first; });
  return commands.empty() ? "'" + first + "'" : "";
}

int Work(Context& context) {
  try {
    const auto done = context.run();
    if (done) return kDone;
    context.panel.Tell(done.fault());
  } catch (const std::exception& error) {
    context.panel.Tell(Fault{error.what()});
  }
  return kFailed;
}

}  // namespace

int Run(int argc, const char* const* argv) {
  KeepStandardStreams();
  // A limit on the size of files is then a fault to be told, like a full disk.
  std::signal(SIGXFSZ, SIG_IGN);
  const auto context = MakeContext();
  CLI::App app("Defines, checks and exports what holds the work on a turning or mill-turn machine.",
               "vanzet");
  app.footer(
      "PROJECT is the current folder when it is left out. Results go to standard output, everything else to\n"
      "standard error. Exit status: 0 done, 1 the work failed, 2 wrong usage.\n\n"
      "Example:\n  vanzet new lathe && vanzet upgrade lathe && vanzet show lathe");
  app.formatter(std::make_shared<Help>());
  app.set_version_flag("--version", "vanzet " VANZET_VERSION);
  app.require_subcommand(1);
  for (const auto add : kCommands) add(app, *context);
  if (const std::string unknown = UnknownCommand(app, argc, argv); !unknown.empty()) {
    context->panel.Tell(Fault{"there is no command " + unknown + "; 'vanzet --help' lists them"});
    return kWrongUsage;
  }
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == kDone ? kDone : kWrongUsage;
  }
  return Work(*context);
}

}  // namespace vanzet::cli
