// The registers as the chip latched them, field by field.
#pragma once

#include <QTreeWidget>
#include <cstdint>
#include <optional>
#include <vector>

#include "desktop/board/BoardView.h"

namespace tessarine::desktop {

class RegisterView : public BoardView {
 public:
  enum Column { kName, kChanged, kBits, kValue, kMeaning, kHex, kBinary, kColumns };

  RegisterView();
  void take(const board::EvaluationBoard& board, std::optional<double> askedMHz) override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  // What the lines of one register show.
  struct Shown {
    std::optional<std::uint32_t> word;
    std::uint32_t changed = 0;  // the bits of the fields that the last load changed
    bool operator==(const Shown&) const = default;
  };
  // A line and the field that it stands for.
  struct FieldLine {
    QTreeWidgetItem* item = nullptr;
    const board::Field* field = nullptr;
  };
  struct RegisterLines {
    QTreeWidgetItem* head = nullptr;
    const board::Register* spec = nullptr;
    std::vector<FieldLine> fields;  // the highest first
    std::optional<Shown> shown;
  };

  void build(const board::Chip* chip);
  void show(RegisterLines& lines, const Shown& now);
  void mark(QTreeWidgetItem& item, bool changed) const;

  QTreeWidget tree_;
  const board::EvaluationBoard* board_ = nullptr;  // the one last taken
  const board::ChipModel* model_ = nullptr;
  std::vector<RegisterLines> registers_;
};

}  // namespace tessarine::desktop
