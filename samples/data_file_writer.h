// Writes measurement files as the instruments do, item by item.
//
// DataFile is the file, Body the bytes of one item. Both are built in steps that read in file
// order:
//
//   DataFile file;
//   file.Header({.Model = 486, .Serial = " 1234", .Firmware = "1.100"})
//       .Q(157, "3")
//       .Item(5, Body().U8(0).Date(21, 6, 2024).Time(12, 30, 0).Level(65.5).U8(0x20))
//       .EndOfData();
//   file.Save("sample.dat");
//
// The writer knows the format of the files and nothing of the library that reads them: each checks
// the other.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace samples {

// The bytes of one item, in the number forms of the instruments. Multi-byte numbers stand high byte
// first.
class Body {
 public:
  Body& U8(int value);
  Body& U16(int value);
  Body& U24(int value);
  Body& Raw(std::string_view bytes);
  Body& Raw(std::initializer_list<int> bytes);
  // Characters, filled up with NULs to the width, or cut to it.
  Body& Text(std::string_view text, std::size_t width);
  Body& Fill(std::size_t count, int value = 0);
  // Zeros up to the given size of the whole body.
  Body& PadTo(std::size_t size);
  // Two packed decimal digits in one byte.
  Body& Packed(int value);
  // Packed decimal day, month (1 to 12) and year (of which the last two digits are written).
  Body& Date(int day, int month, int year);
  // Packed decimal hour, minute, second.
  Body& Time(int hour, int minute, int second);
  // Whole decibels and 1/256 decibels, 0 to 255.996. A level whose second byte is 0 reads as no
  // value.
  Body& Level(double decibels);
  Body& NoLevel();
  // Whole number and 1/256 parts: Fixed16 from 0 to 255.996, SignedFixed16 from -64 to 191.996.
  Body& Fixed16(double value);
  Body& SignedFixed16(double value);
  // Whole number, then 16 bits of fraction.
  Body& Fixed24(double value);
  // Lengths of time: 3 bytes (seconds, 1/65536), 5 (hours, minutes, seconds, 1/256), 6 (hours,
  // minutes, seconds, 1/65536).
  Body& Duration3(double seconds);
  Body& Duration5(double seconds);
  Body& Duration6(double seconds);
  // A band level of items 129 to 132, as hi and lo byte; tables stand with their last band first.
  Body& BandPair(int hi, int lo);

  // Overwrites one byte or several at a position within the body.
  Body& Set(std::size_t position, std::initializer_list<int> bytes);

  const std::string& Bytes() const { return bytes_; }
  std::size_t Size() const { return bytes_.size(); }

 private:
  std::string bytes_;
};

// The text lines at the head of a file. Lines 1 and 4 are free text; the first must open with 'L',
// a blank or '*'.
struct TextHeader {
  int Model = 486;
  std::string Serial = " 1234";  // stands behind the three digits of the model
  std::string Firmware = "1.100";
  std::string Date = "21Jun2024";  // columns 10 to 18 of line 5
  std::string Time = "12:00:00";   // columns 20 to 27 of line 5
  std::string ModeTag = "";        // models 431 and 442: "OBA ", "SSA" and so on
  std::string FirstLine = "L measurement file";
  std::string FourthLine = "fourth line";
};

class DataFile {
 public:
  // One text line with carriage return and line feed.
  DataFile& Line(std::string_view text);
  // The three title lines that may stand before the header; each is written behind an '@'.
  DataFile& Titles(std::string_view first, std::string_view second, std::string_view third);
  // The text header of a plain file: six lines, eight on models 431 and 442.
  DataFile& Header(const TextHeader& header);
  // A line of a settings or results block: number in three columns, comma, value.
  DataFile& Q(int number, std::string_view value);
  DataFile& R(int number, std::string_view value);
  // An 'E' item: two lines, the first opens with 'E'.
  DataFile& EndLines(std::string_view first, std::string_view second);
  // A framed item: type byte, length of two bytes, body.
  DataFile& Item(int type, const Body& body);
  // A stream: type byte, entries as they stand in the body, closing 0.
  DataFile& Stream(int type, const Body& entries);
  // A list: type byte, block length of one byte, the blocks, closing 0.
  DataFile& List(int type, int length, const std::vector<Body>& blocks);
  // The 0 that ends the data.
  DataFile& EndOfData();
  DataFile& Raw(std::string_view bytes);

  const std::string& Bytes() const { return bytes_; }
  std::size_t Size() const { return bytes_.size(); }
  // Writes the file; throws std::runtime_error when it cannot be written.
  void Save(const std::string& path) const;

 private:
  std::string bytes_;
};

}  // namespace samples
