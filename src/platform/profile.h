#pragma once
// Settings files: sections in square brackets, lines key=value. The case of names does not matter, the first
// section of a name wins and in it the first key; a write keeps comments, unknown keys, order and spelling.

#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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
};

/// The text of one settings file.
class ProfileText {
 public:
  ProfileText() = default;
  /// Takes the file's bytes: code page 932, or UTF-16 (little-endian) when they begin with its byte order
  /// mark.
  explicit ProfileText(std::string_view bytes);

  std::string get(std::string_view section, std::string_view key) const;
  /// Replaces the value in its place, or puts a new key behind the section's last one, or a new section at
  /// the end.
  void set(std::string_view section, std::string_view key, std::string_view value);
  /// The file's bytes again, in the form they were read in.
  std::string bytes() const;

 private:
  struct Place;
  Place find(std::string_view section, std::string_view key) const;

  std::vector<std::string> lines_;  ///< UTF-8, with their line ends
  bool utf16_ = false;
};

/// A value as a reader sees it: blanks and tabs at its ends and one pair of equal quotes are gone.
std::string_view profile_value(std::string_view raw);

/// Settings files on disk.
class FileProfile final : public Profile {
 public:
  bool exists(const std::string& path) override;
  std::string get(const std::string& path, std::string_view section, std::string_view key) override;
  void set(const std::string& path, std::span<const ProfileEntry> entries) override;

 private:
  const ProfileText& load(const std::string& path);

  // The file as it was read last, with what tells whether it has changed since.
  struct Stamp {
    std::string path;
    long long changed = 0, size = -1, inode = 0;
    bool operator==(const Stamp&) const = default;
  };
  static Stamp stamp_of(const std::string& path);
  Stamp stamp_;
  ProfileText text_;
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
