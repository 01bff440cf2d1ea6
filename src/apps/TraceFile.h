// The file that --trace names.
#pragma once

#include <fstream>
#include <functional>
#include <optional>
#include <ostream>
#include <string>

#include "apps/BoardLink.h"
#include "board/WireTrace.h"

namespace tessarine {

class TraceFile {
 public:
  // `tell` is called once, as soon as something could not be written.
  TraceFile(std::string path, std::function<void(const std::string& why)> tell);
  TraceFile(const TraceFile&) = delete;
  TraceFile& operator=(const TraceFile&) = delete;

  // False if the file cannot be written. True without a path as well: then there is no file.
  [[nodiscard]] bool open();
  // From now on the file gets what goes over the wires of that board, which outlives this; each word is in
  // the file when it is out.
  void listen(BoardLink& link);
  // Closes the file. False if not all of it could be written.
  [[nodiscard]] bool finish();

 private:
  // A file that tells of its first failure.
  class Buffer : public std::filebuf {
   public:
    std::function<void()> failed;

   protected:
    int sync() override;
  };

  void tellOnce();

  std::string path_;
  std::function<void(const std::string&)> tell_;
  bool failed_ = false;
  Buffer file_;
  std::ostream stream_{&file_};
  std::optional<board::VcdWriter> writer_;
  board::EvaluationBoard* board_ = nullptr;
};

}  // namespace tessarine
