#pragma once
// The kinds of file that can be opened: one row a kind with all that follows from it.

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace varnisto {

/// `in_kind`.
enum class InputKind : std::uint8_t { none, zlog_all, zlog_zlo, ccc_txt, ccc_bin, cabrillo };

struct InputKindNames {
  InputKind kind;
  std::string_view name;        ///< as reports have it
  std::string_view ext_upper;   ///< extension of such a file, in capitals
  std::string_view newer_ext;   ///< the same of a newer kind of file that is read alike
  std::string_view zsm_suffix;  ///< end of the summary's name that the program makes for it
  bool looks_for_summary;       ///< the logger may have written a summary beside it
  bool is_ccc;
};
inline constexpr std::array<InputKindNames, 6> input_kind_table = {
    {{InputKind::none, "", "", "", "", false, false},
     {InputKind::zlog_all, "zlog_all", "ALL", "", "_za2c.zsm", true, false},
     {InputKind::zlog_zlo, "zlog_zlo", "ZLO", "ZLOX", "_zz2c.zsm", true, false},
     {InputKind::ccc_txt, "ccc_txt", "TXT", "", "_ct2c.zsm", false, true},
     {InputKind::ccc_bin, "ccc_bin", "BIN", "", "_cb2c.zsm", false, true},
     {InputKind::cabrillo, "", "CBR", "", "", false, false}}};

constexpr const InputKindNames& names_of(InputKind kind) {
  return input_kind_table[static_cast<std::size_t>(kind)];
}
/// The kind of file that this extension stands for, in capitals; nothing for others.
constexpr std::optional<InputKind> kind_of(std::string_view ext_upper) {
  if (ext_upper.empty()) return std::nullopt;
  for (const InputKindNames& row : input_kind_table)
    if (row.ext_upper == ext_upper || row.newer_ext == ext_upper) return row.kind;
  return std::nullopt;
}
/// The same for logs alone: Cabrillo files have a menu entry of their own.
constexpr std::optional<InputKind> log_kind_of(std::string_view ext_upper) {
  const auto kind = kind_of(ext_upper);
  return kind == InputKind::cabrillo ? std::nullopt : kind;
}

/// `select_from`: what contest and category of a log come from.
enum class SelectFrom : std::uint8_t { none, zlog_zsm, za2c_zsm, zz2c_zsm, ccc_txt, ccc_bin };

constexpr std::string_view name_of(SelectFrom from) {
  constexpr std::array<std::string_view, 6> names = {"",         "zlog_zsm", "za2c_zsm",
                                                     "zz2c_zsm", "ccc_txt",  "ccc_bin"};
  return names[static_cast<std::size_t>(from)];
}

}  // namespace varnisto
