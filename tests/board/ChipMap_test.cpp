// The tables of the chips against themselves.
#include "board/ChipMap.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

namespace tessarine::board {
namespace {

TEST(ChipMap, FieldsAndSelectorCoverEachBitOfARegisterOnceAndHaveTheirOwnNames) {
  for (const ChipModel& model : chipModels()) {
    std::set<std::string_view> registers;
    for (std::size_t index = 0; index < model.map->registers.size(); ++index) {
      const Register& spec = model.map->registers[index];
      SCOPED_TRACE(std::string(model.name) + " " + std::string(spec.name));
      EXPECT_TRUE(registers.insert(spec.name).second);
      ASSERT_TRUE(spec.width > 0 && spec.width <= 32);
      EXPECT_EQ(spec.selectorValue & ~spec.selectorMask, 0U);
      std::uint32_t covered = spec.selectorMask;
      EXPECT_EQ(covered & ~spec.mask(), 0U);
      std::set<std::string_view> fields;
      for (const Field& field : spec.fields) {
        ASSERT_TRUE(field.width > 0 && field.offset + field.width <= spec.width) << field.name;
        EXPECT_EQ(covered & field.mask(), 0U) << field.name;
        covered |= field.mask();
        EXPECT_TRUE(field.reserved || fields.insert(field.name).second) << field.name;
        if (field.meanings.empty()) continue;
        EXPECT_EQ(field.meanings.size(), std::size_t{1} << field.width) << field.name;
        for (const std::string_view meaning : field.meanings) EXPECT_FALSE(meaning.empty()) << field.name;
      }
      EXPECT_EQ(covered, spec.mask());
      EXPECT_EQ(model.map->select(spec.selectorValue), index);
      for (const Register& other : model.map->registers.subspan(index + 1)) {
        const std::uint32_t common = spec.selectorMask & other.selectorMask;
        EXPECT_NE(spec.selectorValue & common, other.selectorValue & common) << "no word for two registers";
      }
    }
  }
  EXPECT_EQ(findChipModel("ADF4108"), nullptr);
}

}  // namespace
}  // namespace tessarine::board
