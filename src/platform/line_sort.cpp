#include "platform/line_sort.h"

#include <algorithm>
#include <deque>
#include <string_view>
#include <vector>

#include "base/scratch_files.h"
#include "base/text_reader.h"
#include "base/text_writer.h"

namespace varnisto {
namespace {

template <class PutLines>
void write_file(const std::string& path, PutLines put_lines) {
  TextWriter writer = TextWriter::scratch(path);
  put_lines(writer);
  writer.close();
}

struct KeyedLine {
  std::string_view key, line;
};

/// Lines in memory, all in one text: half of the time would go into small allocations otherwise.
class Block {
 public:
  Block(std::size_t bytes, Columns key) : bytes_(bytes), key_(key) { text_.reserve(bytes); }

  bool empty() const { return lines_.empty(); }
  std::string_view key(std::size_t line) const { return lines_[line].key; }

  bool fits(std::string_view line) const {
    return text_.size() + line.size() + (lines_.size() + 1) * sizeof(KeyedLine) <= bytes_;
  }
  /// Takes a line that fits, so that the others stay where they are. An empty block takes any.
  void add(std::string_view line, bool ascii) {
    const std::size_t begin = text_.size();
    const std::string_view copy = std::string_view{text_.append(line)}.substr(begin);
    lines_.push_back({TextLine{copy, ascii}.cut(key_), copy});
  }
  void clear() {
    text_.clear();
    lines_.clear();
  }

  /// Number of lines up to the first that belongs before its neighbour.
  std::size_t in_order() const {
    return static_cast<std::size_t>(std::ranges::is_sorted_until(lines_, {}, &KeyedLine::key) -
                                    lines_.begin());
  }
  /// Lets the first `count` lines go.
  void drop(std::size_t count) {
    lines_.erase(lines_.begin(), lines_.begin() + static_cast<std::ptrdiff_t>(count));
  }
  void sort() {
    // Lines that go on where others end are nearly in order: those stay where they are.
    const auto rest = std::ranges::is_sorted_until(lines_, {}, &KeyedLine::key);
    std::ranges::stable_sort(rest, lines_.end(), {}, &KeyedLine::key);
    std::ranges::inplace_merge(lines_, rest, {}, &KeyedLine::key);
  }
  void write(const std::string& path) const {
    write_file(path, [this](TextWriter& out) {
      for (const KeyedLine& keyed : lines_) out.put(keyed.line);
    });
  }

 private:
  std::size_t bytes_;
  Columns key_;
  std::string text_;
  std::vector<KeyedLine> lines_;
};

/// Lines in order: the first ones of the input, or a file that is gone with this object.
struct Run {
  std::string path;
  std::size_t lines = std::string::npos;
  ScratchFiles own{};
};

/// A run that is read; `place` is its number among those read side by side.
class RunReader {
 public:
  RunReader(const Run& run, Columns key, std::size_t place)
      : reader_(run.path), left_(run.lines), key_columns_(key), place_(place) {}

  bool next() {
    if (left_ == 0 || !reader_.next(line_)) return false;
    --left_;
    key_ = TextLine{line_, reader_.ascii()}.cut(key_columns_);
    return true;
  }
  std::string_view line() const { return line_; }

  /// Among equal keys the earlier run comes first.
  static bool before(const RunReader* a, const RunReader* b) {
    const int order = a->key_.compare(b->key_);
    return order < 0 || (order == 0 && a->place_ < b->place_);
  }

 private:
  TextReader reader_;
  std::size_t left_;
  Columns key_columns_;
  std::size_t place_;
  std::string_view line_, key_;
};

/// Runs that are read side by side, the one with the first line in front.
class Merge {
 public:
  /// Takes the first `count` of the runs.
  Merge(const std::deque<Run>& runs, std::size_t count, Columns key) {
    for (std::size_t i = 0; i < count; ++i)
      if (readers_.emplace_back(runs[i], key, i).next()) order_.push_back(&readers_.back());
    std::ranges::sort(order_, RunReader::before);
  }

  void write(const std::string& path) {
    write_file(path, [this](TextWriter& out) {
      while (!order_.empty()) {
        out.put(order_.front()->line());
        advance();
      }
    });
  }

 private:
  void advance() {
    const auto front = order_.begin();
    if (!front[0]->next())
      order_.erase(front);
    else if (order_.size() > 1 && RunReader::before(front[1], front[0]))
      std::rotate(front, front + 1, std::lower_bound(front + 1, order_.end(), *front, RunReader::before));
  }

  std::deque<RunReader> readers_;
  std::vector<RunReader*> order_;
};

class LineSort {
 public:
  LineSort(const std::string& output, Columns key, const SortLimits& limits)
      : output_(output), key_(key), limits_(limits) {}

  void run(const std::string& input) {
    split(input);
    if (runs_.empty()) return;
    while (runs_.size() > limits_.fan_in) merge_groups();
    merge(runs_.size(), output_);
  }

 private:
  /// Makes runs of the input; lines that all fit in one block are the output at once.
  void split(const std::string& input) {
    TextReader reader{input};
    Block block{limits_.block_bytes, key_};
    for (std::string_view line; reader.next(line);) {
      if (!block.empty() && !block.fits(line)) put_away(block);
      block.add(line, reader.ascii());
    }
    if (lines_in_order_ > 0 || !runs_.empty())
      put_away(block);
    else
      write_sorted(block, output_);
    if (lines_in_order_ > 0) runs_.push_front({input, lines_in_order_});
  }

  /// Empties the block into a run.
  void put_away(Block& block) {
    if (runs_.empty()) leave_in_order(block);
    if (!block.empty()) write_sorted(block, new_run());
    block.clear();
  }

  /// As long as the input is in order it is a run itself.
  void leave_in_order(Block& block) {
    if (block.key(0) < last_key_) return;
    const std::size_t count = block.in_order();
    last_key_ = block.key(count - 1);
    lines_in_order_ += count;
    block.drop(count);
  }

  static void write_sorted(Block& block, const std::string& path) {
    block.sort();
    block.write(path);
  }

  const std::string& new_run() {
    Run& run = runs_.emplace_back(Run{output_ + ".run" + std::to_string(run_count_++)});
    run.own.add(run.path);
    return run.path;
  }

  /// Makes fewer and longer runs of them all, neighbours together.
  void merge_groups() {
    for (std::size_t left = runs_.size(); left > 0;) {
      const std::size_t count = std::min(left, limits_.fan_in);
      merge(count, new_run());
      for (std::size_t i = 0; i < count; ++i) runs_.pop_front();
      left -= count;
    }
  }

  void merge(std::size_t count, const std::string& path) { Merge{runs_, count, key_}.write(path); }

  const std::string& output_;
  Columns key_;
  SortLimits limits_;
  std::deque<Run> runs_;
  std::size_t run_count_ = 0;
  std::size_t lines_in_order_ = 0;  ///< at the start of the input
  std::string last_key_;            ///< of these
};

}  // namespace

void sort_lines(const std::string& input, const std::string& output, Columns key, const SortLimits& limits) {
  LineSort{output, key, limits}.run(input);
}

}  // namespace varnisto
