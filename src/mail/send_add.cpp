#include "mail/send_add.h"

#include "base/text.h"
#include "core/lists.h"

namespace varnisto {

void send_add(App& app) {
  app.trace.line("Public Sub send_add()");
  MailState& mail = app.state.mail;
  mail.contest_no_mode = app.state.contest.contest;
  for (const std::string_view mode : {"-SSB", "-PH", "-CW", "-RTTY"})
    mail.contest_no_mode = remove_all(mail.contest_no_mode, mode);

  const bool like_cbr = app.state.settings.e_mail_subject_flag == "1";
  const std::string& category = like_cbr ? app.state.category.cat_summary : app.state.category.cat_text;
  const std::string call{trim(app.state.settings.mycall)};
  const std::string title = call + " " + mail.contest_no_mode + " " + category;
  mail.log_title = single_blanks(title);
  mail.mail_subject = single_blanks(title + " " + app.state.program.this_year);

  const MailAddress* address = find_mail_address(app, app.state.contest.contest);
  if (!address) return clear_text(app);
  mail.send_to_add = address->address;
  show_text(app,
            lines({" E-mail subject : " + call + " " + mail.contest_no_mode,
                   std::string(like_cbr ? 18 : 19, ' ') + category + " " + app.state.program.this_year,
                   " send e-mail to : " + mail.send_to_add, " " + app.state.input.out_name}),
            Color::green);
}

}  // namespace varnisto
