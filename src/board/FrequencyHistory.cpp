#include "board/FrequencyHistory.h"

#include <cstddef>
#include <ostream>
#include <string>

#include "board/NumberText.h"

namespace tessarine::board {

void saveCsv(const FrequencyHistory& history, std::ostream& out) {
  out << "time_s,output_MHz,locked\n";
  for (std::size_t index = 0; index < history.size(); ++index) {
    const FrequencyPoint& point = history[index];
    const bool runs = point.outputMHz != 0;
    out << fixedText(static_cast<double>(point.time) / 1e6, 6) << ','
        << (runs ? fixedText(point.outputMHz, 6) : std::string()) << ',' << (point.locked ? "1\n" : "0\n");
  }
}

}  // namespace tessarine::board
