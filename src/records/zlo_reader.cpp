#include "records/zlo_reader.h"

#include <array>
#include <utility>

#include "base/text.h"

namespace varnisto {
namespace {

constexpr std::string_view zlox_extension = ".ZLOX";

const ZloLayout& layout_of(RecordReader& records) {
  const bool named = equal_ignoring_case(right(records.path(), zlox_extension.size()), zlox_extension);
  return named || records.front(zlox_letters.size()) == zlox_letters ? zlox_layout : zlo_layout;
}

}  // namespace

ZloReader::ZloReader(RecordReader records) : records_(std::move(records)), layout_(layout_of(records_)) {}

ZloHeadRecord ZloReader::head() {
  std::string_view record;
  if (!records_.next(layout_.record_size, record)) {
    static constexpr std::array<char, 512> no_head{};
    record = {no_head.data(), no_head.size()};
  }
  return zlo_head_record(record);
}

bool ZloReader::next(ZloQso& qso) {
  std::string_view record;
  if (records_.number() == 0 && !records_.next(layout_.record_size, record)) return false;
  if (!records_.next(layout_.record_size, record)) return false;
  layout_.decode(record, qso);
  return true;
}

bool is_no_binary_log(const std::string& path) {
  constexpr std::size_t piece_size = 4096;
  FileHandle file = FileHandle::open_for_reading(path);
  std::array<char, piece_size> piece;
  bool empty = true;
  while (const std::size_t count = file.read(piece.data(), piece.size())) {
    if (std::string_view{piece.data(), count}.find('\0') != std::string_view::npos) return false;
    empty = false;
  }
  return !empty;
}

}  // namespace varnisto
