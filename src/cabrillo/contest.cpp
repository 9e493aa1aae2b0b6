#include "cabrillo/contest.h"

#include <algorithm>
#include <iterator>

#include "base/fields.h"
#include "base/text.h"
#include "core/lists.h"

namespace varnisto {
namespace {

struct TitleCode {
  std::string_view title, code;
};

constexpr TitleCode title_codes[] = {
    {"ARRL 10m Con", "ARRL-10"}, {"ARRL Interna", "ARRL-DX"}, {"CQ WPX Conte", "CQ-WPX"},
    {"CQWW DX Cont", "CQ-WW"},   {"IARU HF Worl", "IARU-HF"}, {"ARRL 160m Co", "ARRL-160"},
    {"CQWW160     ", "CQ-160"},  {"WAEDC Contes", "WAEDC"},   {"JIDX Contest", "JIDX"},
    {"All Asian DX", "AA-DX"},   {"Asia Pacific", "AA-SP"}};
static_assert(std::ranges::all_of(title_codes, [](const TitleCode& row) { return row.title.size() == 12; }));

constexpr TitleCode ccc_codes[] = {
    {"ARRLD", "ARRL-DX"}, {"CQWPX", "CQ-WPX"}, {"CQWW ", "CQ-WW"}, {"IARU ", "IARU-HF"}, {"JIDX ", "JIDX"}};

template <std::size_t n>
std::optional<std::string_view> find_code(const TitleCode (&codes)[n], std::string_view title) {
  const auto* hit = std::ranges::find(codes, title, &TitleCode::title);
  return hit == std::end(codes) ? std::nullopt : std::optional{hit->code};
}

/// The first record of the list whose title occurs in this one; null when there is none.
const ContestName* find_listed(const App& app, std::string_view title) {
  const auto& names = app.state.lists.contest_names;
  const auto hit = std::ranges::find_if(names, [&](const auto& name) { return contains(title, name.title); });
  return hit == names.end() ? nullptr : &*hit;
}

}  // namespace

void read_contest_name(App& app) {
  app.trace.line("Public Sub read_contest_name()");
  read_contest_names(FieldReader{TextReader{app.state.program.app_dir + "contest_name.cfg"}},
                     app.state.lists.contest_names);
}

void read_contest_names(FieldReader reader, std::vector<ContestName>& names) {
  names.clear();
  const auto next_on_line = [&] {  // a record is one line
    if (reader.at_line_end()) throw ListFileError(RunTimeError::past_end, reader.place());
    return reader.must_next();
  };
  while (auto title = reader.next()) {
    if (title->empty() && reader.at_line_end()) continue;  // an empty line
    if (names.size() == most_contest_names) throw ListFileError(RunTimeError::bad_subscript, reader.place());
    ContestName record;
    record.title = *std::move(title);
    record.code = next_on_line();
    next_on_line();  // a note
    reader.end_line();
    names.push_back(std::move(record));
  }
}

void get_contest_name(App& app) {
  app.trace.line("Public Sub get_contest_name()");
  read_contest_name(app);
  std::string& cont_id = app.state.log.contest.cont_id;
  if (const ContestName* const listed = find_listed(app, cont_id)) cont_id = listed->code;
}

std::optional<std::string_view> title_code(std::string_view title) {
  if (title == "JIDX") return "JIDX";
  return find_code(title_codes, left(title, 12));
}

std::string_view code_of_title(const App& app, std::string_view title) {
  if (const auto code = title_code(title)) return *code;
  const ContestName* const listed = find_listed(app, title);
  return listed ? std::string_view{listed->code} : title;
}

std::optional<std::string_view> ccc_type_code(std::string_view type) {
  return find_code(ccc_codes, left(type, 5));
}

std::string jidx_code(const ScanState& scan, std::string_view current) {
  if (scan.mode_sel != Mode::cw) return "JIDX";
  if (!scan.lowband) return std::string{current};
  return *scan.lowband ? "JIDX-LF" : "JIDX-HF";
}

void map_title_to_code(App& app) {
  std::string& cont_id = app.state.log.contest.cont_id;
  const std::string title = cont_id;
  const auto code = title_code(title);
  if (!code)
    get_contest_name(app);
  else if (code == "JIDX" && title != "JIDX")
    cont_id = jidx_code(app.state.log.scan, title);
  else
    cont_id = *code;
}

}  // namespace varnisto
