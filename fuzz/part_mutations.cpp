#include "part_mutations.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "part_makers.h"

// The fuzzer's own mutation of bytes, in place.
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace fuzz {

namespace {

using Place = Parts::difference_type;

// The parts behind the text header.
std::size_t FirstBehindHeader(const Parts& parts) {
  HeaderPlace const header = FindHeader(parts);
  return header.first + header.lines;
}

// One of the parts behind the header that fit; the number of parts when there is none.
template <class Fits>
std::size_t Choose(const Parts& parts, Chance& chance, Fits fits) {
  std::vector<std::size_t> found;
  for (std::size_t at = FirstBehindHeader(parts); at < parts.size(); ++at) {
    if (fits(parts[at])) found.push_back(at);
  }
  return found.empty() ? parts.size() : found[chance.Below(found.size())];
}

std::size_t ChooseAny(const Parts& parts, Chance& chance) {
  return Choose(parts, chance, [](const Part&) { return true; });
}

std::size_t ChooseKind(const Parts& parts, Chance& chance, PartKind kind) {
  return Choose(parts, chance, [kind](const Part& part) { return part.kind == kind; });
}

void Insert(Parts& parts, Chance& chance, Part part) {
  std::size_t const from = FirstBehindHeader(parts);
  std::size_t const at = from + chance.Below(parts.size() - from + 1);
  parts.insert(parts.begin() + static_cast<Place>(at), std::move(part));
}

void Swap(Parts& parts, Chance& chance) {
  std::size_t const one = ChooseAny(parts, chance);
  std::size_t const other = ChooseAny(parts, chance);
  if (one < parts.size() && other < parts.size()) std::swap(parts[one], parts[other]);
}

void Duplicate(Parts& parts, Chance& chance) {
  std::size_t const at = ChooseAny(parts, chance);
  if (at < parts.size()) Insert(parts, chance, Part(parts[at]));
}

void Drop(Parts& parts, Chance& chance) {
  std::size_t const at = ChooseAny(parts, chance);
  if (at >= parts.size()) return;
  std::size_t const run = chance.OneIn(4) ? 1 + chance.Below(8) : 1;
  std::size_t const end = std::min(at + run, parts.size());
  parts.erase(parts.begin() + static_cast<Place>(at), parts.begin() + static_cast<Place>(end));
}

// The declared length alone: the items behind shift against it.
void ChangeLength(Parts& parts, Chance& chance) {
  std::size_t const at = ChooseKind(parts, chance, PartKind::Item);
  if (at >= parts.size()) return;
  std::string& bytes = parts[at].bytes;
  std::size_t const body = bytes.size() - kItemHead;
  std::size_t const lengths[] = {body + 1, body - 1, 0,    1,     body / 2,
                                 6200,     6201,     6202, 65535, chance.Below(6300)};
  std::size_t const length = chance.From(lengths);
  bytes[1] = static_cast<char>(length >> 8);
  bytes[2] = static_cast<char>(length);
}

// Body and declared length together.
void Resize(Parts& parts, Chance& chance) {
  std::size_t const at = ChooseKind(parts, chance, PartKind::Item);
  if (at >= parts.size()) return;
  std::string body = parts[at].bytes.substr(kItemHead);
  std::size_t const sizes[] = {body.size() + 1, body.size() - std::min<std::size_t>(body.size(), 1),
                               chance.Below(body.size() + 1), body.size() + chance.Below(300)};
  body.resize(chance.From(sizes), static_cast<char>(chance.Byte()));
  parts[at] = MakeItem(static_cast<unsigned char>(parts[at].bytes[0]), body);
}

void ChangeType(Parts& parts, Chance& chance) {
  std::size_t const at = ChooseKind(parts, chance, PartKind::Item);
  if (at < parts.size()) parts[at].bytes[0] = static_cast<char>(SomeItemType(chance));
}

// A byte of a body to one of the values that tell forms apart.
void SetByte(Parts& parts, Chance& chance) {
  constexpr int kTelling[] = {0, 1, 2, 3, 4, 5, 8, 16, 32, 64, 127, 128, 191, 192, 255};
  std::size_t const at = ChooseAny(parts, chance);
  if (at >= parts.size() || parts[at].kind == PartKind::EndOfData) return;
  std::string& bytes = parts[at].bytes;
  std::size_t const from = parts[at].kind == PartKind::Item ? kItemHead : 1;
  if (bytes.size() <= from) return;
  std::size_t const place = from + chance.Below(bytes.size() - from);
  bytes[place] = static_cast<char>(chance.OneIn(2) ? chance.From(kTelling) : chance.Byte());
}

// The fuzzer's own mutation within one part, with the length mended behind it.
void MutateBody(Parts& parts, Chance& chance) {
  std::size_t const at = ChooseAny(parts, chance);
  if (at >= parts.size()) return;
  Part& part = parts[at];
  bool const item = part.kind == PartKind::Item;
  std::string body = item ? part.bytes.substr(kItemHead) : part.bytes;
  std::size_t const size = body.size();
  body.resize(size + 64);
  body.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(body.data()), size, body.size()));
  if (item) {
    part = MakeItem(static_cast<unsigned char>(part.bytes[0]), body);
  } else {
    part.bytes = body;
  }
}

