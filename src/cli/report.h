#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "app/action.h"
#include "app/checker.h"
#include "cli/options.h"
#include "core/app.h"

namespace varnisto {

/// Writes the short report of one log: kind, contest, call, category, score, QSOs, files, findings.
void put_report(const App& app, const ActionResult& result, std::ostream& out);

/// The same as one JSON object on one line.
void put_json_report(const App& app, const ActionResult& result, const std::vector<std::string>& messages,
                     std::ostream& out);

/// What the checker found in a file, as one JSON object on one line.
struct CheckReport {
  std::string path;
  CheckResult found;
  Notes notes;
  ActionResult result;  ///< done, or why the file was not checked
};
void put_json_check(const CheckReport& report, std::ostream& out);

/// Settings as KEY=VALUE lines, or as one JSON object.
void put_settings(const std::vector<SettingOverride>& values, bool as_json, std::ostream& out);

}  // namespace varnisto
