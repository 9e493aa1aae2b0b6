#include "cabrillo/header.h"

#include "base/text.h"
#include "core/lists.h"

namespace varnisto {
namespace {

using Value = std::string(const App&);
using Wanted = bool(const App&);

/// A header line: tag, value, and when it is written (no `wanted`: always).
struct HeaderLine {
  std::string_view tag;
  Value* value;
  Wanted* wanted = nullptr;
};

std::string nothing(const App&) {
  return "";
}

template <std::string Settings::*member>
std::string setting(const App& app) {
  return app.state.settings.*member;
}
template <std::string Settings::*member>
bool has_setting(const App& app) {
  return !is_blank(app.state.settings.*member);
}
template <std::string CategoryState::*member>
std::string category(const App& app) {
  return app.state.category.*member;
}

bool wants_location(const App& app) {
  const std::string& contest = app.state.contest.contest;
  return contains(contest, "ARRL-") || contains(contest, "IARU-");
}

/// The transmitter category only counts for multi-operator entries that chose one.
std::string transmitter(const App& app) {
  const CategoryState& values = app.state.category;
  const bool chosen = contains(values.cat_operator, "MULTI") && values.transmitter_chosen;
  return chosen ? values.cat_transmitter : "ONE";
}

bool is_assisted(const App& app) {
  return app.state.category.operator_cat == "SINGLE-OP-ASSISTED";
}

bool wants_assisted(const App& app) {
  return assisted_flag(app) == 1 && is_assisted(app);
}

bool wants_non_assisted(const App& app) {
  return assisted_flag(app) == 1 && !is_assisted(app) &&
         !contains(app.state.category.cat_summary, "ASSISTED");
}

std::string claimed_score(const App& app) {
  const TallyState& tally = app.state.tally;
  return contains(app.state.contest.contest, "JIDX") ? tally.score_detail : std::to_string(tally.total_score);
}

constexpr HeaderLine header[] = {
    {"START-OF-LOG: 3.0", nothing},
    {"CREATED-BY: ", [](const App& app) { return app.state.program.created_by; }},
    {"LOCATION: DX", nothing, wants_location},
    {"CONTEST: ", [](const App& app) { return app.state.contest.contest; }},
    {"CALLSIGN: ", [](const App& app) { return std::string{trim(app.state.settings.mycall)}; }},
    {"CATEGORY-OPERATOR: ", category<&CategoryState::cat_operator>},
    {"CATEGORY-TRANSMITTER: ", transmitter},
    {"CATEGORY-POWER: ", category<&CategoryState::cat_power>},
    {"CATEGORY-MODE: ", category<&CategoryState::cat_mode>},
    {"CATEGORY-BAND: ", category<&CategoryState::cat_band>},
    {"CATEGORY-STATION: ", category<&CategoryState::cat_station>},
    {"CATEGORY-ASSISTED: ASSISTED", nothing, wants_assisted},
    {"CATEGORY-ASSISTED: NON-ASSISTED", nothing, wants_non_assisted},
    {"CATEGORY-OVERLAY: ", category<&CategoryState::overlay_cat>,
     [](const App& app) { return !is_blank(app.state.category.overlay_cat); }},
    {"CLAIMED-SCORE: ", claimed_score},
    {"OPERATORS: ", setting<&Settings::operators>},
    {"NAME: ", setting<&Settings::my_name>},
    {"ADDRESS: ", setting<&Settings::address1>, has_setting<&Settings::address1>},
    {"ADDRESS: ", setting<&Settings::address2>, has_setting<&Settings::address2>},
    {"ADDRESS: ", setting<&Settings::address3>, has_setting<&Settings::address3>},
    {"SOAPBOX: ", setting<&Settings::comments_1>, has_setting<&Settings::comments_1>},
    {"SOAPBOX: ", setting<&Settings::comments_2>, has_setting<&Settings::comments_2>},
    {"SOAPBOX: ", setting<&Settings::comments_3>, has_setting<&Settings::comments_3>},
    {"SOAPBOX: ", setting<&Settings::comments_4>, has_setting<&Settings::comments_4>},
    {"SOAPBOX: ", setting<&Settings::comments_5>, has_setting<&Settings::comments_5>},
    {"SOAPBOX: ", setting<&Settings::comments_6>, has_setting<&Settings::comments_6>},
};

}  // namespace

void put_cbr_header(const App& app, LineSink& out) {
  for (const HeaderLine& line : header)
    if (!line.wanted || line.wanted(app)) out.put(std::string{line.tag} + line.value(app));
}

}  // namespace varnisto
