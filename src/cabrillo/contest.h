#pragma once
// From a contest's title to its code: a built-in table, and contest_name.cfg for the rest.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/fields.h"
#include "core/app.h"

namespace varnisto {

/// Most records contest_name.cfg may hold.
inline constexpr std::size_t most_contest_names = 50;

/// Reads contest_name.cfg from the program folder (title, code, note) into `contest_names`, afresh and in
/// file order. Throws RunTimeError 53 (file missing) or ListFileError 9 (a 51st record) or 62 (half a
/// record); the records read before stay.
void read_contest_name(App& app);
/// The same from an open file.
void read_contest_names(FieldReader reader, std::vector<ContestName>& names);
/// Reads the list afresh; the first record whose title occurs in `cont_id` replaces it by the record's code.
/// No match leaves `cont_id` as it is.
void get_contest_name(App& app);

/// Code of a title by its first 12 characters, e.g. "CQWW DX Contest 2002": "CQ-WW". "JIDX" for JIDX titles;
/// nothing for a title the table does not know.
std::optional<std::string_view> title_code(std::string_view title);
/// Code of a title by the table, else by the list file as it was read last; the title itself when neither
/// knows it.
std::string_view code_of_title(const App& app, std::string_view title);
/// Code of a CCC contest type by its first five characters; nothing for an unknown one.
std::optional<std::string_view> ccc_type_code(std::string_view type);

/// Code of a JIDX log: "JIDX", for a CW log "JIDX-LF" or "JIDX-HF" by its bands as scanned. `current` is what
/// it is called so far, kept when the bands were not scanned.
std::string jidx_code(const ScanState& scan, std::string_view current);

/// Makes `cont_id` the code of the title it holds: table, JIDX rule, then the list file.
void map_title_to_code(App& app);

}  // namespace varnisto
