#pragma once
// The claimed score that the program works out itself, by contest.

#include <cstdint>
#include <optional>
#include <string_view>

#include "core/app.h"

namespace varnisto {

/// The score of a contest with this title. Nothing for contests whose score is not worked out. Throws
/// RunTimeError 6 when it needs more than 32 bits.
std::optional<std::int32_t> score_of(std::string_view title, const TallyState& tally);
/// False for contests whose score is not worked out.
bool has_score_rule(std::string_view title);
/// The score of a WAEDC log: QTCs count like points.
std::int32_t waedc_score(const TallyState& tally);

/// Makes `cont_id` the code of a contest's title: built-in table, then contest_name.cfg.
void set_sheet_code(App& app, std::string_view title);

}  // namespace varnisto
