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

// What is in sight, as texts to compare: not what the fields hold, nor what commands have shown.
[[nodiscard]] std::string panelsOf(const Program& program);
[[nodiscard]] std::string modeOf(const Program& program);
[[nodiscard]] std::string markOf(const Program& program);  // which mode is marked
// Whether the mode that is marked is the one whose frame shows: "Close" leaves the mark alone.
[[nodiscard]] bool showsItsMode(const Program& program);

class RouteFinder {
 public:
  using Route = std::vector<std::string_view>;  // the names of the controls to click
  using Goal = std::function<bool(const Program&)>;
  // What may be clicked: the crosses of panels and "Advanced" alone, the entry of the model that `present`
  // shows as well, or one of each kind of model too; or the modes.
  enum class Clicks { panels, thatModel, models, modes };

  explicit RouteFinder(const Program& present) : present_(present) {}

  // The shortest way from where `from` is; nothing if none was found in reasonable time.
  [[nodiscard]] std::optional<Route> find(const Program& from, const Goal& goal, Clicks clicks);

 private:
  [[nodiscard]] std::vector<forms::Control*> controls(Clicks clicks);
  [[nodiscard]] std::vector<forms::Control*> oneOfEachKind();

  const Program& present_;
  StandIn scratch_;
  std::vector<forms::Control*> kinds_;  // entries of its model menu, when they were asked for
};

}  // namespace tessarine::script
