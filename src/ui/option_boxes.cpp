#include "ui/option_boxes.h"

namespace varnisto {
namespace {

constexpr OptionBox boxes[] = {{"Check1", &MainForm::Check1, &Settings::pad_use_flag},
                               {"Check2", &MainForm::Check2, &Settings::mode_2_rtty_flag},
                               {"Check3", &MainForm::Check3, &Settings::for_eqsl_flag},
                               {"Check4", &MainForm::Check4, &Settings::get_freq_flag},
                               {"Check5", &MainForm::Check5, &Settings::freq19_to_18_flag},
                               {"Check6", &MainForm::Check6, &Settings::jst_to_utc_flag},
                               {"Check7", &MainForm::Check7, &Settings::tenki_flag},
                               {"Check8", &MainForm::Check8, &Settings::add_qtc_flag},
                               {"Check9", &MainForm::Check9, &Settings::e_mail_subject_flag}};

}  // namespace

std::span<const OptionBox> option_boxes() {
  return boxes;
}

}  // namespace varnisto
