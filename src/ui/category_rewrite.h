#pragma once
// The button that puts the chosen operator category into a summary's Category line.

#include <string>
#include <string_view>

#include "core/app.h"

namespace varnisto {

struct CategoryRewrite {
  std::string line;      ///< the new line
  std::string cat_text;  ///< the category text it holds
};
/// Replaces the operator word of `cat_text` (its first word; an assisted "Single-op A..." is one word) by
/// `new_operator` wherever it occurs in a line that holds "Category:".
CategoryRewrite rewrite_category_line(std::string_view line, std::string_view cat_text,
                                      std::string_view new_operator);

/// The summary that the rewrite works on: the logger's, else the program's own.
std::string summary_to_rewrite(const InputState& input);

/// Rewrites the Category lines of the log's summary for the selected operator option and shows the summary.
/// The file is replaced in one step. Throws RunTimeError.
void cmdRe_write_zlog_zsm_Click(App& app);

}  // namespace varnisto
