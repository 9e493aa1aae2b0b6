#pragma once
// From a log without a usable summary of the logger to the program's own: tally, score, category, sheet.

#include <optional>
#include <string>

#include "core/app.h"

namespace varnisto {

/// Counts `z2a_name`, works out contest code and score, and writes the sheet of the contest. Throws
/// RunTimeError 6 when a counter or the score overflows (an earlier sheet stays), others for files; Refusal
/// when the log has no QSO.
void Make_zlo2_za2c_zsm1(App& app);
/// The same with WAEDC's bands, multiplier weights and QTCs.
void Make_zlo2_za2c_zsm1_WAEDC(App& app);
/// For a contest that contest_name.cfg alone knows: the general sheet under the name in cont_name.txt, unless
/// the logger wrote a summary.
void make_listed_contest_zsm(App& app);

/// Builds `zsm_category` from the operator chosen in the dialog and the log's bands and modes, derives
/// CATEGORY-BAND and the category text, and shows the summary.
void set_category_za2c_zsm(App& app);

/// The category texts of a sheet.
struct SheetCategory {
  std::string printed;    ///< on the sheet, e.g. "Single-op 7 MHz Ph"
  std::string with_band;  ///< with the band as Cabrillo names it, e.g. "Single-op 40M Ph"
};
/// `dialog_mode` wins over the log's modes.
SheetCategory sheet_category(const TallyState& tally, std::string_view cont_id, Operator op,
                             std::optional<Mode> dialog_mode);

}  // namespace varnisto
