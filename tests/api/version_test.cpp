// What the library says about itself, and what it does before it has been given any context.
#include <gtest/gtest.h>

#include "qvslmtranslate.h"

namespace {

// First in this program, so that no earlier call has named a context.
TEST(Version, StopBeforeAnyOtherCallDoesNothing) {
  QV_StopTranslate();
  QV_StopTranslate();
}

TEST(Version, BothVersionCallsTellTheSameNumber) {
  EXPECT_EQ(QV_TranVersion(), 323u);
  EXPECT_EQ(QV_TranVersionEx(), 323u);
}

TEST(Version, AContextHasAFixedSize) {
  EXPECT_EQ(QV_GetBufferSize(), 9984u);
}

}  // namespace
