#include "script/Route.h"

#include <algorithm>
#include <set>
#include <utility>

namespace tessarine::script {
namespace {

using forms::Control;
using forms::Kind;

// The sweep's own fields and buttons come and go with its two options, which are settings.
bool belongsToSweep(const PllForm1& window, const Control& control) {
  return control.container() == &window.Frame2(2);
}

bool isFrameOfMode(const PllForm1& window, const Control& control) {
  return std::ranges::any_of(window.Frame2.members(),
                             [&](const auto& entry) { return &entry.second == &control; });
}

// All of it that clicks on the way may change.
struct Scene {
  struct Sight {
    bool visible;
    bool enabled;
    Twips place;
    std::string caption;  // of frames, buttons and the prompts of the words
    bool checked;         // of menu entries
  };
  std::vector<Sight> sights;
  String model;
  Integer modelIndex;
};

bool changesCaption(const PllForm1& window, const Control& control) {
  for (const auto& [index, prompt] : window.Label16.members()) {
    if (&prompt == &control) return true;
  }
  return control.kind() == Kind::Frame || control.kind() == Kind::CommandButton;
}

Scene sceneAt(const Program& program) {
  Scene scene{
      .sights = {}, .model = program.module.CurrentModel, .modelIndex = program.window.CurrentModelIndex};
  for (const Control* const control : program.window.controls()) {
    scene.sights.push_back(
        {.visible = control->Visible,
         .enabled = control->Enabled,
         .place = control->Place,
         .caption = changesCaption(program.window, *control) ? control->value() : std::string(),
         .checked = control->kind() == Kind::Menu && static_cast<const forms::Menu*>(control)->Checked});
  }
  return scene;
}

void putUp(const Scene& scene, Program& program) {
  program.module.CurrentModel = scene.model;
  program.window.CurrentModelIndex = scene.modelIndex;
  auto sight = scene.sights.begin();
  for (Control* const control : program.window.controls()) {
    control->Visible = sight->visible;
    control->Enabled = sight->enabled;
    control->Place = sight->place;
    if (changesCaption(program.window, *control)) *control->captionProperty() = sight->caption;
    if (control->kind() == Kind::Menu) static_cast<forms::Menu*>(control)->Checked = sight->checked;
    ++sight;
  }
}

}  // namespace

std::string panelsOf(const Program& program) {
  const PllForm1& window = program.window;
  std::string text = program.module.CurrentModel + '\n';
  for (const Control* const control : window.controls()) {
    if (belongsToSweep(window, *control) || isFrameOfMode(window, *control)) continue;
    text += static_cast<char>('0' + (control->Visible ? 1 : 0) + (control->Enabled ? 2 : 0));
    if (changesCaption(window, *control)) text += control->value() + '\n';
  }
  const Twips place = window.Frame24.Place;  // a panel may be open without room
  return window.Frame24.Visible ? text + std::to_string(place.Width) : text;
}

std::string markOf(const Program& program) {
  std::string text;
  for (const Control* const mode : program.window.Mode1.children()) {
    text += static_cast<const forms::Menu*>(mode)->Checked ? '1' : '0';
  }
  return text;
}

std::string modeOf(const Program& program) {
  std::string text = markOf(program) + ' ';
  for (const auto& [index, frame] : program.window.Frame2.members()) text += frame.Visible ? '1' : '0';
  return text;
}

bool showsItsMode(const Program& program) {
  return modeOf(program) == markOf(program) + ' ' + markOf(program);
}

// Models that look alike, but for their names, when they are picked and when their panel is opened.
std::vector<Control*> RouteFinder::oneOfEachKind() {
  Program& program = scratch_.program;
  std::set<std::string> seen;
  std::vector<Control*> kinds;
  for (auto& [index, entry] : program.window.pllM.members()) {
    if (entry.isSeparator()) continue;
    StandIn fresh;
    std::string look;
    for (const char* const name : {"ContinueCommand", entry.name().c_str(), "ACommand"}) {
      (void)fresh.program.door.click(*fresh.program.forms.find(name));
      look += panelsOf(fresh.program).substr(fresh.program.module.CurrentModel.size());
    }
    const std::string caption = entry.Caption;
    for (auto at = look.find(caption); at != std::string::npos; at = look.find(caption)) {
      look.erase(at, caption.size());
    }
    if (seen.insert(look).second) kinds.push_back(&entry);
  }
  return kinds;
}

std::vector<Control*> RouteFinder::controls(Clicks clicks) {
  PllForm1& window = scratch_.program.window;
  std::vector<Control*> found{&window.ContinueCommand};
  if (clicks == Clicks::thatModel || clicks == Clicks::models) {
    for (auto& [index, entry] : window.pllM.members()) {
      const std::string shown = ' ' + entry.Caption.get() + ' ';
      if (present_.window.GeneralFrame.Caption.get().find(shown) != std::string::npos ||
          present_.module.CurrentModel == entry.Caption.get()) {
        found.push_back(&entry);
      }
    }
  }
  if (clicks == Clicks::models) {
    if (kinds_.empty()) kinds_ = oneOfEachKind();
    found.insert(found.end(), kinds_.begin(), kinds_.end());
  }
  if (clicks != Clicks::modes) {
    found.push_back(&window.ACommand);
    // The crosses that close the panels.
    for (Control* const control : window.controls()) {
      if (control->Click && control->value() == "X") found.push_back(control);
    }
  }
  if (clicks == Clicks::modes) {
    const auto& modes = window.Mode1.children();
    found.insert(found.end(), modes.begin(), modes.end());
  }
  if (clicks != Clicks::panels) found.push_back(&window.Close1);
  return found;
}

std::optional<RouteFinder::Route> RouteFinder::find(const Program& from, const Goal& goal, Clicks clicks) {
  constexpr std::size_t kMostScenes = 4000;
  if (goal(from)) return Route{};
  const std::vector<Control*> candidates = controls(clicks);
  Program& program = scratch_.program;
  std::set<std::string> seen{modeOf(from) + panelsOf(from)};
  std::vector<std::pair<Scene, Route>> reached{{sceneAt(from), Route{}}};
  for (std::size_t i = 0; i < reached.size() && i < kMostScenes; ++i) {
    for (Control* const each : candidates) {
      putUp(reached[i].first, program);
      if (program.door.click(*each) || !seen.insert(modeOf(program) + panelsOf(program)).second) continue;
      Route route = reached[i].second;
      route.emplace_back(each->name());
      if (goal(program)) return route;
      reached.emplace_back(sceneAt(program), std::move(route));
    }
  }
  return {};
}

}  // namespace tessarine::script
