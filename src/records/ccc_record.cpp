#include "records/ccc_record.h"

#include "records/fields_table.h"

namespace varnisto {
namespace {

using Rec = CccRecord;
constexpr FieldKind text = FieldKind::text;

constexpr std::tuple shared_fields{Field{&Rec::month, 0, 1}, Field{&Rec::day, 1, 1}, Field{&Rec::hhmm, 2, 2},
                                   Field{&Rec::call, 4, 10, text}};

constexpr auto zone_fields =
    std::tuple_cat(shared_fields, std::tuple{Field{&Rec::exchange, 15, 4, text}, Field{&Rec::band, 19, 1},
                                             Field{&Rec::mode, 20, 1}, Field{&Rec::mult_text, 22, 6, text},
                                             Field{&Rec::points, 28, 1}, Field{&Rec::new_mult, 29, 1}});

constexpr auto serial_fields =
    std::tuple_cat(shared_fields, std::tuple{Field{&Rec::exchange, 15, 4, text}, Field{&Rec::band, 19, 1},
                                             Field{&Rec::mode, 20, 1}, Field{&Rec::mult_text, 22, 6, text},
                                             Field{&Rec::sent_serial, 28, 2}, Field{&Rec::points, 30, 1},
                                             Field{&Rec::new_mult, 31, 1}});

constexpr auto iaru_fields =
    std::tuple_cat(shared_fields, std::tuple{Field{&Rec::exchange, 15, 5, text}, Field{&Rec::band, 20, 1},
                                             Field{&Rec::mode, 21, 1}, Field{&Rec::points, 22, 1},
                                             Field{&Rec::new_mult, 23, 1}});

constexpr auto power_fields =
    std::tuple_cat(shared_fields, std::tuple{Field{&Rec::exchange, 15, 4, text}, Field{&Rec::band, 19, 1},
                                             Field{&Rec::mode, 20, 1}, Field{&Rec::power, 21, 1},
                                             Field{&Rec::points, 22, 1}, Field{&Rec::new_mult, 23, 1}});

static_assert(fields_fit(zone_fields, 33) && fields_fit(serial_fields, 35));
static_assert(fields_fit(iaru_fields, 26) && fields_fit(power_fields, 26));

template <const auto& table>
void decode(std::string_view bytes, CccRecord& rec) {
  read_fields(bytes, table, rec);
}

}  // namespace

constinit const CccLayout ccc_zone_layout{{33, 33}, decode<zone_fields>};
constinit const CccLayout ccc_serial_layout{{35, 35}, decode<serial_fields>};
constinit const CccLayout ccc_iaru_layout{{26, 27}, decode<iaru_fields>};
constinit const CccLayout ccc_power_layout{{26, 27}, decode<power_fields>};

std::size_t ccc_record_size(const CccLayout& layout, std::uint64_t length) {
  return length % layout.sizes.front() == 0 ? layout.sizes.front() : layout.sizes.back();
}

}  // namespace varnisto
