#include "core/app.h"

namespace varnisto {

void show_text(App& app, const std::string& text, Color color) {
  app.main.Text1.text = text;
  app.main.Text1.color = color;
  app.desk.text_shown(text, color);
}

void message_box(App& app, const MessageBox& box) {
  app.state.display.msg_text = box.text;
  app.state.display.msg_ret = app.desk.message_box(box);
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
