// A peer: protobuf parses as many length-delimited messages as the files of events and of a stream
// hold records, with the same fields.
#include <fcntl.h>
#include <google/protobuf/io/zero_copy_stream_impl.h>
#include <google/protobuf/util/delimited_message_util.h>
#include <unistd.h>

#include <fstream>
#include <stdexcept>

#include "measure.h"
#include "peer_messages.pb.h"

namespace bench {

namespace {

namespace io = google::protobuf::io;
namespace util = google::protobuf::util;

constexpr int kEntriesOfMessage = 60;
constexpr int kBlock = 65536;

int Events() {
  return RecordsOf(samples::Family::kEvents);
}
int Samples() {
  return RecordsOf(samples::Family::kStreamTwoByte);
}

void WriteEvents(const std::string& path) {
  std::ofstream out(path, std::ios::binary);
  peer::Event event;
  for (int i = 0; i < Events(); ++i) {
    event.set_record_type(4);
    event.set_site_number(1);
    event.set_record_time(1577836800 + i * 60);
    event.set_event_detail(static_cast<unsigned>(i % 16));
    event.set_event_value24(i);
    event.set_model(486);
    event.set_record_index(static_cast<unsigned>(i + 1));
    event.set_event_code(static_cast<unsigned>(i % 8 * 16));
    util::SerializeDelimitedToOstream(event, &out);
  }
  if (!out.flush()) throw std::runtime_error("cannot write " + path);
}

void WriteHistory(const std::string& path) {
  std::ofstream out(path, std::ios::binary);
  peer::TimeHistory record;
  record.set_record_type(16);
  record.set_site_number(1);
  record.set_stream_period(1);
  for (int i = 0; i < Samples(); ++i) {
    record.add_first_levels(50.0F + static_cast<float>(i % 30));
    if (record.first_levels_size() < kEntriesOfMessage && i + 1 < Samples()) continue;
    record.set_record_time(1577836800 + i);
    record.set_entry_count(static_cast<unsigned>(record.first_levels_size()));
    util::SerializeDelimitedToOstream(record, &out);
    record.clear_first_levels();
  }
  if (!out.flush()) throw std::runtime_error("cannot write " + path);
}

// Parses every message of a file into one that is used again.
template <class Message>
void ParseFile(const std::string& path, int expected) {
  int const descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) throw std::runtime_error("cannot read " + path);
  int messages = 0;
  {
    io::FileInputStream input(descriptor, kBlock);
    Message message;
    bool ended = false;
    while (util::ParseDelimitedFromZeroCopyStream(&message, &input, &ended)) {
      benchmark::DoNotOptimize(message.record_time());
      message.Clear();
      ++messages;
    }
  }
  close(descriptor);
  if (messages != expected) throw std::runtime_error("protobuf stopped in " + path);
}

void RegisterProtobuf() {
  std::string const events = KeptFile("peer_protobuf_events", WriteEvents);
  Register("peer/protobuf_events", [=](benchmark::State& state) {
    Measure(state, {Events(), FileSize(events)}, [&] { ParseFile<peer::Event>(events, Events()); });
  });
  std::string const history = KeptFile("peer_protobuf_samples", WriteHistory);
  Register("peer/protobuf_samples", [=](benchmark::State& state) {
    int const messages = (Samples() + kEntriesOfMessage - 1) / kEntriesOfMessage;
    Measure(state, {Samples(), FileSize(history)},
            [&] { ParseFile<peer::TimeHistory>(history, messages); });
  });
}

const Peer protobuf(RegisterProtobuf);

}  // namespace

}  // namespace bench
