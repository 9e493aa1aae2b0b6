#include "cabrillo/adif.h"

#include <gtest/gtest.h>

#include "app/driver.h"
#include "support/rows.h"
#include "support/test_app.h"

namespace varnisto::test {
namespace {

TEST(AdifCalls, AreTranscribedWithTheWholeInTheComment) {
  struct Row {
    std::string name, worked;
    bool transcribe;
    std::string call, comment;
  };
  for (const Row& want :
       rows_of(Row{"none", "QX4JKL", true, "QX4JKL", "TNX"}, Row{"off", "QX4JKL/1", false, "QX4JKL/1", "TNX"},
               Row{"district", "QX4JKL/1", true, "QX4JKL", "UR QX4JKL/1 TNX"},
               Row{"prefix", "9Q/QX4JKL", true, "QX4JKL", "UR 9Q/QX4JKL TNX"},
               Row{"longer_second", "QX1/QX5MNO", true, "QX5MNO", "UR QX1/QX5MNO TNX"},
               Row{"equal_parts", "QX4A/QX5B", true, "QX5B", "UR QX4A/QX5B TNX"},
               Row{"low_power", "QX4A/qrpp5", true, "QX4A", "UR QX4A/qrpp5 TNX"},
               Row{"two", "QX1ABC/1/P", true, "1", "UR QX1ABC/1/P TNX"},
               Row{"three", "9Q/QX1/AB/P", true, "QX1/AB", "UR 9Q/QX1/AB/P TNX"},
               Row{"nothing_between", "QX1ABC//P", true, "QX1ABC//P", "UR QX1ABC//P TNX"},
               Row{"only_a_stroke", "/", true, "/", "UR / TNX"})) {
    SCOPED_TRACE(want.name);
    const AdifCall got = adif_call(want.worked, {common_adif_layout, "TNX", want.transcribe});
    EXPECT_EQ(got.call, want.call);
    EXPECT_EQ(got.comment, want.comment);
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

/// One record: tag in upper case and value, as bytes.
using Record = std::map<std::string, std::string>;

/// Reads an ADIF file: free text up to <EOH>, then <TAG:length[:type]>value of exactly that many bytes,
/// records ended by <EOR>; between them only white space may stand.
std::vector<Record> read_adif(const std::string& bytes) {
  std::vector<Record> records;
  Record record;
  std::size_t pos = bytes.find("<EOH>") + 5;
  while ((pos = bytes.find_first_not_of("\r\n", pos)) != std::string::npos) {
    EXPECT_EQ(bytes[pos], '<') << "text between fields at byte " << pos;
    const std::size_t close = bytes.find('>', pos);
    if (bytes[pos] != '<' || close == std::string::npos) break;
    const std::string head = bytes.substr(pos + 1, close - pos - 1);
    pos = close + 1;
    if (head == "EOR") {
      records.push_back(std::exchange(record, {}));
      continue;
    }
    const std::size_t length = std::stoul(head.substr(head.find(':') + 1));
    record[head.substr(0, head.find(':'))] = bytes.substr(pos, length);
    pos += length;
  }
  EXPECT_TRUE(record.empty()) << "last record without <EOR>";
  return records;
}

std::string field(const std::string& line, std::size_t first, std::size_t width) {
  const std::string text = line.substr(first - 1, width);
  const std::size_t begin = text.find_first_not_of(' ');
  return text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

TEST(EqslFiles, ComeOutAsExpectedAndReadBack) {
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
    const std::string adif = test.work.read("QX1ABC.adi");
    EXPECT_EQ(adif, expected.read("QX1ABC.adi"));

    std::istringstream log{test.work.read("QX1ABC.cbr")};
    const std::vector<Record> records = read_adif(adif);
    std::size_t count = 0;
    for (std::string line; std::getline(log, line);) {
      if (!line.starts_with("QSO:")) continue;
      ASSERT_LT(count, records.size());
      Record record = records[count++];
      EXPECT_EQ(record["FREQ"], field(line, 6, 5));
      EXPECT_EQ(record["QSO_DATE"], field(line, 15, 4) + field(line, 20, 2) + field(line, 23, 2));
      EXPECT_EQ(record["TIME_ON"], field(line, 26, 4));
      EXPECT_EQ(record["RST_SENT"], field(line, 45, 3));
      const std::string call = field(line, 56, 13);
      EXPECT_NE((call + record["COMMENT"]).find(record["call"]), std::string::npos);
      if (transcribe == "0") {
        EXPECT_EQ(record["call"], call);
      }
    }
    EXPECT_EQ(count, 7U);
    EXPECT_EQ(records.size(), count);
  }
}

TEST(Eqsl, IsMadeFromTheConvertedTimes) {
  TestApp test;
  test.set("for_eQSL_flag", "1");
  test.set("jst_to_utc_flag", "1");
  test.open_copy(source_dir("tests/data/eqsl/in"), "QX1ABC.ALL");
  kaishi_Click(test.app);
  const auto records = read_adif(test.work.read("QX1ABC.adi"));
  ASSERT_EQ(records.size(), 7U);
  EXPECT_EQ(records[0].at("QSO_DATE") + records[0].at("TIME_ON"), "202511281503");
  EXPECT_EQ(records[6].at("QSO_DATE") + records[6].at("TIME_ON"), "202511291500");
}

}  // namespace
}  // namespace varnisto::test
