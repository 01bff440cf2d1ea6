#include "apps/RecordFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace tessarine {

RecordFile::RecordFile(std::string path, std::function<void(const std::string& why)> tell)
    : path_(std::move(path)), tell_(std::move(tell)) {}

RecordFile::~RecordFile() {
  if (recorder_ != nullptr) recorder_->onChange = nullptr;
  if (file_ != -1) ::close(file_);
}

void RecordFile::listen(script::Recorder& recorder) {
  if (path_.empty()) return;
  constexpr mode_t kMode = 0666;
  file_ = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, kMode);
  if (file_ == -1) return tellOnce(" cannot be written: what is done is not recorded");
  struct ::stat status {};
  isRegular_ = ::fstat(file_, &status) == 0 && S_ISREG(status.st_mode);
  recorder_ = &recorder;
  const auto follow = [this](std::size_t from) {
    write(from, isRegular_ ? recorder_->text().size() : recorder_->settled());
  };
  recorder.onChange = follow;
  follow(0);
}

void RecordFile::write(std::size_t from, std::size_t to) {
  if (isRegular_ && from < held_) held_ = from;
  const std::string& text = recorder_->text();
  while (held_ < to) {
    const char* const rest = text.data() + held_;
    const ::ssize_t done = isRegular_ ? ::pwrite(file_, rest, to - held_, static_cast<::off_t>(held_))
                                      : ::write(file_, rest, to - held_);
    if (done > 0) {
      held_ += static_cast<std::size_t>(done);
    } else if (errno != EINTR) {
      return tellOnce(" cannot be written in full");
    }
  }
  // What a shorter text leaves behind it.
  if (isRegular_ && ::ftruncate(file_, static_cast<::off_t>(to)) != 0) tellOnce(" cannot be written in full");
}

void RecordFile::tellOnce(const char* how) {
  if (!std::exchange(failed_, true)) tell_(path_ + how);
}

bool RecordFile::finish() {
  if (recorder_ != nullptr) {
    write(recorder_->settled(), recorder_->text().size());
    std::exchange(recorder_, nullptr)->onChange = nullptr;
    if (::close(std::exchange(file_, -1)) != 0) tellOnce(" cannot be written in full");
  }
  return !failed_;
}

}  // namespace tessarine
