// Reading a text file whole, and by lines.
#pragma once

#include <string>
#include <string_view>

namespace tessarine {

// The whole file. A Fault names the file and the reason when it cannot be read, is no file, or is larger than
// any setup file.
[[nodiscard]] std::string readTextFile(const std::string& path);

// Lines end with LF or CR LF; a closing line end opens no further line.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : rest_(text) {}

  [[nodiscard]] bool atEnd() const { return rest_.empty(); }
  [[nodiscard]] int number() const { return number_; }  // of the line read last, counted from 1
  std::string_view next();

  // What was wrong with the line read last, as a sentence that names it and `file`.
  [[nodiscard]] std::string complaint(std::string_view file, std::string_view what) const;

 private:
  std::string_view rest_;
  int number_ = 0;
};

}  // namespace tessarine
