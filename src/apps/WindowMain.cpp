#include "apps/WindowMain.h"

#include <QApplication>
#include <QString>
#include <QTimer>
#include <exception>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "apps/BoardLink.h"
#include "apps/ReachReader.h"
#include "apps/Recording.h"
#include "apps/RemoteControl.h"
#include "apps/ScriptPlayer.h"
#include "apps/SteadyTime.h"
#include "apps/TraceFile.h"
#include "desktop/Desktop.h"
#include "desktop/SocketWatch.h"
#include "desktop/board/BoardWindow.h"
#include "desktop/board/ScriptFeed.h"
#include "script/Snapshot.h"
#include "window/Program.h"

namespace tessarine {
namespace {

desktop::ScriptFeed scriptFeed(Recording& recording, ScriptPlayer& player, const Program& program) {
  return {.version = [&] { return recording.recorder().version(); },
          .recording = [&] { return recording.recorder().text(); },
          .snapshot = [&] { return script::snapshot(program); },
          .run = [&](const std::string& text, const std::string& name,
                     desktop::ScriptRun& run) { return player.play(text, name, run); }};
}

int run(const ProgramKind& kind, const Options& options, std::vector<char*>& toolkitWords) {
  desktop::Desktop* screen = nullptr;
  const auto tell = [&](const std::string& why) {
    (void)failed(kind, why);
    screen->tell(why);
  };
  if (!options.script.empty() && !std::ifstream(options.script)) {
    return failed(kind, options.script + " cannot be read");
  }
  TraceFile trace(options.trace, tell);
  if (!trace.open()) return failed(kind, options.trace + " cannot be written");

  RemoteControl remote(kind, options);

  int count = static_cast<int>(toolkitWords.size());
  toolkitWords.push_back(nullptr);
  desktop::endWithoutDisplay();
  QApplication application(count, toolkitWords.data());
  desktop::dress(application, kind.name);
  desktop::Desktop desktop;
  screen = &desktop;
  const auto link = linkToBoard(options, remote.screenOver(desktop),
                                {.microseconds = steadyMicroseconds, .bell = [] { QApplication::beep(); }});
  link->onNotice([&](const std::string& text) { desktop.tell(text); });
  // The message of a failed write names the address alone.
  desktop.remark = [&](const std::string& text) {
    return text.starts_with("Error with Output Port Address ") ? link->whyNotOpen() : std::string();
  };
  Program program(link->platform());
  link->connect(program);
  trace.listen(*link);
  const auto server = remote.connect(program, *link);
  std::optional<desktop::SocketWatch> watch;
  if (server) watch.emplace(*server);
  Recording recording(options.record, *link, program,
                      {.microseconds = steadyMicroseconds, .isVirtual = false}, tell);
  ReachReader reach;
  ScriptPlayer player(desktop, program, *link, recording.time());
  desktop::BoardWindow boardWindow({.board = link->board(),
                                    .virtualBoard = link->virtualBoard(),
                                    .askedMHz = [&] { return link->askedMHz(); },
                                    .onFirstShow = [&] { link->listen(); },
                                    .remote = [&] { return server ? server->describe() : std::string(); },
                                    .reach = [&] { return reach.reach(program); },
                                    .fieldsVersion = [&] { return link->fieldsVersion(); },
                                    .script = scriptFeed(recording, player, program)});
  const desktop::BoardKey boardKey(boardWindow);
  desktop.run(program.forms, program.door, [&] {
    if (link->virtualBoard() != nullptr) boardWindow.openBelow();
    program.start();
    recording.open();
    if (link->virtualBoard() != nullptr) boardWindow.openBeside(desktop.windowOf(program.window));
    if (options.script.empty()) return;
    // When the windows are there to be looked at.
    QTimer::singleShot(0, &boardWindow,
                       [&] { boardWindow.runScript(QString::fromStdString(options.script)); });
  });
  const bool isRecorded = recording.finish();
  return trace.finish() && isRecorded ? 0 : kBadUsage;
}

}  // namespace

int windowMain(const ProgramKind& program, int count, char** words) {
  std::vector<char*> own(words, words + count);
  std::vector<char*> toolkits = takeToolkitWords(own);
  const Options options = readOptions(program, own);
  if (options.done) return *options.done;
  try {
    return run(program, options, toolkits);
  } catch (const std::exception& fault) {
    return failed(program, fault.what());
  }
}

}  // namespace tessarine
