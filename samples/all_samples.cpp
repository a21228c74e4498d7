#include "band_samples.h"
#include "general_samples.h"
#include "model431_samples.h"
#include "model442_samples.h"

namespace samples {

const std::vector<SampleEntry>& AllSamples() {
  static const std::vector<SampleEntry> entries = {
      {"general_spine.qvd", "header, settings, events, level marks, end", GeneralSpine},
      {"general_short_term.qvd", "a measurement of 15 minutes with summary and results",
       GeneralShortTerm},
      {"general_day.qvd", "a day of one-minute intervals with every optional block", GeneralDay},
      {"general_time_history.qvd", "time histories of three forms with run markers",
       GeneralTimeHistory},
      {"general_settings_form.qvd", "settings form: no text header", GeneralSettingsForm},
      {"general_title_form.qvd", "title form: three title lines before the header",
       GeneralTitleForm},
      {"general_end_stamps.qvd", "intervals stamped at their end, with a level of their own",
       GeneralEndStamps},
      {"general_firmware_09.qvd", "firmware 0.9: older forms, long distribution",
       GeneralFirmware09},
      {"general_older_model.qvd", "model 412 at firmware 1.127", GeneralOlderModel},
      {"general_blocks.qvd", "block images of items 7 and 8", GeneralBlocks},
      {"model431_octaves.qvd", "model 431, mode 0: ten and thirty bands", Model431Octaves},
      {"model431_short.qvd", "model 431, mode 1: summaries with two stamps", Model431Short},
      {"model431_logging.qvd", "model 431, mode 2: intervals, time history, summaries, images",
       Model431Logging},
      {"model431_environment.qvd", "model 431, mode 3: end stamps, whole decibels",
       Model431Environment},
      {"model442_spectra.qvd", "model 442, mode 0: spectra, lists 21 and 27, images",
       Model442Spectra},
      {"model442_short.qvd", "model 442, mode 1: level marks", Model442Short},
      {"model442_logging.qvd", "model 442, mode 2: intervals, time history, list 27 of all groups",
       Model442Logging},
      {"model442_environment.qvd", "model 442, mode 3, firmware 3.111", Model442Environment},
      {"model442_bands.qvd", "model 442, mode 4: band intervals and tables, lists 21",
       Model442Bands},
      {"model442_narrow.qvd", "model 442, mode 5: tables of 401 lines", Model442Narrow},
      {"model442_tally.qvd", "model 442, mode 7: tallies, lists 21 and 27", Model442Tally},
      {"bands_general.qvd", "items 129 to 132 with their owners, model 486", BandsGeneral},
      {"bands_model431.qvd", "items 129 to 132 with their owners, model 431", BandsModel431},
      {"bands_model442.qvd", "items 129 to 132 with their owners, model 442", BandsModel442},
      {"night_europe.qvd", "the night of 26 October 2024, summer time ends in Europe",
       NightInEurope},
      {"night_america.qvd", "the night of 2 November 2024, daylight time ends in America",
       NightInAmerica},
  };
  return entries;
}

}  // namespace samples
