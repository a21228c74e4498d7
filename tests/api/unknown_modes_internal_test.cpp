// Modes of model 431 above those that a header can name: item 2 has no form there. The test sets
// the mode in the context.
#include <gtest/gtest.h>

#include "api/context.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace test {
namespace {

TEST(UnknownModes, Item2OfModel431StaysWhereItIs) {
  TempFile const file(
      Startable(Model431("OBA ").Item(2, samples::Body().Fill(300, 1)).EndOfData()));
  for (int const mode : {4, 5, 7, 8, -1}) {
    SCOPED_TRACE(mode);
    Session session;
    ASSERT_EQ(session.Start(file.Path()), QV_OK);
    auto& state = *static_cast<qvslm::TranslateContext*>(session.Context());
    state.Mode = static_cast<qvslm::i16>(mode);
    qvslm::i32 const offset = state.FileOffset;
    for (qvslm::u32 count = 1; count <= 3; ++count) {
      EXPECT_EQ(session.Next(), QV_OK);
      EXPECT_EQ(session.Code(), QV_NO_RECORD);
      EXPECT_EQ(state.FileOffset, offset);
      EXPECT_EQ(state.Count2, count);
    }
  }
}

}  // namespace
}  // namespace test
