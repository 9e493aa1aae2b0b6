#include "cabrillo/adif.h"

#include <gtest/gtest.h>

#include "app/driver.h"
#include "base/text.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

TEST(AdifCalls, AreTranscribedWithTheWholeInTheComment) {
  for (const auto& [worked, call, comment] : texts_of<3>(
           "QX4JKL|QX4JKL|TNX", "QX4JKL/1|QX4JKL|UR QX4JKL/1 TNX", "9Q/QX4JKL|QX4JKL|UR 9Q/QX4JKL TNX",
           "QX1/QX5MNO|QX5MNO|UR QX1/QX5MNO TNX", "QX4A/QX5B|QX5B|UR QX4A/QX5B TNX",
           "QX4A/qrpp5|QX4A|UR QX4A/qrpp5 TNX", "QX1ABC/1/P|1|UR QX1ABC/1/P TNX",
           "9Q/QX1/AB/P|QX1/AB|UR 9Q/QX1/AB/P TNX", "QX1ABC//P|QX1ABC//P|UR QX1ABC//P TNX", "/|/|UR / TNX")) {
    SCOPED_TRACE(worked);
    const AdifCall got = adif_call(worked, {common_adif_layout, "TNX", true});
    EXPECT_EQ(got.call, call);
    EXPECT_EQ(got.comment, comment);
    EXPECT_EQ(adif_call(worked, {common_adif_layout, "TNX", false}).call, worked);
  }
}

TEST(AdifRecord, HoldsTheFieldsOfTheLine) {
  AdifRecords records{{common_adif_layout, "TNX", false}};
  std::string record;
  records.make(TextLine{"QSO: 14025 CW 2002-11-23 0012 QX1ABC        599 25     Q2DEF         599 05"},
               record);
  EXPECT_EQ(record,
            "<call:5>Q2DEF<QSO_DATE:8:d>20021123<TIME_ON:4>0012<MODE:2>CW<BAND:3>20M<FREQ:5>14025"
            "<RST_SENT:3>599<COMMENT:3>TNX<EOR>");
  records.make(TextLine{"QSO: 50100 FM 2002-11-23 0013 QX1ABC        59  25     Q2DEF         59  05"},
               record);
  EXPECT_EQ(record,
            "<call:5>Q2DEF<QSO_DATE:8:d>20021123<TIME_ON:4>0013<MODE:2>FM<BAND:3>20M<FREQ:5>50100"
            "<RST_SENT:2>59<COMMENT:3>TNX<EOR>");  // a frequency outside the table keeps the band
}

TEST(EqslFiles, ComeOutAsExpected) {
  for (const auto& [name, comment, transcribe] : texts_of<3>("plain||0", "comment|TNX 楽しいQSO|1")) {
    SCOPED_TRACE(name);
    TestApp test;
    test.set("for_eQSL_flag", "1");
    test.set("eQSLcom", comment);
    test.set("tenki_flag", transcribe);
    test.open_copy(source_dir("tests/data/eqsl/in"), "QX1ABC.ALL");
    kaishi_Click(test.app);

    TempDir expected;
    expected.copy_from(source_dir("tests/data/eqsl") / name);
    EXPECT_EQ(test.work.read("QX1ABC.adi"), expected.read("QX1ABC.adi"));
  }
}

TEST(EqslFiles, AreMadeFromTheConvertedTimes) {
  TestApp test;
  test.set("for_eQSL_flag", "1");
  test.set("jst_to_utc_flag", "1");
  test.open_copy(source_dir("tests/data/eqsl/in"), "QX1ABC.ALL");
  kaishi_Click(test.app);
  const std::string adif = test.work.read("QX1ABC.adi");
  EXPECT_TRUE(contains(adif, "<QSO_DATE:8:d>20251128<TIME_ON:4>1503<")) << adif;
  EXPECT_TRUE(contains(adif, "<QSO_DATE:8:d>20251129<TIME_ON:4>1500<")) << adif;
}

}  // namespace
}  // namespace varnisto::test
