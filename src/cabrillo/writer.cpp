#include "cabrillo/writer.h"

#include <initializer_list>

#include "base/text.h"
#include "base/text_reader.h"
#include "base/text_writer.h"
#include "cabrillo/all_line.h"
#include "cabrillo/category.h"
#include "cabrillo/header.h"
#include "cabrillo/qso_line.h"
#include "cabrillo/qso_remarks.h"
#include "cabrillo/summary.h"
#include "core/contests.h"
#include "core/entry.h"
#include "core/paths.h"

namespace varnisto {
namespace {

struct Replacement {
  std::string_view from, to;
};

constexpr Replacement mode_removals[] = {{"SSB", ""}, {"CW", ""}, {"RTY", ""}, {"MIXED", ""}};
constexpr Replacement jidx_replacements[] = {{" LOW", "L"}, {" HIGH", ""}};
constexpr Replacement doubled_modes[] = {{"SSB  SSB", "SSB"}, {"SSB  CW", "CW"}, {"CW  CW", "CW"}};

template <std::size_t n>
void replace_each(std::string& text, const Replacement (&replacements)[n]) {
  for (const Replacement& replacement : replacements)
    text = replace_all(text, replacement.from, replacement.to);
}

bool is_jidx(const App& app) {
  return family_of(app.state.log.contest.contest) == ContestFamily::jidx;
}

/// Bands in megahertz become bands in metres; "29" is left alone.
void replace_bands(std::string& text) {
  text = replace_all(text, names_of(Band::m160).second, names_of(Band::m160).cabrillo);
  for (std::size_t i = 0; i < band_count; ++i)
    text = replace_all(text, names_of(band_at(i)).megahertz, names_of(band_at(i)).cabrillo);
}

/// `out_name` by the CONTEST value.
std::string output_name(const App& app) {
  const std::string base = app.state.log.input.out_dir + call_for_names(app);
  const std::string& contest = app.state.log.contest.contest;
  if (is_jidx(app)) return base + "-" + name_text(app.state.log.category.cat_summary) + ".log";
  return base + (contains(contest, "ARRL") ? ".log" : ".cbr");
}

/// Contests whose category text names no mode.
bool without_mode(std::string_view contest) {
  return contains(contest, "CQ-WPX") || contains(contest, "CQ-WW") || contains(contest, "ARRL-DX");
}

/// The choices of the selection dialog stand in for the category text when they were made for this log.
void prefer_dialog_category(App& app) {
  if (!is_jidx(app) && dialog_wins(app.state))
    app.state.log.category.cat_summary = dialog_category(app.state.entry);
}

void tidy_texts(App& app) {
  std::string& summary = app.state.log.category.cat_summary;
  summary = single_dashes(to_upper(single_blanks(summary)));
  app.state.log.contest.contest = single_dashes(app.state.log.contest.contest);
}

/// What differs between the two writers beside the preparation of the category.
struct Plan {
  std::string log;  ///< the ALL log
  bool rtty;        ///< the option that makes every mode "RY" counts
};

/// Reads `line` up to the log's first QSO. Throws Refusal when there is none: nothing has been written yet
/// then.
void find_first_qso(TextReader& log, std::string_view& line) {
  log.next(line);  // the title line
  while (log.next(line))
    if (holds_qso(line)) return;
  throw Refusal(std::string{no_qso_text});
}

QsoLineContext line_context(const App& app) {
  QsoLineContext context;
  context.mycall14 = app.state.settings.mycall14;
  context.multi_tx = names_of(app.state.entry.op).multi_tx;
  context.named_all = right(app.state.log.input.in_name, 3) == "all";
  context.qtc_columns = app.state.settings.add_qtc_flag;
  return context;
}

/// Writes every QSO from `line` to the end of the log and counts what was written and what the contest leaves
/// out.
void put_qsos(App& app, TextReader& log, std::string_view line, bool rtty, LineSink& out) {
  const QsoLineContext context = line_context(app);
  const AllOptions options = all_options(app, rtty);
  QsoFormatter* const format = formatter_for(app.state.log.contest.cont_id);
  std::int32_t& written = app.state.log.input.qsos_written;
  written = 0;
  QsoRec rec;
  QsoRemarks remarks;
  std::string text;
  do {
    if (!holds_qso(line)) continue;
    parse_all_line(TextLine{line, log.ascii()}, options, rec);
    const bool wanted = format(context, line, rec, text);
    if (wanted) out.put(text);
    if (wanted) ++written;
    remarks.add(rec, wanted, log.line_number());
  } while (log.next(line));
  remarks.note(app.state.log.notes);
  note_after_end(app.state.log.notes, log);
}

/// Common to both writers once CONTEST value and category text stand: choose the name, write the file.
void print(App& app, const Plan& plan) {
  InputState& input = app.state.log.input;
  TextReader log = read_text(app, plan.log);
  std::string_view line;
  find_first_qso(log, line);
  TextWriter out{app.outputs.create(input.out_name)};
  put_cbr_header(app, out);
  put_qsos(app, log, line, plan.rtty, out);
  out.put("END-OF-LOG:");
  out.close();
  input.outputs.push_back(input.out_name);
}

}  // namespace

AllOptions all_options(const App& app, bool rtty) {
  const Settings& settings = app.state.settings;
  AllOptions options;
  options.rtty = rtty && settings.mode_2_rtty_flag;
  options.memo_frequency = settings.get_freq_flag;
  options.as_1800 = settings.freq19_to_18_flag;
  if (is_jidx(app)) options.jidx_number = settings.jidx_no;
  return options;
}

void zlog_all_za2c_print(App& app) {
  app.trace.line("Public Sub zlog_all_za2c_print()");
  set_category_cbr(app);
  InputState& input = app.state.log.input;
  input.out_name = output_name(app);
  // The tallies are left as they are: a second run of the same log derives its band and mode from them again.
  reset_power(app);

  std::string& contest = app.state.log.contest.contest;
  prefer_dialog_category(app);
  if (without_mode(contest)) {
    replace_each(app.state.log.category.cat_summary, mode_removals);
    replace_bands(app.state.log.category.cat_summary);
  }
  tidy_texts(app);
  if (contains(contest, "IARU HF Championship")) contest = "IARU-HF";
  if (is_blank(contest)) contest = app.state.log.contest.contest_name;
  print(app, {input.in_kind == InputKind::zlog_zlo ? input.z2a_name : input.in_name, true});
}

void zlog_all_zsm_print(App& app) {
  app.trace.line("Public Sub zlog_all_zsm_print()");
  sep_space_cbr(app);
  InputState& input = app.state.log.input;
  std::string& summary = app.state.log.category.cat_summary;
  const std::string& contest = app.state.log.contest.contest;
  summary = single_blanks(summary);
  zero_clear(app);
  reset_power(app);

  prefer_dialog_category(app);
  if (without_mode(contest)) replace_each(summary, mode_removals);
  if (is_jidx(app))
    replace_each(summary, jidx_replacements);
  else
    replace_bands(summary);
  replace_each(summary, doubled_modes);
  input.out_name = output_name(app);  // for JIDX the name carries the category text
  tidy_texts(app);
  print(app, {input.in_name, false});
}

}  // namespace varnisto
