#include "sheet/tally.h"

#include <algorithm>

#include "base/checked_int.h"
#include "base/columns.h"
#include "base/text_reader.h"
#include "cabrillo/all_line.h"
#include "cabrillo/writer.h"
#include "core/paths.h"

namespace varnisto {
namespace {

// Each multiplier is looked for one column before its field: the "-" of an old multiplier may stand there.
constexpr Columns col_mult1{54, 6}, col_mult2{60, 6};

/// Digits of a frequency field: a memo frequency counts as the Cabrillo log shows it.
constexpr std::size_t frequency_digits = 5;

std::int64_t frequency_of(const TextLine& line, bool from_memo) {
  constexpr int khz = 1000;
  const auto memo = from_memo ? memo_frequency(line.text()) : std::nullopt;
  if (memo) return round_half_even(numeric_value(right(*memo, frequency_digits)));
  return round_half_even(numeric_value(trim(line.cut(all_columns::band))) * khz);
}

void count_mode(std::string_view column, TallyState& tally) {
  const auto mode = mode_of_column(column);
  if (mode == Mode::cw) add_checked(tally.cw_count, 1, "cw_count");
  if (mode == Mode::ssb) add_checked(tally.ssb_count, 1, "ssb_count");
  if (mode == Mode::rtty) add_checked(tally.rty_count, 1, "rty_count");
  if (mode == Mode::fm) add_checked(tally.fm_count, 1, "fm_count");
}

bool is_new_multiplier(std::string_view column) {
  const std::string_view text = trim(column);
  return !text.empty() && text != "-";
}

}  // namespace

const TallyRules all_tally = {{{{1800, 2000, 1},
                                {3500, 4000, 1},
                                {7000, 7500, 1},
                                {14000, 14500, 1},
                                {21000, 21500, 1},
                                {28000, 30000, 1}}},
                              false};
const TallyRules waedc_tally = {{{{1900, 2000, 4},
                                  {3500, 3600, 4},
                                  {7000, 7500, 3},
                                  {14000, 14500, 2},
                                  {21000, 21500, 2},
                                  {28000, 30000, 2}}},
                                true};

TallyOptions tally_options(const App& app) {
  const Settings& settings = app.state.settings;
  return {settings.mode_2_rtty_flag, settings.get_freq_flag};
}

void tally_line(std::string_view text, const TallyRules& rules, const TallyOptions& options,
                TallyState& tally) {
  const TextLine line{text};
  if (!options.rtty) count_mode(line.cut(all_columns::mode), tally);
  const std::int64_t frequency = frequency_of(line, options.memo_frequency);
  const auto* const band = std::ranges::find_if(rules.bands, [&](const TallyBand& candidate) {
    return frequency >= candidate.lowest && frequency <= candidate.highest;
  });
  if (band == rules.bands.end()) return;
  BandTally& row = tally.band_tally.at(static_cast<std::size_t>(band - rules.bands.begin()));
  add_checked(row.pts_sum, round_half_even(numeric_value(trim(line.cut(all_columns::points)))), "pts_sum");
  if (is_new_multiplier(line.cut(col_mult1))) add_checked(row.mult1_cnt, band->mult1_weight, "mult1_cnt");
  if (is_new_multiplier(line.cut(col_mult2))) add_checked(row.mult2_cnt, 1, "mult2_cnt");
  if (rules.counts_qtc && contains(text, "[QTC")) add_checked(row.qtc_cnt, 1, "qtc_cnt");
  add_checked(row.qso_cnt, 1, "qso_cnt");
}

void sum_totals(TallyState& tally) {
  struct Total {
    std::int16_t BandTally::*counter;
    std::int32_t TallyState::*total;
  };
  constexpr Total totals[] = {{&BandTally::qso_cnt, &TallyState::qsos_total},
                              {&BandTally::pts_sum, &TallyState::points_total},
                              {&BandTally::qtc_cnt, &TallyState::qtcs_total},
                              {&BandTally::mult1_cnt, &TallyState::multi1_total},
                              {&BandTally::mult2_cnt, &TallyState::multi2_total}};
  for (const Total& sum : totals) {
    tally.*sum.total = 0;
    for (const BandTally& row : tally.band_tally) tally.*sum.total += row.*sum.counter;
  }
}

void tally_log(App& app, const TallyRules& rules) {
  zero_clear(app);
  const TallyOptions options = tally_options(app);
  TallyState& tally = app.state.log.tally;
  TextReader log = read_text(app, app.state.log.input.z2a_name);
  std::string_view line;
  log.next(line);  // the title line
  bool found = false;
  while (log.next(line)) {
    if (!holds_qso(line)) continue;
    found = true;
    tally_line(line, rules, options, tally);
  }
  if (!found) throw Refusal(std::string{no_qso_text});
  sum_totals(tally);
}

}  // namespace varnisto
