#include "sheet/za2c_zsm.h"

#include <algorithm>
#include <iterator>

#include "base/checked_int.h"
#include "base/files.h"
#include "base/text.h"
#include "cabrillo/category.h"
#include "cabrillo/summary.h"
#include "core/entry.h"
#include "sheet/score.h"
#include "sheet/sheet_writer.h"
#include "sheet/tally.h"

namespace varnisto {
namespace {

struct SheetRow {
  std::string_view cont_id;
  void (*write)(App&);
};
constexpr SheetRow sheet_rows[] = {{"CQ-WW", make_za2c_zsm_CQWW},
                                   {"JIDX", make_za2c_zsm_CQWW},
                                   {"CQ-WPX", make_za2c_zsm_CQWPX},
                                   {"WAEDC", Make_zlo2_za2c_zsm1_WAEDC}};

void write_sheet_of_contest(App& app) {
  const auto* hit = std::ranges::find(sheet_rows, app.state.log.contest.cont_id, &SheetRow::cont_id);
  hit == std::end(sheet_rows) ? make_za2c_zsm(app) : hit->write(app);
}

void tally_and_score(App& app) {
  tally_log(app, all_tally);
  const std::string title = sheet_title(app);
  set_sheet_code(app, title);
  TallyState& tally = app.state.log.tally;
  if (const auto score = score_of(title, tally))
    tally.total_score = *score;
  else if (app.state.log.input.in_kind == InputKind::zlog_all)  // no rule of its own: as for most contests
    tally.total_score = multiply_i32(tally.multi1_total, tally.points_total, "total_score");
  if (app.state.log.contest.cont_id == "JIDX") tally.score_detail = score_detail_of(tally);
}

}  // namespace

SheetCategory sheet_category(const TallyState& tally, std::string_view cont_id, Operator op,
                             std::optional<Mode> dialog_mode) {
  const Band band = cont_id == "ARRL-10" ? Band::m10 : only_band_worked(tally).value_or(Band::all);
  const BandNames& names = names_of(band);
  const std::string_view mode =
      dialog_mode ? names_of(*dialog_mode).dialog : names_of(counted_mode(tally)).sheet;
  const auto text_of = [&](std::string_view band_text) {
    return single_blanks(
        std::string{names_of(op).text}.append(" ").append(band_text).append(" ").append(mode));
  };
  return {text_of(names.sheet), text_of(band == Band::all ? names.sheet : names.cabrillo)};
}

void set_category_za2c_zsm(App& app) {
  app.trace.line("Public Sub set_category_za2c_zsm()");
  const EntryChoice& entry = app.state.entry;
  const SheetCategory texts = sheet_category(
      app.state.log.tally, app.state.log.contest.cont_id, entry.dialog_shown ? entry.op : Operator::single_op,
      dialog_wins(app.state) ? std::optional{entry.mode} : std::nullopt);
  CategoryState& category = app.state.log.category;
  category.zsm_category = texts.printed;
  category.cat_text = texts.with_band;
  category.cat_band = names_of(entry.band_sel.value_or(Band::all)).cabrillo;
  show_summary(app);
}

void Make_zlo2_za2c_zsm1(App& app) {
  app.trace.line("Public Sub Make_zlo2_za2c_zsm1()");
  tally_and_score(app);
  set_category_za2c_zsm(app);
  write_sheet_of_contest(app);
}

void Make_zlo2_za2c_zsm1_WAEDC(App& app) {
  app.trace.line("Public Sub Make_zlo2_za2c_zsm1_WAEDC()");
  tally_log(app, waedc_tally);
  app.state.log.contest.cont_id = "WAEDC";
  app.state.log.tally.total_score = waedc_score(app.state.log.tally);
  make_za2c_zsm_WAEDC(app);
}

void make_listed_contest_zsm(App& app) {
  tally_and_score(app);
  set_category_za2c_zsm(app);
  if (!file_exists(app.state.log.input.zsm_name)) Make_zlo2_za2c_zsm2(app);
}

}  // namespace varnisto
