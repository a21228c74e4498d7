// A measurement file that is read: its reader of the library, the walk through it, and the records that
// were asked for.
#pragma once

#include <array>
#include <cstdint>
#include <iterator>
#include <mutex>
#include <string>
#include <vector>

#include "api/front_end/qvslm_reader.h"
#include "api/front_end/qvslm_zone.h"
#include "qvslm_walk.h"
#include "record_rows.h"
#include "record_table.h"

namespace python {

inline constexpr std::size_t kRecordCount = std::size(record_fields::kRecords);

// Which records are asked for, by their place in kRecords.
using Choice = std::array<bool, kRecordCount>;
using RowsOfKinds = std::array<RecordRows, kRecordCount>;

// What the walk has met so far of what tells about the file as a whole.
struct Findings {
  std::int32_t firstBlockTime = 0;  // of the first settings block
  std::int32_t firstRunStart = 0;
  QvEnd end{};
};

// May be used by several threads, one of which waits for the other.
class OpenFile {
 public:
  // Reads the header, looks up serial number and sites, counts the records, and opens the walk.
  OpenFile(std::string path, std::vector<QvZoneChange> zone);
  ~OpenFile();
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  // Goes on until so many of the records asked for have come, or to the end. They are appended.
  void Decode(const Choice& choice, std::uint64_t most, RowsOfKinds& rows);

  // Closes the file. What was found stays.
  void Close();

  const QvWalk& Walk() const { return walk_; }
  const QvRecordCensus& Census() const { return census_; }
  const QvFileHeaderInfo& Header() const { return header_; }
  int HeaderStatus() const { return headerStatus_; }
  std::int32_t HeaderTime() const { return headerTime_; }
  const char* Serial() const { return serial_; }
  int SiteCount() const { return siteCount_; }
  const Findings& Found() const { return found_; }
  std::uint64_t LeftOut() const { return leftOut_; }
  std::uint64_t ShortItems() const { return shortItems_; }

 private:
  std::size_t KindInHand() const;
  void Note();

  std::mutex mutex_;
  std::string path_;
  std::vector<QvZoneChange> zone_;
  QvReader* reader_;
  std::vector<std::uint64_t> context_;
  std::vector<std::uint32_t> record_;
  QvWalk walk_{};
  bool open_ = false;
  QvRecordCensus census_{};
  QvFileHeaderInfo header_{};
  int headerStatus_ = 0;
  std::int32_t headerTime_ = 0;
  char serial_[81] = {};
  std::int16_t siteCount_ = 0;
  Findings found_;
  std::uint64_t leftOut_ = 0;
  std::uint64_t shortItems_ = 0;
};

}  // namespace python
