#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "app/action.h"
#include "core/app.h"

namespace varnisto {

/// Writes the short report of one log: kind, contest, call, category, score, QSOs, files, findings.
void put_report(const App& app, const ActionResult& result, std::ostream& out);

/// The same as one JSON object on one line.
void put_json_report(const App& app, const ActionResult& result, const std::vector<std::string>& messages,
                     std::ostream& out);

}  // namespace varnisto
