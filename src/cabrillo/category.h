#pragma once
// The entry category: from the user's choices and the log's own counts to the words of the Cabrillo header.

#include <optional>
#include <string>
#include <string_view>

#include "core/app.h"

namespace varnisto {

/// The words a category text is made of.
struct CategoryWords {
  std::string op;          ///< operator text and a blank
  std::string band;        ///< band word, e.g. "40M " or "All Band"
  std::string band_value;  ///< CATEGORY-BAND value, e.g. "40M"
  std::string power;       ///< "HIGH", "LOW", "QRP"
  std::string mode;        ///< mode word with its blank, e.g. "SSB "
};

/// CONTEST value and category text that a contest code makes of these words.
struct CategoryTexts {
  std::string contest;
  std::string summary;
  std::string code;  ///< the contest code, which takes the mode in a few contests: "WAEDC-CW"
};
CategoryTexts category_texts(std::string_view code, const CategoryWords& words);

/// JIDX category code: band code of `band` ("7", "40M ", "All Band", ...) and "L" for low power; "MOP" unless
/// `operator_text` is a single operator's.
std::string jidx_category_code(std::string_view operator_text, std::string_view band, std::string_view power);

/// `operator_cat`: the operator text that stands behind the category texts. A ZLO log with the logger's
/// summary has it as summaries do ("Single-op"), every other one in capitals.
std::string_view operator_cat(const State& state);

/// The one band with QSOs; nothing when there are several or none.
std::optional<Band> only_band_worked(const TallyState& tally);
/// The mode of the log by its mode counts.
Mode counted_mode(const TallyState& tally);
/// Score, QSOs, points and multipliers as `score_detail` holds them, e.g. "123456 500-1200-103".
std::string score_detail_of(const TallyState& tally);

/// Puts them into the state: `contest`, `cat_summary`, `cont_id`.
void apply_texts(App& app, const CategoryWords& words);

/// What a JIDX contest code adds to the category: category code, contest code by mode, score text.
void apply_jidx(App& app, std::string_view operator_text, const CategoryWords& words);

/// Every "--" becomes "-".
std::string single_dashes(std::string_view text);

/// Derives operator, power, band and mode words, the contest code from the title, CONTEST value and category
/// text.
void set_category_cbr(App& app);

}  // namespace varnisto
