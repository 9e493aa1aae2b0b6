#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace varnisto::test {

/// A folder of its own for one test, gone when the test ends.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  /// The folder, ending in "/".
  const std::string& path() const { return path_; }
  /// Writes a file (bytes as given) and returns its path.
  std::string write(const std::string& name, std::string_view bytes) const;
  /// Writes UTF-8 text with "\n" line ends as code page 932 with CR LF; returns the path.
  std::string write_text(const std::string& name, std::string_view text) const;
  /// A file's bytes; "(missing)" when it is not there.
  std::string read(const std::string& name) const;
  /// A file as UTF-8 with "\n" line ends.
  std::string read_text(const std::string& name) const;
  bool has(const std::string& name) const;
  /// Every file in the folder: name and bytes.
  std::map<std::string, std::string> files() const;
  /// Copies the files of another folder into this one.
  void copy_from(const std::filesystem::path& folder) const;

 private:
  std::string path_;
};

/// The repository's folder of this name ("data", "examples", "tests/data").
std::filesystem::path source_dir(const std::string& name);

}  // namespace varnisto::test
