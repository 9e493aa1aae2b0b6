#pragma once

#include <iosfwd>
#include <string>

#include "app/action.h"
#include "cli/options.h"
#include "platform/platform.h"

namespace varnisto {

/// Converts the logs of the command line, each with a fresh state; returns the exit status.
int convert_logs(const CliOptions& options, const std::string& program_folder, std::ostream& out,
                 std::ostream& err);

/// Turns Cabrillo files into zLog text logs; returns the exit status.
int to_zlog_files(const CliOptions& options, const std::string& program_folder, std::ostream& out,
                  std::ostream& err);

/// Checks Cabrillo files; the report goes to `out`. Returns the exit status.
int check_files(const CliOptions& options, std::ostream& out, std::ostream& err);

/// The exit status that stands for the end of an action.
int status_of(const ActionResult& result);

/// Shows the settings, or sets those given and writes them. Returns the exit status.
int run_settings(const CliOptions& options, const std::string& program_folder, std::ostream& out,
                 std::ostream& err);

}  // namespace varnisto
