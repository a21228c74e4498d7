// The seeker of records for the families that no record asks for, and for numbers of which none
// does. The decoders of band records ask for items 1, 2 and 5.
#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "api/context.h"
#include "fields/data_file.h"
#include "fields/way_memory.h"
#include "records/record_seeker.h"
#include "support/temp_file.h"
#include "support/translation.h"

namespace test {
namespace {

using qvslm::i32;
using qvslm::SeekRecord;
using samples::Body;
using samples::DataFile;

// An open file of model 486, with the data that is given behind its header.
class Seeker {
 public:
  explicit Seeker(const DataFile& data)
      : file_(Startable(General().Raw(data.Bytes()))), begin_(static_cast<i32>(General().Size())) {
    session_.Start(file_.Path());
  }
  qvslm::TranslateContext& State() const {
    return *static_cast<qvslm::TranslateContext*>(session_.Context());
  }
  i32 Begin() const { return begin_; }
  int FirstByte() const { return State().RecordBuffer[0]; }

 private:
  TempFile file_;
  i32 begin_;
  Session session_;
};

// Items of each family with bodies of lengths of their own; the first byte tells them apart.
DataFile Items() {
  DataFile data;
  for (int const family : {3, 4, 129, 130, 131}) {
    data.Item(family, Body().U8(family).Fill(9)).Item(family, Body().U8(family + 1).Fill(19));
  }
  return data.EndOfData();
}

TEST(RecordSeekerFamilies, ItemsThatAreCounted) {
  Seeker const seeker(Items());
  qvslm::TranslateContext& state = seeker.State();
  state.FirstOffset3 = state.FirstOffset4 = seeker.Begin();

  EXPECT_EQ(SeekRecord(3, 1), 10);
  EXPECT_EQ(seeker.FirstByte(), 3);
  EXPECT_EQ(state.FetchIndex3, 1);
  EXPECT_EQ(state.FirstOffset3, seeker.Begin() + 13);
  EXPECT_EQ(SeekRecord(3, 2), 20);
  EXPECT_EQ(seeker.FirstByte(), 4);
  EXPECT_EQ(state.FirstOffset3, seeker.Begin() + 13 + 23);
  EXPECT_EQ(SeekRecord(4, 1), 10);
  EXPECT_EQ(seeker.FirstByte(), 4);
  EXPECT_EQ(SeekRecord(4, 1), QV_NO_TEXT_HEADER);  // passed, and the cursor is one ahead
  EXPECT_EQ(state.FetchIndex4, 2);
}

// Their bodies are read one after the other up to the end of the data.
TEST(RecordSeekerFamilies, BandItemsCannotBeFetchedByNumber) {
  struct {
    qvslm::u32 family;
    i32 qvslm::TranslateContext::*firstOffset;
  } const rows[] = {{129, &qvslm::TranslateContext::FirstOffset129},
                    {130, &qvslm::TranslateContext::FirstOffset130},
                    {131, &qvslm::TranslateContext::FirstOffset131}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.family);
    Seeker const seeker(Items());
    i32& firstOffset = seeker.State().*row.firstOffset;
    EXPECT_EQ(SeekRecord(row.family, 1), QV_NOT_FOUND);  // none seen yet
    firstOffset = seeker.Begin();
    EXPECT_EQ(SeekRecord(row.family, 1), QV_NOT_FOUND);
    EXPECT_EQ(firstOffset, 0);
  }
}

// Number 0 is where every walk begins: it ends behind the first item.
TEST(RecordSeekerFamilies, BandItemOfNumberZero) {
  Seeker const seeker(DataFile().Item(130, Body().U8(77).Fill(6)).EndOfData());
  seeker.State().FirstOffset130 = seeker.Begin();
  EXPECT_EQ(SeekRecord(130, 0), 7);
  EXPECT_EQ(seeker.FirstByte(), 77);
  EXPECT_EQ(seeker.State().FirstOffset130, seeker.Begin() + 10);
}

// A stream that is sought is read as an item first, and what follows as a stream.
TEST(RecordSeekerFamilies, Streams) {
  DataFile const data =
      DataFile().Raw(Body().U8(6).U16(2).Raw({9, 8}).Raw({50, 1, 60, 1, 0}).Bytes()).EndOfData();
  Seeker const seeker(data);
  qvslm::TranslateContext& state = seeker.State();
  state.FirstOffset6 = seeker.Begin();
  EXPECT_EQ(SeekRecord(6, 1), 0);
  EXPECT_EQ(state.FetchIndex6, 1);
  EXPECT_EQ(state.FirstOffset6, seeker.Begin() + 10);
  EXPECT_EQ(state.FileOffset, seeker.Begin());  // that of the walk stays
}

TEST(RecordSeekerFamilies, OthersAreNotFound) {
  Seeker const seeker(Items());
  for (qvslm::u32 const family : {0U, 7U, 8U, 21U, 128U, 132U, 255U}) {
    EXPECT_EQ(SeekRecord(family, 1), QV_NOT_FOUND) << family;
  }
}

TEST(RecordSeekerFamilies, AFamilyThatCannotBeSoughtIsRaised) {
  Seeker const seeker(Items());
  seeker.State().FirstOffset3 = seeker.Begin();
  QV_StopTranslate();
  EXPECT_EQ(SeekRecord(3, 1), QV_TAIL_SEEK_FAILED);
  EXPECT_STREQ(seeker.State().ErrorText, "Error <-315>");
}

// Items of all sorts and lengths, lines and streams, behind which walks that begin at different
// places meet or pass one another.
struct ManyItems {
  std::string bytes;
  std::vector<i32> starts;
};
ManyItems MakeItems(std::mt19937& chance) {
  auto const below = [&](int end) {
    return static_cast<int>(chance() % static_cast<unsigned>(end));
  };
  constexpr int kFamilies[] = {2, 3, 4, 5, 8, 129, 130, 131, 'C', 'M', 'S'};
  DataFile data;
  std::vector<i32> starts;
  for (int left = 400; left > 0; --left) {
    starts.push_back(static_cast<i32>(data.Size()));
    int const what = below(20);
    if (what == 0) {
      data.Raw(Body().U8(6).U16(2).Raw({9, 8}).Raw({50, 1, 60, 1, 0}).Bytes());
    } else if (what < 4) {
      data.Raw("R" + std::string(static_cast<std::size_t>(below(100)), 'x') + "\n");
    } else {
      int const family = kFamilies[below(std::size(kFamilies))];
      data.Item(family, Body().U8(below(200)).Fill(static_cast<std::size_t>(below(left))));
    }
  }
  return {data.Item(1, Body().U8(7).Fill(20)).EndOfData().Bytes(), starts};
}

// All that a search leaves for what follows it.
struct Sought {
  i32 status;
  i32 firstOffset;
  i32 fetchIndex;
  qvslm::i64 position;
  qvslm::u32 missing;
  qvslm::u32 length;
  std::string record;
  std::string line;

