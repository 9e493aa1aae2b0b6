#include "cabrillo/qtc_files.h"

namespace varnisto {

const std::string& qtc_source(const App& app) {
  const InputState& input = app.state.log.input;
  return input.in_kind == InputKind::zlog_zlo ? input.z2a_name : input.in_name;
}

bool has_logger_title(TextReader& log) {
  std::string_view title;
  return log.next(title) && title.starts_with("zLog for Windows");
}

void sort_scratch(App& app, std::string_view columns, const std::string& input, const std::string& output) {
  constexpr int try_again = 7000;
  const std::string command = std::string{"/k("}.append(columns) + ")  '" + input + "'   '" + output + "'";
  while (app.platform.sort.ksort(command) == try_again) {
  }
}

}  // namespace varnisto
