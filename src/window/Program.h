// The program in one piece: its shared values, its windows and the door of the operator's actions.
#pragma once

#include "engine/Module1.h"
#include "forms/Form.h"
#include "forms/Operator.h"
#include "window/PllForm1.h"

namespace tessarine {

struct Program {
  explicit Program(Platform& platform)
      : module(platform), window(forms, module), door(forms, platform.screen) {}

  // Creates and shows the main window. What follows is up to the operator.
  void start() {
    door.run([this] { window.Show(); });
  }

  forms::FormList forms;
  Module1 module;
  PllForm1 window;
  forms::Operator door;
};

}  // namespace tessarine
