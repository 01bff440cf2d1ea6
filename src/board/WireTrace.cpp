#include "board/WireTrace.h"

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <string>

namespace tessarine::board {

namespace {

struct VcdWire {
  bool Levels::*level;
  char code;
  const char* name;
};

constexpr VcdWire kVcdWires[] = {
    {&Levels::clock, '!', "CLOCK"},
    {&Levels::data, '"', "DATA"},
    {&Levels::loadEnable, '#', "LE"},
};

char digit(bool level) { return level ? '1' : '0'; }

// A stamp in plain digits, whatever the stream's locale groups them into.
std::string stamp(std::int64_t time) { return '#' + std::to_string(time) + '\n'; }

}  // namespace

void WireTrace::record(std::int64_t time, Levels levels) {
  if (!changes_.empty() && changes_.back().levels == levels) return;
  changes_.push({time, levels});
}

std::size_t WireTrace::countBefore(std::int64_t time) const {
  return changes_.countWhile([time](const Change& change) { return change.time < time; });
}

VcdWriter::VcdWriter(std::ostream& out) : out_(out) {
  out_ << "$version Tessarine $end\n$timescale 1 us $end\n$scope module board $end\n";
  for (const VcdWire& wire : kVcdWires) out_ << "$var wire 1 " << wire.code << ' ' << wire.name << " $end\n";
  out_ << "$upscope $end\n$enddefinitions $end\n";
}

void VcdWriter::change(std::int64_t time, Levels levels) {
  const bool first = last_ < 0;
  if (!first && levels == levels_) return;
  out_ << stamp(time);
  if (first) out_ << "$dumpvars\n";
  for (const VcdWire& wire : kVcdWires) {
    if (first || levels.*wire.level != levels_.*wire.level)
      out_ << digit(levels.*wire.level) << wire.code << '\n';
  }
  if (first) out_ << "$end\n";
  // A program that is ended by a signal has saved every word that is out.
  if (levels_.loadEnable && !levels.loadEnable) out_.flush();
  last_ = time;
  levels_ = levels;
}

void VcdWriter::finish(std::int64_t time) {
  out_ << stamp(std::max(time, last_ + 1));
  out_.flush();
}

void saveVcd(const WireTrace& trace, std::int64_t endTime, std::ostream& out) {
  VcdWriter writer(out);
  for (std::size_t index = 0; index < trace.size(); ++index)
    writer.change(trace[index].time, trace[index].levels);
  writer.finish(endTime);
}

}  // namespace tessarine::board
