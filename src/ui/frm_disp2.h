#pragma once

#include "ui/app_form.h"
#include "ui/text_lines.h"

namespace varnisto {

/// The text viewer. It shows the file that was chosen when it opened; several may be open at once.
class frmDisp2 final : public AppForm {
 public:
  explicit frmDisp2(App& the_app);

  std::vector<NamedControl> controls() override;
  /// Takes the file that `disp_name` names; a missing one leaves the list empty.
  void Form_Load() override;
  void mnuBack_Click();

  /// Selects the next line (or the one before) that holds `text`, beginning behind the selected one and going
  /// round the end once. False when there is none.
  bool find_text(std::string_view text, Direction direction);

  const TextLines& lines() const { return lines_; }
  std::optional<std::size_t> selected() const { return selected_; }  ///< line, from 0
  void select(std::size_t line) { selected_ = line; }

  MenuItem mnuBack;

 private:
  TextLines lines_;
  std::optional<std::size_t> selected_;
};

}  // namespace varnisto
