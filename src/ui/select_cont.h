#pragma once
// The contest and category dialog: asks for what no summary of the logger tells, and makes the program's own
// summary.

#include <cstdint>
#include <optional>
#include <string_view>

#include "core/app.h"
#include "ui/form.h"

namespace varnisto {

/// Row of `List1` that a log's path suggests, by marks in its name, else in its folder's name; nothing when
/// neither holds one.
std::optional<int> contest_row_of_path(std::string_view path);

/// What OK runs to make the summary.
enum class SheetSteps {
  none,           ///< the general summary that stands already
  tally,          ///< ALL tally and the writer of the contest
  waedc,          ///< WAEDC tally first
  iota,           ///< the IOTA path
  general_sheet,  ///< ALL tally, always the general summary
};
/// The steps for a contest's title and code; upper and lower case count as the same.
SheetSteps sheet_steps_of(bool zlo_input, std::string_view contest_name, std::string_view cont_id);

/// Window select_cont. Constructing it loads it: lists filled, choices preset from the input.
class SelectCont final : public Form {
 public:
  /// Throws RunTimeError or ListFileError when contest_name.cfg or the log cannot be read.
  explicit SelectCont(App& app);

  ListBox List1;        ///< contest names of contest_name.cfg
  OptionGroup Option1;  ///< power (frame frmPower)
  OptionGroup Option2;  ///< mode (Frame2)
  OptionGroup Option3;  ///< operator (Frame1)
  OptionGroup Option4;  ///< band (Frame3)
  OptionGroup Option5;  ///< IOTA class (Frame4); enabled for IOTA contests only
  OptionGroup Option6;  ///< transmitter (Frame5)
  OptionGroup Option7;  ///< station (Frame6)
  CheckBox Check1;      ///< these choices win over the logger's summary
  Button cmdDisp_in, cmdOK;
  Label lblMsg, lblPower, Label1, Label2;

  std::vector<NamedControl> controls() override;

  void Form_Load() override;
  void List1_Click();
  void Check1_Click();
  void cmdDisp_in_Click();
  /// Stores the choices, makes the summary, opens the overlay dialog for CQ WPX, and closes unless the user
  /// came back from there. Without a contest it only asks for one. Throws NotAvailable for IOTA before
  /// anything is stored; RunTimeError 6 when a counter overflows (an earlier summary stays).
  void cmdOK_Click();
  /// Presets contest, mode and band of a ZLO log from its title and the last scan.
  void search_zlo_no_zsm();

  /// A power that the user clicks stays whatever contest is chosen later.
  void Option1_Click();
  /// A click on an operator also moves the transmitter and station options to that operator's values.
  void Option3_Click();
  void All_Option_Check();
  void Option1_Check();
  void Option2_Check();
  void Option3_Check();
  void Option4_Check();
  void Option5_Check();
  void Option6_Check();
  void Option7_Check();

 private:
  void connect_events();
  void preset_contest();
  bool agrees_with_title(std::string_view row) const;
  void take_row();
  void preset_options();
  void preset_precedence();
  void select_scanned_options(int mode, int band);
  void select_power_of_log();
  void forget_power_of_log();
  bool has_contest() const;
  void make_sheet(SheetSteps steps);
  void show_category();
  void finish();

  App& app_;
  std::string title_before_;             ///< the contest as it was known when the dialog opened
  bool guessed_ = false;                 ///< the row is preset from the log's path alone
  std::optional<int> power_before_log_;  ///< the power chosen before the log's own was taken
};

}  // namespace varnisto
