#pragma once
// What the settings file remembers of the window: the logs opened last and the window's place.

#include <string>
#include <vector>

#include "core/app.h"

namespace varnisto {

/// Most logs that are remembered.
inline constexpr std::size_t most_recent_files = 8;

/// The logs opened last, newest first; files that are gone are left out.
std::vector<std::string> recent_files(const App& app);
/// Puts a log to the front of the list. Without a settings file, or for a path that the file's code page
/// cannot hold, nothing is kept.
void remember_file(const App& app, const std::string& path);

/// The window's place as text; "" when none is kept.
std::string window_geometry(const App& app);
void keep_window_geometry(const App& app, const std::string& text);

}  // namespace varnisto
