#pragma once
// Settings files: sections in square brackets, lines key=value. The case of names does not matter, the first
// section of a name wins and in it the first key; a write keeps comments, unknown keys, order and spelling.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/os.h"
#include "base/temporary.h"

namespace varnisto {

/// One value to be written.
struct ProfileEntry {
  std::string section;
  std::string key;
  std::string value;
};

/// Access to settings files by path.
class Profile {
 public:
  virtual ~Profile() = default;
  /// True when the settings file is there.
  virtual bool exists(const std::string& path) = 0;
  /// The value of a key, without blanks at its ends and without one pair of equal quotes around it; "" when
  /// key, section or file is missing. Throws RunTimeError when a file that is there cannot be read.
  virtual std::string get(const std::string& path, std::string_view section, std::string_view key) = 0;
  /// Writes these values in one step: the file is the old one or the new one, never half of it. A file that
  /// is not there is made. Throws RunTimeError 5 (line break in a value), 61, 70, 76.
  virtual void set(const std::string& path, std::span<const ProfileEntry> entries) = 0;

  /// Between these two no other process changes the file: see ProfileHold.
  virtual void begin_hold(const std::string& /*path*/) {}
  virtual void end_hold() {}
};

/// While this lives no other process changes the settings file: values are read, changed and written without
/// losing what others write. Holds may be nested.
class ProfileHold {
 public:
  ProfileHold(Profile& profile, const std::string& path) : profile_(profile) { profile_.begin_hold(path); }
  ~ProfileHold() { profile_.end_hold(); }
  ProfileHold(const ProfileHold&) = delete;
  ProfileHold& operator=(const ProfileHold&) = delete;

 private:
  Profile& profile_;
};

/// The text of one settings file.
class ProfileText {
 public:
  ProfileText() = default;
  /// Takes the file's bytes: UTF-8 or UTF-16 (little-endian) when they begin with its byte order mark, else
  /// code page 932.
  explicit ProfileText(std::string_view bytes);

  std::string get(std::string_view section, std::string_view key) const;
  /// Replaces the value in its place, or puts a new key behind the section's last one, or a new section at
  /// the end.
  void set(std::string_view section, std::string_view key, std::string_view value);
  /// The file's bytes again, in the form they were read in. Throws RunTimeError 5 for a character that this
  /// form does not have.
  std::string bytes() const;

 private:
  struct Place;
  Place find(std::string_view section, std::string_view key) const;

  std::vector<std::string> lines_;  ///< UTF-8, with their line ends
  enum class Form { code_page, utf8, utf16 };
  Form form_ = Form::code_page;
};

/// A value as a reader sees it: blanks and tabs at its ends and one pair of equal quotes are gone.
std::string_view profile_value(std::string_view raw);

/// Settings files on disk. They are flushed to the disk before they take the place of the old one: unlike an
/// output they cannot be made again.
class FileProfile final : public Profile {
 public:
  /// Throws RunTimeError 75 for a file that is there and cannot be read, 5 for a line of more than a
  /// megabyte.
  bool exists(const std::string& path) override;
  std::string get(const std::string& path, std::string_view section, std::string_view key) override;
  void set(const std::string& path, std::span<const ProfileEntry> entries) override;
  /// The lock is that of the file's folder.
  void begin_hold(const std::string& path) override;
  void end_hold() override;

 private:
  const ProfileText& load(const std::string& path);
  void replace_file(const std::string& path, const std::string& bytes);

  // The file as it was read last, with what tells whether it has changed since.
  struct Stamp {
    std::string path;
    os::FileId id;
    std::int64_t changed = 0, size = -1;
    bool operator==(const Stamp&) const = default;
  };
  static Stamp stamp_of(const std::string& path);
  Stamp stamp_;
  ProfileText text_;
  std::optional<FolderLock> lock_;
  int holds_ = 0;
};

/// Reads through to another profile, but keeps what is written in memory: for runs that must not change the
/// file.
class OverlayProfile final : public Profile {
 public:
  explicit OverlayProfile(Profile& below) : below_(below) {}

  bool exists(const std::string& path) override;
  std::string get(const std::string& path, std::string_view section, std::string_view key) override;
  void set(const std::string& path, std::span<const ProfileEntry> entries) override;

 private:
  using Written = std::vector<std::pair<std::string, ProfileEntry>>;
  Written::iterator find(const std::string& path, std::string_view section, std::string_view key);

  Profile& below_;
  Written written_;  ///< path and value
};

}  // namespace varnisto
