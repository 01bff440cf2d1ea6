#include "apps/ReachReader.h"

#include <optional>
#include <string_view>
#include <system_error>

#include "board/ChipMap.h"
#include "engine/ChipType.h"
#include "engine/Numbers.h"
#include "engine/PLL.h"
#include "engine/Rounding.h"
#include "engine/Types.h"
#include "platform/Fault.h"
#include "platform/Text.h"
#include "setup/BandSetupFile.h"
#include "setup/TextFile.h"

namespace tessarine {

namespace {

Integer integerOf(const forms::TextBox& box, std::string_view field) {
  return leadingInteger(box.Text.get(), field);
}

FracSetup fracSetupOf(const std::string& path) { return parseFracSetup(readTextFile(path), path); }
BandTable bandTableOf(const std::string& path) { return parseBandTable(readTextFile(path), path); }

// The message of a refused file names the prompt of its field.
template <class Read>
void forField(const forms::Label& prompt, Read&& read) {
  try {
    read();
  } catch (const Fault& fault) {
    throw withPrompt(fault, prompt.Caption);
  }
}

// The timers take no part in the output, but a load is refused for them.
void requireTimers(const PllForm1& window) {
  const double counter = leadingNumber(window.Text36(2).Text.get());
  const auto require = [&](double offset) { (void)toInteger(counter + offset, "Time Out Counter"); };
  require(0);
  const std::string timer = window.Combo10(4).Text();
  if (timer == "SW1/SW2" || timer == "SW3") require(-7);
  if (timer == "ICP") require(7);
}

// What a band file says in place of the panel's pump current, if it is a number at all.
std::optional<double> pumpOf(const BandTable& bands, double vcoMHz) {
  const std::string setting = bands.settingAt(toSingle(vcoMHz));
  if (!startsWithNumber(setting)) return std::nullopt;
  return roundHalfEven(leadingNumber(setting));
}

}  // namespace

template <class Content>
const Content& ReadFile<Content>::read(const std::string& path, Parse parse) {
  std::error_code missing;
  const auto time = std::filesystem::last_write_time(path, missing);
  const auto size = missing ? 0 : std::filesystem::file_size(path, missing);
  if (!known_ || missing || path != path_ || time != time_ || size != size_) {
    known_ = false;
    path_ = path;
    time_ = time;
    size_ = size;
    fault_.clear();
    try {
      content_ = parse(path);
    } catch (const Fault& fault) {
      fault_ = fault.what();
    }
    known_ = !missing;
  }
  if (!fault_.empty()) throw Fault(fault_);
  return content_;
}

board::Reach ReachReader::reach(Program& program) {
  const Integer index = program.window.CurrentModelIndex;
  const board::ChipModel* const chip =
      index == 0 ? nullptr : board::findChipModel(program.window.pllM(index).Caption.get());
  if (chip != nullptr) return board::reachOf(*chip, read(program));
  board::Reach none;
  none.refused = "no model is picked";
  return none;
}

board::ReachFields ReachReader::read(Program& program) {
  const PllForm1& window = program.window;
  board::ReachFields fields;
  fields.vcoMHz = leadingNumber(window.VCOText.Text.get());
  fields.referenceMHz = leadingNumber(window.RefText.Text.get());
  fields.stepKHz = leadingNumber(window.CompText.Text.get());
  if (program.window.hasPanel(ChipPanel::ADF4193) && !(fields.vcoMHz > 0)) {
    fields.refused = "VCO Output Frequency is not above 0: nothing is sent";
    return fields;
  }
  // In the order of a load, which tells the first fault.
  try {
    fields.prescaler = leadingInteger(trimmed(window.PrescalarText.Text.get()), "PreScalar");
    readPanels(program, fields);
    readSetups(program, fields);
    if (window.hasPanel(ChipPanel::SKY72300)) readSky(window, fields);
  } catch (const Fault& fault) {
    fields.refused = fault.what();
  }
  return fields;
}

// All panels are read for every model; those of the model in use count.
void ReachReader::readPanels(Program& program, board::ReachFields& fields) {
  const PllForm1& window = program.window;
  const double resync = integerOf(window.Text26, "Resync");
  const double r415x = integerOf(window.Text27, "RF R Counter");
  const double r4193 = integerOf(window.Text36(0), "RF R Counter Divide Ratio");
  (void)integerOf(window.Text36(1), "Phase Value");
  requireTimers(window);

  if (window.hasPanel(ChipPanel::ADF4193)) {
    fields.r = r4193;
    fields.doubler = window.Check16.Value == 1;
    fields.halver = window.Combo10(1).Text() == "Enable";
  } else if (window.hasPanel(ChipPanel::ADF4252)) {
    fields.r = leadingNumber(window.RText.Text.get());
    fields.doubler = window.XLabel.Caption.get() == "1";
  } else {
    fields.r = r415x;
    fields.doubler = window.Check11(2).Value == 1;
    fields.lowestTerms = window.Label43.Caption.get() != "Normal Mode";
    fields.resync = static_cast<int>(resync);
  }
}

// What a new file lacks stays as the file before has left it.
void ReachReader::readSetups(Program& program, board::ReachFields& fields) {
  const PllForm1& window = program.window;
  const PLL& pll = program.module.ThePLL();
  const std::string path = window.Text38.Text.get();
  if (!path.empty()) {
    forField(window.SetupLabel, [&] {
      const FracSetup& setup = setup_.read(path, fracSetupOf);
      if (window.hasPanel(ChipPanel::ADF4193))
        fields.file = {.detectorMHz = setup.PFD.value_or(pll.PFDFromFile),
                       .modulus = setup.MOD.value_or(pll.ModFromFile),
                       .prescaler = setup.P.value_or(pll.PreScalarFromFile)};
    });
  }
  const std::string bandPath = window.Text40.Text.get();
  if (bandPath.empty()) return;
  forField(window.Label62(7),
           [&] { fields.sky.bandPump = pumpOf(bands_.read(bandPath, bandTableOf), fields.vcoMHz); });
}

void ReachReader::readSky(const PllForm1& window, board::ReachFields& fields) {
  const std::string path = window.Text47.Text.get();
  if (!path.empty()) {
    forField(window.Label62(9),
             [&] { fields.sky.bandPump = pumpOf(ownBands_.read(path, bandTableOf), fields.vcoMHz); });
  }
  fields.sky.mainPump = integerOf(window.Text46(2), "Main: chrg pump");
  fields.sky.auxiliaryPump = integerOf(window.Text46(3), "Aux: chrg pump");
  fields.sky.division = integerOf(window.Text46(0), "Main: Ref Div Value");
  (void)integerOf(window.Text46(1), "Aux: Ref Div Value");
  fields.sky.integerOnly = window.Label73(2).Caption.get() == "1";
  fields.sky.tenBits = window.Label73(3).Caption.get() == "1";
}

}  // namespace tessarine
