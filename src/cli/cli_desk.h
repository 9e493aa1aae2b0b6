#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "cli/options.h"
#include "core/desk.h"

namespace varnisto {

/// Answers dialogs from the options. What the window would say goes to the error stream, one block each.
class CliDesk final : public Desk {
 public:
  CliDesk(const CliOptions& options, std::ostream& err) : options_(options), err_(err) {}

  int message_box(const MessageBox& box) override;
  std::optional<std::string> open_file_dialog(const OpenFileRequest& request) override;
  void show(FormName form) override;
  void text_shown(std::string_view text, Color color) override;
  void hourglass(bool on) override;

  /// Everything that was said, lines ended by "\n".
  const std::vector<std::string>& messages() const { return messages_; }

 private:
  void say(std::string_view text, bool is_error);

  const CliOptions& options_;
  std::ostream& err_;
  std::vector<std::string> messages_;
};

}  // namespace varnisto
