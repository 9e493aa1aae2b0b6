#pragma once
// The overlay category dialog of CQ WPX.

#include <optional>
#include <string>
#include <string_view>

#include "ui/app_form.h"

namespace varnisto {

/// Window frmOVERLAY.
class frmOVERLAY final : public AppForm {
 public:
  explicit frmOVERLAY(App& the_app);

  OptionGroup Option1;  ///< 0: no overlay, 1: claim one (Frame1)
  ListBox List1;        ///< the overlay categories offered; visible with option 1
  Label Label1;         ///< the choice
  Button cmdOK, cmdBack;

  std::vector<NamedControl> controls() override;

  /// Lists the offers for the contest's mode. Throws ListFileError 62 for an empty OVERLAY.txt or half a
  /// record, RunTimeError 53 when it is missing.
  void Form_Load() override;
  void Op1_Chk();
  void Option1_Click();
  void List1_Click();
  void cmdOK_Click();
  /// Leaves without an overlay and sets `overlay_back`: the dialog below stays open.
  void cmdBack_Click();

 private:
  void read_offers(std::string_view key);
};

/// Key of OVERLAY.txt for a contest and a mode (CW or SSB; others leave the mode out); "" for contests other
/// than CQ WPX.
std::string overlay_key_of(std::string_view cont_id, std::optional<Mode> mode);

}  // namespace varnisto
