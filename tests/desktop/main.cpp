#include <gtest/gtest.h>

#include <QApplication>
#include <filesystem>

#include "desktop/Desktop.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  std::filesystem::current_path("/");  // which the file browser shows: what fits must not depend on it
  QApplication application(argc, argv);
  tessarine::desktop::dress(application);
  return RUN_ALL_TESTS();
}
