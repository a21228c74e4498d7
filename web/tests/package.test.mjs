// The package under Node against `qvslm dump`, member by member.
import assert from "node:assert/strict";
import { readdirSync, readFileSync } from "node:fs";
import { test } from "node:test";

import { census, info, MeasurementFileError, read } from "../package/dist/index.js";
import { dump, samples, samplesFolder } from "./native.mjs";

async function collect(source, options) {
  const records = [];
  let fault = null;
  try {
    for await (const record of read(source, options)) records.push(record);
  } catch (error) {
    if (!(error instanceof MeasurementFileError)) throw error;
    fault = error;
  }
  return { records, fault };
}

test("there are samples", () => assert.equal(samples.length, 26));

const zones = [
  "UTC",
  "Europe/Berlin",
  "America/New_York",
  "Australia/Lord_Howe",
  // Winter is its daylight time.
  "Europe/Dublin",
  // Two hours ahead of its winter.
  "Antarctica/Troll",
];
for (const tz of zones) {
  for (const name of samples) {
    test(`${name} as dump gives it, ${tz}`, async () => {
      const native = dump(samplesFolder + name, tz);
      const own = await collect(samplesFolder + name, { tz });
      assert.equal(own.records.length, native.records.length);
      own.records.forEach((record, i) => {
        assert.deepEqual(record, native.records[i]);
        assert.deepEqual(Object.keys(record), Object.keys(native.records[i]));
      });
      assert.equal(own.fault === null, native.status === 0);
    });
  }
}

const night = samplesFolder + "night_europe.qvd";

test("bytes, Blob and File give what the path gives", async () => {
  const bytes = readFileSync(night);
  const buffer = bytes.buffer.slice(bytes.byteOffset, bytes.byteOffset + bytes.length);
  const expected = dump(night).records;
  // Only a path and a File have a name.
  for (const record of expected) if (record.record === "End") record.FileName = "";
  assert.ok(expected.length > 50);
  for (const source of [bytes, buffer, new Blob([bytes])]) {
    assert.deepEqual((await collect(source)).records, expected);
  }
});

test("the records asked for alone", async () => {
  const { records } = await collect(night, { records: ["Event"] });
  assert.deepEqual(records, dump(night, "UTC", ["--records", "Event"]).records);
  assert.ok(records.length > 0);
});

test("a cut file gives its whole records, then tells where it ends", async () => {
  const whole = readFileSync(night);
  const bytes = whole.subarray(0, whole.length - 700);
  const { records, fault } = await collect(bytes);
  assert.ok(records.length > 0);
  assert.ok(records.every((record) => record.cut === undefined));
  assert.ok(fault.offset > 0 && fault.offset <= bytes.length);
  assert.match(fault.message, /the file ends before the end of its data/);
  const all = await collect(bytes, { cut: true });
  assert.ok(all.records.length >= records.length);
});

test("what is no measurement file is refused", async () => {
  const { records, fault } = await collect(new TextEncoder().encode("no such file at all\n"));
  assert.deepEqual(records, []);
  assert.equal(fault.offset, -1);
});

test("a name that is no record's is refused", async () => {
  await assert.rejects(collect(night, { records: ["Intervall"] }), RangeError);
});

test("a zone that there is not is refused", async () => {
  await assert.rejects(collect(night, { tz: "Europe/Nowhere" }), RangeError);
});

test("info and census of a night", async () => {
  const told = await info(night, { tz: "Europe/Berlin" });
  assert.equal(told.model, 486);
  assert.equal(told.serial, "2071");
  assert.equal(told.titles[0], "Traffic noise");
  assert.equal(told.start, "2024-10-26T22:00:00+02:00");
  assert.equal(told.lastStop, "2024-10-27T06:00:00+01:00");
  assert.equal(told.whole, true);
  assert.equal(told.census.Intervals, 48);
  assert.equal((await census(night)).LevelMarks, 8);
});

test("a zone that there is not leaves nothing open", async () => {
  const open = () => readdirSync("/proc/self/fd").length;
  const before = open();
  for (const call of [info, census, collect]) {
    await assert.rejects(call(samplesFolder + samples[0], { tz: "Europe/Nowhere" }), RangeError);
  }
  assert.equal(open(), before);
});
