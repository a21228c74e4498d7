// The layout-bound rules of the context: what a reset changes, and how an error is worded. Hosts
// treat the context as opaque, so no export shows these fields.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include "api/context.h"
#include "support/guarded_buffer.h"

namespace {

using qvslm::CurrentContext;
using qvslm::TranslateContext;
using test::GuardedBuffer;

constexpr int kNoise = 0xA5;

// A context full of noise, named as the current one.
class Context {
 public:
  explicit Context(int fill = kNoise) : buffer_(QV_GetBufferSize(), fill) {
    CurrentContext = reinterpret_cast<TranslateContext*>(buffer_.Data());
  }
  ~Context() { CurrentContext = nullptr; }
  Context(const Context&) = delete;
  Context& operator=(const Context&) = delete;

  TranslateContext* operator->() const { return CurrentContext; }
  std::vector<unsigned char> Bytes() const {
    return {buffer_.Data(), buffer_.Data() + buffer_.Size()};
  }

 private:
  GuardedBuffer buffer_;
};

struct Stretch {
  const char* name;
  std::size_t offset;
  std::size_t size;
};

template <class T>
std::size_t WidthOf(T TranslateContext::*) {
  return sizeof(T);
}

#define WHOLE(field)                                                             \
  Stretch {                                                                      \
#field, offsetof(TranslateContext, field), WidthOf(&TranslateContext::field) \
  }
#define FIRST_BYTE(field)                        \
  Stretch {                                      \
#field, offsetof(TranslateContext, field), 1 \
  }

std::vector<Stretch> FieldsResetToZero() {
  std::vector<Stretch> fields = {
      WHOLE(FileOffset),
      WHOLE(BytesRead),
      WHOLE(RecordPos),
      WHOLE(RecordFilter),
      WHOLE(StreamInProgress),
      WHOLE(RecordLength),
      FIRST_BYTE(RecordBuffer),
      WHOLE(AutoRefill),
      WHOLE(LastError),
      FIRST_BYTE(ErrorText),
      WHOLE(ErrorCode),
      WHOLE(Mode),
      WHOLE(FirmwareVersion),
      WHOLE(FirmwareAbove09),
      WHOLE(FirstRunTime),
      WHOLE(LastStopTime),
      WHOLE(HeaderTime),
      WHOLE(StreamTime),
      WHOLE(Count1),
      WHOLE(Count2),
      WHOLE(Count3),
      WHOLE(Count4),
      WHOLE(Count5),
      WHOLE(Count129to132),
      WHOLE(SampleCount),
      WHOLE(FirstOffset1),
      WHOLE(FirstOffset2),
      WHOLE(FirstOffset3),
      WHOLE(FirstOffset4),
      WHOLE(FirstOffset5),
      WHOLE(FirstOffset6),
      WHOLE(FirstOffset129),
      WHOLE(FirstOffset130),
      WHOLE(FirstOffset131),
      WHOLE(FirstOffset132),
      WHOLE(FetchIndex1),
      WHOLE(FetchIndex2),
      WHOLE(FetchIndex3),
      WHOLE(FetchIndex4),
      WHOLE(FetchIndex5),
      WHOLE(FetchIndex6),
      WHOLE(AuxEnabled1),
      WHOLE(LevelOffset),
      WHOLE(SettingQ50),
      WHOLE(SettingQ47),
      WHOLE(SettingQ206),
      WHOLE(DistributionOn),
      WHOLE(LevelInRecordOn),
      WHOLE(IntervalAuxOn),
      WHOLE(IntervalSamplesOn),
      WHOLE(IntervalSamplePeriod),
      WHOLE(TimeIsEnd),
      WHOLE(LimitLevel),
      WHOLE(WholeDbStream),
      WHOLE(SummaryAuxOn),
      WHOLE(SummaryLnOn),
      WHOLE(DistributionOn2),
      WHOLE(SpectraKind),
      WHOLE(SettingZero332),
      WHOLE(ThresholdLevel),
      WHOLE(SettingFormat),
      WHOLE(KeptSixValues),
      WHOLE(SecondLevelKind),
      WHOLE(SettingQ120),
      WHOLE(SettingQ209),
      WHOLE(SiteNumber),
      WHOLE(StreamPeriod),
      WHOLE(SetupKeptA),
      WHOLE(SetupKeptB),
      WHOLE(SettingQ118),
      WHOLE(ModeFormFlag),
      WHOLE(ExtraBlockOn),
      WHOLE(SamplesPending),
      WHOLE(RunEventWriteIndex),
      WHOLE(RunEventReadIndex),
      WHOLE(OtherEventWriteIndex),
      WHOLE(OtherEventReadIndex),
  };
  // Of the auxiliary channels' texts the first byte alone.
  for (std::size_t i = 0; i < 3; ++i) {
    std::size_t const channel =
        offsetof(TranslateContext, AuxChannel) + i * sizeof(qvslm::AuxiliaryChannel);
    fields.push_back({"High", channel + offsetof(qvslm::AuxiliaryChannel, High), 4});
    fields.push_back({"Low", channel + offsetof(qvslm::AuxiliaryChannel, Low), 4});
    fields.push_back({"Name", channel + offsetof(qvslm::AuxiliaryChannel, Name), 1});
    fields.push_back({"Units", channel + offsetof(qvslm::AuxiliaryChannel, Units), 1});
  }
  return fields;
}

// Fields that outlive the file; every byte that no list names counts as kept, too.
std::vector<Stretch> FieldsKept() {
  return {
      WHOLE(File),
      WHOLE(LineBuffer),
      WHOLE(FilePath),
      WHOLE(RawRecordCopy),
      WHOLE(Output),
      WHOLE(StreamType),
      WHOLE(Count21),
      WHOLE(StreamMaskA),
      WHOLE(StreamMaskB),
      WHOLE(StreamMaskC),
      WHOLE(StreamMaskD),
      WHOLE(StreamMaskE),
      WHOLE(StreamMaskF),
      WHOLE(SettingQ54),
      WHOLE(SettingQ53),
      WHOLE(SecondSpectrumOn),
      WHOLE(StreamSelector),
      WHOLE(BandFlag),
      WHOLE(SetupFlags),
      WHOLE(StreamLevelBase),
      WHOLE(ReferenceLevel),
      WHOLE(SettingQ147),
      WHOLE(StampR175),
      WHOLE(RunEventTimes),
      WHOLE(OtherEventTimes),
      WHOLE(OwnerTime132),
  };
}

TEST(ContextLayout, FitsItsFixedSizeAndMayBeAnyBytes) {
  EXPECT_EQ(qvslm::kContextSize, 9984u);
  EXPECT_LE(sizeof(TranslateContext), 9984u);
  EXPECT_EQ(sizeof(TranslateContext::LineBuffer), 81u);
  EXPECT_EQ(sizeof(TranslateContext::RecordBuffer), 6200u);
  EXPECT_EQ(sizeof(TranslateContext::RunEventTimes), 4u * 299u);
  EXPECT_EQ(sizeof(TranslateContext::OtherEventTimes), 4u * 299u);
  EXPECT_EQ(sizeof(TranslateContext::EndRecord), 532u);
}

TEST(ResetContext, GivesEachFieldItsValue) {
  Context const context;
  qvslm::ResetContext();
  std::vector<unsigned char> const bytes = context.Bytes();
  for (const Stretch& field : FieldsResetToZero()) {
    for (std::size_t i = 0; i < field.size; ++i) {
      EXPECT_EQ(bytes[field.offset + i], 0) << field.name << " byte " << i;
    }
  }
  EXPECT_EQ(context->KeepFileOpen, 1);
  EXPECT_EQ(context->Model, 486);
  EXPECT_EQ(context->EndRecord.RecordType, 15);
  EXPECT_EQ(context->Owner132, -1);
  EXPECT_EQ(context->Sequence132, 65535);
}

TEST(ResetContext, KeepsWhatOutlivesAFile) {
  Context const context;
  qvslm::ResetContext();
  std::vector<unsigned char> const bytes = context.Bytes();
  for (const Stretch& field : FieldsKept()) {
    for (std::size_t i = 0; i < field.size; ++i) {
      ASSERT_EQ(bytes[field.offset + i], kNoise) << field.name << " byte " << i;
    }
  }
}

// Byte for byte: nothing but the fields of the list changes, also not behind the last field.
TEST(ResetContext, ChangesNothingElse) {
  Context const context;
  std::vector<unsigned char> expected = context.Bytes();
  for (const Stretch& field : FieldsResetToZero()) {
    std::memset(expected.data() + field.offset, 0, field.size);
  }
  auto* const fields = reinterpret_cast<TranslateContext*>(expected.data());
  fields->KeepFileOpen = 1;
  fields->Model = 486;
  fields->EndRecord.RecordType = 15;
  fields->Owner132 = -1;
  fields->Sequence132 = 65535;

  qvslm::ResetContext();
  std::vector<unsigned char> const bytes = context.Bytes();
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    ASSERT_EQ(bytes[i], expected[i]) << "byte " << i << " of the context";
  }
}

