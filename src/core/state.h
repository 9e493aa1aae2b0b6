#pragma once
// The shared state: what every routine reads and writes, grouped by the part of the program that owns it.
// Flags that mirror settings are the texts "1" and "0"; paths are whole paths, folders end in the path
// separator.

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/notes.h"

namespace varnisto {

/// Start-up and what it found.
struct ProgramState {
  std::string app_dir;                   ///< program folder: settings and list files
  std::string ini_name;                  ///< `app_dir` & "Varnisto.ini"
  std::string this_year;                 ///< current year, four digits
  std::string created_by;                ///< value of the Cabrillo line CREATED-BY
  std::int16_t cfg_missing = 0;          ///< 1 when there is no INI, 2 when there is no legacy file either
  std::int16_t cfg_loaded = 0;           ///< 1 when settings were read or saved
  std::int16_t ini_found = 0;            ///< 1 when the INI is there
  std::int16_t settings_incomplete = 0;  ///< 1 when a required setting is blank
  std::int16_t ini_missing_flag = 0;     ///< 1 when the user must make the INI first
  std::int16_t editor_on = 0;            ///< 1 while the editor check box is ticked
  std::vector<std::string> notices;      ///< what the user is still to be told
  int running_actions = 0;   ///< actions that have begun: an event of a dialog runs inside another
  bool window_open = false;  ///< the main window has loaded: an error ends the action alone
  bool ending = false;       ///< an action failed for good: every window closes
};

/// The settings, one member a key of Varnisto.ini; see settings.cpp for the keys.
struct Settings {
  std::string ini_version;  ///< version of the program that wrote the file
  std::string mycall;       ///< own call sign
  std::string mycall14;     ///< the same, left-aligned in 14
  std::string mycall_base;  ///< own call sign as a log or the legacy file names it
  std::string club, operators, my_name;
  std::string address1, address2, address3;
  std::string comments_1, comments_2, comments_3, comments_4, comments_5, comments_6;  ///< SOAPBOX lines
  std::string soapbox;                             ///< read for the sake of old files, used nowhere
  std::string eqslcom;                             ///< comment of every ADIF record
  std::string jidx_no;                             ///< own prefecture number in the JIDX contest
  std::string dir_pad;                             ///< full path of the user's text editor
  std::string e_mail;                              ///< own e-mail address
  std::string e_add2_to, e_add2, e_add2_use_flag;  ///< second mail recipient: name, address, in use
  std::string set_in_dir;                          ///< folder in which the open dialog starts
  std::string pad_use_flag;                        ///< Check1: editor in use
  std::string mode_2_rtty_flag;                    ///< Check2: every mode counts as RTTY
  std::string for_eqsl_flag;                       ///< Check3: write an ADIF file
  std::string get_freq_flag;                       ///< Check4: frequency from the memo
  std::string freq19_to_18_flag;                   ///< Check5: 1.9 MHz is written as 1800
  std::string jst_to_utc_flag;                     ///< Check6: nine hours back
  std::string tenki_flag;                          ///< Check7: transcribe calls with "/"
  std::string add_qtc_flag;                        ///< Check8: QTC columns behind the QSO line
  std::string e_mail_subject_flag;                 ///< Check9: mail subject like the Cabrillo file
  std::int16_t jidx_no_disp_flag = 0;              ///< not 0: no JIDX notice at the end of a run
  std::string power_sel, operator_sel;             ///< chosen option of the two groups, as a digit
  std::string op_iota_island, iota_class, iota_name_only;
  std::string select_cont_yusen;  ///< "1": the selection dialog wins over the logger's summary
  std::string exe_rec;            ///< number of runs
};

/// A setting as this program has met it in the file last.
struct SettingInFile {
  std::string text;     ///< as it stood there
  std::string written;  ///< as this program would have written it then
};

/// The chosen input and every name derived from it.
struct InputState {
  std::string in_name;                 ///< the input log
  std::string in_name_save, in_name2;  ///< copies of it
  std::string in_name_disp;            ///< the same, shortened for display
  std::string in_file_name;            ///< name with extension
  std::string in_ext, in_ext_upper;    ///< extension as written and upper-cased
  std::string in_dir, out_dir;         ///< its folder; outputs named after the call sign go there
  std::string in_stem;                 ///< path without ".extension", then "."
  std::string in_kind;                 ///< "zlog_all", "zlog_zlo", "ccc_txt", "ccc_bin"
  std::string zsm_kind;          ///< "zlog_all_zsm1" with, "zlog_all_zsm0" without a logger's summary, ...
  std::string in_type;           ///< "cbr": to zLog text; "mon": a text export that is refused
  std::int16_t in_err_flag = 0;  ///< 1: the input cannot be used
  std::string zsm_name;          ///< the logger's summary beside the log
  std::string za2c_name, zz2c_name, ct2c_name, cb2c_name;  ///< generated summaries, by kind of input
  std::string zsm_use_name;                                ///< the summary that the conversion reads
  std::string zsm_send_name;                               ///< the summary that the mail offers
  std::string z2a_name, z2a_name_all, z2a_name_zlo;        ///< ALL log made from a ZLO log
  std::string cb2t_name;                                   ///< CCC text made from a CCC binary log
  std::string jarl_name;                                   ///< JARL log sheet
  std::string cbr_name, cbr_name2;                         ///< call sign & ".cbr" in the log's folder
  std::string adi_name;                                    ///< call sign & ".adi"
  std::string log_name;              ///< call sign & ".log"; after a run: the copy of `out_name`
  std::string qlg_name;              ///< call sign & ".qlg": QTC log
  std::string out_name;              ///< the file that the writer produced
  std::int32_t qsos_written = 0;     ///< QSO lines in it
  std::vector<std::string> outputs;  ///< every file written for this log, in order
};

/// One record of contest_name.cfg.
struct ContestName {
  std::string title;  ///< a piece of the contest's title
  std::string code;   ///< the contest code for such titles
  std::string note;   ///< kept with the record, used nowhere
};

/// Which contest it is.
struct ContestState {
  std::string cont_id;        ///< contest title as read, later the contest code
  std::string contest;        ///< Cabrillo CONTEST value
  std::string contest_name;   ///< title from the summary or chosen in the selection dialog
  std::string contest_line;   ///< title line of the summary, for display
  std::string select_from;    ///< "zlog_zsm": the logger's summary; "za2c_zsm", "zz2c_zsm": the program's own
  std::string select_caller;  ///< which summary the selection dialog was last opened for, e.g. "za2c_zsm"
  std::int16_t iota_flag = 0;              ///< 1 while the current contest is an IOTA contest
  std::string zlo_title;                   ///< title in the header of a ZLO log
  std::string ccc_cont_type;               ///< contest type of a CCC log, "ARRLD...", "CQWPX...", ...
  std::vector<ContestName> contest_names;  ///< contest_name.cfg, in file order
};

/// Entry category: words of the Cabrillo header and what they are built from.
struct CategoryState {
  std::string cat_operator, cat_transmitter, cat_power, cat_mode, cat_band, cat_station, cat_assisted;
  std::string overlay_cat;      ///< CATEGORY-OVERLAY; blank for none
  std::string cat_text;         ///< the category text of the summary's Category line
  std::string cat_summary;      ///< short category text of operator, band and power words
  std::string zsm_category;     ///< category text printed on the program's own summary
  std::string dialog_category;  ///< operator, power and mode as chosen in the selection dialog
  std::string operator_cat;     ///< operator text, e.g. "SINGLE-OP"
  std::string zsm_operator;     ///< operator text of the program's own summary, e.g. "Single-op"
  std::string band_word;        ///< band word of `cat_summary`
  std::string power_cat;        ///< power word: "HIGH", "LOW", "QRP"
  std::string mode_word;        ///< mode word with its trailing blank: "SSB ", "CW ", "RTY ", ...
  std::string zsm_mode;         ///< mode that the logger's Category line names: "SSB", "CW", or ""
  std::string dialog_mode;      ///< mode chosen in the selection dialog: "Mixed", "PH", "CW", "RTY"
  std::string qso_band;         ///< band text of the selection dialog: "ALL", "1.9", ... "28"
  std::string jidx_category;    ///< JIDX category code, e.g. "7L"
  std::int16_t multi_tx = 0;    ///< 1: QSO lines carry the transmitter number
  std::int16_t operator_index = 0, power_index = 0;  ///< chosen options
  std::int16_t mode_sel = 0;                         ///< 0 mixed, 1 SSB, 2 CW, 3 RTTY
  std::int16_t band_sel = 0;                         ///< 0 all band, 1 to 6: 1.9 to 28 MHz
  bool band_sel_known = false;                       ///< a scan or a dialog has set `band_sel` for this log
  std::int16_t mode_sel_cat = 0;                     ///< `mode_sel` of the last scan of the log
  std::int16_t mode_sel_log = 0, band_sel_log = 0;   ///< the same of the last scan of a ZLO log
  std::int16_t lowband_flag = 0;    ///< 1: QSOs on 1.9, 3.5 or 7 MHz; 2: none there; 0: not scanned
  std::string max_power_text;       ///< highest sent power of an ARRL DX log
  bool dialog_shown = false;        ///< the selection dialog was confirmed for this log
  bool transmitter_chosen = false;  ///< a transmitter was chosen in the selection dialog
  std::string overlay_key;          ///< key of the overlay list, e.g. "CQ-WPX-CW"
  std::string overlay_caller;       ///< the dialog that opened the overlay dialog
  bool overlay_back = false;        ///< the overlay dialog was left by its return button
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

/// The six contest bands in the order of every table: 1.9, 3.5, 7, 14, 21, 28 MHz.
inline constexpr std::size_t band_count = 6;

/// Counters of one band.
struct BandTally {
  std::int16_t qso_cnt = 0;    ///< QSOs
  std::int16_t pts_sum = 0;    ///< sum of QSO points
  std::int16_t qtc_cnt = 0;    ///< QTCs (WAEDC)
  std::int16_t mult1_cnt = 0;  ///< first multiplier (WAEDC: weighted)
  std::int16_t mult2_cnt = 0;  ///< second multiplier
};

/// Tallies and score.
struct TallyState {
  std::array<BandTally, band_count> band_tally{};
  std::int32_t qsos_total = 0, points_total = 0, multi1_total = 0, multi2_total = 0, qtcs_total = 0;
  std::int16_t cw_count = 0, ssb_count = 0, rty_count = 0, fm_count = 0;
  std::int32_t total_score = 0;  ///< claimed score
  std::string total_score_text;  ///< the same as text
  std::string score_detail;      ///< score, QSOs, points and multipliers, e.g. "123456 500-1200-103"
};

/// One record of e_mail_add.cfg and one of category-assisted.txt.
struct MailAddress {
  std::string key, address;
};
struct AssistedContest {
  std::string contest;
  std::int16_t flag = 1;  ///< 1: the header gets a CATEGORY-ASSISTED line
};

/// The lists that the user edits.
struct ListState {
  std::vector<MailAddress> mail_adds;
  std::vector<AssistedContest> assisted_conts;
};

/// The submission mail.
struct MailState {
  std::string send_to_add;      ///< submission address of the contest
  std::string contest_no_mode;  ///< CONTEST value without its mode
  std::string log_title;        ///< own call, contest and category
  std::string mail_subject;     ///< the same and the year
};

/// What the windows show.
struct DisplayState {
  std::string zsm_disp1, zsm_disp2, zsm_disp3, zsm_disp4;  ///< the four summary labels
  std::string zsm_disp_color;                              ///< "0", "2" or "9"; others leave the colours
  std::string msg_text;                                    ///< last message box
  int msg_ret = 0;                                         ///< its answer
  std::string disp_name;                                   ///< file that the text viewer shows
  std::vector<std::string> check_findings;                 ///< messages of the last check, the first thousand
  std::int64_t finding_count = 0;                          ///< all of them
  std::int32_t line_count = 0;                             ///< lines of the file that was measured last
};

struct State {
  ProgramState program;
  Settings settings;
  std::map<std::string_view, SettingInFile> settings_in_file;  ///< by key
  InputState input;
  ContestState contest;
  CategoryState category;
  QsoRec qso;
  TallyState tally;
  ListState lists;
  MailState mail;
  DisplayState display;
  Notes notes;  ///< on the log that is open
};

}  // namespace varnisto
