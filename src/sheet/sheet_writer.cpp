#include "sheet/sheet_writer.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "base/files.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "base/text_reader.h"
#include "cabrillo/category.h"
#include "core/paths.h"
#include "core/settings.h"

namespace varnisto {
namespace {

/// A column of the band table: where it begins, what its rows and its total show.
struct SheetColumn {
  std::size_t stop;
  std::int16_t BandTally::*counter;
  std::int32_t TallyState::*total;
};
constexpr std::size_t column_width = 5, score_width = 10;

constexpr SheetColumn general_columns[] = {{14, &BandTally::qso_cnt, &TallyState::qsos_total},
                                           {24, &BandTally::pts_sum, &TallyState::points_total},
                                           {34, &BandTally::mult1_cnt, &TallyState::multi1_total},
                                           {44, &BandTally::mult2_cnt, &TallyState::multi2_total}};
constexpr SheetColumn waedc_columns[] = {{14, &BandTally::pts_sum, &TallyState::points_total},
                                         {24, &BandTally::qtc_cnt, &TallyState::qtcs_total},
                                         {34, &BandTally::mult1_cnt, &TallyState::multi1_total}};

struct SheetVariant {
  std::string_view heading;
  std::span<const SheetColumn> columns;
  std::size_t score_stop;
  bool prefixes = false;  ///< the number of prefixes follows the totals
};
constexpr SheetVariant general_variant{"MHz           QSOs    Points    Multis",
                                       std::span{general_columns}.first(3), 15};
constexpr SheetVariant cqww_variant{"MHz           QSOs    Points    Zones  Countries",
                                    std::span{general_columns}, 15};
constexpr SheetVariant cqwpx_variant{"MHz           QSOs    Points", std::span{general_columns}.first(2), 16,
                                     true};
constexpr SheetVariant waedc_variant{"MHz           QSOs     QTCs    Mult(*bonus)", waedc_columns, 16};

constexpr std::size_t band_label_width = 3;

constexpr std::string_view declaration[] = {
    "", "This is to certify that in this contest I have operated my transmitter",
    "within the limitations of my license and have fully observed the",
    "rules and regulations of the contest.", ""};

/// Continues at column `stop` with a number, right-aligned in `width`.
void put_at(std::string& line, std::size_t stop, std::int64_t value, std::size_t width) {
  line = pad_right(line, stop - 1) + pad_left(std::to_string(value), width);
}

void put_table(const TallyState& tally, const SheetVariant& variant, LineSink& sheet) {
  sheet.put(variant.heading);
  for (std::size_t band = 0; band < band_count; ++band) {
    std::string line = pad_right(names_of(band_at(band)).megahertz, band_label_width);
    for (const SheetColumn& column : variant.columns)
      put_at(line, column.stop, tally.band_tally.at(band).*column.counter, column_width);
    sheet.put(line);
  }
  std::string totals = "Total : ";
  for (const SheetColumn& column : variant.columns)
    put_at(totals, column.stop, tally.*column.total, column_width);
  sheet.put(totals);
  if (variant.prefixes)
    sheet.put("Total prefixes:  " + pad_left(std::to_string(tally.multi1_total), column_width));
  std::string score = "Total score : ";
  put_at(score, variant.score_stop, tally.total_score, score_width);
  sheet.put(score);
}

/// Everything down to the score line.
void put_head(const App& app, const SheetVariant& variant, LineSink& sheet) {
  sheet.put(sheet_title(app));
  sheet.put("");
  sheet.put("Call sign: " + std::string{trim(app.state.settings.mycall)});
  sheet.put("");
  sheet.put("Category: " + app.state.log.category.zsm_category);
  sheet.put("");
  put_table(app.state.log.tally, variant, sheet);
}

bool holds_comment(std::string_view line) {
  return contains(line, "SOAPBOX=") || contains(line, "SOAPBOX:");
}

/// The settings that make the name and address lines. True when one of them was a comment.
bool put_name_and_address(const Settings& settings, LineSink& sheet) {
  constexpr std::string_view wanted[] = {"OPERATORS", "NAME", "ADDRESS1", "ADDRESS2", "ADDRESS3"};
  bool commented = false;
  for (const SettingKey& key : setting_keys()) {
    if (std::ranges::find(wanted, key.key) == std::end(wanted)) continue;
    const std::string line = std::string{key.key} + "=" + setting_value(settings, key);
    const auto lines_of_key = sheet_lines_of_setting(line);
    commented = commented || (!lines_of_key.empty() && holds_comment(line));
    for (const std::string& text : lines_of_key) sheet.put(text);
  }
  return commented;
}

/// The sheet goes to the generated name; it never replaces the logger's own summary.
void choose_sheet_name(InputState& input) {
  if (input.zsm_use_name == input.zsm_name) input.zsm_use_name = generated_summary(input, input.in_kind);
}

void write_variant(App& app, const SheetVariant& variant) {
  choose_sheet_name(app.state.log.input);
  TextWriter sheet{app.outputs.create(app.state.log.input.zsm_use_name)};
  put_head(app, variant, sheet);
  make_za2c_zsm_etc(app, sheet);
}

std::string cont_name_path(const App& app) {
  return app.state.program.app_dir + "cont_name.txt";
}

}  // namespace

std::string sheet_title(const App& app) {
  switch (app.state.log.input.in_kind) {
    case InputKind::zlog_zlo:
      return app.state.log.contest.zlo_title;
    case InputKind::ccc_txt:
    case InputKind::ccc_bin:
      throw NotAvailable("CCC");
    case InputKind::none:
    case InputKind::zlog_all:
    case InputKind::cabrillo:
      break;
  }
  return app.state.log.contest.contest_name;
}

std::vector<std::string> sheet_lines_of_setting(std::string_view line) {
  if (contains(line, "OPERATORS=")) return {};
  struct KeyText {
    std::string_view key, text;
  };
  constexpr KeyText texts[] = {{"NAME:", "Name :  "},       {"NAME=", "Name :  "},
                               {"ADDRESS1=", "Address : "}, {"ADDRESS1:", "Address : "},
                               {"ADDRESS2:", "          "}, {"ADDRESS3:", "          "},
                               {"ADDRESS2=", "          "}, {"ADDRESS3=", "          "},
                               {"SOAPBOX=", "Comment :  "}, {"SOAPBOX:", "Comment :  "}};
  std::vector<std::string> result;
  if (contains(line, "ADDRESS1=") || contains(line, "ADDRESS1:")) result.emplace_back();
  std::string text{line};
  for (const KeyText& row : texts) text = replace_all(text, row.key, row.text);
  result.push_back(std::move(text));
  return result;
}

void make_za2c_zsm(App& app) {
  app.trace.line("Public Sub make_za2c_zsm()");
  write_variant(app, general_variant);
}

void make_za2c_zsm_CQWW(App& app) {
  app.trace.line("Public Sub make_za2c_zsm_CQWW()");
  app.state.log.tally.score_detail = score_detail_of(app.state.log.tally);
  write_variant(app, cqww_variant);
}

void make_za2c_zsm_CQWPX(App& app) {
  app.trace.line("Public Sub make_za2c_zsm_CQWPX()");
  write_variant(app, cqwpx_variant);
}

void make_za2c_zsm_WAEDC(App& app) {
  app.trace.line("Public Sub make_za2c_zsm_WAEDC()");
  write_variant(app, waedc_variant);
}

void Make_zlo2_za2c_zsm2(App& app) {
  app.trace.line("Public Sub Make_zlo2_za2c_zsm2()");
  std::string& name = app.state.log.contest.contest_name;
  if (is_blank(name)) name = "contest";
  if (!app.outputs.exists(cont_name_path(app))) write_cont_name(app, name);
  write_variant(app, general_variant);
}

void make_za2c_zsm_etc(App& app, TextWriter& sheet) {
  app.trace.line("Public Sub make_za2c_zsm_etc()");
  for (const std::string_view line : declaration) sheet.put(line);
  const bool commented = put_name_and_address(app.state.settings, sheet);
  sheet.put("");
  sheet.put("mail to : " + std::string{trim(app.state.settings.e_mail)});
  if (!commented) {
    sheet.put("");
    sheet.put("Comment :   Tnx nice contest");
  }
  sheet.put("");

  sheet.close();
  const std::string& name = app.state.log.input.zsm_use_name;
  add_output(app.state.log.input, name);
}

void write_cont_name(App& app, std::string_view name) {
  try {
    TextWriter out{app.outputs.create(cont_name_path(app), Need::dispensable)};
    out.put(name);
    out.close();
  } catch (const RunTimeError& error) {
    app.outputs.give_up(cont_name_path(app));
    add_notice(app, describe(error));
  }
}

}  // namespace varnisto
