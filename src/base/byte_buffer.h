#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>

namespace varnisto {

/// Room for bytes, as it comes from the system: clearing what a read or a write fills anyway would touch
/// every page of it.
class ByteBuffer {
 public:
  ByteBuffer() = default;
  explicit ByteBuffer(std::size_t size) : bytes_(std::make_unique_for_overwrite<char[]>(size)), size_(size) {}

  char* data() { return bytes_.get(); }
  std::size_t size() const { return size_; }
  /// The first `n` bytes.
  std::string_view first(std::size_t n) const { return {bytes_.get(), n}; }

  /// Makes the room `size` bytes large; the first `used` ones keep what they hold.
  void grow(std::size_t size, std::size_t used) {
    ByteBuffer larger{size};
    std::copy_n(data(), used, larger.data());
    *this = std::move(larger);
  }

 private:
  std::unique_ptr<char[]> bytes_;
  std::size_t size_ = 0;
};

}  // namespace varnisto
