// A sum stands for what is too long to stand in a test: what was looked over or proven once, and is to stay.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

namespace tessarine {

[[nodiscard]] inline std::uint32_t sumOf(const std::string& text) {
  std::uint32_t sum = 2166136261U;  // FNV-1a
  for (const char c : text) sum = (sum ^ static_cast<unsigned char>(c)) * 16777619U;
  return sum;
}

// The same wherever this is run.
[[nodiscard]] inline std::string anywhere(std::string text) {
  const std::string here = std::filesystem::current_path();
  for (auto at = text.find(here); at != std::string::npos; at = text.find(here)) text.erase(at, here.size());
  return text;
}

// Leaves a text of another sum in a file, to be compared with that of the commit before.
inline void expectSum(const std::string& name, const std::string& text, std::uint32_t sum) {
  if (sumOf(text) == sum) return;
  const std::string path = ::testing::TempDir() + "sum-of-" + name;
  std::ofstream(path) << text;
  ADD_FAILURE() << name << ": the sum is " << sumOf(text) << ", not " << sum << ", of what stands in "
                << path;
}

}  // namespace tessarine
