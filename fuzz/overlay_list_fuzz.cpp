// An overlay list of any bytes as the overlay dialog offers it.

#include "base/fields.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "core/lists.h"
#include "folder.h"
#include "support/null_app.h"
#include "ui/frm_overlay.h"

using namespace varnisto;

namespace {

/// The second fields of the records with this key; nothing when the list is no list of pairs.
std::optional<std::vector<std::string>> offers_of(std::string_view list, std::string_view key) {
  FieldReader reader{TextReader::from_bytes(list)};
  std::vector<std::string> offers;
  std::size_t count = 0;
  bool wanted = false;
  while (const auto field = reader.next()) {
    if (++count % 2 == 1)
      wanted = *field == key;
    else if (wanted)
      offers.push_back(*field);
  }
  return count > 0 && count % 2 == 0 ? std::optional{offers} : std::nullopt;
}

/// Claims every entry in turn.
void claim(frmOVERLAY& form, App& app) {
  form.Option1.selected = 1;
  form.click("Option1", 1);
  for (int i = 0; i < static_cast<int>(form.List1.items.size()); ++i) {
    form.List1.selected = i;
    form.click("List1", i);
    form.click("cmdOK");
    const std::string& offer = form.List1.items[static_cast<std::size_t>(i)];
    fuzz::require(app.state.entry.overlay_cat == trim(offer), "the overlay is the chosen one");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const test::TempDir folder;
  static test::NullApp null;
  App& app = null.app;
  app.state.program.app_dir = folder.path();
  app.state.log.category.overlay_caller = OverlayCaller::select_cont;
  const std::string path = folder.write("OVERLAY.txt", fuzz::bytes_of(data, size));
  for (const char* contest : {"CQ-WPX", "CQ-WW"}) {
    for (const Mode mode : {Mode::cw, Mode::ssb, Mode::mixed}) {
      app.state.log.contest.cont_id = contest;
      app.state.entry.mode = mode;
      const auto expected = offers_of(fuzz::bytes_of(data, size), overlay_key_of(contest, mode));
      try {
        frmOVERLAY form{app};
        form.Form_Load();
        fuzz::require(expected && form.List1.items == *expected, "every record with the key is offered");
        claim(form, app);
      } catch (const ListFileError& error) {
        fuzz::require(!expected, "only half a record is an error");
        fuzz::require(std::string_view{error.what()}.starts_with(path + ": "),
                      "an error names file and line");
      }
    }
  }
  return 0;
}
