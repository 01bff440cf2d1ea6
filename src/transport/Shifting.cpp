// How words reach the chip: bit by bit over clock and data, then a pulse on load enable.
#include <array>
#include <cstddef>
#include <memory_resource>
#include <string>

#include "engine/PLL.h"
#include "platform/Platform.h"
#include "transport/PortAccess.h"
#include "transport/PortLines.h"

namespace tessarine {
namespace {

constexpr Integer kStrobeMs = 10;
constexpr int kR0ExtraLine = 16;  // connector pin 6, raised together with load enable for R0

// The fixed strobe keeps what is no line of the default wiring, and pulses the default load enable.
constexpr int kFixedStrobeKeeps = 232;
constexpr int kFixedLoadEnable = 4;

}  // namespace

void PLL::ShiftOut(const String& Word) {
  if (usesUsb(module_)) {
    module_.platform.usb.UsbShiftWord("B3", "B2", "B1", "B0", 0, Word);
    return;
  }
  // A copy: a port that is retried lets events run, and these may rebuild the member that Word refers to.
  // The word of any chip finds room here, without a visit to the heap.
  std::array<std::byte, 64> room{};
  std::pmr::monotonic_buffer_resource memory(room.data(), room.size());
  const std::pmr::string bits(Word, &memory);
  PortLines port(module_);
  port.write(0);
  for (auto bit = bits.rbegin(); bit != bits.rend(); ++bit) {
    const int data = DATAbit * static_cast<int>(*bit == '1');
    port.write(data);
    const int lines = port.read(data);
    port.write(lines | CLOCKbit);
    port.write(lines & ~CLOCKbit);
  }
}

// Leaves load enable high; it falls with the first write of the next word, or with the end of the load.
void PLL::standardStrobe() {
  PortWrite(module_, module_.PortAddress, 0);
  DelayMs(module_, kStrobeMs);
  PortWrite(module_, module_.PortAddress, LEbit);
  DelayMs(module_, kStrobeMs);
}

void PLL::fixedStrobe() {
  const int lines = PortLines(module_).read(0) & kFixedStrobeKeeps;
  PortWrite(module_, module_.PortAddress, lines);
  DelayMs(module_, kStrobeMs);
  PortWrite(module_, module_.PortAddress, lines | kFixedLoadEnable);
  DelayMs(module_, kStrobeMs);
}

void PLL::LoadFstr() {
  ShiftOut(FStr);
  standardStrobe();
}

void PLL::LoadMstr() {
  ShiftOut(MStr);
  standardStrobe();
}

void PLL::LoadRstr() {
  ShiftOut(Rstr);
  standardStrobe();
}

void PLL::LoadNstr() {
  ShiftOut(Nstr);
  standardStrobe();
}

// The numbered words rely on the USB interface's own load pulse.
void PLL::loadNumbered(const String& Word) {
  ShiftOut(Word);
  if (!usesUsb(module_)) standardStrobe();
}

void PLL::LoadR0() {
  ShiftOut(R0);
  if (usesUsb(module_)) return;
  PortWrite(module_, module_.PortAddress, 0);
  PortWrite(module_, module_.PortAddress, LEbit + kR0ExtraLine);
}

void PLL::LoadR1() { loadNumbered(r1); }

void PLL::LoadR2() {
  loadNumbered(R2);
  if (!usesUsb(module_)) Prev_R2 = R2;
}

void PLL::LoadR3() { loadNumbered(R3); }

void PLL::LoadR4(const Integer& Index) {
  switch (Index) {
    case 1:
      ShiftOut(R4);
      break;
    case 2:
      ShiftOut(R4_2);
      break;
    case 3:
      ShiftOut(R4_3);
      break;
    default:
      break;  // no such word, and the strobe all the same
  }
  if (!usesUsb(module_)) standardStrobe();
}

void PLL::LoadR5() { loadNumbered(R5); }
void PLL::LoadR6() { loadNumbered(R6); }
void PLL::LoadR7() { loadNumbered(R7); }

void PLL::LoadR8() {
  ShiftOut(R8);
  if (!usesUsb(module_)) fixedStrobe();
}

void PLL::LoadR9() {
  ShiftOut(R9);
  if (!usesUsb(module_)) fixedStrobe();
}

}  // namespace tessarine
