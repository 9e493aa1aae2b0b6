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

Strings all_lines(TextReader& reader) {
  Strings lines;
  for (std::string_view line; reader.next(line);) lines.emplace_back(line);
  EXPECT_EQ(reader.line_number(), lines.size());
  return lines;
}

Strings all_lines(TextReader&& reader) {
  return all_lines(reader);
}

TEST(Lines, AreTheSameFromFileAndMemory) {
  struct Row {
    std::string bytes;
    Strings lines;
  };
  for (const Row& row :
       rows_of(Row{"", {}}, Row{"a\r\nb\r\n", {"a", "b"}}, Row{"a\nb", {"a", "b"}},
               Row{"a\r\n\r\n\n", {"a", "", ""}}, Row{"a\rb\r", {"a\rb"}},
               Row{"a\r\nb\x1A"
                   "c\r\nd",
                   {"a", "b"}},
               Row{"a\n\x1A\nb", {"a"}}, Row{"a\0b\n"s, {"a\0b"s}}, Row{"\x95\x5C\r\n", {"表"}},
               Row{std::string(65535, 'x') + "\r\ny", {std::string(65535, 'x'), "y"}},
               Row{std::string(65536, 'x') + "\ny\n", {std::string(65536, 'x'), "y"}},
               Row{"s\n" + std::string(300000, 'x'), {"s", std::string(300000, 'x')}})) {
    SCOPED_TRACE(row.bytes);
    TempDir dir;
    const std::string path = dir.write("log.all", row.bytes);
    EXPECT_EQ(all_lines(TextReader{path}), row.lines);
    EXPECT_EQ(all_lines(TextReader::from_bytes(row.bytes)), row.lines);
  }
}

/// How many lines can be read, or the number and the place of the error that stops it.
std::string outcome(TextReader reader) {
  try {
    return std::to_string(all_lines(reader).size()) + " lines";
  } catch (const RunTimeError& error) {
    return std::to_string(error.number) + " " + error.what();
  }
}

