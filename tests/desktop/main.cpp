#include <gtest/gtest.h>

#include <QApplication>

#include "desktop/Desktop.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  tessarine::desktop::dress(application);
  return RUN_ALL_TESTS();
}
