#include "settings/results_record.h"

namespace qvslm {

u16 ResultFlagsOfContext() {
  const TranslateContext& context = *CurrentContext;
  bool const secondAux = context.AuxEnabled1 != 0;
  bool const anyAux = context.IntervalAuxOn == 1 || context.SummaryAuxOn == 1 || secondAux;
  u16 flags = 0;
  if (context.SettingQ209 != 0) flags |= kQ209NotZero;
  if (anyAux) flags |= kAuxInRecords;
  if (context.ExtraBlockOn == 1) flags |= kSpansInRecords;
  if (secondAux) flags |= kSecondAuxEnabled;
  if (context.SettingQ120 != 0) flags |= kCountersByQ120;
  if (context.SettingQ118 != 0) flags |= kCountersByQ118;
  return flags;
}

}  // namespace qvslm
