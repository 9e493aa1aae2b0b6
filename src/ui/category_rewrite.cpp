#include "ui/category_rewrite.h"

#include "base/files.h"
#include "base/text.h"
#include "base/text_reader.h"
#include "base/text_writer.h"
#include "cabrillo/summary.h"
#include "core/contests.h"
#include "core/paths.h"

namespace varnisto {
namespace {

constexpr std::string_view label_category = "Category:";

/// Copies the summary with its Category lines rewritten; the first line is the contest's title.
void rewrite_summary(App& app, const std::string& path) {
  TextReader summary{path};  // closed again before its file is replaced
  TextWriter out{app.outputs.create(path, Need::required, path)};
  const std::string_view new_operator = names_of(app.state.entry.op).text;
  std::string_view line = summary.must_next();
  app.state.log.contest.contest_line = line;
  out.put(line);
  std::string& cat_text = app.state.log.category.cat_text;
  while (summary.next(line)) {
    if (!contains(line, label_category)) {
      out.put(line);
      continue;
    }
    CategoryRewrite rewritten = rewrite_category_line(line, cat_text, new_operator);
    out.put(rewritten.line);
    cat_text = std::move(rewritten.cat_text);
  }
  out.close();
}

}  // namespace

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
  return input.has_zsm ? input.zsm_name : generated_summary(input, input.in_kind);
}

void cmdRe_write_zlog_zsm_Click(App& app) {
  app.trace.line("Private Sub cmdRe_write_zlog_zsm_Click()");
  app.state.display.progress = Progress::none;
  const std::string source = summary_to_rewrite(app.state.log.input);
  const std::string path = find_file(source).value_or(source);
  rewrite_summary(app, path);
  commit_outputs(app);
  show_summary(app);
  if (family_of(app.state.log.contest.cont_id) == ContestFamily::jidx)
    app.state.log.labels.power = jidx_power_label(app.state.settings);
}

}  // namespace varnisto
