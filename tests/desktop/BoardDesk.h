// The program on a virtual board with the board's window on the screen. Waits take no real time, and let
// events of the screen run as the program on a screen does.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <optional>
#include <stdexcept>
#include <string>

#include "board/VirtualBoard.h"
#include "desktop/board/BoardWindow.h"
#include "engine/PLL.h"
#include "support/FakePlatform.h"
#include "support/Hand.h"
#include "window/Program.h"

namespace tessarine::desktop {

class EventfulScreen : public FakeScreen {
 public:
  using FakeScreen::FakeScreen;
  void processEvents() override {
    QCoreApplication::processEvents();
    FakeScreen::processEvents();
  }
};

enum View { kChip, kRegisters, kWire, kFrequency };

struct BoardDesk : Hand {
  explicit BoardDesk(View view = kChip) : Hand(program) {
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
  [[nodiscard]] Widget* find(const char* name) {
    for (QWidget* const widget : window.findChildren<QWidget*>(QString::fromLatin1(name))) {
      if (auto* const found = dynamic_cast<Widget*>(widget)) return found;
    }
    throw std::runtime_error(std::string("no widget ") + name);
  }
  [[nodiscard]] std::string label(const char* name) { return find<QLabel>(name)->text().toStdString(); }
  // What is in the file that this button saves.
  [[nodiscard]] QByteArray saved(const char* button, const char* name) {
    QTest::mouseClick(find(button), Qt::LeftButton);
    QFile file(folder.filePath(QString::fromLatin1(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }

  QTemporaryDir folder;
  FakePlatform host;
  EventfulScreen screen{host.clock};
  board::VirtualBoard port{{[this] { return host.clock.elapsed; }, [] { return 10.0; }},
                           [] { return board::Cable{}; }};
  Platform platform{port, port, port, host.host, host.clock, screen};
  Program program{platform};
  PllForm1& form = program.window;
  BoardWindow window{{.board = port.board(), .virtualBoard = &port, .askedMHz = [this] {
                        const double asked = program.module.ThePLL().Fvco;
                        return asked > 0 ? std::optional<double>(asked) : std::nullopt;
                      }}};
};

}  // namespace tessarine::desktop
