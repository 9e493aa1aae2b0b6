#include "records/zlo_records.h"

#include <array>

#include "records/fields_table.h"

namespace varnisto {
namespace {

constexpr std::size_t zlo_size = 256, zlox_size = 384;

constexpr std::tuple head_fields{
    Field{&ZloHeadRecord::letters, 0, 4, FieldKind::text}, Field{&ZloHeadRecord::qso_count, 4, 4},
    Field{&ZloHeadRecord::call, 8, 13, FieldKind::counted}, Field{&ZloHeadRecord::utc_offset, 84, 2},
    Field{&ZloHeadRecord::title, 175, 61, FieldKind::counted}};
static_assert(fields_fit(head_fields, zlo_size));

// The rooms of the exchanges are longer, but no more than 9 bytes of them count.
constexpr std::tuple shared_fields{Field{&ZloQso::day_count, 0, 8},
                                   Field{&ZloQso::call, 8, 13, FieldKind::counted},
                                   Field{&ZloQso::sent_no, 21, 10, FieldKind::counted},
                                   Field{&ZloQso::rcvd_no, 52, 10, FieldKind::counted},
                                   Field{&ZloQso::rst_sent, 84, 2},
                                   Field{&ZloQso::rst_rcvd, 86, 2},
                                   Field{&ZloQso::mode_code, 92, 1},
                                   Field{&ZloQso::band_code, 93, 1},
                                   Field{&ZloQso::multi1, 95, 31, FieldKind::counted},
                                   Field{&ZloQso::multi2, 126, 31, FieldKind::counted},
                                   Field{&ZloQso::new_multi1, 157, 1},
                                   Field{&ZloQso::new_multi2, 158, 1},
                                   Field{&ZloQso::qso_pts, 159, 1},
                                   Field{&ZloQso::op_name, 160, 15, FieldKind::counted}};

constexpr auto zlo_fields = std::tuple_cat(
    shared_fields,
    std::tuple{Field{&ZloQso::memo, 175, 68, FieldKind::counted}, Field{&ZloQso::tx_num, 243, 1}});
static_assert(fields_fit(zlo_fields, zlo_size));

constexpr auto zlox_fields = std::tuple_cat(
    shared_fields,
    std::tuple{Field{&ZloQso::memo, 175, 65, FieldKind::counted}, Field{&ZloQso::tx_num, 243, 1},
               Field{&ZloQso::khz, 256, 11, FieldKind::counted}, Field{&ZloQso::invalid, 281, 1}});
static_assert(fields_fit(zlox_fields, zlox_size));

template <const auto& table>
void decode(std::string_view record, ZloQso& qso) {
  read_fields(record, table, qso);
}

constexpr std::array<std::string_view, 6> zlo_modes = {"CW", "SSB", "FM", "AM", "RTY", "Other"};
constexpr std::array<std::string_view, 8> zlox_modes = {"CW", "SSB", "FM", "AM", "RTY", "", "", "Other"};
constexpr std::array<std::string_view, 16> bands = {
    "1.9", "3.5", "7", "10", "14", "18", "21", "24", "28", "50", "144", "430", "1200", "2400", "5600", "10G"};

std::string_view text_of(std::span<const std::string_view> texts, std::uint8_t code) {
  return code < texts.size() ? texts[code] : std::string_view{};
}

}  // namespace

const ZloLayout zlo_layout{zlo_size, decode<zlo_fields>, zlo_modes};
const ZloLayout zlox_layout{zlox_size, decode<zlox_fields>, zlox_modes};

ZloHeadRecord zlo_head_record(std::string_view record) {
  ZloHeadRecord head;
  read_fields(record, head_fields, head);
  return head;
}

std::string_view zlo_mode(const ZloLayout& layout, std::uint8_t mode_code) {
  return text_of(layout.modes, mode_code);
}

std::string_view zlo_band(std::uint8_t band_code) {
  return text_of(bands, band_code);
}

}  // namespace varnisto
