#include "support/temp_dir.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "base/cp932.h"
#include "base/text.h"

namespace varnisto::test {

namespace fs = std::filesystem;

TempDir::TempDir() {
  std::string pattern = (fs::temp_directory_path() / "varnisto-test-XXXXXX").string();
  path_ = std::string{mkdtemp(pattern.data())} + "/";
}

TempDir::~TempDir() {
  std::error_code failure;
  fs::remove_all(path_, failure);
}

std::string TempDir::write(const std::string& name, std::string_view bytes) const {
  std::ofstream{path_ + name, std::ios::binary} << bytes;
  return path_ + name;
}

std::string TempDir::write_text(const std::string& name, std::string_view text) const {
  return write(name, to_cp932(replace_all(text, "\n", "\r\n")));
}

std::string TempDir::read(const std::string& name) const {
  std::ifstream in{path_ + name, std::ios::binary};
  if (!in) return "(missing)";
  return {std::istreambuf_iterator<char>{in}, {}};
}

std::string TempDir::read_text(const std::string& name) const {
  return replace_all(from_cp932(read(name)), "\r\n", "\n");
}

bool TempDir::has(const std::string& name) const {
  return fs::exists(path_ + name);
}

std::map<std::string, std::string> TempDir::files() const {
  std::map<std::string, std::string> found;
  for (const auto& entry : fs::directory_iterator{path_})
    if (entry.is_regular_file())
      found[entry.path().filename().string()] = read(entry.path().filename().string());
  return found;
}

void TempDir::copy_from(const fs::path& folder) const {
  fs::copy(folder, path_, fs::copy_options::recursive | fs::copy_options::overwrite_existing);
}

fs::path source_dir(const std::string& name) {
  return fs::path{VARNISTO_SOURCE_DIR} / name;
}

}  // namespace varnisto::test
