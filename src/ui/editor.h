#pragma once
// The user's text editor: its check box, its menus, its start.

#include <string>

#include "core/app.h"

namespace varnisto {

/// Takes the editor box: menus, label, settings flag.
void Check1_Click(App& app);

/// Starts the editor with one file, without waiting for it. Without an editor a message says what to do.
void edit_file(App& app, const std::string& file);

}  // namespace varnisto
