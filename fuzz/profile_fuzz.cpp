// A settings file of any bytes and one value to set. The first four lines of the input are section, key,
// value and nothing; the rest is the file.

#include <algorithm>

#include "base/cp932.h"
#include "base/run_time_error.h"
#include "platform/profile.h"
#include "support.h"

using namespace varnisto;

namespace {

std::string_view take_line(std::string_view& rest) {
  const std::size_t end = std::min(rest.find('\n'), rest.size());
  const std::string_view line = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return line;
}

/// A name that such a file can hold: nothing that would end the name or make the line something else.
bool is_plain(std::string_view name) {
  return !name.empty() && std::ranges::all_of(name, [](unsigned char c) {
    return c > ' ' && c < 0x7F && c != '[' && c != ']' && c != '=' && c != ';';
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view rest = fuzz::bytes_of(data, size);
  const std::string_view section = take_line(rest);
  const std::string_view key = take_line(rest);
  const std::string value = from_cp932(take_line(rest));

  ProfileText text{rest};
  const bool utf16 = rest.starts_with("\xFF\xFE");
  const std::string bytes = text.bytes();
  if (!utf16) fuzz::require(from_cp932(bytes) == from_cp932(rest), "reading and writing changes no text");
  fuzz::require(ProfileText{bytes}.bytes() == bytes, "a second pass changes nothing");
  text.get(section, key);
  if (!is_plain(section) || !is_plain(key)) return 0;

  const std::string other{text.get(section, "other")};
  try {
    text.set(section, key, value);
  } catch (const RunTimeError& error) {
    fuzz::require(error.number == RunTimeError::bad_argument, "a refused value is error 5");
    fuzz::require(text.bytes() == bytes, "a refused value changes nothing");
    return 0;
  }
  fuzz::require(text.get(section, key) == profile_value(value), "a value that was set is read back");
  if (!equal_ignoring_case(key, "other"))
    fuzz::require(text.get(section, "other") == other, "other keys keep their value");
  const ProfileText again{text.bytes()};
  fuzz::require(again.get(section, key) == profile_value(value), "it is read back from the file too");
  return 0;
}
