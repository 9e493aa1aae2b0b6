#include "platform/profile.h"

#include <algorithm>
#include <optional>

#include "base/cp932.h"
#include "base/files.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "base/text_reader.h"

namespace varnisto {
namespace {

constexpr std::string_view utf16_mark = "\xFF\xFE", utf8_mark = "\xEF\xBB\xBF";
constexpr std::string_view line_end = "\r\n";

std::string_view strip(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

void append_utf8(std::string& out, char32_t c) {
  const auto put = [&](unsigned value) { out.push_back(static_cast<char>(value)); };
  const auto tail = [&](int shift) { put(0x80U | ((static_cast<unsigned>(c) >> shift) & 0x3FU)); };
  if (c < 0x80) return put(static_cast<unsigned>(c));
  if (c < 0x800) return put(0xC0U | static_cast<unsigned>(c >> 6)), tail(0);
  if (c < 0x10000) return put(0xE0U | static_cast<unsigned>(c >> 12)), tail(6), tail(0);
  put(0xF0U | static_cast<unsigned>(c >> 18)), tail(12), tail(6), tail(0);
}

std::string utf8_of_utf16(std::string_view bytes) {
  std::string out;
  const auto unit = [&](std::size_t i) {
    return static_cast<char32_t>(static_cast<unsigned char>(bytes[i]) |
                                 static_cast<unsigned char>(bytes[i + 1]) << 8);
  };
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    char32_t c = unit(i);
    const char32_t next = i + 3 < bytes.size() ? unit(i + 2) : 0;
    if (c >= 0xD800 && c < 0xDC00 && next >= 0xDC00 && next < 0xE000) {
      c = 0x10000 + ((c - 0xD800) << 10) + (next - 0xDC00);
      i += 2;
    }  // half a pair alone stays what it is
    append_utf8(out, c);
  }
  return out;
}

char32_t take_utf8(std::string_view& text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
  char32_t c = more == 3 ? lead & 0x07U : more == 2 ? lead & 0x0FU : more == 1 ? lead & 0x1FU : lead;
  text.remove_prefix(1);
  for (int i = 0; i < more && !text.empty(); ++i, text.remove_prefix(1))
    c = (c << 6) | (static_cast<unsigned char>(text.front()) & 0x3FU);
  return c;
}

std::string utf16_of_utf8(std::string_view text) {
  std::string out{utf16_mark};
  const auto put = [&](char32_t unit) {
    out.push_back(static_cast<char>(unit & 0xFF));
    out.push_back(static_cast<char>((unit >> 8) & 0xFF));
  };
  while (!text.empty()) {
    const char32_t c = take_utf8(text);
    if (c < 0x10000) {
      put(c);
    } else {
      put(0xD800 + ((c - 0x10000) >> 10));
      put(0xDC00 + ((c - 0x10000) & 0x3FF));
    }
  }
  return out;
}

bool is_comment(std::string_view line) {
  return strip(line).starts_with(';');
}

/// The section's name when this line begins a section.
std::optional<std::string_view> section_of(std::string_view line) {
  const std::string_view text = strip(line);
  if (!text.starts_with('[')) return std::nullopt;
  return strip(text.substr(1, text.find(']') - 1));
}

/// A value is one line.
void refuse_line_break(std::string_view key, std::string_view value) {
  if (contains(value, "\n"))
    throw RunTimeError(RunTimeError::bad_argument, std::string{key} + "=" + std::string{value});
}

/// Throws RunTimeError 5 when a line is longer than a text file's may be.
void refuse_endless_line(std::string_view bytes, const std::string& path) {
  std::size_t number = 1;
  for (std::size_t begin = 0; begin < bytes.size(); ++number) {
    const std::size_t end = std::min(bytes.find('\n', begin), bytes.size());
    if (end - begin > longest_line)
      throw RunTimeError(RunTimeError::bad_argument, path + ": " + std::to_string(number) + " 行目");
    begin = end + 1;
  }
}

/// The bytes of a settings file.
std::string settings_bytes(const std::string& path) {
  std::string bytes;
  try {
    bytes = read_file(path);
  } catch (const RunTimeError&) {  // whatever keeps it from being read
    throw RunTimeError(RunTimeError::path_access_error, path);
  }
  refuse_endless_line(bytes, path);
  return bytes;
}

/// The key's name when this line sets one.
std::optional<std::string_view> key_of(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos || is_comment(line)) return std::nullopt;
  return strip(line.substr(0, equals));
}

}  // namespace

std::string_view profile_value(std::string_view raw) {
  const std::string_view value = strip(raw);
  const bool quoted =
      value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

/// Where a key stands, or where it would go.
struct ProfileText::Place {
  std::optional<std::size_t> key_line;      ///< the line that sets the key
  std::optional<std::size_t> section_line;  ///< the line that begins the section
  std::size_t insert_at = 0;                ///< behind the section's last key or its heading
};

ProfileText::ProfileText(std::string_view bytes) {
  std::string text;
  if (bytes.starts_with(utf16_mark)) {
    form_ = Form::utf16;
    text = utf8_of_utf16(bytes.substr(utf16_mark.size()));
  } else if (bytes.starts_with(utf8_mark)) {
    form_ = Form::utf8;
    text = bytes.substr(utf8_mark.size());
  } else {
    text = from_cp932(bytes);
  }
  for (std::size_t pos = 0; pos < text.size();) {
    const std::size_t end = std::min(text.find('\n', pos), text.size() - 1) + 1;
    lines_.push_back(text.substr(pos, end - pos));
    pos = end;
  }
}

ProfileText::Place ProfileText::find(std::string_view section, std::string_view key) const {
  Place place;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    if (const auto name = section_of(lines_[i])) {
      if (place.section_line) break;
      if (equal_ignoring_case(*name, strip(section))) {
        place.section_line = i;
        place.insert_at = i + 1;
      }
    } else if (const auto name_of_key = key_of(lines_[i]); name_of_key && place.section_line) {
      place.insert_at = i + 1;
      if (!equal_ignoring_case(*name_of_key, strip(key))) continue;
      place.key_line = i;
      break;
    }
  }
  return place;
}

