#include "base/files.h"

#include <algorithm>
#include <vector>

#include "base/byte_buffer.h"
#include "base/checked_int.h"
#include "base/file_handle.h"
#include "base/os.h"
#include "base/run_time_error.h"
#include "base/text.h"

namespace varnisto {
namespace {

constexpr std::size_t buffer_size = 65536;

/// The names in a folder that `wanted` accepts; none when the folder cannot be read.
template <class Predicate>
std::vector<std::string> names_in(std::string_view folder, Predicate wanted) {
  std::vector<std::string> names;
  os::for_each_name(std::string{folder}, [&](std::string_view name) {
    if (wanted(name)) names.emplace_back(name);
  });
  std::ranges::sort(names);
  return names;
}

}  // namespace

std::string_view file_part(std::string_view path) {
  return path.substr(folder_part(path).size());
}

std::string_view folder_part(std::string_view path) {
  const std::size_t last = path.rfind(path_separator);
  return last == std::string_view::npos ? std::string_view{} : path.substr(0, last + 1);
}

std::optional<std::string> find_file(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) return std::nullopt;
  if (os::facts_of(path)) return path;
  const std::string_view wanted = file_part(path);
  const std::string_view folder = folder_part(path);
  const auto names =
      names_in(folder, [&](std::string_view name) { return equal_ignoring_case(name, wanted); });
  if (names.empty()) return std::nullopt;
  return std::string{folder} + names.front();
}

bool file_exists(const std::string& path) {
  return find_file(path).has_value();
}

bool is_folder(const std::string& path) {
  const auto facts = os::facts_of(path);
  return facts && facts->kind == os::FileFacts::Kind::folder;
}

bool is_plain_file(const std::string& path) {
  const auto found = find_file(path);
  const auto facts = found ? os::facts_of(*found) : std::nullopt;
  return facts && facts->kind == os::FileFacts::Kind::plain;
}

void copy_file(const std::string& from, FileHandle to) {
  FileHandle source = FileHandle::open_for_reading(from);
  ByteBuffer buffer{buffer_size};
  while (const std::size_t count = source.read(buffer.data(), buffer.size())) to.write(buffer.first(count));
  to.close();
}

bool delete_if_file(const std::string& path) {
  const auto facts = os::facts_of(path);
  if (!facts && !os::is_link(path)) return true;
  return (facts && facts->kind == os::FileFacts::Kind::folder) || os::delete_file(path);
}

std::vector<std::string> delete_leftovers(const std::string& output) {
  const std::string_view start = file_part(output);
  const auto is_leftover = [&](std::string_view name) {
    if (!name.starts_with(start)) return false;
    name.remove_prefix(start.size());
    return name == "2" || (name.starts_with('_') && char_count(name) == 2);
  };
  std::vector<std::string> kept;
  for (const std::string& name : names_in(folder_part(output), is_leftover)) {
    const std::string path = std::string{folder_part(output)} + name;
    if (!delete_if_file(path)) kept.push_back(path);
  }
  return kept;
}

std::int32_t line_breaks_plus_one(const std::string& path) {
  FileHandle file = FileHandle::open_for_reading(path);
  ByteBuffer buffer{buffer_size};
  std::int64_t count = 1;
  while (const std::size_t size = file.read(buffer.data(), buffer.size()))
    count += std::ranges::count(buffer.first(size), '\n');
  return to_i32(count, path);
}

std::string read_file(const std::string& path) {
  FileHandle file = FileHandle::open_for_reading(path);
  std::string bytes;
  ByteBuffer buffer{buffer_size};
  while (const std::size_t size = file.read(buffer.data(), buffer.size())) bytes.append(buffer.first(size));
  return bytes;
}

}  // namespace varnisto
