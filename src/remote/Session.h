// One client: what it has written and not yet seen carried out, its errors and registers, and what it is
// replied.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "remote/Hands.h"
#include "remote/Status.h"
#include "remote/Syntax.h"

namespace tessarine::remote {

class Session : public Actor {
 public:
  static constexpr std::size_t kLongestLine = 65536;

  // Carries a command out: replies, or throws Refused, or Held for one that is to be begun anew.
  using Perform = std::function<void(Session&, const Command&)>;

  Session(const Hands& hands, Perform perform) : hands_(hands), perform_(std::move(perform)) {}
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Takes what the client has written.
  void receive(std::string_view bytes);
  // False while there is enough to do.
  [[nodiscard]] bool takesMore() const { return queued_ < kLongestLine && !isBrowser_; }
  // A browser has asked: a page in it must not work the bench.
  [[nodiscard]] bool isBrowser() const { return isBrowser_; }

  // Whether a command waits that nothing holds up.
  [[nodiscard]] bool canRun() const;
  // Carries it out. It may let events run, and so come back here.
  void runNext();
  // Nothing is left to do or under way.
  [[nodiscard]] bool isIdle() const {
    return commands_.empty() && lines_.empty() && !isBusy_ && overlapped_ == 0;
  }

  // For commands. Replies to one line are joined.
  void reply(std::string_view text);
  [[nodiscard]] bool hasReplied() const { return hasReplied_; }
  Status status;
  // Carries out what does not hold up the commands behind it.
  void overlap(const std::function<void()>& action);
  // Throws Held while such an action is under way.
  void awaitCompletion() const {
    if (overlapped_ > 0) throw Held::byOwn;
  }
  // Sets the event when all such actions are over.
  void tellCompletion();
  // Clears errors and events, and tells of no completion that is still to come.
  void clear() {
    status.clear();
    tellsCompletion_ = false;
  }

  void takeMessage(const std::string& text) override { status.add(-200, text); }
  void windowOpened() override { release(); }

  // What is to be sent.
  std::string output;
  // The command begun last.
  [[nodiscard]] const std::string& lastCommand() const { return last_; }
  // Called when the commands behind one that runs may go on.
  std::function<void()> onRelease;

 private:
  struct Line {
    std::string text;
    bool isTooLong = false;
  };

  void take(std::string_view piece);
  void endLine();
  void beginLine();
  void endReplies();
  void endCommand();
  void release();
  [[nodiscard]] bool isHeld() const;

  const Hands& hands_;
  Perform perform_;
  std::string line_;  // the one that is coming in; of one too long, its end
  bool lineIsTooLong_ = false;
  bool isFirstLine_ = true;
  bool isBrowser_ = false;
  std::deque<Line> lines_;
  std::size_t queued_ = 0;  // bytes in lines_, and some for each line

  std::deque<std::string> commands_;  // of the line begun last
  std::string path_;
  std::string last_;
  bool hasReplied_ = false;
  bool isBusy_ = false;       // with a command that holds up the next
  bool* released_ = nullptr;  // of that command
  std::optional<Held> held_;  // the command that comes next
  int overlapped_ = 0;
  bool tellsCompletion_ = false;
};

}  // namespace tessarine::remote
