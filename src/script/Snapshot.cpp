#include "script/Snapshot.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

#include "script/Recorder.h"
#include "script/Route.h"
#include "script/StandIn.h"
#include "script/WaitedTime.h"

namespace tessarine::script {
namespace {

using forms::Control;
using forms::Kind;
using forms::Setting;
using Clicks = RouteFinder::Clicks;

// Does on a stand-in, which begins as a fresh program, what leads to the settings of `present`. What it does
// is the script: so every line of it is one that the door lets in.
class Copyist {
 public:
  explicit Copyist(const Program& present) : present_(present), routes_(present) {}

  std::string copy() {
    takeWayOut();
    takeWiring();
    takeFieldsOfOtherModels();
    // Picking a model, and closing one, clear fields and set others.
    constexpr int kRounds = 4;
    for (int round = 0; round < kRounds && !arrived(); ++round) {
      goToPresent();
      takeWhatIsInSight(nullptr);
      for (const std::size_t place : differing()) {
        if (differs(place)) (void)reveal(place, round == 0 ? Clicks::panels : Clicks::models);
      }
    }
    goToPresent();
    takeWindows();
    return recorder_.text();
  }

 private:
  // ------------------------------------------------------------------------------------- What differs

  [[nodiscard]] const Control& wanted(std::size_t place) const { return *present_.window.controls()[place]; }
  [[nodiscard]] Control& own(std::size_t place) { return *program_.window.controls()[place]; }

  [[nodiscard]] std::string wantedValue(const Control& control) const {
    const PllForm1& window = present_.window;
    const bool isFile =
        &control == &window.Text38 || &control == &window.Text40 || &control == &window.Text47;
    std::string value = control.value();
    if (!isFile || value.empty()) return value;
    std::error_code vanished;
    const std::filesystem::path path = std::filesystem::absolute(value, vanished);
    return vanished ? value : path.string();
  }

  [[nodiscard]] bool differs(std::size_t place) {
    const Control& control = wanted(place);
    if (control.setting() == Setting::none || control.value() == own(place).value()) return false;
    // Selecting one option clears the others.
    if (control.kind() == Kind::OptionButton) return control.value() == "1";
    return wantedValue(control) != own(place).value();
  }

  [[nodiscard]] std::vector<std::size_t> differing() {
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < present_.window.controls().size(); ++i) {
      if (differs(i)) places.push_back(i);
    }
    // The sweep's two options hide fields of one another.
    std::stable_partition(places.begin(), places.end(),
                          [this](std::size_t place) { return wanted(place).kind() != Kind::OptionButton; });
    return places;
  }

  [[nodiscard]] bool arrived() { return isThere() && differing().empty(); }

  // ------------------------------------------------------------------------------------------- Actions

  void click(std::string_view name) {
    if (Control* const control = program_.forms.find(name)) (void)program_.door.click(*control);
  }

  void follow(const RouteFinder::Route& route) {
    for (const std::string_view name : route) click(name);
  }

  void take(Control& control, const std::string& value) {
    if (control.setting() == Setting::byClick) {
      (void)program_.door.click(control);
    } else {
      (void)program_.door.set(control, value);
    }
  }

  // `within`: null for everywhere.
  void takeWhatIsInSight(const forms::Container* within) {
    for (const std::size_t i : differing()) {
      const bool isMeant = within == nullptr || own(i).container() == within;
      if (isMeant && differs(i) && own(i).isVisible() && own(i).isEnabled()) {
        take(own(i), wantedValue(wanted(i)));
      }
    }
  }

  // Brings a control in sight and takes all of its container: picking its model may have set others there.
  bool reveal(std::size_t place, Clicks clicks) {
    // The delay of a sweep is in sight in one of its two options alone.
    const bool isOfSweep = own(place).container() == &program_.window.Frame2(2);
    const auto isInSight = [place, isOfSweep](const Program& there) {
      const Control& control = *there.window.controls()[place];
      return isOfSweep ? control.container()->isVisible() : control.isVisible();
    };
    if (!go(isInSight, Clicks::modes) && !go(isInSight, clicks)) return false;
    if (!own(place).isVisible()) click("AutoOption1");
    takeWhatIsInSight(own(place).container());
    return true;
  }

  [[nodiscard]] bool isThere() const {
    return panelsOf(program_) == panelsOf(present_) && modeOf(program_) == modeOf(present_);
  }

  bool go(const RouteFinder::Goal& goal, Clicks clicks) {
    const auto route = routes_.find(program_, goal, clicks);
    if (route) follow(*route);
    return route.has_value();
  }

