#pragma once
// The contest and category dialog: asks for what no summary of the logger tells, and makes the program's own
// summary.

#include <optional>
#include <string>
#include <string_view>

#include "ui/app_form.h"

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

/// Window select_cont. Until OK nothing but the window changes: the choices lie in a draft.
class select_cont final : public AppForm {
 public:
  explicit select_cont(App& the_app);

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

  /// Fills the lists and presets the choices from the input. Throws RunTimeError or ListFileError when
  /// contest_name.cfg or the log cannot be read.
  void Form_Load() override;
  void List1_Click();
  void Check1_Click();
  void cmdDisp_in_Click();
  /// Takes the choices, makes the summary, opens the overlay dialog for CQ WPX, and closes unless the user
  /// came back from there. Without a contest it only asks for one. When it throws (NotAvailable for IOTA,
  /// RunTimeError) or the user came back, nothing was taken and earlier summaries stay.
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
  /// What OK takes.
  struct Draft {
    EntryChoice entry;
    ScanState scan;
    std::string contest_name;  ///< the chosen row; empty: the contest is known already
    std::string iota_class;
    Precedence precedence = Precedence::unset;
    bool guessed = false;  ///< the row is preset from the log's path alone
  };

  void connect_events();
  void preset_contest();
  bool agrees_with_title(std::string_view row) const;
  void take_row();
  void scan_log();
  void preset_options();
  void preset_precedence();
  void select_scanned_options(Mode mode, Band band);
  void select_power_of_log();
  void forget_power_of_log();
  bool has_contest() const;
  SheetSteps take_contest();
  void take_draft();
  void make_sheet(SheetSteps steps);
  void take_labels();
  bool ask_for_overlay();

  Draft draft_;
  std::optional<Power> power_before_log_;  ///< the power chosen before the log's own was taken
};

}  // namespace varnisto
