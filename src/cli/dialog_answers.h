#pragma once
// Plays the dialogs from the options of the command line.

#include <string>
#include <vector>

#include "cli/options.h"
#include "core/app.h"

namespace varnisto {

/// An option names something that its dialog does not offer; what() says what it offers.
struct WrongAnswer : Refusal {
  using Refusal::Refusal;
};

/// Plays the contest and category dialog and presses its OK. Returns notices about answers that it does not
/// take. Throws WrongAnswer, or Refusal when no contest is known.
std::vector<std::string> answer_select_cont(App& app, const DialogAnswers& answers);

/// Plays the overlay dialog. Throws WrongAnswer for an overlay that is not offered.
void answer_overlay(App& app, const DialogAnswers& answers);

/// Names of the options that only dialogs take and that were given.
std::vector<std::string> dialog_options_given(const DialogAnswers& answers);

}  // namespace varnisto
