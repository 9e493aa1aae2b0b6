#include "cli/run_cli.h"

#include <algorithm>
#include <exception>
#include <ostream>

#include "base/files.h"
#include "base/run_time_error.h"
#include "base/scratch_folder.h"
#include "cli/convert.h"
#include "cli/options.h"
#include "platform/program_folder.h"

namespace varnisto {
namespace {

int run_command(const CliOptions& options, std::ostream& out, std::ostream& err) {
  if (!options.app_dir.empty() && !is_folder(options.app_dir)) {
    err << "--app-dir: " << options.app_dir << " is no folder\n";
    return exit_usage;
  }
  if (options.command == Command::check) return check_files(options, out, err);
  clear_abandoned_scratch_folders();
  const std::string folder = find_program_folder(options.app_dir);
  if (options.command == Command::settings) return run_settings(options, folder, out, err);
  if (options.command == Command::to_zlog) return to_zlog_files(options, folder, out, err);
  return convert_logs(options, folder, out, err);
}

}  // namespace

int run_cli(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
  int status = exit_ok;
  const auto options = parse_options(arguments, out, err, status);
  try {
    if (options) status = run_command(*options, out, err);
  } catch (const RunTimeError& error) {
    err << describe(error) << "\n";
    status = exit_failed;
  } catch (const std::exception& error) {
    err << "varnisto-cli: " << error.what() << "\n";
    status = exit_failed;
  }
  out.flush();
  if (out) return status;
  err << describe(RunTimeError(RunTimeError::device_io_error, "standard output")) << "\n";
  return std::max<int>(status, exit_failed);
}

}  // namespace varnisto
