#include "setup/TextFile.h"

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "platform/Fault.h"

namespace tessarine {
namespace {

constexpr std::size_t kMostBytes = 64UL << 20U;

[[noreturn]] void refuse(const std::string& path, const std::string& why) {
  throw Fault("Setup file " + quoted(path, kLongestPath) + " cannot be read: " + why);
}

}  // namespace

std::string readTextFile(const std::string& path) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (error) refuse(path, error.message());
  // What is no file may have no end, or make the program wait for one.
  if (is_directory(status)) refuse(path, "it is a folder");
  if (!is_regular_file(status)) refuse(path, "it is no file");

  errno = 0;
  std::ifstream file(path, std::ios::binary);
  if (!file) refuse(path, std::generic_category().message(errno));
  std::string text;
  for (char chunk[65536]; file.read(chunk, sizeof chunk), file.gcount() > 0;) {
    text.append(chunk, static_cast<std::size_t>(file.gcount()));
    if (text.size() > kMostBytes) refuse(path, "it is larger than 64 MB");
  }
  if (file.bad()) refuse(path, std::generic_category().message(errno));
  return text;
}

std::string_view LineReader::next() {
  ++number_;
  const auto end = rest_.find('\n');
  auto line = rest_.substr(0, end);
  rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

std::string LineReader::complaint(std::string_view file, std::string_view what) const {
  const std::string place = number_ == 0 ? "" : ", line " + std::to_string(number_);
  return "Setup file " + quoted(file, kLongestPath) + place + ": " + std::string(what);
}

}  // namespace tessarine