  bool operator==(const Sought& other) const {
    return status == other.status && firstOffset == other.firstOffset &&
           fetchIndex == other.fetchIndex && position == other.position &&
           missing == other.missing && length == other.length && record == other.record &&
           line == other.line;
  }
};

// The buffers hold dots before the search.
Sought SeekFrom(qvslm::TranslateContext& state, i32 place, qvslm::u32 wanted) {
  std::memset(state.RecordBuffer, '.', sizeof state.RecordBuffer);
  std::memset(state.LineBuffer, '.', sizeof state.LineBuffer);
  state.FirstOffset1 = place;
  state.FetchIndex1 = 0;
  state.BytesMissing = 0;
  state.RecordLength = 0;
  i32 const status = SeekRecord(1, wanted);
  return {status,
          state.FirstOffset1,
          state.FetchIndex1,
          qvslm::FilePosition(),
          state.BytesMissing,
          state.RecordLength,
          {reinterpret_cast<const char*>(state.RecordBuffer), sizeof state.RecordBuffer},
          {state.LineBuffer, sizeof state.LineBuffer}};
}

TEST(RecordSeekerFamilies, KnownWaysEndAsNewOnesDo) {
  std::mt19937 chance(3);
  for (int round = 0; round < 6; ++round) {
    SCOPED_TRACE(round);
    auto const [bytes, starts] = MakeItems(chance);
    Seeker const seeker(DataFile().Raw(bytes));
    std::vector<i32> places;
    for (i32 const start : starts) {
      places.push_back(seeker.Begin() + start);
      places.push_back(seeker.Begin() + start + static_cast<i32>(chance() % 200));
    }
    std::vector<Sought> remembered;
    for (i32 const place : places) {
      remembered.push_back(SeekFrom(seeker.State(), place, 1));
      remembered.push_back(SeekFrom(seeker.State(), place, 2));
    }
    std::size_t at = 0;
    for (i32 const place : places) {
      SCOPED_TRACE(place);
      qvslm::ForgetWays();
      ASSERT_EQ(remembered[at++], SeekFrom(seeker.State(), place, 1));
      qvslm::ForgetWays();
      ASSERT_EQ(remembered[at++], SeekFrom(seeker.State(), place, 2));
    }
  }
}

}  // namespace
}  // namespace test
