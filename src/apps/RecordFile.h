// The file that --record names.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <string>

#include "script/Recorder.h"

namespace tessarine {

class RecordFile {
 public:
  // `tell` is called once, as soon as something could not be written; the recording goes on, and what is
  // missing is written when there is room again.
  RecordFile(std::string path, std::function<void(const std::string& why)> tell);
  ~RecordFile();
  RecordFile(const RecordFile&) = delete;
  RecordFile& operator=(const RecordFile&) = delete;

  // From now on the file holds what the recorder has written. Without a path nothing happens.
  void listen(script::Recorder& recorder);
  // False if the file could not be written at some time.
  [[nodiscard]] bool finish();

 private:
  void write(std::size_t from, std::size_t to);
  void tellOnce(const char* how);

  std::string path_;
  std::function<void(const std::string&)> tell_;
  script::Recorder* recorder_ = nullptr;
  int file_ = -1;
  bool isRegular_ = false;  // else nothing that was written can be taken back: a pipe
  bool failed_ = false;
  std::size_t held_ = 0;  // so much of the recording is in the file
};

}  // namespace tessarine
