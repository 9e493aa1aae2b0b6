#pragma once
// What every routine works on.

#include <stdexcept>
#include <string>
#include <vector>

#include "base/outputs.h"
#include "base/scratch_folder.h"
#include "base/text_reader.h"
#include "core/desk.h"
#include "core/main_form.h"
#include "core/state.h"
#include "core/trace.h"
#include "platform/platform.h"

namespace varnisto {

struct App {
  App(Platform& the_platform, Desk& the_desk) : platform(the_platform), desk(the_desk) {}

  State state;         ///< the shared variables
  MainForm main;       ///< the main window's controls
  Platform& platform;  ///< the outside world
  Desk& desk;          ///< message boxes, dialogs, viewers
  Trace trace;         ///< debug log
  Outputs outputs;     ///< what the running action has written: its files take their names when it succeeds
  ScratchFolder tmp_dir;  ///< private scratch folder
};

/// The running action stops with a message; nothing was written and the program goes on.
struct Refusal : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The action needs something that the program cannot do yet; what() names it.
struct NotAvailable : Refusal {
  using Refusal::Refusal;
};

/// The program ends at once, after the message that was shown.
struct ProgramEnd : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Puts a text into the main window's text box; "" clears it.
void show_text(App& app, const std::string& text, Color color);
inline void clear_text(App& app) {
  show_text(app, "", Color::black);
}

/// Shows a message box.
void message_box(App& app, const MessageBox& box);

/// Keeps what the user must be told although the action goes on; show_notices() shows it.
void add_notice(App& app, const std::string& text);
/// Shows the notices that were kept, one message box each.
void show_notices(App& app);
/// A file as the running action sees it: the version that it has written, else the file itself.
TextReader read_text(const App& app, const std::string& path);
/// Says that a file could not be deleted.
std::string kept_file_text(const std::string& path);
/// Gives the outputs of the running action their names, then deletes what earlier programs left beside those
/// named here. What could not be replaced but does not count becomes a notice. Throws RunTimeError.
void commit_outputs(App& app, std::initializer_list<std::string> leftovers_of = {});

/// Lines joined by CR LF, as message boxes and the text box take them.
std::string lines(std::initializer_list<std::string_view> parts);

}  // namespace varnisto
