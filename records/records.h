// The decoders of the measurement records. Each takes one record from RecordBuffer and delivers it
// to the output record; records of a family's own file position (1, 2, 5) also move FileOffset
// behind themselves. All return a status.
#pragma once

#include "api/context.h"

namespace qvslm {

// Item 1: intervals. The limit is that of register Q62.
i32 DecodeRec1(i16 limitLevel);
i32 DecodeRec1Mode4();

// Items 2 and 3: summaries of a run and of a day.
i32 DecodeRec2();
i32 DecodeRec3();

// Items 4 and 5: events and level marks.
i32 DecodeRec4();
i32 DecodeRec5();

// Items 7 and 8: block images.
i32 DecodeRec8();

// Items 6 and 7: one call's share of a sample stream, which moves FileOffset.
i32 DecodeStream();

// The way across a stream without delivering it, a block at a time: from an entry of the block at
// FileOffset, by its place there, to one of the next block, or behind the stream. FileOffset
// follows.
inline constexpr i32 kBehindStream = -1;
i32 SkipStreamBlock(i32& entry);

// Items 129 to 132: bands of an interval, a summary, a level mark, and a series within an interval.
i32 DecodeRec129();
i32 DecodeRec130();
i32 DecodeRec131();
i32 DecodeRec132();

}  // namespace qvslm
