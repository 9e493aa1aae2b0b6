#include "cli/report.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "base/text.h"
#include "cabrillo/header.h"

namespace varnisto {
namespace {

using Json = nlohmann::ordered_json;

/// One object on one line; bytes that are no character are replaced.
void put_json(const Json& object, std::ostream& out) {
  out << object.dump(-1, ' ', false, Json::error_handler_t::replace) << "\n";
}

/// One line of the report; nothing for an empty value.
void put_field(std::ostream& out, std::string_view name, std::string_view value) {
  if (!is_blank(value)) out << "  " << pad_right(name, 10) << trim(value) << "\n";
}

/// The CATEGORY values as the header carries them.
class CategoryLines final : public LineSink {
 public:
  void put(std::string_view line) override {
    const std::size_t colon = line.find(':');
    if (line.starts_with("CATEGORY-"))
      values[std::string{line.substr(0, colon)}] = trim(line.substr(colon + 1));
  }
  Json values = Json::object();
};

Json cabrillo_values(const App& app) {
  CategoryLines lines;
  put_cbr_header(app, lines);
  return lines.values;
}

Json error_value(const ActionResult& result) {
  if (result.kind == ActionResult::done) return nullptr;
  return {{"number", result.number}, {"text", result.text}};
}

}  // namespace

void put_report(const App& app, const ActionResult& result, std::ostream& out) {
  const InputState& input = app.state.input;
  out << input.in_name << "\n";
  if (result.kind != ActionResult::done) {
    put_field(out, "refused", replace_all(result.text, "\r\n", " "));
    return;
  }
  const bool is_log = !input.in_kind.empty();  // else a Cabrillo file, which tells no more of itself
  put_field(out, "kind",
            is_log ? input.in_kind + " (" + input.zsm_kind + ", " + app.state.contest.select_from + ")"
                   : input.in_type);
  put_field(out, "contest", app.state.contest.contest);
  put_field(out, "call sign", app.state.settings.mycall);
  put_field(out, "category", app.state.category.cat_summary);
  if (is_log) put_field(out, "score", std::to_string(app.state.tally.total_score));
  put_field(out, "QSOs", std::to_string(input.qsos_written));
  if (input.lines_dropped > 0)
    put_field(out, "left out", std::to_string(input.lines_dropped) + " (no received report)");
  for (const std::string& path : input.outputs) put_field(out, "written", path);
  for (const std::string& finding : app.state.display.check_findings) put_field(out, "finding", finding);
}

void put_json_report(const App& app, const ActionResult& result, const std::vector<std::string>& messages,
                     std::ostream& out) {
  const State& state = app.state;
  const Json report = {
      {"input", state.input.in_name},
      {"in_kind", state.input.in_kind},
      {"zsm_kind", state.input.zsm_kind},
      {"select_from", state.contest.select_from},
      {"contest", state.contest.contest},
      {"cont_id", state.contest.cont_id},
      {"callsign", trim(state.settings.mycall)},
      {"category", state.category.cat_summary},
      {"cabrillo", cabrillo_values(app)},
      {"score", state.tally.total_score},
      {"qsos", state.input.qsos_written},
      {"outputs", state.input.outputs},
      {"findings", state.display.check_findings},
      {"mail", {{"to", state.mail.send_to_add}, {"subject", state.mail.mail_subject}}},
      {"messages", messages},
      {"ok", result.kind == ActionResult::done},
      {"error", error_value(result)},
  };
  put_json(report, out);
}

void put_json_check(const std::string& path, const CheckResult& result, const std::string& error,
                    std::ostream& out) {
  Json report = {
      {"input", path}, {"qsos", result.qsos}, {"findings", result.findings}, {"ok", error.empty()}};
  report["error"] = error.empty() ? Json(nullptr) : Json(error);
  put_json(report, out);
}

void put_settings(const std::vector<SettingOverride>& values, bool as_json, std::ostream& out) {
  Json object = Json::object();
  for (const auto& [key, value] : values) {
    if (as_json)
      object[key] = value;
    else
      out << key << "=" << value << "\n";
  }
  if (as_json) put_json(object, out);
}

}  // namespace varnisto
