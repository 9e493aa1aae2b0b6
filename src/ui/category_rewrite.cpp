#include "ui/category_rewrite.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/files.h"
#include "base/text.h"
#include "base/text_reader.h"
#include "base/text_writer.h"
#include "cabrillo/summary.h"
#include "core/main_options.h"
#include "core/paths.h"

namespace varnisto {
namespace {

constexpr std::array<std::string_view, 7> operator_words = {
    "Single-op", "Single-op-Assisted", "School-Club", "Multi-One", "Multi-Two", "Multi-Multi", "CheckLog"};

constexpr std::string_view label_category = "Category:";

struct GeneratedSummary {
  std::string_view zsm_kind, suffix;
};
constexpr GeneratedSummary generated_summaries[] = {{"zlog_all_zsm0", "_za2c.zsm"},
                                                    {"zlog_zlo_zsm0", "_zz2c.zsm"},
                                                    {"ccc_txt_zsm0", "_ct2c.zsm"},
                                                    {"ccc_bin_zsm0", "_cb2c.zsm"}};

/// Copies the summary with its Category lines rewritten; the first line is the contest's title.
void rewrite_lines(App& app, TextReader& summary, TextWriter& out, std::string_view new_operator) {
  std::string_view line = summary.must_next();
  app.state.contest.contest_line = line;
  out.put(line);
  std::string& cat_text = app.state.category.cat_text;
  while (summary.next(line)) {
    if (!contains(line, label_category)) {
      out.put(line);
      continue;
    }
    CategoryRewrite rewritten = rewrite_category_line(line, cat_text, new_operator);
    out.put(rewritten.line);
    cat_text = std::move(rewritten.cat_text);
  }
}

/// The operator word to write, with its option drawn in blue.
std::string chosen_operator(App& app) {
  Varnisto_op3_color_0(app);
  const std::string_view word = summary_operator(app.main.Option3.selected);
  if (word.empty()) return std::string{trim(app.state.category.operator_cat)};
  op3_chk(app);
  return std::string{word};
}

}  // namespace

std::string_view summary_operator(int option) {
  const auto index = static_cast<std::size_t>(option);
  return option >= 0 && index < operator_words.size() ? operator_words[index] : std::string_view{};
}

CategoryRewrite rewrite_category_line(std::string_view line, std::string_view cat_text,
                                      std::string_view new_operator) {
  const std::vector<std::string> words = split(trim(join_assisted(cat_text)), ' ');
  const std::string old_operator{trim(words.front())};
  CategoryRewrite result;
  result.line = trim(replace_all(line, old_operator, new_operator));
  const std::string text = remove_all(result.line, label_category);
  result.cat_text = trim(replace_all(trim(text), "-Assisted-Assisted", "-Assisted"));
  return result;
}

std::string summary_to_rewrite(const InputState& input) {
  const auto* hit = std::ranges::find(generated_summaries, input.zsm_kind, &GeneratedSummary::zsm_kind);
  return hit == std::end(generated_summaries) ? input.zsm_name
                                              : replace_in_name(input.zsm_name, ".zsm", hit->suffix);
}

void cmdRe_write_zlog_zsm_Click(App& app) {
  app.trace.line("Private Sub cmdRe_write_zlog_zsm_Click()");
  app.main.lblShori.text.clear();
  const std::string source = summary_to_rewrite(app.state.input);
  const std::string path = find_file(source).value_or(source);
  TextReader summary{path};
  TextWriter out{app.outputs.create(path, Need::required, path)};
  rewrite_lines(app, summary, out, chosen_operator(app));
  out.close();
  commit_outputs(app);
  show_summary(app);
  if (contains(app.state.contest.cont_id, "JIDX")) app.main.lblPower.text = jidx_power_label(app);
  zsm_disp_chk(app);
}

}  // namespace varnisto
