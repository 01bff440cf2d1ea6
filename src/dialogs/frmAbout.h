// The About box: names the program and starts the host's system information tool.
#pragma once

#include <cstdint>
#include <string>

#include "engine/Module1.h"
#include "forms/Build.h"
#include "forms/Form.h"

namespace tessarine {

class frmAbout : public forms::Form {
 public:
  frmAbout(forms::FormList& forms, Module1& module);

  void Form_Load() override;
  void cmdOK_Click();
  void cmdSysInfo_Click();

  // Starts the system information tool, or says that there is none.
  void StartSysInfo();
  // Reads one value of the host's registry: a text, or a double word as its decimal digits. False: not read.
  bool GetKeyValue(std::uint32_t KeyRoot, const std::string& KeyName, const std::string& SubKeyRef,
                   std::string& KeyVal);

  // clang-format off
  forms::One<forms::PictureBox> picIcon{*this, "picIcon", "", forms::at(240, 240, 960, 960)};
  forms::One<forms::Label> lblTitle       {*this, "lblTitle", "", forms::at(1440, 240, 4900, 300), forms::heading};
  forms::One<forms::Label> lblVersion     {*this, "lblVersion", "Rev. B1", forms::at(1440, 560, 4900, 280)};
  forms::One<forms::Label> lblDescription {*this, "lblDescription", "Synthesizer Control", forms::at(1440, 960, 4900, 720)};
  forms::Array<forms::Line> Line1{"Line1", {
      {0, *this, "", forms::at(240, 1740, 6100, 20)},
      {1, *this, "", forms::at(240, 1760, 6100, 20)},
    }};
  forms::One<forms::Label> lblDisclaimer  {*this, "lblDisclaimer", "Made for the bench. Check the settings against the chip's data sheet before you power a board.", forms::at(240, 1920, 4200, 780)};
  forms::One<forms::CommandButton> cmdOK{*this, "cmdOK", "OK", forms::at(4740, 1920, 1600, 360), forms::isDefault, forms::isCancel, forms::click(this, &frmAbout::cmdOK_Click)};
  forms::One<forms::CommandButton> cmdSysInfo{*this, "cmdSysInfo", "&System Info...", forms::at(4740, 2400, 1600, 360), forms::click(this, &frmAbout::cmdSysInfo_Click)};
  // clang-format on

 private:
  // The path of the tool; a Fault when the host names none.
  [[nodiscard]] std::string toolPath();

  Module1& module_;
};

}  // namespace tessarine