TEST(RaiseError, WordsTheCode) {
  struct Row {
    int code;
    const char* text;
  };
  constexpr Row kRows[] = {
      {-302, "Error <-302>"}, {-320, "Error <-320>"}, {0, "Error <  0>"},     {5, "Error <  5>"},
      {-7, "Error < -7>"},    {-31, "Error <-31>"},   {1234, "Error <1234>"},
  };
  Context const context;
  for (const Row& row : kRows) {
    context->ErrorCode = row.code;
    context->LastError = 99;
    qvslm::RaiseError();
    EXPECT_EQ(context->LastError, row.code);
    EXPECT_EQ(context->ErrorCode, row.code);
    EXPECT_STREQ(context->ErrorText, row.text);
  }
}

TEST(RaiseError, NeverLeavesItsField) {
  Context const context;
  std::vector<unsigned char> expected = context.Bytes();
  context->ErrorCode = -2147483647 - 1;
  qvslm::RaiseError();
  std::vector<unsigned char> const bytes = context.Bytes();
  std::size_t const behind = offsetof(TranslateContext, ErrorText) + sizeof context->ErrorText;
  EXPECT_NE(std::memchr(context->ErrorText, 0, sizeof context->ErrorText), nullptr);
  EXPECT_EQ(std::string(bytes.begin() + static_cast<std::ptrdiff_t>(behind), bytes.end()),
            std::string(expected.begin() + static_cast<std::ptrdiff_t>(behind), expected.end()));
}

TEST(FailWith, SetsRaisesAndReturnsTheCode) {
  Context const context;
  EXPECT_EQ(qvslm::FailWith(-314), -314);
  EXPECT_EQ(context->ErrorCode, -314);
  EXPECT_EQ(context->LastError, -314);
  EXPECT_STREQ(context->ErrorText, "Error <-314>");
}

}  // namespace
