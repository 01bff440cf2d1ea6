#include "script/Route.h"

#include <set>
#include <tuple>
#include <utility>

namespace tessarine::script {
namespace {

using forms::Control;
using forms::Kind;

// The sweep's own fields and buttons come and go with its two options, which are settings.
bool belongsToSweep(const PllForm1& window, const Control& control) {
  return control.container() == &window.Frame2(2);
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

bool hasCaption(const PllForm1& window, const Control& control) {
  for (const auto& [index, prompt] : window.Label16.members()) {
    if (&prompt == &control) return true;
  }
  return control.kind() == Kind::Frame || control.kind() == Kind::CommandButton;
}

template <class Visit>
void visitCaption(Control& control, Visit&& visit) {
  switch (control.kind()) {
    case Kind::Label:
      return visit(static_cast<forms::Label&>(control).Caption);
    case Kind::Frame:
      return visit(static_cast<forms::Frame&>(control).Caption);
    case Kind::CommandButton:
      return visit(static_cast<forms::CommandButton&>(control).Caption);
    default:
      return;
  }
}

Scene sceneAt(const Program& program) {
  Scene scene{
      .sights = {}, .model = program.module.CurrentModel, .modelIndex = program.window.CurrentModelIndex};
  for (const Control* const control : program.window.controls()) {
    scene.sights.push_back(
        {.visible = control->Visible,
         .enabled = control->Enabled,
         .place = control->Place,
         .caption = hasCaption(program.window, *control) ? control->value() : std::string(),
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
    if (hasCaption(program.window, *control)) {
      visitCaption(*control, [&](auto& caption) { caption = sight->caption; });
    }
    if (control->kind() == Kind::Menu) static_cast<forms::Menu*>(control)->Checked = sight->checked;
    ++sight;
  }
}

}  // namespace

std::string sceneOf(const Program& program) {
  const PllForm1& window = program.window;
  std::string text = program.module.CurrentModel + '\n';
  for (const Control* const control : window.controls()) {
    if (belongsToSweep(window, *control)) continue;
    const bool isMode = control->container() == &window.Mode1;
    const bool checked = isMode && static_cast<const forms::Menu*>(control)->Checked;
    text +=
        static_cast<char>('0' + (control->Visible ? 1 : 0) + (control->Enabled ? 2 : 0) + (checked ? 4 : 0));
    if (hasCaption(window, *control)) text += control->value() + '\n';
  }
  const Twips place = window.Frame24.Place;  // a panel may be open without room
  return window.Frame24.Visible ? text + std::to_string(place.Width) : text;
}

RouteFinder::RouteFinder(const Program& present) : present_(present) {}

std::vector<Control*> RouteFinder::actions(Models models) {
  PllForm1& window = scratch_.program.window;
  std::vector<Control*> found{&window.ContinueCommand};
  for (auto& [index, entry] : window.pllM.members()) {
    const std::string caption = entry.Caption;
    const bool isThatOne =
        present_.window.GeneralFrame.Caption.get().find(' ' + caption + ' ') != std::string::npos ||
        present_.module.CurrentModel == caption;
    if (!entry.isSeparator() && (models == Models::all || (models == Models::thatOne && isThatOne))) {
      found.push_back(&entry);
    }
  }
  found.push_back(&window.ACommand);
  // The crosses that close the panels.
  for (Control* const control : window.controls()) {
    if (control->Click && control->value() == "X") found.push_back(control);
  }
  for (Control* const mode : window.Mode1.children()) found.push_back(mode);
  found.push_back(&window.Close1);
  return found;
}

std::optional<RouteFinder::Route> RouteFinder::find(const Program& from, const Goal& goal, Models models) {
  constexpr std::size_t kMostScenes = 4000;
  if (goal(from)) return Route{};
  const std::vector<Control*> clicks = actions(models);
  Program& program = scratch_.program;
  std::set<std::string> seen{sceneOf(from)};
  std::vector<std::pair<Scene, Route>> reached{{sceneAt(from), Route{}}};
  for (std::size_t i = 0; i < reached.size() && i < kMostScenes; ++i) {
    for (Control* const each : clicks) {
      putUp(reached[i].first, program);
      if (program.door.click(*each) || !seen.insert(sceneOf(program)).second) continue;
      Route route = reached[i].second;
      route.emplace_back(each->name());
      if (goal(program)) return route;
      reached.emplace_back(sceneAt(program), std::move(route));
    }
  }
  return {};
}

}  // namespace tessarine::script
