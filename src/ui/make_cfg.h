#pragma once
// The settings dialog: personal data, folders, mail addresses, editor, IOTA island.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ui/app_form.h"

namespace varnisto {

class Make_cfg final : public AppForm {
 public:
  explicit Make_cfg(App& the_app);

  std::vector<NamedControl> controls() override;
  std::string typed(std::string_view name, std::string_view text) const override;

  /// Fills the dialog from the settings and JA_iota.txt and checks every field.
  void Form_Load() override;
  /// Saves the settings and retires Varnisto.cfg.
  void cmdOK_Click();
  void cmdBack_Click();
  void cmdSet_in_dir_Click();
  void Command1_Click();
  void Check1_Click();
  void Check2_Click();
  void Option1_Click();
  void List1_Click();

  void Add1_Chk();
  void Add2_Chk();
  void Call_Chk();
  void Name_Chk();
  void Op_Chk();
  void Jidx_Chk();
  void set_in_dir_Chk();
  void Pad_Chk();
  void My_e_add_Chk();
  void e_add2_to_Chk();
  void e_add2_Chk();
  /// Totals the flags and shows whether the settings can be saved.
  void sp_flag_Chk();

  TextBox txtCall, txtName, txtAdd1, txtAdd2, txtAdd3, txtClub, txtOperators, txtJidx, txtPad, txtMy_e_add,
      txtE_Add2_to, txtE_add2, txtSet_in_dir, txtEQSL_Comm;
  std::array<TextBox, 6> txtCom;  ///< named "txtCom0" .. "txtCom5"
  Label lblCall, lblName, lblAdd1, lblAdd2, lblAdd3, lblClub, lblOperators, lblJidx, lblPad, lblMy_e_add,
      lblE_Add2_to, lblE_add2, lblSet_in_dir, lblEQSL_Comm, lblIota, lblMsg;
  std::array<Label, 6> lblCom;  ///< named "lblCom0" .. "lblCom5"
  Label Label4;                 ///< what is wrong with the editor
  Label lblVer;                 ///< the version that the file is written for
  Button Command1, cmdSet_in_dir, cmdOK, cmdBack;
  CheckBox Check1;      ///< second mail recipient in use
  CheckBox Check2;      ///< no JIDX notice at the end of a run
  OptionGroup Option1;  ///< one option: only the island's name goes into the log; a click toggles it
  ListBox List1;        ///< JA_iota.txt

  /// Validity flags: 1 = empty or wrong, 0 = good.
  std::int16_t add1_ng = 1, add2_ng = 1, call_ng = 1, name_ng = 1, op_ng = 1, jidx_ng = 1, pad_ng = 1,
               my_e_add_ng = 1, set_in_dir_ng = 1, e_add2_to_ng = 1, e_add2_ng = 1;
  std::int16_t ng_count = 0;  ///< their sum

 private:
  Settings draft_;  ///< the settings as they would be saved

  void bind_events();
  void fill_fields();
  void fill_islands();
  void show_island_option();
  void check_all();
  bool texts_fit_file();
  void take_fields();
  void save();
};

/// A typed lower-case letter becomes its upper-case letter; other keys pass unchanged.
char txtcall_KeyPress(char key);

/// The folder of a chosen file as the settings keep it: the path's first 120 bytes of code page 932, trimmed
/// and cut behind the last separator.
std::string folder_of_choice(std::string_view path);

}  // namespace varnisto
