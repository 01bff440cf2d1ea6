// The program on a virtual board with the board's window on the screen. Waits take no real time, and let
// events of the screen run as the program on a screen does.
#pragma once

#include <QFile>
#include <QTemporaryDir>
#include <optional>
#include <string>

#include "board/ChipMap.h"
#include "board/Reach.h"
#include "board/VirtualBoard.h"
#include "desktop/Bench.h"
#include "desktop/board/BoardWindow.h"
#include "engine/PLL.h"
#include "support/Hand.h"

namespace tessarine::desktop {

struct EventfulScreen : FakeScreen {
  using FakeScreen::FakeScreen;
  void processEvents() override {
    QCoreApplication::processEvents();
    FakeScreen::processEvents();
  }
};

enum View { kChip, kRegisters, kWire, kFrequency, kScript };

struct BoardDesk : Hand {
  explicit BoardDesk(View view = kChip, bool withForms = false) : Hand(program) {
    if (withForms) desktop.attach(program.forms, program.door);
    host.host.version.reset();  // a host that needs no driver and so no wait for one
    program.start();
    open();
    window.saving().ask = [this](QWidget&, const FileKind& kind) { return folder.filePath(kind.suggested); };
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
    show(view);
  }

  void pick(const std::string& model) {
    Hand::pick(model);
    port.board().plug(model);
    settle();
  }
  // An ADF4113 at that frequency, then silence enough to end the load.
  void load(const char* megahertz = "900") {
    pick("ADF4113");
    tune(megahertz);
    click("AllCommand");
    host.clock.elapsed += board::EvaluationBoard::kPauseMicroseconds;
    settle();
  }

  // Lets the window catch up.
  void settle() {
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.isUpToDate(); }));
    QTest::qWait(1);
  }
  void show(View view) {
    find<QTabWidget>("boardViews")->setCurrentIndex(view);
    settle();
  }
  template <class Widget = QWidget>
  [[nodiscard]] Widget* find(const std::string& name) {
    return objectIn<Widget>(window, name);
  }
  // What is read on a label or a button; empty where it is hidden.
  [[nodiscard]] std::string text(const std::string& name) {
    return find(name)->isVisible() ? find(name)->property("text").toString().toStdString() : std::string();
  }
  // Each as "name: text".
  template <class... Texts>
  void expectTexts(const Texts&... texts) {
    for (const std::string line : {texts...}) {
      const std::string name = line.substr(0, line.find(": "));
      EXPECT_EQ(name + ": " + text(name), line);
    }
  }
  void press(const char* button) { QTest::mouseClick(find(button), Qt::LeftButton); }
  // What is in the file that this button saves.
  [[nodiscard]] std::string saved(const char* button, const char* name) {
    press(button);
    QFile file(folder.filePath(QString::fromLatin1(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
  }
  // The fields that the reach is worked out from.
  void typed(double vcoMHz, double stepKHz) {
    fields.referenceMHz = 10, fields.prescaler = 32;
    fields.vcoMHz = vcoMHz, fields.stepKHz = stepKHz;
    ++fieldsVersion;
    settle();
  }

  QTemporaryDir folder;
  FakePlatform host;
  EventfulScreen screen{host.clock};
  board::VirtualBoard port{{[this] { return host.clock.elapsed; }, [] { return 10.0; }},
                           [] { return board::Cable{}; }};
  Platform platform{port, port, port, host.host, host.clock, screen};
  Program program{platform};
  PllForm1& form = program.window;
  Desktop desktop;  // where the forms are on the screen as well
  board::ReachFields fields;
  std::uint64_t fieldsVersion = 0;
  BoardWindow window{{.board = port.board(),
                      .virtualBoard = &port,
                      .askedMHz =
                          [this] {
                            const double asked = program.module.ThePLL().Fvco;
                            return asked > 0 ? std::optional<double>(asked) : std::nullopt;
                          },
                      .reach = [this] { return board::reachOf(*board::findChipModel("ADF4113"), fields); },
                      .fieldsVersion = [this] { return fieldsVersion; }}};
};

}  // namespace tessarine::desktop
