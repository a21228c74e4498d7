// Which records are wanted, asked once for each record.
#pragma once

#include <array>
#include <cstdint>
#include <iterator>
#include <limits>

#include "record_choice.h"
#include "record_table.h"

namespace host {

// Seconds of a local time in the zone in force. In the hour that comes twice, the first.
std::int64_t SecondsOfLocal(const std::tm& clock);

class RecordFilter {
 public:
  // To be made with the zone in force.
  explicit RecordFilter(const RecordChoice& choice);

  // The info is one of the table. Of records with a time those are wanted that begin within the
  // times chosen, and histories of which a sample does; others only where no time is chosen.
  bool Wants(const record_fields::RecordInfo& info, const std::uint8_t* record) const;

 private:
  std::array<bool, std::size(record_fields::kRecords)> wanted_{};
  bool hasTimes_;
  std::int64_t since_ = std::numeric_limits<std::int64_t>::min();
  std::int64_t until_ = std::numeric_limits<std::int64_t>::max();
};

}  // namespace host
