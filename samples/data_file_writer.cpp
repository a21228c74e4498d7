#include "data_file_writer.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace samples {

namespace {

int Rounded(double value) {
  return static_cast<int>(std::lround(value));
}

}  // namespace

Body& Body::U8(int value) {
  bytes_.push_back(static_cast<char>(value & 0xFF));
  return *this;
}

Body& Body::U16(int value) {
  return U8(value >> 8).U8(value);
}

Body& Body::U24(int value) {
  return U8(value >> 16).U16(value);
}

Body& Body::Raw(std::string_view bytes) {
  bytes_.append(bytes);
  return *this;
}

Body& Body::Raw(std::initializer_list<int> bytes) {
  for (int const byte : bytes) U8(byte);
  return *this;
}

Body& Body::Text(std::string_view text, std::size_t width) {
  std::string field(text.substr(0, width));
  field.resize(width, '\0');
  return Raw(field);
}

Body& Body::Fill(std::size_t count, int value) {
  bytes_.append(count, static_cast<char>(value & 0xFF));
  return *this;
}

Body& Body::PadTo(std::size_t size) {
  if (bytes_.size() < size) bytes_.resize(size, '\0');
  return *this;
}

Body& Body::Packed(int value) {
  return U8(value / 10 % 10 * 16 + value % 10);
}

Body& Body::Date(int day, int month, int year) {
  return Packed(day).Packed(month).Packed(year % 100);
}

Body& Body::Time(int hour, int minute, int second) {
  return Packed(hour).Packed(minute).Packed(second);
}

Body& Body::Level(double decibels) {
  return U16(Rounded(decibels * 256));
}

Body& Body::NoLevel() {
  return U16(0);
}

Body& Body::Fixed16(double value) {
  return U16(Rounded(value * 256));
}

Body& Body::SignedFixed16(double value) {
  return U16(Rounded(value * 256) & 0xFFFF);
}

Body& Body::Fixed24(double value) {
  return U24(Rounded(value * 65536));
}

Body& Body::Duration3(double seconds) {
  return U24(Rounded(seconds * 65536));
}

Body& Body::Duration5(double seconds) {
  int const minutes = static_cast<int>(seconds / 60);
  return U16(minutes / 60).U8(minutes % 60).Fixed16(seconds - minutes * 60.0);
}

Body& Body::Duration6(double seconds) {
  int const minutes = static_cast<int>(seconds / 60);
  return U16(minutes / 60).U8(minutes % 60).Fixed24(seconds - minutes * 60.0);
}

Body& Body::BandPair(int hi, int lo) {
  return U8(hi).U8(lo);
}

Body& Body::Set(std::size_t position, std::initializer_list<int> bytes) {
  PadTo(position + bytes.size());
  for (int const byte : bytes) bytes_[position++] = static_cast<char>(byte & 0xFF);
  return *this;
}

DataFile& DataFile::Line(std::string_view text) {
  bytes_.append(text).append("\r\n");
  return *this;
}

DataFile& DataFile::Titles(std::string_view first, std::string_view second,
                           std::string_view third) {
  for (std::string_view const title : {first, second, third}) Line(std::string("@").append(title));
  return *this;
}

DataFile& DataFile::Header(const TextHeader& header) {
  Line(header.FirstLine);
  Line(std::to_string(header.Model) + header.Serial);
  Line(header.Firmware);
  Line(header.FourthLine);
  Line("Date/Time:" + header.Date + " " + header.Time);
  if (header.Model == 431 || header.Model == 442) {
    Line(header.ModeTag);
    Line("seventh line");
  }
  return Line("last header line");
}

DataFile& DataFile::Q(int number, std::string_view value) {
  char head[8];
  std::snprintf(head, sizeof head, "Q%3d,", number % 1000);
  return Line(std::string(head).append(value));
}

DataFile& DataFile::R(int number, std::string_view value) {
  char head[8];
  std::snprintf(head, sizeof head, "R%3d,", number % 1000);
  return Line(std::string(head).append(value));
}

DataFile& DataFile::EndLines(std::string_view first, std::string_view second) {
  return Line(std::string("E").append(first)).Line(second);
}

DataFile& DataFile::Item(int type, const Body& body) {
  return Raw(Body().U8(type).U16(static_cast<int>(body.Size())).Raw(body.Bytes()).Bytes());
}

DataFile& DataFile::Stream(int type, const Body& entries) {
  return Raw(Body().U8(type).Raw(entries.Bytes()).U8(0).Bytes());
}

DataFile& DataFile::List(int type, int length, const std::vector<Body>& blocks) {
  Raw(Body().U8(type).U8(length).Bytes());
  for (const Body& block : blocks) {
    Raw(Body(block).PadTo(static_cast<std::size_t>(length)).Bytes());
  }
  return Raw(Body().U8(0).Bytes());
}

DataFile& DataFile::EndOfData() {
  return Raw(Body().U8(0).Bytes());
}

DataFile& DataFile::Raw(std::string_view bytes) {
  bytes_.append(bytes);
  return *this;
}

void DataFile::Save(const std::string& path) const {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes_.data(), static_cast<std::streamsize>(bytes_.size()));
  out.close();
  if (!out) throw std::runtime_error("cannot write " + path);
}

}  // namespace samples
