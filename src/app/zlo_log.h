#pragma once
// A ZLO log on its way to Cabrillo: what its head says, the text log made from it, and its scans.

#include "core/app.h"

namespace varnisto {

/// Makes the text log `z2a_name` of the ZLO log, so that it can be looked at. Throws RunTimeError.
void mnuMake_z2a_Click(App& app);

/// Makes the text log with the transmitter numbers and the JARL log sheet `jarl_name`, and tells the user
/// what was read. Throws RunTimeError.
void Make_zlo2all(App& app);

/// Prepares a ZLO log that was just opened: reads the logger's summary, or makes the program's own and lets
/// the user choose contest and category. Throws Refusal for a file that is no ZLO log, RunTimeError.
void shori_zlog_zlo(App& app);

/// Takes call sign and contest of the log's head. Without a summary of the logger the text log and the
/// program's own sheet are made. Throws RunTimeError.
void read_zlo_head(App& app);

/// Guesses mode and band category from the log: `mode_sel`, `band_sel`, `lowband`, the mode counters and the
/// entry's band. Throws RunTimeError.
void get_mode_band_zlo(App& app);

/// Chooses the power that the highest sent power of the log stands for: QRP where there is none. Throws
/// RunTimeError.
void get_power_zlo(App& app);

/// Puts to the notes what the text log does not show: QSOs left out and carried over, by the records of the
/// ZLO log.
void note_zlo_records(App& app);

}  // namespace varnisto
