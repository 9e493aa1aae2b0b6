#include "cli/cli_desk.h"

#include <ostream>

#include "base/text.h"
#include "cli/dialog_answers.h"

namespace varnisto {

void CliDesk::say(std::string_view text, bool is_error) {
  std::string block = replace_all(text, "\r\n", "\n");
  block.erase(block.find_last_not_of('\n') + 1);
  messages_.push_back(block);
  if (is_error || !options_.quiet) err_ << block << "\n\n";
}

int CliDesk::message_box(const MessageBox& box) {
  constexpr std::string_view indent = "　";
  std::string_view title = box.title;
  while (title.starts_with(indent)) title.remove_prefix(indent.size());
  say(title.empty() ? box.text : lines({title, "", box.text}), box.icon == Icon::critical);
  return 1;
}

std::optional<std::string> CliDesk::open_file_dialog(const OpenFileRequest&) {
  return std::nullopt;
}

void CliDesk::show(FormName form) {
  switch (form) {
    case FormName::select_cont:
      for (const std::string& text : answer_select_cont(*app_, options_.answers)) notice(text);
      return;
    case FormName::frmOVERLAY:
      // With --reselect the summary's question is asked again behind the selection dialog: that one gets the
      // answer.
      if (options_.answers.reselect && !app_->state.entry.dialog_shown) return;
      overlay_asked_ = true;
      return answer_overlay(*app_, options_.answers);
    case FormName::frmDisp2:
      return;  // the report names the findings
    default:
      throw NotAvailable("window");
  }
}

void CliDesk::text_shown(std::string_view text, Color color) {
  if (!text.empty()) say(text, color == Color::red);
}

void CliDesk::hourglass(bool) {}

}  // namespace varnisto
