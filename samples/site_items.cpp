#include "site_items.h"

#include "block_bytes.h"

namespace samples {

namespace {

// A block of which every byte holds its position until it is set.
Body Positions(int size) {
  Body body;
  for (int position = 0; position < size; ++position) body.U8(position);
  return body;
}

void SetStamp(Body& body, std::size_t position, Clock reading) {
  Body stamp;
  PutStamp(stamp, reading);
  for (std::size_t i = 0; i < stamp.Size(); ++i) {
    body.Set(position + i, {static_cast<std::uint8_t>(stamp.Bytes()[i])});
  }
}

void SetField(Body& body, std::size_t position, std::size_t width, std::string text) {
  text.resize(width, '\0');
  for (std::size_t i = 0; i < width; ++i) body.Set(position + i, {text[i]});
}

void SetLevel(Body& body, std::size_t position, double stored) {
  int const parts = static_cast<int>(stored * 256) | 1;
  body.Set(position, {parts >> 8, parts & 0xFF});
}

// Value of two bytes over a full scale of 32512.
float Scaled(const BlockBytes& at, std::size_t position) {
  return static_cast<float>(at.Word(position) / 32512.0);
}

QvReference431 Record431(SampleBuilder& sample, const Reference& reference, Body& body) {
  auto const offset = static_cast<double>(sample.State().levelOffset);
  body.Set(49, {0x3F, 0x80}).Set(51, {0x7F, 0x00}).Set(53, {0x1F, 0xC0});
  SetLevel(body, 7, reference.level - offset);
  SetLevel(body, 21, reference.level - 0.25 - offset);
  for (std::size_t const position : {43U, 45U, 47U}) {
    SetLevel(body, position, 60.0 + static_cast<double>(position) - offset);
  }
  body.Set(127, {0x12, 0x34});
  BlockBytes const at(body, sample.State().levelOffset);
  auto record = sample.Begin<QvReference431>(QV_REFERENCE_431);
  record.ReferenceByte0 = at.Byte(0);
  record.ReferenceByte1 = at.Byte(1);
  record.ReferenceByte2 = at.Byte(2);
  record.ReferenceValue3 = at.SignedFixed(3);
  record.ReferenceValue5 = at.SignedFixed(5);
  record.ReferenceLevel7 = at.Level(7);
  record.ReferenceTime9 = reference.first;
  record.ReferenceTime15 = reference.second;
  record.ReferenceLevel21 = at.Level(21);
  record.ReferenceLevel43 = at.Level(43);
  record.ReferenceLevel45 = at.Level(45);
  record.ReferenceLevel47 = at.Level(47);
  record.ReferenceValue49 = Scaled(at, 49);
  record.ReferenceValue51 = Scaled(at, 51);
  record.ReferenceValue53 = Scaled(at, 53);
  record.ReferenceByte55 = at.Byte(55);
  record.ReferenceByte56 = at.Byte(56);
  at.Bytes(57, record.ReferenceBytes57);
  record.ReferenceByte90 = at.Byte(90);
  record.ReferenceByte91 = at.Byte(91);
  record.ReferenceByte92 = at.Byte(92);
  record.ReferenceWord127 = at.Word(127);
  return record;
}

QvReference Record442(SampleBuilder& sample, const Reference& reference, Body& body) {
  auto const offset = static_cast<double>(sample.State().levelOffset);
  for (std::size_t const position : {21U, 23U, 25U, 39U, 41U}) {
    SetLevel(body, position, reference.level + static_cast<double>(position) / 8 - offset);
  }
  int const deviation = static_cast<int>(reference.deviation * 256);
  body.Set(37, {deviation >> 8, deviation});
  BlockBytes const at(body, sample.State().levelOffset);
  auto record = sample.Begin<QvReference>(QV_REFERENCE);
  record.ReferenceByte0 = at.Byte(0);
  record.ReferenceByte1 = at.Byte(1);
  record.ReferenceValue3 = at.SignedFixed(3);
  record.ReferenceValue5 = at.SignedFixed(5);
  record.ReferenceValue7 = at.SignedFixed(7);
  record.ReferenceTime9 = reference.first;
  record.ReferenceTime15 = reference.second;
  record.ReferenceLevel21 = at.Level(21);
  record.ReferenceLevel23 = at.Level(23);
  record.ReferenceLevel25 = at.Level(25);
  record.ReferenceValue37 = static_cast<float>(reference.deviation);
  record.ReferenceLevel39 = at.Level(39);
  record.ReferenceLevel41 = at.Level(41);
  record.ReferenceWord63 = at.Word(63);
  return record;
}

// The fields that the site records of both models have.
template <class R>
R SiteRecord(const SampleBuilder& sample, int code, const BlockBytes& at) {
  auto record = sample.Begin<R>(code);
  record.SiteByte0 = at.Byte(0);
  record.SiteByte1 = at.Byte(1);
  record.SiteByte2 = at.Byte(2);
  record.SiteByte3 = at.Byte(3);
  record.SiteByte4 = at.Byte(4);
  SetText(record.SiteText9, at.Chars(9, 5));
  SetText(record.SiteText14, at.Chars(14, 4));
  record.SiteByte18 = at.Byte(18);
  SetText(record.SiteText19, at.Chars(19, 30));
  SetText(record.SiteText49, at.Chars(49, 30));
  SetText(record.SiteText79, at.Chars(79, 30));
  record.SiteByte109 = at.Byte(109);
  record.SiteByte110 = at.Small(110);
  record.SiteByte111 = at.Byte(111);
  record.SiteByte112 = at.Byte(112);
  record.SiteByte113 = at.Byte(113);
  record.SiteByte114 = at.Byte(114);
  record.SiteByte115 = at.Byte(115);
  record.SiteByte116 = at.Byte(116);
  record.SiteByte117 = at.Byte(117);
  record.SiteByte118 = at.Byte(118);
  record.SiteByte119 = at.Byte(119);
  record.SiteByte120 = at.Byte(120);
  SetText(record.SiteText121, at.Chars(121, 30));
  record.NewSiteNumber = at.Byte(151);
  SetText(record.SiteText152, at.Chars(152, 30));
  SetText(record.SiteText182, at.Chars(182, 8));
  record.SiteByte190 = at.Byte(190);
  record.SiteByte191 = at.Byte(191);
  record.SiteByte192 = at.Byte(192);
  record.SiteByte193 = at.Byte(193);
  record.SiteByte194 = at.Byte(194);
  record.SiteByte195 = at.Byte(195);
  record.SiteByte196 = at.Byte(196);
  record.SiteByte197 = at.Byte(197);
  record.SiteValue198 = at.SignedFixed(198);
  SetText(record.SiteText200, at.Chars(200, 8));
  record.SiteByte208 = at.Byte(208);
  record.SiteByte209 = at.Byte(209);
  SetText(record.SiteClock210, at.PackedTime(210));
  return record;
}

}  // namespace

void AddReference(SampleBuilder& sample, const Reference& reference, double levelOffset431) {
  Instrument& state = sample.State();
  bool const is431 = state.model == 431;
  Body body = Positions(is431 ? 129 : 65);
  SetStamp(body, 9, reference.first);
  SetStamp(body, 15, reference.second);
  if (is431) {
    sample.Deliver(Record431(sample, reference, body));
    state.levelOffset = static_cast<float>(levelOffset431);
  } else {
    sample.Deliver(Record442(sample, reference, body));
    state.referenceLevel = static_cast<float>(reference.deviation);
  }
  sample.File().Item('C', body);
  ++sample.Census().References;
}

void AddSite(SampleBuilder& sample, const Site& site) {
  Instrument& state = sample.State();
  Body body = Positions(226);
  SetField(body, 9, 5, "mg/m3");
  SetField(body, 14, 4, "EUR1");
  SetField(body, 19, 30, site.name);
  SetField(body, 49, 30, site.street);
  SetField(body, 79, 30, site.note);
  SetField(body, 121, 30, "12 V battery, mains by night");
  SetField(body, 152, 30, "modem at the town hall");
  SetField(body, 182, 8, "555-0100");
  SetField(body, 200, 8, "level 2");
  SetField(body, 214, 4, "deg");
  body.Set(110, {1}).Set(151, {site.number}).Set(198, {0xFE, 0x40}).Set(210, {0x07, 0x30});
  BlockBytes const at(body, 0);
  if (state.model == 431) {
    sample.Deliver(SiteRecord<QvSite431>(sample, QV_SITE_431, at));
  } else {
    auto record = SiteRecord<QvSite>(sample, QV_SITE, at);
    record.SiteByte7 = at.Byte(7);
    record.SiteByte8 = at.Byte(8);
    record.SiteValue212 = at.SignedFixed(212);
    SetText(record.SiteText214, at.Chars(214, 4));
    sample.Deliver(record);
  }
  sample.File().Item('S', body);
  state.site = site.number;
  ++sample.Census().Sites;
}

}  // namespace samples
