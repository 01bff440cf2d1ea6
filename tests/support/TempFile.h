// A file that lives as long as a test.
#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>
#include <system_error>

namespace tessarine {

class TempFile {
 public:
  explicit TempFile(std::string_view text) { write(text); }
  TempFile(const TempFile&) = delete;
  TempFile& operator=(const TempFile&) = delete;
  ~TempFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }

  void write(std::string_view text) const { std::ofstream(path_, std::ios::binary) << text; }
  [[nodiscard]] std::string path() const { return path_.string(); }

 private:
  std::filesystem::path path_ =
      std::filesystem::temp_directory_path() / ("tessarine-" + std::to_string(std::random_device{}()));
};

}  // namespace tessarine
