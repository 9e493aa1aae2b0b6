#include "cli/report.h"

#include <nlohmann/json.hpp>
#include <ostream>

#include "base/cp932.h"
#include "base/text.h"
#include "cabrillo/header.h"
#include "cli/json_bytes.h"

namespace varnisto {
namespace {

using Json = nlohmann::ordered_json;

/// One object on one line.
void put_json(const Json& object, std::ostream& out) {
  out << with_surrogates(object.dump()) << "\n";
}

/// The same for a list of texts.
Json json_texts(const std::vector<std::string>& texts) {
  Json array = Json::array();
  for (const std::string& text : texts) array.push_back(escape_bytes(text));
  return array;
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
      values[std::string{line.substr(0, colon)}] = escape_bytes(trim(line.substr(colon + 1)));
  }
  Json values = Json::object();
};

Json cabrillo_values(const App& app) {
  CategoryLines lines;
  put_cbr_header(app, lines);
  return lines.values;
}

/// Where the log's summary comes from, e.g. "zlog_all_zsm1": 1 the logger, 0 the program.
std::string zsm_kind(const InputState& input) {
  const std::string_view kind = names_of(input.in_kind).name;
  return kind.empty() ? "" : std::string{kind}.append(input.has_zsm ? "_zsm1" : "_zsm0");
}

std::string kind_text(const LogState& log) {
  std::string text{names_of(log.input.in_kind).name};
  return text.append(" (").append(zsm_kind(log.input)).append(", ").append(name_of(log.contest.select_from)) +
         ")";
}

Json error_value(const ActionResult& result) {
  if (result.kind == ActionResult::done) return nullptr;
  return {{"number", result.number}, {"text", escape_bytes(result.text)}};
}

Json note_values(const Notes& notes) {
  Json array = Json::array();
  for (const Note& note : notes.all())
    array.push_back({{"kind", note_name(note.kind)},
                     {"count", note.count},
                     {"line", note.line},
                     {"text", escape_bytes(note_text(note))}});
  return array;
}

}  // namespace

void put_report(const App& app, const ActionResult& result, std::ostream& out) {
  const InputState& input = app.state.log.input;
  out << input.in_name << "\n";
  if (result.kind != ActionResult::done) {
    put_field(out, "refused", replace_all(result.text, "\r\n", " "));
    return;
  }
  const bool is_log = input.in_kind != InputKind::cabrillo;  // such a file tells no more of itself
  put_field(out, "kind", is_log ? kind_text(app.state.log) : "cbr");
  put_field(out, "contest", app.state.log.contest.contest);
  put_field(out, "call sign", app.state.settings.mycall);
  put_field(out, "category", app.state.log.category.cat_summary);
  if (is_log) put_field(out, "score", std::to_string(app.state.log.tally.total_score));
  put_field(out, "QSOs", std::to_string(input.qsos_written));
  for (const std::string& path : input.outputs) put_field(out, "written", path);
  for (const std::string& finding : app.state.log.input.check_findings) put_field(out, "finding", finding);
  const std::int64_t more = app.state.log.input.finding_count -
                            static_cast<std::int64_t>(app.state.log.input.check_findings.size());
  if (more > 0) put_field(out, "finding", "... " + std::to_string(more) + " more");
  for (const Note& note : app.state.log.notes.all()) put_field(out, "note", note_text(note));
}

void put_json_report(const App& app, const ActionResult& result, const std::vector<std::string>& messages,
                     std::ostream& out) {
  const State& state = app.state;
  const bool done = result.kind == ActionResult::done;
  const Json report = {
      {"input", escape_bytes(state.log.input.in_name)},
      {"in_kind", names_of(state.log.input.in_kind).name},
      {"zsm_kind", zsm_kind(state.log.input)},
      {"select_from", name_of(state.log.contest.select_from)},
      {"contest", escape_bytes(state.log.contest.contest)},
      {"cont_id", escape_bytes(state.log.contest.cont_id)},
      {"callsign", escape_bytes(trim(state.settings.mycall))},
      {"category", escape_bytes(state.log.category.cat_summary)},
      {"cabrillo", cabrillo_values(app)},
      {"score", state.log.tally.total_score},
      {"qsos", state.log.input.qsos_written},
      {"outputs", done ? json_texts(state.log.input.outputs) : Json::array()},
      {"findings", json_texts(state.log.input.check_findings)},
      {"finding_count", state.log.input.finding_count},
      {"notes", note_values(state.log.notes)},
      {"mail",
       {{"to", escape_bytes(state.log.mail.send_to_add)},
        {"subject", escape_bytes(state.log.mail.mail_subject)}}},
      {"messages", json_texts(messages)},
      {"ok", done},
      {"error", error_value(result)},
  };
  put_json(report, out);
}

void put_json_check(const CheckReport& report, std::ostream& out) {
  put_json({{"input", escape_bytes(report.path)},
            {"qsos", report.found.qsos},
            {"findings", json_texts(report.found.findings)},
            {"finding_count", report.found.finding_count},
            {"notes", note_values(report.notes)},
            {"ok", report.result.kind == ActionResult::done},
            {"error", error_value(report.result)}},
           out);
}

void put_settings(const std::vector<SettingOverride>& values, bool as_json, std::ostream& out) {
  Json object = Json::object();
  for (const auto& [key, value] : values) {
    if (as_json)
      object[key] = escape_bytes(value);
    else
      out << key << "=" << value << "\n";
  }
  if (as_json) put_json(object, out);
}

}  // namespace varnisto
