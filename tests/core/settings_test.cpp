#include "core/settings.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "support/errors.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

class SettingsFile : public testing::Test {
 protected:
  SettingsFile() { app.state.program.app_dir = test.folder.path(); }

  void write_ini(std::string_view text) const { test.folder.write_text("Varnisto.ini", text); }
  void write_legacy(std::string_view text) const { test.folder.write_text("Varnisto.cfg", text); }

  TestApp test;
  App& app = test.app;
  Settings& settings = test.app.state.settings;
};

TEST_F(SettingsFile, IsReadAndWrittenWithoutChange) {
  const std::string before = test.folder.read("Varnisto.ini");
  read_settings(app);
  write_settings(app);
  EXPECT_EQ(test.folder.read("Varnisto.ini"), before);
  EXPECT_EQ(settings.mycall14, "QX1ABC        ");
}

TEST_F(SettingsFile, WhatAnotherProgramHasChangedMeanwhileStays) {
  read_settings(app);
  test.set("NAME", "Hanako");
  test.set("OPERATORS", "");
  settings.club = "Club";
  write_settings(app);
  const std::string text = test.folder.read("Varnisto.ini");
  for (const char* line : {"\r\nNAME=Hanako\r\n", "\r\nCLUB=Club\r\n", "\r\nOPERATORS=QX1ABC\r\n"})
    EXPECT_TRUE(contains(text, line)) << text;
  settings.my_name = "Jiro";
  write_settings(app);
  EXPECT_TRUE(contains(test.folder.read("Varnisto.ini"), "\r\nNAME=Jiro\r\n"));
}

TEST_F(SettingsFile, TextsAreWrittenTrimmedAndOptionsAsHeld) {
  settings.mycall = " QX2DEF ";
  settings.power_sel = " 1";
  settings.exe_rec = " 12";
  write_settings(app);
  const std::string text = test.folder.read("Varnisto.ini");
  for (const std::string line :
       {"\r\nCALLSIGN=QX2DEF\r\n", "\r\npower_sel= 1\r\n", "[Main]\r\nexe_rec= 12\r\n"})
    EXPECT_TRUE(contains(text, line)) << line;
}

TEST_F(SettingsFile, AValueStandsInItsSectionCutTo127Characters) {
  write_ini("[Main]\nCALLSIGN=QX1ABC\nexe_rec=5\n[Varnisto.ini]\nNAME=" + std::string(126, 'x') +
            "漢字\n[Other]\nNAME=x\n");
  read_settings(app);
  EXPECT_EQ(settings.mycall + settings.exe_rec + settings.my_name, "5" + std::string(126, 'x') + "漢");
}

TEST_F(SettingsFile, ANoticeFlagThatIsNoNumberIsZero) {
  write_ini("[Varnisto.ini]\nJIDX_no_Disp_flag=abc\n");
  read_settings(app);
  EXPECT_EQ(settings.jidx_no_disp_flag, 0);
  write_settings(app);
  EXPECT_TRUE(contains(test.folder.read("Varnisto.ini"), "JIDX_no_Disp_flag=0\r\n"));
  write_ini("[Varnisto.ini]\nJIDX_no_Disp_flag=32768\n");
  EXPECT_EQ(error_of([&] { read_settings(app); }), 6);
}

TEST_F(SettingsFile, OnlyACurrentOneIsWrittenAlong) {
  read_settings(app);
  settings.ini_version = "3.08";
  settings.mycall = "QX2DEF";
  const std::string before = test.folder.read("Varnisto.ini");
  write_current_settings(app);
  EXPECT_EQ(test.folder.read("Varnisto.ini"), before);
  settings.ini_version = "3.09";
  write_current_settings(app);
  EXPECT_NE(test.folder.read("Varnisto.ini"), before);
}

TEST_F(SettingsFile, NamesTheRequiredKeysThatAreBlank) {
  EXPECT_EQ(missing_settings(settings, true),
            (std::vector<std::string>{"NAME", "CALLSIGN", "ADDRESS1", "OPERATORS", "JIDX_No", "e_mail",
                                      "Set_in_dir", "dir_pad"}));
  read_settings(app);
  EXPECT_TRUE(missing_settings(settings, false).empty());
}

TEST_F(SettingsFile, TakesWhatALineOfALegacyFileSays) {
  for (const auto& [line, key, expected] : texts_of<3>(
           "ver 0.92 of the program|version|0.92 of t", "CALLSIGN: QX1ABC |CALLSIGN|QX1ABC",
           "freq19_to_18flag: 1|freq19_to_18_flag|1", "freq19_to_18_flag:1|freq19_to_18_flag|0",
           "ADDRESS1:5 Rivertown|ADDRESS1|5 Rivertown", "ADDRESS1:5 Rivertown|version|town",
           "NAME:A NAME: B|NAME|A  B", "NAME:CLUB: x|CLUB|NAME: x", "eQSLcom:TNX 表|eQSLcom|TNX 表")) {
    SCOPED_TRACE(line);
    settings = {};
    write_legacy(line);
    read_Varnisto_cfg(app, settings);
    const auto* const row = std::ranges::find(setting_keys(), key, &SettingKey::key).base();
    EXPECT_EQ(key == "version" ? settings.ini_version : setting_value(settings, *row), expected);
  }
}

TEST_F(SettingsFile, AnEmptyLegacyFileIsAnError) {
  write_legacy("");
  EXPECT_EQ(error_of([&] { read_Varnisto_cfg(app, app.state.settings); }), 62);
  write_legacy("JIDX_no_Disp_flag:1");
  read_Varnisto_cfg(app, app.state.settings);
  EXPECT_EQ(settings.jidx_no_disp_flag, 1);
}

}  // namespace
}  // namespace varnisto::test
