#include "core/app.h"

#include <utility>

#include "base/files.h"

namespace varnisto {

void show_text(App& app, const std::string& text, Color color) {
  app.state.display.text = text;
  app.state.display.text_color = color;
  app.desk.text_shown(text, color);
}

void message_box(App& app, const MessageBox& box) {
  app.desk.message_box(box);
}

void add_notice(App& app, const std::string& text) {
  app.state.program.notices.push_back(text);
}

void show_notices(App& app) {
  if (std::string failure = app.trace.take_failure(); !failure.empty()) add_notice(app, failure);
  for (const std::string& text : std::exchange(app.state.program.notices, {}))
    message_box(app, {text, "", Icon::exclamation});
}

TextReader read_text(const App& app, const std::string& path) {
  return TextReader{app.outputs.current(path), path};
}

std::string kept_file_text(const std::string& path) {
  return path + " を削除出来ません。";
}

void commit_outputs(App& app, std::initializer_list<std::string> leftovers_of) {
  for (const std::string& failure : app.outputs.commit()) add_notice(app, failure);
  for (const std::string& output : leftovers_of)
    for (const std::string& path : delete_leftovers(output)) add_notice(app, kept_file_text(path));
}

std::string lines(std::initializer_list<std::string_view> parts) {
  std::string text;
  bool first = true;
  for (const std::string_view part : parts) {
    if (!first) text += "\r\n";
    text += part;
    first = false;
  }
  return text;
}

}  // namespace varnisto
