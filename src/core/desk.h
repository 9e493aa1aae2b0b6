#pragma once
// What a routine may ask of the user. The window answers with dialogs, the command line from its options, a
// test from a script.

#include <optional>
#include <string>
#include <string_view>

#include "core/controls.h"

namespace varnisto {

/// The dialogs and viewers that a routine can open.
enum class FormName {
  select_cont,
  frmOVERLAY,
  set_contest,
  make_ccc_zsm,
  Make_cfg,
  frmDisp2,
  frmWeb_URL,
  frmVer,
  frmSend_Mail
};

enum class Icon { none, exclamation, critical };

/// A message box with an OK button. Lines end in CR LF.
struct MessageBox {
  std::string text;
  std::string title;
  Icon icon = Icon::none;
};

/// What the open-file dialog is asked for.
struct OpenFileRequest {
  std::string title;
  std::string filter;  ///< pairs of caption and pattern, each ended by "|"
  std::string folder;  ///< where it starts
};

class Desk {
 public:
  virtual ~Desk() = default;

  /// Shows a message box and waits for its answer (1 = OK).
  virtual int message_box(const MessageBox& box) = 0;
  /// Lets the user choose one existing file; nothing after Cancel.
  virtual std::optional<std::string> open_file_dialog(const OpenFileRequest& request) = 0;
  /// Opens a dialog or a viewer. A dialog returns when it is closed.
  virtual void show(FormName form) = 0;
  /// Keeps a dialog above all other windows, or no longer; it applies to the dialog's next showing too.
  virtual void set_topmost(FormName /*form*/, bool /*on*/) {}
  /// The main window's text box got this text; an empty one clears it.
  virtual void text_shown(std::string_view text, Color color) = 0;
  /// The mouse pointer: hourglass during a conversion.
  virtual void hourglass(bool on) = 0;
};

}  // namespace varnisto
