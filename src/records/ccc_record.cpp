#include "records/ccc_record.h"

#include <algorithm>

namespace varnisto {
namespace {

constexpr CccField shared_fields[] = {
    {0, 1, &CccRecord::month}, {1, 1, &CccRecord::day}, {2, 2, &CccRecord::hhmm}, {4, 10, &CccRecord::call}};

constexpr CccField zone_fields[] = {{15, 4, &CccRecord::exchange}, {19, 1, &CccRecord::band},
                                    {20, 1, &CccRecord::mode},     {22, 6, &CccRecord::mult_text},
                                    {28, 1, &CccRecord::points},   {29, 1, &CccRecord::new_mult}};

constexpr CccField serial_fields[] = {{15, 4, &CccRecord::exchange},    {19, 1, &CccRecord::band},
                                      {20, 1, &CccRecord::mode},        {22, 6, &CccRecord::mult_text},
                                      {28, 2, &CccRecord::sent_serial}, {30, 1, &CccRecord::points},
                                      {31, 1, &CccRecord::new_mult}};

constexpr CccField iaru_fields[] = {{15, 5, &CccRecord::exchange},
                                    {20, 1, &CccRecord::band},
                                    {21, 1, &CccRecord::mode},
                                    {22, 1, &CccRecord::points},
                                    {23, 1, &CccRecord::new_mult}};

constexpr CccField power_fields[] = {{15, 4, &CccRecord::exchange}, {19, 1, &CccRecord::band},
                                     {20, 1, &CccRecord::mode},     {21, 1, &CccRecord::power},
                                     {22, 1, &CccRecord::points},   {23, 1, &CccRecord::new_mult}};

/// True when each field begins behind the one before it and the last one ends inside a record.
constexpr bool fits(std::span<const CccField> fields, std::size_t begin, std::size_t record_size) {
  return std::ranges::all_of(fields, [&](const CccField& field) {
    const bool behind = field.offset >= begin;
    begin = field.offset + field.width;
    return behind && begin <= record_size;
  });
}
constexpr std::size_t shared_end = 15;
static_assert(fits(shared_fields, 0, shared_end));
static_assert(fits(zone_fields, shared_end, 33) && fits(serial_fields, shared_end, 35));
static_assert(fits(iaru_fields, shared_end, 26) && fits(power_fields, shared_end, 26));

std::uint32_t little_endian(std::string_view bytes) {
  std::uint32_t value = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) value = value << 8U | static_cast<unsigned char>(bytes[i]);
  return value;
}

void read_fields(std::string_view bytes, std::span<const CccField> fields, CccRecord& rec) {
  for (const CccField& field : fields) {
    const std::string_view part = bytes.substr(field.offset, field.width);
    if (const auto* number = std::get_if<std::uint32_t CccRecord::*>(&field.to))
      rec.*(*number) = little_endian(part);
    else
      rec.*std::get<std::string_view CccRecord::*>(field.to) = part;
  }
}

}  // namespace

constinit const CccLayout ccc_zone_layout{{33, 33}, zone_fields};
constinit const CccLayout ccc_serial_layout{{35, 35}, serial_fields};
constinit const CccLayout ccc_iaru_layout{{26, 27}, iaru_fields};
constinit const CccLayout ccc_power_layout{{26, 27}, power_fields};

std::size_t ccc_record_size(const CccLayout& layout, std::uint64_t length) {
  return length % layout.sizes.front() == 0 ? layout.sizes.front() : layout.sizes.back();
}

void read_ccc_record(std::string_view bytes, const CccLayout& layout, CccRecord& rec) {
  read_fields(bytes, shared_fields, rec);
  read_fields(bytes, layout.fields, rec);
}

}  // namespace varnisto
