// The list files that users edit, of any bytes.

#include <algorithm>

#include "base/cp932.h"
#include "base/run_time_error.h"
#include "cabrillo/contest.h"
#include "core/lists.h"
#include "support.h"

using namespace varnisto;

namespace {

/// Runs a reader; only errors that name the malformed line may come.
template <class Reader>
void run(Reader reader) {
  try {
    reader();
  } catch (const ListFileError& error) {
    fuzz::require(std::string_view{error.what()}.starts_with("list: "), "an error names file and line");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes{fuzz::bytes_of(data, size)};
  const auto reader = [&] { return TextReader::from_bytes(bytes, "list"); };

  // The code page loses nothing: bytes come back, or the same character in its first spelling.
  const std::string text = from_cp932(bytes);
  const std::string again = to_cp932(text);
  fuzz::require(again.size() == bytes.size(), "every byte comes back");
  fuzz::require(from_cp932(again) == text, "a second decoding gives the same text");

  FieldReader fields{reader()};
  std::size_t total = 0;
  while (const auto field = fields.next()) total += field->size();
  fuzz::require(total <= text.size(), "fields hold nothing but the text");

  const auto line_count = static_cast<std::int32_t>(std::ranges::count(bytes, '\n') + 1);
  std::vector<MailAddress> addresses;
  run([&] { read_mail_addresses(FieldReader{reader()}, line_count, addresses); });
  fuzz::require(addresses.size() < static_cast<std::size_t>(line_count), "at most one record a line break");
  std::vector<AssistedContest> contests;
  run([&] { read_assisted_contests(reader(), contests); });
  std::vector<ContestName> names;
  run([&] { read_contest_names(FieldReader{reader()}, names); });
  fuzz::require(names.size() <= most_contest_names, "at most 50 contests");
  return 0;
}
