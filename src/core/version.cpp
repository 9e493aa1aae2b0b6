#include "core/version.h"

namespace varnisto {

constinit const std::string_view program_version = VARNISTO_VERSION;

}  // namespace varnisto
