#pragma once
// Steps of a run that are not built yet. Each stops the action with "not available yet" before it writes
// anything.

#include "core/app.h"

namespace varnisto {

void shori_ccc_txt(App& app);             ///< preparation of a CCC text log
void shori_ccc_bin(App& app);             ///< preparation of a CCC binary log
void Make_zlo2all_iota(App& app);         ///< ZLO log to ALL log for IOTA
void zlog_all_za2c_print_iota(App& app);  ///< Cabrillo writer for IOTA
void ccc_txt(App& app);                   ///< Cabrillo writer for CCC logs
void conv_eqsl_iota(App& app);            ///< ADIF of an IOTA log for eQSL

}  // namespace varnisto
