#include "base/files.h"

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "base/fields.h"
#include "base/os.h"
#include "base/text.h"
#include "base/text_reader.h"
#include "base/text_writer.h"
#include "support/errors.h"
#include "support/rows.h"
#include "support/temp_dir.h"

namespace varnisto::test {
namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;
using namespace std::literals;

/// All lines; behind them, when an error stops it, its number and place.
Strings all_lines(TextReader& reader) {
  Strings lines;
  try {
    for (std::string_view line; reader.next(line);) lines.emplace_back(line);
    EXPECT_EQ(reader.line_number(), lines.size());
  } catch (const RunTimeError& error) {
    lines.push_back(std::to_string(error.number) + " " + error.what());
  }
  return lines;
}

TEST(TextReader, GivesTheSameLinesFromFileAndMemory) {
  struct Row {
    std::string bytes;
    Strings lines;
    AfterEnd after = {};
  };
  constexpr std::size_t buffer = 65536;
  const std::string full(buffer, 'x'), last(buffer - 1, 'x'), wide(3 * buffer, 'x'), blanks(3 * buffer, ' ');
  const std::string longest(1048576, 'x'), katakana(1048576, '\xB1');  // that is longer as UTF-8
  for (const Row& row : rows_of(
           Row{"", {}}, Row{"a\r\nb\r\n", {"a", "b"}}, Row{"a\nb", {"a", "b"}},
           Row{"a\r\n\r\n\n", {"a", "", ""}}, Row{"a\rb\r", {"a\rb"}}, Row{"a\0b\n"s, {"a\0b"s}},
           Row{"\x95\x5C\r\n", {"表"}}, Row{last + "\r\ny", {last, "y"}}, Row{full + "\ny\n", {full, "y"}},
           Row{"s\n" + wide + "\n" + wide, {"s", wide, wide}},
           // Behind the character that ends a file.
           Row{"a\nb\x1A", {"a", "b"}}, Row{"a\n\x1A", {"a"}},
           Row{"a\n\x1A\x1A \t\0\x7F\r\n\n\x1F\n\x1A"s, {"a"}}, Row{"a\nb\x1A!", {"a", "b"}, {1, 2}},
           Row{"a\r\nb\x1A"
               "c\r\nd",
               {"a", "b"},
               {2, 2}},
           Row{"a\n\x1A\x1A!\n", {"a"}, {1, 2}}, Row{"\x1A\r\n\nb\r\n \nc\x1A\nd", {}, {3, 3}},
           Row{"\x1A\n\xB1\n", {}, {1, 2}}, Row{last + "\x1A!\nc", {last}, {2, 1}},
           Row{full + "\x1A\nc", {full}, {1, 2}}, Row{last.substr(1) + "\x1A\nc", {last.substr(1)}, {1, 2}},
           Row{wide + "\x1A" + blanks, {wide}},
           Row{"\x1A\n" + blanks + "\n" + blanks + wide + "\n" + wide, {}, {2, 3}},
           // Too long a line is refused.
           Row{longest, {longest}}, Row{longest + "\r\n" + longest + "\n", {longest, longest}},
           Row{"a\n" + longest + "\x1A" + longest + "\n" + wide, {"a", longest}, {2, 2}},
           Row{longest + "x", {"5 log: 1 行目"}}, Row{"a\n\n" + longest + "x\nb", {"a", "", "5 log: 3 行目"}},
           Row{"a\n" + longest + "x\r\n", {"a", "5 log: 2 行目"}},
           Row{katakana + "\n" + katakana + "\xB1\n", {from_cp932(katakana), "5 log: 2 行目"}},
           Row{longest + "x\x1A\n", {"5 log: 1 行目"}})) {
    SCOPED_TRACE(row.bytes.substr(0, 20));
    TempDir dir;
    for (TextReader& reader : std::array{TextReader{dir.write("log", row.bytes), "log"},
                                         TextReader::from_bytes(row.bytes, "log")}) {
      EXPECT_TRUE(all_lines(reader) == row.lines);
      if (!row.lines.empty() && row.lines.back().starts_with("5 ")) continue;
      const AfterEnd found = reader.after_end();
      EXPECT_EQ(found.lines, row.after.lines);
      EXPECT_EQ(found.first_line, row.after.first_line);
      EXPECT_EQ(reader.after_end().lines, 0);
      EXPECT_EQ(error_of([&] { reader.must_next(); }), 62);
    }
  }
}

long peak_kib() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

TEST(TextReader, HoldsNoMoreOfAnEndlessLineThanItTakesToRefuseIt) {
  TempDir dir;
  const std::string path = dir.write("log.all", "");
  fs::resize_file(path, 256 << 20);
  const long before = peak_kib();
  TextReader reader{path};
  EXPECT_EQ(all_lines(reader), Strings{"5 " + path + ": 1 行目"});
  EXPECT_LT(peak_kib() - before, 16 << 10);
}

TEST(TextReader, KnowsThePlainLinesWhereverTheOthersStand) {
  std::string plain;
  while (plain.size() < 100000) plain += "0123456789\r\n";  // more than one buffer
  TextReader reader = TextReader::from_bytes(plain + "\x95\x5C\r\n" + plain + "end\x1A");
  for (std::string_view line; reader.next(line);) EXPECT_EQ(reader.ascii(), line != "表");
}

TEST(TextReader, OpensFilesOfAnyCaseAndSaysWhatItCannotOpen) {
  TempDir dir;
  for (const std::string name : {"QX1ABC.ALL", "qx1abc.all"}) {  // the exact name wins
    dir.write(name, name);
    EXPECT_EQ(TextReader{dir.path() + "qx1abc.all"}.must_next(), name);
  }
  const std::pair<std::string, int> errors[] = {
      {"none.all", 53}, {"none/x.all", 53}, {"qx1abc.all/x", 76}, {"", 75}, {"a\0b"s, 52}};
  for (const auto& [name, error] : errors)
    EXPECT_EQ(error_of([&, &wanted = name] { TextReader{dir.path() + wanted}; }), error) << name;
  EXPECT_EQ(error_of([&] { TextReader{"/dev/zero"}; }), 75);
}

TEST(TextWriter, EncodesLineByLine) {
  TempDir dir;
  const std::string longer(70000, 'x');
  Strings lines = {"表A", longer, "", "a\x1B[31m\tb\r", "表\0\x7F\x1A"s, "\x01"};
  std::string bytes =
      "\x95\x5C"
      "A\r\n" +
      longer + "\r\n\r\na [31m\tb \r\n\x95\x5C   \r\n \r\n";
  for (int i = 0; i < 20000; ++i) {
    lines.emplace_back(i % 7 != 0 ? "QSO: 14000" : "ｶ表§\u20ACx");
    bytes += i % 7 != 0 ? "QSO: 14000\r\n" : "\xB6\x95\x5C\x81\x98?x\r\n";
  }
  TextWriter writer = TextWriter::scratch(dir.path() + "out");
  for (const std::string& line : lines) writer.put(line);
  writer.close();
  EXPECT_TRUE(dir.read("out") == bytes);
}

TEST(TextWriter, AWriteThatFailsIsAnError) {
  TempDir dir;
  TextWriter full{FileHandle::adopt(os::Descriptor{::open("/dev/full", O_WRONLY)}, "full")};
  full.put("x");
  EXPECT_EQ(error_of([&] { full.close(); }), 61);
  EXPECT_EQ(error_of([&] { TextWriter::scratch(dir.path() + "none/out"); }), 76);
  EXPECT_EQ(error_of([&] { TextWriter::scratch(dir.path()); }), 75);
}

TEST(TextWriter, LinesThatTheDiskRefusedAreEncodedOnce) {
  TempDir dir;
  TextWriter writer = TextWriter::scratch(dir.path() + "out");
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const auto on_full = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit full{0, limit.rlim_max};
  setrlimit(RLIMIT_FSIZE, &full);
  writer.put("表");
  EXPECT_NE(error_of([&] { writer.flush(); }), 0);
  setrlimit(RLIMIT_FSIZE, &limit);
  std::signal(SIGXFSZ, on_full);
  writer.put("ｶ");
  writer.close();
  EXPECT_EQ(dir.read("out"), "\x95\x5C\r\n\xB6\r\n");
}

TEST(Fields, AreReadOverLineEnds) {
  const std::pair<std::string, Strings> rows[] = {{"a,b\nc", {"a", "b", "c"}},
                                                  {" a , b \n", {"a", "b"}},
                                                  {"\"a, b\" ,c", {"a, b", "c"}},
                                                  {"\" a \"", {" a "}},
                                                  {"a,\nb", {"a", "", "b"}},
                                                  {"\n\n", {"", ""}},
                                                  {"\"open,b\nc", {"open,b", "c"}},
                                                  {",", {"", ""}},
                                                  {",,,a\n\"\",,b", {"", "", "", "a", "", "", "b"}},
                                                  {"a\"b\",c", {"a\"b\"", "c"}},
                                                  {"", {}}};
  for (const auto& [text, expected] : rows) {
    SCOPED_TRACE(text);
    FieldReader reader{TextReader::from_bytes(text)};
    Strings fields;
    while (auto field = reader.next()) fields.push_back(*field);
    EXPECT_EQ(fields, expected);
    EXPECT_EQ(error_of([&] { reader.must_next(); }), 62);
  }
  FieldReader reader{TextReader::from_bytes("a,b\nc")};
  reader.must_next();
  reader.end_line();
  EXPECT_EQ(reader.must_next(), "c");
}

TEST(Files, LeftoversOfAnOutputAreTheFilesWithANumberOrOneCharacterMore) {
  TempDir dir;
  std::map<std::string, std::string> others;
  for (const char* name : {"a.cbr", "a.cbr_", "a.cbr_22", "b.cbr_2", "a.cbr22"}) others[dir.write(name, "")];
  for (const char* name : {"a.cbr_2", "a.cbr_字", "a.cbr2"}) dir.write(name, "");
  fs::create_directory(dir.path() + "a.cbr_3");
  EXPECT_EQ(delete_leftovers(dir.path() + "a.cbr"), Strings{});
  EXPECT_EQ(delete_leftovers(dir.path() + "none/a"), Strings{});
  EXPECT_EQ(dir.files().size(), others.size());
  for (const auto& [path, bytes] : others) EXPECT_TRUE(fs::exists(path)) << path;
  EXPECT_TRUE(dir.has("a.cbr_3"));
}

TEST(Files, CopiesByteForByte) {
  TempDir dir;
  const std::string bytes = std::string(200000, '\x83') + "\0\x1A\r"s;
  copy_file(dir.write("from", bytes), FileHandle::create_new(dir.path() + "to"));
  EXPECT_EQ(dir.read("to"), bytes);
  EXPECT_EQ(line_breaks_plus_one(dir.write("n", "a\r\nb\nc")), 3);
}

TEST(Files, AbsolutePathsHoldNoDotsAndFollowLinksInFrontOfThem) {
  TempDir dir;
  fs::create_directories(dir.path() + "real/inner");
  fs::create_symlink(dir.path() + "real/inner", dir.path() + "link");
  for (const auto& [path, absolute] :
       texts_of<2>("a.b/log.all|a.b/log.all", "link/log.all|link/log.all", "link/../log.all|real/log.all",
                   "link/../|real/", "./link//|link/", "./none/../log.all|log.all"))
    EXPECT_EQ(os::absolute_path(dir.path() + path), dir.path() + absolute);
  EXPECT_EQ(os::absolute_path("log.all"), fs::current_path().string() + "/log.all");
}

}  // namespace
}  // namespace varnisto::test
