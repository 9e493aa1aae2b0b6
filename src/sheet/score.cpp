#include "sheet/score.h"

#include <algorithm>
#include <iterator>

#include "base/checked_int.h"
#include "cabrillo/contest.h"

namespace varnisto {
namespace {

enum class Formula { first_multiplier, both_multipliers, none };

struct ScoreRow {
  std::string_view code;  ///< of a title that the built-in table knows
  Formula formula;
};
/// Contests not named here, and those that only contest_name.cfg knows: points times first multipliers.
constexpr ScoreRow score_rows[] = {{"CQ-WW", Formula::both_multipliers},
                                   {"CQ-160", Formula::both_multipliers},
                                   {"JIDX", Formula::both_multipliers},
                                   {"AA-DX", Formula::none},
                                   {"AA-SP", Formula::none}};

/// WAEDC titles are left to contest_name.cfg: its code decides between the two tallies.
std::optional<std::string_view> sheet_code(std::string_view title) {
  const auto code = title_code(title);
  return code == "WAEDC" ? std::nullopt : code;
}

Formula formula_of(std::string_view title) {
  const auto code = sheet_code(title);
  const auto* hit = std::ranges::find(score_rows, code.value_or(""), &ScoreRow::code);
  return hit == std::end(score_rows) ? Formula::first_multiplier : hit->formula;
}

std::int32_t product(std::int64_t a, std::int64_t b) {
  return to_i32(a * b, "total_score");
}

}  // namespace

std::optional<std::int32_t> score_of(std::string_view title, const TallyState& tally) {
  const Formula formula = formula_of(title);
  if (formula == Formula::none) return std::nullopt;
  const std::int64_t second = formula == Formula::both_multipliers ? tally.multi2_total : 0;
  return product(tally.multi1_total + second, tally.points_total);
}

bool has_score_rule(std::string_view title) {
  return formula_of(title) != Formula::none;
}

std::int32_t waedc_score(const TallyState& tally) {
  return product(std::int64_t{tally.points_total} + tally.qtcs_total, tally.multi1_total);
}

void set_sheet_code(App& app, std::string_view title) {
  const auto code = sheet_code(title);
  app.state.log.contest.cont_id = code.value_or(title);
  if (!code) get_contest_name(app);
}

}  // namespace varnisto
