#include "part_makers.h"

#include <cstdio>

namespace fuzz {

namespace {

std::string RandomBytes(std::size_t size, Chance& chance) {
  std::string bytes(size, '\0');
  for (char& byte : bytes) byte = static_cast<char>(chance.Byte());
  return bytes;
}

// Packed decimal date and time, as most bodies open.
std::string SomeStamp(Chance& chance) {
  constexpr const char kMonths[] = {0x03, 0x06, 0x10, 0x10, 0x12};
  constexpr const char kHours[] = {0x00, 0x01, 0x02, 0x03, 0x12, 0x23};
  std::string stamp{static_cast<char>(chance.OneIn(2) ? 0x31 : 0x15),
                    chance.From(kMonths),
                    0x21,
                    chance.From(kHours),
                    0x30,
                    0x00};
  return stamp;
}

// How long the body of an item usually is, and whether a byte stands before its time.
struct ItemForm {
  int type;
  std::size_t size;
  bool byteFirst;
};
constexpr ItemForm kItems[] = {
    {1, 40, false},    {1, 200, false},   {2, 60, false},    {2, 420, false},   {2, 14, false},
    {3, 120, true},    {4, 13, true},     {4, 13, true},     {5, 10, true},     {6, 20, false},
    {7, 5120, false},  {8, 6144, false},  {8, 100, false},   {9, 10, false},    {'C', 60, false},
    {'S', 226, false}, {129, 211, false}, {129, 138, false}, {130, 210, false}, {131, 70, false},
    {132, 70, false}};

std::string SomeNumber(Chance& chance) {
  constexpr const char* kNumbers[] = {
      "0",     "1",     "2",      "3",    "4",   "5",    "16",     "17",         "-1",
      "65535", "32768", "0.5",    "-2.5", "1e9", "99.9", "-32768", "4294967296", "2147483648",
      "nan",   "1e300", "-1e300", ".",    "+",   "0x10", ""};
  return chance.From(kNumbers);
}

std::string SomeValue(Chance& chance) {
  constexpr const char* kTexts[] = {"15Mar1999,12:34:56",
                                    "31Oct2021,02:30:00",
                                    "00Xxx",
                                    "12:34:56",
                                    "1:30.5",
                                    "01:00:10.5",
                                    "Sun",
                                    "ABCDEFGH",
                                    "A  1B  2C  3D  4",
                                    "1,2,3,4,5,6,7,8,9,10,11,12",
                                    "-1.5, 2.5,,3",
                                    "Hedrom-Pulke Model 442",
                                    "@",
                                    "%s%n"};
  switch (chance.Below(4)) {
    case 0:
      return chance.From(kTexts);
    case 1: {
      std::string values = SomeNumber(chance);
      for (std::size_t more = chance.Below(70); more > 0; --more) {
        values += chance.OneIn(8) ? ' ' : ',';
        values += SomeNumber(chance);
      }
      return values;
    }
    case 2:
      return std::string(chance.Below(300), static_cast<char>(' ' + chance.Below(95)));
    default:
      return SomeNumber(chance);
  }
}

// The registers that steer the records behind a 'Q' block, and the lists and rules of 'R' blocks.
constexpr int kSteeringQ[] = {6,   7,   47,  50,  53,  54,  55,  61,  62,  69,  70,  71,
                              77,  78,  81,  82,  83,  84,  118, 119, 120, 121, 122, 123,
                              124, 145, 147, 157, 161, 162, 163, 206, 209, 210, 227, 233};
constexpr int kTellingR[] = {1,   6,   7,   53,  60,  98,  106, 120, 121, 122,
                             124, 130, 175, 180, 181, 200, 218, 220, 230, 240};

}  // namespace

int SomeItemType(Chance& chance) {
  return chance.OneIn(12) ? chance.Byte() : chance.From(kItems).type;
}

Part SomeItem(Chance& chance) {
  ItemForm const& form = chance.From(kItems);
  std::string body = form.byteFirst ? RandomBytes(1, chance) : std::string();
  bool const bands = form.type > 128;
  if (bands) {
    body += '\0';
    body += static_cast<char>(chance.Below(5));
  } else {
    body += SomeStamp(chance);
  }
  std::size_t const size = chance.OneIn(4) ? chance.Below(2 * form.size) : form.size;
  // A large body of one byte costs the input little variety.
  if (size > 500) {
    body.resize(size, static_cast<char>(chance.Byte()));
  } else if (body.size() < size) {
    body += RandomBytes(size - body.size(), chance);
  }
  return MakeItem(form.type, body);
}

Part SomeSetup(int model, Chance& chance) {
  std::string body = RandomBytes(model == 431 ? 186 : 219, chance);
  body[39] = static_cast<char>(chance.Below(model == 431 ? 5 : 10));
  return MakeItem('M', body);
}

Part SomeStream(int model, Chance& chance) {
  std::string bytes(1, model == 431 || model == 442 ? 7 : 6);
  for (std::size_t entries = chance.Below(200); entries > 0; --entries) {
    bool const marker = chance.OneIn(10);
    bytes += static_cast<char>(marker ? 0x80 + chance.Below(128) : 1 + chance.Below(127));
    bytes += static_cast<char>(1 + chance.Below(255));
  }
  return {PartKind::Stream, bytes + '\0'};
}

Part SomeList(Chance& chance) {
  constexpr std::size_t kLengths[] = {1, 4, 8, 28, 72, 100, 255};
  std::size_t const length = chance.OneIn(4) ? chance.Below(256) : chance.From(kLengths);
  std::string bytes{static_cast<char>(chance.OneIn(2) ? 21 : 27), static_cast<char>(length)};
  for (std::size_t blocks = chance.Below(6); blocks > 0 && length > 0; --blocks) {
    bytes += static_cast<char>(1 + chance.Below(255));
    bytes += RandomBytes(length - 1, chance);
  }
  return {PartKind::List, bytes + '\0'};
}

Part SomeLine(char letter, int model, Chance& chance) {
  int const number = chance.OneIn(3) ? static_cast<int>(chance.Below(250))
                     : letter == 'Q' ? chance.From(kSteeringQ)
                                     : chance.From(kTellingR);
  char head[16];
  // Other models write the numbers of their results blocks in four columns.
  bool const fourColumns = letter == 'R' && model != 442 && chance.OneIn(2);
  std::snprintf(head, sizeof head, fourColumns ? "%c%4d," : "%c%3d,", letter, number);
  constexpr const char* kEnds[] = {"\r\n", "\r\n", "\r\n", "\n", "\r", ""};
  return {PartKind::Line, head + SomeValue(chance) + chance.From(kEnds)};
}

int SomeModel(Chance& chance) {
  constexpr int kModels[] = {431, 442, 486, 442, 431, 100, 485, 500, 0};
  return chance.From(kModels);
}

std::string SomeFirmwareLine(Chance& chance) {
  constexpr const char* kVersions[] = {"0.9",   "0.91",  "1.1",   "1.099", "1.100", "1.111",
                                       "1.126", "1.127", "2.01",  "2.02",  "2.106", "2.10599",
                                       "3.112", "3.111", "3.115", "3.116", "3.117", "3.6",
                                       "3.59",  "9.99",  "nan",   "-1",    "1e400"};
  return std::string(chance.From(kVersions)) + "\r\n";
}

std::string SomeModeLine(int model, Chance& chance) {
  constexpr const char* kModes431[] = {"OBA ", "sSLM", "iSLM", "ENV ", "none"};
  constexpr const char* kModes442[] = {"SSA", "ISM", "LOG", "ENV", "RTA",
                                       "FFT", "AUD", "TAL", "VIB", "non"};
  return std::string(model == 431 ? chance.From(kModes431) : chance.From(kModes442)) + "\r\n";
}

std::string SomeTimeLine(Chance& chance) {
  constexpr const char* kTimes[] = {"15Mar1999 12:34:56", "31Oct2021 02:30:00",
                                    "28Mar2021 02:30:00", "01Jan1970 00:00:00",
                                    "19Jan2038 03:14:08", "                  "};
  return "Date/Time " + std::string(chance.From(kTimes)) + "\r\n";
}

}  // namespace fuzz