  void goToPresent() {
    const auto hasPanels = [panels = panelsOf(present_)](const Program& there) {
      return panelsOf(there) == panels;
    };
    const auto hasMode = [mode = modeOf(present_)](const Program& there) { return modeOf(there) == mode; };
    const auto hasBoth = [&](const Program& there) { return hasMode(there) && hasPanels(there); };
    const auto hasMark = [mark = markOf(present_)](const Program& there) { return markOf(there) == mark; };
    // "Close" shows the general mode's frame whatever the mark is, so there the mode comes first.
    if (!showsItsMode(present_) && go(hasMode, Clicks::modes) &&
        (go(hasBoth, Clicks::thatModel) || go(hasBoth, Clicks::models))) {
      return;
    }
    const bool hasThem = go(hasPanels, Clicks::thatModel) || go(hasPanels, Clicks::models);
    if (!go(hasMode, Clicks::modes)) (void)go(hasMark, Clicks::modes);
    if (hasThem) return;
    // In the middle of a command the window may look as it never does between them.
    const auto isAlike = [this](const Program& there) {
      return there.module.CurrentModel == present_.module.CurrentModel &&
             there.window.GeneralFrame.isVisible() == present_.window.GeneralFrame.isVisible();
    };
    (void)go(isAlike, Clicks::models);
  }

  // --------------------------------------------------------------------------------------------- Steps

  void takeWayOut() {
    const PllForm1& window = present_.window;
    for (const auto& [index, option] : window.IOOption.members()) {
      if (option.Value && !program_.window.IOOption(index).Value) {
        (void)program_.door.click(program_.window.IOOption(index));
      }
    }
  }

  // Behind "Continue ...", which sets the port's address, and in front of the fields: the main window coming
  // back to the front takes back what one of them has told the engine.
  void takeWiring() {
    StandIn trial;
    trial.program.door.click(trial.program.window.Parallel);
    if (!setWiring(trial.program)) return;
    (void)trial.program.door.click(trial.program.window.parallelForm.OKButton);
    if (present_.window.GeneralFrame.Visible) follow({"ContinueCommand"});
    (void)program_.door.click(program_.window.Parallel);
    (void)setWiring(program_);
    // Pins that the dialog refuses are in its fields all the same.
    ParallelForm& dialog = program_.window.parallelForm;
    (void)program_.door.click(trial.messages == 0 ? static_cast<Control&>(dialog.OKButton)
                                                  : static_cast<Control&>(dialog.CancelButton));
  }

  bool setWiring(Program& program) const {
    bool changes = false;
    const auto& wantedFields = present_.window.parallelForm.controls();
    const auto& fields = program.window.parallelForm.controls();
    for (std::size_t i = 0; i < fields.size(); ++i) {
      if (fields[i]->kind() != Kind::TextBox || fields[i]->value() == wantedFields[i]->value()) continue;
      changes = true;
      (void)program.door.type(*fields[i], wantedFields[i]->value());
    }
    return changes;
  }

  // What can only be reached by picking another model goes first: picking this one comes last.
  void takeFieldsOfOtherModels() {
    Copyist ahead(present_);
    ahead.takeWayOut();
    ahead.goToPresent();
    ahead.takeWhatIsInSight(nullptr);
    std::vector<std::size_t> others;
    for (const std::size_t place : ahead.differing()) {
      if (ahead.differs(place) && !ahead.reveal(place, Clicks::panels)) others.push_back(place);
    }
    for (const std::size_t place : others) {
      if (differs(place)) (void)reveal(place, Clicks::models);
    }
  }

  // Picking a model closes the dialog of the wiring, so the windows come last.
  void takeWindows() {
    const PllForm1& window = present_.window;
    if (window.parallelForm.Visible) (void)program_.door.click(program_.window.Parallel);
    if (window.aboutForm.Visible) (void)program_.door.click(program_.window.About1);
    const forms::Form* const active = present_.forms.active();
    for (forms::Form* const form : program_.forms.all()) {
      if (active != nullptr && form->name() == active->name() && program_.forms.active() != form) {
        (void)program_.door.activate(*form);
      }
    }
  }

  const Program& present_;
  RouteFinder routes_;
  StandIn standIn_;
  Program& program_ = standIn_.program;
  WaitedTime time_{[this] { return standIn_.time.now(); }, true};
  Recorder recorder_{program_.forms, program_.door, time_};
};

}  // namespace

std::string snapshot(const Program& present) { return Copyist(present).copy(); }

}  // namespace tessarine::script