// The bytes of a setup that steer the records behind it.
void SteerSetup(Parts& parts, Chance& chance) {
  constexpr std::size_t kSteering[] = {39,  41,  41,  42,  47,  48,  49,  103, 104, 140, 141,
                                       142, 176, 179, 181, 182, 183, 184, 185, 186, 187};
  std::size_t const at = Choose(parts, chance, [](const Part& part) {
    return part.kind == PartKind::Item && part.bytes[0] == 'M';
  });
  if (at >= parts.size()) {
    Insert(parts, chance, SomeSetup(ModelOf(parts), chance));
    return;
  }
  std::size_t const position = chance.From(kSteering);
  std::string& bytes = parts[at].bytes;
  if (kItemHead + position >= bytes.size()) return;
  int const value = position == 39    ? static_cast<int>(chance.Below(10))
                    : chance.OneIn(3) ? 1 << chance.Below(8)
                    : chance.OneIn(2) ? static_cast<int>(chance.Below(5))
                                      : chance.Byte();
  bytes[kItemHead + position] = static_cast<char>(value);
}

// Number or value of a settings line; the order of lines is that of other mutations.
void ChangeLine(Parts& parts, Chance& chance) {
  std::size_t const at = ChooseKind(parts, chance, PartKind::Line);
  if (at >= parts.size()) return;
  parts[at] = SomeLine(parts[at].bytes.empty() ? 'Q' : parts[at].bytes[0], ModelOf(parts), chance);
}

void ChangeHeader(Parts& parts, Chance& chance) {
  HeaderPlace const header = FindHeader(parts);
  if (header.lines < 6) return;
  auto const line = [&](std::size_t number) -> std::string& {
    return parts[header.first + number - 1].bytes;
  };
  int const model = ModelOf(parts);
  bool const hasMode = header.lines >= 8;
  switch (chance.Below(5)) {
    case 0:
      line(3) = SomeFirmwareLine(chance);
      break;
    case 1:
      if (hasMode) line(6) = SomeModeLine(model, chance);
      break;
    case 2: {
      int const other = SomeModel(chance);
      line(2) = std::to_string(other) + " 1234\r\n";
      bool const needsMode = other == 431 || other == 442;
      Place const sixth = static_cast<Place>(header.first) + 5;
      if (needsMode && !hasMode) {
        Part const mode{PartKind::HeaderLine, SomeModeLine(other, chance)};
        parts.insert(parts.begin() + sixth, mode);
        parts.insert(parts.begin() + sixth, mode);
      } else if (!needsMode && hasMode) {
        parts.erase(parts.begin() + sixth, parts.begin() + sixth + 2);
      }
      break;
    }
    case 3:
      line(5) = SomeTimeLine(chance);
      break;
    default: {
      std::string& any = line(1 + chance.Below(header.lines));
      if (!any.empty()) any[chance.Below(any.size())] = static_cast<char>(chance.Byte());
      break;
    }
  }
}

