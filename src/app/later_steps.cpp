#include "app/later_steps.h"

namespace varnisto {

void shori_ccc_txt(App&) {
  throw NotAvailable("CCC");
}
void shori_ccc_bin(App&) {
  throw NotAvailable("CCC");
}
void Make_zlo2all_iota(App&) {
  throw NotAvailable("IOTA");
}
void zlog_all_za2c_print_iota(App&) {
  throw NotAvailable("IOTA");
}
void ccc_txt(App&) {
  throw NotAvailable("CCC");
}
void conv_eqsl_iota(App&) {
  throw NotAvailable("--eqsl");
}

}  // namespace varnisto
