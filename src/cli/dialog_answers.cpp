#include "cli/dialog_answers.h"

#include <algorithm>

#include "base/text.h"
#include "ui/frm_overlay.h"
#include "ui/select_cont.h"

namespace varnisto {
namespace {

/// Selects the list entry of this name. Throws WrongAnswer naming what the list offers.
void choose_entry(ListBox& list, const std::string& name, const std::string& option) {
  const auto hit = std::ranges::find(list.items, name);
  if (hit != list.items.end()) {
    list.selected = static_cast<int>(hit - list.items.begin());
    return;
  }
  std::string text = option + ": \"" + name + "\" is not offered; offered are:";
  for (const std::string& item : list.items) text += "\r\n  " + item;
  throw WrongAnswer(text);
}

/// A group of the dialog and the answer that selects in it.
struct GroupAnswer {
  const char* control;
  OptionGroup select_cont::*group;
  std::optional<int> DialogAnswers::*answer;
};
// The operator comes before transmitter and station: it moves them.
constexpr GroupAnswer group_answers[] = {
    {"Option1", &select_cont::Option1, &DialogAnswers::power},
    {"Option3", &select_cont::Option3, &DialogAnswers::op},
    {"Option2", &select_cont::Option2, &DialogAnswers::mode},
    {"Option4", &select_cont::Option4, &DialogAnswers::band},
    {"Option5", &select_cont::Option5, &DialogAnswers::iota_class},
    {"Option6", &select_cont::Option6, &DialogAnswers::transmitter},
    {"Option7", &select_cont::Option7, &DialogAnswers::station},
};

void choose_precedence(select_cont& form, bool prefer, std::vector<std::string>& notices) {
  if (!form.Check1.enabled) {
    if (prefer) notices.emplace_back("--prefer: there is no summary of the logger to win over");
    return;
  }
  form.Check1.checked = prefer;
  form.click("Check1");
}

struct GivenOption {
  const char* name;
  bool given;
};

}  // namespace

std::vector<std::string> answer_select_cont(App& app, const DialogAnswers& answers) {
  std::vector<std::string> notices;
  select_cont form{app};
  form.Form_Load();
  if (!answers.contest.empty()) {
    choose_entry(form.List1, answers.contest, "--contest");
    form.click("List1", form.List1.selected);
  }
  for (const GroupAnswer& row : group_answers) {
    const auto& answer = answers.*row.answer;
    if (!answer) continue;
    OptionGroup& group = form.*row.group;
    if (!group.enabled) {
      notices.emplace_back("--iota-class: not asked for this contest");
      continue;
    }
    group.selected = *answer;
    form.click(row.control, *answer);
  }
  if (answers.prefer) choose_precedence(form, *answers.prefer, notices);
  if (form.List1.selected < 0 && is_blank(app.state.log.contest.contest_name))
    throw Refusal("ｺﾝﾃｽﾄ名が分かりません。 --contest NAME で指定して下さい。");
  form.click("cmdOK");
  return notices;
}

void answer_overlay(App& app, const DialogAnswers& answers) {
  frmOVERLAY form{app};
  form.Form_Load();
  constexpr int claim = 1;
  if (!answers.overlay.empty()) {
    form.Option1.selected = claim;
    form.click("Option1", claim);
    choose_entry(form.List1, answers.overlay, "--overlay");
    form.click("List1", form.List1.selected);
  }
  form.click("cmdOK");
}

std::vector<std::string> dialog_options_given(const DialogAnswers& answers) {
  std::vector<std::string> names;
  for (const GivenOption& option : {GivenOption{"--contest", !answers.contest.empty()},
                                    {"--mode", answers.mode.has_value()},
                                    {"--band", answers.band.has_value()},
                                    {"--transmitter", answers.transmitter.has_value()},
                                    {"--station", answers.station.has_value()},
                                    {"--iota-class", answers.iota_class.has_value()},
                                    {"--prefer", answers.prefer.has_value()}})
    if (option.given) names.emplace_back(option.name);
  return names;
}

}  // namespace varnisto
