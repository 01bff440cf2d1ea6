// The way from one scene of the main window to another: which controls are in sight, by the model menu, the
// panels, the modes, "Continue ..." and "Close".
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "script/StandIn.h"
#include "window/Program.h"

namespace tessarine::script {

// What is in sight, as a text to compare: not what the fields hold, nor what commands have shown.
[[nodiscard]] std::string sceneOf(const Program& program);

class RouteFinder {
 public:
  using Route = std::vector<std::string_view>;  // the names of the controls to click
  using Goal = std::function<bool(const Program&)>;
  enum class Models { none, thatOne, all };

  // `thatOne` is the entry of the model menu that `present` shows.
  explicit RouteFinder(const Program& present);

  // The shortest way from where `from` is; nothing if none was found in reasonable time.
  [[nodiscard]] std::optional<Route> find(const Program& from, const Goal& goal, Models models);

 private:
  [[nodiscard]] std::vector<forms::Control*> actions(Models models);

  const Program& present_;
  StandIn scratch_;
};

}  // namespace tessarine::script
