#include "core/lists.h"

#include <algorithm>

#include "base/checked_int.h"
#include "base/files.h"
#include "base/text.h"

namespace varnisto {
namespace {

/// The whole number that a flag field holds.
std::int16_t flag_value(std::string_view text, const std::string& place) {
  text = trim(text);
  const std::string_view digits = text.starts_with('-') || text.starts_with('+') ? text.substr(1) : text;
  if (digits.empty() || digits.find_first_not_of("0123456789") != std::string_view::npos)
    throw ListFileError(RunTimeError::type_mismatch, place);
  const double value = numeric_value(text);
  if (value > INT16_MAX || value < INT16_MIN) throw ListFileError(RunTimeError::overflow, place);
  return static_cast<std::int16_t>(value);
}

}  // namespace

std::string next_of_record(FieldReader& reader) {
  auto field = reader.next();
  if (!field) throw ListFileError(RunTimeError::past_end, reader.place());
  return *std::move(field);
}

void read_email_add(App& app) {
  app.trace.line("Public Sub read_email_add()");
  const std::string path = app.state.program.app_dir + "e_mail_add.cfg";
  const std::int32_t line_count = line_breaks_plus_one(path);
  read_mail_addresses(FieldReader{TextReader{path}}, line_count, app.state.lists.mail_adds);
}

void read_mail_addresses(FieldReader reader, std::int32_t line_count, std::vector<MailAddress>& records) {
  records.clear();
  for (std::int32_t i = 1; i < line_count; ++i) {
    MailAddress record;
    record.key = next_of_record(reader);
    record.address = next_of_record(reader);
    records.push_back(std::move(record));
  }
}

const MailAddress* find_mail_address(const App& app, std::string_view contest) {
  const auto& records = app.state.lists.mail_adds;
  const auto hit =
      std::ranges::find_if(records, [&](const MailAddress& record) { return contains(contest, record.key); });
  return hit == records.end() ? nullptr : &*hit;
}

void read_category_assisted(App& app) {
  app.trace.line("Public Sub read_category_assisted()");
  read_assisted_contests(TextReader{app.state.program.app_dir + "category-assisted.txt"},
                         app.state.lists.assisted_conts);
}

void read_assisted_contests(TextReader reader, std::vector<AssistedContest>& contests) {
  contests.clear();
  for (std::string_view line; reader.next(line);) {
    if (line.starts_with(';')) continue;
    const std::size_t comma = line.find(',');
    if (comma == std::string_view::npos) throw ListFileError(RunTimeError::past_end, reader.place());
    const std::string_view flag = line.substr(comma + 1);  // what follows a second comma is a note
    contests.push_back({std::string{line.substr(0, comma)},
                        flag_value(flag.substr(0, flag.find(',')), reader.place()) == 1});
  }
}

bool assisted_flag(const App& app) {
  const auto& contests = app.state.lists.assisted_conts;
  const std::string_view contest = trim(app.state.log.contest.contest);
  const auto hit =
      std::ranges::find_if(contests, [&](const auto& listed) { return trim(listed.contest) == contest; });
  return hit == contests.end() || hit->flag;
}

}  // namespace varnisto
