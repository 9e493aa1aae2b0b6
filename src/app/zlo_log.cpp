#include "app/zlo_log.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/checked_int.h"
#include "base/text.h"
#include "base/text_writer.h"
#include "cabrillo/all_scan.h"
#include "cabrillo/category.h"
#include "cabrillo/contest.h"
#include "cabrillo/summary.h"
#include "cabrillo/writer.h"
#include "core/contests.h"
#include "core/entry.h"
#include "sheet/score.h"
#include "sheet/sheet_writer.h"
#include "sheet/za2c_zsm.h"
#include "zlo/zlo_files.h"
#include "zlo/zlo_head.h"
#include "zlo/zlo_scan.h"

namespace varnisto {
namespace {

/// What only the records tell.
void keep(const ZloWritten& written, ZloRecords& kept) {
  kept.qsos = written.count.qsos;
  kept.records = written.count.records;
  kept.invalid = written.count.invalid;
  kept.passed_over = written.count.passed_over;
  kept.unnamed_mode = written.unnamed_mode;
  kept.unnamed_band = written.unnamed_band;
  kept.unnamed_frequency = written.unnamed_frequency;
}

/// The text log and, with `jarl`, the log sheet.
void write_files(App& app, bool jarl) {
  InputState& input = app.state.log.input;
  ZloReader log{input.in_name};
  TextWriter all{app.outputs.create(input.z2a_name)};
  add_output(input, input.z2a_name);
  std::optional<TextWriter> sheet;
  if (jarl) sheet.emplace(app.outputs.create(input.jarl_name));
  keep(write_zlo_files(log, {all, sheet ? &*sheet : nullptr, jarl}), app.state.log.zlo);
  all.close();
  if (!sheet) return;
  sheet->close();
  add_output(input, input.jarl_name);
}

void show_found(App& app) {
  const LogState& log = app.state.log;
  show_text(app, zlo_found_text(log.contest.zlo_title, std::to_string(log.tally.total_score)), Color::green);
}

/// A log whose head names no contest: what the summary calls it is taken.
void take_contest_of_summary(App& app) {
  ContestState& contest = app.state.log.contest;
  if (is_blank(contest.contest) && !is_blank(contest.contest_name)) {
    contest.contest = contest.contest_name;
    show_text(app, contest.contest, Color::green);
  }
  if (is_blank(contest.contest)) show_text(app, "ｺﾝﾃｽﾄ名　取得不可能", Color::green);
}

/// The program's own sheet of a log without a summary; the general one stays for every contest until the
/// selection dialog has been confirmed.
void make_own_sheet(App& app) {
  write_files(app, true);
  if (app.state.log.zlo.qsos == 0) throw Refusal(std::string{no_qso_text});
  app.state.log.contest.cont_id == "WAEDC" ? Make_zlo2_za2c_zsm1_WAEDC(app) : Make_zlo2_za2c_zsm1(app);
  set_category_za2c_zsm(app);
  Make_zlo2_za2c_zsm2(app);
}

void open_dialogs(App& app) {
  const bool summary = app.state.log.input.has_zsm;
  const std::string& title = app.state.log.contest.contest_name;
  if (summary) open_overlay_of_title(app);
  const std::string& named = summary ? title : app.state.log.contest.zlo_title;
  if (family_of(named) == ContestFamily::jidx) show_jidx_powers(app, named);
  if (!summary || app.state.settings.select_cont_yusen == Precedence::dialog ||
      family_of(title) == ContestFamily::iota)
    show_select_cont(app);
}

void show_labels(App& app) {
  LabelState& labels = app.state.log.labels;
  show_summary(app);
  labels.zsm_disp2 = "total_score ：  " + std::to_string(app.state.log.tally.total_score);
  if (family_of(app.state.log.contest.zlo_title) == ContestFamily::jidx)
    labels.power = jidx_power_label(app.state.settings);
  labels.dialog_wins = dialog_wins(app.state);
  labels.category = labels.dialog_wins ? "CATEGORY: " + dialog_category(app.state.entry) : "";
}

/// The note's line in the text log as the number of its record.
std::size_t record_of_line(const std::vector<std::uint16_t>& passed_over, std::size_t line) {
  for (const std::size_t record : passed_over) {
    if (record > line) break;
    ++line;
  }
  return line;
}

void renumber(App& app, NoteKind kind) {
  Notes& notes = app.state.log.notes;
  const auto hit = std::ranges::find(notes.all(), kind, &Note::kind);
  if (hit == notes.all().end()) return;
  Note note = *hit;
  note.line = record_of_line(app.state.log.zlo.passed_over, note.line);
  notes.set(std::move(note));
}

}  // namespace

void mnuMake_z2a_Click(App& app) {
  app.trace.line("Private Sub mnuMake_z2a_Click()");
  write_files(app, false);
}

void Make_zlo2all(App& app) {
  app.trace.line("Public Sub Make_zlo2all()");
  write_files(app, true);
  show_found(app);
}

void read_zlo_head(App& app) {
  app.trace.line("Public Sub read_zlo_head()");
  LogState& state = app.state.log;
  ZloReader log{state.input.in_name};
  const ZloHead head = read_zlo_head(log);
  state.zlo.utc = head.utc;
  state.zlo.qso_count = head.qso_count;
  state.contest.zlo_title = state.contest.cont_id = head.title;
  map_title_to_code(app);
  if (title_code(head.title) == "ARRL-DX") get_power_zlo(app);
  if (state.contest.select_from != SelectFrom::zlog_zsm) make_own_sheet(app);
  show_found(app);
  if (!head.titled) take_contest_of_summary(app);
}

void get_mode_band_zlo(App& app) {
  app.trace.line("Public Sub get_mode_band_zlo()");
  ZloReader log{app.state.log.input.in_name};
  const ScanCounts counts = scan_zlo(log, app.state.settings.mode_2_rtty_flag);
  counts.tell(app.state.log.scan);
  app.state.entry.band_sel = app.state.log.scan.band_sel;
  TallyState& tally = app.state.log.tally;
  tally.cw_count = to_i16(counts.cw, "cw_count");
  tally.ssb_count = to_i16(counts.ssb, "ssb_count");
  tally.rty_count = to_i16(counts.rtty, "rty_count");
}

void get_power_zlo(App& app) {
  app.trace.line("Public Sub get_power_zlo()");
  ZloReader log{app.state.log.input.in_name};
  app.state.log.scan.max_power_text = highest_zlo_power(log);
  select_power_of_log(app);
  app.state.log.labels.power = power_label(app.state.log.scan);
}

void shori_zlog_zlo(App& app) {
  app.trace.line("Public Sub shori_zlog_zlo()");
  LogState& state = app.state.log;
  state.contest.select_from = state.input.has_zsm ? SelectFrom::zlog_zsm : SelectFrom::zz2c_zsm;
  if (state.input.has_zsm) read_zlog_zsm(app);
  read_zlo_head(app);
  get_mode_band_zlo(app);
  open_dialogs(app);
  show_labels(app);
}

void note_zlo_records(App& app) {
  const Settings& settings = app.state.settings;
  const LogState& log = app.state.log;
  Notes& notes = app.state.log.notes;
  const ZloRecords& records = log.zlo;
  notes.set(NoteKind::mode_kept, settings.mode_2_rtty_flag ? Occurrences{} : records.unnamed_mode);
  notes.set(NoteKind::band_kept, settings.get_freq_flag ? records.unnamed_frequency : records.unnamed_band);
  notes.set(NoteKind::invalid, records.invalid);
  for (const NoteKind kind : {NoteKind::tx_dropped, NoteKind::qtc_unread}) renumber(app, kind);
  notes.set({NoteKind::utc_twice, records.utc && settings.jst_to_utc_flag ? 1 : 0});
  notes.set(
      {NoteKind::count_differs, records.qso_count.value_or(records.records) != records.records ? 1 : 0});
  const bool scored = log.input.has_zsm || has_score_rule(log.contest.zlo_title);
  notes.set({NoteKind::score_not_computed, scored ? 0 : 1});
}

}  // namespace varnisto
