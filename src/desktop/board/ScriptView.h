// The session as a script: the recording as it grows, a snapshot of the settings, and scripts that run.
#pragma once

#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <cstdint>
#include <optional>
#include <string>

#include "desktop/board/BoardView.h"
#include "desktop/board/Saving.h"
#include "desktop/board/ScriptFeed.h"

namespace tessarine::desktop {

class ScriptView : public BoardView, private ScriptRun {
 public:
  // `saving` outlives the view.
  ScriptView(ScriptFeed feed, const Saving& saving);
  void take(const board::EvaluationBoard& board, std::optional<double> askedMHz) override;
  [[nodiscard]] bool isUpToDate() const;

  // Shows the script of this file and carries it out; nothing while another one runs.
  void run(const QString& path);

 private:
  enum Page { kRecording, kSnapshot, kScript };

  void fillBar(QBoxLayout& column);
  void showPage(Page page);
  void takeSnapshot();
  void save();
  void askAndRun();
  void showEnd(ScriptEnd end);
  void mark(int line, const QColor& colour);

  void comesTo(int line) override;
  [[nodiscard]] bool isStopped() const override { return stopped_; }
  void prints(const std::string& text) override;
  void complains(const std::string& text) override;

  ScriptFeed feed_;
  const Saving& saving_;
  QString recording_;
  QString snapshot_;
  QString script_;
  QString scriptName_;
  QString complaint_;
  std::optional<std::uint64_t> shownVersion_;
  bool running_ = false;
  bool stopped_ = false;
  int line_ = 0;  // that the script is at

  QLabel showCaption_{QStringLiteral("S&how")};
  QComboBox shown_;
  QPlainTextEdit text_;
  QPlainTextEdit printed_;
  QLabel status_;
  QPushButton save_{QStringLiteral("Sa&ve...")};
  QPushButton copy_{QStringLiteral("Cop&y")};
  QPushButton takeSnapshot_{QStringLiteral("S&napshot")};
  QPushButton run_{QStringLiteral("R&un a script...")};
  QPushButton stop_{QStringLiteral("S&top")};
};

}  // namespace tessarine::desktop
