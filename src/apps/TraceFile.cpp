#include "apps/TraceFile.h"

#include <utility>

namespace tessarine {

int TraceFile::Buffer::sync() {
  const int result = std::filebuf::sync();
  if (result != 0) failed();
  return result;
}

TraceFile::TraceFile(std::string path, std::function<void(const std::string& why)> tell)
    : path_(std::move(path)), tell_(std::move(tell)) {
  file_.failed = [this] { tellOnce(); };
}

void TraceFile::tellOnce() {
  if (!std::exchange(failed_, true)) tell_(path_ + " cannot be written in full");
}

bool TraceFile::open() {
  return path_.empty() || file_.open(path_, std::ios::out | std::ios::trunc) != nullptr;
}

void TraceFile::listen(BoardLink& link) {
  if (path_.empty()) return;
  board_ = &link.board();
  board_->stream(&writer_.emplace(stream_));
  link.listen();
}

bool TraceFile::finish() {
  if (!writer_) return true;
  board_->stream(nullptr);
  writer_->finish(board_->now());
  if (file_.close() == nullptr || !stream_) tellOnce();
  return !failed_;
}

}  // namespace tessarine