TEST(TextReader, RefusesALineThatIsTooLong) {
  const std::string longest(1048576, 'x');
  const std::string katakana(1048576, '\xB1');  // longer as UTF-8
  struct Row {
    std::string bytes, outcome;
  };
  for (const Row& row :
       rows_of(Row{longest, "1 lines"}, Row{longest + "\r\n" + longest + "\n", "2 lines"},
               Row{katakana + "\r\n" + katakana, "2 lines"},
               Row{"a\n" + longest + "\x1A" + longest + "\n" + longest + longest, "2 lines"},
               Row{longest + "x", "5 log: 1 行目"}, Row{"a\n\n" + longest + "x\nb", "5 log: 3 行目"},
               Row{"a\n" + longest + "x\r\n", "5 log: 2 行目"}, Row{katakana + "\xB1\n", "5 log: 1 行目"},
               Row{longest + "x\x1A\n", "5 log: 1 行目"})) {
    SCOPED_TRACE(row.outcome);
    TempDir dir;
    EXPECT_EQ(replace_all(outcome(TextReader{dir.write("log", row.bytes)}), dir.path(), ""), row.outcome);
    EXPECT_EQ(outcome(TextReader::from_bytes(row.bytes, "log")), row.outcome);
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
  EXPECT_EQ(outcome(TextReader{path}), "5 " + path + ": 1 行目");
  EXPECT_LT(peak_kib() - before, 16 << 10);
}

void expect_after_end(TextReader reader, const AfterEnd& expected) {
  all_lines(reader);
  const AfterEnd found = reader.after_end();
  EXPECT_EQ(found.lines, expected.lines);
  EXPECT_EQ(found.first_line, expected.first_line);
  EXPECT_EQ(reader.after_end().lines, 0);
  std::string_view line;
  EXPECT_FALSE(reader.next(line));
}

TEST(TextReader, CountsTheLinesBehindTheEnd) {
  constexpr std::size_t buffer = 65536;
  const std::string wide(3 * buffer, 'x');
  const std::string blanks(3 * buffer, ' ');
  struct Row {
    std::string bytes;
    AfterEnd found;
  };
  for (const Row& row : rows_of(
           Row{"", {}}, Row{"a\nb\n", {}}, Row{"a\nb\x1A", {}}, Row{"a\n\x1A", {}},
           Row{wide + "\n" + wide, {}}, Row{"a\n\x1A\x1A \t\0\x7F\r\n\n\x1F\n\x1A"s, {}},
           Row{"a\nb\x1A!", {1, 2}}, Row{"a\n\x1A\x1A!\n", {1, 2}}, Row{"\x1A\r\n\nb\r\n \nc\x1A\nd", {3, 3}},
           Row{"\x1A\n\xB1\n", {1, 2}}, Row{std::string(buffer - 1, 'a') + "\x1A!\nc", {2, 1}},
           Row{std::string(buffer, 'a') + "\x1A\nc", {1, 2}},
           Row{std::string(buffer - 2, 'a') + "\x1A\n" + "c", {1, 2}}, Row{wide + "\x1A" + blanks, {}},
           Row{"\x1A\n" + blanks + "\n" + blanks + wide + "\n" + wide, {2, 3}})) {
    SCOPED_TRACE(row.bytes.substr(0, 20));
    TempDir dir;
    expect_after_end(TextReader{dir.write("log.all", row.bytes)}, row.found);
    expect_after_end(TextReader::from_bytes(row.bytes), row.found);
  }
}

TEST(TextReader, KnowsThePlainLinesWhereverTheOthersStand) {
  std::string plain;
  while (plain.size() < 100000) plain += "0123456789\r\n";  // more than one buffer
  TempDir dir;
  TextReader reader{dir.write("log.all", plain + "\x95\x5C\r\n" + plain + "end\x1A")};
  std::size_t plain_lines = 0;
  std::string last;
  for (std::string_view line; reader.next(line);) {
    EXPECT_EQ(reader.ascii(), line != "表");
    plain_lines += reader.ascii() ? 1 : 0;
    last = line;
  }
  EXPECT_EQ(plain_lines, 2 * plain.size() / 12 + 1);
  EXPECT_EQ(last, "end");
}

TEST(TextReader, OpensFilesOfAnyCaseAndSaysWhatItCannotOpen) {
  TempDir dir;
  dir.write("QX1ABC.ALL", "upper");
  EXPECT_EQ(all_lines(TextReader{dir.path() + "qx1abc.all"}), Strings{"upper"});
  dir.write("qx1abc.all", "exact");
  EXPECT_EQ(all_lines(TextReader{dir.path() + "qx1abc.all"}), Strings{"exact"});
  EXPECT_EQ(error_of([&] { TextReader{dir.path() + "none.all"}; }), 53);
  EXPECT_EQ(error_of([&] { TextReader{dir.path() + "none/x.all"}; }), 53);
  EXPECT_EQ(error_of([&] { TextReader{dir.path() + "qx1abc.all/x"}; }), 76);
  EXPECT_EQ(error_of([&] { TextReader{dir.path()}; }), 75);
  EXPECT_EQ(error_of([&] { TextReader{"/dev/zero"}; }), 75);
  EXPECT_EQ(error_of([&] { TextReader{dir.path() + "a\0b"s}; }), 52);
  EXPECT_EQ(error_of([] { TextReader::from_bytes("").must_next(); }), 62);
}

TEST(TextWriter, EndsLinesWithCrLfAndKeepsOrderAroundFlushes) {
  TempDir dir;
  const std::string longer(70000, 'x');
  TextWriter writer = TextWriter::scratch(dir.path() + "out");
  for (const std::string_view line : {"表A"sv, std::string_view{longer}, ""sv}) writer.put(line);
  writer.close();
  EXPECT_EQ(dir.read("out"),
            "\x95\x5C"
            "A\r\n" +
                longer + "\r\n\r\n");
}

TEST(TextWriter, EncodesLinesAmongPlainOnes) {
  TempDir dir;
  TextWriter writer = TextWriter::scratch(dir.path() + "out");
  std::string expected;
  for (int i = 0; i < 20000; ++i) {
    const bool plain = i % 7 != 0;
    writer.put(plain ? "QSO: 14000" : "ｶ表§\u20ACx");
    expected += plain ? "QSO: 14000\r\n" : "\xB6\x95\x5C\x81\x98?x\r\n";
  }
  writer.close();
  EXPECT_TRUE(dir.read("out") == expected);
}

TEST(TextWriter, AWriteThatFailsIsAnError) {
  TempDir dir;
  const int full_device = ::open("/dev/full", O_WRONLY);
  TextWriter full{FileHandle::adopt(os::Descriptor{full_device}, "full")};
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
  const int error = error_of([&] { writer.flush(); });
  setrlimit(RLIMIT_FSIZE, &limit);
  std::signal(SIGXFSZ, on_full);
  EXPECT_NE(error, 0);
  writer.put("ｶ");
  writer.close();
  EXPECT_EQ(dir.read("out"), "\x95\x5C\r\n\xB6\r\n");
}

TEST(Fields, AreReadOverLineEnds) {
  struct Row {
    std::string text;
    Strings fields;
  };
  for (const Row& row :
       rows_of(Row{"a,b\nc", {"a", "b", "c"}}, Row{" a , b \n", {"a", "b"}},
               Row{"\"a, b\" ,c", {"a, b", "c"}}, Row{"\" a \"", {" a "}}, Row{"a,\nb", {"a", "", "b"}},
               Row{"\n\n", {"", ""}}, Row{"\"open,b\nc", {"open,b", "c"}}, Row{",", {"", ""}},
               Row{",,,a\n\"\",,b", {"", "", "", "a", "", "", "b"}}, Row{"a\"b\",c", {"a\"b\"", "c"}},
               Row{"", {}})) {
    SCOPED_TRACE(row.text);
    FieldReader reader{TextReader::from_bytes(row.text)};
    Strings fields;
    while (auto field = reader.next()) fields.push_back(*field);
    EXPECT_EQ(fields, row.fields);
    EXPECT_EQ(error_of([&] { reader.must_next(); }), 62);
  }
}

TEST(TextWriter, ControlCharactersButTabsBecomeBlanks) {
  TempDir dir;
  TextWriter writer = TextWriter::scratch(dir.path() + "out");
  for (const std::string_view line : {"a\x1B[31m\tb\r"sv, "表\0\x7F\x1A"sv, "\x01"sv, "plain"sv})
    writer.put(line);
  writer.close();
  EXPECT_EQ(dir.read("out"), "a [31m\tb \r\n\x95\x5C   \r\n \r\nplain\r\n");
}

TEST(Files, LeftoversOfAnOutputAreTheFilesWithANumberOrOneCharacterMore) {
  TempDir dir;
  for (const char* name :
       {"a.cbr", "a.cbr_", "a.cbr_2", "a.cbr_22", "a.cbr_字", "b.cbr_2", "a.cbr2", "a.cbr22"})
    dir.write(name, "");
  fs::create_directory(dir.path() + "a.cbr_3");
  EXPECT_EQ(delete_leftovers(dir.path() + "a.cbr"), Strings{});
  EXPECT_EQ(delete_leftovers(dir.path() + "none/a"), Strings{});
  Strings left_over;
  for (const auto& [name, bytes] : dir.files()) left_over.push_back(name);
  EXPECT_EQ(left_over, (Strings{"a.cbr", "a.cbr22", "a.cbr_", "a.cbr_22", "b.cbr_2"}));
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
  const std::string plain = dir.path() + "a.b/log.all";
  EXPECT_EQ(os::absolute_path(plain), plain);
  EXPECT_EQ(os::absolute_path(dir.path() + "link/log.all"), dir.path() + "link/log.all");
  EXPECT_EQ(os::absolute_path(dir.path() + "link/../log.all"), dir.path() + "real/log.all");
  EXPECT_EQ(os::absolute_path(dir.path() + "link/../"), dir.path() + "real/");
  EXPECT_EQ(os::absolute_path(dir.path() + "./link//"), dir.path() + "link/");
  EXPECT_EQ(os::absolute_path(dir.path() + "./none/../log.all"), dir.path() + "log.all");
  EXPECT_EQ(os::absolute_path("log.all"), fs::current_path().string() + "/log.all");
}

}  // namespace
}  // namespace varnisto::test
