#pragma once
// The main window's menus that are tables: open menus, viewers, web links.

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "base/text_reader.h"
#include "core/app.h"

namespace varnisto {

/// A menu entry that opens one kind of log.
struct OpenMenu {
  std::string_view name;
  InputKind kind;
  std::string_view title;  ///< of the dialog, behind the folder
  std::string_view filter;
};
std::span<const OpenMenu> open_menus();
/// The entry for this extension (any case); null for an extension that no entry has.
const OpenMenu* open_menu_for(std::string_view ext);

/// A menu entry that shows a file in the text viewer.
struct ViewerMenu {
  std::string_view name;
  MenuItem MainForm::*item;
  std::string (*file)(const InputState& input);  ///< "" when there is none for this log
};
std::span<const ViewerMenu> viewer_menus();
/// Shows a viewer menu's file.
void show_in_viewer(App& app, const ViewerMenu& menu);

/// A menu entry that opens a web page; the addresses lie in web_menu.cfg.
struct WebLink {
  std::string_view name;
  MenuItem MainForm::*item;
};
std::span<const WebLink> web_links();
/// The address of a menu entry in a list of "menu name,address" lines; lines that begin with ";" are
/// comments. "" when the list has none.
std::string web_address(TextReader list, std::string_view menu);
/// Opens a web-link menu's page, or says that its address is missing.
void open_web_link(App& app, std::string_view menu);

/// Opens an address in the desktop's browser; a browser that does not start gives a message.
void open_address(App& app, const std::string& address);

/// Opens the help.
void mnuDispHelp_Click(App& app);

/// Starts something outside the program. A failure is shown: another program that cannot be started is no
/// reason to end this one.
void start_outside(App& app, const std::function<void()>& start);

}  // namespace varnisto
