#pragma once
// The main window: what its buttons, options, check boxes and menus do. Its controls are data of App.

#include <string>
#include <string_view>
#include <vector>

#include "ui/app_form.h"

namespace varnisto {

class MainWindow final : public AppForm {
 public:
  explicit MainWindow(App& the_app);

  std::vector<NamedControl> controls() override;
  void Form_Load() override;
  void refresh() override;

  void mnuOpen_all_Click();
  void mnuOpen_zlo_Click();
  void mnuOpen_txt_Click();
  void mnuOpen_bin_Click();
  void mnuOpen_cbr_Click();
  /// Opens a file that was dropped on the window or named when the program was started, by its extension;
  /// .cbr takes the way back to zLog text.
  void open_dropped_file(const std::string& path);
  /// Opens entry `index` (from 0, newest first) of the recent files.
  void mnuRecent_Click(int index);

  void kaishi_Click();
  /// Exit; the window closes.
  void owari_Click();
  void cmdReSet_Click();
  void cmdReSelect_Click();
  void cmdRe_write_zlog_zsm_Click();
  void cmdMail_Send_Click();
  void cmdMail_Send_test_Click();

  void Option1_Click(int index);
  void Option3_Click(int index);
  /// Takes the state of the editor box: menus, editor state label, settings flag.
  void Check1_Click();
  /// Takes the state of an option box, `number` 2 to 9, into its settings flag.
  void Check_Click(int number);

  void mnu_mc_Click();
  void mnu_email_add_Click();
  void mnu_contest_name_Click();
  /// A viewer or summary menu by its name, see viewer_menus().
  void viewer_Click(std::string_view menu);
  void mnuMake_Click();
  void mnuDebug_mode_Click();
  /// A web-link menu by its name, see web_links().
  void web_link_Click(std::string_view menu);
  void mnuWeb_URL_Click();
  void mnuDispHelp_Click();
  void mnuVer_Click();

  /// Where the window was when it was closed last, as the view wrote it; "" when that is not known.
  std::string geometry() const;
  /// Keeps the window's place for the next start, when there is a settings file.
  void keep_geometry(const std::string& text);

 private:
  void bind_events();
  void open_log(std::string_view menu);
  void open_path(const std::string& path);
  void remember_opened();
  void show_recent_files();
};

}  // namespace varnisto
