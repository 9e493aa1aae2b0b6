#include "platform/profile.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/text.h"
#include "support/errors.h"
#include "support/other_user.h"
#include "support/rows.h"
#include "support/temp_dir.h"

namespace varnisto::test {
namespace {

using Files = std::map<std::string, std::string>;
using namespace std::literals;

constexpr std::string_view file =
    "stray=0\r\n"
    "; a remark\r\n"
    "[Main]\r\n"
    "exe_rec= 7\r\n"
    " \t[ Varnisto.ini ] behind\r\n"
    "  ;CALLSIGN=QX0AAA\r\n"
    "#CLUB=hash\r\n"
    " Call Sign \t= QX1ABC \t\r\n"
    "callsign=QX1ABC/1\r\n"
    "CALLSIGN=second\r\n"
    "NAME=\"  Taro \"\r\n"
    "E1='a\" \r\n"
    "E2=''\r\n"
    "E3=\"\r\n"
    "ADDRESS1=a=b;c\r\n"
    "no equals sign\r\n"
    "\r\n"
    "[Other\r\n"
    "open=1\r\n"
    "[varnisto.INI]\r\n"
    "late=1\r\n";

TEST(ProfileGet, FollowsTheRulesOfSuchFiles) {
  for (const auto& [section, key, expected] : texts_of<3>(
           "Main|exe_rec|7", "varnisto.INI|CALLSIGN|QX1ABC/1", " Varnisto.ini | call sign |QX1ABC",
           "Varnisto.ini|exe_rec|", "Varnisto.ini|CLUB|", "Varnisto.ini|#CLUB|hash",
           "Varnisto.ini|NAME|  Taro ", "Varnisto.ini|E1|'a\"", "Varnisto.ini|E2|", "Varnisto.ini|E3|\"",
           "Varnisto.ini|ADDRESS1|a=b;c", "Varnisto.ini|late|", "Other|open|1", "|stray|", "None|x|"))
    EXPECT_EQ(ProfileText{file}.get(section, key), expected) << section << " " << key;
}

TEST(ProfileSet, ChangesOneLineAndNothingElse) {
  struct Row {
    std::string before, section, key, value, after;
  };
  const std::string all{file};
  for (const Row& row :
       rows_of(Row{all, "VARNISTO.INI", "Callsign", "QX2DEF",
                   replace_all(file, "callsign=QX1ABC/1", "callsign=QX2DEF")},
               Row{all, "Varnisto.ini", "CLUB", "表",  // behind the last key of its section
                   replace_all(file, "ADDRESS1=a=b;c\r\n", "ADDRESS1=a=b;c\r\nCLUB=\x95\x5C\r\n")},
               Row{"[A]\nx=1", "B", "y", " 2 ", "[A]\nx=1\r\n[B]\r\ny= 2 \r\n"},
               Row{"[A]\nx=1", "A", "z", "3", "[A]\nx=1\r\nz=3\r\n"},
               Row{"[A]\nx=a\rb\0\x1A\r\n"s, "A", "x", "a\rb\0\x1A"s, "[A]\nx=a\rb\0\x1A\r\n"s},
               Row{"\xEF\xBB\xBF[A]\nx=\xE8\xA1\xA8\u20AC\n", "A", "y", "漢",
                   "\xEF\xBB\xBF[A]\nx=表\u20AC\ny=漢\r\n"},
               Row{"\xFF\xFE[\0A\0]\0\n\0"s, "A", "x", "表", "\xFF\xFE[\0A\0]\0\n\0x\0=\0h\x88\r\0\n\0"s},
               Row{"\xFF\xFE[\0A\0]\0\n\0x\0=\0\x2D\xD8y\0"s, "A", "x", "\U0001F4FB",  // half a pair
                   "\xFF\xFE[\0A\0]\0\n\0x\0=\0\x3D\xD8\xFB\xDC"s})) {
    SCOPED_TRACE(row.before.substr(0, 20) + row.key);
    EXPECT_EQ(ProfileText{row.before}.bytes(), row.before);
    ProfileText text{row.before};
    EXPECT_EQ(error_of([&] { text.set(row.section, row.key, "a\nb"); }), 5);
    EXPECT_EQ(text.bytes(), row.before);
    text.set(row.section, row.key, row.value);
    EXPECT_EQ(text.bytes(), row.after);
    EXPECT_EQ(ProfileText{text.bytes()}.get(row.section, row.key), profile_value(row.value));
  }
}

/// A settings file in a folder of its own.
class FileProfileTest : public testing::Test {
 protected:
  void set(Profile& to, const std::string& key, const std::string& value) const {
    const ProfileEntry entry{"A", key, value};
    to.set(path, {&entry, 1});
  }

