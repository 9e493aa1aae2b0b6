#include <array>
#include <cerrno>
#include <iconv.h>

#include "base/cp932_converter.h"
#include "base/run_time_error.h"

namespace varnisto {
namespace {

constexpr auto failed = static_cast<std::size_t>(-1);

iconv_t open(Cp932Converter::To to) {
  const iconv_t converter =
      to == Cp932Converter::To::utf8 ? ::iconv_open("UTF-8", "CP932") : ::iconv_open("CP932", "UTF-8");
  // NOLINTNEXTLINE(performance-no-int-to-ptr): iconv_open()'s own sign of failure
  if (converter == reinterpret_cast<iconv_t>(-1))
    throw RunTimeError(RunTimeError::device_io_error, "iconv CP932");
  return converter;
}

}  // namespace

void Cp932Converter::Close::operator()(void* converter) const {
  ::iconv_close(converter);
}

void Cp932Converter::run(std::string_view& in, std::string& out) {
  if (!converter_) converter_.reset(open(to_));
  std::array<char, 4096> buffer;
  ::iconv(converter_.get(), nullptr, nullptr, nullptr, nullptr);
  while (!in.empty()) {
    char* source = const_cast<char*>(in.data());
    std::size_t source_left = in.size();
    char* target = buffer.data();
    std::size_t target_left = buffer.size();
    const std::size_t result = ::iconv(converter_.get(), &source, &source_left, &target, &target_left);
    const int code = errno;
    out.append(buffer.data(), buffer.size() - target_left);
    in.remove_prefix(in.size() - source_left);
    if (result == failed && code != E2BIG) return;
  }
}

}  // namespace varnisto
