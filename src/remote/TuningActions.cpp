// Model, fields, loads, and what the board makes of them.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "board/Chip.h"
#include "board/ChipMap.h"
#include "board/NumberText.h"
#include "platform/Platform.h"
#include "remote/Actions.h"

namespace tessarine::remote {
namespace {

constexpr const char* kNoValue = "9.91E37";

// What the model menu has checked; empty: none.
std::string modelOf(const Call& call) {
  const int index = call.window().CurrentModelIndex;
  return index == 0 ? std::string() : call.window().pllM(index).Caption.get();
}

// The number that a field is to show.
std::string numberFor(const Field& field, const CommandNumber& number) {
  std::string text = shifted(number.plain, number.exponent - field.power);
  if (field.isInteger) {
    // As it will be rounded: to the nearest, with ties to even.
    const double value = valueOf(text);
    if (!(value >= -32768.5 && value < 32767.5)) throw Refused{-222, text + " does not fit 16 bits"};
  }
  return text;
}

const board::Register* registerNamed(const board::Chip* chip, const std::string& name) {
  if (chip == nullptr) return nullptr;
  for (const board::Register& spec : chip->map().registers) {
    if (spec.name == name) return &spec;
  }
  return nullptr;
}

// The box of the model's panel that names the band file; null for a model without one.
forms::Control* bandBox(const Call& call) {
  return modelOf(call).empty() ? nullptr : call.window().bandFileField();
}

// Open far enough to be seen: the panel of the SKY72300-362 first shows one twip wide.
bool isOpen(const forms::Control& box) { return box.isVisible() && box.container()->Place.get().Width > 1; }

}  // namespace

void pickModel(const Call& call) {
  const std::string& wanted = call.arguments.front().text;
  for (auto& [index, entry] : call.window().pllM.members()) {
    if (!entry.isSeparator() && entry.Caption == wanted) return call.click(entry);
  }
  throw Refused{-224, "there is no model " + shown(wanted)};
}

void tellModel(const Call& call) { call.reply(quotedText(modelOf(call))); }

void listModels(const Call& call) {
  std::vector<std::string> models;
  for (const auto& [index, entry] : call.window().pllM.members()) {
    if (!entry.isSeparator()) models.push_back(entry.Caption);
  }
  call.reply(quotedList(models));
}

void setField(const Call& call) {
  const std::string text = numberFor(*call.field, call.arguments.front().number);
  call.enter(call.field->mode);
  call.set(call.hands.control(call.field->control), text);
}

void tellField(const Call& call) {
  const auto number = fieldNumber(call.hands.control(call.field->control).value());
  call.reply(number ? shifted(*number, call.field->power) : kNoValue);
}

void setPrescaler(const Call& call) { call.set(call.window().PrescalarText, call.arguments.front().text); }

void tellPrescaler(const Call& call) { call.reply(quotedText(call.window().PrescalarText.Text.get())); }

void load(const Call& call) {
  call.enter(Mode::general);
  PllForm1& window = call.window();
  const bool isADF4193 = window.Command14(0).Visible;
  call.click(isADF4193 ? static_cast<forms::Control&>(window.Command14(0)) : window.AllCommand);
}

void initialize(const Call& call) {
  call.enter(Mode::general);
  call.click(call.window().Command14(1));
}

void tellOutput(const Call& call) {
  constexpr double kHzPerMHz = 1e6;
  const std::optional<double> output = call.instrument.board.tuning().outputMHz;
  call.reply(output ? plainText(*output * kHzPerMHz) : kNoValue);
}

void tellLock(const Call& call) {
  const bool readsPin = call.instrument.readsLockPin && call.instrument.readsLockPin();
  call.replyFlag(readsPin ? call.instrument.program.module.platform.usb.UsbReadPin("A3") == 1
                          : call.instrument.board.tuning().locked());
}

void listRegisters(const Call& call) {
  std::vector<std::string> names;
  if (const board::Chip* const chip = call.instrument.board.chip()) {
    for (const board::Register& spec : chip->map().registers) names.emplace_back(spec.name);
  }
  call.reply(quotedList(names));
}

void tellRegister(const Call& call) {
  const std::string& name = call.arguments.front().text;
  const board::Chip* const chip = call.instrument.board.chip();
  const board::Register* const spec = registerNamed(chip, name);
  if (spec == nullptr) throw Refused{-224, "there is no register " + shown(name)};
  const auto word = chip->word(static_cast<std::size_t>(spec - chip->map().registers.data()));
  call.reply(quotedText(word ? board::binaryText(*word, spec->width) : std::string()));
}

void setFractionalFile(const Call& call) { call.set(call.window().Text38, call.arguments.front().text); }

void tellFractionalFile(const Call& call) { call.reply(quotedText(call.window().Text38.Text.get())); }

void setBandFile(const Call& call) {
  forms::Control* const box = bandBox(call);
  if (box == nullptr) throw Refused{-221, "the model takes no band file"};
  forms::Control& panelButton = call.window().ACommand;
  const bool wasOpen = isOpen(*box);
  // The button may still offer to close the panel of the model before.
  for (int clicks = 0; !isOpen(*box) && clicks < 2; ++clicks) call.click(panelButton);
  call.set(*box, call.arguments.front().text);
  if (!wasOpen) call.click(panelButton);
}

void tellBandFile(const Call& call) {
  const forms::Control* const box = bandBox(call);
  call.reply(quotedText(box == nullptr ? std::string() : box->value()));
}

}  // namespace tessarine::remote