void InsertSomething(Parts& parts, Chance& chance) {
  int const model = ModelOf(parts);
  switch (chance.Below(8)) {
    case 0:
      Insert(parts, chance, SomeStream(model, chance));
      break;
    case 1:
      Insert(parts, chance, SomeList(chance));
      break;
    case 2:
      Insert(parts, chance, SomeSetup(model, chance));
      break;
    case 3:
      Insert(parts, chance, SomeLine('Q', model, chance));
      break;
    case 4:
      Insert(parts, chance, SomeLine('R', model, chance));
      break;
    case 5:
      Insert(parts, chance, {PartKind::EndLines, "E first\r\nsecond\r\n"});
      break;
    default:
      Insert(parts, chance, SomeItem(chance));
      break;
  }
}

// Without the results at their end files differ less between model 431 and others.
void DropResults(Parts& parts, Chance&) {
  std::erase_if(parts, [](const Part& part) {
    return part.kind == PartKind::Line && part.bytes.starts_with('R');
  });
}

void AddEnd(Parts& parts, Chance&) {
  parts.push_back({PartKind::EndOfData, std::string(1, '\0')});
}

// Makes the file one that a start accepts: long enough, or with the block that model 442 needs.
void AddTail(Parts& parts, Chance& chance) {
  constexpr std::size_t kLongestTail = 2500;
  AddEnd(parts, chance);
  if (ModelOf(parts) == 442) {
    parts.push_back({PartKind::Line, "R  1,Hedrom-Pulke Model 442\r\n"});
    parts.push_back({PartKind::Line, "R106,1.5\r\n"});
    return;
  }
  std::size_t const size = PutTogether(parts).size();
  if (size < kLongestTail) parts.push_back({PartKind::Rest, std::string(kLongestTail - size, ' ')});
}

}  // namespace

void Mutate(Parts& parts, Chance& chance) {
  using Mutation = void (*)(Parts&, Chance&);
  constexpr Mutation kMutations[] = {Swap,
                                     Duplicate,
                                     Duplicate,
                                     Drop,
                                     Drop,
                                     ChangeLength,
                                     Resize,
                                     ChangeType,
                                     SetByte,
                                     SetByte,
                                     SetByte,
                                     MutateBody,
                                     MutateBody,
                                     MutateBody,
                                     SteerSetup,
                                     SteerSetup,
                                     ChangeLine,
                                     ChangeLine,
                                     ChangeLine,
                                     ChangeHeader,
                                     ChangeHeader,
                                     InsertSomething,
                                     InsertSomething,
                                     InsertSomething,
                                     InsertSomething,
                                     DropResults,
                                     AddEnd,
                                     AddTail};
  chance.From(kMutations)(parts, chance);
}

void TakeOver(Parts& parts, const Parts& other, Chance& chance) {
  std::size_t const from = ChooseAny(other, chance);
  if (from >= other.size()) return;
  std::size_t const count = std::min(1 + chance.Below(12), other.size() - from);
  std::size_t const behindHeader = FirstBehindHeader(parts);
  std::size_t const at = behindHeader + chance.Below(parts.size() - behindHeader + 1);
  auto const first = other.begin() + static_cast<Place>(from);
  parts.insert(parts.begin() + static_cast<Place>(at), first, first + static_cast<Place>(count));
}

void Shorten(Parts& parts, std::size_t size, Chance& chance) {
  std::size_t total = PutTogether(parts).size();
  while (total > size) {
    std::size_t const at = ChooseAny(parts, chance);
    if (at >= parts.size()) return;
    total -= parts[at].bytes.size();
    parts.erase(parts.begin() + static_cast<Place>(at));
  }
}

}  // namespace fuzz
