// Takes damaged copies of a sample through all calls, and holds them against the whole sample.
//
// Each call must end, with a status that its manual promises. Every record that ends before the
// damage must be delivered as from the whole sample, byte for byte. Four kinds of record know of
// bytes behind their own, and so are excepted or can be held to less:
//
// - Records behind a start that found other facts in the file's tail, which is read before all
//   others: the last stop time (it dates block images), and the level offset of model 442 (it is
//   added to every level). Damage elsewhere must leave these facts as they are.
// - Records behind an item 'C' of model 431, which looks ahead for the level offset in the next
//   results block, where it found another one. The record itself is written before it looks.
// - Blocks of lists 21 and 27: their steps look at the first byte of the next one. A 0 there closes
//   the list, and is passed with the step; what is delivered does not depend on it.
// - Band records 129 to 132, which take their time from a record that owns them. From the first one
//   on whose owner stands behind the damage, the times of band records are not compared; all else
//   in them is.
//
// The daylight span of a census may move times of all records; the tests' zone is UTC, where it
// moves none.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "api/context.h"
#include "support/guarded_buffer.h"
#include "support/memory_file.h"
#include "support/translation.h"

namespace test {

class DamageCheck {
 public:
  // Reads the sample and notes what it delivers when it is whole.
  explicit DamageCheck(const std::string& path);

  const std::string& Bytes() const { return bytes_; }
  // The copy to damage. It is the tests' task to mend it.
  const MemoryFile& File() const { return file_; }

  // Where the data begins, and where the last results block does, for which the start looks from
  // the end of the file; the size of the file if it has none.
  std::size_t DataBegin() const { return dataBegin_; }
  std::size_t TailBegin() const { return tailBegin_; }
  // Where to damage it: everywhere in a sample of less than 6000 bytes. In a larger one around the
  // ends of its items and of its header's lines, and now and then between them, as many as told.
  std::vector<std::size_t> Positions(std::size_t most) const;

  // Takes the file through all calls. Nothing before the given position is damaged, nor, if the
  // tail is there, what stands from the results block on. Empty, or what is wrong.
  std::string Try(std::size_t damagedFrom, bool tailIsThere);

  // How many records were held against those of the whole sample so far.
  long Compared() const { return compared_; }

 private:
  struct Walked {
    int status;
    int code;
    std::int32_t end;      // offset of what the next step reads
    std::int32_t fetched;  // end of the farthest record fetched for its time
    float levelOffset;
  };

  const qvslm::TranslateContext& State() const {
    return *static_cast<const qvslm::TranslateContext*>(session_.Context());
  }
  int Start();
  Walked Step();
  std::string TryLookups();
  std::string TryCensus();
  std::string TryTranslation(std::size_t damagedFrom);
  std::string Judge(const Walked& walked) const;
  bool FoundTheSameTail() const;
  bool IsAsWhole(std::size_t step, const Walked& walked, std::size_t damagedFrom,
                 bool ownersAreThere) const;

  std::string bytes_;
  MemoryFile file_;
  std::string path_;
  Session session_;
  GuardedBuffer info_{sizeof(QvFileHeaderInfo)};
  GuardedBuffer serial_{81};

  int start_ = 0;
  std::int32_t lastStopTime_ = 0;
  float levelOffset_ = 0;
  std::vector<Walked> whole_;
  std::vector<std::vector<std::uint8_t>> records_;  // of whole_
  std::size_t dataBegin_ = 0;
  std::size_t tailBegin_ = 0;
  bool tailIsThere_ = false;
  long compared_ = 0;
};

}  // namespace test
