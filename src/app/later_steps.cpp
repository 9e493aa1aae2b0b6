#include "app/later_steps.h"

namespace varnisto {

void mnuMake_z2a_Click(App&) {
  throw NotAvailable("ZLO");
}
void shori_zlog_zlo(App&) {
  throw NotAvailable("ZLO");
}
void shori_ccc_txt(App&) {
  throw NotAvailable("CCC");
}
void shori_ccc_bin(App&) {
  throw NotAvailable("CCC");
}
void Make_zlo2all(App&) {
  throw NotAvailable("ZLO");
}
void Make_zlo2all_iota(App&) {
  throw NotAvailable("ZLO");
}
void zlog_all_za2c_print_iota(App&) {
  throw NotAvailable("IOTA");
}
void ccc_txt(App&) {
  throw NotAvailable("CCC");
}
void conv_J2U(App&) {
  throw NotAvailable("--utc");
}
void conv_eqsl(App&) {
  throw NotAvailable("--eqsl");
}
void conv_eqsl_iota(App&) {
  throw NotAvailable("--eqsl");
}
void WAEDC_put(App&) {
  throw NotAvailable("WAEDC QTC");
}
void get_qtc(App&) {
  throw NotAvailable("WAEDC QTC");
}
void cbr_2_zlog_txt(App&) {
  throw NotAvailable("to-zlog");
}

}  // namespace varnisto
