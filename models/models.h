// The decoders of what only models 431 and 442 store: setups, reference and site records, lists of
// spectra and fields, and their forms of item 2. All return a status.
#pragma once

#include "api/context.h"

namespace qvslm {

// Item 'M': the setup of a stored measurement, of every model that has it.
i32 DecodeRecM();

// Item 'C': reference records. Item 'S': site records.
i32 DecodeRecC();
i32 DecodeRecC431();
i32 DecodeRecS();
i32 DecodeRecS431();

// Items 21 and 27: one block of a list; they move FileOffset.
i32 DecodeStream21();
i32 DecodeStream27();

// Item 2, by model and mode; they move FileOffset behind the record.
i32 DecodeRec2Model431Mode0();
i32 DecodeRec2Model431Mode1();
i32 DecodeRec2Model442Mode0();
i32 DecodeRec2Model442Mode4();
i32 DecodeRec2Model442Mode5();
i32 DecodeRec2Model442Mode7();

}  // namespace qvslm
