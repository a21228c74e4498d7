// A record as a JSON object on one line, field by field as the field table tells.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "byte_text.h"
#include "clock_text.h"
#include "decimal_text.h"
#include "record_info.h"

namespace host {

// How values stand in the object.
enum class JsonValues {
  Told,  // null for a level without a value
  Raw,   // numbers as they stand in the record, 999.0 for such a level; no clock
};

// What the object tells of the record beside its fields.
struct JsonMarks {
  bool shortItem = false;  // "short": true
  bool cut = false;        // "cut": true
  std::string_view file;   // "file": plain UTF-8; left out when empty
};

// Members "record" and "code", then one for each field that is not reserved. A time has a second
// member, its name behind it with Local: the clock of the measurement. Numbers with a fraction keep
// the shortest digits that give the same 32-bit number back.
//
// What of a record is the same each time (names, quotes, commas) is put together once for its kind.
class RecordJson {
 public:
  explicit RecordJson(JsonValues values = JsonValues::Told);

  // The most bytes that Put writes, marks included.
  std::size_t Most(const record_fields::RecordInfo& info, const JsonMarks& marks);
  // Writes the object without a line feed and gives its end. There must be room for Most bytes.
  char* Put(char* at, const record_fields::RecordInfo& info, const std::uint8_t* record,
            const JsonMarks& marks);
  // The same as a text of its own.
  std::string Text(const record_fields::RecordInfo& info, const std::uint8_t* record,
                   const JsonMarks& marks);

 private:
  struct Step {
    std::string before;  // what stands before the value: ,"Level":
    record_fields::FieldType type;
    bool clock;  // a time as the clock showed it
    bool level;  // a level that may have no value
    std::size_t offset;
    std::size_t rows;
    std::size_t count;
  };
  struct Plan {
    std::vector<Step> steps;
    std::size_t most = 0;
  };
  const Plan& PlanOf(const record_fields::RecordInfo& info);
  char* PutValue(char* at, const Step& step, const std::uint8_t* bytes);
  char* PutRow(char* at, const Step& step, const std::uint8_t* bytes);
  char* PutOne(char* at, const Step& step, const std::uint8_t* bytes);

  JsonValues values_;
  NumberText numbers_;
  ByteText bytes_;
  ClockText clock_;
  std::vector<Plan> plans_;  // by the place of the record in the field table
};

}  // namespace host
