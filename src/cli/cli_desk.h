#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "cli/options.h"
#include "core/app.h"

namespace varnisto {

/// Answers dialogs from the options. What the window would say goes to the error stream, one block each.
class CliDesk final : public Desk {
 public:
  CliDesk(const CliOptions& options, std::ostream& err) : options_(options), err_(err) {}

  /// The program whose dialogs are played.
  void use(App& app) { app_ = &app; }

  int message_box(const MessageBox& box) override;
  std::optional<std::string> open_file_dialog(const OpenFileRequest& request) override;
  /// Throws WrongAnswer for an option value that the dialog does not offer, NotAvailable for other dialogs.
  void show(FormName form) override;
  void text_shown(std::string_view text, Color color) override;
  void hourglass(bool on) override;

  /// Says something of the command line's own.
  void notice(const std::string& text) { say(text, false); }

  /// Everything that was said, lines ended by "\n".
  const std::vector<std::string>& messages() const { return messages_; }
  /// True when the overlay dialog was shown.
  bool overlay_asked() const { return overlay_asked_; }

 private:
  void say(std::string_view text, bool is_error);

  const CliOptions& options_;
  std::ostream& err_;
  App* app_ = nullptr;
  bool overlay_asked_ = false;
  std::vector<std::string> messages_;
};

}  // namespace varnisto
