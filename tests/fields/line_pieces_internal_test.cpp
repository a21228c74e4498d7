// Lines that no line feed ends. Internal: to the exports only their speed shows.
#include <gtest/gtest.h>

#include "fields/line_pieces.h"

namespace {

using qvslm::LastPieceKnown;
using qvslm::PiecePassed;

constexpr qvslm::u32 kKind = 3;

class LinePieces : public testing::Test {
 protected:
  LinePieces() { qvslm::ForgetPieces(); }
  ~LinePieces() override { qvslm::ForgetPieces(); }
};

TEST_F(LinePieces, LeadToTheLastOfTheirRow) {
  for (int const place : {100, 110, 120}) PiecePassed(kKind, 10, place);
  EXPECT_EQ(LastPieceKnown(kKind, 10, 100), 120);
  EXPECT_EQ(LastPieceKnown(kKind, 10, 110), 120);
  EXPECT_EQ(LastPieceKnown(kKind, 10, 120), 120);
  EXPECT_EQ(LastPieceKnown(kKind, 10, 130), 130);
  EXPECT_EQ(LastPieceKnown(kKind, 10, 90), 90);
  EXPECT_EQ(LastPieceKnown(kKind, 10, 105), 105);  // a row of its own
  EXPECT_EQ(LastPieceKnown(kKind + 1, 10, 100), 100);
}

TEST_F(LinePieces, TheLastOneMayBePassedAgain) {
  for (int const place : {100, 110, 110, 120}) PiecePassed(kKind, 10, place);
  EXPECT_EQ(LastPieceKnown(kKind, 10, 100), 120);
}

TEST_F(LinePieces, ARowElsewhereTakesThePlaceOfTheOneBefore) {
  for (int const place : {100, 110, 500, 510}) PiecePassed(kKind, 10, place);
  EXPECT_EQ(LastPieceKnown(kKind, 10, 500), 510);
  EXPECT_EQ(LastPieceKnown(kKind, 10, 100), 100);
}

TEST_F(LinePieces, AreForgotten) {
  PiecePassed(kKind, 10, 100);
  PiecePassed(kKind, 10, 110);
  qvslm::ForgetPieces();
  EXPECT_EQ(LastPieceKnown(kKind, 10, 100), 100);
}

}  // namespace
