#include "mail/send_add.h"

#include "base/text.h"
#include "core/lists.h"

namespace varnisto {

void send_add(App& app) {
  app.trace.line("Public Sub send_add()");
  std::string contest = app.state.log.contest.contest;
  for (const std::string_view mode : {"-SSB", "-PH", "-CW", "-RTTY"}) contest = remove_all(contest, mode);

  const bool like_cbr = app.state.settings.e_mail_subject_flag;
  const CategoryState& texts = app.state.log.category;
  const std::string& category = like_cbr ? texts.cat_summary : texts.cat_text;
  const std::string start = std::string{trim(app.state.settings.mycall)} + " " + contest;
  MailState& mail = app.state.log.mail;
  mail.mail_subject = single_blanks(start + " " + category + " " + app.state.program.this_year);

  const MailAddress* address = find_mail_address(app, app.state.log.contest.contest);
  if (!address) return clear_text(app);
  mail.send_to_add = address->address;
  show_text(app,
            lines({" E-mail subject : " + start,
                   std::string(like_cbr ? 18 : 19, ' ') + category + " " + app.state.program.this_year,
                   " send e-mail to : " + mail.send_to_add, " " + app.state.log.input.out_name}),
            Color::green);
}

}  // namespace varnisto
