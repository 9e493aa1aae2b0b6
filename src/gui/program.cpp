#include "gui/program.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QMessageBox>
#include <QTimer>

#include "app/action.h"
#include "app/start_up.h"
#include "base/interruption.h"
#include "base/scratch_folder.h"
#include "core/version.h"
#include "gui/fonts.h"
#include "platform/program_folder.h"

/// The icon lies in a static library, where nothing registers it by itself. The macro needs the global
/// namespace.
static void register_icon() {
  Q_INIT_RESOURCE(varnisto);
}

namespace varnisto {
namespace {

constexpr int exit_failed = 1;

struct Arguments {
  std::string app_dir, log;
};

/// Ends the program for --help, --version and arguments that are not known.
Arguments parse_arguments(const QApplication& application) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      QStringLiteral("Turns Japanese contest logs (zLog, CCC) into Cabrillo files."));
  parser.addHelpOption();
  parser.addVersionOption();
  const QCommandLineOption app_dir{QStringLiteral("app-dir"),
                                   QStringLiteral("The program folder: settings and list files."),
                                   QStringLiteral("DIR")};
  parser.addOption(app_dir);
  parser.addPositionalArgument(QStringLiteral("LOG"), QStringLiteral("A log to open."),
                               QStringLiteral("[LOG]"));
  parser.process(application);
  const QStringList logs = parser.positionalArguments();
  if (logs.size() > 1) parser.showHelp(2);
  return {parser.value(app_dir).toStdString(), logs.isEmpty() ? "" : logs.front().toStdString()};
}

void warn_of_missing_font(QWidget* parent) {
  const QString message = missing_font_message();
  if (!message.isEmpty()) QMessageBox::warning(parent, QStringLiteral("Varnisto"), message);
}

}  // namespace

Program::Program(Launcher& launcher) : platform{profile, clock, sort, launcher} {
  register_icon();
  desk.attach(app);
}

bool Program::start(const std::function<std::string()>& program_folder) {
  const ActionResult started = run_action(app, [&] { Main(app, program_folder()); });
  return !started.ends_program && desk.show_main_window();
}

int run_program(int argc, char* argv[]) {
  install_signal_handlers();
  clear_abandoned_scratch_folders();
  QApplication application{argc, argv};
  QApplication::setApplicationName(QStringLiteral("varnisto"));
  QApplication::setApplicationVersion(
      QLatin1String(program_version.data(), static_cast<qsizetype>(program_version.size())));
  QApplication::setQuitOnLastWindowClosed(false);  // the main window's form says when
  QApplication::setDesktopFileName(QStringLiteral("varnisto"));
  const Arguments arguments = parse_arguments(application);

  SystemLauncher launcher;
  Program program{launcher};
  if (!program.start([&] { return find_program_folder(arguments.app_dir); })) return exit_failed;
  program.desk.on_exit = [&] { QCoreApplication::exit(program.app.state.program.ending ? exit_failed : 0); };
  QTimer::singleShot(0, program.desk.main_window(), [&] {
    warn_of_missing_font(program.desk.main_window());
    if (!arguments.log.empty()) program.desk.open_log(arguments.log);
  });
  return QApplication::exec();
}

}  // namespace varnisto
