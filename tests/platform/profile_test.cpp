#include "platform/profile.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/text.h"
#include "support/errors.h"
#include "support/rows.h"
#include "support/temp_dir.h"

namespace varnisto::test {
namespace {

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
  struct Row {
    std::string section, key, expected;
  };
  for (const Row& row :
       rows_of(Row{"Main", "exe_rec", "7"}, Row{"varnisto.INI", "CALLSIGN", "QX1ABC/1"},
               Row{" Varnisto.ini ", " call sign ", "QX1ABC"}, Row{"Varnisto.ini", "exe_rec", ""},
               Row{"Varnisto.ini", "CLUB", ""}, Row{"Varnisto.ini", "#CLUB", "hash"},
               Row{"Varnisto.ini", "NAME", "  Taro "}, Row{"Varnisto.ini", "E1", "'a\""},
               Row{"Varnisto.ini", "E2", ""}, Row{"Varnisto.ini", "E3", "\""},
               Row{"Varnisto.ini", "ADDRESS1", "a=b;c"}, Row{"Varnisto.ini", "late", ""},
               Row{"Other", "open", "1"}, Row{"", "stray", ""}, Row{"None", "x", ""})) {
    SCOPED_TRACE(row.section);
    EXPECT_EQ(ProfileText{file}.get(row.section, row.key), row.expected);
  }
}

TEST(ProfileSet, ChangesOneLineAndNothingElse) {
  ProfileText text{file};
  text.set("VARNISTO.INI", "Callsign", "QX2DEF");
  EXPECT_EQ(text.bytes(), replace_all(file, "callsign=QX1ABC/1", "callsign=QX2DEF"));
}

TEST(ProfileSet, PutsANewKeyBehindTheSectionsLastOne) {
  ProfileText text{file};
  text.set("Varnisto.ini", "CLUB", "表");
  EXPECT_EQ(text.bytes(), replace_all(file, "ADDRESS1=a=b;c\r\n", "ADDRESS1=a=b;c\r\nCLUB=\x95\x5C\r\n"));
}

TEST(ProfileSet, PutsANewSectionAtTheEnd) {
  ProfileText text{"[A]\nx=1"};
  text.set("B", "y", " 2 ");
  text.set("A", "z", "3");
  EXPECT_EQ(text.bytes(), "[A]\nx=1\r\nz=3\r\n[B]\r\ny= 2 \r\n");
  EXPECT_EQ(text.get("b", "Y"), "2");
}

TEST(ProfileSet, KeepsUtf16) {
  std::string bytes = "\xFF\xFE";
  for (const char c : std::string_view{"[A]\r\nx=1\r\n"}) bytes.append({c, '\0'});
  ProfileText text{bytes};
  EXPECT_EQ(text.bytes(), bytes);
  text.set("A", "x", "\U0001F4FB表");
  EXPECT_EQ(ProfileText{text.bytes()}.get("A", "x"), "\U0001F4FB表");
  EXPECT_TRUE(text.bytes().starts_with("\xFF\xFE"));
  const std::string half_pair = "\xFF\xFE[\0]\0\n\0x\0=\0\x2D\xD8y\0"s;
  EXPECT_EQ(ProfileText{half_pair}.bytes(), half_pair);
}

TEST(ProfileSet, RefusesALineBreakInAValue) {
  ProfileText text{file};
  EXPECT_EQ(error_of([&] { text.set("Main", "x", "a\nb"); }), 5);
  EXPECT_EQ(text.bytes(), file);
}

TEST(ProfileSet, OtherControlCharactersStayAsTheFileHoldsThem) {
  const std::string odd =
      "[Main]\r\nx=a\rb\0\x1A"
      "c\r\n"s;
  ProfileText text{odd};
  text.set("Main", "x", text.get("Main", "x"));
  EXPECT_EQ(text.bytes(), odd);
}

TEST(ProfileFile, AUtf8MarkIsSkippedAndStays) {
  ProfileText text{"\xEF\xBB\xBF[Main]\r\nx=\xE8\xA1\xA8\xE2\x82\xAC\r\n"};
  EXPECT_EQ(text.get("Main", "x"), "表\u20AC");
  text.set("Main", "y", "漢");
  EXPECT_EQ(text.bytes(), "\xEF\xBB\xBF[Main]\r\nx=表\u20AC\r\ny=漢\r\n");
}

TEST(ProfileFile, WhatKeepsItFromBeingReadIsError75) {
  TempDir dir;
  std::filesystem::create_directory(dir.path() + "a.ini");
  const std::string endless = dir.write("b.ini", "[Main]\nx=" + std::string(1 << 20, 'x') + "\n");
  FileProfile profile;
  EXPECT_EQ(error_of([&] { profile.get(dir.path() + "a.ini", "Main", "x"); }), 75);
  EXPECT_EQ(error_of([&] { profile.get(endless, "Main", "x"); }), 5);
  EXPECT_EQ(error_text_of([&] { profile.get(endless, "Main", "x"); }), endless + ": 2 行目");
}

TEST(ProfileFile, APlantedLinkOfAnOldScratchNameIsLeftAlone) {
  TempDir dir;
  const std::string path = dir.write("a.ini", "[Main]\r\nx=1\r\n");
  std::filesystem::create_symlink(dir.write("other", "other"), path + ".new");
  FileProfile profile;
  const ProfileEntry entry{"Main", "x", "2"};
  profile.set(path, {&entry, 1});
  EXPECT_EQ(dir.read("a.ini"), "[Main]\r\nx=2\r\n");
  EXPECT_EQ(dir.read("other"), "other");
}

TEST(ProfileFile, ParallelWritersLoseNothing) {
  TempDir dir;
  const std::string path = dir.write("a.ini", "[Main]\r\ncount=0\r\n");
  constexpr int writers = 4, times = 25;
  for (int i = 0; i < writers; ++i) {
    if (::fork() != 0) continue;
    FileProfile profile;
    for (int k = 0; k < times; ++k) {
      const ProfileHold hold{profile, path};
      const int count = std::stoi(profile.get(path, "Main", "count")) + 1;
      const ProfileEntry entry{"Main", "count", std::to_string(count)};
      profile.set(path, {&entry, 1});
    }
    ::_exit(0);
  }
  while (::wait(nullptr) > 0) {
  }
  EXPECT_EQ(dir.read("a.ini"), "[Main]\r\ncount=100\r\n");
  EXPECT_EQ(dir.files().size(), 1U);
}

void set(Profile& profile, const std::string& path, const std::string& key, const std::string& value) {
  const ProfileEntry entry{"A", key, value};
  profile.set(path, {&entry, 1});
}

TEST(FileProfile, MakesTheFileSeesForeignChangesAndIgnoresCase) {
  TempDir dir;
  FileProfile profile;
  const std::string path = dir.path() + "v.ini";
  EXPECT_EQ(profile.get(path, "A", "x"), "");
  EXPECT_FALSE(profile.exists(path));
  set(profile, path, "x", "1");
  EXPECT_EQ(dir.read("v.ini"), "[A]\r\nx=1\r\n");
  EXPECT_EQ(profile.get(path, "A", "x"), "1");
  dir.write("v.ini", "[A]\nx=22\n");
  EXPECT_EQ(profile.get(path, "A", "x"), "22");
  set(profile, dir.path() + "V.INI", "y", "3");
  EXPECT_EQ(dir.read("v.ini"), "[A]\nx=22\ny=3\r\n");
  EXPECT_EQ(dir.files().size(), 1U);
  EXPECT_EQ(error_of([&] { set(profile, dir.path() + "none/v.ini", "x", "1"); }), 76);
}

TEST(FileProfile, WritesAllValuesOrNone) {
  TempDir dir;
  FileProfile profile;
  const std::string path = dir.write("v.ini", "[A]\r\nx=1\r\n");
  const ProfileEntry entries[] = {{"A", "x", "2"}, {"A", "y", "a\nb"}};
  EXPECT_EQ(error_of([&] { profile.set(path, entries); }), 5);
  const ProfileEntry unmappable[] = {{"A", "x", "2"}, {"A", "y", "\u20AC"}};
  EXPECT_EQ(error_of([&] { profile.set(path, unmappable); }), 5);
  EXPECT_EQ(dir.files(), (std::map<std::string, std::string>{{"v.ini", "[A]\r\nx=1\r\n"}}));
}

TEST(FileProfileDeathTest, AReadOnlyFileIsRefusedAndStays) {
  TempDir dir;
  const std::string path = dir.write("v.ini", "[A]\r\nx=1\r\n");
  std::filesystem::permissions(path, std::filesystem::perms{0444});
  std::filesystem::permissions(dir.path(), std::filesystem::perms{0777});
  const auto set_as_nobody = [&] {
    // The superuser may write everything: become someone else first (without effect for other users).
    if (setuid(65534) != 0 && geteuid() == 0) _exit(1);
    FileProfile profile;
    _exit(error_of([&] { set(profile, path, "x", "2"); }));
  };
  EXPECT_EXIT(set_as_nobody(), testing::ExitedWithCode(70), "");
  EXPECT_EQ(dir.files(), (std::map<std::string, std::string>{{"v.ini", "[A]\r\nx=1\r\n"}}));
}

TEST(OverlayProfile, ReadsThroughAndWritesNothing) {
  TempDir dir;
  FileProfile below;
  const std::string path = dir.write("v.ini", "[A]\r\nx=1\r\ny=2\r\n");
  OverlayProfile overlay{below};
  set(overlay, path, "X", "\" 5 \"");
  EXPECT_EQ(overlay.get(path, "a", "x"), " 5 ");
  set(overlay, path, "x", "6");
  EXPECT_EQ(overlay.get(path, "a", "X"), "6");
  EXPECT_EQ(overlay.get(path, "A", "y"), "2");
  EXPECT_EQ(dir.read("v.ini"), "[A]\r\nx=1\r\ny=2\r\n");
}

}  // namespace
}  // namespace varnisto::test
