#pragma once

#include <string>
#include <vector>

#include "support/line_list.h"
#include "support/zlo_log.h"
#include "zlo/zlo_files.h"

namespace varnisto::test {

inline ZloReader reader_of(const std::string& bytes) {
  return ZloReader{RecordReader::from_bytes(bytes, "log.ZLO")};
}

/// What both files of a log hold, and what was counted.
struct Written {
  std::vector<std::string> all, jarl;
  ZloWritten found;
};

struct Choices {
  bool transmitter = false;
};

inline Written written(const std::string& bytes, const Choices& choices = {}) {
  LineList all, jarl;
  ZloReader log = reader_of(bytes);
  ZloWritten found = write_zlo_files(log, {all, &jarl, choices.transmitter});
  return {std::move(all.lines), std::move(jarl.lines), std::move(found)};
}

}  // namespace varnisto::test
