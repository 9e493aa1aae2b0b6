#pragma once
// Operator, power, transmitter and station categories: one row each with every name they go by.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace varnisto {

/// Each numbered as the options of the windows.
enum class Power : std::uint8_t { high, low, qrp };
enum class Operator : std::uint8_t {
  single_op,
  single_op_assisted,
  school_club,
  multi_one,
  multi_two,
  multi_multi,
  checklog
};
enum class Transmitter : std::uint8_t { one, two, limited, unlimited, swl };
enum class Station : std::uint8_t { fixed, mobile, driver_mobile, portable, expedition, hq, school };

inline constexpr std::array<std::string_view, 3> power_names = {"HIGH", "LOW", "QRP"};
/// CATEGORY-TRANSMITTER and CATEGORY-STATION values.
inline constexpr std::array<std::string_view, 5> transmitter_names = {"ONE", "TWO", "LIMITED", "UNLIMITED",
                                                                      "SWL"};
inline constexpr std::array<std::string_view, 7> station_names = {
    "FIXED", "MOBILE", "DRIVER-MOBILE", "PORTABLE", "EXPEDITION", "HQ", "SCHOOL"};

struct OperatorNames {
  Operator op;
  std::string_view name;              ///< in capitals, as the windows offer it
  std::string_view text;              ///< in summaries and sheets
  std::string_view cat_operator;      ///< CATEGORY-OPERATOR value
  std::string_view chosen_in_dialog;  ///< the same when the selection dialog chose it
  Transmitter transmitter;            ///< what the choice brings along
  Station station;
  bool dialog_sets_station;  ///< in the selection dialog too, whose station stays otherwise
  bool multi_tx;             ///< QSO lines carry the transmitter's number
};
inline constexpr std::array<OperatorNames, 7> operator_table = {
    {{Operator::single_op, "SINGLE-OP", "Single-op", "SINGLE-OP", "SINGLE-OP", Transmitter::one,
      Station::fixed, true, false},
     {Operator::single_op_assisted, "SINGLE-OP-ASSISTED", "Single-op-Assisted", "SINGLE-OP", "SINGLE-OP",
      Transmitter::one, Station::fixed, true, false},
     {Operator::school_club, "SCHOOL-CLUB", "School-Club", "MULTI-OP", "SCHOOL-CLUB", Transmitter::unlimited,
      Station::school, true, false},
     {Operator::multi_one, "MULTI-ONE", "Multi-One", "MULTI-OP", "MULTI-OP", Transmitter::one, Station::fixed,
      false, false},
     {Operator::multi_two, "MULTI-TWO", "Multi-Two", "MULTI-OP", "MULTI-OP", Transmitter::two, Station::fixed,
      false, true},
     {Operator::multi_multi, "MULTI-MULTI", "Multi-Multi", "MULTI-OP", "MULTI-OP", Transmitter::unlimited,
      Station::fixed, false, true},
     {Operator::checklog, "CHECKLOG", "CheckLog", "CHECKLOG", "CHECKLOG", Transmitter::unlimited,
      Station::fixed, false, false}}};

constexpr std::string_view name_of(Power power) {
  return power_names[static_cast<std::size_t>(power)];
}
constexpr std::string_view name_of(Transmitter transmitter) {
  return transmitter_names[static_cast<std::size_t>(transmitter)];
}
constexpr std::string_view name_of(Station station) {
  return station_names[static_cast<std::size_t>(station)];
}
constexpr const OperatorNames& names_of(Operator op) {
  return operator_table[static_cast<std::size_t>(op)];
}

/// The operator category of this name (exact, upper case); nothing for another text.
constexpr std::optional<Operator> operator_named(std::string_view name) {
  for (const OperatorNames& row : operator_table)
    if (row.name == name) return row.op;
  return std::nullopt;
}

/// The option of a window that stands for a choice, and back.
template <class Choice>
constexpr int option_of(Choice choice) {
  return static_cast<int>(choice);
}
template <class Choice>
constexpr Choice choice_at(int option) {
  return static_cast<Choice>(option);
}

}  // namespace varnisto
