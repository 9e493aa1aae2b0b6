#include "cabrillo/header.h"

#include "base/text.h"
#include "cabrillo/category.h"
#include "core/contests.h"
#include "core/entry.h"
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
/// A header value of the entry.
template <std::string_view (*text)(const EntryChoice&)>
std::string of_entry(const App& app) {
  return std::string{text(app.state.entry)};
}
std::string_view power(const EntryChoice& entry) {
  return name_of(entry.power);
}
std::string_view mode(const EntryChoice& entry) {
  return names_of(entry.mode).cat_mode;
}
std::string_view station(const EntryChoice& entry) {
  return name_of(entry.station);
}
std::string_view overlay(const EntryChoice& entry) {
  return entry.overlay_cat;
}

bool wants_location(const App& app) {
  const std::string& contest = app.state.log.contest.contest;
  return contains(contest, "ARRL-") || contains(contest, "IARU-");
}

/// The transmitter category only counts for multi-operator entries that chose one.
std::string transmitter(const App& app) {
  const EntryChoice& entry = app.state.entry;
  const bool chosen = contains(cat_operator_of(entry), "MULTI") && entry.transmitter_chosen;
  return std::string{name_of(chosen ? entry.transmitter : Transmitter::one)};
}

bool is_assisted(const App& app) {
  return operator_cat(app.state) == names_of(Operator::single_op_assisted).name;
}

bool wants_assisted(const App& app) {
  return assisted_flag(app) && is_assisted(app);
}

bool wants_non_assisted(const App& app) {
  return assisted_flag(app) && !is_assisted(app) && !contains(app.state.log.category.cat_summary, "ASSISTED");
}

std::string claimed_score(const App& app) {
  const TallyState& tally = app.state.log.tally;
  const bool jidx = family_of(app.state.log.contest.contest) == ContestFamily::jidx;
  return jidx ? tally.score_detail : std::to_string(tally.total_score);
}

constexpr HeaderLine header[] = {
    {"START-OF-LOG: 3.0", nothing},
    {"CREATED-BY: ", [](const App& app) { return app.state.program.created_by; }},
    {"LOCATION: DX", nothing, wants_location},
    {"CONTEST: ", [](const App& app) { return app.state.log.contest.contest; }},
    {"CALLSIGN: ", [](const App& app) { return std::string{trim(app.state.settings.mycall)}; }},
    {"CATEGORY-OPERATOR: ", of_entry<cat_operator_of>},
    {"CATEGORY-TRANSMITTER: ", transmitter},
    {"CATEGORY-POWER: ", of_entry<power>},
    {"CATEGORY-MODE: ", of_entry<mode>},
    {"CATEGORY-BAND: ", [](const App& app) { return app.state.log.category.cat_band; }},
    {"CATEGORY-STATION: ", of_entry<station>},
    {"CATEGORY-ASSISTED: ASSISTED", nothing, wants_assisted},
    {"CATEGORY-ASSISTED: NON-ASSISTED", nothing, wants_non_assisted},
    {"CATEGORY-OVERLAY: ", of_entry<overlay>,
     [](const App& app) { return !is_blank(app.state.entry.overlay_cat); }},
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
