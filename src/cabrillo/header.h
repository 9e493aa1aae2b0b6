#pragma once
// The header of a Cabrillo log: tagged lines in a fixed order.

#include "base/line_sink.h"
#include "core/app.h"

namespace varnisto {

/// Writes the header from the shared state, from "START-OF-LOG: 3.0" to the last SOAPBOX line.
void put_cbr_header(const App& app, LineSink& out);

}  // namespace varnisto