  const std::string before = "[A]\r\nx=1\r\n";
  TempDir dir;
  const std::string path = dir.write("v.ini", before);
  FileProfile profile;
};

TEST_F(FileProfileTest, SaysWhatKeepsItFromBeingReadOrWritten) {
  std::filesystem::create_directory(dir.path() + "a.ini");
  EXPECT_EQ(error_of([&] { profile.get(dir.path() + "a.ini", "Main", "x"); }), 75);
  const std::string endless = dir.write("b.ini", "[Main]\nx=" + std::string(1 << 20, 'x') + "\n");
  EXPECT_EQ(error_of([&] { profile.get(endless, "Main", "x"); }), 5);
  EXPECT_EQ(error_text_of([&] { profile.get(endless, "Main", "x"); }), endless + ": 2 行目");
  const ProfileEntry entry{"A", "x", "1"};
  EXPECT_EQ(error_of([&] { profile.set(dir.path() + "none/v.ini", {&entry, 1}); }), 76);
}

TEST_F(FileProfileTest, APlantedLinkOfAnOldScratchNameIsLeftAlone) {
  std::filesystem::create_symlink(dir.write("other", "other"), path + ".new");
  set(profile, "x", "2");
  EXPECT_EQ(dir.read("v.ini"), "[A]\r\nx=2\r\n");
  EXPECT_EQ(dir.read("other"), "other");
}

TEST_F(FileProfileTest, ParallelWritersLoseNothing) {
  constexpr int writers = 4, times = 25;
  for (int i = 0; i < writers; ++i) {
    if (::fork() != 0) continue;
    for (int k = 0; k < times; ++k) {
      const ProfileHold hold{profile, path};
      set(profile, "x", std::to_string(std::stoi(profile.get(path, "A", "x")) + 1));
    }
    ::_exit(0);
  }
  while (::wait(nullptr) > 0) {
  }
  EXPECT_EQ(dir.files(), (Files{{"v.ini", "[A]\r\nx=101\r\n"}}));
}

TEST_F(FileProfileTest, MakesTheFileSeesForeignChangesAndIgnoresCase) {
  std::filesystem::remove(path);
  EXPECT_EQ(profile.get(path, "A", "x"), "");
  EXPECT_FALSE(profile.exists(path));
  set(profile, "x", "1");
  EXPECT_EQ(dir.read("v.ini"), before);
  EXPECT_EQ(profile.get(path, "A", "x"), "1");
  dir.write("v.ini", "[A]\nx=22\n");
  EXPECT_EQ(profile.get(path, "A", "x"), "22");
  std::filesystem::rename(path, dir.path() + "V.INI");
  set(profile, "y", "3");
  EXPECT_EQ(dir.files(), (Files{{"V.INI", "[A]\nx=22\ny=3\r\n"}}));
}

TEST_F(FileProfileTest, WritesAllValuesOrNone) {
  for (const char* value : {"a\nb", "\u20AC"}) {
    const ProfileEntry entries[] = {{"A", "x", "2"}, {"A", "y", value}};
    EXPECT_EQ(error_of([&] { profile.set(path, entries); }), 5);
  }
  {
    std::filesystem::permissions(path, std::filesystem::perms{0444});
    const OtherUser no_root{{dir.path()}};
    EXPECT_EQ(error_of([&] { set(profile, "x", "2"); }), 70);
  }
  EXPECT_EQ(dir.files(), (Files{{"v.ini", before}}));
}

TEST_F(FileProfileTest, AnOverlayReadsThroughAndWritesNothing) {
  OverlayProfile overlay{profile};
  EXPECT_EQ(overlay.get(path, "A", "x"), "1");
  set(overlay, "X", "\" 5 \"");
  EXPECT_EQ(overlay.get(path, "a", "x"), " 5 ");
  set(overlay, "x", "6");
  EXPECT_EQ(overlay.get(path, "a", "X"), "6");
  EXPECT_EQ(dir.read("v.ini"), before);
}

}  // namespace
}  // namespace varnisto::test
