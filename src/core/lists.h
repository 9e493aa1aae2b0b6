#pragma once
// The list files in the program folder that carry per-contest knowledge and that the user edits.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/fields.h"
#include "base/run_time_error.h"
#include "core/app.h"

namespace varnisto {

/// A list file that cannot be read as what it should be: what() names file and line.
struct ListFileError : RunTimeError {
  using RunTimeError::RunTimeError;
};

/// One field more of a record that has begun. Throws ListFileError 62 at the end of the file (half a record).
std::string next_of_record(FieldReader& reader);

/// Reads e_mail_add.cfg (contest key, address) into `mail_adds`: as many records as the file has line breaks,
/// so a last line without one is not read. Throws RunTimeError 53 or ListFileError.
void read_email_add(App& app);
/// The same from an open file with this line count; the records before an error stay in `records`.
void read_mail_addresses(FieldReader reader, std::int32_t line_count, std::vector<MailAddress>& records);
/// The first record whose key occurs in this CONTEST value; null when there is none. An empty key occurs in
/// every value.
const MailAddress* find_mail_address(const App& app, std::string_view contest);

/// Reads category-assisted.txt (CONTEST value, flag, notes; lines that begin with ";" are comments) into
/// `assisted_conts`. Throws RunTimeError 53 or ListFileError (no comma, flag no number).
void read_category_assisted(App& app);
/// The same from an open file; the entries before an error stay in `contests`.
void read_assisted_contests(TextReader reader, std::vector<AssistedContest>& contests);
/// True when the header of the current contest gets a CATEGORY-ASSISTED line; so it does in a contest that is
/// not listed.
bool assisted_flag(const App& app);

}  // namespace varnisto
