// The program's fields as a load would read them, for the board to tell its reach by.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "board/Reach.h"
#include "engine/BandTable.h"
#include "setup/FracSetupFile.h"
#include "window/Program.h"

namespace tessarine {

// What a setup file says, read again only when the file is another one. A Fault is kept like a content.
template <class Content>
class ReadFile {
 public:
  using Parse = Content (*)(const std::string& path);
  [[nodiscard]] const Content& read(const std::string& path, Parse parse);

 private:
  std::string path_;
  std::filesystem::file_time_type time_;
  std::uintmax_t size_ = 0;
  bool known_ = false;
  Content content_;
  std::string fault_;
};

class ReachReader {
 public:
  // Sends nothing and changes nothing.
  [[nodiscard]] board::ReachFields read(Program& program);
  // The reach of the chip in the model menu.
  [[nodiscard]] board::Reach reach(Program& program);

 private:
  void readPanels(Program& program, board::ReachFields& fields);
  void readSetups(Program& program, board::ReachFields& fields);
  void readSky(const PllForm1& window, board::ReachFields& fields);

  ReadFile<FracSetup> setup_;
  ReadFile<BandTable> bands_;
  ReadFile<BandTable> ownBands_;
};

}  // namespace tessarine
