// The board's own window: what the chip sees of what the program sends.
#pragma once

#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QPointer>
#include <QTabWidget>
#include <QTimer>
#include <QWidget>
#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "board/Reach.h"
#include "board/VirtualBoard.h"
#include "desktop/board/ChipView.h"
#include "desktop/board/FrequencyView.h"
#include "desktop/board/LockSign.h"
#include "desktop/board/RegisterView.h"
#include "desktop/board/Saving.h"
#include "desktop/board/ScriptFeed.h"
#include "desktop/board/ScriptView.h"
#include "desktop/board/WireView.h"

namespace tessarine::desktop {

// What the window shows. All of it outlives the window.
struct BoardFeed {
  board::EvaluationBoard& board;
  // The virtual board that can be made faulty; null on a real way out.
  board::VirtualBoard* virtualBoard = nullptr;
  // The output frequency that the program was last asked for, in MHz.
  std::function<std::optional<double>()> askedMHz = [] { return std::optional<double>(); };
  // Called before the window shows for the first time.
  std::function<void()> onFirstShow = [] {};
  // Who works the program from outside, in a line; empty where nobody can.
  std::function<std::string()> remote = [] { return std::string(); };
  // What a load of the fields as they stand would give; empty where nobody can tell.
  std::function<board::Reach()> reach = {};
  // Another number whenever a field is another one.
  std::function<std::uint64_t()> fieldsVersion = [] { return std::uint64_t{0}; };
  ScriptFeed script = {};
};

class BoardWindow : public QWidget {
 public:
  explicit BoardWindow(BoardFeed feed);
  ~BoardWindow() override;
  BoardWindow(const BoardWindow&) = delete;
  BoardWindow& operator=(const BoardWindow&) = delete;

  // Where windows have no places that a program knows (Wayland), the last one shown lies on top: shows this
  // one before the others.
  void openBelow();
  // Elsewhere shows the window beside `other`, which keeps the keyboard, as soon as that one is on the
  // screen. Null: never.
  void openBeside(QWidget* other);
  // Hides the window; brings it to the front where it is hidden or covered. Another one keeps the keyboard.
  void toggle();
  // The operator reaches for a window of the program, which comes to the front.
  void reachedFor(const QWidget& window) { inFront_ = &window == this; }

  // Shows the page of scripts and carries the script of this file out.
  void runScript(const QString& path);

  // False while the board has moved on since the views were last filled.
  [[nodiscard]] bool isUpToDate() const;

  // Where files are saved to; a dialog asks for it unless this is changed.
  [[nodiscard]] Saving& saving() { return saving_; }

 protected:
  bool event(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void placeBeside(const QWidget& other);
  [[nodiscard]] bool isCovered() const;
  void fillHeader(QBoxLayout& column);
  void fillFaults();
  void watch();
  void refresh();
  void takeHeader();

  BoardFeed feed_;
  Saving saving_;
  QTabWidget views_;  // outlives its pages, which it would delete
  ChipView chip_;
  RegisterView registers_;
  WireView wire_;
  FrequencyView frequency_;
  ScriptView script_;

  QLabel name_;
  QLabel output_;
  LockSign lock_;
  QLabel reason_;
  QLabel faultCaption_{QStringLiteral("&Fault")};
  QComboBox fault_;
  QLabel status_;
  QLabel remote_;

  QPointer<QWidget> beside_;  // to open beside, when it is on the screen
  bool opened_ = false;
  bool inFront_ = false;  // of the program's other windows
  std::optional<std::uint64_t> shownVersion_;
  std::optional<double> shownAsked_;
  std::string shownRemote_;
  std::uint64_t shownFields_ = 0;
  // The next refresh. It runs only when there is something new.
  QTimer next_;
  QElapsedTimer sinceRefresh_;
  std::int64_t cost_ = 0;  // of the last refresh with its painting, in nanoseconds
};

// F12 shows and hides the window, wherever in the program it is pressed, for as long as this lives.
class BoardKey : public QObject {
 public:
  explicit BoardKey(BoardWindow& window);
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  BoardWindow& window_;
};

}  // namespace tessarine::desktop
