#include "base/files.h"

#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "base/fields.h"
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

Strings all_lines(TextReader reader) {
  Strings lines;
  for (std::string_view line; reader.next(line);) lines.emplace_back(line);
  EXPECT_EQ(reader.line_number(), lines.size());
  return lines;
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
  TextWriter writer{dir.path() + "out"};
  for (const std::string_view line : {"表A"sv, std::string_view{longer}, ""sv}) writer.put(line);
  writer.close();
  EXPECT_EQ(dir.read("out"),
            "\x95\x5C"
            "A\r\n" +
                longer + "\r\n\r\n");
}

TEST(TextWriter, EncodesLinesAmongPlainOnes) {
  TempDir dir;
  TextWriter writer{dir.path() + "out", Unmappable::question_mark};
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
  TextWriter full{"/dev/full"};
  full.put("x");
  EXPECT_EQ(error_of([&] { full.close(); }), 61);
  EXPECT_EQ(error_of([&] { TextWriter{dir.path() + "none/out"}; }), 76);
  EXPECT_EQ(error_of([&] { TextWriter{dir.path()}; }), 75);
  TextWriter writer{dir.path() + "out"};
  writer.put("\u20AC");
  EXPECT_EQ(error_of([&] { writer.close(); }), 5);
}

TEST(TextWriter, LinesThatTheDiskRefusedAreEncodedOnce) {
  TempDir dir;
  TextWriter writer{dir.path() + "out"};
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

TEST(Files, NumberedScratchFilesAreThoseWithExactlyOneMoreCharacter) {
  TempDir dir;
  for (const char* name :
       {"a.cbr", "a.cbr_", "a.cbr_2", "a.cbr_22", "a.cbr_字", "b.cbr_2", "q1.csv", "q12.csv"})
    dir.write(name, "");
  delete_numbered(dir.path() + "a.cbr_");
  delete_numbered(dir.path() + "q", ".csv");
  delete_numbered(dir.path() + "none/a");
  Strings left_over;
  for (const auto& [name, bytes] : dir.files()) left_over.push_back(name);
  EXPECT_EQ(left_over, (Strings{"a.cbr", "a.cbr_", "a.cbr_22", "b.cbr_2", "q12.csv"}));
}

TEST(Files, CopiesByteForByteAndDeletesWhatIsThere) {
  TempDir dir;
  const std::string bytes = std::string(200000, '\x83') + "\0\x1A\r"s;
  copy_file(dir.write("from", bytes), dir.path() + "to");
  EXPECT_EQ(dir.read("to"), bytes);
  EXPECT_EQ(error_of([&] { copy_file(dir.path() + "from", "/dev/full"); }), 61);
  EXPECT_EQ(error_of([&] { delete_file(dir.path() + "none"); }), 0);
  EXPECT_EQ(line_breaks_plus_one(dir.write("n", "a\r\nb\nc")), 3);
}

TEST(Files, ReplacingKeepsPermissionsAndFollowsLinks) {
  TempDir dir;
  const std::string real = dir.write("real.ini", "old");
  fs::permissions(real, fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink(real, dir.path() + "link.ini");
  replace_file(dir.path() + "link.ini", "new");
  EXPECT_EQ(dir.read("real.ini"), "new");
  EXPECT_TRUE(fs::is_symlink(dir.path() + "link.ini"));
  EXPECT_EQ(fs::status(real).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(error_of([&] { replace_file(dir.path() + "none/x.ini", ""); }), 76);
  move_file(dir.write("fresh", "newer"), dir.path() + "link.ini");
  EXPECT_EQ(dir.read("real.ini"), "newer");
  EXPECT_TRUE(fs::is_symlink(dir.path() + "link.ini"));
  EXPECT_EQ(fs::status(real).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(dir.files().size(), 2U);  // no scratch file stays
}

TEST(Files, AbsolutePathsHoldNoDotsAndFollowLinksInFrontOfThem) {
  TempDir dir;
  fs::create_directories(dir.path() + "real/inner");
  fs::create_symlink(dir.path() + "real/inner", dir.path() + "link");
  const std::string plain = dir.path() + "a.b/log.all";
  EXPECT_EQ(absolute_path(plain), plain);
  EXPECT_EQ(absolute_path(dir.path() + "link/log.all"), dir.path() + "link/log.all");
  EXPECT_EQ(absolute_path(dir.path() + "link/../log.all"), dir.path() + "real/log.all");
  EXPECT_EQ(absolute_path(dir.path() + "link/../"), dir.path() + "real/");
  EXPECT_EQ(absolute_path(dir.path() + "./link//"), dir.path() + "link/");
  EXPECT_EQ(absolute_path(dir.path() + "./none/../log.all"), dir.path() + "log.all");
  EXPECT_EQ(absolute_path("log.all"), fs::current_path().string() + "/log.all");
}

}  // namespace
}  // namespace varnisto::test
