// Runs the tests in UTC; a test that wants another zone says so with ScopedZone.
#include <gtest/gtest.h>

#include "support/scoped_zone.h"

int main(int argc, char** argv) {
  test::ScopedZone const zone("UTC");
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
