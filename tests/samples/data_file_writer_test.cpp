// The bytes of the files that samples and tests are written with, literally.
#include "data_file_writer.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "support/file_contents.h"
#include "support/temp_folder.h"

namespace {

using samples::Body;
using samples::DataFile;

std::string Hex(std::string_view bytes) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string hex;
  for (char const byte : bytes) {
    auto const value = static_cast<unsigned char>(byte);
    if (!hex.empty()) hex += ' ';
    hex += kDigits[value / 16];
    hex += kDigits[value % 16];
  }
  return hex;
}
std::string Hex(const Body& body) {
  return Hex(body.Bytes());
}

TEST(Body, NumbersStandHighByteFirst) {
  EXPECT_EQ(Hex(Body().U8(0xAB).U16(0x1234).U24(0x56789A)), "ab 12 34 56 78 9a");
  EXPECT_EQ(Hex(Body().U8(-1).U8(256).U16(-2).U16(65536).U24(-3)), "ff 00 ff fe 00 00 ff ff fd");
}

TEST(Body, BytesAndTextsStandAsTheyAre) {
  EXPECT_EQ(Hex(Body().Raw("a\r").Raw({1, 255, 256}).Raw(std::string_view("\0b", 2))),
            "61 0d 01 ff 00 00 62");
  EXPECT_EQ(Hex(Body().Text("ab", 4).Text("abcdef", 3).Text("", 2)), "61 62 00 00 61 62 63 00 00");
  EXPECT_EQ(Hex(Body().Fill(2, 7).Fill(1).Fill(0, 9)), "07 07 00");
}

TEST(Body, IsFilledUpAndOverwritten) {
  EXPECT_EQ(Hex(Body().U8(1).PadTo(3).PadTo(2)), "01 00 00");
  EXPECT_EQ(Hex(Body().Raw({1, 2, 3, 4}).Set(1, {0xAA, 0xBB})), "01 aa bb 04");
  EXPECT_EQ(Hex(Body().U8(1).Set(3, {5, 6})), "01 00 00 05 06");
  EXPECT_EQ(Body().Fill(70).Size(), 70U);
}

TEST(Body, DatesAndTimesArePackedDigits) {
  EXPECT_EQ(Hex(Body().Packed(0).Packed(9).Packed(10).Packed(99).Packed(123)), "00 09 10 99 23");
  EXPECT_EQ(Hex(Body().Date(21, 6, 2024).Date(1, 12, 1999)), "21 06 24 01 12 99");
  EXPECT_EQ(Hex(Body().Time(23, 5, 59)), "23 05 59");
}

TEST(Body, LevelsCountIn256ths) {
  EXPECT_EQ(Hex(Body().Level(65.5).Level(0.00390625).NoLevel()), "41 80 00 01 00 00");
  EXPECT_EQ(Hex(Body().Level(60.501).Level(60.503)), "3c 80 3c 81");  // rounded
  EXPECT_EQ(Hex(Body().Fixed16(255.99609375).Fixed16(1)), "ff ff 01 00");
  EXPECT_EQ(Hex(Body().SignedFixed16(1.5).SignedFixed16(-0.5).SignedFixed16(-64)),
            "01 80 ff 80 c0 00");
  EXPECT_EQ(Hex(Body().Fixed24(2.5).Fixed24(0.0000152587890625)), "02 80 00 00 00 01");
  EXPECT_EQ(Hex(Body().BandPair(60, 5)), "3c 05");
}

TEST(Body, LengthsOfTimeHaveThreeForms) {
  EXPECT_EQ(Hex(Body().Duration3(3.25)), "03 40 00");
  // 258 hours, 3 minutes, 4.5 seconds.
  EXPECT_EQ(Hex(Body().Duration5(928984.5)), "01 02 03 04 80");
  EXPECT_EQ(Hex(Body().Duration6(928984.5)), "01 02 03 04 80 00");
  EXPECT_EQ(Hex(Body().Duration5(59.75)), "00 00 00 3b c0");
  EXPECT_EQ(Hex(Body().Duration5(3600)), "00 01 00 00 00");
}

TEST(DataFile, BeginsWithItsHeader) {
  EXPECT_EQ(DataFile().Header({}).Bytes(),
            "L measurement file\r\n486 1234\r\n1.100\r\nfourth line\r\n"
            "Date/Time:21Jun2024 12:00:00\r\nlast header line\r\n");
  EXPECT_EQ(DataFile()
                .Titles("one", "two", "")
                .Header({.Model = 442,
                         .Serial = "A7",
                         .Firmware = "3.6",
                         .Date = "01Jan1999",
                         .Time = "23:59:59",
                         .ModeTag = "SSA",
                         .FirstLine = "*",
                         .FourthLine = ""})
                .Bytes(),
            "@one\r\n@two\r\n@\r\n*\r\n442A7\r\n3.6\r\n\r\n"
            "Date/Time:01Jan1999 23:59:59\r\nSSA\r\nseventh line\r\nlast header line\r\n");
  std::string const of431 = DataFile().Header({.Model = 431, .ModeTag = "OBA "}).Bytes();
  EXPECT_NE(of431.find("\r\nOBA \r\nseventh line\r\n"), std::string::npos);
}

TEST(DataFile, LinesHaveTheirNumberInThreeColumns) {
  EXPECT_EQ(DataFile().Line("any").Q(2, "title").Q(157, "3").R(12, "").Bytes(),
            "any\r\nQ  2,title\r\nQ157,3\r\nR 12,\r\n");
  EXPECT_EQ(DataFile().EndLines("nd", "second").Bytes(), "End\r\nsecond\r\n");
}

TEST(DataFile, ItemsHaveTheirFrames) {
  EXPECT_EQ(Hex(DataFile().Item(5, Body().U8(7).U8(8)).Item(4, Body()).Bytes()),
            "05 00 02 07 08 04 00 00");
  EXPECT_EQ(Hex(DataFile().Item(9, Body().Fill(258)).Bytes().substr(0, 4)), "09 01 02 00");
  EXPECT_EQ(Hex(DataFile().Stream(6, Body().Raw({60, 1})).EndOfData().Bytes()), "06 3c 01 00 00");
  EXPECT_EQ(Hex(DataFile().List(27, 3, {Body().U8(1), Body().Raw({2, 3, 4})}).Bytes()),
            "1b 03 01 00 00 02 03 04 00");
  EXPECT_EQ(Hex(DataFile().List(21, 5, {}).Raw("x").Bytes()), "15 05 00 78");
}

TEST(DataFile, IsSavedByteForByte) {
  test::TempFolder const folder;
  std::string const path = folder.Path() + "/saved.qvd";
  DataFile file;
  file.Line("a longer file that was there before").Save(path);
  DataFile().Raw(std::string_view("a\r\n\0\x1a", 5)).Save(path);
  EXPECT_EQ(Hex(test::Contents(path)), "61 0d 0a 00 1a");
  EXPECT_EQ(file.Size(), 37U);
  EXPECT_THROW(file.Save(folder.Path()), std::runtime_error);
  EXPECT_THROW(file.Save("/no/such/folder/file.qvd"), std::runtime_error);
}

}  // namespace
