#include "settings/results_forms.h"

#include <iterator>

#include "fields/date_text.h"
#include "fields/levels.h"
#include "fields/number_text.h"
#include "fields/octave_sums.h"
#include "fields/whole_number.h"

namespace qvslm {

namespace {

constexpr std::string_view kCompass[] = {"  N", "NNE", " NE", "ENE", "  E", "ESE", " SE", "SSE",
                                         "  S", "SSW", " SW", "WSW", "  W", "WNW", " NW", "NNW"};

std::string_view BehindComma(std::string_view text, std::size_t comma) {
  return text.substr(comma + 1);
}

f64 ParseReal(std::string_view text, ResultsBlock& block) {
  ParseDouble(text, &block.lastNumber);
  return block.lastNumber;
}

u32 StampSeconds(std::string_view value) {
  return DateToSecs(Columns(value, 0, 9), Columns(value, 10, 9), 0);
}

// Hands the text from the start and from behind each comma on to the taker, as far as it wants.
template <class Taker>
void ForEachItem(std::string_view value, Taker take) {
  while (take(value)) {
    std::size_t const comma = value.find(',');
    if (comma == std::string_view::npos) return;
    value = BehindComma(value, comma);
  }
}

void StoreIndexedReal(const Register& row, std::string_view value, ResultsBlock& block) {
  std::size_t const comma = value.find(',');
  if (comma == std::string_view::npos) return;
  i32 const index = WholeNumber(value);
  f64 number = ParseReal(BehindComma(value, comma), block);
  if (value.find('p') != std::string_view::npos) number *= -1.0;
  if (index < 0 || index >= static_cast<i32>(row.field.size / sizeof(f32))) return;
  StoreAt(block.record, row.field.offset + sizeof(f32) * static_cast<std::size_t>(index),
          static_cast<f32>(number));
}

void StoreIndexedInteger(const Register& row, std::string_view value, ResultsBlock& block) {
  std::size_t const comma = value.find(',');
  if (comma == std::string_view::npos) return;
  i64 const index = i64{WholeNumber(value)} - 1;
  if (index < 0 || index >= static_cast<i64>(row.field.size / sizeof(i32))) return;
  StoreAt(block.record, row.field.offset + sizeof(i32) * static_cast<std::size_t>(index),
          NumberAt(value, comma + 4));
}

// Three characters stand ahead of each number.
void StoreEightIntegers(const Register& row, std::string_view value, ResultsBlock& block) {
  if (value.empty()) return;
  for (std::size_t at = 0; at < row.field.size; at += sizeof(i32)) {
    StoreAt(block.record, row.field.offset + at, NumberAt(value, 3));
    std::size_t const comma = value.find(',');
    if (comma == std::string_view::npos) return;
    value = BehindComma(value, comma);
  }
}

// Cells of four characters: a letter, then the number. Only the first such line of a block counts.
void StoreColumnBytes(const Register& row, std::string_view value, ResultsBlock& block) {
  if (block.columnsTaken) return;
  block.columnsTaken = true;
  for (std::size_t cell = 0; cell < row.field.size; ++cell) {
    u8 const number = LowBits<u8>(NumberAt(value, 4 * cell + 1));
    StoreAt(block.record, row.field.offset + cell, number == 0 ? u8{1} : number);
  }
}

u32 FindCompassPoint(std::string_view value, u32 from) {
  u32 point = from;
  while (point < std::size(kCompass) && value.substr(0, 3) != kCompass[point]) ++point;
  return point;
}

// The search goes on behind the point found last; once it has missed, nothing matches any more.
void StoreCompassPoint(const Register& row, std::string_view value, ResultsBlock& block) {
  u32 const point = FindCompassPoint(value, block.compassFrom);
  bool const found = point < std::size(kCompass);
  StoreAt(block.record, row.field.offset, static_cast<u16>(found ? point : 0));
  block.compassFrom = point + 1;
}

void StoreCompassPointAnew(const Register& row, std::string_view value, ResultsBlock& block) {
  u32 const point = FindCompassPoint(value, 0);
  bool const found = point < std::size(kCompass);
  StoreAt(block.record, row.field.offset,
          static_cast<u16>(found ? point : std::size(kCompass) - 1));
}

void StoreRealList(const Register& row, std::string_view value, ResultsBlock& block) {
  std::size_t at = 0;
  ForEachItem(value, [&](std::string_view item) {
    auto const number = static_cast<f32>(ParseReal(item, block));
    if (at < row.field.size) StoreAt(block.record, row.field.offset + at, number);
    at += sizeof(f32);
    return true;
  });
}

void StoreAtofList(const Register& row, std::string_view value, ResultsBlock& block) {
  std::size_t at = 0;
  ForEachItem(value, [&](std::string_view item) {
    StoreAt(block.record, row.field.offset + at, static_cast<f32>(FloatNumber(item)));
    at += sizeof(f32);
    return at < row.field.size;
  });
}

std::string_view TakeToken(std::string_view& text) {
  constexpr std::string_view kDelimiters = " ,";
  std::size_t const first = std::min(text.find_first_not_of(kDelimiters), text.size());
  text.remove_prefix(first);
  std::size_t const length = std::min(text.find_first_of(kDelimiters), text.size());
  std::string_view const token = text.substr(0, length);
  text.remove_prefix(length);
  return token;
}

// Pairs of date and time. A last date without a time has that of the pair before.
void StoreStampList(const Register& row, std::string_view value, ResultsBlock& block) {
  std::string_view time;
  for (std::size_t at = 0; at < row.field.size; at += sizeof(i32)) {
    std::string_view const date = TakeToken(value);
    if (date.empty()) return;
    std::string_view const token = TakeToken(value);
    if (!token.empty()) time = token;
    StoreAt(block.record, row.field.offset + at, DateToSecs(date, time, 0));
  }
}

// An item without a value has a '-' as its fourth character.
f32 BandValue(std::string_view item) {
  bool const none = item.size() > 3 && item[3] == '-';
  return none ? kNoLevel : static_cast<f32>(FloatNumber(item));
}

constexpr std::size_t kThirds = std::size(BandArray{}.thirds);

void StoreBandList(const Register& row, std::string_view value, ResultsBlock& block) {
  auto bands = LoadAt<BandArray>(block.record, row.field.offset);
  std::size_t count = 0;
  ForEachItem(value, [&](std::string_view item) {
    bands.thirds[count++] = BandValue(item);
    return count < kThirds;
  });
  SumOctaves(bands.thirds, bands.octaves, 11);
  StoreAt(block.record, row.field.offset, bands);
}

// A short line holds octaves, which fill the head of the third-octave array too.
void StoreCountedBandList(const Register& row, std::string_view value, ResultsBlock& block) {
  constexpr std::size_t kOctaveLine = 130;
  auto bands = LoadAt<BandArray>(block.record, row.field.offset);
  std::size_t count = 0;
  ForEachItem(value, [&](std::string_view item) {
    bands.thirds[count++] = BandValue(item);
    return count < kThirds;
  });
  if (row.number == 219 && (count == 33 || count == 11)) bands.thirds[count] = kNoLevel;
  if (value.size() < kOctaveLine) {
    std::copy(bands.thirds, bands.thirds + std::size(bands.octaves), bands.octaves);
  }
  StoreAt(block.record, row.field.offset, bands);
}

void ResetBands(const Register& row, ResultsBlock& block) {
  BandArray bands;
  std::fill(std::begin(bands.thirds), std::end(bands.thirds), kNoLevel);
  std::fill(std::begin(bands.octaves), std::end(bands.octaves), kNoLevel);
  StoreAt(block.record, row.field.offset, bands);
}

// Names of 21 characters; one more character stands ahead of the seventh.
void StoreSevenNames(const Register& row, std::string_view value, ResultsBlock& block) {
  constexpr std::size_t kName = 21;
  char* field = TextAt(block.record, row.field.offset);
  char* const end = field + row.field.size;
  if (value.size() < 2 || value[1] != 'N') {
    *field = '\0';
    return;
  }
  std::size_t from = 4;
  for (; field < end; field += kName + 1) {
    bool const last = field + kName + 1 == end;
    if (last) ++from;
    std::string_view const text = Columns(value, from, kName);
    std::memset(field, 0, kName + 1);
    text.copy(field, kName);
    from += kName;
  }
}

f64 ScaledNumber(std::string_view value) {
  f64 const number = FloatNumber(value);
  if (value.ends_with('K')) return static_cast<f32>(number) * 1024.0;
  if (value.ends_with('M')) return static_cast<f32>(number) * 1048576.0;
  return number;
}

std::string_view BehindLeadingBlanks(std::string_view value) {
  value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
  return value;
}

}  // namespace

void StoreResult(const Register& row, std::string_view value, std::string_view wholeLine,
                 ResultsBlock& block) {
  void* const record = block.record;
  char* const text = TextAt(record, row.field.offset);
  switch (row.form) {
    case Form::Int16:
      return StoreAt(record, row.field.offset, LowBits<u16>(WholeNumber(value)));
    case Form::Int32:
      return StoreAt(record, row.field.offset, WholeNumber(value));
    case Form::Real:
      return StoreAt(record, row.field.offset, static_cast<f32>(ParseReal(value, block)));
    case Form::Atof:
      return StoreAt(record, row.field.offset, static_cast<f32>(FloatNumber(value)));
    case Form::Text:
      return CopyText(text, row.field.size, value);
    case Form::BlankSkippedText:
      return CopyText(text, row.field.size, BehindLeadingBlanks(value));
    case Form::Hms:
      return StoreAt(record, row.field.offset, static_cast<f32>(ParseHms(value)));
    case Form::Stamp:
      return StoreAt(record, row.field.offset, StampSeconds(value));
    case Form::LastNumber:
      return StoreAt(record, row.field.offset, static_cast<f32>(block.lastNumber));
    case Form::LetterTest:
      if (wholeLine.find('n') != std::string_view::npos) StoreAt(record, row.field.offset, i32{1});
      return;
    case Form::IndexedReal:
      return StoreIndexedReal(row, value, block);
    case Form::IndexedInteger:
      return StoreIndexedInteger(row, value, block);
    case Form::EightIntegers:
      return StoreEightIntegers(row, value, block);
    case Form::ColumnBytes:
      return StoreColumnBytes(row, value, block);
    case Form::CompassPoint:
      return StoreCompassPoint(row, value, block);
    case Form::CompassPointAnew:
      return StoreCompassPointAnew(row, value, block);
    case Form::RealList:
      return StoreRealList(row, value, block);
    case Form::AtofList:
      return StoreAtofList(row, value, block);
    case Form::StampList:
      return StoreStampList(row, value, block);
    case Form::BandList:
      return StoreBandList(row, value, block);
    case Form::CountedBandList:
      return StoreCountedBandList(row, value, block);
    case Form::BandReset:
      return ResetBands(row, block);
    case Form::SevenNames:
      return StoreSevenNames(row, value, block);
    case Form::ScaledNumber:
      return StoreAt(record, row.field.offset, static_cast<f32>(ScaledNumber(value)));
    default:
      return;
  }
}

void StoreVoltage(std::string_view value, const Register& r86, const Register& r87,
                  ResultsBlock& block) {
  std::string_view const unit(TextAt(block.record, r87.field.offset));
  if (unit.find('E') == std::string_view::npos) return;
  FormatVoltage(FloatNumber(value), TextAt(block.record, r86.field.offset), r86.field.size);
}

void TakeModelLine(std::string_view value) {
  constexpr std::string_view kWord = "Model";
  TranslateContext& context = *CurrentContext;
  std::size_t const word = value.find(kWord);
  if (word != std::string_view::npos) {
    context.Model = LowBits<i16>(WholeNumber(value.substr(word + kWord.size())));
  }
  context.EndRecord.Model = static_cast<u16>(context.Model);
}

void TakeStopTime(i32 seconds) {
  CurrentContext->LastStopTime = seconds;
  CurrentContext->EndRecord.EndRecordStopTime = seconds;
}

}  // namespace qvslm