std::string ProfileText::get(std::string_view section, std::string_view key) const {
  const Place place = find(section, key);
  if (!place.key_line) return "";
  const std::string_view line = lines_[*place.key_line];
  return std::string{profile_value(line.substr(line.find('=') + 1))};
}

void ProfileText::set(std::string_view section, std::string_view key, std::string_view value) {
  refuse_line_break(key, value);
  const Place place = find(section, key);
  if (place.key_line) {
    std::string& line = lines_[*place.key_line];
    const std::size_t end = line.find_last_not_of("\r\n") + 1;
    line = line.substr(0, line.find('=') + 1) + std::string{value} + line.substr(end);
    return;
  }
  if (!lines_.empty() && !lines_.back().ends_with('\n')) lines_.back().append(line_end);
  const std::string fresh = std::string{key} + "=" + std::string{value} + std::string{line_end};
  if (place.section_line) {
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place.insert_at), fresh);
    return;
  }
  lines_.push_back("[" + std::string{section} + "]" + std::string{line_end});
  lines_.push_back(fresh);
}

std::string ProfileText::bytes() const {
  std::string text;
  for (const std::string& line : lines_) text += line;
  if (form_ == Form::utf8) return std::string{utf8_mark} + text;
  return form_ == Form::utf16 ? utf16_of_utf8(text) : to_cp932(text);
}

FileProfile::Stamp FileProfile::stamp_of(const std::string& path) {
  const auto facts = os::facts_of(path);
  return facts ? Stamp{path, facts->id, facts->changed, facts->size} : Stamp{};
}

bool FileProfile::exists(const std::string& path) {
  return file_exists(path);
}

const ProfileText& FileProfile::load(const std::string& path) {
  const auto is_current = [this](const Stamp& stamp) { return !stamp.path.empty() && stamp == stamp_; };
  if (path == stamp_.path && is_current(stamp_of(path))) return text_;
  const auto found = find_file(path);
  const Stamp stamp = found ? stamp_of(*found) : Stamp{};
  if (is_current(stamp)) return text_;
  text_ = found ? ProfileText{settings_bytes(*found)} : ProfileText{};
  stamp_ = stamp;
  return text_;
}

std::string FileProfile::get(const std::string& path, std::string_view section, std::string_view key) {
  return load(path).get(section, key);
}

void FileProfile::set(const std::string& path, std::span<const ProfileEntry> entries) {
  const ProfileHold hold{*this, path};
  stamp_ = {};  // what others wrote meanwhile counts
  ProfileText text = load(path);
  for (const ProfileEntry& entry : entries) text.set(entry.section, entry.key, entry.value);
  replace_file(find_file(path).value_or(path), text.bytes());
  stamp_ = {};
}

void FileProfile::replace_file(const std::string& path, const std::string& bytes) {
  const std::string target = replaced_file(path);
  const std::string folder{folder_part(target)};
  std::optional<FolderLock> of_target;  // the settings may be a link to another folder
  constexpr bool wait = false;          // a run may hold that folder and wait for this one
  if (folder != lock_->folder() && !os::same_file(folder, lock_->folder())) of_target.emplace(folder, wait);
  const FolderLock& lock = of_target ? *of_target : *lock_;
  clear_abandoned(lock);
  Temporary fresh{target, lock};
  FileHandle file = fresh.take_file();
  file.write(bytes);
  file.flush_to_disk();
  file.close();
  const SignalsWait until_renamed;
  fresh.close();
  fresh.rename();
}

void FileProfile::begin_hold(const std::string& path) {
  if (holds_++ == 0) lock_.emplace(std::string{folder_part(path)});
}

void FileProfile::end_hold() {
  if (--holds_ == 0) lock_.reset();
}

bool OverlayProfile::exists(const std::string& path) {
  return std::ranges::find(written_, path, &std::pair<std::string, ProfileEntry>::first) != written_.end() ||
         below_.exists(path);
}

OverlayProfile::Written::iterator OverlayProfile::find(const std::string& path, std::string_view section,
                                                       std::string_view key) {
  return std::ranges::find_if(written_, [&](const auto& written) {
    return equal_ignoring_case(written.second.key, key) &&
           equal_ignoring_case(written.second.section, section) && written.first == path;
  });
}

std::string OverlayProfile::get(const std::string& path, std::string_view section, std::string_view key) {
  const auto hit = find(path, section, key);
  return hit == written_.end() ? below_.get(path, section, key) : hit->second.value;
}

void OverlayProfile::set(const std::string& path, std::span<const ProfileEntry> entries) {
  for (const ProfileEntry& entry : entries) {
    refuse_line_break(entry.key, entry.value);
    auto written = find(path, entry.section, entry.key);
    if (written == written_.end()) written = written_.insert(written, {path, entry});
    written->second.value = profile_value(entry.value);
  }
}

}  // namespace varnisto
