#pragma once
// The shared state by lifetime: what the program knows as long as it runs, what the entrant has chosen, and
// what belongs to the one log that is open. Paths are whole paths, folders end in the path separator.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/bands.h"
#include "core/controls.h"
#include "core/input_kinds.h"
#include "core/modes.h"
#include "core/notes.h"
#include "core/operators.h"

namespace varnisto {

/// Start-up and what it found.
struct ProgramState {
  std::string app_dir;               ///< program folder: settings and list files
  std::string ini_name;              ///< `app_dir` & "Varnisto.ini"
  std::string this_year;             ///< current year, four digits
  std::string created_by;            ///< value of the Cabrillo line CREATED-BY
  bool cfg_loaded = false;           ///< settings were read or saved
  bool ini_found = false;            ///< the INI was there, or has been saved since
  bool ini_missing_flag = false;     ///< the user must make the INI first
  std::vector<std::string> notices;  ///< what the user is still to be told
  int running_actions = 0;           ///< actions that have begun: an event of a dialog runs inside another
  bool window_open = false;          ///< the main window has loaded: an error ends the action alone
  bool ending = false;               ///< an action failed for good: every window closes
};

/// `select_cont_yusen`: whose category holds when logger's summary and selection dialog both name one.
enum class Precedence : std::uint8_t { unset, summary, dialog };

/// The settings, one member a key of Varnisto.ini; see settings.cpp for the keys and how values are written.
struct Settings {
  std::string ini_version;  ///< version of the program that wrote the file
  std::string mycall;       ///< own call sign
  std::string mycall14;     ///< the same, left-aligned in 14
  std::string club, operators, my_name;
  std::string address1, address2, address3;
  std::string comments_1, comments_2, comments_3, comments_4, comments_5, comments_6;  ///< SOAPBOX lines
  std::string eqslcom;                 ///< comment of every ADIF record
  std::string jidx_no;                 ///< own prefecture number in the JIDX contest
  std::string dir_pad;                 ///< full path of the user's text editor
  std::string e_mail;                  ///< own e-mail address
  std::string e_add2_to, e_add2;       ///< second mail recipient: name, address
  bool e_add2_use_flag = false;        ///< it is in use
  std::string set_in_dir;              ///< folder in which the open dialog starts
  bool pad_use_flag = false;           ///< Check1: editor in use
  bool mode_2_rtty_flag = false;       ///< Check2: every mode counts as RTTY
  bool for_eqsl_flag = false;          ///< Check3: write an ADIF file
  bool get_freq_flag = false;          ///< Check4: frequency from the memo
  bool freq19_to_18_flag = false;      ///< Check5: 1.9 MHz is written as 1800
  bool jst_to_utc_flag = false;        ///< Check6: nine hours back
  bool tenki_flag = false;             ///< Check7: transcribe calls with "/"
  bool add_qtc_flag = false;           ///< Check8: QTC columns behind the QSO line
  bool e_mail_subject_flag = false;    ///< Check9: mail subject like the Cabrillo file
  std::int16_t jidx_no_disp_flag = 0;  ///< not 0: no JIDX notice at the end of a run
  std::string power_sel,
      operator_sel;  ///< option chosen last, as a digit; as it was read until one is chosen
  std::string op_iota_island, iota_class;  ///< own island, class of the IOTA contest
  bool iota_name_only = false;             ///< only the island's name goes into the log
  Precedence select_cont_yusen = Precedence::unset;
  std::string exe_rec;  ///< number of runs
};

/// A setting as this program has met it in the file last.
struct SettingInFile {
  std::string text;     ///< as it stood there
  std::string written;  ///< as this program would have written it then
};

/// The entry as its owner chose it, or as the log told where nobody did. Forms and options write it,
/// conversions read it; nothing else holds a choice.
struct EntryChoice {
  Power power = Power::low;
  Operator op = Operator::single_op;
  bool op_from_dialog = false;  ///< the selection dialog chose `op`, not the main window
  Transmitter transmitter = Transmitter::one;
  bool transmitter_chosen = false;  ///< the selection dialog was asked for `transmitter`
  Station station = Station::fixed;
  Mode mode = Mode::mixed;         ///< CATEGORY-MODE
  std::optional<Band> band_sel{};  ///< once a scan or the dialog has named one for this log
  std::string overlay_cat{};       ///< CATEGORY-OVERLAY; blank for none
  bool dialog_shown = false;       ///< the selection dialog was confirmed for this log
};

/// The chosen input and every name derived from it.
struct InputState {
  std::string in_name;          ///< the input log
  std::string in_name_save;     ///< the same, as it was chosen
  std::string in_ext;           ///< extension as written
  std::string in_dir, out_dir;  ///< its folder; outputs named after the call sign go there
  std::string in_stem;          ///< path without ".extension", then "."
  InputKind in_kind = InputKind::none;
  bool opened = false;               ///< it was read to its end and nothing spoke against it
  bool has_zsm = false;              ///< the logger wrote a summary beside it
  std::string zsm_name;              ///< that summary
  std::string zsm_use_name;          ///< the summary that the conversion reads, the logger's or the program's
  std::string z2a_name;              ///< ALL log made from a ZLO log
  std::string cb2t_name;             ///< CCC text made from a CCC binary log
  std::string jarl_name;             ///< JARL log sheet
  std::string cbr_name;              ///< call sign & ".cbr" in the log's folder
  std::string adi_name;              ///< call sign & ".adi"
  std::string log_name;              ///< call sign & ".log"; after a run: the copy of `out_name`
  std::string qlg_name;              ///< call sign & ".qlg": QTC log
  std::string out_name;              ///< the file that the writer produced
  std::int32_t qsos_written = 0;     ///< QSO lines in it
  std::vector<std::string> outputs;  ///< every file written for this log, in order
  std::vector<std::string> check_findings;  ///< messages of the last check, the first thousand
  std::int64_t finding_count = 0;           ///< all of them
};

/// Which contest it is.
struct ContestState {
  std::string cont_id;       ///< contest title as read, later the contest code
  std::string contest;       ///< Cabrillo CONTEST value
  std::string contest_name;  ///< title from the summary or chosen in the selection dialog
  std::string contest_line;  ///< title line of the summary, for display
  SelectFrom select_from = SelectFrom::none;
  std::string zlo_title;      ///< title in the header of a ZLO log
  std::string ccc_cont_type;  ///< contest type of a CCC log, "ARRLD...", "CQWPX...", ...
};

/// The dialog that opened the overlay dialog: it decides whose mode the offers are for.
enum class OverlayCaller : std::uint8_t { summary, select_cont };

/// Category texts that are made of the choices.
struct CategoryState {
  std::string cat_band;          ///< CATEGORY-BAND value
  std::string cat_text;          ///< the category text of the summary's Category line
  std::string cat_summary;       ///< short category text of operator, band and power words
  std::string zsm_category;      ///< category text printed on the program's own summary
  std::optional<Mode> zsm_mode;  ///< mode that the logger's Category line names
  OverlayCaller overlay_caller = OverlayCaller::summary;
  bool overlay_back = false;  ///< the overlay dialog was left by its return button
};

/// What a scan of the log found.
struct ScanState {
  Mode mode_sel = Mode::mixed;  ///< its one mode
  Band band_sel = Band::all;    ///< its one band
  std::optional<bool> lowband;  ///< it has QSOs on 1.9, 3.5 or 7 MHz; nothing before a scan
  std::string max_power_text;   ///< highest sent power of an ARRL DX log
};

/// The QSO being written. A field that a line does not set keeps the value the previous line gave it.
struct QsoRec {
  std::string qso_year, qso_month, qso_day;
  std::string qso_date;    ///< yyyy-mm-dd
  std::string qso_hhmm;    ///< hhmm
  std::string his_call14;  ///< worked call, left-aligned in 14
  std::string sent_rst4;   ///< sent report, left-aligned in 4
  std::string sent_exch;   ///< sent exchange, trimmed
  std::string rcvd_rst4, rcvd_exch;
  std::string mult1, mult2;                   ///< multiplier texts
  std::string points;                         ///< QSO points as text
  std::string band_mhz;                       ///< band in MHz as text
  std::string freq5 = "     ";                ///< Cabrillo frequency field, right-aligned in 5
  std::string mode2 = "  ";                   ///< Cabrillo mode: "CW", "PH", "RY", "FM"
  std::string tx_no = "0";                    ///< transmitter number
  bool mode_kept = false, band_kept = false;  ///< the line set no mode, no frequency
  bool tx_kept = false, tx_dropped = false;   ///< the column is written, with another number than the line's
  std::string qtc_grp, qtc_time, qtc_call;    ///< WAEDC QTC columns
};

/// Counters of one band.
struct BandTally {
  std::int16_t qso_cnt = 0;    ///< QSOs
  std::int16_t pts_sum = 0;    ///< sum of QSO points
  std::int16_t qtc_cnt = 0;    ///< QTCs (WAEDC)
  std::int16_t mult1_cnt = 0;  ///< first multiplier (WAEDC: weighted)
  std::int16_t mult2_cnt = 0;  ///< second multiplier
};

/// Tallies and score. Tables by band begin with 160 m.
struct TallyState {
  std::array<BandTally, band_count> band_tally{};
  std::int32_t qsos_total = 0, points_total = 0, multi1_total = 0, multi2_total = 0, qtcs_total = 0;
  std::int16_t cw_count = 0, ssb_count = 0, rty_count = 0, fm_count = 0;
  std::int32_t total_score = 0;  ///< claimed score
  std::string score_detail;      ///< score, QSOs, points and multipliers, e.g. "123456 500-1200-103"
};

/// One record of contest_name.cfg, of e_mail_add.cfg and of category-assisted.txt.
struct ContestName {
  std::string title;  ///< a piece of the contest's title
  std::string code;   ///< the contest code for such titles
};
struct MailAddress {
  std::string key, address;
};
struct AssistedContest {
  std::string contest;
  bool flag = true;  ///< the header gets a CATEGORY-ASSISTED line
};

/// The lists that the user edits, in file order.
struct ListState {
  std::vector<ContestName> contest_names;
  std::vector<MailAddress> mail_adds;
  std::vector<AssistedContest> assisted_conts;
};

/// What only the records of a ZLO log tell. Numbers are those of records, the head being 1.
struct ZloRecords {
  bool utc = false;                       ///< its times are UTC
  std::optional<std::int32_t> qso_count;  ///< QSOs by the logger's own count, where it keeps one
  std::int64_t records = 0, qsos = 0;     ///< QSO records, and those that are not invalid
  Occurrences invalid;
  std::vector<std::uint16_t> passed_over;  ///< the invalid ones, ascending
  Occurrences unnamed_mode, unnamed_band;  ///< QSOs whose mode or band Cabrillo has no name for
  Occurrences unnamed_frequency;           ///< the latter without a frequency in the memo
};

/// The submission mail.
struct MailState {
  std::string send_to_add;   ///< submission address of the contest
  std::string mail_subject;  ///< own call, contest, category and year
};

/// What the main window's labels tell of the log.
struct LabelState {
  std::string zsm_disp1, zsm_disp2, zsm_disp3, zsm_disp4;  ///< the four summary labels
  std::string power;                                       ///< power or prefecture sent in this contest
  std::string category;      ///< "CATEGORY: ..." as chosen in the selection dialog
  bool dialog_wins = false;  ///< its choices hold, whatever the summary says
};

/// Everything that belongs to the log that is open: opening another one replaces it.
struct LogState {
  InputState input;
  ContestState contest;
  CategoryState category;
  ScanState scan;
  ZloRecords zlo;
  TallyState tally;
  MailState mail;
  LabelState labels;
  Notes notes;
};

/// How far the main window's last action came.
enum class Progress : std::uint8_t { none, done, given_up, edited };

/// What the windows show whatever log is open.
struct DisplayState {
  std::string text;  ///< the main window's text box
  Color text_color = Color::black;
  Progress progress = Progress::none;
  bool dialog_confirmed = false;  ///< the selection dialog that was shown last was left with OK
  std::string disp_name;          ///< file that the text viewer opens next
};

/// Names a file that was written for the log, once.
inline void add_output(InputState& input, const std::string& path) {
  if (std::ranges::find(input.outputs, path) == input.outputs.end()) input.outputs.push_back(path);
}

struct State {
  ProgramState program;
  Settings settings;
  std::map<std::string_view, SettingInFile> settings_in_file;  ///< by key
  ListState lists;
  DisplayState display;
  EntryChoice entry;
  LogState log;
};

}  // namespace varnisto
