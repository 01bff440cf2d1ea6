// What the page "Script" shows and starts.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace tessarine::desktop {

// Watches a script that runs, and may stop it.
class ScriptRun {
 public:
  virtual ~ScriptRun() = default;
  virtual void comesTo(int line) = 0;
  [[nodiscard]] virtual bool isStopped() const = 0;
  // What the script prints, and what is wrong with a line: whole lines.
  virtual void prints(const std::string& text) = 0;
  virtual void complains(const std::string& text) = 0;
};

enum class ScriptEnd { done, expectFailed, refused };

struct ScriptFeed {
  std::function<std::uint64_t()> version = [] { return 0; };  // of the recording: another one for each change
  std::function<std::string()> recording = [] { return std::string(); };
  std::function<std::string()> snapshot = [] { return std::string(); };
  // Carries a script out on the program's windows, to its end or until it is stopped.
  std::function<ScriptEnd(const std::string& text, const std::string& name, ScriptRun& run)> run =
      [](const std::string&, const std::string&, ScriptRun&) { return ScriptEnd::done; };
};

}  // namespace tessarine::desktop
