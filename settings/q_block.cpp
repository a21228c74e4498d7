#include <cstdio>
#include <iterator>

#include "fields/date_text.h"
#include "fields/month_names.h"
#include "fields/output_record.h"
#include "fields/record_time.h"
#include "fields/whole_number.h"
#include "settings/q_registers.h"
#include "settings/settings.h"
#include "settings/settings_lines.h"

namespace qvslm {

namespace {

constexpr std::size_t kLongestValue = 51;
constexpr f32 kNotKept = -1.0F;
constexpr std::string_view kDayNames[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

struct QBlock {
  QvSettings& record;
  Calendar stamp;  // from Q6 and Q7
};

// Month of a date by its name, from 1; 0 where no name stands there.
i32 MonthByName(std::string_view date) {
  std::string_view const name = Columns(date, 2, 3);
  for (i32 month = 1; month < static_cast<i32>(std::size(kMonthNames)); ++month) {
    if (name == kMonthNames[month]) return month;
  }
  return 0;
}

i32 YearSince1900(std::string_view date) {
  return LowBits<i32>(i64{NumberAt(date, 5)} - 1900);
}

i32 DayByName(std::string_view text) {
  for (i32 day = 0; day < static_cast<i32>(std::size(kDayNames)); ++day) {
    if (text.substr(0, 3) == kDayNames[day]) return day;
  }
  return 0;
}

void WriteShortDate(std::string_view date, char* field, std::size_t size) {
  i32 year = YearSince1900(date);
  if (year > 100) year -= 100;
  char text[64];
  std::snprintf(text, sizeof text, "%02d/%02d/%02d", MonthByName(date), WholeNumber(date), year);
  CopyText(field, size, text);
}

void TakeClock(std::string_view value, Calendar& stamp) {
  stamp.Hour = WholeNumber(value);
  stamp.Minute = NumberAt(value, 3);
  stamp.Second = NumberAt(value, 6);
}

// The block's time is the first run's, where that is known.
void TakeDate(std::string_view value, QBlock& block) {
  TranslateContext& context = *CurrentContext;
  i32 const month = MonthByName(value);
  block.stamp.Day = WholeNumber(value);
  block.stamp.Month = month > 0 ? month - 1 : 0;
  block.stamp.Year = YearSince1900(value);
  if (context.FirstRunTime != 0) {
    block.record.BlockTime = static_cast<i32>(context.FirstRunTime);
  } else {
    block.record.BlockTime = NormalizeTime(block.stamp, nullptr);
    // A further date in the block goes on from the stamp as the zone has it.
    LocalSeconds(block.stamp);
  }
  context.EndRecord.BlockTime = block.record.BlockTime;
}

void KeepTitle(char (&title)[82], std::string_view value) {
  if (title[0] == '\0') CopyText(title, sizeof title, value);
}

// Stores the value in its field. Tells whether a number was there.
bool StoreValue(const Register& row, std::string_view value, QBlock& block) {
  TranslateContext& context = *CurrentContext;
  char* const text = TextAt(&block.record, row.field.offset);
  i32 const whole = WholeNumber(value);
  f64 real = 0;
  switch (row.form) {
    case Form::Int16:
      StoreAt(&block.record, row.field.offset, LowBits<u16>(whole));
      return true;
    case Form::Int16Newer:
      StoreAt(&block.record, row.field.offset,
              LowBits<u16>(context.FirmwareAbove09 != 0 ? whole : 0));
      return true;
    case Form::Real:
      if (ParseDouble(value, &real) != 0) return false;
      StoreAt(&block.record, row.field.offset, static_cast<f32>(real));
      return true;
    case Form::Threshold:
      context.ThresholdLevel = 65.0F;
      if (ParseDouble(value, &real) == 0) context.ThresholdLevel = static_cast<f32>(real);
      StoreAt(&block.record, row.field.offset, context.ThresholdLevel);
      return true;
    case Form::SamplePeriod:
      if (ParseDouble(value, &real) == 0) context.IntervalSamplePeriod = static_cast<f32>(real);
      StoreAt(&block.record, row.field.offset,
              LowBits<u16>(TruncateToI32(context.IntervalSamplePeriod)));
      return true;
    case Form::ShortDate:
      WriteShortDate(value, text, row.field.size);
      return true;
    case Form::DayName:
      StoreAt(&block.record, row.field.offset, DayByName(value));
      return true;
    default:  // the texts
      CopyText(text, row.field.size, value);
      return true;
  }
}

void ScaleStreamPeriod(u16 unit) {
  f32& period = CurrentContext->StreamPeriod;
  switch (unit) {
    case 0:
      period = static_cast<f32>(period / 32.0);
      break;
    case 2:
      period = static_cast<f32>(period * 10.0);
      break;
    case 3:
      period = static_cast<f32>(period * 60.0);
      break;
    default:
      break;
  }
}

// What a whole number leaves for the records behind the block.
void TakeNumber(i32 number, i32 whole, QBlock& block) {
  TranslateContext& context = *CurrentContext;
  u16 const low = LowBits<u16>(whole);
  bool const newer = context.FirmwareAbove09 == 1;
  switch (number) {
    case 46:
      context.SetupKeptB = low;
      break;
    case 47:
      context.SettingQ47 = low;
      break;
    case 49:
      context.SetupKeptA = low;
      break;
    case 50:
      context.SettingQ50 = low;
      break;
    case 53:
      context.SettingQ53 = low;
      break;
    case 54:
      context.SettingQ54 = low;
      break;
    case 55:
    case 56:
    case 57:
    case 58:
    case 59:
    case 60:
      context.KeptSixValues[number - 55] = static_cast<f32>(whole);
      break;
    case 62:
      context.LimitLevel = LowBits<i16>(whole);
      break;
    case 69:
      context.IntervalSamplesOn = LowBits<i16>(whole);
      break;
    case 71:
      context.IntervalAuxOn = LowBits<i16>(whole);
      break;
    case 77:
      context.SummaryLnOn = low;
      break;
    case 78:
      context.SummaryAuxOn = LowBits<i16>(whole);
      break;
    case 81:
      context.WholeDbStream = low;
      break;
    case 82:
      context.SecondLevelKind = low;
      break;
    case 83:
      context.StreamPeriod = static_cast<f32>(whole);
      break;
    case 84:
      ScaleStreamPeriod(low);
      break;
    case 118:
      context.SettingQ118 = newer ? low : u16{0};
      break;
    case 119:
      context.AuxEnabled1 = newer ? low : u16{0};
      break;
    case 120:
      context.SettingQ120 = newer ? low : u16{0};
      break;
    case 145:
      context.ExtraBlockOn = low;
      break;
    case 146:
      context.ModeFormFlag = low;
      break;
    case 157:
      context.SiteNumber = low;
      block.record.SiteNumber = low;
      context.EndRecord.SiteNumber = low;
      break;
    case 162:
      context.LevelInRecordOn = whole == 2 ? 1 : 0;
      if (whole == 1) context.TimeIsEnd = 1;
      break;
    case 163:
      if (whole == 1) context.TimeIsEnd = 1;
      break;
    case 206:
      (newer ? context.SettingQ206 : context.DistributionOn) = low;
      break;
    case 209:
      context.SettingQ209 = low;
      break;
    case 210:
      context.DistributionOn2 = static_cast<u16>(whole & 1);
      if (newer) context.DistributionOn = (whole & 16) != 0 ? 1 : 0;
      break;
    default:
      break;
  }
}

// What a number with decimals leaves.
void TakeReal(i32 number, f32 real) {
  TranslateContext& context = *CurrentContext;
  switch (number) {
    case 122:
    case 130:
    case 138:
      context.AuxChannel[(number - 122) / 8].Low = real;
      break;
    case 123:
    case 131:
    case 139:
      context.AuxChannel[(number - 123) / 8].High = real;
      break;
    case 147:
      context.SettingQ147 = real;
      break;
    default:
      break;
  }
}

void TakeText(i32 number, std::string_view value, QBlock& block) {
  TranslateContext& context = *CurrentContext;
  switch (number) {
    case 2:
      KeepTitle(context.EndRecord.Title2, value);
      break;
    case 3:
      KeepTitle(context.EndRecord.Title3, value);
      break;
    case 5:
      KeepTitle(context.EndRecord.Title1, value);
      break;
    case 6:
      TakeClock(value, block.stamp);
      break;
    case 7:
      TakeDate(value, block);
      break;
    case 121:
    case 129:
    case 137: {
      AuxiliaryChannel& channel = context.AuxChannel[(number - 121) / 8];
      CopyText(channel.Name, sizeof channel.Name, value);
      break;
    }
    case 124:
    case 132:
    case 140: {
      AuxiliaryChannel& channel = context.AuxChannel[(number - 124) / 8];
      CopyText(channel.Units, sizeof channel.Units, value);
      break;
    }
    default:
      break;
  }
}

// Register 227 has no field in the record.
void TakeLevelOffset(std::string_view value) {
  f64 offset = 0;
  if (ParseDouble(value, &offset) == 0) CurrentContext->LevelOffset = static_cast<f32>(offset);
}

void TakeRegister(i32 number, std::string_view value, QBlock& block) {
  value = value.substr(0, kLongestValue);
  if (number == 227) return TakeLevelOffset(value);
  bool const text442 = CurrentContext->Model == kModel442 && number >= 161 && number <= 165;
  const Register* const row =
      text442 ? FindRegister(kQTexts442, number) : FindRegister(kQRegisters, number);
  if (row == nullptr || !StoreValue(*row, value, block)) return;
  switch (row->form) {
    case Form::Int16:
    case Form::Int16Newer:
      TakeNumber(number, WholeNumber(value), block);
      break;
    case Form::Real:
      TakeReal(number, LoadAt<f32>(&block.record, row->field.offset));
      break;
    default:
      TakeText(number, value, block);
      break;
  }
}

}  // namespace

i32 ParseQBlock() {
  TranslateContext& context = *CurrentContext;
  auto& record = OutputAs<QvSettings>();
  ClearOutput(sizeof record);
  QBlock block{record, ClearedCalendar()};
  if (context.Model != kModel442) {
    for (f32& value : context.KeptSixValues) value = kNotKept;
  }

  i32 const status = ReadSettingsLines('Q', context.LineBuffer, [&](const SettingsLine& line) {
    TakeRegister(line.number, line.value, block);
  });

  record.RecordType = QV_SETTINGS;
  record.SettingFormat = context.SettingFormat;
  record.Model = static_cast<u16>(context.Model);
  context.EndRecord.Model = record.Model;
  NoteRecordTime(record.BlockTime);
  return status;
}

}  // namespace qvslm
